#include "dialogs/diagram/diagram_walk.h"

#include "dialogs/diagram/diagram_curves.h"
#include "dialogs/diagram/diagram_mouse.h"
#include "dialogs/diagram/diagram_points.h"

#include <algorithm>
#include <limits>

namespace zorvant {
namespace {

struct Walkable {
    int group, series;
    std::vector<int> points;
};

std::vector<Walkable> WalkableSeries(const PlotSurface& surface) {
    std::vector<Walkable> list;
    for (const auto& [group, last] : {std::pair(kLines, kCurveSlots), {kPoints, kPointSets}})
        for (int series = 1; series <= last; ++series)
            if (auto points = PointsInFrame(surface, group, series); !points.empty())
                list.push_back({group, series, std::move(points)});
    return list;
}

/// The place in `list` of what is selected; the first where that can't be seen.
std::size_t PlaceOf(const std::vector<Walkable>& list, const SeriesPoint& selected) {
    const auto found = std::ranges::find_if(list, [&](const Walkable& walkable) {
        return walkable.group == selected.group && walkable.series == selected.series;
    });
    return found == list.end() ? 0 : static_cast<std::size_t>(found - list.begin());
}

/// The place among the seen points of the one that a key leads to.
std::size_t NextPlace(const std::vector<int>& points, int present, ChartKey key) {
    const auto at = std::ranges::lower_bound(points, present);
    const auto last = static_cast<std::ptrdiff_t>(points.size()) - 1;
    std::ptrdiff_t place = std::min(at - points.begin(), last);
    const bool none = present < 1;
    switch (key) {
    case ChartKey::Left:
        place = none ? last : place - 1;
        break;
    case ChartKey::Right:
        place = none ? 0 : place + 1;
        break;
    case ChartKey::PageUp:
        place = none ? last : place - kWalkStride;
        break;
    case ChartKey::PageDown:
        place = none ? 0 : place + kWalkStride;
        break;
    case ChartKey::Home:
        place = 0;
        break;
    case ChartKey::End:
        place = last;
        break;
    default:
        break;
    }
    return static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(place, 0, last));
}

/// The seen point of a series whose x is nearest.
int NearestInX(const PlotSurface& surface, const Walkable& walkable, double x) {
    int nearest = walkable.points.front();
    double least = std::numeric_limits<double>::infinity();
    for (const int point : walkable.points) {
        const double away = std::abs(GetX(surface, walkable.group, walkable.series, point) - x);
        if (away < least) {
            least = away;
            nearest = point;
        }
    }
    return nearest;
}

void ShowPanelPage(DiagramDocument& doc, int group, int series) {
    TabPanel& panel = group == kLines ? doc.tabKurven : doc.tabPunkte;
    if (panel.pages.at(static_cast<std::size_t>(series - 1)).visible)
        panel.selected = series - 1;
}

void OpenDesign(Workspace& ps, DiagramDocument& doc, int group, int series) {
    if (group == kLines)
        mnuKurvenDesign_Click(ps, doc);
    else
        mnuPunktDesign_Click(ps, doc);
    ShowPanelPage(doc, group, series);
}

/// Deletes the marked point of a curve when the user agrees.
/// Returned: the point that is marked then, at the same place or nearest to it; 0: none
int DeletePoint(Workspace& ps, DiagramDocument& doc) {
    const std::optional<SeriesPoint> at = ShownCursor(doc.surface);
    if (!at || at->group != kLines)
        return 0;
    FuPunktLoeschen(ps, doc, at->series, at->point);
    const std::vector<int> left = PointsInFrame(doc.surface, kLines, at->series);
    if (left.empty()) {
        SetCursor(doc.surface, std::nullopt);
        return 0;
    }
    return *std::ranges::min_element(left, {},
                                     [&](int point) { return std::abs(point - at->point); });
}

} // namespace

void SelectSeries(DiagramDocument& doc, int group, int series, int point) {
    doc.selected = {group, series, point};
}

bool KeyOnChart(Workspace& ps, DiagramDocument& doc, ChartKey key) {
    PlotSurface& surface = doc.surface;
    const std::vector<Walkable> list = WalkableSeries(surface);
    if (list.empty())
        return false;
    std::size_t place = PlaceOf(list, doc.selected);
    const bool same =
        list[place].group == doc.selected.group && list[place].series == doc.selected.series;
    const int present = same ? doc.selected.point : 0;

    int point = 0;
    if (key == ChartKey::Design) {
        OpenDesign(ps, doc, list[place].group, list[place].series);
        return true;
    }
    if (key == ChartKey::Delete) {
        point = DeletePoint(ps, doc);
        if (point < 1)
            return false;
    } else if ((key == ChartKey::Up || key == ChartKey::Down) && present > 0) {
        const double x = GetX(surface, list[place].group, list[place].series, present);
        const std::size_t step = key == ChartKey::Down ? 1 : list.size() - 1;
        place = (place + step) % list.size();
        point = NearestInX(surface, list[place], x);
    } else {
        point = list[place].points[NextPlace(list[place].points, present, key)];
    }
    SelectSeries(doc, list[place].group, list[place].series, point);
    SetCursor(surface, doc.selected);
    ReadOutPoint(doc, doc.selected);
    ShowPanelPage(doc, doc.selected.group, doc.selected.series);
    return true;
}

std::string SpokenReadout(const DiagramDocument& doc) {
    const auto [group, series, point] = doc.selected;
    if (series < 1 || !doc.lblMausPos.visible)
        return {};
    std::string name = GetSeriesLabel(doc.surface, group, series);
    name.erase(name.find_last_not_of(' ') + 1);
    std::string spoken = group == kLines ? "curve " : "point set ";
    spoken += std::to_string(series);
    if (!name.empty())
        spoken += ", " + name;
    return spoken + ":" + doc.lblMausPos.text;
}

} // namespace zorvant
