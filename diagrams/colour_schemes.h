// Grounds of a diagram and the foregrounds that go with them.
#pragma once

#include "diagrams/plot_surface.h"

namespace zorvant {

/// Black or white, whichever is read better upon a ground.
/// Formula: relative luminance above 0.4 is light ground; weights of ITU-R BT.709
Colour ReadableOn(Colour ground);

/// One ground for chart, chart area, plot area, legend and texts, and one foreground upon them.
void ApplyColourScheme(PlotSurface& surface, Colour back, Colour fore);
/// The ground of the whole chart; texts upon it that had its colour follow.
void SetWholeGround(PlotSurface& surface, const Colours& ground);
/// The ground behind the axes, which take its foreground.
void SetGroundOfAxes(PlotSurface& surface, const Colours& ground);

} // namespace zorvant
