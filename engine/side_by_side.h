// Courses of one model with two sets of constants, side by side: each step of a course waits for the
// one before, so two take hardly longer than one. Each has the digits of a course of its own; when
// the second needs other sub-steps than the first it is given up.
#pragma once

#include "engine/numeric_models.h"

namespace zorvant {

/// The states of two courses, counted from 0.
template <class Law> using StatesOf = std::array<Pair, Law::kSlots.size()>;

/// nSteps steps of h; the loop of the less usual intervals, once in the code.
template <class Law>
[[gnu::noinline]] void RunSideBySide(const Law& law, StatesOf<Law>& y, int nSteps, double h) {
    for (int i = 0; i < nSteps; ++i)
        StepRK4(law, y.data(), Pair{h, h});
}

template <class Law> StateOf<Law> LaneOf(const StatesOf<Law>& y, int lane) {
    StateOf<Law> one;
    for (std::size_t i = 0; i < one.size(); ++i)
        one[i] = Lane(y[i], lane);
    return one;
}

/// Whether the runs agree in both lanes by far: no quotient need be formed.
template <class Law>
[[gnu::always_inline]] inline bool AllAgree(const StatesOf<Law>& coarse,
                                            const StatesOf<Law>& fine) {
    decltype(Pair{} < Pair{}) open{}; // written so that a NaN is open
    Pair spoilt{};
    ForEach<kSizeOf<Law>>([&](auto i) __attribute__((always_inline)) {
        const Pair sum = Magnitude(fine[i]) + Magnitude(coarse[i]);
        const Pair difference = Magnitude(coarse[i] - fine[i]);
        open |= ~((difference < 0.999 * kAgreement * sum) | (sum < kNegligible));
        spoilt += difference - difference;
    });
    return (open[0] | open[1]) == 0 && IsZero(spoilt);
}

/// One interval with step doubling (IntegrateInterval) for two courses.
/// Given:    y mol/L at its start; step TU; m sub-steps to begin with; both: false when the second
///           course has been given up
/// Returned: whether the first has come through: y at the end, m, both. If not it has to go on by
///           itself from y and m, which are as they were.
template <class Law>
[[gnu::always_inline]] inline bool IntegrateSideBySide(const Law& law, StatesOf<Law>& y,
                                                       double step, int& m, bool& both) {
    StatesOf<Law> coarse = y, fine = y;
    int subSteps = m;
    if (subSteps == 1) {
        const Pair half{step / 2, step / 2};
        StepRK4(law, fine.data(), half);
        StepRK4(law, coarse.data(), Pair{step, step});
        StepRK4(law, fine.data(), half);
        subSteps = 2;
    } else {
        RunSideBySide(law, coarse, subSteps, step / subSteps);
        subSteps *= 2;
        RunSideBySide(law, fine, subSteps, step / subSteps);
    }
    while (!AllAgree<Law>(coarse, fine)) {
        const bool first = RunsAgree(LaneOf<Law>(coarse, 0), LaneOf<Law>(fine, 0));
        const bool second = RunsAgree(LaneOf<Law>(coarse, 1), LaneOf<Law>(fine, 1));
        both = both && first == second;
        if (first)
            break;
        if (subSteps >= kMostSubSteps / 2 || !AllFinite(LaneOf<Law>(fine, 0)))
            return false;
        coarse = fine;
        fine = y;
        subSteps *= 2;
        RunSideBySide(law, fine, subSteps, step / subSteps);
    }
    m = subSteps;
    bool below = false;
    ForEach<kSizeOf<Law>>([&](auto i)
                              __attribute__((always_inline)) { below |= AnyBelowZero(fine[i]); });
    if (!below) {
        y = fine;
        return true;
    }
    std::array<bool, 2> taking{true, true}; // a component below 0 is the last one taken
    for (std::size_t i = 0; i < y.size(); ++i)
        y[i] = EachLane<Pair>([&](int lane) {
            const double next = taking[static_cast<std::size_t>(lane)] ? fine[i][lane] : y[i][lane];
            taking[static_cast<std::size_t>(lane)] =
                taking[static_cast<std::size_t>(lane)] && !(next < 0);
            return next;
        });
    return true;
}

} // namespace zorvant
