#include "diagrams/chart_walk.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zorvant {
namespace {

struct SeenSeries {
    int group, series;
    std::vector<int> points;
};

std::vector<SeenSeries> ListSeen(const PlotSurface& surface) {
    std::vector<SeenSeries> list;
    for (const auto& [group, last] : {std::pair(kLines, kCurveSlots), {kPoints, kPointSets}})
        for (int series = 1; series <= last; ++series)
            if (auto points = PointsInFrame(surface, group, series); !points.empty())
                list.push_back({group, series, std::move(points)});
    return list;
}

/// The place in `list` of what is selected; the first where that can't be seen.
std::size_t PlaceOf(const std::vector<SeenSeries>& list, const SeriesPoint& selected) {
    const auto found = std::ranges::find_if(list, [&](const SeenSeries& seen) {
        return seen.group == selected.group && seen.series == selected.series;
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
int NearestInX(const PlotSurface& surface, const SeenSeries& seen, double x) {
    int nearest = seen.points.front();
    double least = std::numeric_limits<double>::infinity();
    for (const int point : seen.points) {
        const double away = std::abs(GetX(surface, seen.group, seen.series, point) - x);
        if (away < least) {
            least = away;
            nearest = point;
        }
    }
    return nearest;
}

bool SameSeries(const SeenSeries& seen, const SeriesPoint& at) {
    return seen.group == at.group && seen.series == at.series;
}

} // namespace

std::optional<SeriesPoint> Walkable(const PlotSurface& surface, const SeriesPoint& selected) {
    const std::vector<SeenSeries> list = ListSeen(surface);
    if (list.empty())
        return std::nullopt;
    const SeenSeries& present = list[PlaceOf(list, selected)];
    return SeriesPoint{present.group, present.series,
                       SameSeries(present, selected) ? selected.point : 0};
}

std::optional<SeriesPoint> StepOnChart(const PlotSurface& surface, const SeriesPoint& selected,
                                       ChartKey key) {
    const std::vector<SeenSeries> list = ListSeen(surface);
    if (list.empty())
        return std::nullopt;
    std::size_t place = PlaceOf(list, selected);
    const int present = SameSeries(list[place], selected) ? selected.point : 0;
    int point = 0;
    if ((key == ChartKey::Up || key == ChartKey::Down) && present > 0) {
        const double x = GetX(surface, list[place].group, list[place].series, present);
        const std::size_t step = key == ChartKey::Down ? 1 : list.size() - 1;
        place = (place + step) % list.size();
        point = NearestInX(surface, list[place], x);
    } else {
        point = list[place].points[NextPlace(list[place].points, present, key)];
    }
    return SeriesPoint{list[place].group, list[place].series, point};
}

int NearestNumber(const PlotSurface& surface, int group, int series, int point) {
    const std::vector<int> seen = PointsInFrame(surface, group, series);
    const auto away = [&](int other) { return std::abs(other - point); };
    return seen.empty() ? 0 : *std::ranges::min_element(seen, {}, away);
}

} // namespace zorvant
