#include "diagrams/plot_surface.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace zorvant {
namespace {

std::size_t Index(int number) {
    if (number < 1)
        throw std::out_of_range("numbers of series, points and labels start at 1");
    return static_cast<std::size_t>(number);
}

std::vector<PlotSeries>& Group(PlotSurface& surface, int group) {
    return surface.series.at(Index(group));
}

PlotSeries& Series(PlotSurface& surface, int group, int series) {
    return Group(surface, group).at(Index(series));
}

std::size_t PointIndex(int point) {
    return Index(point) - 1;
}

double FiniteOrHole(double value) {
    return std::isfinite(value) ? value : kHole;
}

bool Held(const PlotSurface& surface) {
    return surface.batchDepth > 0;
}

void Repaint(PlotSurface& surface) {
    surface.changed = false;
    ++surface.revision;
    if (surface.onRepaint)
        surface.onRepaint();
}

void MarkDataChanged(PlotSurface& surface, int group) {
    surface.changed = true;
    if (!Held(surface) && surface.groupBatchDepth.at(Index(group)) == 0)
        Repaint(surface);
}

template <class T> void Assign(PlotSurface& surface, T& target, const T& value) {
    if (target == value)
        return;
    target = value;
    MarkChanged(surface);
}

void RepaintWhenReleased(PlotSurface& surface) {
    const bool groupsFree =
        std::ranges::all_of(surface.groupBatchDepth, [](int depth) { return depth == 0; });
    if (surface.changed && !Held(surface) && groupsFree)
        Repaint(surface);
}

PlotLabel& MutableLabel(PlotSurface& surface, int label) {
    return surface.labels.at(Index(label));
}

} // namespace

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
    ++surface.groupBatchDepth.at(Index(group));
}

void EndBatch(PlotSurface& surface, int group) {
    int& depth = surface.groupBatchDepth.at(Index(group));
    depth = std::max(0, depth - 1);
    RepaintWhenReleased(surface);
}

// --- series

void SetSeriesCount(PlotSurface& surface, int group, int count) {
    Group(surface, group).resize(static_cast<std::size_t>(std::max(0, count)) + 1);
    MarkDataChanged(surface, group);
}

int GetSeriesCount(const PlotSurface& surface, int group) {
    const auto& list = surface.series.at(Index(group));
    return list.empty() ? 0 : static_cast<int>(list.size()) - 1;
}

