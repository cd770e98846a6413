// How the axes of a diagram look: origin, place of the numbers, grid; the zoom; and the point that
// the keys walk along the curves.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

// --- origin and numbers. Index 0: minimum, 1: at zero, 2: maximum.

/// 0: both origins in the minima; 1: they can be chosen.
void optStandardOrigin_Click(DiagramDocument& doc, int index);
void optXOrigin_Click(DiagramDocument& doc, int index);
void optYOrigin_Click(DiagramDocument& doc, int index);
void optXZiffern_Click(DiagramDocument& doc, int index);
void optYZiffern_Click(DiagramDocument& doc, int index);

// --- grid

/// 0: none, 1: lines of Y, 2: lines of X, 3: both; in the pattern chosen last.
void opt1Gitter_Click(DiagramDocument& doc, int index);
/// 0: dotted, 1: solid.
void opt2Gitter_Click(DiagramDocument& doc, int index);
void cmdGitterFarbe_Click(DiagramDocument& doc);

// --- zoom

void cmdZoom_Click(DiagramDocument& doc);
void cmdZoomReset_Click(Workspace& ps, DiagramDocument& doc);
/// The frame that holds all curves and points.
void cmdShowAll_Click(Workspace& ps, DiagramDocument& doc);
/// A mouse button was released over the chart: the left one ends a zoom, and the frame takes what
/// the axes show. A rectangle so small that Single can't tell its limits apart is not taken.
void ReleaseZoom(Workspace& ps, DiagramDocument& doc, bool leftButton, double px, double py);
/// Esc while a zoom waits or is drawn. Returned: whether there was one.
bool CancelZoom(DiagramDocument& doc);

/// What the window tells about its axes for as long as it holds: that a zoom waits, that a
/// logarithmic axis shows the positive part only; empty otherwise.
std::string ChartHint(const DiagramDocument& doc);

/// Writes grid, origin, numbers, spacings and limits of the surface into their controls.
void ShowAxisSettings(DiagramDocument& doc);

} // namespace zorvant
