// The plain form of the integrator: the model chosen by a switch inside the derivative.
#pragma once

#include "engine/project_state.h"

#include <vector>

namespace zorvant::reference {

using Vector = std::vector<double>; ///< entries 0..5, counted from 1

/// What the integrator works on, held by its caller.
struct WorkVectors {
    Vector at, dy, k1, k2, k3, k4;
    WorkVectors() : at(6), dy(6), k1(6), k2(6), k3(6), k4(6) {}
};

void FuDerivatives(const ProjectState& ps, const Vector& y, Vector& dydt);
void IntegrateRK4(const ProjectState& ps, const int& n, const Vector& yStart, Vector& yOut,
                  const int& nSteps, const double& h, WorkVectors& w);

} // namespace zorvant::reference
