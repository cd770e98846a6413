// The two balances of the stirred tank that have no closed form for a given residence time: the
// concurrent consecutive reaction (model 7) and the reaction of n-th order (model 20).
#pragma once

#include <optional>

namespace zorvant {

/// A + B => C, A + C => P in a tank.
struct ConcurrentTank {
    double cA, cB, cC; ///< inlet, mol/L
    double k1, k2;     ///< L/(mol TU)
};
struct ConcurrentState {
    double x1, x2; ///< extents, mol/L
    double cB;     ///< outlet, mol/L; negative: there is not enough B for the conversion
    double t;      ///< TU; 0 with too little B
};

/// The state at which conversion U is reached.
/// Returned: nothing without a real root
/// Formula:  (k1 - 2 k2) x1^2 + (k2 (M - c(C,0)) - k1 (c(B,0) + M)) x1 + k1 c(B,0) M = 0 with
///           M = c(A,0) U, from x1/x2 = k1 c(B)/(k2 c(C)); x2 = M - x1; t = M/-r(A)
std::optional<ConcurrentState> StateAtConversion(const ConcurrentTank& tank, double U);

struct ConcurrentSearch {
    double U = 0, x1 = 0, x2 = 0;
    bool bNoSolution = false;
};
/// The state for a residence time: U is stepped until its time meets t; where that ends without a
/// result, because a step went where B does not suffice, the balance of A is solved by bracketing.
/// It has one solution for any feed of A.
ConcurrentSearch SearchConcurrentTank(const ConcurrentTank& tank, double t);

/// A => P of order n in a tank.
struct OrderTank {
    double cA; ///< inlet, mol/L
    double t;  ///< TU
    double k1; ///< (L/mol)^(n-1)/TU
    double n;
};
struct OrderSearch {
    double x = 0;    ///< extent, mol/L
    double left = 0; ///< c(A) at the outlet, mol/L; its own digits where x is nearly all
    bool bNoSolution = false;
};
/// The extent x with x = k1 t (c(A,0) - x)^n: x is stepped until the logarithm of this balance
/// changes sign; where that ends without a result, the balance is solved by bracketing.
/// Given:    passLimit: passes of the steps
OrderSearch SearchOrderTank(const OrderTank& tank, int passLimit);

} // namespace zorvant
