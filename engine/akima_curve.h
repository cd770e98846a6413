// Akima's spline of one curve whose knots are all known beforehand, two intervals at a time: the
// same digits as AkimaRows. H. Akima, J. ACM 17 (1970) 589-602.
#pragma once

#include "engine/akima_rows.h"

#include <vector>

namespace zorvant {

/// One piece of a spline, h from its first knot: ((d h + c) h + b) h + a.
struct AkimaPiece {
    double a, b, c, d;
    template <class Real> Real At(Real h) const { return ((d * h + c) * h + b) * h + a; }
};

/// The spline over fixed abscissae; curve after curve is laid through them, without allocation.
class AkimaCurve {
public:
    AkimaCurve() = default;
    /// Given: at least three abscissae, ascending
    explicit AkimaCurve(std::vector<double> abscissae)
        : x_(std::move(abscissae)), chords_(x_.size() + 4), t_(x_.size() + 1), c_(x_.size() + 1),
          d_(x_.size() + 1) {}

    int Knots() const { return static_cast<int>(x_.size()); }
    const std::vector<double>& Abscissae() const { return x_; }

    /// Lays the curve.
    /// Given:    an ordinate for each abscissa, which stay where they are until the next curve
    /// Errors:   ArithmeticError "Overflow" when a coefficient is not finite, "Division by zero"
    void Lay(const double* y) {
        y_ = y;
        const std::size_t n = x_.size();
        double* chord = chords_.data() + 2; // of the interval from each knot; two more on each side
        InPairs(n - 1, [&](auto at, std::size_t i) {
            at.Put(chord + i, (at.Get(y + i + 1) - at.Get(y + i)) /
                                  (at.Get(x_.data() + i + 1) - at.Get(x_.data() + i)));
        });
        const Beyond<double> left(x_[0], y[0], x_[1], x_[2], chord[0], chord[1]);
        const Beyond<double> right(x_[n - 1], y[n - 1], x_[n - 2], x_[n - 3], chord[n - 2],
                                   chord[n - 3]);
        chord[-1] = left.slope1, chord[-2] = left.slope2;
        chord[n - 1] = right.slope1, chord[n] = right.slope2;
        InPairs(n, [&](auto at, std::size_t i) {
            const auto m1 = at.Get(chord + i - 2), m2 = at.Get(chord + i - 1),
                       m3 = at.Get(chord + i), m4 = at.Get(chord + i + 1);
            const auto p = Magnitude(m4 - m3), q = Magnitude(m2 - m1);
            at.Put(t_.data() + i,
                   Select((m1 == m2) & (m3 == m4), (m2 + m3) * 0.5, (p * m2 + q * m3) / (q + p)));
        });
        double spoilt = 0;
        InPairs(n - 1, [&](auto at, std::size_t i) {
            const auto d = at.Get(x_.data() + i + 1) - at.Get(x_.data() + i);
            const auto m = at.Get(chord + i), t = at.Get(t_.data() + i),
                       tNext = at.Get(t_.data() + i + 1);
            const auto c = (3.0 * m - 2.0 * t - tNext) / d;
            const auto e = (tNext + t - 2.0 * m) / (d * d);
            at.Put(c_.data() + i, c);
            at.Put(d_.data() + i, e);
            const auto rest = (c + e) - (c + e);
            spoilt += IsZero(rest) ? 0.0 : 1.0;
        });
        if (spoilt != 0)
            ThrowArithmetic(kOverflow);
    }

    /// The piece from knot `interval` (AkimaInterval): 0 and Knots() are the straight ends.
    AkimaPiece Piece(int interval) const {
        const auto i = static_cast<std::size_t>(interval > 0 ? interval - 1 : 0);
        if (interval <= 0 || interval >= Knots())
            return {y_[i], t_[i], 0, 0};
        return {y_[i], t_[i], c_[i], d_[i]};
    }

private:
    struct One {
        double Get(const double* at) const { return *at; }
        void Put(double* at, double x) const { *at = x; }
    };
    struct Two {
        Pair Get(const double* at) const { return Load(at); }
        void Put(double* at, Pair x) const { Store(at, x); }
    };
    /// f for 0..count - 1, two at a time and the last of an odd count alone.
    template <class F> ZORVANT_INLINE static void InPairs(std::size_t count, F&& f) {
        std::size_t i = 0;
        for (; i + 2 <= count; i += 2)
            f(Two{}, i);
        if (i < count)
            f(One{}, i);
    }

    std::vector<double> x_;
    std::vector<double> chords_;
    std::vector<double> t_, c_, d_; ///< slope at each knot; coefficients of each interval
    const double* y_ = nullptr;
};

} // namespace zorvant
