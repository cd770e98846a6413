// Step doubling: an interval is run with m, 2 m, 4 m... sub-steps until two runs in a row agree.
// One course, two courses side by side (side_by_side.h) and the march of the batch reactor share
// when runs agree, how they are refined and what of them is taken.
#pragma once

#include "engine/arithmetic.h"
#include "engine/runge_kutta.h"

#include <algorithm>
#include <cmath>

namespace zorvant {

/// Most sub-steps of an interval of a course.
inline constexpr int kMostSubSteps = 32000;
/// Two runs agree when no component differs by more than this share of the sum of both.
inline constexpr double kAgreement = 0.01;
/// Components whose sum is below this are not compared, mol/L.
inline constexpr double kNegligible = 1e-6;

/// Whether the runs agree. What is not finite agrees with nothing.
template <std::size_t N>
ZORVANT_INLINE bool RunsAgree(const std::array<double, N>& coarse,
                              const std::array<double, N>& fine) {
    bool agree = AllFinite(coarse) && AllFinite(fine);
    ZORVANT_UNROLL
    for (std::size_t i = 0; i < N; ++i) {
        const double sum = std::abs(fine[i]) + std::abs(coarse[i]);
        const double difference = std::abs(coarse[i] - fine[i]);
        // The quotient decides; where it can't exceed the share by any rounding it isn't formed.
        if (sum >= kNegligible && !(difference < 0.999 * kAgreement * sum) &&
            difference / sum > kAgreement)
            agree = false;
    }
    return agree;
}

/// Goes on doubling until two runs agree.
/// Given:    agree(): whether the two latest runs do; refine(m): makes the runs with m and 2 m
///           sub-steps the latest; m, sub-steps of the latest run, and the most that it may have
/// Returned: whether two runs agree: the finer one has m sub-steps
template <class Agree, class Refine>
ZORVANT_INLINE bool DoubleUntilAgreed(int& m, int most, Agree&& agree, Refine&& refine) {
    while (!agree()) {
        if (2 * m > most)
            return false;
        refine(m);
        m *= 2;
    }
    return true;
}

/// The same for the runs of one interval from y.
/// Given:    step TU; m sub-steps of runs.fine and the most that it may have
/// Returned: runs, the two latest; a run that ended early is made anew beside the next one
template <class Law>
ZORVANT_INLINE bool DoubleUntilAgreed(const Law& law, const StateOf<Law>& y, double step, int& m,
                                      int most, TwoRuns<StateOf<Law>>& runs) {
    return DoubleUntilAgreed(
        m, most, [&] { return RunsAgree(runs.coarse, runs.fine); },
        [&](int half) {
            if (AllFinite(runs.fine))
                runs = {runs.fine, IntegrateRK4(law, y, 2 * half, step / (2 * half))};
            else
                runs = IntegrateTwo(law, y, half, step / half, step / (2 * half));
        });
}

/// Takes the state at the end of an interval: a component below 0 is the last one taken, those
/// behind it keep their values.
template <class Real, std::size_t N>
ZORVANT_INLINE void Take(std::array<Real, N>& y, const std::array<Real, N>& end) {
    bool below = false;
    ZORVANT_UNROLL
    for (std::size_t i = 0; i < N; ++i)
        below |= AnyBelowZero(end[i]);
    if (!below) {
        ZORVANT_UNROLL
        for (std::size_t i = 0; i < N; ++i) // one by one: a copy in pieces would wait for each
            y[i] = end[i];
        return;
    }
    for (int lane = 0; lane < kLanes<Real>; ++lane)
        for (std::size_t i = 0; i < N; ++i) {
            SetLane(y[i], lane, Lane(end[i], lane));
            if (Lane(end[i], lane) < 0)
                break;
        }
}

/// The sub-steps that the next interval begins with.
inline int SubStepsAfter(int m) {
    return std::max(m / 4, 1);
}

/// The end of an interval from the runs with m and 2 m sub-steps on. From 32000 sub-steps on a
/// further run would be the same again, so that one counts whatever came before it.
/// Errors:   ArithmeticError "Overflow" when 32000 sub-steps give no finite result
template <class Law>
[[gnu::noinline]] StateOf<Law> RunUntilAgreed(const Law& law, StateOf<Law> y, double step, int& m) {
    auto runs = IntegrateTwo(law, y, m, step / m, step / (2 * m));
    m *= 2;
    if (DoubleUntilAgreed(law, y, step, m, kMostSubSteps - 1, runs))
        return runs.fine;
    m = kMostSubSteps;
    const StateOf<Law> finest = IntegrateRK4(law, y, m, step / m);
    if (!AllFinite(finest))
        ThrowArithmetic(kOverflow);
    return finest;
}

/// One interval of a course.
/// Given:    y mol/L at its start; step TU; m >= 1 sub-steps to begin with
/// Returned: y at its end; m of the run that counts, at most 32000
/// Errors:   ArithmeticError "Overflow"
template <class Law>
ZORVANT_INLINE void IntegrateInterval(const Law& law, StateOf<Law>& y, double step, int& m) {
    m = std::min(m, kMostSubSteps / 2);
    if constexpr (requires { law.IsAtRest(y); }) {
        if (law.IsAtRest(y)) { // every run gives y again
            m *= 2;
            return;
        }
    }
    if (m == 1) { // most intervals, without any loop
        const TwoRuns<StateOf<Law>> runs = StepOnceAndTwice(law, y, step, step / 2);
        m = 2;
        if (RunsAgree(runs.coarse, runs.fine))
            return Take(y, runs.fine);
    }
    Take(y, RunUntilAgreed(law, y, step, m));
}

} // namespace zorvant
