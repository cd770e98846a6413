// The panel that designs the point sets, one page for each.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

void WirePointPanel(DiagramDocument& doc);

/// Writes looks and legend texts of the sets with points from the surface into the point panel.
void ShowPointDesign(DiagramDocument& doc);
void mnuPunktDesign_Click(Workspace& ps, DiagramDocument& doc);
void cmbPunktStil_Click(DiagramDocument& doc, int set);
void UpDown1_PointSize_Change(DiagramDocument& doc, int set);
void cmdPunktFarbe_Click(DiagramDocument& doc, int set);

} // namespace zorvant
