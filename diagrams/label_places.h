// At which points of their curves labels stand.
#pragma once

#include "diagrams/plot_contents.h"

#include <array>

namespace zorvant {

/// Attaches the label of each curve to the point at which the curve is farthest from all others, so
/// that it is clear whose label it is, and labels are apart from each other.
/// Given:    fixed  by slot 1..24: labels that were moved by hand stay
void PlaceCurveLabels(PlotSurface& surface, const std::array<bool, kCurveSlots + 1>& fixed);

} // namespace zorvant
