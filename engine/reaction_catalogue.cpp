#include "engine/reaction_catalogue.h"

#include "engine/modes.h"

#include "platform/number_text.h"

#include <algorithm>
#include <stdexcept>

namespace zorvant {
namespace {

constexpr int kA = 1, kB = 2, kC = 3, kP = 4, kQ = 5;

// Units of k1..k3. A constant that the model does not have shows 1/TU; its caption is hidden.
constexpr auto kNone = ConstantUnit::None;
constexpr auto kFirst = ConstantUnit::PerTime;
constexpr auto kSecond = ConstantUnit::PerTimeConc;
using Units = std::array<ConstantUnit, 4>;
constexpr Units kUnits0{kNone, ConstantUnit::ConcPerTime, kFirst, kFirst};
constexpr Units kUnits1{kNone, kFirst, kFirst, kFirst};
constexpr Units kUnits2{kNone, kSecond, kFirst, kFirst};
constexpr Units kUnits22{kNone, kSecond, kSecond, kFirst};
constexpr Units kUnitsN{kNone, kNone, kFirst, kFirst};

using Captions = std::array<const char*, 4>;
constexpr Captions kNumbered{"", "k1", "k2", "k3"};
constexpr Captions kUpstream{"", "k>", "k<", "k3"};
constexpr Captions kDownstream{"", "k1", "k>", "k<"};

// Start concentrations, mol/L. An autocatalytic reaction needs a trace of its catalyst to start; an
// equilibrium may start from its product alone.
using Start = std::array<ConcentrationDefault, 2>;
constexpr Start kStartA{{{kA, 1, false}, {}}};
constexpr Start kStartAB{{{kA, 1, false}, {kB, 1, false}}};
constexpr Start kStartTrace{{{kA, 1, false}, {kP, 0.002, false}}};
constexpr Start kStart7{{{kA, 2, false}, {kB, 1, false}}};
constexpr Start kStart8{{{kA, 0.5, true}, {}}};
constexpr Start kStartEnzyme{{{kA, 1, false}, {kB, 5, false}}};
constexpr Start kStartReversible{{{kA, 0.5, true}, {kB, 0.5, true}}};

// One row a model, laid out by hand so that the columns can be read downward:
// id, option, caption, name,
//   species mask, rate mask, single reaction, A formed back, equilibrium, numeric, units,
//   k1..k3 at "default values" (1/s and so on), k1..k3 at a selection, start concentrations,
//   captions, stoichiometry by reaction
// clang-format off
constexpr std::array<ReactionModel, kModels> kCatalogue{{
    {1, 1, "0th-order reaction A => P", "A => P   (n = 0)",
     "10010", "100", true, false, false, false, kUnits0,
     {0, 0.15, 0, 0}, {}, kStartA, kNumbered,
     {{{1, kA, -1}, {1, kP, 1}}}},
    {2, 2, "1st-order reaction A => P", "A => P   (n = 1)",
     "10010", "100", true, false, false, false, kUnits1,
     {0, 0.15, 0, 0}, {}, kStartA, kNumbered,
     {{{1, kA, -1}, {1, kP, 1}}}},
    {3, 3, "2nd-order reaction 2A => P", "2A => P   (n = 2)",
     "10010", "100", true, false, false, false, kUnits2,
     {0, 0.15, 0, 0}, {}, kStartA, kNumbered,
     {{{1, kA, -2}, {1, kP, 1}}}},
    {4, 4, "2nd-order reaction A+B => P", "A + B => P   (n = 2)",
     "11010", "100", true, false, false, false, kUnits2,
     {0, 0.15, 0, 0}, {}, kStartAB, kNumbered,
     {{{1, kA, -1}, {1, kB, -1}, {1, kP, 1}}}},
    {5, 5, "autocatalysis A => P   (Catalyst = P)", "A => P   (autocatalysis)",
     "10010", "100", true, false, false, false, kUnits1,
     {0, 0.15, 0.2, 0}, {0, 0, 0.2, 0}, kStartTrace, kNumbered,
     {{{1, kA, -1}, {1, kP, 1}}}},
    {6, 6, "consecutive 1st-order reaction A => C => P", "A => C => P",
     "10110", "110", false, false, false, false, kUnits1,
     {0, 0.15, 0.1, 0}, {0, 0, 0.1, 0}, kStartA, kNumbered,
     {{{1, kA, -1}, {1, kC, 1}, {2, kC, -1}, {2, kP, 1}}}},
    {7, 7, "concurrent consecutive 2nd-order reaction", "A + B => C; A + C => P",
     "11110", "110", false, false, false, true, kUnits22,
     {0, 0.15, 0.05, 0}, {0, 0, 0.05, 0}, kStart7, kNumbered,
     {{{1, kA, -1}, {1, kB, -1}, {1, kC, 1}, {2, kA, -1}, {2, kC, -1}, {2, kP, 1}}}},
    {8, 8, "reversible 1st-order reaction  A <=> P", "A <=> P",
     "10010", "110", true, true, true, false, kUnits1,
     {0, 0.5, 0.1, 0}, {0, 0, 0.1, 0}, kStart8, kUpstream,
     {{{1, kA, -1}, {1, kP, 1}, {2, kA, 1}, {2, kP, -1}}}},
    {9, 9, "consecutive 2nd-order reaction  A + B => C => P", "A + B => C => P",
     "11110", "110", false, false, false, true, kUnits2,
     {0, 0.15, 0.1, 0}, {0, 0, 0.1, 0}, kStartAB, kNumbered,
     {{{1, kA, -1}, {1, kB, -1}, {1, kC, 1}, {2, kC, -1}, {2, kP, 1}}}},
    {10, 10, "MICHAELIS-MENTEN enzyme reaction", "E + S <=> ES => P + E",
     "11110", "111", false, true, false, true, kUnits2,
     {0, 1.5, 0.01, 0.005}, {0, 0, 0.01, 0.005}, kStartEnzyme, kUpstream,
     {{{1, kA, -1}, {1, kB, -1}, {1, kC, 1}, {2, kA, 1}, {2, kB, 1}, {2, kC, -1},
       {3, kA, 1}, {3, kC, -1}, {3, kP, 1}}}},
    {11, 11, "competing reactions  A => P,   A => Q", "A => P; A => Q",
     "10011", "110", false, false, false, false, kUnits1,
     {0, 0.15, 0.05, 0}, {0, 0, 0.05, 0}, kStartA, kNumbered,
     {{{1, kA, -1}, {1, kP, 1}, {2, kA, -1}, {2, kQ, 1}}}},
    {12, 12, "reversible 2nd-order reaction  A + B <=> 2P", "A + B <=> 2P",
     "11010", "110", true, true, true, false, kUnits22,
     {0, 0.15, 0.01, 0}, {0, 0, 0.01, 0}, kStartReversible, kUpstream,
     {{{1, kA, -1}, {1, kB, -1}, {1, kP, 2}, {2, kA, 1}, {2, kB, 1}, {2, kP, -2}}}},
    {13, 13, "consecutive 2nd-order reaction with downstream equilibrium", "A + B => C <=> P",
     "11110", "111", false, false, false, true, kUnits2,
     {0, 0.15, 0.1, 0.005}, {0, 0, 0.1, 0.005}, kStartAB, kDownstream,
     {{{1, kA, -1}, {1, kB, -1}, {1, kC, 1}, {2, kC, -1}, {2, kP, 1}, {3, kC, 1}, {3, kP, -1}}}},
    {14, 14, "consecutive 1st-order reaction with downstream equilibrium", "A => C <=> P",
     "10110", "111", false, false, false, true, kUnits1,
     {0, 0.15, 0.1, 0.005}, {0, 0, 0.1, 0.005}, kStartA, kDownstream,
     {{{1, kA, -1}, {1, kC, 1}, {2, kC, -1}, {2, kP, 1}, {3, kC, 1}, {3, kP, -1}}}},
    {15, 15, "consecutive 1st-order reaction with upstream equilibrium", "A <=> C => P",
     "10110", "111", false, true, false, true, kUnits1,
     {0, 0.15, 0.2, 0.15}, {0, 0, 0.2, 0.15}, kStartA, kUpstream,
     {{{1, kA, -1}, {1, kC, 1}, {2, kA, 1}, {2, kC, -1}, {3, kC, -1}, {3, kP, 1}}}},
    {16, 16, "autocatalysis A => P + Q   (Catalyst = P)", "A => P + Q (autocatalysis P)",
     "10011", "100", true, false, false, false, kUnits1,
     {0, 0.15, 0.2, 0}, {0, 0, 0.2, 0}, kStartTrace, kNumbered,
     {{{1, kA, -1}, {1, kP, 1}, {1, kQ, 1}}}},
    {17, 17, "reversible 2nd-order reaction  A + B <=> P", "A + B <=> P",
     "11010", "110", true, true, true, false, kUnits2,
     {0, 0.15, 0.01, 0}, {0, 0, 0.01, 0}, kStartReversible, kNumbered,
     {{{1, kA, -1}, {1, kB, -1}, {1, kP, 1}, {2, kA, 1}, {2, kB, 1}, {2, kP, -1}}}},
    {18, 18, "consecutive 2nd-order reaction with upstream equilibrium", "A + B <=> C => P",
     "11110", "111", false, true, false, true, kUnits2,
     {0, 0.15, 0.1, 0.005}, {0, 0, 0.1, 0.005}, kStartAB, kUpstream,
     {{{1, kA, -1}, {1, kB, -1}, {1, kC, 1}, {2, kA, 1}, {2, kB, 1}, {2, kC, -1},
       {3, kC, -1}, {3, kP, 1}}}},
    {19, 19, "reversible 2nd-order reaction  A + B <=> P + Q", "A + B <=> P + Q",
     "11011", "110", true, true, true, false, kUnits22,
     {0, 0.15, 0.01, 0}, {0, 0, 0.01, 0}, kStartReversible, kUpstream,
     {{{1, kA, -1}, {1, kB, -1}, {1, kP, 1}, {1, kQ, 1},
       {2, kA, 1}, {2, kB, 1}, {2, kP, -1}, {2, kQ, -1}}}},
    {20, 0, "n-th-order reaction A => P", "A => P, n-th order ",
     "10010", "100", true, false, false, true, kUnitsN,
     {0, 0.15, 0, 0}, {}, kStartA, kNumbered,
     {{{1, kP, 1}}}},
}};
// clang-format on

/// Masks of the kinds of diagrams that show measured values.
struct DataMasks {
    int first, last; ///< kinds
    const char* species;
    bool ofRc, ofTk;
};
constexpr std::array<DataMasks, 6> kDataMasks{{
    {kKindMichaelisMenten, kKindLineweaverBurk, "0000", true, false}, // pairs r(P)-c(S)
    {kKindLambdaSecondOrder, kKindLambdaFirstOrder, "10010", false, false},
    {kKindFitPoints, kKindFitPoints, "11111", false, false},
    {kKindMixedSecondOrder, kKindFirstOrder, "00002", false, false}, // functions of c, not c itself
    {kKindEyring, kKindKOfT, "00000", false, true},                  // pairs k-T
    {kKindPoints, kKindPoints, "11111", false, false},
}};

/// While a fit runs, the masks of some models mean the parameters that it varies: order and k, or
/// frequency factor and activation energy.
struct FitMasks {
    int fitMode;
    int model;
    const char* species; ///< nullptr: as in the catalogue
    const char* rates;
};
constexpr std::array<FitMasks, 3> kFitMasks{{
    {kFitOrder, 20, nullptr, "110"},
    {kFitFirstOrderT, 2, "10000", "110"},
    {kFitSecondOrderT, 3, "10000", "110"},
}};

} // namespace

const ReactionModel& Model(int id) {
    if (id < 1 || id > kModels)
        throw std::out_of_range("there is no model " + std::to_string(id));
    return kCatalogue[static_cast<std::size_t>(id - 1)];
}

int ModelOfOption(int option) {
    return option == 0 ? 20 : option;
}

std::string ModelNameText(const ProjectState& ps, int id) {
    if (HasOrder(id) && ps.FitMode == kFitOrder)
        return "A => P, variable order of rct.";
    return Model(id).name;
}

std::string ModelCaption(const ProjectState& ps) {
    std::string caption = "kinetic model: " + ModelNameText(ps, ps.ModelId);
    if (HasOrder(ps.ModelId))
        caption += " (n = " + FormatNumber(ps.OrderN, "0.00") + ")";
    return caption;
}

void FillStoich(ProjectState& ps) {
    ps.Stoich = {};
    for (const StoichEntry& entry : Model(ps.ModelId).stoich)
        if (entry.reaction != 0)
            ps.Stoich[static_cast<std::size_t>(entry.reaction)]
                     [static_cast<std::size_t>(entry.slot)] = entry.coefficient;
    if (HasOrder(ps.ModelId))
        ps.Stoich[1][kA] = -ps.OrderN;
}

const char* SpeciesName(int modelId, int slot) {
    static constexpr std::array<const char*, kSpecies> kPlain{"A", "B", "C", "P", "Q"};
    static constexpr std::array<const char*, kSpecies> kEnzyme{"E", "S", "ES", "P", "Q"};
    if (slot < 1 || slot > kSpecies)
        throw std::out_of_range("species slot " + std::to_string(slot));
    return (IsEnzymeModel(modelId) ? kEnzyme : kPlain)[static_cast<std::size_t>(slot - 1)];
}

ModelMasks MasksOfModel(int modelId, int fitMode) {
    ModelMasks masks{Model(modelId).speciesMask, Model(modelId).rateMask};
    for (const FitMasks& row : kFitMasks) {
        if (row.fitMode != fitMode || row.model != modelId)
            continue;
        masks.rates = row.rates;
        if (row.species != nullptr)
            masks.species = row.species;
    }
    return masks;
}

void FuMaskenSetzen(ProjectState& ps, int kind) {
    ps.DiagramOfTk = false;
    ps.DiagramOfRc = false;
    ps.SpeciesMask = "00000";
    ps.RateMask = "000";

    for (const DataMasks& row : kDataMasks) {
        if (kind < row.first || kind > row.last)
            continue;
        ps.SpeciesMask = row.species;
        ps.DiagramOfRc = row.ofRc;
        ps.DiagramOfTk = row.ofTk;
        return;
    }

    const int model = kind > kRateKinds ? kind - kRateKinds : kind;
    if (model < 1 || model > kModels)
        return;
    const ModelMasks masks = MasksOfModel(model, ps.FitMode);
    ps.SpeciesMask = masks.species;
    ps.RateMask = masks.rates;
}

bool IsEnzymeModel(int modelId) {
    return modelId == kEnzymeModel;
}

bool IsAutocatalytic(int modelId) {
    return modelId == 5 || modelId == 16;
}

bool HasOrder(int modelId) {
    return modelId == 20;
}

bool BeginsFromEitherSide(int modelId) {
    return modelId == 19;
}

bool ConsumesBAsMuchAsA(int modelId) {
    return modelId == 4 || modelId == 9 || modelId == 10 || modelId == 13 || modelId == 18;
}

bool IsSecondOrderInA(int modelId) {
    return modelId == 3;
}

bool IsMixedSecondOrder(int modelId) {
    return modelId == 4;
}

} // namespace zorvant
