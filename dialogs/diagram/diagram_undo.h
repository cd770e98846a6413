// Undo and redo in the diagram window.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// Notes what the last command has changed as a step that can be taken back.
void NoteStep(DiagramDocument& doc);
/// A diagram that was drawn or loaded is no edited design yet.
void BeginSteps(DiagramDocument& doc);

void mnuUndo_Click(Workspace& ps, DiagramDocument& doc);
void mnuRedo_Click(Workspace& ps, DiagramDocument& doc);

} // namespace zorvant
