#include "engine/input_rules.h"

#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

constexpr int kFewestTanks = 2;
constexpr int kA = 1, kB = 2, kP = 4, kQ = 5;

struct Input {
    const ProjectState& ps;
    const GivenInput& shown;
    InputTask task;
};
using Fails = bool (*)(const Input&);

bool Missing(const Input& in, int slot) {
    return !(in.ps.c0[static_cast<std::size_t>(slot)] > 0);
}
bool Equilibrium(const Input& in) {
    return Model(in.ps.ModelId).equilibrium;
}
bool ShownAndMissing(const Input& in, int slot) {
    return in.shown.species[static_cast<std::size_t>(slot)] && Missing(in, slot);
}

bool OrderFails(const Input& in) {
    return HasOrder(in.ps.ModelId) && !(in.ps.OrderN > 0);
}
bool OrderNegative(const Input& in) {
    return HasOrder(in.ps.ModelId) && in.ps.OrderN < 0;
}
bool TanksFail(const Input& in) {
    return in.ps.NKask < kFewestTanks;
}
bool VelocityFails(const Input& in) {
    return !(in.shown.vRohr > 0);
}
bool ReactionTimeFails(const Input& in) {
    return in.shown.given == 0 && !(in.ps.tVerweil > 0);
}
bool LengthFails(const Input& in) {
    return in.shown.given == 1 && !(in.shown.lRohr > 0);
}
bool ConversionGiven(const Input& in) {
    switch (in.task) {
    case InputTask::Batch:
        return in.shown.given == 1;
    case InputTask::Tube:
        return in.shown.given == 2;
    case InputTask::Tank:
        return in.shown.given == 0 || in.shown.given == 1;
    default:
        return false;
    }
}
bool ForwardConversionFails(const Input& in) {
    return ConversionGiven(in) && !Model(in.ps.ModelId).reversibleA &&
           !(in.ps.UA > 0 && in.ps.UA < 1);
}
bool ReversibleConversionFails(const Input& in) {
    return ConversionGiven(in) && Model(in.ps.ModelId).reversibleA &&
           !(in.ps.UA != 0 && in.ps.UA < 1);
}
bool NeededBFails(const Input& in) {
    return ConversionGiven(in) && ConsumesBAsMuchAsA(in.ps.ModelId) &&
           in.ps.UA * in.ps.c0[kA] >= in.ps.c0[kB];
}
bool NoA(const Input& in) {
    return Missing(in, kA);
}
bool AFails(const Input& in) {
    return !Equilibrium(in) && NoA(in);
}
bool AAndPFail(const Input& in) {
    return Equilibrium(in) && !BeginsFromEitherSide(in.ps.ModelId) && NoA(in) && Missing(in, kP);
}
/// The conversion divides by c(A,0), though the products alone could react.
bool OnlyAFails(const Input& in) {
    return Equilibrium(in) && NoA(in) && !AAndPFail(in);
}
bool NoB(const Input& in) {
    return ShownAndMissing(in, kB) && (!Equilibrium(in) || !NoA(in));
}
bool BFails(const Input& in) {
    return !IsEnzymeModel(in.ps.ModelId) && NoB(in);
}
bool SFails(const Input& in) {
    return IsEnzymeModel(in.ps.ModelId) && NoB(in);
}
bool BFailsAlways(const Input& in) {
    return !IsEnzymeModel(in.ps.ModelId) && ShownAndMissing(in, kB);
}
bool SFailsAlways(const Input& in) {
    return IsEnzymeModel(in.ps.ModelId) && ShownAndMissing(in, kB);
}
bool BPAndQFail(const Input& in) {
    return BeginsFromEitherSide(in.ps.ModelId) && Missing(in, kB) && Missing(in, kP) &&
           Missing(in, kQ);
}
bool CatalystFails(const Input& in) {
    return IsAutocatalytic(in.ps.ModelId) && Missing(in, kP);
}
bool TimeAxisFails(const Input& in) {
    return !(in.ps.tMax > 0);
}
bool ConstantFails(const Input& in, std::size_t j) {
    return in.shown.constants[j] && !(in.ps.k[j] > 0);
}
bool K1Fails(const Input& in) {
    return !(in.ps.k[1] > 0);
}
bool K2Fails(const Input& in) {
    return ConstantFails(in, 2);
}
bool K3Fails(const Input& in) {
    return ConstantFails(in, 3);
}
/// In the other fits k2 is not a constant.
bool K2OfFitFails(const Input& in) {
    return in.ps.FitMode == kFitConstants && ConstantFails(in, 2);
}
bool VolumeFails(const Input& in) {
    const int mode = in.shown.given;
    return (mode == 0 || mode == 2 || mode == 3) && !(in.shown.V > 0);
}
bool FlowFails(const Input& in) {
    const int mode = in.shown.given;
    return (mode == 1 || mode == 2 || mode == 4) && !(in.ps.VPunkt > 0);
}
bool ResidenceTimeFails(const Input& in) {
    return (in.shown.given == 3 || in.shown.given == 4) && !(in.ps.tVerweil > 0);
}

