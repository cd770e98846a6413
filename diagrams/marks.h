// The vertical marks of a diagram: half-lives of A and B, mean residence time.
#pragma once

#include "diagrams/plot_surface.h"
#include "engine/project_state.h"

#include <optional>
#include <string>

namespace zorvant {

/// For the result line.
struct MarkNote {
    std::string text, toolTip;
};

/// Marks the half-life of A or B.
/// Given:    series  kHalfLifeASeries or kHalfLifeBSeries
/// Returned: its value in words, or that it is not reached and thus not marked; nothing where the
///           model has none
std::optional<MarkNote> MarkHalfLife(const ProjectState& ps, PlotSurface& surface, int series);

/// Marks the mean residence time, with its label.
void MarkResidenceTime(const ProjectState& ps, PlotSurface& surface);

void RemoveMarks(PlotSurface& surface);
bool AnyMarks(const PlotSurface& surface);
void HideMarkLabels(PlotSurface& surface);

} // namespace zorvant
