// The frame of a diagram: where its numbers come from and go to, how it is applied to the plot
// surface and how the user changes it.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// The four limits of the frame from the memory of ranges; an unknown kind leaves them.
void FuKoordLesen(const Workspace& ps, int kind, const KoordMemory& memory, DiaKoord& frame);

/// The limits back into the memory. Kinds with fixed limits store nothing.
void FuKoordMerken(const Workspace& ps, int kind, KoordMemory& memory, const DiaKoord& frame);

/// The ranges that measured points need, with a margin of a twentieth of their width.
/// Given:    a negative kind; any other does nothing; all rows count, switched-off ones too
/// Returned: ps.Memory
/// Formula:  m = (upper - lower)/20; RngT, RngC and RngR grow at their upper end only
void FuDatenBereiche(Workspace& ps, int kind);

/// Applies the frame to the plot surface: axes X, Y and Y2, and the hidden series that spans it.
void FuKoordSetzen(Workspace& ps, DiagramDocument& doc);

/// Whether a point lies in the frame, its edges included.
bool InsideFrame(const DiaKoord& frame, double x, double y);

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
/// The box is left, or Enter pressed in it: where its number is refused, the axis takes the automatic
/// value and the box shows that.
void SpacingBox_Leave(DiagramDocument& doc, SpacingBox which);
/// Enter leaves the box.
void SpacingBox_KeyPress(DiagramDocument& doc, SpacingBox which, int& key);
/// Writes the spacings of the surface into their boxes, and whether they are automatic.
void ShowSpacings(DiagramDocument& doc);

void cmdXLog_Click(DiagramDocument& doc);
void cmdYLog_Click(DiagramDocument& doc);

} // namespace zorvant
