// The closed forms of the twelve models that have one, evaluated so that they neither cancel nor
// overflow: every concentration is a sum of parts of one sign, every exponential has a negative
// argument, and what is singular in the textbook form (equal constants, equal concentrations, a
// double root) is the ordinary limit here. docs/numerics.md derives them.
//
// Each form is a record of its constants, prepared once, that gives the state at any time t >= 0.
#pragma once

#include "engine/arithmetic.h"
#include "engine/project_state.h"

#include <array>
#include <cmath>
#include <variant>

namespace zorvant {

/// What is left of a first-order decay and what is gone: exp(-z) and 1 - exp(-z), both to rounding.
struct Decay {
    double left, gone;
    explicit Decay(double z) {
        constexpr double kNear = 0.7; // nearer to 0 the difference 1 - exp(-z) loses digits
        if (z > kNear || z < -kNear) {
            left = ClampedExp(-z);
            gone = 1 - left;
        } else {
            gone = -std::expm1(-z);
            left = 1 - gone;
        }
    }
};

/// Thrown where model 19 has no solution, which only negative input brings about.
struct NoSolution {};

namespace closed_forms {

/// 1: A => P of order 0; ends when A is used up.
struct Order0 {
    double k1, A0, P0;
    void operator()(double t, SpeciesArray& c) const {
        const double x = k1 * t;
        c[1] = A0 - x;
        c[4] = x + P0;
        if (c[1] < 0) {
            c[1] = 0;
            c[4] = P0 + A0;
        }
    }
};

/// 2: A => P of order 1.
struct Order1 {
    double k1, A0, P0;
    void operator()(double t, SpeciesArray& c) const {
        const Decay a(k1 * t);
        c[1] = A0 * a.left;
        c[4] = P0 + A0 * a.gone;
    }
};

/// d / (1 + d), also where d is infinite.
inline double Share(double d) {
    return d > 1 ? 1 / (1 + 1 / d) : d / (1 + d);
}

/// 3: 2A => P.
struct Order2 {
    double k1, A0, P0;
    void operator()(double t, SpeciesArray& c) const {
        const double d = 2 * k1 * t * A0;
        c[1] = A0 / (1 + d);
        c[4] = P0 + A0 / 2 * Share(d);
    }
};

/// 4: A + B => P. Less is the reactant of which there is less.
struct TwoReactants {
    double k1, A0, B0, P0;
    void operator()(double t, SpeciesArray& c) const;
};

/// 5, 16: A => P (+ Q) with P as the catalyst.
struct Autocatalysis {
    double k1, A0, P0, Q0;
    bool withQ;
    void operator()(double t, SpeciesArray& c) const;
};

/// 6: A => C => P.
struct Consecutive {
    double k1, k2, A0, C0, P0;
    void operator()(double t, SpeciesArray& c) const;
};

/// 8: A <=> P.
struct Reversible1 {
    double k1, k2, A0, P0;
    void operator()(double t, SpeciesArray& c) const {
        if (k1 * A0 == k2 * P0) { // in equilibrium from the start
            c[1] = A0;
            c[4] = P0;
            return;
        }
        const double sum = k1 + k2;
        const Decay d(sum * t);
        const double passed = sum == 0 ? t : d.gone / sum;
        c[1] = A0 * (d.left + k2 * passed) + P0 * (k2 * passed);
        c[4] = P0 * (d.left + k1 * passed) + A0 * (k1 * passed);
    }
};

/// 11: A => P; A => Q.
struct Competing {
    double k1, k2, A0, P0, Q0;
    void operator()(double t, SpeciesArray& c) const {
        const double sum = k1 + k2;
        const Decay d(sum * t);
        const double passed = sum == 0 ? t : d.gone / sum;
        c[1] = A0 * d.left;
        c[4] = P0 + A0 * (k1 * passed);
        c[5] = Q0 + A0 * (k2 * passed);
    }
};

/// 12, 17, 19: A + B <=> 2P, P, P + Q. The extent obeys dx/dt = a x^2 - b x + q with the
/// discriminant D^2 = b^2 - 4 a q; with u = exp(-D t) and w = (1 - u)/D every species is
///     c = (2 u c0 + w g) / (1 + u + w b).
/// Kept in units of powers of two of the concentrations and rates at hand, so that no square
/// overflows.
struct Reversible2 {
    Reversible2(int modelId, const ConstantArray& k, const SpeciesArray& c0, bool& err);
    void operator()(double t, SpeciesArray& c) const;

