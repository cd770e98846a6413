// The models without a closed form, each as the record of its constants that yields dc/dt of its
// packed state, and the Runge-Kutta step on them. A caller chooses the model once (WithNumericModel)
// and then runs as many steps as it likes; nothing in here allocates.
#pragma once

#include "engine/arithmetic.h"
#include "engine/pair.h"
#include "engine/rate_laws.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>
#include <utility>

namespace zorvant {

/// How k c^n is formed. One choice for the rate, the derivative and every caller, so that all give
/// the same digits.
enum class PowerKind { Half, One, OneAndHalf, Two, Three, Integer, Other };

/// Orders above this are left to pow: repeated multiplication would lose digits.
inline constexpr double kLargestIntegerOrder = 32;

inline PowerKind KindOfPower(double n) {
    if (n == 0.5)
        return PowerKind::Half;
    if (n == 1.0)
        return PowerKind::One;
    if (n == 1.5)
        return PowerKind::OneAndHalf;
    if (n == 2.0)
        return PowerKind::Two;
    if (n == 3.0)
        return PowerKind::Three;
    if (n > 0 && n <= kLargestIntegerOrder && n == std::floor(n))
        return PowerKind::Integer;
    return PowerKind::Other;
}

/// k c^n for c >= 0, factors in the order that waits least for the slowest. Real: double or Pair;
/// Constant: double or Real. Of whole orders only one stands in both lanes.
template <PowerKind Kind, class Constant, class Real>
[[gnu::always_inline]] inline Real OrderRate(Constant k, Real c, Constant n) {
    if constexpr (Kind == PowerKind::Half) {
        return k * SquareRoot(c);
    } else if constexpr (Kind == PowerKind::One) {
        return k * c;
    } else if constexpr (Kind == PowerKind::OneAndHalf) {
        return (k * c) * SquareRoot(c);
    } else if constexpr (Kind == PowerKind::Two) {
        return (k * c) * c;
    } else if constexpr (Kind == PowerKind::Three) {
        return (k * c) * (c * c);
    } else if constexpr (Kind == PowerKind::Integer) {
        Real rate = k * c;
        for (int i = static_cast<int>(Lane(n, 0)); i > 1; --i)
            rate *= c;
        return rate;
    } else {
        return k * EachLane<Real>([&](int lane) { return std::pow(Lane(c, lane), Lane(n, lane)); });
    }
}

/// Calls f with the kind of the exponent as a compile-time constant.
template <class F> inline auto WithPowerKind(PowerKind kind, F&& f) {
    using enum PowerKind;
    switch (kind) {
    case Half:
        return f(std::integral_constant<PowerKind, Half>{});
    case One:
        return f(std::integral_constant<PowerKind, One>{});
    case OneAndHalf:
        return f(std::integral_constant<PowerKind, OneAndHalf>{});
    case Two:
        return f(std::integral_constant<PowerKind, Two>{});
    case Three:
        return f(std::integral_constant<PowerKind, Three>{});
    case Integer:
        return f(std::integral_constant<PowerKind, Integer>{});
    case Other:
        break;
    }
    return f(std::integral_constant<PowerKind, Other>{});
}

/// k c^n for c >= 0.
inline double OrderRate(double k, double c, double n) {
    return WithPowerKind(KindOfPower(n), [&](auto kind) { return OrderRate<kind.value>(k, c, n); });
}

// The right-hand sides. y and dy count from 0 in the packed order; kSlots names the species of each.
// K: a double, or a Pair where each lane has constants of its own.

/// 7: A + B => C; A + C => P
template <class K = double> struct ConcurrentConsecutive {
    static constexpr std::array<int, 4> kSlots{1, 2, 3, 4};
    K k1, k2, k3;
    template <class Real> [[gnu::always_inline]] void operator()(const Real* y, Real* dy) const {
        const Real first = k1 * y[0] * y[1];
        const Real second = k2 * y[0] * y[2];
        dy[0] = -first - second;
        dy[1] = -first;
        dy[2] = first - second;
        dy[3] = second;
    }
};

/// 9: A + B => C => P
template <class K = double> struct Consecutive {
    static constexpr std::array<int, 4> kSlots{1, 2, 3, 4};
    K k1, k2, k3;
    template <class Real> [[gnu::always_inline]] void operator()(const Real* y, Real* dy) const {
        const Real first = k1 * y[0] * y[1];
        const Real second = k2 * y[2];
        dy[0] = -first;
        dy[1] = dy[0];
        dy[2] = first - second;
        dy[3] = second;
    }
};

/// 10: E + S <=> ES => P + E
template <class K = double> struct Enzyme {
    static constexpr std::array<int, 4> kSlots{1, 2, 3, 4};
    K k1, k2, k3;
    template <class Real> [[gnu::always_inline]] void operator()(const Real* y, Real* dy) const {
        const Real bind = k1 * y[0] * y[1];
        const Real release = k2 * y[2];
        const Real turnOver = k3 * y[2];
        dy[0] = release - bind + turnOver;
        dy[1] = release - bind;
        dy[2] = bind - release - turnOver;
        dy[3] = turnOver;
    }
};

/// 13: A + B => C <=> P
template <class K = double> struct SecondOrderDownstream {
    static constexpr std::array<int, 4> kSlots{1, 2, 3, 4};
    K k1, k2, k3;
    template <class Real> [[gnu::always_inline]] void operator()(const Real* y, Real* dy) const {
        const Real first = k1 * y[0] * y[1];
        const Real forth = k2 * y[2];
        const Real back = k3 * y[3];
        dy[0] = -first;
        dy[1] = dy[0];
        dy[2] = first - forth + back;
        dy[3] = forth - back;
    }
};

/// 14: A => C <=> P
template <class K = double> struct FirstOrderDownstream {
    static constexpr std::array<int, 3> kSlots{1, 3, 4};
    K k1, k2, k3;
    template <class Real> [[gnu::always_inline]] void operator()(const Real* y, Real* dy) const {
        const Real first = k1 * y[0];
        const Real forth = k2 * y[1];
        const Real back = k3 * y[2];
        dy[0] = -first;
        dy[1] = first - forth + back;
        dy[2] = forth - back;
    }
};

/// 15: A <=> C => P
template <class K = double> struct FirstOrderUpstream {
    static constexpr std::array<int, 3> kSlots{1, 3, 4};
    K k1, k2, k3;
    template <class Real> [[gnu::always_inline]] void operator()(const Real* y, Real* dy) const {
        const Real forth = k1 * y[0];
        const Real back = k2 * y[1];
        const Real second = k3 * y[1];
        dy[0] = back - forth;
        dy[1] = forth - back - second;
        dy[2] = second;
    }
};

/// 18: A + B <=> C => P
template <class K = double> struct SecondOrderUpstream {
    static constexpr std::array<int, 4> kSlots{1, 2, 3, 4};
    K k1, k2, k3;
    template <class Real> [[gnu::always_inline]] void operator()(const Real* y, Real* dy) const {
        const Real forth = k1 * y[0] * y[1];
        const Real back = k2 * y[2];
        const Real second = k3 * y[2];
        dy[0] = back - forth;
        dy[1] = dy[0];
        dy[2] = forth - back - second;
        dy[3] = second;
    }
};

/// 20: A => P of order n. Below 0 nothing reacts: no power of a negative base is taken.
template <PowerKind Kind, class K = double> struct OrderN {
    static constexpr std::array<int, 2> kSlots{1, 4};
    K k1, n;
    bool IsAtRest(const std::array<double, 2>& y) const { return y[0] < 0; }
    template <class Real> [[gnu::always_inline]] Real RateOfA(Real c) const {
        if (!AnyBelowZero(c))
            return OrderRate<Kind>(-k1, c, n);
        return EachLane<Real>([&](int lane) __attribute__((always_inline)) {
            const double left = Lane(c, lane);
            return left < 0 ? 0 : OrderRate<Kind>(-Lane(k1, lane), left, Lane(n, lane));
        });
    }
    void operator()(const double* y, double* dy) const {
        dy[0] = RateOfA(y[0]);
        dy[1] = y[0] < 0 ? 0 : -dy[0];
    }
};

/// Calls f(law) with the right-hand side of a numeric model.
/// Given:    k 1/TU, L/(mol TU), (mol/L)^(1 - n)/TU; kind of the order n of model 20
/// Returned: false, f not called, for a model that is not integrated
template <class K, class F>
bool WithNumericModel(int model, const std::array<K, 4>& k, PowerKind kind, K n, F&& f) {
    const K k1 = k[1], k2 = k[2], k3 = k[3];
    switch (model) {
    case 7:
        f(ConcurrentConsecutive<K>{k1, k2, k3});
        return true;
    case 9:
        f(Consecutive<K>{k1, k2, k3});
        return true;
    case 10:
        f(Enzyme<K>{k1, k2, k3});
        return true;
    case 13:
        f(SecondOrderDownstream<K>{k1, k2, k3});
        return true;
    case 14:
        f(FirstOrderDownstream<K>{k1, k2, k3});
        return true;
    case 15:
        f(FirstOrderUpstream<K>{k1, k2, k3});
        return true;
    case 18:
        f(SecondOrderUpstream<K>{k1, k2, k3});
        return true;
    case 20:
        WithPowerKind(kind, [&](auto known) { f(OrderN<known.value, K>{k1, n}); });
        return true;
    default:
        return false;
    }
}
template <class F> bool WithNumericModel(int model, const ConstantArray& k, double n, F&& f) {
    return WithNumericModel(model, k, KindOfPower(n), n, std::forward<F>(f));
}

/// dc/dt at a state; the rate of model 20 ends with A itself, whatever n.
template <class Law>
[[gnu::always_inline]] inline void NodeRates(const Law& law,
                                             const std::array<double, Law::kSlots.size()>& y,
                                             std::array<double, Law::kSlots.size()>& r) {
    r = {};
    if constexpr (requires { law.IsAtRest(y); })
        if (!(y[0] > 0))
            return;
    law(y.data(), r.data());
}

/// dc/dt by species slot; the slots that the model does not have keep their values.
template <class Law>
inline void SpeciesRates(const Law& law, const SpeciesArray& c, SpeciesArray& r) {
    std::array<double, Law::kSlots.size()> y, dy;
    for (std::size_t i = 0; i < y.size(); ++i)
        y[i] = c[static_cast<std::size_t>(Law::kSlots[i])];
    NodeRates(law, y, dy);
    for (std::size_t i = 0; i < y.size(); ++i)
        r[static_cast<std::size_t>(Law::kSlots[i])] = dy[i];
}

template <class Law> inline constexpr int kSizeOf = static_cast<int>(Law::kSlots.size());

/// A state of the integrator, counted from 0.
template <class Law> using StateOf = std::array<double, Law::kSlots.size()>;

/// Calls f with the constants 0..N - 1. The steps below are written with it so that the components
/// of a state stay in registers.
template <int N, class F> [[gnu::always_inline]] inline void ForEach(F&& f) {
    [&]<int... I>(std::integer_sequence<int, I...>) __attribute__((always_inline)) {
        (f(std::integral_constant<int, I>{}), ...);
    }
    (std::make_integer_sequence<int, N>{});
}

/// One step of the classical scheme of fourth order. Half of K = h f is formed as (h/2) f: the same
/// number, as long as h f is not below 1e-307, without waiting for K.
template <class Law, class Real>
[[gnu::always_inline]] inline void StepRK4(const Law& law, Real* y, Real h) {
    constexpr int n = kSizeOf<Law>;
    const Real half = h * 0.5;
    Real dy[n], at[n], k1[n], k2[n], k3[n], k4[n];
    law(y, dy);
    ForEach<n>([&](auto i) __attribute__((always_inline)) {
        k1[i] = h * dy[i];
        at[i] = y[i] + half * dy[i];
    });
    law(at, dy);
    ForEach<n>([&](auto i) __attribute__((always_inline)) {
        k2[i] = h * dy[i];
        at[i] = y[i] + half * dy[i];
    });
    law(at, dy);
    ForEach<n>([&](auto i) __attribute__((always_inline)) {
        k3[i] = h * dy[i];
        at[i] = y[i] + k3[i];
    });
    law(at, dy);
    ForEach<n>([&](auto i) __attribute__((always_inline)) {
        k4[i] = h * dy[i];
        y[i] += (k1[i] + 2.0 * k2[i] + 2.0 * k3[i] + k4[i]) / 6.0;
    });
}

/// The same for A => P, where P gains to the last digit what A loses.
template <PowerKind Kind, class K, class Real>
[[gnu::always_inline]] inline void StepRK4(const OrderN<Kind, K>& law, Real* y, Real h) {
    const Real half = h * 0.5;
    const Real dy1 = law.RateOfA(y[0]);
    const Real dy2 = law.RateOfA(y[0] + half * dy1);
    const Real dy3 = law.RateOfA(y[0] + half * dy2);
    const Real dy4 = law.RateOfA(y[0] + h * dy3);
    const Real gain = (h * dy1 + 2.0 * (h * dy2) + 2.0 * (h * dy3) + h * dy4) / 6.0;
    y[0] += gain;
    y[1] -= gain;
}

template <std::size_t N>
[[gnu::always_inline]] inline bool AllFinite(const std::array<double, N>& y) {
    double sum = 0; // a sum of y - y is 0 only when every y is finite
    ForEach<static_cast<int>(N)>([&](auto i)
                                     __attribute__((always_inline)) { sum += y[i] - y[i]; });
    return sum == 0;
}

/// A run that has left the range of numbers never comes back; every so many steps it looks.
inline constexpr int kStepsBetweenLooks = 32;

/// nSteps steps of h from `start`. A run that leaves the range of numbers ends early, not finite.
template <class Law>
[[gnu::always_inline]] inline StateOf<Law> RunRK4(const Law& law, const StateOf<Law>& start,
                                                  int nSteps, double h) {
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
template <class Law> struct TwoRuns { StateOf<Law> coarse, fine; };

/// Both runs at once: nSteps of hCoarse and 2 nSteps of hFine. When the coarse one leaves the range
/// of numbers both end early, not finite: whoever compares them has to refine anyway.
template <class Law>
[[gnu::always_inline]] inline TwoRuns<Law> RunTwoRK4(const Law& law, const StateOf<Law>& start,
                                                     int nSteps, double hCoarse, double hFine) {
    constexpr int n = kSizeOf<Law>;
    TwoRuns<Law> runs{start, start};
    Pair y[n];
    ForEach<n>([&](auto i) __attribute__((always_inline)) { y[i] = Pair{start[i], start[i]}; });
    const Pair h{hFine, hCoarse};
    for (int done = 0; done < nSteps;) {
        const int stop = std::min(nSteps, done + kStepsBetweenLooks);
        for (; done < stop; ++done)
            StepRK4(law, y, h);
        ForEach<n>([&](auto i) __attribute__((always_inline)) {
            runs.fine[i] = y[i][0];
            runs.coarse[i] = y[i][1];
        });
        if (!AllFinite(runs.coarse)) {
            runs.fine = runs.coarse;
            return runs;
        }
    }
    runs.fine = RunRK4(law, runs.fine, nSteps, hFine);
    return runs;
}

/// The same with one step and two, and `meanwhile` between them: each step waits for the one before,
/// so other work costs the least there.
template <class Law, class Work>
[[gnu::always_inline]] inline TwoRuns<Law> RunOneAndTwo(const Law& law, const StateOf<Law>& start,
                                                        double step, Work&& meanwhile) {
    constexpr int n = kSizeOf<Law>;
    TwoRuns<Law> runs;
    Pair y[n];
    ForEach<n>([&](auto i) __attribute__((always_inline)) { y[i] = Pair{start[i], start[i]}; });
    StepRK4(law, y, Pair{step / 2, step});
    meanwhile();
    ForEach<n>([&](auto i) __attribute__((always_inline)) {
        runs.fine[i] = y[i][0];
        runs.coarse[i] = y[i][1];
    });
    StepRK4(law, runs.fine.data(), step / 2);
    return runs;
}

/// Most sub-steps of an interval.
inline constexpr int kMostSubSteps = 32000;
/// Two runs agree when no component differs by more than this share of the sum of both.
inline constexpr double kAgreement = 0.01;
/// Components whose sum is below this are not compared, mol/L.
inline constexpr double kNegligible = 1e-6;

/// Whether the runs with m and 2 m sub-steps agree. What is not finite agrees with nothing.
template <std::size_t N>
[[gnu::always_inline]] inline bool RunsAgree(const std::array<double, N>& coarse,
                                             const std::array<double, N>& fine) {
    bool agree = AllFinite(coarse) && AllFinite(fine);
    ForEach<static_cast<int>(N)>([&](auto i) __attribute__((always_inline)) {
        const double sum = std::abs(fine[i]) + std::abs(coarse[i]);
        const double difference = std::abs(coarse[i] - fine[i]);
        // The quotient decides; where it can't exceed the share by any rounding it isn't formed.
        if (sum >= kNegligible && !(difference < 0.999 * kAgreement * sum) &&
            difference / sum > kAgreement)
            agree = false;
    });
    return agree;
}

/// One interval with step doubling: runs with m, 2 m, 4 m... sub-steps until two in a row agree; the
/// finer one counts. From 32000 sub-steps on a further run would be the same again, so that one
/// counts whatever came before it.
/// Errors:   ArithmeticError "Overflow" when 32000 sub-steps give no finite result
template <class Law>
StateOf<Law> RunUntilAgreed(const Law& law, const StateOf<Law>& y, double step, int& m) {
    TwoRuns<Law> runs;
    bool coarseKnown = false;
    while (m < kMostSubSteps / 2) {
        if (coarseKnown)
            runs.fine = RunRK4(law, y, 2 * m, step / (2 * m));
        else
            runs = RunTwoRK4(law, y, m, step / m, step / (2 * m));
        m *= 2;
        if (RunsAgree(runs.coarse, runs.fine))
            return runs.fine;
        runs.coarse = runs.fine;
        coarseKnown = AllFinite(runs.coarse);
    }
    m = kMostSubSteps;
    const StateOf<Law> finest = RunRK4(law, y, m, step / m);
    if (!AllFinite(finest))
        ThrowArithmetic(kOverflow);
    return finest;
}

/// One interval with step doubling.
/// Given:    y mol/L at its start; step TU; m >= 1 sub-steps to begin with; meanwhile: work that
///           needs nothing of the result, done once
/// Returned: y at its end: a component below 0 is the last one taken, those behind it keep their
///           values; m of the run that counts, at most 32000
/// Errors:   ArithmeticError "Overflow" when 32000 sub-steps give no finite result
template <class Law, class Work>
[[gnu::always_inline]] inline void IntegrateInterval(const Law& law, StateOf<Law>& y, double step,
                                                     int& m, Work&& meanwhile) {
    if constexpr (requires { law.IsAtRest(y); }) {
        if (law.IsAtRest(y)) { // every run gives y again
            m = 2 * std::min(m, kMostSubSteps / 2);
            meanwhile();
            return;
        }
    }
    TwoRuns<Law> runs;
    bool agreed = false;
    if (m == 1) { // most intervals, without any loop
        runs = RunOneAndTwo(law, y, step, meanwhile);
        m = 2;
        agreed = RunsAgree(runs.coarse, runs.fine);
    } else {
        meanwhile();
    }
    if (!agreed)
        runs.fine = RunUntilAgreed(law, y, step, m);
    bool taking = true;
    ForEach<kSizeOf<Law>>([&](auto i) __attribute__((always_inline)) {
        if (taking)
            y[i] = runs.fine[i];
        if (y[i] < 0)
            taking = false;
    });
}
template <class Law>
inline void IntegrateInterval(const Law& law, StateOf<Law>& y, double step, int& m) {
    IntegrateInterval(law, y, step, m, [] {});
}

} // namespace zorvant
