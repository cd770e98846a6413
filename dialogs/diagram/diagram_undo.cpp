#include "dialogs/diagram/diagram_undo.h"

#include "dialogs/diagram/diagram_design.h"
#include "platform/host.h"

namespace zorvant {
namespace {

double Seconds() {
    return host().clockSeconds ? host().clockSeconds() : 0;
}

void ShowState(Workspace& ps, DiagramDocument& doc, const DiagramState& state) {
    const PlotBatch batch(doc.surface);
    TakeContents(ps, doc, state.contents);
    doc.draws = state.draws;
    doc.LabelMoved = state.LabelMoved;
    ClearResult(doc); // it may tell of what is no longer there
}

} // namespace

void NoteStep(DiagramDocument& doc) {
    if (doc.loaded && doc.history.Note(doc, Seconds()))
        doc.designEdited = doc.designEdited || doc.history.LastChangedDesign();
}

void BeginSteps(DiagramDocument& doc) {
    if (doc.history.IsClear())
        doc.history.Begin(doc);
    else
        doc.history.Note(doc, Seconds());
    doc.designEdited = false;
}

void mnuUndo_Click(Workspace& ps, DiagramDocument& doc) {
    NoteStep(doc);
    if (!doc.history.CanUndo())
        return;
    ShowState(ps, doc, DiagramState(doc.history.Undo()));
    doc.history.Shown(doc);
}

void mnuRedo_Click(Workspace& ps, DiagramDocument& doc) {
    NoteStep(doc);
    if (!doc.history.CanRedo())
        return;
    ShowState(ps, doc, DiagramState(doc.history.Redo()));
    doc.history.Shown(doc);
}

} // namespace zorvant
