// The seven point sets of a diagram: what the data set gives for each kind, and manual points.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// Fills the point sets of the diagram's kind from the data set.
/// Given:    ps.DiagramKind, the data set, the frame
/// Returned: anyInside: a point that was taken lies in the frame. A set that gets any point has one
///           place for each row; rows that are excluded, fail the condition or can't be transformed
///           stay holes. Sets of the kind that get none are emptied.
void FuPunkteLaden(Workspace& ps, DiagramDocument& doc, bool& anyInside);

/// Fills the sets and shows their pages, legend texts and colours.
void LoadPointSets(Workspace& ps, DiagramDocument& doc, bool& anyInside);

/// The warning that no point lies in the frame, with what to do about it.
void WarnPointsOutside(const std::string& advice);

/// Whether the data have anything to show in this diagram.
bool HasPointsForDiagram(const Workspace& ps);

void mnuAddPunkte_Click(Workspace& ps, DiagramDocument& doc);
void cmdManuPoints_Click(Workspace& ps, DiagramDocument& doc);

/// Deletes point set i with its legend text; 0: all sets.
void mnuSubDelPoints_Click(DiagramDocument& doc, int set);
void cmdDelPoints_Click(DiagramDocument& doc, int set);

/// Writes looks and legend texts of the sets with points from the surface into the point panel.
void ShowPointDesign(DiagramDocument& doc);
void mnuPunktDesign_Click(Workspace& ps, DiagramDocument& doc);
void cmbPunktStil_Click(DiagramDocument& doc, int set);
void UpDown1_PointSize_Change(DiagramDocument& doc, int set);
void cmdPunktFarbe_Click(DiagramDocument& doc, int set);

} // namespace zorvant
