#include "reactors/tank_search.h"

#include "reactors/root_search.h"

#include <cmath>

namespace zorvant {
namespace {

// Search over the conversion (model 7). A coarser end shows in the digits of U, a finer one only
// costs passes.
constexpr double kFirstConversion = -0.099;
constexpr double kFirstConversionStep = 0.1;
constexpr double kLastConversion = 1 - 1e-7; ///< in place of 1 and more, where t has no value
constexpr int kConversionPasses = 1000;
// Search over the extent (model 20), mol/L.
constexpr double kFirstExtent = 1e-8;
constexpr double kExtentSteps = 100; ///< first step: this part of c(A,0)
// Both: a change of sign turns the steps round and makes them finer; this small, they end.
constexpr double kRefine = -0.1;
constexpr double kSmallestStep = 1e-8;
/// Of the bracketing that follows a search without a result.
constexpr double kBracketTolerance = 0; ///< to the last digit

// --- model 7

/// The root that leaves 0 <= x1 <= M, where the rule of the larger one does not: the other would
/// need a negative c(B) and a negative second extent.
double TakeFirstExtent(const QuadraticRoots& roots, double available, double converted) {
    const auto possible = [&](double x) {
        return converted < 0 ? x >= converted && x <= 0 : x >= 0 && x <= converted;
    };
    const double byRule = roots.larger <= available ? roots.larger : roots.smaller;
    const double other = roots.larger <= available ? roots.smaller : roots.larger;
    return !possible(byRule) && possible(other) ? other : byRule;
}

/// c(A) at the outlet from the balance of A, everything else inserted: the left side falls, the
/// right side rises with c(A), so that there is one zero between 0 and c(A,0).
ConcurrentSearch BracketConcurrent(const ConcurrentTank& tank, double t) {
    ConcurrentSearch found;
    const auto extents = [&](double cA) {
        const double cB = tank.cB / (1 + tank.k1 * t * cA);
        found.x1 = tank.k1 * t * cA * cB;
        found.x2 = tank.k2 * t * cA * ((tank.cC + found.x1) / (1 + tank.k2 * t * cA));
    };
    const auto balance = [&](double cA) {
        extents(cA);
        return tank.cA - cA - found.x1 - found.x2;
    };
    const auto cA =
        FindRootBetween(balance, 0, balance(0), tank.cA, balance(tank.cA), kBracketTolerance);
    if (!cA) {
        found.bNoSolution = true;
        return found;
    }
    extents(*cA);
    found.U = (tank.cA - *cA) / tank.cA;
    return found;
}

// --- model 20

/// ln x - ln t - ln k1 - n ln(c(A,0) - x), whose zero is the steady state.
struct OrderBalance {
    double cA, lnT, lnK1, n;
    explicit OrderBalance(const OrderTank& tank)
        : cA(tank.cA), lnT(std::log(tank.t)), lnK1(std::log(tank.k1)), n(tank.n) {}
    double operator()(double x) const { return std::log(x) - lnT - lnK1 - n * std::log(cA - x); }
};

/// Where the sign of the balance is known without a logarithm: below 0 up to `below`, above 0 from
/// `above` on.
struct SignZones {
    double below = 0;
    double above = 0;
};

/// The zone around the zero outside which no rounding can turn the sign of the balance. With
/// s = ln(x/(c(A,0) - x)) the balance reads C + s + (n - 1) ln(1 + e^s); its slope is between 1 and
/// n and its curvature at most |n - 1|/4, so that Newton's method converges from anywhere and its
/// last step bounds its error.
/// Returned: the whole range, in which every sign is computed, where that fails
SignZones FindSignZones(const OrderTank& tank, const OrderBalance& balance) {
    constexpr int kMaxPasses = 30;
    constexpr double kNarrow = 1e-10; // of s: only the last steps of the search fall into the zone
    const double n = tank.n;
    const double leastSlope = std::fmin(1, n);
    // 2^-52 of four logarithms, each below 745, with room to spare
    const double rounding = 1e-11 * (3 + n) / leastSlope;
    const double C = (1 - n) * std::log(tank.cA) - balance.lnT - balance.lnK1;
    double s = -C < 0 ? -C : -C / n; // where the logarithm is 0 or s
    for (int pass = 0; pass < kMaxPasses; ++pass) {
        const double w = std::exp(s);
        const double step = -(C + s + (n - 1) * std::log(1 + w)) / (1 + (n - 1) * (w / (1 + w)));
        s += step;
        const double error = std::abs(n - 1) / (8 * leastSlope) * step * step;
        if (error < kNarrow) {
            const double share = std::exp(s);
            const double x = tank.cA * (share / (1 + share));
            const double width = 2 * (error + 2 * rounding) * (x / (1 + share));
            return {x - width, x + width};
        }
    }
    return {0, tank.cA};
}

/// The balance solved for what is left of A, y + k1 t y^n = c(A,0), which rises with y.
OrderSearch BracketOrder(const OrderTank& tank) {
    const auto balance = [&](double left) {
        return left + tank.k1 * tank.t * std::pow(left, tank.n) - tank.cA;
    };
    const auto left =
        FindRootBetween(balance, 0, -tank.cA, tank.cA, balance(tank.cA), kBracketTolerance);
    if (!left)
        return {0, tank.cA, true};
    return {tank.cA - *left, *left, false};
}

} // namespace

std::optional<ConcurrentState> StateAtConversion(const ConcurrentTank& tank, double U) {
    const double converted = tank.cA * U;
    const double difference = tank.k1 - 2 * tank.k2;
    const double p = tank.k2 * (converted - tank.cC) - tank.k1 * (tank.cB + converted);
    const double q = tank.k1 * tank.cB * converted;
    ConcurrentState state{};
    if (difference == 0) { // linear
        if (p == 0)
            return std::nullopt;
        state.x1 = -q / p;
    } else {
        const auto roots = SolveQuadratic(p / difference, q / difference);
        if (!roots)
            return std::nullopt;
        state.x1 = TakeFirstExtent(*roots, tank.cA, converted);
    }
    state.x2 = converted - state.x1;
    state.cB = tank.cB - state.x1;
    if (state.cB < 0)
        return state;
    const double cA = tank.cA - state.x1 - state.x2;
    const double cC = tank.cC + state.x1 - state.x2;
    state.t = converted / (tank.k1 * cA * state.cB + tank.k2 * cA * cC);
    return state;
}

ConcurrentSearch SearchConcurrentTank(const ConcurrentTank& tank, double t) {
    ConcurrentSearch found;
    double step = kFirstConversionStep;
    double previous = 1;
    int passes = 0;
    bool passed = false; ///< a change of sign was seen
    found.U = kFirstConversion;
    do {
        found.U += step;
        ++passes;
        if (found.U >= 1)
            found.U = kLastConversion;
        const auto state = StateAtConversion(tank, found.U);
        if (!state || state->cB < 0)
            return BracketConcurrent(tank, t);
        found.x1 = state->x1;
        found.x2 = state->x2;
        const double difference = t - state->t;
        if (difference == 0) { // met exactly
            passed = true;
            break;
        }
        if ((previous < 0) != (difference < 0)) {
            step *= kRefine;
            passed = true;
        }
        previous = difference;
    } while (!(std::abs(step) < kSmallestStep) && passes <= kConversionPasses);
    if (passes > kConversionPasses || !passed)
        return BracketConcurrent(tank, t);
    return found;
}

OrderSearch SearchOrderTank(const OrderTank& tank, int passLimit) {
    if (!(tank.cA > 0) || !(tank.k1 * tank.t > 0))
        return {0, tank.cA, true};
    const OrderBalance balance(tank);
    const SignZones zones = FindSignZones(tank, balance);
    double step = tank.cA / kExtentSteps;
    double x = -step + kFirstExtent;
    bool previousNegative = true;
    bool passed = false; ///< a change of sign was seen
    int passes = 0;
    do {
        // steps towards the zero that stay before its zone
        if (std::abs(step) < kSmallestStep) {
            // the first one is the only one
        } else if (step > 0 && previousNegative) {
            for (; x + step <= zones.below && x + step > 0 && passes < passLimit; ++passes)
                x += step;
        } else if (step < 0 && !previousNegative) {
            for (; x + step >= zones.above && passes < passLimit; ++passes)
                x += step;
        }
        x += step;
        ++passes;
        if (x > tank.cA && step > 0) {
            x -= step;
            step /= 2;
            x += step;
        }
        if (x >= tank.cA || x <= 0)
            return BracketOrder(tank);
        bool negative = x <= zones.below;
        if (!negative && x < zones.above) {
            const double value = balance(x);
            if (value == 0) // met exactly
                return {x, tank.cA - x, false};
            negative = value < 0;
        }
        if (negative != previousNegative) {
            step *= kRefine;
            passed = passes > 1; // the first point has none before it
        }
        previousNegative = negative;
    } while (!(std::abs(step) < kSmallestStep) && passes <= passLimit);
    if (passes > passLimit || !passed)
        return BracketOrder(tank);
    return {x, tank.cA - x, false};
}

} // namespace zorvant
