// Legend and labels of a diagram.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// The state that chkLegend, chkLegend1(i) and chkLegend2(i) all show.
void ShowLegend(DiagramDocument& doc, bool on);
void mnuAddLegend_Click(DiagramDocument& doc);
void mnuDelLegend_Click(DiagramDocument& doc);
void mnuDelLegendZeile_Click();
void txtLegendCurves_Change(DiagramDocument& doc, int slot);
void txtLegendPoints_Change(DiagramDocument& doc, int set);

void txtLabel_Change(DiagramDocument& doc, int slot);
void chkEinzelLabelSichtbar_Click(DiagramDocument& doc, int slot);
void chkLabelNotVisible_Click(DiagramDocument& doc);
/// Shows or hides the labels of all curves.
void mnuAddLabels_Click(DiagramDocument& doc);
void mnuDelLabels_Click(DiagramDocument& doc);
/// Moves the label along its curve.
void scrShiftLab_Change(DiagramDocument& doc, int slot);

/// A curve's label: its text, and the field that shows it.
void SetCurveLabel(DiagramDocument& doc, int slot, const std::string& text);

} // namespace zorvant
