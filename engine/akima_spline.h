// Interpolation by Akima's method: J. ACM 17 (1970) 589.
#pragma once

#include "engine/project_state.h"

#include <algorithm>
#include <cstddef>

namespace zorvant {

/// Makes the tables hold n knots with room for the working entries behind them.
void ReserveAkima(AkimaTables& tables, int n);

/// Coefficients of species slot s.
/// Given:    n knots in SplineX(1..n), strictly ascending, SplineY(1..n, s); smoothing exponent,
///           0: none
/// Returned: SplineA..SplineD(1..n, s): y = ((D h + C) h + B) h + A with h = x - X(i); with
///           smoothing SplineY holds the smoothed values
/// Errors:   ArithmeticError: equal abscissae ("Division by zero"), overflow;
///           std::invalid_argument: fewer than 3 knots
void AkimaKoeffizienten(AkimaTables& tables, int s, int n, float smoothing);

enum class AkimaMode { Value = 0, Slope = 1 };

/// The curve or its slope at x; beyond the ends the straight continuation and its slope.
double AkimaWert(const AkimaTables& tables, AkimaMode mode, int s, double x, int n);

// For many values of x in a row: find the interval from the one before, then read.

/// The interval 1..n-1 with X(i) <= x < X(i + 1), found from `hint` on where x did not go back (any
/// other hint costs a search); 0 left of the table, n at and beyond the last knot.
inline int AkimaInterval(const AkimaTables& tables, double x, int n, int hint) {
    const double* X = tables.SplineX.data();
    if (x >= X[n])
        return n;
    if (x < X[1])
        return 0;
    if (hint >= 1 && hint < n && X[hint] <= x) {
        while (x >= X[hint + 1])
            ++hint;
        return hint;
    }
    return static_cast<int>(std::upper_bound(X + 1, X + n + 1, x) - (X + 1));
}

/// The value when the interval is known.
inline double AkimaWertIn(const AkimaTables& tables, AkimaMode mode, int s, double x, int n,
                          int interval) {
    const auto slot = static_cast<std::size_t>(s);
    if (interval <= 0 || interval >= n) {
        const auto end = static_cast<std::size_t>(interval <= 0 ? 1 : n);
        const double slope = tables.SplineB[end][slot];
        if (mode == AkimaMode::Slope)
            return slope;
        return (x - tables.SplineX[end]) * slope + tables.SplineA[end][slot];
    }
    const auto i = static_cast<std::size_t>(interval);
    const double h = x - tables.SplineX[i];
    const double a = tables.SplineA[i][slot], b = tables.SplineB[i][slot];
    const double c = tables.SplineC[i][slot], d = tables.SplineD[i][slot];
    if (mode == AkimaMode::Slope)
        return (3 * h * d + 2 * c) * h + b;
    return ((d * h + c) * h + b) * h + a;
}

} // namespace zorvant
