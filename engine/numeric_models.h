// The models without a closed form, each as the record of its constants that yields dc/dt of its
// packed state. A caller chooses the model once (WithNumericModel) and then runs as many steps
// (runge_kutta.h, step_doubling.h) as it likes.
#pragma once

#include "engine/hot_code.h"
#include "engine/pair.h"
#include "engine/project_state.h"

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
ZORVANT_INLINE Real OrderRate(Constant k, Real c, Constant n) {
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
        Real power{};
        ZORVANT_UNROLL
        for (int lane = 0; lane < kLanes<Real>; ++lane)
            SetLane(power, lane, std::pow(Lane(c, lane), Lane(n, lane)));
        return k * power;
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

// The right-hand sides. y and dy count from 0 in the packed order; kSlots names the species of
// each. K: a double, or a Pair where each lane has constants of its own.

/// 7: A + B => C; A + C => P
template <class K = double> struct ConcurrentConsecutive {
    static constexpr std::array<int, 4> kSlots{1, 2, 3, 4};
    K k1, k2, k3;
    template <class Real> ZORVANT_INLINE void operator()(const Real* y, Real* dy) const {
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
    template <class Real> ZORVANT_INLINE void operator()(const Real* y, Real* dy) const {
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
    template <class Real> ZORVANT_INLINE void operator()(const Real* y, Real* dy) const {
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
    template <class Real> ZORVANT_INLINE void operator()(const Real* y, Real* dy) const {
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
    template <class Real> ZORVANT_INLINE void operator()(const Real* y, Real* dy) const {
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
    template <class Real> ZORVANT_INLINE void operator()(const Real* y, Real* dy) const {
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
    template <class Real> ZORVANT_INLINE void operator()(const Real* y, Real* dy) const {
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
    template <class Real> ZORVANT_INLINE Real RateOfA(Real c) const {
        if (!AnyBelowZero(c))
            return OrderRate<Kind>(-k1, c, n);
        Real rate{};
        ZORVANT_UNROLL
        for (int lane = 0; lane < kLanes<Real>; ++lane)
            if (const double left = Lane(c, lane); !(left < 0))
                SetLane(rate, lane, OrderRate<Kind>(-Lane(k1, lane), left, Lane(n, lane)));
        return rate;
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

template <class Law> inline constexpr int kSizeOf = static_cast<int>(Law::kSlots.size());

/// A state of the integrator, counted from 0, and two states side by side.
template <class Law> using StateOf = std::array<double, Law::kSlots.size()>;
template <class Law> using StatesOf = std::array<Pair, Law::kSlots.size()>;

/// The species at place i of the packed state.
template <class Law> constexpr std::size_t SlotOf(int i) {
    return static_cast<std::size_t>(Law::kSlots[static_cast<std::size_t>(i)]);
}
template <class Law> StateOf<Law> Packed(const SpeciesArray& c) {
    StateOf<Law> y;
    for (std::size_t i = 0; i < y.size(); ++i)
        y[i] = c[static_cast<std::size_t>(Law::kSlots[i])];
    return y;
}
/// The species that the model does not have keep their values.
template <class Law> void Unpack(const StateOf<Law>& y, SpeciesArray& c) {
    for (std::size_t i = 0; i < y.size(); ++i)
        c[static_cast<std::size_t>(Law::kSlots[i])] = y[i];
}

/// dc/dt at a state; the rate of model 20 ends with A itself, whatever n.
template <class Law> ZORVANT_INLINE StateOf<Law> NodeRates(const Law& law, const StateOf<Law>& y) {
    StateOf<Law> r{};
    if constexpr (requires { law.IsAtRest(y); })
        if (!(y[0] > 0))
            return r;
    law(y.data(), r.data());
    return r;
}

} // namespace zorvant
