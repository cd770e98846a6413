// The vertical marks of a diagram: half-lives of A and B, mean residence time.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// Mark the half-life and name it in the result line; a half-life that is not reached is named
/// alone.
void mnuHalbA_Click(Workspace& ps, DiagramDocument& doc);
void mnuHalbB_Click(Workspace& ps, DiagramDocument& doc);
/// Marks the mean residence time with its label; dialogs of flow reactors press it.
void cmdMarkConti_Click(Workspace& ps, DiagramDocument& doc);
/// Takes the marks away.
void mnuDelHalbAB_Click(DiagramDocument& doc);
/// Hides the labels of curves and marks.
void mnuDelMarkLabels_Click(DiagramDocument& doc);

} // namespace zorvant
