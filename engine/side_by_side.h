// Courses of one model with two sets of constants, side by side: each step of a course waits for
// the one before, so two take hardly longer than one. Each has the digits of a course of its own;
// when the second needs other sub-steps than the first it is given up.
#pragma once

#include "engine/step_doubling.h"

namespace zorvant {

/// Whether the runs agree in both lanes by far: no quotient need be formed.
template <class Law>
ZORVANT_INLINE bool AllAgree(const StatesOf<Law>& coarse, const StatesOf<Law>& fine) {
    decltype(Pair{} < Pair{}) open{}; // written so that a NaN is open
    Pair spoilt{};
    ZORVANT_UNROLL
    for (std::size_t i = 0; i < fine.size(); ++i) {
        const Pair sum = Magnitude(fine[i]) + Magnitude(coarse[i]);
        const Pair difference = Magnitude(coarse[i] - fine[i]);
        open |= ~((difference < 0.999 * kAgreement * sum) | (sum < kNegligible));
        spoilt += difference - difference;
    }
    return (open[0] | open[1]) == 0 && IsZero(spoilt);
}

/// nSteps steps of h; the loop of the less usual intervals, once in the code.
template <class Law>
[[gnu::noinline]] StatesOf<Law> RunSideBySide(const Law& law, StatesOf<Law> y, int nSteps,
                                              double h) {
    for (int i = 0; i < nSteps; ++i)
        StepRK4(law, y.data(), Pair{h, h});
    return y;
}

/// One interval (IntegrateInterval) of two courses.
/// Given:    y mol/L at its start; step TU; m sub-steps to begin with; both: false when the second
///           course has been given up
/// Returned: whether the first has come through: y at the end, m, both. If not it has to go on by
///           itself from y and m, which are as they were.
template <class Law>
ZORVANT_INLINE bool IntegrateSideBySide(const Law& law, StatesOf<Law>& y, double step, int& m,
                                        bool& both) {
    const auto run = [&](int n) { return RunSideBySide(law, y, n, step / n); };
    TwoRuns<StatesOf<Law>> runs =
        m == 1 ? StepOnceAndTwice(law, y, Pair{step, step}, Pair{step / 2, step / 2})
               : TwoRuns<StatesOf<Law>>{run(m), run(2 * m)};
    const auto agree = [&](int lane) {
        return RunsAgree(LaneOf<Law>(runs.coarse, lane), LaneOf<Law>(runs.fine, lane));
    };
    const auto firstAgrees = [&] {
        if (AllAgree<Law>(runs.coarse, runs.fine))
            return true;
        const bool first = agree(0);
        both = both && first == agree(1);
        return first;
    };
    int subSteps = 2 * m;
    if (!DoubleUntilAgreed(subSteps, kMostSubSteps - 1, firstAgrees, [&](int half) {
            runs = {runs.fine, run(2 * half)};
        }))
        return false;
    m = subSteps;
    Take(y, runs.fine);
    return true;
}

} // namespace zorvant
