#include "dialogs/diagram/diagram_legend.h"

#include "diagrams/curve_slots.h"
#include "dialogs/diagram/settings_panel.h"
#include "platform/host.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

void ShowAllLabels(DiagramDocument& doc, bool on) {
    ShowCurveLabels(doc.surface, on);
    for (int slot = 1; slot <= kCurveSlots; ++slot)
        doc.chkEinzelLabelSichtbar(slot).checked = on;
    doc.mnuAddLabels.enabled = !on;
    doc.mnuDelLabels.enabled = on;
    doc.chkLabelNotVisible.checked = !on;
}

} // namespace

void ShowLegend(DiagramDocument& doc, bool on) {
    SetLegendVisible(doc.surface, on);
    doc.chkLegend.checked = on;
    for (int slot = 1; slot <= kCurveSlots; ++slot)
        doc.chkLegend1(slot).checked = on;
    for (int set = 1; set <= kPointSets; ++set)
        doc.chkLegend2(set).checked = on;
    doc.mnuAddLegend.enabled = !on;
    doc.mnuDelLegend.enabled = doc.mnuDelLegendZeile.enabled = on;
    ShowLegendPlace(doc);
}

void mnuAddLegend_Click(DiagramDocument& doc) {
    if (!AnyLegendText(doc.surface)) {
        ShowMessage(JoinLines({"No legend texts given", "", "=> Design curve",
                               "=> Design experimental points"}),
                    "Execution not possible", Icon::Critical);
        return;
    }
    ShowLegend(doc, true);
}

void mnuDelLegend_Click(DiagramDocument& doc) {
    ShowLegend(doc, false);
}

void mnuDelLegendZeile_Click() {
    ShowMessage(
        JoinLines({"How to remove a single line from the legend:",
                   "1st:  Go to menu 'Design Exper. points' or 'Design Curve'",
                   "2nd:  Select number of point set or curve", "3rd:  Delete the legend text "}),
        "Note", Icon::Information);
}

void txtLegendCurves_Change(DiagramDocument& doc, int slot) {
    if (GetPointCount(doc.surface, kLines, slot) > 0)
        SetSeriesLabel(doc.surface, kLines, slot, doc.txtLegendCurves(slot).text);
}

void txtLegendPoints_Change(DiagramDocument& doc, int set) {
    if (GetPointCount(doc.surface, kPoints, set) > 0)
        SetSeriesLabel(doc.surface, kPoints, set, doc.txtLegendPoints(set).text);
}

// --- labels

void txtLabel_Change(DiagramDocument& doc, int slot) {
    SetLabelText(doc.surface, slot, doc.txtLabel(slot).text);
}

void chkEinzelLabelSichtbar_Click(DiagramDocument& doc, int slot) {
    SetLabelVisible(doc.surface, slot, doc.chkEinzelLabelSichtbar(slot).checked);
}

void chkLabelNotVisible_Click(DiagramDocument& doc) {
    ShowAllLabels(doc, !doc.chkLabelNotVisible.checked);
}

void mnuAddLabels_Click(DiagramDocument& doc) {
    ShowAllLabels(doc, true);
}

void mnuDelLabels_Click(DiagramDocument& doc) {
    ShowAllLabels(doc, false);
}

void scrShiftLab_Change(DiagramDocument& doc, int slot) {
    MoveCurveLabel(doc, slot, doc.scrShiftLab(slot).value);
}

void SetCurveLabel(DiagramDocument& doc, int slot, const std::string& text) {
    doc.txtLabel(slot).text = text;
    SetLabelText(doc.surface, slot, text);
}

} // namespace zorvant
