// How the user changes the frame of a diagram and the spacings of its axes.
#pragma once

#include "diagrams/ranges.h"
#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// Connects the boxes and buttons of coordinates and spacings.
void WireCoordinates(Workspace& ps, DiagramDocument& doc);

// --- panels
void mnuCoord_Click(Workspace& ps, DiagramDocument& doc);
void cmdCoord_OK_Click(Workspace& ps, DiagramDocument& doc);
void cmdCoord_Esc_Click(DiagramDocument& doc);
void cmdTabCoord_OK_Click(Workspace& ps, DiagramDocument& doc);
/// Enter moves to the next of the four boxes, anything else passes the filter of numeric fields.
void coord_KeyPress(DiagramDocument& doc, Array<TextField, 4, 1>& boxes, int index, int& key);
/// Writes the frame into four boxes in plain number form.
void ShowFrame(const DiaKoord& frame, Array<TextField, 4, 1>& boxes);

// --- scaling
/// 0: the spacings are chosen for the frame and shown; 1: the boxes rule.
void optScaling_Click(DiagramDocument& doc, int index);
/// The end of every change of the frame: automatic spacing, computed anew.
void ChooseAutomaticScaling(DiagramDocument& doc);

enum class SpacingBox { XGrid, YGrid, XTick, YTick, XNumber, YNumber };
/// A change in a spacing box is given to its axis at once. A number that the axis refuses changes
/// nothing yet, because typing passes through such numbers.
void SpacingBox_Change(DiagramDocument& doc, SpacingBox which);
/// The box is left, or Enter pressed in it: where its number is refused, the axis takes the
/// automatic value and the box shows that.
void SpacingBox_Leave(DiagramDocument& doc, SpacingBox which);
/// Enter leaves the box.
void SpacingBox_KeyPress(DiagramDocument& doc, SpacingBox which, int& key);
/// Writes the spacings of the surface into their boxes, and whether they are automatic.
void ShowSpacings(DiagramDocument& doc);

void cmdXLog_Click(DiagramDocument& doc);
void cmdYLog_Click(DiagramDocument& doc);

} // namespace zorvant
