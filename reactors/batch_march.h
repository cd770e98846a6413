// The integration of a batch reactor from node to node, for one time or for two at once. Two times
// of a secant are marched side by side: each step waits for the one before it, so that the other
// time's step comes almost for free. The digits are those of a march alone.
#pragma once

#include "engine/arithmetic.h"
#include "engine/side_by_side.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zorvant::batch_march {

// Nodes over the reaction time.
constexpr double kIntervals = 150;     ///< in t: the result lies up to one interval beyond t
constexpr double kLongestInterval = 1; ///< TU; longer ones become
constexpr double kSetInterval = 0.4;   ///< TU
constexpr double kMostIntervals = 1e5; ///< beyond, intervals grow: a press must come to its end
// Step doubling within an interval, beside what the engine says of it.
constexpr int kMostDoublings = 32767; ///< sub-steps; a doubling beyond is the overflow
constexpr double kFirstRunsPart = 5;  ///< the first run covers a fifth of the interval

/// A march towards t and where it stands.
template <class Law> struct March {
    StateOf<Law> y;   ///< at tau
    StateOf<Law> now; ///< at the node before: the result at the end
    double interval;  ///< TU
    double end;       ///< TU, the last tau that is begun
    double tau = 0;
    int m = 1;            ///< sub-steps to begin with
    bool resting = false; ///< every further interval would be the same

    March(const StateOf<Law>& start, double t) : y(start), now(start), interval(t / kIntervals) {
        if (interval > kLongestInterval)
            interval = std::fmax(kSetInterval, t / kMostIntervals);
        end = t + interval;
        resting = interval == 0;
    }
    bool IsAtEnd() const { return resting || (interval > 0 ? tau > end : tau < end); }

    /// Takes the state at the end of an interval, reached with so many sub-steps.
    void Take(const StateOf<Law>& next, int subSteps) {
        const int before = std::exchange(m, SubStepsAfter(subSteps));
        resting = next == y && m == before;
        now = y;
        y = next;
        tau += interval;
    }
};

/// Ends an interval whose first runs are these, the finer one with m sub-steps. `work` loses the
/// sub-steps of the finer runs.
/// Errors: ArithmeticError "Overflow" beyond kMostDoublings, and when the work is used up
template <class Law>
void Finish(const Law& law, March<Law>& march, TwoRuns<StateOf<Law>> runs, int m, long long& work) {
    const int first = m;
    if (!DoubleUntilAgreed(law, march.y, march.interval, m, kMostDoublings, runs))
        ThrowArithmetic(kOverflow);
    work -= 2 * m - first;
    if (work < 0)
        ThrowArithmetic(kOverflow);
    march.Take(runs.fine, m);
}

/// One interval. The first of the first two runs covers a fifth of it only, so that the first
/// comparison is strict.
template <class Law> void Next(const Law& law, March<Law>& march, long long& work) {
    const int m = march.m;
    Finish(law, march,
           IntegrateTwo(law, march.y, m, march.interval / m / kFirstRunsPart,
                        march.interval / (2 * m)),
           2 * m, work);
}

/// Two marches at once, interval after interval as long as each begins with one sub-step and its
/// first two runs agree; then one interval of each with more.
template <class Law>
void NextOfBoth(const Law& law, March<Law>& a, March<Law>& b, long long& work) {
    const Pair interval{a.interval, b.interval};
    const Pair half = interval / 2.0, fifth = interval / kFirstRunsPart;
    StatesOf<Law> y = SideBySide<Law>(a.y, b.y), now = SideBySide<Law>(a.now, b.now);
    TwoRuns<StatesOf<Law>> runs{};
    bool agreed = true;
    while (!a.IsAtEnd() && !b.IsAtEnd()) {
        runs = StepOnceAndTwice(law, y, fifth, half);
        agreed = AllAgree<Law>(runs.coarse, runs.fine);
        if (!agreed)
            break;
        work -= 2 * 2;
        if (work < 0)
            ThrowArithmetic(kOverflow);
        auto same = runs.fine[0] == y[0];
        ZORVANT_UNROLL
        for (std::size_t i = 1; i < y.size(); ++i)
            same &= runs.fine[i] == y[i];
        a.resting = same[0] != 0;
        b.resting = same[1] != 0;
        now = y;
        y = runs.fine;
        a.tau += a.interval;
        b.tau += b.interval;
    }
    a.y = LaneOf<Law>(y, 0), b.y = LaneOf<Law>(y, 1);
    a.now = LaneOf<Law>(now, 0), b.now = LaneOf<Law>(now, 1);
    if (agreed)
        return;
    Finish(law, a, {LaneOf<Law>(runs.coarse, 0), LaneOf<Law>(runs.fine, 0)}, 2, work);
    Finish(law, b, {LaneOf<Law>(runs.coarse, 1), LaneOf<Law>(runs.fine, 1)}, 2, work);
}

/// The state at the last node not beyond one interval after t.
template <class Law>
StateOf<Law> Integrate(const Law& law, const StateOf<Law>& start, double t, long long& work) {
    March<Law> march(start, t);
    while (!march.IsAtEnd())
        Next(law, march, work);
    return march.now;
}

/// The same at two times.
template <class Law>
std::pair<StateOf<Law>, StateOf<Law>> IntegrateBoth(const Law& law, const StateOf<Law>& start,
                                                    double t1, double t2, long long& work) {
    March<Law> a(start, t1), b(start, t2);
    while (!a.IsAtEnd() && !b.IsAtEnd()) {
        if (a.m == 1 && b.m == 1) {
            NextOfBoth(law, a, b, work);
        } else {
            Next(law, a, work);
            Next(law, b, work);
        }
    }
    while (!a.IsAtEnd())
        Next(law, a, work);
    while (!b.IsAtEnd())
        Next(law, b, work);
    return {a.now, b.now};
}

} // namespace zorvant::batch_march
