#include "diagrams/plot_labels.h"

#include "diagrams/plot_changes.h"
#include "diagrams/plot_series.h"

#include <algorithm>

namespace zorvant {
namespace {

PlotLabel& MutableLabel(PlotSurface& surface, int label) {
    return surface.labels.at(PlotIndex(label));
}

} // namespace

int AddLabel(PlotSurface& surface, const PlotLabel& label) {
    if (surface.labels.empty())
        surface.labels.emplace_back();
    surface.labels.push_back(label);
    MarkChanged(surface);
    return static_cast<int>(surface.labels.size()) - 1;
}

const PlotLabel& GetLabel(const PlotSurface& surface, int label) {
    return surface.labels.at(PlotIndex(label));
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
                return DataPoint{GetX(surface, l.group, l.series, point),
                                 GetY(surface, l.group, l.series, point)};
    return std::nullopt;
}

} // namespace zorvant
