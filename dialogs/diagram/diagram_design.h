// Saving the diagram as a design file and making a diagram of one.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

void mnuSaveOC2_Click(Workspace& ps, DiagramDocument& doc);
/// A file that can't be read changes nothing; the message names the line.
void mnuLoadOC2_Click(Workspace& ps, DiagramDocument& doc);

/// Colours, fonts, styles, legend, margins and grid of a design for what is drawn here.
void mnuLoadLook_Click(Workspace& ps, DiagramDocument& doc);

/// Makes the open diagram one with these contents: curve slots, pages, menus and frame are those of
/// the contents. Series beyond those of a diagram are left out.
void TakeDesign(Workspace& ps, DiagramDocument& doc, PlotContents contents);
/// The same with panels and result line as they are.
void TakeContents(Workspace& ps, DiagramDocument& doc, PlotContents contents);

} // namespace zorvant
