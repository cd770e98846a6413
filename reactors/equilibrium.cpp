#include "reactors/equilibrium.h"

#include "platform/number_text.h"
#include "reactors/root_search.h"

#include <cmath>
#include <string>

namespace zorvant {
namespace {

/// An extent this small beside the concentrations is the rounding of k1/k2 and counts as 0.
constexpr double kRounding = 4e-15;

/// K next to the values where the quadratic would end.
struct Guards {
    double besideFour; ///< model 12
    double besideOne;  ///< model 19
};
Guards GuardsOf(Reactor reactor) {
    switch (reactor) {
    case Reactor::Batch:
        return {3.999999999, 0.999999999};
    case Reactor::Tubular:
        return {3.99999999, 0.99999999};
    default:
        return {3.99999999, 0.999999999};
    }
}

bool IsEquilibrium(int model) {
    return model == 8 || model == 12 || model == 17 || model == 19;
}

// --- texts

// First and second line of a refusal.
constexpr const char* kNotAny =
    "In the case \"reversible reaction\" the specification of any conversion U(A)is not possible;";
constexpr const char* kNotAnyTwoBlanks =
    "In the case \"reversible reaction\" the specification of any  conversion U(A)is not possible;";
constexpr const char* kNotAnAny = "In the case \"reversible reaction\" the specification of an any "
                                  "conversion U(A)is not possible;";
constexpr const char* kAtMost = "the reaction can run to the equilibrium at most.";
constexpr const char* kAtMostUpTo = "the reaction can run at most up to the equilibrium.";
// The line before the range.
constexpr const char* kGivenComma =
    "For the given initial mixture, the possible conversion U(A) is in the range";
constexpr const char* kGiven =
    "For the given initial mixture the possible conversion U(A) is in the range";
constexpr const char* kGivenBlank =
    "For the given initial mixture the possible conversion U(A) is in the range ";
constexpr const char* kMixtureGiven =
    "For the initial mixture given the possible conversion U(A) is in the range";

/// The texts of a refusal.
struct LimitTexts {
    const char* atEquilibrium;
    const char* atMost;
    const char* forward;       ///< first line, too far forward
    const char* forwardRange;  ///< line before " 0 < U(A) < Ue"
    bool forwardEndsInBreaks;  ///< a blank line behind the range
    const char* backward;      ///< first line, too far backward
    const char* backwardRange; ///< line before "Ue < U(A) < 0"
    const char* negative;      ///< what a negative conversion means
};
struct ReactorTexts {
    LimitTexts model8;
    LimitTexts others;
    const char* noRoot;
};

constexpr const char* kNegativeBatch =
    "A negative value for the conversion U(A) means that additional A is produced in the course of "
    "the reaction.";
constexpr const char* kNegative =
    "A negative value of the conversion U(A) means that additional subst. A is produced.";
constexpr const char* kNegativeInCourse = "A negative value of the conversion U(A) means that "
                                          "additional subst. A is produced in course of the "
                                          "reaction.";
constexpr const char* kNegativeInTheCourse = "A negative value of the conversion U(A) means that "
                                             "additional subst. A is produced in the course of the "
                                             "reaction.";

constexpr ReactorTexts kBatchTexts{
    {"The initial mixture is already in equlibrium.\r\n\r\n"
     "The specification of a conversion U(A) is therefore not possible.",
     kAtMost, kNotAnyTwoBlanks, kGivenComma, true, kNotAny, kGivenComma, kNegativeBatch},
    {"The initial mixture is already in equlibrium state;\r\n\r\n"
     "specification of a conversion U(A) is therefor not possible.",
     kAtMost, kNotAnyTwoBlanks, kMixtureGiven, true, kNotAnAny, kMixtureGiven, kNegativeBatch},
    "a numerical error occured: square root x < 0\r\nCheck your input values\r\n\r\n"
    "Advice: Set the default values for your orientation."};
constexpr ReactorTexts kTubularTexts{
    {"The initial mixture is already in equlibrium state;\r\n\r\n"
     "specification of the conversion U(A) is not possible.",
     kAtMost, kNotAny, kMixtureGiven, false, kNotAny, kMixtureGiven, kNegativeInCourse},
    {"The initial mixture is already in equlibrium state;\r\n\r\n"
     "specification of a conversion U(A) is not possible.",
     kAtMost, kNotAny, kGiven, false, kNotAny, kGiven, kNegative},
    "numerical error occured: square root x < 0\r\nCheck your input values\r\n\r\n"
    "Advice: for your orientation set the default values"};
constexpr const char* kAlreadyCstr =
    "The initial mixture is already in equlibrium state;\r\n\r\n"
    "specification of a conversion U(A) is therefore not possible.";
constexpr ReactorTexts kCstrTexts{
    {kAlreadyCstr, kAtMost, kNotAny, kGivenBlank, true, kNotAnyTwoBlanks, kMixtureGiven, kNegative},
    {kAlreadyCstr, kAtMostUpTo, kNotAny, kGiven, true, kNotAny, kMixtureGiven,
     kNegativeInTheCourse},
    "numerical eeror occured: square root x < 0\r\nCheck your input values\r\n\r\n"
    "Advice: for your orientation set the default values"};

constexpr const char* kNoteBatch = "The initial mixture is already in equlibrium state;\r\n\r\n"
                                   "any time value therefore leads to the conversation U(A) = 0.";
constexpr const char* kNoteTubular =
    "The initial mixture is already in equlibrium state,\r\n\r\n"
    "i. e. each value of time or tube length results in a conversion value U(A) = 0";
constexpr const char* kNoteCstr =
    "In this case of a reversible reaction, chemical equilibrium already prevails in the initial "
    "mixture.\r\nEach time specificated results in a conversion value U(A) = 0";
constexpr const char* kNoteCascade =
    "In this case of a reversible reaction, chemical equilibrium already prevails in the input "
    "mixture;\r\ni. e. any specificated time leads to a conversion value U(A) = 0";

constexpr const char* kNoA = "- not yet a valid input of an initial conc. c(A,0)";

const ReactorTexts& TextsOf(Reactor reactor) {
    switch (reactor) {
    case Reactor::Batch:
        return kBatchTexts;
    case Reactor::Tubular:
        return kTubularTexts;
    default:
        return kCstrTexts;
    }
}

MessageBox Refusal(std::string text) {
    return {std::move(text), "Execution not possible", Icon::Critical};
}

/// The text that refuses conversion U; empty when it can be reached.
std::string RefusalText(const LimitTexts& texts, const EquilibriumLimit& limit, double U,
                        bool testsNegative) {
    const std::string blankLine = std::string(kCrLf) + kCrLf;
    const std::string Ue = GeneralText(limit.Ue);
    if (limit.xe == 0)
        return texts.atEquilibrium;
    if (limit.xe > 0) {
        if (U < limit.Ue && !(testsNegative && U < 0))
            return "";
        return texts.forward + (kCrLf + std::string(texts.atMost)) + blankLine +
               texts.forwardRange + blankLine + " 0 < U(A) < " + Ue +
               (texts.forwardEndsInBreaks ? blankLine : "");
    }
    if (U < 0 && U >= limit.Ue)
        return "";
    return texts.backward + (kCrLf + std::string(texts.atMost)) + blankLine + texts.backwardRange +
           blankLine + Ue + " < U(A) < 0" + blankLine + texts.negative;
}

/// Whether the quotient of the law of mass action of the feed equals k1/k2.
bool FeedIsAtEquilibrium(const ProjectState& ps) {
    const SpeciesArray& c = ps.c0;
    double products = c[4];
    double educts = c[1] * c[2];
    switch (ps.ModelId) {
    case 8:
        educts = c[1];
        break;
    case 12:
        products = c[4] * c[4];
        break;
    case 19:
        products = c[4] * c[5];
        break;
    default:
        break;
    }
    const double forward = ps.k[1] * educts;
    const double backward = ps.k[2] * products;
    return forward > 0 && std::abs(forward - backward) <= kRounding * forward;
}

} // namespace

std::optional<EquilibriumLimit> FindEquilibriumLimit(const ProjectState& ps, Reactor reactor) {
    const double A0 = ps.c0[1], B0 = ps.c0[2], P0 = ps.c0[4], Q0 = ps.c0[5];
    if (!IsEquilibrium(ps.ModelId) || !(A0 > 0))
        return std::nullopt;
    const Guards guards = GuardsOf(reactor);
    double K = ps.k[1] / ps.k[2];
    double p = 0;
    double q = 0;
    double xe = 0;
    switch (ps.ModelId) {
    case 8:
        xe = (K * A0 - P0) / (K + 1);
        break;
    case 12:
        if (K == 4)
            K = guards.besideFour;
        p = (K * A0 + 4 * P0 + K * B0) / (4 - K);
        q = (P0 * P0 - K * A0 * B0) / (4 - K);
        break;
    case 17:
        p = -A0 - B0 - 1 / K;
        q = A0 * B0 - P0 / K;
        break;
    default:
        if (K == 1)
            K = guards.besideOne;
        p = (P0 + Q0 + K * A0 + K * B0) / (1 - K);
        q = (P0 * Q0 - K * A0 * B0) / (1 - K);
        break;
    }
    if (ps.ModelId != 8) {
        const auto roots = SolveQuadratic(p, q, DoubleRoot::Counts);
        if (!roots)
            return std::nullopt;
        xe = roots->larger > A0 ? roots->smaller : roots->larger;
    }
    if (std::abs(xe) <= kRounding * (A0 + std::abs(B0) + std::abs(P0) + std::abs(Q0)))
        xe = 0;
    if (!std::isfinite(xe) || !std::isfinite(xe / A0))
        return std::nullopt;
    return EquilibriumLimit{xe, xe / A0};
}

EquilibriumCheck CheckEquilibrium(const ProjectState& ps, Reactor reactor, bool conversionGiven) {
    EquilibriumCheck check;
    if (!IsEquilibrium(ps.ModelId))
        return check;
    const bool isTank = reactor == Reactor::Cstr || reactor == Reactor::Cascade;
    if (isTank && !conversionGiven) {
        if (FeedIsAtEquilibrium(ps))
            check.note = {reactor == Reactor::Cstr ? kNoteCstr : kNoteCascade, "Note",
                          Icon::Information};
        return check;
    }
    if (!(ps.c0[1] > 0)) { // a conversion of nothing is not defined
        check.refusal = Refusal(kNoA);
        return check;
    }
    const ReactorTexts& texts = TextsOf(reactor);
    const auto limit = FindEquilibriumLimit(ps, reactor);
    if (!limit) {
        check.refusal = Refusal(texts.noRoot);
        return check;
    }
    if (conversionGiven) {
        const LimitTexts& limitTexts = ps.ModelId == 8 ? texts.model8 : texts.others;
        if (std::string text = RefusalText(limitTexts, *limit, ps.UA, !isTank); !text.empty())
            check.refusal = Refusal(std::move(text));
    } else if (limit->xe == 0) {
        check.note = {reactor == Reactor::Batch ? kNoteBatch : kNoteTubular, "Note", Icon::Warning};
    }
    return check;
}

} // namespace zorvant
