#include "dialogs/diagram/diagram_marks.h"

#include "diagrams/marks.h"
#include "dialogs/diagram/diagram_legend.h"

namespace zorvant {
namespace {

void Mark(Workspace& ps, DiagramDocument& doc, int series) {
    doc.mnuDelTotal.enabled = doc.mnuDelHalbAB.enabled = true;
    const std::optional<MarkNote> note = MarkHalfLife(ps, doc.surface, series);
    if (!note)
        return;
    doc.ResultOf = kResultOfMark;
    doc.StatusBar2.text = note->text;
    doc.StatusBar2.toolTip = note->toolTip;
}

} // namespace

void mnuHalbA_Click(Workspace& ps, DiagramDocument& doc) {
    Mark(ps, doc, kHalfLifeASeries);
}

void mnuHalbB_Click(Workspace& ps, DiagramDocument& doc) {
    Mark(ps, doc, kHalfLifeBSeries);
}

void cmdMarkConti_Click(Workspace& ps, DiagramDocument& doc) {
    MarkResidenceTime(ps, doc.surface);
    doc.mnuDelHalbAB.enabled = true;
}

void mnuDelHalbAB_Click(DiagramDocument& doc) {
    RemoveMarks(doc.surface);
    if (doc.ResultOf == kResultOfMark)
        ClearResult(doc);
    doc.mnuDelHalbAB.enabled = false;
}

void mnuDelMarkLabels_Click(DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    mnuDelLabels_Click(doc);
    HideMarkLabels(doc.surface);
}

} // namespace zorvant
