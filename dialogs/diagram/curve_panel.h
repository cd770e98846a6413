// The panel that designs the curves, one page for each slot.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

inline constexpr const char* kLegendHint = " without text no entry in the legend! ";

void WireCurvePanel(Workspace& ps, DiagramDocument& doc);

/// Writes the looks, texts and labels of the taken slots from the surface into the curve panel.
void ShowCurveDesign(DiagramDocument& doc);
/// Page and caption of a slot that has just been taken.
void OfferCurvePage(DiagramDocument& doc, int slot);
void mnuKurvenDesign_Click(Workspace& ps, DiagramDocument& doc);
void cmbKStil_Click(DiagramDocument& doc, int slot);
void UpDown1_KBreite_Change(DiagramDocument& doc, int slot);
void cmdKurvenFarbe_Click(DiagramDocument& doc, int slot);

/// The number behind the first point of the caption of the curve page in front; 0: none.
int SlotOfFrontPage(const DiagramDocument& doc);

} // namespace zorvant
