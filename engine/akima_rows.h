// Akima's coefficients as the knots come, one by one, so that they can be formed beside the
// integration that yields the knots. H. Akima, J. ACM 17 (1970) 589-602.
#pragma once

#include "engine/akima_spline.h"
#include "engine/arithmetic.h"
#include "engine/hot_code.h"
#include "engine/pair.h"

#include <cstddef>

namespace zorvant {

/// Which species a builder works on.
struct OneSlot {
    using Real = double;
    std::size_t slot;
    template <class Row> void Store(Row& row, Real value) const { row[slot] = value; }
};
struct TwoSlots {
    using Real = Pair;
    std::size_t first, second;
    template <class Row> void Store(Row& row, Real value) const {
        row[first] = value[0];
        row[second] = value[1];
    }
};

/// Two points laid beyond an end of the table and the slopes of their chords, nearest first.
template <class Real> struct Beyond {
    double x1, x2;
    Real y1, y2, slope1, slope2;

    /// So that the slopes keep their second difference.
    /// Given: the end point (x, y), the abscissae of its two neighbours and the slopes of the two
    ///        last chords, nearest first
    Beyond(double x, Real y, double xNext, double xNext2, Real nearest, Real next)
        : x1(x + xNext - xNext2), x2(x1 + x - xNext) {
        if (x1 == x || x2 == x1)
            ThrowArithmetic(kDivisionByZero);
        y1 = (2.0 * nearest - next) * (x1 - x) + y;
        slope1 = (y1 - y) / (x1 - x);
        y2 = (2.0 * slope1 - nearest) * (x2 - x1) + y1;
        slope2 = (y2 - y1) / (x2 - x1);
    }
};

/// Fills SplineA..SplineD of its species while the knots come.
template <class Slots> class AkimaRows {
public:
    using Real = typename Slots::Real;

    AkimaRows(AkimaTables& tables, Slots slots) : tables_(tables), slots_(slots) {}

    /// The next knot.
    /// Errors: ArithmeticError "Division by zero" when it has the abscissa of the knot before
    ZORVANT_INLINE void Add(double x, Real y) {
        ++knots_;
        slots_.Store(tables_.SplineA[knots_], y);
        if (knots_ > 1) {
            const double d = x - x3_;
            if (d == 0)
                ThrowArithmetic(kDivisionByZero);
            const Real chord = (y - y_) / d;
            d1_ = d2_;
            d2_ = d3_;
            d3_ = d;
            if (knots_ > 3) {
                Shift(chord);
                FinishInterval(knots_ - 3, d1_);
            } else if (knots_ == 3) {
                const Beyond<Real> left(x2_, yFirst_, x3_, x, m4_, chord);
                m1_ = left.slope2;
                m2_ = left.slope1;
                m3_ = m4_;
                m4_ = chord;
                t_ = Slope();
            } else {
                m4_ = chord;
            }
        } else {
            yFirst_ = y;
        }
        x1_ = x2_;
        x2_ = x3_;
        x3_ = x;
        y_ = y;
    }

    /// There are no more knots; there were at least three.
    /// Errors: ArithmeticError "Overflow" when a coefficient is not finite, "Division by zero"
    ZORVANT_INLINE void Finish() {
        const Beyond<Real> right(x3_, y_, x2_, x1_, m4_, m3_);
        Shift(right.slope1);
        FinishInterval(knots_ - 2, d2_);
        Shift(right.slope2);
        FinishInterval(knots_ - 1, d3_);
        slots_.Store(tables_.SplineB[knots_], t_);
        slots_.Store(tables_.SplineC[knots_], Real{}); // beyond the last knot the curve is straight
        slots_.Store(tables_.SplineD[knots_], Real{});
        if (!IsZero(spoilt_))
            ThrowArithmetic(kOverflow);
    }

private:
    ZORVANT_INLINE void Shift(Real chord) {
        m1_ = m2_;
        m2_ = m3_;
        m3_ = m4_;
        m4_ = chord;
    }

    /// The slope at a knot: the chords before and behind it, each weighted by how much the slope
    /// changes on the other side.
    ZORVANT_INLINE Real Slope() const {
        const Real p = Magnitude(m4_ - m3_), q = Magnitude(m2_ - m1_);
        return Select((m1_ == m2_) & (m3_ == m4_), (m2_ + m3_) * 0.5,
                      (p * m2_ + q * m3_) / (q + p));
    }

    /// Interval i of length d: the chords around knot i + 1 are known, and the slope at knot i.
    ZORVANT_INLINE void FinishInterval(std::size_t i, double d) {
        const Real chord = m2_, t = t_, tNext = Slope();
        const Real c = (3.0 * chord - 2.0 * t - tNext) / d;
        const Real e = (tNext + t - 2.0 * chord) / (d * d);
        slots_.Store(tables_.SplineB[i], t);
        slots_.Store(tables_.SplineC[i], c);
        slots_.Store(tables_.SplineD[i], e);
        spoilt_ += (c + e) - (c + e);
        t_ = tNext;
    }

    AkimaTables& tables_;
    Slots slots_;
    std::size_t knots_ = 0;
    // No arrays: they would be moved in pieces larger than those in which they were written, which
    // the processor can only do once all is written.
    double x1_ = 0, x2_ = 0, x3_ = 0; ///< the last abscissae
    double d1_ = 0, d2_ = 0, d3_ = 0; ///< the last distances between them
    Real yFirst_{}, y_{};             ///< the first and the last ordinate
    Real m1_{}, m2_{}, m3_{}, m4_{};  ///< slopes of the last chords
    Real t_{};                        ///< slope at the last knot but two
    Real spoilt_{};                   ///< stays 0 while every coefficient is finite
};

} // namespace zorvant
