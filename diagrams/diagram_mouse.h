// What the pointer does over the chart.
#pragma once

#include "diagrams/diagram_document.h"

namespace zorvant {

enum class MouseButton { Left, Right };

/// Readouts and pointer for a position in pixels of the picture.
void MouseMove(ProjectState& ps, DiagramDocument& doc, double px, double py);
/// Right: design panels. Left: deleting a curve point, or closing the settings.
void MouseDown(ProjectState& ps, DiagramDocument& doc, MouseButton button, double px, double py);

} // namespace zorvant
