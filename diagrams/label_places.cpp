#include "diagrams/label_places.h"

#include "diagrams/plot_labels.h"
#include "diagrams/plot_marks.h"
#include "diagrams/plot_series.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace zorvant {
namespace {

// Lengths are shares of the height of the plot area.
constexpr double kAspect = 1.6;      ///< of a usual plot area, width to height
constexpr double kEnough = 0.15;     ///< a curve that is farther away than this does not disturb
constexpr double kLabelApart = 0.12; ///< nor does a label
constexpr double kEdgeShare = 0.06;  ///< of the width: a label needs room beside its point
constexpr int kCandidates = 48;      ///< points of a curve that are looked at
constexpr int kSamples = 150;        ///< points of the other curves that they are held against
/// Between equally good places the one nearest to this share of the width is taken.
constexpr double kPreferredPlace = 0.72;
constexpr double kPreference = 0.02;

struct Place {
    double x, y;
    int point;
};

/// Where a value stands along an axis, as a share of it.
std::optional<double> ShareOf(const ShownAxisRange& range, double value) {
    if (!range.Shows(value))
        return std::nullopt;
    return range.log ? std::log(value / range.min) / std::log(range.max / range.min)
                     : (value - range.min) / (range.max - range.min);
}

/// The points of a curve that can be seen, thinned out.
std::vector<Place> Places(const PlotSurface& surface, int slot, int most) {
    const PlotSeries& series = GetSeries(surface, kLines, slot);
    const ShownAxisRange rangeX = ShownRange(surface, AxisId::X);
    const ShownAxisRange rangeY = ShownRange(surface, AxisId::Y);
    std::vector<Place> seen;
    if (series.display != SeriesDisplay::Shown)
        return seen;
    for (std::size_t i = 0; i < series.x.size(); ++i) {
        const int point = static_cast<int>(i) + 1;
        if (IsHole(series, point))
            continue;
        const auto x = ShareOf(rangeX, series.x[i]), y = ShareOf(rangeY, series.y[i]);
        if (x && y)
            seen.push_back({*x * kAspect, *y, point});
    }
    std::vector<Place> thinned;
    const auto stride = std::max<std::size_t>(1, seen.size() / static_cast<std::size_t>(most));
    for (std::size_t i = 0; i < seen.size(); i += stride)
        thinned.push_back(seen[i]);
    return thinned;
}

double Apart(const Place& one, const Place& other) {
    return std::hypot(one.x - other.x, one.y - other.y);
}

double NearestOf(const Place& place, const std::vector<Place>& others) {
    double nearest = kEnough * kEnough; // squared, until the end
    for (const Place& other : others) {
        const double dx = place.x - other.x, dy = place.y - other.y;
        nearest = std::min(nearest, dx * dx + dy * dy);
    }
    return std::sqrt(nearest);
}

/// How well a label stands at a place: far from other curves and other labels, not at an edge.
double Worth(const Place& place, int slot, const std::vector<std::vector<Place>>& curves,
             const std::vector<Place>& labels) {
    double toCurves = kEnough, toLabels = kLabelApart;
    for (std::size_t other = 1; other < curves.size(); ++other)
        if (static_cast<int>(other) != slot)
            toCurves = std::min(toCurves, NearestOf(place, curves[other]));
    for (const Place& label : labels)
        toLabels = std::min(toLabels, Apart(place, label));
    const double share = place.x / kAspect;
    const double edge = std::min({share, 1 - share, kEdgeShare}) / kEdgeShare;
    return toCurves + toLabels + 0.1 * edge - kPreference * std::abs(share - kPreferredPlace);
}

} // namespace

void PlaceCurveLabels(PlotSurface& surface, const std::array<bool, kCurveSlots + 1>& fixed) {
    std::vector<std::vector<Place>> curves(1), candidates(1);
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        curves.push_back(Places(surface, slot, kSamples));
        candidates.push_back(Places(surface, slot, kCandidates));
    }
    std::vector<Place> labels;
    const PlotBatch batch(surface);
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        const std::vector<Place>& places = candidates[static_cast<std::size_t>(slot)];
        if (places.empty() || fixed[static_cast<std::size_t>(slot)])
            continue;
        const Place* best = nullptr;
        double most = 0;
        for (const Place& place : places) {
            const double worth = Worth(place, slot, curves, labels);
            if (best == nullptr || worth > most) {
                best = &place;
                most = worth;
            }
        }
        labels.push_back(*best);
        AttachLabelToPoint(surface, slot, kLines, slot, best->point);
    }
}

} // namespace zorvant