const PlotSeries& GetSeries(const PlotSurface& surface, int group, int series) {
    return surface.series.at(Index(group)).at(Index(series));
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

// --- texts, legend, areas

void SetHeader(PlotSurface& surface, const std::string& text) {
    Assign(surface, surface.header.text, text);
}

void SetFooter(PlotSurface& surface, const std::string& text) {
    Assign(surface, surface.footer.text, text);
}

void SetHeader(PlotSurface& surface, const TextBlock& block) {
    Assign(surface, surface.header, block);
}

void SetFooter(PlotSurface& surface, const TextBlock& block) {
    Assign(surface, surface.footer, block);
}

void SetLegend(PlotSurface& surface, const PlotLegend& legend) {
    Assign(surface, surface.legend, legend);
}

void SetLegendVisible(PlotSurface& surface, bool visible) {
    Assign(surface, surface.legend.visible, visible);
}

void SetPlotAreaMargins(PlotSurface& surface, const Margins& margins) {
    Assign(surface, surface.margins, margins);
}

void SetPlotAreaFrame(PlotSurface& surface, bool shown, int width) {
    const PlotBatch batch(surface);
    Assign(surface, surface.plotAreaFrame, shown);
    Assign(surface, surface.plotAreaFrameWidth, width);
}

void SetChartAreaBox(PlotSurface& surface, const ChartAreaBox& box) {
    Assign(surface, surface.chartAreaBox, box);
}

void SetChartBorder(PlotSurface& surface, const Border& border) {
    Assign(surface, surface.chartBorder, border);
}

void SetChartColours(PlotSurface& surface, const Colours& colours) {
    Assign(surface, surface.chart, colours);
}

void SetChartAreaColours(PlotSurface& surface, const Colours& colours) {
    Assign(surface, surface.chartArea, colours);
}

void SetPlotAreaColours(PlotSurface& surface, const Colours& colours) {
    Assign(surface, surface.plotArea, colours);
}

const Colours& PlotGround(const PlotSurface& surface) {
    if (!surface.plotArea.transparent)
        return surface.plotArea;
    return surface.chartArea.transparent ? surface.chart : surface.chartArea;
}

const Colours& LegendGround(const PlotSurface& surface) {
    return surface.legend.colours.transparent ? surface.chart : surface.legend.colours;
}

Colour SeenOn(const Colours& ground, Colour colour) {
    return colour == ground.back ? ground.fore : colour;
}

// --- labels

int AddLabel(PlotSurface& surface, const PlotLabel& label) {
    if (surface.labels.empty())
        surface.labels.emplace_back();
    surface.labels.push_back(label);
    MarkChanged(surface);
    return static_cast<int>(surface.labels.size()) - 1;
}

const PlotLabel& GetLabel(const PlotSurface& surface, int label) {
    return surface.labels.at(Index(label));
}

void SetLabelText(PlotSurface& surface, int label, const std::string& text) {
    Assign(surface, MutableLabel(surface, label).text, text);
}

void SetLabelVisible(PlotSurface& surface, int label, bool on) {
    Assign(surface, MutableLabel(surface, label).visible, on);
}

int AttachLabelToPoint(PlotSurface& surface, int label, int group, int series, int point) {
    PlotLabel attached = MutableLabel(surface, label);
    const int last = std::max(1, GetPointCount(surface, group, series));
    attached.attachment = Attachment::Point;
    attached.group = group;
    attached.series = series;
    attached.point = std::clamp(point, 1, last);
    Assign(surface, MutableLabel(surface, label), attached);
    return attached.point;
}

void AttachLabelToCoord(PlotSurface& surface, int label, double x, double y) {
    PlotLabel attached = MutableLabel(surface, label);
    attached.attachment = Attachment::Coord;
    attached.x = FiniteOrHole(x);
    attached.y = FiniteOrHole(y);
    Assign(surface, MutableLabel(surface, label), attached);
}

void SetLabelOffset(PlotSurface& surface, int label, int pixels) {
    Assign(surface, MutableLabel(surface, label).offset, pixels);
}

void SetLabelAnchor(PlotSurface& surface, int label, LabelAnchor anchor) {
    Assign(surface, MutableLabel(surface, label).anchor, anchor);
}

void SetLabelFont(PlotSurface& surface, int label, const FontChoice& font) {
    Assign(surface, MutableLabel(surface, label).font, font);
}

void SetLabelColours(PlotSurface& surface, int label, const Colours& colours) {
    Assign(surface, MutableLabel(surface, label).colours, colours);
}

void SetLabelBorder(PlotSurface& surface, int label, const Border& border) {
    Assign(surface, MutableLabel(surface, label).border, border);
}

std::optional<DataPoint> LabelPosition(const PlotSurface& surface, int label) {
    const PlotLabel& l = GetLabel(surface, label);
    if (!l.visible || l.attachment == Attachment::None)
        return std::nullopt;
    if (l.attachment == Attachment::Coord)
        return l.x == kHole || l.y == kHole ? std::nullopt
                                            : std::optional<DataPoint>({.x = l.x, .y = l.y});
    const PlotSeries& series = GetSeries(surface, l.group, l.series);
    const int count = static_cast<int>(series.x.size());
    if (count == 0 || series.display != SeriesDisplay::Shown)
        return std::nullopt;
    const int wanted = std::clamp(l.point, 1, count);
    for (int away = 0; away < count; ++away)
        for (const int point : {wanted + away, wanted - away})
            if (point >= 1 && point <= count && !IsHole(series, point))
                return DataPoint{series.x[PointIndex(point)], series.y[PointIndex(point)]};
    return std::nullopt;
}

} // namespace zorvant