constexpr unsigned Bit(InputTask task) {
    return 1U << static_cast<unsigned>(task);
}
constexpr unsigned kDiagram = Bit(InputTask::CourseDiagram), kTable = Bit(InputTask::CourseTable),
                   kBatch = Bit(InputTask::Batch), kTube = Bit(InputTask::Tube),
                   kTank = Bit(InputTask::Tank), kSeries = Bit(InputTask::Series),
                   kFit = Bit(InputTask::FittedCurve);
constexpr unsigned kReactors = kBatch | kTube | kTank | kSeries;

/// The texts carry their line ends; "%" stands for the c(B,0) that the conversion needs. The texts
/// of the dialogs differ in a letter here and there.
struct InputRule {
    unsigned tasks;
    Fails fails;
    InputField field;
    const char* text;
};

// clang-format off
constexpr InputRule kRules[] = {
    {kSeries, TanksFail, InputField::Tanks,
     "- number of stages N has to be between 2 and 7. \r\n"},
    {kDiagram | kBatch | kTube | kTank, OrderFails, InputField::Order,
     "- input value of the reaction order has to be > 0\r\n"},
    {kSeries, OrderFails, InputField::Order,
     "- input value of the reaction order has to be n > 0\r\n"},
    {kTube, VelocityFails, InputField::Velocity,
     "- not yet a valid input of flow rate\r\n"},
    {kBatch | kTube, ReactionTimeFails, InputField::Time,
     "- not yet a valid input of the reaction time\r\n"},
    {kTube, LengthFails, InputField::Length,
     "- not yet a valid input of the tube length\r\n"},
    {kBatch | kTube, ForwardConversionFails, InputField::Conversion,
     "- not yet a valid input of the conversion (0 < U(A) < 1)\r\n"},
    {kBatch, ReversibleConversionFails, InputField::Conversion,
     "- not yet a valid input of the conversion (U(A) <> 0, U(A) < 1)\r\n\r\n"
     "(Note: In the case of a reversible reaction negative values of the conversion are "
     "possible.)"},
    {kTube, ReversibleConversionFails, InputField::Conversion,
     "- not yet a valid input of the conversion (U(A) <> 0, U(A) < 1)\r\n\r\n"
     "(Note: In the case of a reversible reaction negative values of the conversion are possible.)"
     "\r\n"},
    {kBatch, NeededBFails, InputField::B,
     "The specificated conc. has to be greater then B = %, to achieve the desired conversion."},

    {kDiagram | kReactors, AFails, InputField::A,
     "- not yet a valid input of an initial conc. c(A,0)\r\n"},
    {kTable, NoA, InputField::A,
     "- not yet a valid input of an initial conc. c(A,0)\r\n"},
    {kDiagram | kReactors, AAndPFail, InputField::A,
     "- not yet a valid input of an initial conc. c(A,0) or c(P,0)\r\n"},
    {kBatch | kTube, OnlyAFails, InputField::A,
     "- not yet a valid input of an initial conc. c(A,0)\r\n"},
    {kDiagram | kBatch | kTube | kTank, SFails, InputField::B,
     "- not yet a valid input of an initial conc. c(S,0)\r\n"},
    {kTable | kFit, SFailsAlways, InputField::B,
     "- not yet a valid input of an initial conc. c(S,0)\r\n"},
    {kDiagram | kBatch | kTube | kTank, BFails, InputField::B,
     "- not yet a valid input of an initial conc. c(B,0)\r\n"},
    {kSeries, NoB, InputField::B,
     "- not yet a valid input of an initial conc. c(B,0)\r\n"},
    {kTable | kFit, BFailsAlways, InputField::B,
     "- not yet a valid input of an initial conc. c(B,0)\r\n"},
    {kDiagram, BPAndQFail, InputField::B,
     "- specify initial concentration of substance B or P and Q\r\n"},
    {kBatch | kTube | kTank, BPAndQFail, InputField::B,
     "- input the initial concentration of substance B or subst. P and Q\r\n"},
    {kSeries, BPAndQFail, InputField::B,
     "- specify the initial concentration of substance B or subst. P and Q!\r\n"},
    {kDiagram | kFit, CatalystFails, InputField::P,
     "- for auto catalysis, a (low) c(P,0) must be present, otherwise the reaction will not start"
     "\r\n"},
    {kTable, CatalystFails, InputField::P,
     "- for autocatalysis a (very small) initial value of c(P)(0) must be given, otherwise the "
     "reaction cannot start\r\n"},
    {kBatch | kTube | kTank, CatalystFails, InputField::P,
     "- for auto catalysis there has to be given a (tiny) c(P,0)\r\n"},
    {kSeries, CatalystFails, InputField::P,
     "- for auto catalysis a (low) c(P,0) must be given, otherwise the reaction will not "
     "start\r\n"},

    {kTable, OrderNegative, InputField::Order,
     "- allowed only n > 0\r\n"},
    {kFit, OrderNegative, InputField::Order,
     "- only n > 0 allowed\r\n"},
    {kDiagram, TimeAxisFails, InputField::TimeAxis,
     "- specification of time is not in order!\r\n"},
    {kTable, TimeAxisFails, InputField::TimeAxis,
     "- specification of time is not in order\r\n"},

    {kDiagram | kTable | kReactors | kFit, K1Fails, InputField::K1,
     "- the rate constant has to be k1 > 0\r\n"},
    // The diagram lets k2 and k3 be 0: the reaction then simply does not happen.
    {kTable | kBatch | kTank, K2Fails, InputField::K2,
     "- the rate constant has to be k2 > 0\r\n"
     "  (you can input a very small value, e. g. k2 = 1e-10)\r\n"},
    {kTube, K2Fails, InputField::K2,
     "- the rate constant has to be k > 0\r\n"},
    {kSeries, K2Fails, InputField::K2,
     "- the rate constant has to be k2 > 0\r\n"
     "  (but you can enter an extremely small value, e. g. k2 = 1e-10)\r\n"},
    {kFit, K2OfFitFails, InputField::K2,
     "- the rate constant has to be k2 > 0\r\n"},
    {kTable | kReactors | kFit, K3Fails, InputField::K3,
     "- the rate constant has to be k3 > 0\r\n"},

    {kTank, ForwardConversionFails, InputField::Conversion,
     "- not yet a valid input of the conversion (0 < U(A) < 1)\r\n"},
    {kTank, ReversibleConversionFails, InputField::Conversion,
     "- not yet a valid input of the conversion (U(A)<> 0, U(A) < 1)\r\n\r\n"
     "(Note: In the case of a reversible reaction negative values of the conversion are possible.)"
     "\r\n"},
    {kTank, VolumeFails, InputField::Volume,
     "- the reaction volume has to be V > 0\r\n"},
    {kSeries, VolumeFails, InputField::Volume,
     "- the specificated volume has to be V > 0\r\n"},
    {kTank | kSeries, FlowFails, InputField::Flow,
     "- the specificated flow of volume has to be V* > 0\r\n"},
    {kTank | kSeries, ResidenceTimeFails, InputField::Time,
     "- the specificated time of reaction has to be t > 0\r\n"},
};
// clang-format on

std::string TextOf(const InputRule& rule, const ProjectState& ps) {
    std::string text = rule.text;
    if (const std::size_t place = text.find('%'); place != std::string::npos)
        text.replace(place, 1, GeneralText(ps.UA * ps.c0[kA]));
    return text;
}

} // namespace

GivenInput InputShownFor(const ProjectState& ps) {
    const ModelMasks masks = MasksOfModel(ps.ModelId, ps.FitMode);
    GivenInput input;
    for (std::size_t slot = 1; slot <= kSpecies; ++slot)
        input.species[slot] = masks.species[slot - 1] == '1';
    for (std::size_t j = 1; j <= 3; ++j)
        input.constants[j] = masks.rates[j - 1] == '1';
    return input;
}

InputCheck CheckInput(const ProjectState& ps, InputTask task, const GivenInput& input) {
    InputCheck check;
    const Input in{ps, input, task};
    for (const InputRule& rule : kRules) {
        if ((rule.tasks & Bit(task)) == 0 || !rule.fails(in))
            continue;
        check.text += TextOf(rule, ps);
        check.first = check.first.value_or(rule.field);
        check.orderFailed = check.orderFailed || rule.fails == OrderFails;
    }
    return check;
}

} // namespace zorvant
