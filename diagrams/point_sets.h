// The seven point sets of a diagram: what the data set gives for each kind, and manual points.
#pragma once

#include "diagrams/plot_surface.h"
#include "engine/project_state.h"

namespace zorvant {

inline constexpr const char* kManualName = "manual";

/// Fills the point sets of the diagram's kind from the data set.
/// Given:    ps.DiagramKind, the data set, the frame
/// Returned: anyInside: a point that was taken lies in the frame. A set that gets any point has one
///           place for each row; rows that are excluded, fail the condition or can't be transformed
///           stay holes. Sets of the kind that get none are emptied.
void FuPunkteLaden(ProjectState& ps, PlotSurface& surface, bool& anyInside);

/// Whether the data have anything to show in this diagram.
bool HasPointsForDiagram(const ProjectState& ps);

/// Which sets are offered: species with data, pairs, manual points. By set 1..7.
bool OffersPointSet(const ProjectState& ps, const PlotSurface& surface, int set);
/// "Fu(c)" diagrams: their one set is a function of c(A).
bool IsFunctionOfC(const ProjectState& ps);

bool HasPoints(const PlotSurface& surface, int set);
bool AnyPoints(const PlotSurface& surface);
void WriteManualSet(PlotSurface& surface, int set, const PointBuffer& manual, Colour colour);
/// No points and no legend text.
void EmptyPointSet(PlotSurface& surface, int set);

} // namespace zorvant
