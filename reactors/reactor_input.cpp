#include "reactors/reactor_input.h"

#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace zorvant {
namespace {

/// Taken when an order is not above 0.
constexpr float kDefaultOrder = 1.5F;
constexpr int kFewestTanks = 2;

struct Given {
    const ProjectState& ps;
    const ReactorInput& input;
    Reactor reactor;
};

/// Whether a quantity fails its rule. NaN fails every rule for a quantity that has to be above 0.
using Fails = bool (*)(const Given&);

bool OrderFails(const Given& g) {
    return g.ps.ModelId == 20 && !(g.ps.OrderN > 0);
}
bool TanksFail(const Given& g) {
    return g.ps.NKask < kFewestTanks;
}
bool VelocityFails(const Given& g) {
    return !(g.input.vRohr > 0);
}
/// Batch and tube.
bool TimeFails(const Given& g) {
    return g.input.given == 0 && !(g.ps.tVerweil > 0);
}
bool LengthFails(const Given& g) {
    return g.input.given == 1 && !(g.input.lRohr > 0);
}
bool ConversionGiven(const Given& g) {
    switch (g.reactor) {
    case Reactor::Batch:
        return g.input.given == 1;
    case Reactor::Tubular:
        return g.input.given == 2;
    case Reactor::Cstr:
        return g.input.given == 0 || g.input.given == 1;
    default:
        return false;
    }
}
bool ForwardConversionFails(const Given& g) {
    return ConversionGiven(g) && !g.ps.ReversibleA && !(g.ps.UA > 0 && g.ps.UA < 1);
}
bool ReversibleConversionFails(const Given& g) {
    return ConversionGiven(g) && g.ps.ReversibleA && !(g.ps.UA != 0 && g.ps.UA < 1);
}
bool NeededBFails(const Given& g) {
    const int model = g.ps.ModelId;
    const bool oneToOne = model == 4 || model == 9 || model == 10 || model == 13 || model == 18;
    return ConversionGiven(g) && oneToOne && g.ps.UA * g.ps.c0[1] >= g.ps.c0[2];
}
bool NoA(const Given& g) {
    return !(g.ps.c0[1] > 0);
}
bool AFails(const Given& g) {
    return !g.ps.EquilibriumModel && NoA(g);
}
bool AAndPFail(const Given& g) {
    return g.ps.EquilibriumModel && g.ps.ModelId != 19 && NoA(g) && !(g.ps.c0[4] > 0);
}
/// Batch and tube: the conversion divides by c(A,0), though the products alone could react.
bool OnlyAFails(const Given& g) {
    return g.ps.EquilibriumModel && NoA(g) && !AAndPFail(g);
}
bool NoB(const Given& g) {
    return InMask(g.ps.SpeciesMask, 2) && !(g.ps.c0[2] > 0) && (!g.ps.EquilibriumModel || !NoA(g));
}
bool BFails(const Given& g) {
    return g.ps.ModelId != 10 && NoB(g);
}
bool SFails(const Given& g) {
    return g.ps.ModelId == 10 && NoB(g);
}
bool BPAndQFail(const Given& g) {
    return g.ps.ModelId == 19 && !(g.ps.c0[2] > 0) && !(g.ps.c0[4] > 0) && !(g.ps.c0[5] > 0);
}
bool CatalystFails(const Given& g) {
    return (g.ps.ModelId == 5 || g.ps.ModelId == 16) && !(g.ps.c0[4] > 0);
}
bool K1Fails(const Given& g) {
    return !(g.ps.k[1] > 0);
}
bool K2Fails(const Given& g) {
    return g.ps.RateMask[1] == '1' && !(g.ps.k[2] > 0);
}
bool K3Fails(const Given& g) {
    return g.ps.RateMask[2] == '1' && !(g.ps.k[3] > 0);
}
bool VolumeFails(const Given& g) {
    const int mode = g.input.given;
    return (mode == 0 || mode == 2 || mode == 3) && !(g.input.V > 0);
}
bool FlowFails(const Given& g) {
    const int mode = g.input.given;
    return (mode == 1 || mode == 2 || mode == 4) && !(g.ps.VPunkt > 0);
}
/// Tank and series.
bool ResidenceTimeFails(const Given& g) {
    return (g.input.given == 3 || g.input.given == 4) && !(g.ps.tVerweil > 0);
}

struct Rule {
    Fails fails;
    const char* text; ///< with its line ends; "%" stands for the c(B,0) that the conversion needs
};

constexpr const char* kOrder = "- input value of the reaction order has to be > 0\r\n";
constexpr const char* kTime = "- not yet a valid input of the reaction time\r\n";
constexpr const char* kConversion = "- not yet a valid input of the conversion (0 < U(A) < 1)\r\n";
constexpr const char* kA = "- not yet a valid input of an initial conc. c(A,0)\r\n";
constexpr const char* kAOrP = "- not yet a valid input of an initial conc. c(A,0) or c(P,0)\r\n";
constexpr const char* kB = "- not yet a valid input of an initial conc. c(B,0)\r\n";
constexpr const char* kS = "- not yet a valid input of an initial conc. c(S,0)\r\n";
constexpr const char* kBOrPAndQ =
    "- input the initial concentration of substance B or subst. P and Q\r\n";
constexpr const char* kCatalyst = "- for auto catalysis there has to be given a (tiny) c(P,0)\r\n";
constexpr const char* kK1 = "- the rate constant has to be k1 > 0\r\n";
constexpr const char* kK2 = "- the rate constant has to be k2 > 0\r\n"
                            "  (you can input a very small value, e. g. k2 = 1e-10)\r\n";
constexpr const char* kK3 = "- the rate constant has to be k3 > 0\r\n";
constexpr const char* kFlow = "- the specificated flow of volume has to be V* > 0\r\n";
constexpr const char* kResidence = "- the specificated time of reaction has to be t > 0\r\n";

constexpr Rule kBatchRules[]{
    {OrderFails,                kOrder                                       },
    {TimeFails,                 kTime                                        },
    {ForwardConversionFails,    kConversion                                  },
    {ReversibleConversionFails,
     "- not yet a valid input of the conversion (U(A) <> 0, U(A) < 1)\r\n\r\n(Note: In the case of "
     "a reversible reaction negative values of the conversion are possible.)"},
    {NeededBFails,              "The specificated conc. has to be greater then B = %, to achieve the desired "
                   "conversion."                           },
    {AFails,                    kA                                           },
    {AAndPFail,                 kAOrP                                        },
    {OnlyAFails,                kA                                           },
    {SFails,                    kS                                           },
    {BFails,                    kB                                           },
    {BPAndQFail,                kBOrPAndQ                                    },
    {CatalystFails,             kCatalyst                                    },
    {K1Fails,                   kK1                                          },
    {K2Fails,                   kK2                                          },
    {K3Fails,                   kK3                                          },
};
constexpr Rule kTubularRules[]{
    {OrderFails,                kOrder                                           },
    {VelocityFails,             "- not yet a valid input of flow rate\r\n"       },
    {TimeFails,                 kTime                                            },
    {LengthFails,               "- not yet a valid input of the tube length\r\n" },
    {ForwardConversionFails,    kConversion                                      },
    {ReversibleConversionFails,
     "- not yet a valid input of the conversion (U(A) <> 0, U(A) < 1)\r\n\r\n(Note: In the case of "
     "a reversible reaction negative values of the conversion are possible.)\r\n"},
    {AFails,                    kA                                               },
    {AAndPFail,                 kAOrP                                            },
    {OnlyAFails,                kA                                               },
    {SFails,                    kS                                               },
    {BFails,                    kB                                               },
    {BPAndQFail,                kBOrPAndQ                                        },
    {CatalystFails,             kCatalyst                                        },
    {K1Fails,                   kK1                                              },
    {K2Fails,                   "- the rate constant has to be k > 0\r\n"        },
    {K3Fails,                   kK3                                              },
};
constexpr Rule kCstrRules[]{
    {OrderFails,                kOrder                                           },
    {AFails,                    kA                                               },
    {AAndPFail,                 kAOrP                                            },
    {SFails,                    kS                                               },
    {BFails,                    kB                                               },
    {BPAndQFail,                kBOrPAndQ                                        },
    {CatalystFails,             kCatalyst                                        },
    {K1Fails,                   kK1                                              },
    {K2Fails,                   kK2                                              },
    {K3Fails,                   kK3                                              },
    {ForwardConversionFails,    kConversion                                      },
    {ReversibleConversionFails,
     "- not yet a valid input of the conversion (U(A)<> 0, U(A) < 1)\r\n\r\n(Note: In the case of "
     "a reversible reaction negative values of the conversion are possible.)\r\n"},
    {VolumeFails,               "- the reaction volume has to be V > 0\r\n"      },
    {FlowFails,                 kFlow                                            },
    {ResidenceTimeFails,        kResidence                                       },
};
constexpr Rule kCascadeRules[]{
    {TanksFail,          "- number of stages N has to be between 2 and 7. \r\n"                     },
    {OrderFails,         "- input value of the reaction order has to be n > 0\r\n"                  },
    {AFails,             kA                                                                         },
    {AAndPFail,          kAOrP                                                                      },
    {NoB,                kB                                                                         },
    {BPAndQFail,         "- specify the initial concentration of substance B or subst. P and Q!\r\n"},
    {CatalystFails,
     "- for auto catalysis a (low) c(P,0) must be given, otherwise the reaction will "
     "not start\r\n"                                                                                },
    {K1Fails,            kK1                                                                        },
    {K2Fails,            "- the rate constant has to be k2 > 0\r\n"
              "  (but you can enter an extremely small value, e. g. k2 = 1e-10)\r\n"   },
    {K3Fails,            kK3                                                                        },
    {VolumeFails,        "- the specificated volume has to be V > 0\r\n"                            },
    {FlowFails,          kFlow                                                                      },
    {ResidenceTimeFails, kResidence                                                                 },
};

std::span<const Rule> RulesOf(Reactor reactor) {
    switch (reactor) {
    case Reactor::Batch:
        return kBatchRules;
    case Reactor::Tubular:
        return kTubularRules;
    case Reactor::Cstr:
        return kCstrRules;
    default:
        return kCascadeRules;
    }
}

std::string TextOf(const Rule& rule, const ProjectState& ps) {
    std::string text = rule.text;
    if (const std::size_t place = text.find('%'); place != std::string::npos)
        text.replace(place, 1, GeneralText(ps.UA * ps.c0[1]));
    return text;
}

} // namespace

InputCheck CheckInput(ProjectState& ps, Reactor reactor, const ReactorInput& input) {
    InputCheck check;
    const Given given{ps, input, reactor};
    for (const Rule& rule : RulesOf(reactor)) {
        if (!rule.fails(given))
            continue;
        check.text += TextOf(rule, ps);
        if (rule.fails == OrderFails) {
            ps.OrderN = kDefaultOrder;
            check.orderReset = true;
        }
    }
    return check;
}

bool IsSoundInput(const ProjectState& ps, int model, const SpeciesArray& c) {
    if (model < 1 || model > kModels ||
        !std::all_of(c.begin() + 1, c.end(), [](double x) { return std::isfinite(x); }))
        return false;
    const char* mask = Model(model).rateMask;
    for (std::size_t j = 1; j <= 3; ++j)
        if (mask[j - 1] == '1' && !(std::isfinite(ps.k[j]) && ps.k[j] >= 0))
            return false;
    return model != 20 || (std::isfinite(ps.OrderN) && ps.OrderN > 0);
}

} // namespace zorvant
