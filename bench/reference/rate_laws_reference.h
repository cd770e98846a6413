// The plain form of the integrator: the model chosen by a switch inside the derivative.
#pragma once

#include "engine/project_state.h"

#include <array>

namespace zorvant::reference {

using Vector = std::array<double, 6>; ///< counted from 1

/// What the integrator works on, held by its caller.
struct WorkVectors {
    Vector at{}, dy{}, k1{}, k2{}, k3{}, k4{};
};

void FuDerivatives(const ProjectState& ps, const Vector& y, Vector& dydt);
void IntegrateRK4(const ProjectState& ps, int n, const Vector& yStart, Vector& yOut, int nSteps,
                  double h, WorkVectors& w);

} // namespace zorvant::reference
