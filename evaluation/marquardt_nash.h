// Least squares by Marquardt's method in its compact form: J. C. Nash, Compact Numerical Methods
// for Computers, 2nd ed. (1990), algorithm 23; D. W. Marquardt, J. SIAM 11 (1963) 431.
//
// Minimised is F(b) = sum over the points of res_i(b)^2 for one to three parameters b, each inside
// its bounds. The step solves (J'J + lambda (diag(J'J) + 1)) delta = -J'res; lambda falls after a
// step that lowered F and rises after one that did not. A parameter that reaches a bound is held
// there until the gradient points inward.
#pragma once

#include <array>
#include <string>

namespace zorvant {

inline constexpr int kMaxFitParameters = 3;
/// What stands for a standard deviation that could not be computed.
inline constexpr double kNoStdDev = -10000;

/// One number per parameter 1..3; index 0 is unused.
using FitVector = std::array<double, kMaxFitParameters + 1>;
/// Not 0: the parameter is held fixed by the user.
using FitFlags = std::array<int, kMaxFitParameters + 1>;
/// Lower triangle by rows: element (i, j), j <= i, stands at i (i - 1) / 2 + j; index 0 is unused.
using PackedMatrix = std::array<double, 7>;

/// One column of the Jacobian per parameter 1..3: d res / d b(j) of all points; null: not wanted.
using JacobianColumns = std::array<double*, kMaxFitParameters + 1>;

/// Where a run is confined to.
struct FitLimits {
    int sums = 0;      ///< most evaluations of the sum of squares
    int jacobians = 0; ///< most builds of the Jacobian
    FitVector lower{};
    FitVector upper{};
};

/// What a run leaves behind beside the parameters.
struct FitRun {
    int ifn = 0;           ///< evaluations of the sum of squares
    int ig = 0;            ///< builds of the Jacobian
    double sumSquares = 0; ///< F at the last accepted point, the unit of the residuals squared
    bool LimitReached = false;
    std::string error; ///< text of the arithmetic error that ended the run; empty: none
};

/// The step of a forward difference at the value p of a parameter.
double DerivativeStep(double p);

/// The points of a problem as the iteration sees them.
class LeastSquaresProblem {
public:
    LeastSquaresProblem() = default;
    LeastSquaresProblem(const LeastSquaresProblem&) = delete;
    LeastSquaresProblem& operator=(const LeastSquaresProblem&) = delete;
    virtual ~LeastSquaresProblem() = default;

    /// How many points have a residual.
    virtual int Count() const = 0;
    /// The residuals at one parameter vector into res[0..Count() - 1].
    /// Errors: ArithmeticError. A residual that is not finite is found by the caller.
    virtual void CalcResiduals(const FitVector& b, double* res) = 0;
    /// Whether it is worth while to announce vectors.
    virtual bool TakesAnnouncements() const { return false; }
    /// These two are asked for next, the first more surely: what they share may be computed now.
    /// Changes no result.
    virtual void Announce(const FitVector&, const FitVector&) {}
    /// The derivatives at b into columns[j][0..Count() - 1], for every wanted j of 1..n. `res`
    /// holds the residuals at b.
    /// Formula:  forward difference (res(b(j) + h) - res(b)) / h with h = DerivativeStep(b(j))
    virtual void CalcAbleitungen(int n, const FitVector& b, const double* res,
                                 const JacobianColumns& columns);
};

/// Cholesky decomposition in place of a packed matrix; rows whose mask is not above 0 are left out.
/// Given:    n 1..3; a; mask [1..n]
/// Returned: a: the triangle; singularFlag: set where a pivot is not positive, a is then unfinished
void FuCholZerlegung(int n, PackedMatrix& a, const FitVector& mask, bool& singularFlag);

/// Solves with the decomposed matrix in place: x holds the right-hand side, then the solution; 0
/// for what the mask leaves out.
void FuCholLoesung(int n, const PackedMatrix& a, const FitVector& mask, FitVector& x);

/// Minimises the sum of squares.
/// Given:    n 1..3 parameters; m points for the degrees of freedom (m - free parameters), which
///           may be more than problem.Count(); FitParam [1..n] start values, moved into the bounds
///           first; fixed [1..n]
/// Returned: FitParam: the best values, after a stop the latest trial; FitStdDev [1..n]: standard
///           deviations, 0 for fixed parameters, -10000 where they could not be computed
/// Errors:   run.LimitReached: stopped by a limit; run.error: arithmetic error; both leave all
///           standard deviations at -10000. std::invalid_argument for n outside 1..3.
FitRun MinimiseSquares(int n, int m, const FitLimits& limits, const FitFlags& fixed,
                       LeastSquaresProblem& problem, FitVector& FitParam, FitVector& FitStdDev);

} // namespace zorvant
