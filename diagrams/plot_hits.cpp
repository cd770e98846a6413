#include "diagrams/plot_hits.h"

#include "diagrams/plot_axes.h"
#include "diagrams/plot_marks.h"
#include "diagrams/plot_series.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zorvant {
namespace {

constexpr double kSmallestZoom = 4; // pixels; a shorter drag is a click

/// How an axis maps its range to a stretch of pixels.
struct AxisScale {
    ShownAxisRange range;
    double start, length; // pixels of range.min, and to range.max (signed)

    std::optional<double> Pixel(double value) const {
        if (!range.log)
            return start + (value - range.min) / (range.max - range.min) * length;
        if (!(value > 0))
            return std::nullopt;
        return start + std::log(value / range.min) / std::log(range.max / range.min) * length;
    }
    double Value(double pixel) const {
        const double share = (pixel - start) / length;
        if (range.log)
            return range.min * std::pow(range.max / range.min, share);
        return range.min + share * (range.max - range.min);
    }
};

AxisScale ScaleX(const PlotSurface& surface) {
    const PixelRect& area = surface.layout.plotArea;
    return {ShownRange(surface, AxisId::X), area.left, area.width};
}

AxisScale ScaleY(const PlotSurface& surface) {
    const PixelRect& area = surface.layout.plotArea;
    return {ShownRange(surface, AxisId::Y), area.top + area.height, -area.height};
}

bool HasPlotArea(const PlotSurface& surface) {
    return surface.layout.plotArea.width > 0 && surface.layout.plotArea.height > 0;
}

void ShowRange(PlotSurface& surface, AxisId axis, double min, double max) {
    const PlotAxis& a = GetAxis(surface, axis);
    SetAxis(surface, axis, min, max, a.dataMin, a.dataMax);
}

} // namespace

// --- pixels

PixelHit PixelToData(const PlotSurface& surface, double px, double py) {
    PixelHit hit;
    if (HasPlotArea(surface)) {
        hit.x = ScaleX(surface).Value(px);
        hit.y = ScaleY(surface).Value(py);
    }
    const PlotLayout& layout = surface.layout;
    if (surface.legend.visible && layout.legend.Contains(px, py))
        hit.region = Region::Legend;
    else if (layout.header.Contains(px, py))
        hit.region = Region::Header;
    else if (layout.footer.Contains(px, py))
        hit.region = Region::Footer;
    else if (layout.plotArea.Contains(px, py))
        hit.region = Region::PlotArea;
    return hit;
}

std::optional<DataPoint> DataToPixel(const PlotSurface& surface, double x, double y) {
    if (!HasPlotArea(surface))
        return std::nullopt;
    const auto px = ScaleX(surface).Pixel(x);
    const auto py = ScaleY(surface).Pixel(y);
    if (!px || !py)
        return std::nullopt;
    return DataPoint{*px, *py};
}

NearestHit NearestPoint(const PlotSurface& surface, int group, double px, double py) {
    NearestHit nearest;
    if (!HasPlotArea(surface))
        return nearest;
    const AxisScale scaleX = ScaleX(surface);
    const AxisScale scaleY = ScaleY(surface);
    double best = std::numeric_limits<double>::infinity();
    for (int s = 1; s <= GetSeriesCount(surface, group); ++s) {
        const PlotSeries& series = GetSeries(surface, group, s);
        if (series.display != SeriesDisplay::Shown)
            continue;
        for (std::size_t i = 0; i < series.x.size(); ++i) {
            if (series.x[i] == kHole || series.y[i] == kHole)
                continue;
            const auto atX = scaleX.Pixel(series.x[i]);
            const auto atY = scaleY.Pixel(series.y[i]);
            if (!atX || !atY || !surface.layout.plotArea.Contains(*atX, *atY))
                continue;
            const double distance = std::hypot(*atX - px, *atY - py);
            if (distance < best) {
                best = distance;
                nearest = {s, static_cast<int>(i) + 1, distance};
            }
        }
    }
    return nearest;
}

// --- the marked point

namespace {

/// What lies over the picture is painted without it.
void RepaintOverlay(PlotSurface& surface) {
    if (surface.onRepaint)
        surface.onRepaint();
}

} // namespace

