// The one road from a dialog to a diagram: fill the shared arrays, set DiagramKind, call
// GrafZentrale; with AddCurves press cmdDraw afterwards.
#pragma once

#include "dialogs/diagram/diagram_curves.h"
#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// Prepares texts, frame and number of curves for ps.DiagramKind, opens the diagram window (which
/// draws everything as it loads) or brings the open one forward, and sets its point pages.
/// Given:    DiagramKind, the context flags, Memory with the ranges, the arrays of the kind
/// Returned: Frame, CurvesToDraw, PointLegend
/// Errors:   a box; the caller goes on
void GrafZentrale(Workspace& ps, DiagramDocument& doc);

} // namespace zorvant
