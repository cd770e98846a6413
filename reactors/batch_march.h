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
constexpr int kFirstRunsPart = 5;     ///< the first run covers a fifth of the interval

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
        const int before = std::exchange(m, std::max(subSteps / 4, 1));
        resting = next == y && m == before;
        now = y;
        y = next;
        tau += interval;
    }
};

/// Doubles sub-steps until two runs agree. `work` loses the sub-steps.
/// Errors: ArithmeticError "Overflow" beyond kMostDoublings, and when the work is used up
template <class Law>
void Refine(const Law& law, March<Law>& march, StateOf<Law> coarse, StateOf<Law> fine, int m,
            long long& work) {
    work -= m;
    while (!RunsAgree(coarse, fine)) {
        coarse = fine;
        m *= 2;
        work -= m;
        if (m > kMostDoublings)
            ThrowArithmetic(kOverflow);
        fine = RunRK4(law, march.y, m, march.interval / m);
    }
    if (work < 0)
        ThrowArithmetic(kOverflow);
    march.Take(fine, m);
}

/// One interval. The first of the first two runs covers a fifth of it only, so that the first
/// comparison is strict.
template <class Law> void Next(const Law& law, March<Law>& march, long long& work) {
    const int m = march.m;
    const auto runs =
        RunTwoRK4(law, march.y, m, march.interval / m / kFirstRunsPart, march.interval / (2 * m));
    Refine(law, march, runs.coarse, runs.fine, 2 * m, work);
}

/// Two marches at once, interval after interval as long as each begins with one sub-step and its
/// first two runs agree; then one interval of each with more.
template <class Law>
void NextOfBoth(const Law& law, March<Law>& a, March<Law>& b, long long& work) {
    const Pair half{a.interval / 2, b.interval / 2};
    const Pair fifth{a.interval / kFirstRunsPart, b.interval / kFirstRunsPart};
    StatesOf<Law> y, now, coarse, fine;
    ForEach<kSizeOf<Law>>([&](auto i) __attribute__((always_inline)) {
        y[i] = Pair{a.y[i], b.y[i]};
        now[i] = Pair{a.now[i], b.now[i]};
    });
    bool agreed = true;
    while (!a.IsAtEnd() && !b.IsAtEnd()) {
        fine = coarse = y;
        StepRK4(law, fine.data(), half);
        StepRK4(law, coarse.data(), fifth);
        StepRK4(law, fine.data(), half);
        agreed = AllAgree<Law>(coarse, fine);
        if (!agreed)
            break;
        work -= 2 * 2;
        if (work < 0)
            ThrowArithmetic(kOverflow);
        auto same = fine[0] == y[0];
        ForEach<kSizeOf<Law>>([&](auto i)
                                  __attribute__((always_inline)) { same &= fine[i] == y[i]; });
        a.resting = same[0] != 0;
        b.resting = same[1] != 0;
        now = y;
        y = fine;
        a.tau += a.interval;
        b.tau += b.interval;
    }
    a.y = LaneOf<Law>(y, 0), b.y = LaneOf<Law>(y, 1);
    a.now = LaneOf<Law>(now, 0), b.now = LaneOf<Law>(now, 1);
    if (agreed)
        return;
    Refine(law, a, LaneOf<Law>(coarse, 0), LaneOf<Law>(fine, 0), 2, work);
    Refine(law, b, LaneOf<Law>(coarse, 1), LaneOf<Law>(fine, 1), 2, work);
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
