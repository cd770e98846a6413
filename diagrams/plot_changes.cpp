#include "diagrams/plot_changes.h"

#include <algorithm>

namespace zorvant {
namespace {

bool Held(const PlotSurface& surface) {
    return surface.batchDepth > 0;
}

void Repaint(PlotSurface& surface) {
    surface.changed = false;
    ++surface.revision;
    if (surface.onRepaint)
        surface.onRepaint();
}

void RepaintWhenReleased(PlotSurface& surface) {
    const bool groupsFree =
        std::ranges::all_of(surface.groupBatchDepth, [](int depth) { return depth == 0; });
    if (surface.changed && !Held(surface) && groupsFree)
        Repaint(surface);
}

} // namespace

void MarkDataChanged(PlotSurface& surface, int group) {
    surface.changed = true;
    if (!Held(surface) && surface.groupBatchDepth.at(PlotIndex(group)) == 0)
        Repaint(surface);
}

void MarkChanged(PlotSurface& surface) {
    surface.changed = true;
    if (!Held(surface))
        Repaint(surface);
}

void BeginBatch(PlotSurface& surface) {
    ++surface.batchDepth;
}

void EndBatch(PlotSurface& surface) {
    surface.batchDepth = std::max(0, surface.batchDepth - 1);
    RepaintWhenReleased(surface);
}

void BeginBatch(PlotSurface& surface, int group) {
    ++surface.groupBatchDepth.at(PlotIndex(group));
}

void EndBatch(PlotSurface& surface, int group) {
    int& depth = surface.groupBatchDepth.at(PlotIndex(group));
    depth = std::max(0, depth - 1);
    RepaintWhenReleased(surface);
}

} // namespace zorvant
