// The 24 curve slots of a diagram: taking, drawing, designing and deleting curves.
#pragma once

#include "diagrams/diagram_document.h"

namespace zorvant {

/// Draws as many curves as CurvesToDraw says.
void cmdDraw_Click(ProjectState& ps, DiagramDocument& doc);

/// Takes the lowest free slot for the next curve; the window says so when there is none.
/// Returned: whether CurveSlot holds a slot now
bool FuKurvePlatz(ProjectState& ps, DiagramDocument& doc);

/// Writes a buffer into a curve slot, in the preset colour, and shows its label.
void FuKurveZeichnen(ProjectState& ps, DiagramDocument& doc, int slot, const PointBuffer& curve);

/// Deletes curve i; 0: all curves.
void FuKurveLoeschen(ProjectState& ps, DiagramDocument& doc, int slot);
void mnuSubDelKurv_Click(ProjectState& ps, DiagramDocument& doc, int slot);
/// The curve of the page in front.
void cmdDelKurv_Click(ProjectState& ps, DiagramDocument& doc);
/// Curves, points and marks, and the legend, which has nothing left to tell.
void mnuDelTotal_Click(ProjectState& ps, DiagramDocument& doc);
/// Shows an entry for what there is to delete.
void mnuDelete_Click(DiagramDocument& doc);

/// Asks, then takes one point out of a curve.
void FuPunktLoeschen(ProjectState& ps, DiagramDocument& doc, int series, int point);
void cmdMsgDelPoint_Click();

void cmdManuKurve_Click(ProjectState& ps, DiagramDocument& doc);

/// Writes the looks, texts and labels of the taken slots from the surface into the curve panel.
void ShowCurveDesign(DiagramDocument& doc);
void mnuKurvenDesign_Click(ProjectState& ps, DiagramDocument& doc);
void cmbKStil_Click(DiagramDocument& doc, int slot);
void UpDown1_KBreite_Change(DiagramDocument& doc, int slot);
void cmdKurvenFarbe_Click(DiagramDocument& doc, int slot);
void cmdFarbVorwahl_Click(ProjectState& ps, DiagramDocument& doc);

/// The number behind the first point of the caption of the curve page in front; 0: none.
int SlotOfFrontPage(const DiagramDocument& doc);

} // namespace zorvant
