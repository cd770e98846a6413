// The 24 curve slots of a diagram: taking, drawing, designing and deleting curves.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// Draws as many curves as CurvesToDraw says.
void cmdDraw_Click(Workspace& ps, DiagramDocument& doc);

/// Takes the lowest free slot for the next curve; the window says so when there is none.
/// Returned: whether CurveSlot holds a slot now
bool FuKurvePlatz(Workspace& ps, DiagramDocument& doc);

/// Writes a buffer into a curve slot and shows its label.
void FuKurveZeichnen(Workspace& ps, DiagramDocument& doc, int slot, const PointBuffer& curve);

/// Deletes curve i; 0: all curves.
void FuKurveLoeschen(Workspace& ps, DiagramDocument& doc, int slot);
void mnuSubDelKurv_Click(Workspace& ps, DiagramDocument& doc, int slot);
/// The curve of the page in front.
void cmdDelKurv_Click(Workspace& ps, DiagramDocument& doc);
/// Curves, points and marks, and the legend, which has nothing left to tell.
void mnuDelTotal_Click(Workspace& ps, DiagramDocument& doc);
/// Shows an entry for what there is to delete.
void mnuDelete_Click(DiagramDocument& doc);

/// Asks, then takes one point out of a curve.
void FuPunktLoeschen(Workspace& ps, DiagramDocument& doc, int series, int point);
void cmdMsgDelPoint_Click();

void cmdManuKurve_Click(Workspace& ps, DiagramDocument& doc);

void cmdFarbVorwahl_Click(Workspace& ps, DiagramDocument& doc);

} // namespace zorvant
