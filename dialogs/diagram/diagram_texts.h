// The texts of a diagram and the panel that edits them: header, additional text, axis titles.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// Stands for a line break between the press of Ctrl+Enter and the change that it leads to.
inline constexpr char kTextBreakMark = 127;

/// Opens the text panel for a text, or the curve panel.
/// Given:    index: of DiagramText, or kCurveTexts
void mnuTextDesign_Click(Workspace& ps, DiagramDocument& doc, int index);
/// Ctrl+Enter becomes the mark of a line break, Enter alone is dropped.
void schrift_KeyPress(int& key);
/// Marks become line breaks; the text goes through to its target at once.
void schrift_Change(DiagramDocument& doc);
void cmdSchriftFertig_Click(DiagramDocument& doc);
void cmdFont_Click(DiagramDocument& doc);
/// The numbers of the axis whose title is edited.
void cmdZiffFont_Click(DiagramDocument& doc);
void cmdSchriftHFarbe_Click(DiagramDocument& doc);
void chkTextFrame_Click(DiagramDocument& doc);
/// HScroll1 and VScroll1: the text leaves its automatic place.
void TextPlace_Change(DiagramDocument& doc);
/// Header above, additional text below the chart area again.
void cmdTextPlaceAuto_Click(DiagramDocument& doc);
/// 0 horizontal above the axis, 1 vertical.
void optOrientYAxText_Click(DiagramDocument& doc, int index);
void optOrientYAxZiff_Click(DiagramDocument& doc, int index);

/// Writes what the surface holds into the controls of the panel; with the panel open too.
void ShowText(DiagramDocument& doc);
void WireTexts(Workspace& ps, DiagramDocument& doc);

} // namespace zorvant
