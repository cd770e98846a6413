// Colours, frames, margins, legend and labels of a diagram, and the panels that show its design.
#pragma once

#include "diagrams/plot_places.h"
#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// Connects the settings panel with its handlers.
void WireDesign(Workspace& ps, DiagramDocument& doc);

/// Writes the state of the plot surface into the controls of all design panels: settings, curves
/// and points. For whoever has changed the surface as a whole, and whenever a panel opens.
void ShowDesign(DiagramDocument& doc);
/// The same for single pages.
void ShowLegendSettings(DiagramDocument& doc);
/// Where the legend stands, on its sliders.
void ShowLegendPlace(DiagramDocument& doc);
void ShowLabelSettings(DiagramDocument& doc);
void ShowColourSettings(DiagramDocument& doc);
void ShowFrameSettings(DiagramDocument& doc);

/// Sliders of places on the picture count in thousandths of its width and height.
inline constexpr double kPlaceSteps = 1000;
int Thousandths(double share);
inline constexpr int kWidestMargin = 400; ///< pixels

// --- colour schemes: backgrounds of chart, chart area, plot area, header and footer, with the
// foregrounds that go with them

void cmdFullBlack_Click(DiagramDocument& doc);
void cmdFullWhite_Click(DiagramDocument& doc);
void cmdRandColGrau_Click(DiagramDocument& doc);
/// One background by the colour dialog: of the whole chart (texts upon it that had its colour
/// follow), the chart area with its axes, the plot area. What stands upon it stays readable.
void cmdRandCol_out_Click(DiagramDocument& doc);
void cmdRandCol_in_Click(DiagramDocument& doc);
void cmdColor_in_Click(DiagramDocument& doc);

// --- frame, border, margins, chart area

void chkDiaFrame_Click(DiagramDocument& doc);
void optFrameType_Click(DiagramDocument& doc, int index);
void UpDownRBreite_Change(DiagramDocument& doc);
/// Automatic margins; switching them off keeps the widths that they came out with.
void chkAutoRand_Click(DiagramDocument& doc);
void MarginSlider_Change(DiagramDocument& doc);
void chkAutoChartArea_Click(DiagramDocument& doc);

/// Moves one edge of the chart area; the opposite one stays, at least kLeastChartArea away.
void ChartAreaSlider_Change(DiagramDocument& doc, Edge edge);

// --- legend

void optLegOrient_Click(DiagramDocument& doc, int index);
void chkAutoLegend_Click(DiagramDocument& doc);
/// Into the corner of the plot area where it hides least.
void cmdLegCorner_Click(DiagramDocument& doc);
void scrLegH_Change(DiagramDocument& doc);
void scrlegV_Change(DiagramDocument& doc);
void chkLegFrame_Click(DiagramDocument& doc);
void chkLegTransparent_Click(DiagramDocument& doc);
void cmdLegFont_Click(DiagramDocument& doc);
void cmdLegBColor_Click(DiagramDocument& doc);
void cmdLegFColor_Click(DiagramDocument& doc);

// --- the labels of all curves

void cmdFontLabel_Click(DiagramDocument& doc);
void cmdLabelFColor_Click(DiagramDocument& doc);
void cmdLabelBColor_Click(DiagramDocument& doc);
void chkLabelFrame_Click(DiagramDocument& doc);

} // namespace zorvant
