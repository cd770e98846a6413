// The road from typed quantities to the diagram of a course, one for all dialogs.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// Calculates the course of the selected model from 0 to tEnd and draws it: into the open diagram
/// while curves are added, else into a new one. Kind and masks are those of the model, whatever was
/// drawn before.
/// Given:    k, c0, OrderN, RateDiagram, MMDiagram, AddCurves of the state; tEnd in TU
/// Errors:   ArithmeticError; where the model has no course, nothing is drawn
void DrawCourse(Workspace& ps, DiagramDocument& diagram, double tEnd);

} // namespace zorvant
