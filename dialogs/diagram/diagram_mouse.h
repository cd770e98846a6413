// What the pointer does over the chart.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

enum class MouseButton { Left, Right, Other };

/// Readouts and pointer for a position in pixels of the picture.
void MouseMove(Workspace& ps, DiagramDocument& doc, double px, double py);
/// Right: design panels. Left: deleting a curve point, or closing the settings; while a zoom waits,
/// the first corner of its rectangle.
void MouseDown(Workspace& ps, DiagramDocument& doc, MouseButton button, double px, double py);
/// The end of a zoom; see ReleaseZoom.
void MouseUp(Workspace& ps, DiagramDocument& doc, MouseButton button, double px, double py);
/// Shows number and values of a point in the readouts.
void ReadOutPoint(DiagramDocument& doc, const SeriesPoint& at);

} // namespace zorvant
