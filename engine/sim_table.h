// The table of a calculated course as text, as the table window shows, saves and prints it.
#pragma once

#include "engine/project_state.h"

#include <array>
#include <string>

namespace zorvant {

/// Which species stands in column 2..5 of the table; 0: the column stays blank.
/// Given:    model 1..20
/// Returned: [2..5] species slot 1..5; entries 0 and 1 are unused
std::array<int, 6> SimTableColumns(int model);

/// The table of the last calculated course: heading, an empty line, then NPoints + 1 lines.
/// Given:    tSim, cSim* or, with RateDiagram, rSim* of the state; the enzyme model with MMDiagram
///           shows r(P)/r(P),max over c(S) instead
/// Returned: lines of five columns, 14 characters each, joined by tabs behind six blanks, CR LF
std::string SimTableText(const ProjectState& ps);

} // namespace zorvant
