#include "diagrams/plot_extent.h"

#include "diagrams/plot_axes.h"
#include "diagrams/plot_hits.h"
#include "diagrams/plot_series.h"
#include "engine/arithmetic.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace zorvant {
namespace {

constexpr double kMarginShare = 0.05;
/// A smallest value below this share of the largest one: the axis begins at 0.
constexpr double kNearZero = 0.3;
constexpr double kCornerGap = 8; // pixels between a legend and the frame

struct Ends {
    double least = std::numeric_limits<double>::infinity();
    double most = -std::numeric_limits<double>::infinity();
    void Take(double value) {
        least = std::min(least, value);
        most = std::max(most, value);
    }
};

Range Widened(const Ends& ends, bool log) {
    if (log)
        return {NearestSingle(ends.least), NearestSingle(ends.most)};
    double margin = (ends.most - ends.least) * kMarginShare;
    if (margin == 0)
        margin = ends.most == 0 ? 1 : std::abs(ends.most) * kMarginShare;
    double lower = ends.least - margin, upper = ends.most + margin;
    if (ends.least >= 0 && ends.least <= kNearZero * ends.most)
        lower = 0;
    if (ends.most <= 0 && ends.most >= kNearZero * ends.least)
        upper = 0;
    return {NearestSingle(lower), NearestSingle(upper)};
}

/// Calls `take` for each point that is shown.
template <class Take> void EachPoint(const PlotSurface& surface, Take take) {
    for (const auto& [group, last] : {std::pair(kLines, kCurveSlots), {kPoints, kPointSets}})
        for (int number = 1; number <= last; ++number) {
            const PlotSeries& series = GetSeries(surface, group, number);
            if (series.display != SeriesDisplay::Shown)
                continue;
            for (std::size_t i = 0; i < series.x.size(); ++i)
                if (!IsHole(series, static_cast<int>(i) + 1))
                    take(series.x[i], series.y[i]);
        }
}

} // namespace

std::optional<PlotExtent> ExtentOfAll(const PlotSurface& surface) {
    const bool logX = GetAxisLog(surface, AxisId::X), logY = GetAxisLog(surface, AxisId::Y);
    Ends x, y;
    EachPoint(surface, [&](double atX, double atY) {
        if ((logX && !(atX > 0)) || (logY && !(atY > 0)))
            return;
        x.Take(atX);
        y.Take(atY);
    });
    if (!(x.least <= x.most))
        return std::nullopt;
    return PlotExtent{Widened(x, logX), Widened(y, logY)};
}

DataPoint FreeCorner(const PlotSurface& surface, double width, double height) {
    const PixelRect& area = surface.layout.plotArea;
    const double left = area.left + kCornerGap, top = area.top + kCornerGap;
    const double right = area.left + area.width - width - kCornerGap;
    const double bottom = area.top + area.height - height - kCornerGap;
    const double midX = (left + right) / 2, midY = (top + bottom) / 2;
    const std::array<DataPoint, 8> places{{{right, top},
                                           {left, top},
                                           {right, bottom},
                                           {left, bottom},
                                           {midX, top},
                                           {right, midY},
                                           {midX, bottom},
                                           {left, midY}}};
    std::array<int, 8> hidden{};
    EachPoint(surface, [&](double x, double y) {
        const auto at = DataToPixel(surface, x, y);
        for (std::size_t i = 0; at && i < places.size(); ++i) {
            const PixelRect rect{places[i].x - kCornerGap / 2, places[i].y - kCornerGap / 2,
                                 width + kCornerGap, height + kCornerGap};
            hidden[i] += rect.Contains(at->x, at->y) ? 1 : 0;
        }
    });
    const auto best = std::ranges::min_element(hidden) - hidden.begin();
    return places[static_cast<std::size_t>(best)];
}

} // namespace zorvant
