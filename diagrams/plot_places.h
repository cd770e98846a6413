// Where the parts of a diagram stand now, also while their places are automatic, so that a place
// given by hand begins there.
#pragma once

#include "diagrams/plot_surface.h"

namespace zorvant {

/// The other edge of the chart area is never nearer, as a share of the picture.
inline constexpr double kLeastChartArea = 0.1;

enum class Edge { Left, Right, Top, Bottom };

inline constexpr std::array<Margin Margins::*, 4> kMargins{&Margins::left, &Margins::right,
                                                           &Margins::top, &Margins::bottom};

ChartAreaBox PresentChartArea(const PlotSurface& surface);
Location PresentLegendPlace(const PlotSurface& surface);
Margins PresentMargins(const PlotSurface& surface);
bool AllAutomatic(const Margins& margins);

/// Moves one edge of the chart area to a share of the picture; the opposite one stays.
void MoveChartEdge(PlotSurface& surface, Edge edge, double share);

} // namespace zorvant
