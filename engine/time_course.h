// Time courses of concentrations and rates.
#pragma once

#include "engine/project_state.h"

namespace zorvant {

/// Asks calc_diagram_function for the blood-alcohol curve.
inline constexpr int kBloodAlcohol = 500;

/// Courses of all species of a model on an even grid of NPoints + 1 times.
/// Given:    model 1..20; tEnd TU; k, c0, OrderN, SpeciesMask, MMDiagram and the scaling of the
///           state
/// Returned: tSim, cSim*, rSim*, cEnd, tHalfA, tHalfB, the Akima tables of numeric models, and the
///           extents RngT, RngC, RngR (left alone while a fit runs)
///           For kBloodAlcohol the curve of BacCurve at the whole minutes, tSim and cSimA.
/// Errors:   err: model 19 has no real solution (negative input); ArithmeticError: overflow, a
///           numeric model with tEnd <= 0
void calc_diagram_function(ProjectState& ps, int model, double tEnd, bool& err);

/// Linear interpolation at x through (xa, ya) and (xb, yb), as Single; 0 when the xs are equal.
float Interpolate(double x, double ya, double xa, double yb, double xb);

/// Extents of the calculated arrays with their margins, into the memory of ranges.
void CourseExtents(ProjectState& ps, double tEnd);

} // namespace zorvant
