// Texts, legend, borders and grounds of a diagram.
#pragma once

#include "diagrams/plot_contents.h"

namespace zorvant {

void SetHeader(PlotSurface& surface, const std::string& text);
void SetFooter(PlotSurface& surface, const std::string& text);
/// Text, place and looks at once.
void SetHeader(PlotSurface& surface, const TextBlock& block);
void SetFooter(PlotSurface& surface, const TextBlock& block);
void SetLegend(PlotSurface& surface, const PlotLegend& legend);
void SetLegendVisible(PlotSurface& surface, bool visible);
void SetPlotAreaMargins(PlotSurface& surface, const Margins& margins);
void SetPlotAreaFrame(PlotSurface& surface, bool shown, int width);
void SetChartAreaBox(PlotSurface& surface, const ChartAreaBox& box);
void SetChartBorder(PlotSurface& surface, const Border& border);
/// Backgrounds and foregrounds of the whole picture, of the chart area and of the plot area.
void SetChartColours(PlotSurface& surface, const Colours& colours);
void SetChartAreaColours(PlotSurface& surface, const Colours& colours);
void SetPlotAreaColours(PlotSurface& surface, const Colours& colours);

/// The colours that stand behind the curves, and behind the legend, whatever is transparent.
const Colours& PlotGround(const PlotSurface& surface);
const Colours& LegendGround(const PlotSurface& surface);
/// What a line or a symbol is painted with so that it can be seen: the foreground where its colour
/// is that of the ground.
Colour SeenOn(const Colours& ground, Colour colour);

} // namespace zorvant
