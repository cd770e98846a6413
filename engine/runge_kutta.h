// Runs of the classical Runge-Kutta scheme with fixed steps and no error control (W. Kutta, Z.
// Math. Phys. 46 (1901) 435) on the models of numeric_models.h. A number may be a Pair: two runs at
// once.
#pragma once

#include "engine/numeric_models.h"

#include <algorithm>

namespace zorvant {

/// One step of the scheme of fourth order. Half of K = h f is formed as (h/2) f: the same number,
/// as long as h f is not below 1e-307, without waiting for K.
template <class Law, class Real> ZORVANT_INLINE void StepRK4(const Law& law, Real* y, Real h) {
    constexpr int n = kSizeOf<Law>;
    const Real half = h * 0.5;
    Real dy[n], at[n], k1[n], k2[n], k3[n], k4[n];
    law(y, dy);
    ZORVANT_UNROLL
    for (int i = 0; i < n; ++i) {
        k1[i] = h * dy[i];
        at[i] = y[i] + half * dy[i];
    }
    law(at, dy);
    ZORVANT_UNROLL
    for (int i = 0; i < n; ++i) {
        k2[i] = h * dy[i];
        at[i] = y[i] + half * dy[i];
    }
    law(at, dy);
    ZORVANT_UNROLL
    for (int i = 0; i < n; ++i) {
        k3[i] = h * dy[i];
        at[i] = y[i] + k3[i];
    }
    law(at, dy);
    ZORVANT_UNROLL
    for (int i = 0; i < n; ++i) {
        k4[i] = h * dy[i];
        y[i] += (k1[i] + 2.0 * k2[i] + 2.0 * k3[i] + k4[i]) / 6.0;
    }
}

/// The same for A => P, where P gains to the last digit what A loses.
template <PowerKind Kind, class K, class Real>
ZORVANT_INLINE void StepRK4(const OrderN<Kind, K>& law, Real* y, Real h) {
    const Real half = h * 0.5;
    const Real dy1 = law.RateOfA(y[0]);
    const Real dy2 = law.RateOfA(y[0] + half * dy1);
    const Real dy3 = law.RateOfA(y[0] + half * dy2);
    const Real dy4 = law.RateOfA(y[0] + h * dy3);
    const Real gain = (h * dy1 + 2.0 * (h * dy2) + 2.0 * (h * dy3) + h * dy4) / 6.0;
    y[0] += gain;
    y[1] -= gain;
}

template <std::size_t N> ZORVANT_INLINE bool AllFinite(const std::array<double, N>& y) {
    double sum = 0; // a sum of y - y is 0 only when every y is finite
    ZORVANT_UNROLL
    for (std::size_t i = 0; i < N; ++i)
        sum += y[i] - y[i];
    return sum == 0;
}

/// A run that has left the range of numbers never comes back; every so many steps it looks.
inline constexpr int kStepsBetweenLooks = 32;

/// nSteps steps of h from `start`. A run that leaves the range of numbers ends early, not finite.
template <class Law>
ZORVANT_INLINE StateOf<Law> IntegrateRK4(const Law& law, const StateOf<Law>& start, int nSteps,
                                         double h) {
    StateOf<Law> y = start;
    for (int done = 0; done < nSteps;) {
        const int stop = std::min(nSteps, done + kStepsBetweenLooks);
        for (; done < stop; ++done)
            StepRK4(law, y.data(), h);
        if (!AllFinite(y))
            break;
    }
    return y;
}

/// Two runs from one start: a coarse one and one of twice as many steps.
template <class State> struct TwoRuns { State coarse, fine; };

/// Two states side by side, and one of them.
template <class Law>
ZORVANT_INLINE StatesOf<Law> SideBySide(const StateOf<Law>& first, const StateOf<Law>& second) {
    StatesOf<Law> both;
    ZORVANT_UNROLL
    for (std::size_t i = 0; i < both.size(); ++i)
        both[i] = Pair{first[i], second[i]};
    return both;
}
template <class Law> ZORVANT_INLINE StateOf<Law> LaneOf(const StatesOf<Law>& y, int lane) {
    StateOf<Law> one;
    ZORVANT_UNROLL
    for (std::size_t i = 0; i < y.size(); ++i)
        one[i] = Lane(y[i], lane);
    return one;
}

/// Both runs at once: nSteps of hCoarse and 2 nSteps of hFine. When the coarse one leaves the range
/// of numbers both end early, not finite: whoever compares them has to refine anyway.
template <class Law>
ZORVANT_INLINE TwoRuns<StateOf<Law>> IntegrateTwo(const Law& law, const StateOf<Law>& start,
                                                  int nSteps, double hCoarse, double hFine) {
    StatesOf<Law> y = SideBySide<Law>(start, start);
    const Pair h{hFine, hCoarse};
    TwoRuns<StateOf<Law>> runs{start, start};
    for (int done = 0; done < nSteps;) {
        const int stop = std::min(nSteps, done + kStepsBetweenLooks);
        for (; done < stop; ++done)
            StepRK4(law, y.data(), h);
        runs = {LaneOf<Law>(y, 1), LaneOf<Law>(y, 0)};
        if (!AllFinite(runs.coarse)) {
            runs.fine = runs.coarse;
            return runs;
        }
    }
    runs.fine = IntegrateRK4(law, runs.fine, nSteps, hFine);
    return runs;
}

/// The same with one step and two.
template <class Law>
ZORVANT_INLINE TwoRuns<StateOf<Law>> StepOnceAndTwice(const Law& law, const StateOf<Law>& start,
                                                      double once, double half) {
    StatesOf<Law> y = SideBySide<Law>(start, start);
    StepRK4(law, y.data(), Pair{half, once});
    TwoRuns<StateOf<Law>> runs{LaneOf<Law>(y, 1), LaneOf<Law>(y, 0)};
    StepRK4(law, runs.fine.data(), half);
    return runs;
}
/// The same of two states side by side.
template <class Law>
ZORVANT_INLINE TwoRuns<StatesOf<Law>> StepOnceAndTwice(const Law& law, const StatesOf<Law>& start,
                                                       Pair once, Pair half) {
    TwoRuns<StatesOf<Law>> runs{start, start};
    StepRK4(law, runs.fine.data(), half);
    StepRK4(law, runs.coarse.data(), once);
    StepRK4(law, runs.fine.data(), half);
    return runs;
}

} // namespace zorvant
