// Loading and deleting the point sets of the diagram window.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// Fills the sets and shows their pages, legend texts and colours.
void LoadPointSets(Workspace& ps, DiagramDocument& doc, bool& anyInside);

/// The warning that no point lies in the frame, with what to do about it.
void WarnPointsOutside(const std::string& advice);

void mnuAddPunkte_Click(Workspace& ps, DiagramDocument& doc);
void cmdManuPoints_Click(Workspace& ps, DiagramDocument& doc);

/// Deletes point set i with its legend text; 0: all sets.
void mnuSubDelPoints_Click(DiagramDocument& doc, int set);
void cmdDelPoints_Click(DiagramDocument& doc, int set);

} // namespace zorvant
