// The way of the keys along the points of the curves and point sets that can be seen.
#pragma once

#include "diagrams/plot_surface.h"

#include <optional>

namespace zorvant {

enum class ChartKey {
    Left,     ///< the point before
    Right,    ///< the next one
    PageUp,   ///< kWalkStride points back
    PageDown, ///< and on
    Home,     ///< the first and the last point
    End,
    Up, ///< the series before, at the same x
    Down,
    Delete, ///< asks whether the point shall be deleted
    Design, ///< the design panel of the series, as a right click
};
inline constexpr int kWalkStride = 10;

/// What is selected, or the first series where that can't be seen, no point of it yet.
/// Returned: nothing where no point can be seen at all
std::optional<SeriesPoint> Walkable(const PlotSurface& surface, const SeriesPoint& selected);

/// The point that a key leads to from what is selected.
std::optional<SeriesPoint> StepOnChart(const PlotSurface& surface, const SeriesPoint& selected,
                                       ChartKey key);

/// The seen point of a series whose number is nearest; 0: none.
int NearestNumber(const PlotSurface& surface, int group, int series, int point);

} // namespace zorvant
