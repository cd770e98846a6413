// One ideal continuous stirred tank in steady state.
#pragma once

#include "engine/project_state.h"
#include "platform/host.h"

#include <vector>

namespace zorvant {

/// The steady state of a tank, two of U, V, Vdot, t given.
/// Given:    model 1..20; mode 0: U, V; 1: U, Vdot; 2: V, Vdot; 3: V, t; 4: Vdot, t; feed [1..5]
///           mol/L; V m^3; Vdot m^3/TU; t TU; k, OrderN, Stoich of the state
/// Returned: the other two quantities; c [1..5] mol/L at the outlet, extents [1..2] mol/L, both
///           cleared first; model 19 with k1 = k2 leaves k2 of the state 1e-10 of its value larger
/// Errors:   bBTooLow: the feed of B does not suffice for U; bNoSolution: no admissible steady
///           state or bad input; a message for the user where one belongs to it. Models 10, 15, 18
///           whose U is out of reach: t = 0 and a message, no flag. Another mode or model: nothing
///           is done.
/// Formula:  docs/numerics.md, "Stirred tanks"
void CalcRuehrkessel(ProjectState& ps, int model, int mode, const SpeciesArray& feed, double& U,
                     double& V, double& Vdot, double& t, SpeciesArray& c,
                     std::array<double, 4>& extents, bool& bBTooLow, bool& bNoSolution,
                     std::vector<MessageBox>& messages);

/// Outlet concentrations over the mean residence time, 0 to twice tVerweil in 201 points.
/// Returned: tSim, cSim* of the state, NPoints, RngT and RngC with their margins; UA, cEnd, Ksi and
///           VPunkt as at the last point. False, nothing changed, when tVerweil is not above 0 or
///           the input is bad.
bool CalcTankCurve(ProjectState& ps);

} // namespace zorvant
