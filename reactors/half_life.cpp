#include "reactors/half_life.h"

#include "engine/arithmetic.h"
#include "engine/closed_forms.h"
#include "reactors/root_search.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace zorvant {
namespace {

// The search for the half-life of the reversible models 12 and 17 by secants.
constexpr double kConverged = 1e-6; ///< of t: one unit of the Single result's last digit but one
// The bracketing that follows a search without a result.
constexpr double kLatestTime = 1e300; ///< TU
constexpr double kBracketTolerance = 1e-12;

constexpr const char* kNotReached = "c(A) = c(A,0)/2 cannot be reached";

enum class Species { A, B };

struct Start {
    double A0, B0, P0; ///< mol/L
    double k1, k2;
};

/// A secant search: where it begins, the width of the secant, how many passes it has.
struct SecantSearch {
    double start; ///< TU
    double dt;    ///< TU
    int passes;
};

/// A reversible second-order model.
struct ReversibleModel {
    int model;
    double pPerExtent;
    SecantSearch forA, forB;
};
constexpr ReversibleModel kTwoP{12, 2, {0.5, 1e-7, 100}, {0.5, 1e-8, 200}};
constexpr ReversibleModel kOneP{17, 1, {0.1, 1e-6, 100}, {0.1, 1e-6, 100}};

/// A time, or why there is none.
struct Outcome {
    enum class Kind { Time, NotReached, Beep };
    double t = 0;
    Kind kind = Kind::Time;
    Outcome(double time) : t(time) {} // NOLINT: a formula's value is an outcome
    Outcome(Kind why) : kind(why) {}  // NOLINT
};
using enum Outcome::Kind;

Outcome ZerothOrder(const Start& s) {
    return Divide(s.A0 / 2, s.k1);
}
Outcome FirstOrder(const Start& s) {
    return Divide(std::numbers::ln2, s.k1);
}
Outcome SecondOrderSame(const Start& s) {
    return Divide(1, 2 * s.k1 * s.A0);
}
/// A + B => P. The logarithms as log1p of what they differ from 1 by: nearly equal start
/// concentrations then cost no digits.
Outcome SecondOrderA(const Start& s) {
    if (s.A0 == s.B0)
        return Divide(Divide(1, s.k1), s.A0);
    if (!(2 * s.B0 - s.A0 > 0))
        return Beep;
    return Divide(Divide(1, s.k1), s.A0 - s.B0) * -std::log1p(Divide(s.B0 - s.A0, s.B0));
}
Outcome SecondOrderB(const Start& s) {
    if (s.A0 == s.B0)
        return Divide(Divide(1, s.k1), s.A0);
    if (!(Divide(2 * s.A0 - s.B0, s.A0) > 0))
        return Beep;
    return Divide(Divide(1, s.k1), s.A0 - s.B0) * std::log1p(Divide(s.A0 - s.B0, s.A0));
}
Outcome Autocatalysis(const Start& s) {
    return Divide(Divide(1, s.k1), s.A0 + s.P0) * CheckedLn(Divide(2 * s.P0 + s.A0, s.P0));
}
Outcome Reversible(const Start& s) {
    const double K = Divide(s.k1, s.k2);
    const double xe = Divide(K * s.A0 - s.P0, K + 1);
    if (!(s.A0 / 2 > s.A0 - xe))
        return NotReached;
    return Divide(
        CheckedLn(Divide(s.k2 * s.P0 - s.k1 * s.A0, (s.k2 - s.k1) * (s.A0 / 2) + s.k2 * s.P0)),
        s.k1 + s.k2);
}
Outcome Competing(const Start& s) {
    return Divide(std::numbers::ln2, s.k1 + s.k2);
}

/// The extent at equilibrium: of the two roots the one that leaves no concentration below 0.
double EquilibriumExtent(const ReversibleModel& model, const Start& s, double kApart) {
    double K = Divide(s.k1, s.k2);
    double b, d;
    if (model.model == 12) {
        if (K == 4)
            K = kApart;
        b = (K * s.A0 + 4 * s.P0 + K * s.B0) / (4 - K);
        d = (s.P0 * s.P0 - K * s.A0 * s.B0) / (4 - K);
    } else {
        b = -s.A0 - s.B0 - Divide(1, K);
        d = s.A0 * s.B0 - Divide(s.P0, K);
    }
    const auto roots = SolveQuadratic(Finite(b), Finite(d), DoubleRoot::Counts);
    if (!roots)
        ThrowArithmetic(kInvalidCall);
    const auto least = [&](double x) {
        return std::min({s.A0 - x, s.B0 - x, s.P0 + model.pPerExtent * x});
    };
    return least(roots->larger) > least(roots->smaller) ? roots->larger : roots->smaller;
}

/// The time at which the extent is g.
double TimeOfExtent(const ReversibleModel& model, const SecantSearch& search, const Start& s,
                    double g) {
    bool err = false;
    SpeciesArray c{0, s.A0, s.B0, 0, s.P0, 0};
    const ClosedForm course(model.model, {0, s.k1, s.k2, 0}, c, err);
    const auto missing = [&](double t) {
        course.At(t, c, err);
        return s.A0 - c[1] - g;
    };
    try {
        double t = search.start;
        double delta = 0;
        for (int pass = 1; pass <= search.passes; ++pass) {
            t += delta;
            const double now = missing(t);
            delta = Divide(now * search.dt, now - missing(t + search.dt));
            if (t > 0 && std::abs(delta / t) < kConverged)
                return t;
        }
    } catch (const ArithmeticError&) { // no result either
    }
    const auto t = FindPositiveRoot(missing, search.start, -1, kLatestTime, kBracketTolerance);
    if (!t)
        ThrowArithmetic(kOverflow);
    return *t;
}

template <const ReversibleModel& Model, Species Of> Outcome ReversibleSecondOrder(const Start& s) {
    const bool ofA = Of == Species::A;
    const double start = ofA ? s.A0 : s.B0;
    const double xe = EquilibriumExtent(Model, s, ofA ? 3.999999999 : 3.99999999);
    if (!(start / 2 > start - xe))
        return NotReached;
    return TimeOfExtent(Model, ofA ? Model.forA : Model.forB, s, start / 2);
}

/// The model whose course a kind of diagram shows; 0: none.
int ModelOfKind(int kind) {
    switch (kind) {
    case -5:
        return 2;
    case -6:
        return 3;
    case -8:
        return 4;
    default:
        break;
    }
    const int model = kind > 50 ? kind - 50 : kind;
    return model >= 1 && model <= kModels ? model : 0;
}

using Formula = Outcome (*)(const Start&);
struct Formulas {
    Formula ofA = nullptr;
    Formula ofB = nullptr;
};
constexpr auto kFormulas = [] {
    std::array<Formulas, kModels + 1> table{};
    table[1] = {ZerothOrder, nullptr};
    table[2] = {FirstOrder, nullptr};
    table[3] = {SecondOrderSame, nullptr};
    table[4] = table[9] = {SecondOrderA, SecondOrderB};
    table[5] = table[16] = {Autocatalysis, nullptr};
    table[6] = {FirstOrder, nullptr};
    table[8] = {Reversible, nullptr};
    table[11] = {Competing, nullptr};
    table[12] = {ReversibleSecondOrder<kTwoP, Species::A>,
                 ReversibleSecondOrder<kTwoP, Species::B>};
    table[17] = {ReversibleSecondOrder<kOneP, Species::A>,
                 ReversibleSecondOrder<kOneP, Species::B>};
    return table;
}();

HalfLife Failed(const char* text, const char* title) {
    return {-1, false, MessageBox{text, title, Icon::Critical}};
}

HalfLife Evaluate(Formula formula, const Start& start, const char* errorTitle) {
    try {
        for (const double x : {start.A0, start.B0, start.P0, start.k1, start.k2})
            Finite(x);
        const Outcome outcome = formula(start);
        if (outcome.kind == Beep)
            return {0, true, std::nullopt};
        const float t = ToSingle(outcome.t);
        if (outcome.kind == NotReached || t < 0)
            return Failed(kNotReached, "Execution not possible");
        return {t, false, std::nullopt};
    } catch (const ArithmeticError& error) {
        return Failed(error.what(), errorTitle);
    }
}

float Show(const HalfLife& halfLife) {
    if (halfLife.beep)
        host().beep();
    if (halfLife.message)
        ShowMessage(halfLife.message->text, halfLife.message->title, halfLife.message->icon);
    return halfLife.value;
}

} // namespace

HalfLife HalfLifeOfA(int kind, double A0, double B0, double P0, double k1, double k2) {
    const Formula formula = kFormulas[static_cast<std::size_t>(ModelOfKind(kind))].ofA;
    if (formula == nullptr)
        return {};
    return Evaluate(formula, {A0, B0, P0, k1, k2}, "Message from FuHalbwertszeitA");
}

HalfLife HalfLifeOfB(int kind, double A0, double B0, double P0, double k1, double k2) {
    const int model = ModelOfKind(kind);
    const Formula formula = kFormulas[static_cast<std::size_t>(model)].ofB;
    if (formula == nullptr)
        return {0, model != 19, std::nullopt};
    return Evaluate(formula, {A0, B0, P0, k1, k2}, "Message from Function FuHalbwertszeitB");
}

float FuHalbwertszeitA(const ProjectState& ps, double A0, double B0, double P0, double k1,
                       double k2) {
    return Show(HalfLifeOfA(ps.DiagramKind, A0, B0, P0, k1, k2));
}

float FuHalbwertszeitB(const ProjectState& ps, double A0, double B0, double P0, double k1,
                       double k2) {
    return Show(HalfLifeOfB(ps.DiagramKind, A0, B0, P0, k1, k2));
}

} // namespace zorvant
