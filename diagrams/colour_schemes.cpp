#include "diagrams/colour_schemes.h"

namespace zorvant {
namespace {

constexpr double kLightGround = 0.4; // relative luminance

void PaintHeaderAndFooter(PlotSurface& surface, const Colours& colours, bool onlyIfOn,
                          Colour ground) {
    TextBlock header = surface.header, footer = surface.footer;
    for (TextBlock* block : {&header, &footer})
        if (!onlyIfOn || block->colours.back == ground) {
            block->colours.back = colours.back;
            block->colours.fore = colours.fore;
        }
    SetHeader(surface, header);
    SetFooter(surface, footer);
}

void ColourAxes(PlotSurface& surface, Colour colour) {
    for (const AxisId axis : {AxisId::X, AxisId::Y, AxisId::Y2})
        SetAxisColour(surface, axis, colour);
}

} // namespace

Colour ReadableOn(Colour ground) {
    const auto part = [ground](int shift) { return ((ground >> shift) & 0xFFU) / 255.0; };
    const double luminance = 0.2126 * part(16) + 0.7152 * part(8) + 0.0722 * part(0);
    return luminance > kLightGround ? kBlack : kWhite;
}

void ApplyColourScheme(PlotSurface& surface, Colour back, Colour fore) {
    const PlotBatch batch(surface);
    const Colours colours{.back = back, .fore = fore};
    SetChartColours(surface, colours);
    SetChartAreaColours(surface, colours);
    SetPlotAreaColours(surface, colours);
    PaintHeaderAndFooter(surface, colours, false, back);
    ColourAxes(surface, fore);
    PlotLegend legend = surface.legend;
    legend.colours.back = back;
    legend.colours.fore = fore;
    SetLegend(surface, legend);
    for (int label = 1; label < static_cast<int>(surface.labels.size()); ++label) {
        Colours of = GetLabel(surface, label).colours;
        of.back = back;
        if (of.fore == kBlack || of.fore == kWhite) // marks have a colour of their own
            of.fore = fore;
        SetLabelColours(surface, label, of);
    }
}

void SetWholeGround(PlotSurface& surface, const Colours& ground) {
    const PlotBatch batch(surface);
    const Colour before = surface.chart.back;
    SetChartColours(surface, ground);
    PaintHeaderAndFooter(surface, ground, true, before);
}

void SetGroundOfAxes(PlotSurface& surface, const Colours& ground) {
    const PlotBatch batch(surface);
    SetChartAreaColours(surface, ground);
    ColourAxes(surface, ground.fore);
}

} // namespace zorvant
