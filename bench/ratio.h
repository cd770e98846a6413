// Times two forms of the same calculation in turn, so that a slow moment of the machine hits both.
#pragma once

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace zorvant::bench {

/// The processor's time of this thread: what else the machine does would lengthen the longer form.
inline double ThreadSeconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

template <class F> inline double SecondsOf(F& f, int calls) {
    const double start = ThreadSeconds();
    for (int i = 0; i < calls; ++i)
        f();
    return (ThreadSeconds() - start) / calls;
}

struct Times {
    double fast, plain; ///< s a call, the best of the rounds
    double Ratio() const { return fast / plain; }
};

/// The best of alternating rounds; each round of the plain form lasts about 2 ms or one call.
template <class F, class G> inline Times CompareTimes(F fast, G plain, int rounds = 61) {
    constexpr double kRound = 2e-3;
    fast();
    const double once = SecondsOf(plain, 1);
    const int calls = std::max(1, static_cast<int>(kRound / once));
    if (once > 0.05)
        rounds = 5;
    Times best{1e9, 1e9};
    for (int i = 0; i < rounds; ++i) {
        best.fast = std::min(best.fast, SecondsOf(fast, calls));
        best.plain = std::min(best.plain, SecondsOf(plain, calls));
    }
    return best;
}

/// One line of the table.
/// Returned: whether the ratio keeps the bound.
inline bool Report(const char* name, const Times& times, double bound) {
    const bool kept = times.Ratio() <= bound;
    std::printf("%-44s %10.2f us %10.2f us   %8.3g  (at most %.3g)%s\n", name, times.fast * 1e6,
                times.plain * 1e6, times.Ratio(), bound, kept ? "" : "  MISSED");
    return kept;
}

} // namespace zorvant::bench
