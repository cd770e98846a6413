// Interpolation by Akima's method: J. ACM 17 (1970) 589.
#pragma once

#include "engine/project_state.h"

namespace zorvant {

/// Makes the tables hold n knots with room for the working entries behind them.
void ReserveAkima(AkimaTables& tables, int n);

/// Coefficients of species slot s.
/// Given:    n knots in SplineX(1..n), strictly ascending, SplineY(1..n, s); smoothing exponent,
///           0: none
/// Returned: SplineA..SplineD(1..n, s): y = ((D h + C) h + B) h + A with h = x - X(i); with
///           smoothing SplineY holds the smoothed values
/// Errors:   ArithmeticError: equal abscissae, overflow; std::invalid_argument: fewer than 3 knots
void AkimaKoeffizienten(AkimaTables& tables, int s, int n, float smoothing);

enum class AkimaMode { Value = 0, Slope = 1 };

/// The curve or its slope at x; beyond the ends the straight continuation and its slope.
double AkimaWert(const AkimaTables& tables, AkimaMode mode, int s, double x, int n);

/// The interval 1..n-1 with X(i) <= x < X(i + 1), found from `hint` on where x did not go back;
/// 0 left of the table, n at and beyond the last knot.
int AkimaInterval(const AkimaTables& tables, double x, int n, int hint);
/// The value when the interval is known.
double AkimaWertIn(const AkimaTables& tables, AkimaMode mode, int s, double x, int n, int interval);

} // namespace zorvant
