// Rate laws of the catalogue and the Runge-Kutta scheme for the models without a closed form.
#pragma once

#include "engine/project_state.h"

#include <array>

namespace zorvant {

/// The rates of change of all species.
/// Given:    model 1..20; kArr [1..3] 1/TU, L/(mol TU) and so on; c [1..5] mol/L;
///           OrderN of the state for model 20
/// Returned: r [1..5] mol/(L TU), dc/dt, negative for what is consumed; all 0 for another model
/// Formula:  mass action by elementary step; Michaelis-Menten as E + S <=> ES => P + E
void FuReactionRates(const ProjectState& ps, int model, SpeciesArray& r, const ConstantArray& kArr,
                     const SpeciesArray& c);

/// The packed state vector of the integrator, components 1..4:
///   7, 9, 10, 13, 18: A, B, C, P;   14, 15: A, C, P;   20: A, P
using PackedState = std::array<double, 5>;

/// How many components the model has; 0 when it is not integrated.
int PackedSize(int model);

/// The right-hand side for the models 7, 9, 10, 13, 14, 15, 18 and 20; dydt stays as it was for any
/// other model, and for model 20 with y(1) < 0.
void FuDerivatives(const ProjectState& ps, const PackedState& y, PackedState& dydt);

/// Classical Runge-Kutta scheme of fourth order with fixed steps and no error control.
/// Given:    yStart [1..n] mol/L, nSteps (none for <= 0), h TU
/// Returned: yOut [1..n] mol/L; not finite where the scheme diverges
/// Formula:  Kutta, Z. Math. Phys. 46 (1901) 435. The derivative is cleared before each evaluation.
void IntegrateRK4(const ProjectState& ps, int n, const PackedState& yStart, PackedState& yOut,
                  int nSteps, double h);

} // namespace zorvant