std::vector<int> PointsInFrame(const PlotSurface& surface, int group, int number) {
    const PlotSeries& series = GetSeries(surface, group, number);
    std::vector<int> seen;
    if (series.display != SeriesDisplay::Shown || series.x.empty())
        return seen;
    const ShownAxisRange x = ShownRange(surface, AxisId::X), y = ShownRange(surface, AxisId::Y);
    for (std::size_t i = 0; i < series.x.size(); ++i)
        if (!IsHole(series, static_cast<int>(i) + 1) && x.Shows(series.x[i]) &&
            y.Shows(series.y[i]))
            seen.push_back(static_cast<int>(i) + 1);
    return seen;
}

std::optional<SeriesPoint> ShownCursor(const PlotSurface& surface) {
    if (!surface.cursor || surface.cursor->series < 1 ||
        surface.cursor->series > GetSeriesCount(surface, surface.cursor->group))
        return std::nullopt;
    const std::vector<int> seen =
        PointsInFrame(surface, surface.cursor->group, surface.cursor->series);
    return std::ranges::binary_search(seen, surface.cursor->point) ? surface.cursor : std::nullopt;
}

void SetCursor(PlotSurface& surface, const std::optional<SeriesPoint>& point) {
    if (surface.cursor == point)
        return;
    surface.cursor = point;
    RepaintOverlay(surface);
}

// --- zoom

namespace {

DataPoint IntoPlotArea(const PlotSurface& surface, double px, double py) {
    const PixelRect& area = surface.layout.plotArea;
    return {std::clamp(px, area.left, area.left + area.width),
            std::clamp(py, area.top, area.top + area.height)};
}

} // namespace

void StartRubberZoom(PlotSurface& surface) {
    surface.rubber = {.armed = true};
}

void RubberDown(PlotSurface& surface, double px, double py) {
    if (!surface.rubber.armed || !HasPlotArea(surface))
        return;
    const DataPoint at = IntoPlotArea(surface, px, py);
    surface.rubber = {.armed = true,
                      .dragging = true,
                      .startX = at.x,
                      .startY = at.y,
                      .endX = at.x,
                      .endY = at.y};
}

void RubberMove(PlotSurface& surface, double px, double py) {
    if (!surface.rubber.dragging)
        return;
    const DataPoint at = IntoPlotArea(surface, px, py);
    surface.rubber.endX = at.x;
    surface.rubber.endY = at.y;
    RepaintOverlay(surface);
}

bool RubberUp(PlotSurface& surface, double px, double py) {
    if (!surface.rubber.dragging)
        return false;
    RubberMove(surface, px, py);
    const RubberZoom drawn = surface.rubber;
    surface.rubber = {};
    if (std::abs(drawn.endX - drawn.startX) < kSmallestZoom ||
        std::abs(drawn.endY - drawn.startY) < kSmallestZoom) {
        RepaintOverlay(surface);
        return false;
    }
    const AxisScale scaleX = ScaleX(surface);
    const AxisScale scaleY = ScaleY(surface);
    const double left = scaleX.Value(std::min(drawn.startX, drawn.endX));
    const double right = scaleX.Value(std::max(drawn.startX, drawn.endX));
    const double lower = scaleY.Value(std::max(drawn.startY, drawn.endY));
    const double upper = scaleY.Value(std::min(drawn.startY, drawn.endY));
    const PlotBatch batch(surface);
    ShowRange(surface, AxisId::X, left, right);
    ShowRange(surface, AxisId::Y, lower, upper);
    ShowRange(surface, AxisId::Y2, lower, upper);
    MarkChanged(surface);
    return true;
}

void CancelRubberZoom(PlotSurface& surface) {
    const bool drawn = surface.rubber.dragging;
    surface.rubber = {};
    if (drawn)
        RepaintOverlay(surface);
}

void ResetZoom(PlotSurface& surface) {
    const PlotBatch batch(surface);
    for (const AxisId axis : {AxisId::X, AxisId::Y, AxisId::Y2}) {
        const PlotAxis& a = GetAxis(surface, axis);
        ShowRange(surface, axis, a.dataMin, a.dataMax);
    }
}

} // namespace zorvant
