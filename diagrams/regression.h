// Weighted least-squares polynomial by normal equations and Gauss-Jordan elimination.
// Source: any text on linear regression; Press et al., Numerical Recipes, chapter 15.4 and 2.1.
#pragma once

#include <vector>

namespace zorvant {

/// Rows 1..n, columns 1..n + 1; the last column holds the right-hand side and, after the solution,
/// the coefficients. Row and column 0 are unused.
using RegressionMatrix = std::vector<std::vector<double>>;

/// The polynomial that is nearest to the points.
/// Given:    x, y, w [1..m]  points and weights, element 0 unused; w >= 0
///           n               number of parameters
///           type            1 and 2: 1, x;  3: up to x^2;  4: up to x^3;  5: up to x^4
///           noConst         1: without the constant, the basis moves down by one place
/// Returned: matrix: the coefficients in its last column
///           sd     standard deviation of y        sqrt(Se/(sum w - n))
///           relsd  relative one, percent          sqrt(Sp/sum w)
///           r2     explained share of the variation, Sr/St; 0 when y does not vary
///           all three 0 when sum w - n is not above 0
/// Errors:   singular: no unique solution; the matrix stands as far as the elimination came, and
///           sd, relsd, r2 keep their values
/// Formula:  A(j,l) = sum w f_j f_l, A(j,n+1) = sum w f_j y;
///           Sr = sum w (yhat - ymean)^2, St = sum w (y - ymean)^2, Se = sum w (y - yhat)^2,
///           Sp = sum w ((y - yhat)/y 100)^2 over y <> 0
void FuRegression(const std::vector<float>& x, const std::vector<float>& y,
                  const std::vector<float>& w, int n, int type, int noConst,
                  RegressionMatrix& matrix, float& sd, float& relsd, float& r2, bool& singular);

/// The same in double precision throughout.
void FuRegression(const std::vector<double>& x, const std::vector<double>& y,
                  const std::vector<double>& w, int n, int type, int noConst,
                  RegressionMatrix& matrix, double& sd, double& relsd, double& r2, bool& singular);

} // namespace zorvant
