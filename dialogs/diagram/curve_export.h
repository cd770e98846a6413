// A curve of the diagram as data: to the clipboard and as a list of points.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

void WireCurveExport(Workspace& ps, DiagramDocument& doc);

/// The curve of the page in front as lines of x, tab, y: 7 digits without a blank in front, which
/// spreadsheets would take for a text.
void cmdClipboard_Click(DiagramDocument& doc);
/// The same curve as .XY file (docs/file_formats.md), with the delimiter of the settings.
void cmdSaveCurveAsXY_Click(Workspace& ps, DiagramDocument& doc);
/// The delimiter of .XY files.
void cmbSep_Click(Workspace& ps, DiagramDocument& doc);
/// Shows the delimiter of the settings in cmbSep.
void ShowDelimiter(const Workspace& ps, DiagramDocument& doc);

} // namespace zorvant