    int model;
    bool frozen = false;     ///< in equilibrium from the start
    double concentration;    ///< unit of concentration, mol/L
    double rate;             ///< unit of rate, 1/TU
    double discriminant = 0; ///< D
    double b = 0;
    SpeciesArray start{}; ///< c0
    SpeciesArray g{};
};

/// Below this k t the share of P in A => C => P is summed as a series: the closed difference loses
/// digits there as eps / (k t).
inline constexpr double kSeriesBelow = 0.5;
/// What A => C => P has made of A into P for a = k1 t, b = k2 t near 0:
///     a b sum (-1)^(n+1) h(n - 1) / (n + 1)!,  h(m) = a^m + a^(m-1) b + ... + b^m.
[[gnu::const]] double SharePassedSeries(double a, double b);

inline void TwoReactants::operator()(double t, SpeciesArray& c) const {
    if (A0 == B0) {
        const double d = k1 * t * A0;
        c[1] = c[2] = A0 / (1 + d);
        c[4] = P0 + A0 * Share(d);
        return;
    }
    const bool lessA = A0 < B0;
    const double less = lessA ? A0 : B0;
    const double more = lessA ? B0 : A0;
    const double excess = more - less;
    const double z = excess * (k1 * t);
    const Decay d(std::abs(z));
    double cLess, cMore, x;
    if (z >= 0) {
        const double share = less * d.gone / (excess + less * d.gone);
        const double rest = excess / (excess + less * d.gone);
        cLess = less * d.left * rest;
        cMore = more * rest;
        x = more * share;
    } else { // k1 < 0, as a search may try
        const double denominator = excess * d.left - less * d.gone;
        cLess = less * (excess / denominator);
        cMore = more * (excess / denominator) * d.left;
        x = -more * (less * d.gone / denominator);
    }
    c[1] = lessA ? cLess : cMore;
    c[2] = lessA ? cMore : cLess;
    c[4] = P0 + x;
}

inline void Autocatalysis::operator()(double t, SpeciesArray& c) const {
    const double sum = A0 + P0;
    const double z = sum * (k1 * t);
    const Decay d(std::abs(z));
    double x = 0;
    c[1] = A0;
    if (z >= 0) {
        if (const double denominator = P0 + A0 * d.left; denominator != 0) {
            c[1] = A0 * d.left * (sum / denominator);
            x = A0 * (P0 * d.gone / denominator);
        }
    } else {
        const double denominator = P0 * d.left + A0;
        c[1] = A0 * (sum / denominator);
        x = -A0 * (P0 * d.gone / denominator);
    }
    c[4] = P0 + x;
    if (withQ)
        c[5] = Q0 + x;
}

inline void Consecutive::operator()(double t, SpeciesArray& c) const {
    const Decay first(k1 * t), second(k2 * t);
    const bool firstIsSlow = k1 < k2;
    const double slow = firstIsSlow ? k1 : k2;
    const Decay& slowDecay = firstIsSlow ? first : second;
    const Decay& fastDecay = firstIsSlow ? second : first;

    // (exp(-k1 t) - exp(-k2 t)) / (k2 - k1), also for equal constants
    const double difference = std::abs(k2 - k1);
    double between;
    if (difference * t > 0.7)
        between = (slowDecay.left - fastDecay.left) / difference;
    else if (difference == 0)
        between = slowDecay.left * t;
    else
        between = slowDecay.left * (Decay(difference * t).gone / difference);

    const bool early = std::abs(k1 * t) < kSeriesBelow && std::abs(k2 * t) < kSeriesBelow;
    const double passed =
        early ? SharePassedSeries(k1 * t, k2 * t) : slowDecay.gone - slow * between;
    c[1] = A0 * first.left;
    c[3] = A0 * (k1 * between) + C0 * second.left;
    c[4] = P0 + A0 * passed + C0 * second.gone;
}

inline void Reversible2::operator()(double t, SpeciesArray& c) const {
    double old = 2, fresh = 0, denominator = 2; // the state at t = 0
    if (t > 0 && !frozen) {
        const double time = t * rate;
        const Decay d(discriminant * time);
        const double w = discriminant > 0 ? d.gone / discriminant : time;
        if (w > 1) { // both parts divided by w, which may be beyond all bounds
            old = 2 * d.left / w;
            fresh = 1;
            denominator = (1 + d.left) / w + b;
        } else {
            old = 2 * d.left;
            fresh = w;
            denominator = 1 + d.left + w * b;
        }
        if (denominator == 0) {
            if (model == 19)
                throw NoSolution{};
            ThrowArithmetic(kDivisionByZero);
        }
    }
    const double scale = concentration / denominator;
    c[1] = scale * (old * start[1] + fresh * g[1]);
    c[2] = scale * (old * start[2] + fresh * g[2]);
    c[4] = scale * (old * start[4] + fresh * g[4]);
    if (model == 19)
        c[5] = scale * (old * start[5] + fresh * g[5]);
}

/// A model without a closed form.
struct NoForm {
    void operator()(double, SpeciesArray&) const {}
};

} // namespace closed_forms

/// Whether the model is one of 1, 2, 3, 4, 5, 6, 8, 11, 12, 16, 17, 19.
bool HasClosedForm(int model);

/// The course of a model from c0: prepared once, read at any time.
class ClosedForm {
public:
    /// Given:    model with a closed form (for another one At changes nothing); k [1..3] 1/TU,
    ///           L/(mol TU), mol/(L TU); c0 [1..5] mol/L
    /// Returned: err: model 19 has no real solution (negative input only)
    /// Errors:   ArithmeticError: models 12, 17 have no real solution (negative input only)
    ClosedForm(int model, const ConstantArray& k, const SpeciesArray& c0, bool& err);

    /// The state at a time.
    /// Given:    t TU, >= 0
    /// Returned: c of the model's species, mol/L; the other slots keep their values
    /// Errors:   err: model 19 has no solution there; ArithmeticError: a concentration is not
    ///           finite
    void At(double t, SpeciesArray& c, bool& err) const;

    /// Calls f with the record of the model, for loops over many times.
    template <class F> auto Visit(F&& f) const { return std::visit(f, form_); }

private:
    using Form =
        std::variant<closed_forms::NoForm, closed_forms::Order0, closed_forms::Order1,
                     closed_forms::Order2, closed_forms::TwoReactants, closed_forms::Autocatalysis,
                     closed_forms::Consecutive, closed_forms::Reversible1, closed_forms::Competing,
                     closed_forms::Reversible2>;
    static Form Prepare(int model, const ConstantArray& k, const SpeciesArray& c0, bool& err);
    Form form_;
};

} // namespace zorvant
