// Roots: of a quadratic, and of a function by bracketing where a search by steps found none.
#pragma once

#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace zorvant {

struct QuadraticRoots {
    double larger = 0;
    double smaller = 0;
};
enum class DoubleRoot { IsNone, Counts };

/// Roots of y^2 + p y + q = 0.
/// Returned: nothing without two distinct real roots (or, where it counts, a double one)
/// Formula:  -p/2 +- sqrt(p^2/4 - q); the root of smaller amount as q over the other one, so that a
///           nearly linear equation (large p) loses no digits
inline std::optional<QuadraticRoots> SolveQuadratic(double p, double q,
                                                    DoubleRoot doubleRoot = DoubleRoot::IsNone) {
    const double discriminant = p * p / 4 - q;
    if (discriminant == 0 && doubleRoot == DoubleRoot::Counts)
        return QuadraticRoots{-p / 2, -p / 2};
    if (!(discriminant > 0))
        return std::nullopt;
    const double root = std::sqrt(discriminant);
    if (p > 0) {
        const double smaller = -p / 2 - root;
        return QuadraticRoots{q / smaller, smaller};
    }
    const double larger = -p / 2 + root;
    return QuadraticRoots{larger, q / larger};
}

/// The zero of a function between a and b, where it has opposite signs.
/// Returned: the end of the last bracket with the smaller amount of f; nothing when a value is NaN
///           or the signs agree
/// Formula:  R. P. Brent, Algorithms for Minimization without Derivatives, 1973, chapter 4
template <class Function>
std::optional<double> FindRootBetween(Function&& f, double a, double fa, double b, double fb,
                                      double relativeTolerance) {
    constexpr int kMaxPasses = 300; // bisection alone needs 64 for each factor of 2^64
    if (std::isnan(fa) || std::isnan(fb) || (fa < 0) == (fb < 0))
        return fa == 0 ? std::optional(a) : fb == 0 ? std::optional(b) : std::nullopt;
    double c = a;
    double fc = fa;
    double step = b - a;
    double previous = step;
    for (int pass = 0; pass < kMaxPasses; ++pass) {
        if (std::abs(fc) < std::abs(fb)) { // b stays the best point
            a = std::exchange(b, c);
            c = a;
            fa = std::exchange(fb, fc);
            fc = fa;
        }
        const double tolerance =
            (relativeTolerance + 2 * std::numeric_limits<double>::epsilon()) * std::abs(b) +
            std::numeric_limits<double>::min();
        const double half = (c - b) / 2;
        if (fb == 0 || std::abs(half) <= tolerance)
            return b;
        if (std::abs(previous) < tolerance || std::abs(fa) <= std::abs(fb)) {
            step = previous = half;
        } else {
            const double s = fb / fa;
            double numerator = 2 * half * s;
            double denominator = 1 - s;
            if (a != c) { // inverse quadratic interpolation
                const double u = fa / fc;
                const double v = fb / fc;
                numerator = s * (2 * half * u * (u - v) - (b - a) * (v - 1));
                denominator = (u - 1) * (v - 1) * (s - 1);
            }
            if (numerator > 0)
                denominator = -denominator;
            else
                numerator = -numerator;
            const double before = std::exchange(previous, step);
            if (2 * numerator <
                std::fmin(3 * half * denominator - std::abs(tolerance * denominator),
                          std::abs(before * denominator)))
                step = numerator / denominator;
            else
                step = previous = half;
        }
        a = b;
        fa = fb;
        b += std::abs(step) > tolerance ? step : std::copysign(tolerance, half);
        fb = f(b);
        if (std::isnan(fb))
            return std::nullopt;
        if ((fb < 0) == (fc < 0)) {
            c = a;
            fc = fa;
            step = previous = b - a;
        }
    }
    return b;
}

/// A change of sign of f above 0, looked for by doubling from `start`, then by halving.
/// Given:    f(0) has the sign of signAtZero; `limit` where doubling ends
/// Returned: nothing when f keeps its sign, or where a value is NaN. Doubling also ends where f has
///           settled: several times in a row it changed less than before and hardly at all.
template <class Function>
std::optional<double> FindPositiveRoot(Function&& f, double start, double signAtZero, double limit,
                                       double relativeTolerance) {
    constexpr int kSettledAfter = 8;    // fewer end on the plateau between a fast and a slow step
    constexpr double kHardly = 0.01;    // of f itself; what is left then adds up to less than f
    constexpr double kRounding = 1e-12; // of f: a change that is none
    constexpr int kHalvings = 200;      // more reach into times where nothing has begun
    const auto passed = [&](double value) { return value == 0 || (value < 0) != (signAtZero < 0); };
    const double first = f(start);
    if (std::isnan(first))
        return std::nullopt;

    if (!passed(first)) {
        double t = start;
        double value = first;
        double change = std::numeric_limits<double>::infinity();
        for (int settled = 0; t < limit && settled < kSettledAfter;) {
            const double upper = 2 * t;
            const double upperValue = f(upper);
            if (std::isnan(upperValue))
                break;
            if (passed(upperValue))
                return FindRootBetween(f, t, value, upper, upperValue, relativeTolerance);
            const double before = std::exchange(change, std::abs(upperValue - value));
            const bool less = change <= before || change < kRounding * std::abs(upperValue);
            settled = less && change < kHardly * std::abs(upperValue) ? settled + 1 : 0;
            t = upper;
            value = upperValue;
        }
    }
    double t = start;
    double value = first;
    for (int halving = 0; halving < kHalvings; ++halving) {
        const double lower = t / 2;
        const double lowerValue = f(lower);
        if (std::isnan(lowerValue))
            break;
        if (passed(lowerValue) != passed(value))
            return FindRootBetween(f, lower, lowerValue, t, value, relativeTolerance);
        t = lower;
        value = lowerValue;
    }
    return std::nullopt;
}

} // namespace zorvant
