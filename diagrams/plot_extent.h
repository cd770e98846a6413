// The limits that show everything that a diagram holds.
#pragma once

#include "diagrams/plot_contents.h"
#include "engine/project_state.h"

#include <optional>

namespace zorvant {

/// Given:    the shown curves 1..24 and the point sets; on logarithmic axes their positive points
/// Returned: lowest and highest x and y, a twentieth of the width wider; an end that lies near 0
///           becomes 0; nothing without any point
struct PlotExtent {
    Range x, y;
};
std::optional<PlotExtent> ExtentOfAll(const PlotSurface& surface);

/// Where a legend of this size hides least: the upper left corner of the best of the four corners
/// of the plot area, then of the middles of its sides; pixels.
/// Given:    the layout that the view has reported
DataPoint FreeCorner(const PlotSurface& surface, double width, double height);

} // namespace zorvant
