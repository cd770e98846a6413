#include "diagrams/plot_areas.h"

#include "diagrams/plot_changes.h"

namespace zorvant {

void SetHeader(PlotSurface& surface, const std::string& text) {
    Assign(surface, surface.header.text, text);
}

void SetFooter(PlotSurface& surface, const std::string& text) {
    Assign(surface, surface.footer.text, text);
}

void SetHeader(PlotSurface& surface, const TextBlock& block) {
    Assign(surface, surface.header, block);
}

void SetFooter(PlotSurface& surface, const TextBlock& block) {
    Assign(surface, surface.footer, block);
}

void SetLegend(PlotSurface& surface, const PlotLegend& legend) {
    Assign(surface, surface.legend, legend);
}

void SetLegendVisible(PlotSurface& surface, bool visible) {
    Assign(surface, surface.legend.visible, visible);
}

void SetPlotAreaMargins(PlotSurface& surface, const Margins& margins) {
    Assign(surface, surface.margins, margins);
}

void SetPlotAreaFrame(PlotSurface& surface, bool shown, int width) {
    const PlotBatch batch(surface);
    Assign(surface, surface.plotAreaFrame, shown);
    Assign(surface, surface.plotAreaFrameWidth, width);
}

void SetChartAreaBox(PlotSurface& surface, const ChartAreaBox& box) {
    Assign(surface, surface.chartAreaBox, box);
}

void SetChartBorder(PlotSurface& surface, const Border& border) {
    Assign(surface, surface.chartBorder, border);
}

void SetChartColours(PlotSurface& surface, const Colours& colours) {
    Assign(surface, surface.chart, colours);
}

void SetChartAreaColours(PlotSurface& surface, const Colours& colours) {
    Assign(surface, surface.chartArea, colours);
}

void SetPlotAreaColours(PlotSurface& surface, const Colours& colours) {
    Assign(surface, surface.plotArea, colours);
}

const Colours& PlotGround(const PlotSurface& surface) {
    if (!surface.plotArea.transparent)
        return surface.plotArea;
    return surface.chartArea.transparent ? surface.chart : surface.chartArea;
}

const Colours& LegendGround(const PlotSurface& surface) {
    return surface.legend.colours.transparent ? surface.chart : surface.legend.colours;
}

Colour SeenOn(const Colours& ground, Colour colour) {
    return colour == ground.back ? ground.fore : colour;
}

} // namespace zorvant
