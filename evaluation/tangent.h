// Reaction rates read off measured courses: the spline through the points of one species gives
// c(t), its slope gives the rate.
#pragma once

#include "engine/project_state.h"

#include <string>

namespace zorvant {

/// Axis ranges from the measured points of species slot i, deactivated ones included: 0 to the
/// largest t and c, each a twentieth further.
/// Given:    i 1..5
/// Returned: RngT (TU) and RngC (mol/L) of the memory of ranges; both are left as they were when a
///           value of the table is not finite as Single
void FuExtentsTangent(ProjectState& ps, int i);

struct TangentResult {
    bool outside = false; ///< t is not on the axis: beep, nothing else
    bool failed = false;  ///< the spline gives no value: the results stay as they stand
    double c = 0;         ///< mol/L
    double r = 0;         ///< dc/dt, mol/(L TU); negative where c falls
    std::string cText, rText;
};

/// c(t) and dc/dt of species SingleSpecies at t TU from the spline tables of the state, which hold
/// ExpPointCount knots; beyond the ends the straight continuation with the end slope.
TangentResult CalcTangent(const ProjectState& ps, double t);

/// Positions of the smoothing slider and the exponent that one stands for.
inline constexpr int kSmoothingSteps = 100;
float SmoothingExponent(int position);

} // namespace zorvant
