// The plain form of the reactors' calculations: the model chosen by a switch inside the derivative,
// every logarithm of the tank's balance formed at each step. The measurements compare the speed of
// the reactors with it, the tests their digits.
#pragma once

#include "engine/project_state.h"

namespace zorvant::reference {

/// State of a batch reactor of an integrated model (ModelId).
void CalcBatchKessel(const ProjectState& ps, double t, SpeciesArray& cOut, bool& err);

/// Secant search for the time of the conversion UA, integrated models. Returned: tVerweil, cEnd.
void SearchBatchTime(ProjectState& ps, bool& err);

/// Steps towards the extent in a tank of model 20, x = k1 t (cA - x)^n.
double SearchOrderTank(double cA, double t, double k1, double n, int passLimit, bool& noSolution);

/// cSimA and cSimP of the product of N tanks, model 20, over 201 residence times.
void CascadeTimeCurve(ProjectState& ps, int N);

/// cSimA of the single tank, model 20, over 201 residence times.
void CalcTankCurve(ProjectState& ps);

} // namespace zorvant::reference
