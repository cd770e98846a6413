#include "diagrams/plot_series.h"

#include "diagrams/plot_changes.h"

#include <algorithm>
#include <cmath>

namespace zorvant {
namespace {

std::vector<PlotSeries>& Group(PlotSurface& surface, int group) {
    return surface.series.at(PlotIndex(group));
}

PlotSeries& Series(PlotSurface& surface, int group, int series) {
    return Group(surface, group).at(PlotIndex(series));
}

std::size_t PointIndex(int point) {
    return PlotIndex(point) - 1;
}

} // namespace

void SetSeriesCount(PlotSurface& surface, int group, int count) {
    Group(surface, group).resize(static_cast<std::size_t>(std::max(0, count)) + 1);
    MarkDataChanged(surface, group);
}

int GetSeriesCount(const PlotSurface& surface, int group) {
    const auto& list = surface.series.at(PlotIndex(group));
    return list.empty() ? 0 : static_cast<int>(list.size()) - 1;
}

const PlotSeries& GetSeries(const PlotSurface& surface, int group, int series) {
    return surface.series.at(PlotIndex(group)).at(PlotIndex(series));
}

void SetPointCount(PlotSurface& surface, int group, int series, int count) {
    PlotSeries& s = Series(surface, group, series);
    const auto size = static_cast<std::size_t>(std::max(0, count));
    if (s.x.size() == size)
        return;
    s.x.resize(size, kHole);
    s.y.resize(size, kHole);
    MarkDataChanged(surface, group);
}

int GetPointCount(const PlotSurface& surface, int group, int series) {
    return static_cast<int>(GetSeries(surface, group, series).x.size());
}

void SetX(PlotSurface& surface, int group, int series, int point, double x) {
    Series(surface, group, series).x.at(PointIndex(point)) = FiniteOrHole(x);
    MarkDataChanged(surface, group);
}

void SetY(PlotSurface& surface, int group, int series, int point, double y) {
    Series(surface, group, series).y.at(PointIndex(point)) = FiniteOrHole(y);
    MarkDataChanged(surface, group);
}

double GetX(const PlotSurface& surface, int group, int series, int point) {
    return GetSeries(surface, group, series).x.at(PointIndex(point));
}

double GetY(const PlotSurface& surface, int group, int series, int point) {
    return GetSeries(surface, group, series).y.at(PointIndex(point));
}

void SetPoints(PlotSurface& surface, int group, int series, std::vector<double> x,
               std::vector<double> y) {
    PlotSeries& s = Series(surface, group, series);
    const std::size_t size = std::min(x.size(), y.size());
    x.resize(size);
    y.resize(size);
    std::ranges::transform(x, x.begin(), FiniteOrHole);
    std::ranges::transform(y, y.begin(), FiniteOrHole);
    s.x = std::move(x);
    s.y = std::move(y);
    MarkDataChanged(surface, group);
}

bool IsHole(const PlotSeries& series, int point) {
    const std::size_t i = PointIndex(point);
    return series.x.at(i) == kHole || series.y.at(i) == kHole;
}

void SetSeriesDisplay(PlotSurface& surface, int group, int series, SeriesDisplay mode) {
    Assign(surface, Series(surface, group, series).display, mode);
}

void SetSeriesLabel(PlotSurface& surface, int group, int series, const std::string& text) {
    Assign(surface, Series(surface, group, series).label, text);
}

const std::string& GetSeriesLabel(const PlotSurface& surface, int group, int series) {
    return GetSeries(surface, group, series).label;
}

void ClearSeriesLabels(PlotSurface& surface, int group) {
    const PlotBatch batch(surface);
    for (int s = 1; s <= GetSeriesCount(surface, group); ++s)
        SetSeriesLabel(surface, group, s, "");
}

void SetLineStyle(PlotSurface& surface, int group, int series, const LineStyle& style) {
    Assign(surface, Series(surface, group, series).line, style);
}

void SetLineColour(PlotSurface& surface, int group, int series, Colour colour) {
    Assign(surface, Series(surface, group, series).line.colour, colour);
}

const LineStyle& GetLineStyle(const PlotSurface& surface, int group, int series) {
    return GetSeries(surface, group, series).line;
}

void SetSymbol(PlotSurface& surface, int group, int series, const SymbolStyle& style) {
    Assign(surface, Series(surface, group, series).symbol, style);
}

void SetSymbolColour(PlotSurface& surface, int group, int series, Colour colour) {
    Assign(surface, Series(surface, group, series).symbol.colour, colour);
}

const SymbolStyle& GetSymbol(const PlotSurface& surface, int group, int series) {
    return GetSeries(surface, group, series).symbol;
}

std::vector<LegendLine> LegendLines(const PlotSurface& surface) {
    std::vector<LegendLine> lines;
    for (const int group : {kLines, kPoints})
        for (int s = 1; s <= GetSeriesCount(surface, group); ++s) {
            const PlotSeries& series = GetSeries(surface, group, s);
            if (series.display == SeriesDisplay::Shown && !series.x.empty() &&
                !series.label.empty())
                lines.push_back({group, s});
        }
    return lines;
}

bool AnyLegendText(const PlotSurface& surface) {
    for (const auto& [group, last] : {std::pair(kLines, kCurveSlots), {kPoints, kPointSets}})
        for (int series = 1; series <= last; ++series)
            if (!GetSeriesLabel(surface, group, series).empty())
                return true;
    return false;
}

} // namespace zorvant
