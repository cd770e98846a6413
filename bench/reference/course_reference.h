// The plain form of the course calculation: the model chosen by a switch inside the derivative, the
// closed forms as textbooks write them, the spline's walk from the left. The measurements compare
// the engine's speed with it, the tests its digits.
#pragma once

#include "engine/akima_spline.h"
#include "engine/project_state.h"

namespace zorvant::reference {

void calc_diagram_function(ProjectState& ps, int model, double tEnd, bool& err);

void AkimaKoeffizienten(AkimaTables& tables, int s, int n, float smoothing);
double AkimaWert(const AkimaTables& tables, AkimaMode mode, int s, double x, int n);

} // namespace zorvant::reference
