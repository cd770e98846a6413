// Where the labels of curves and marks stand. Each begins at the side of its point that it asks
// for; where that is taken by another label it looks for the free place with the least under it.
#include "shell/qt/plot_layout.h"

#include <QLineF>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace zorvant {
namespace {

constexpr double kPaddingX = 2, kPaddingY = 0.5; ///< points, between text and edge of the box
constexpr double kInset = 1.5; ///< points, least distance from the frame of the plot area
// What it costs a label to stand somewhere: nothing outweighs another label.
constexpr double kCostOfLabel = 1e6, kCostOfSymbol = 40;
constexpr double kCostOfLine = 1.5; ///< per pixel of a line under the box
/// Nearer to another curve than to its own, a label misleads.
constexpr double kCostOfOtherCurve = 35;
/// A label leaves the side that it asks for, or the neighbourhood, only for a much better place.
constexpr double kCostOfOtherSide = 8, kCostOfRing = 12;
constexpr int kRings = 10; ///< how many half heights of its box a label may move away

constexpr std::array<LabelAnchor, 8> kSides{
    LabelAnchor::NorthEast, LabelAnchor::NorthWest, LabelAnchor::SouthEast, LabelAnchor::SouthWest,
    LabelAnchor::North,     LabelAnchor::South,     LabelAnchor::East,      LabelAnchor::West};

/// -1, 0, 1: left of, at, right of the point; above, at, below it.
QPoint Direction(LabelAnchor anchor) {
    switch (anchor) {
    case LabelAnchor::North:
        return {0, -1};
    case LabelAnchor::NorthEast:
        return {1, -1};
    case LabelAnchor::East:
        return {1, 0};
    case LabelAnchor::SouthEast:
        return {1, 1};
    case LabelAnchor::South:
        return {0, 1};
    case LabelAnchor::SouthWest:
        return {-1, 1};
    case LabelAnchor::West:
        return {-1, 0};
    case LabelAnchor::NorthWest:
        return {-1, -1};
    case LabelAnchor::Centre:
        break;
    }
    return {0, 0};
}

QRectF Beside(QPointF point, QSizeF size, LabelAnchor anchor, double offset) {
    const QPoint to = Direction(anchor);
    // On a slant the offset is the distance of the corner, not of each side.
    const double reach = to.x() != 0 && to.y() != 0 ? offset * std::sqrt(0.5) : offset;
    const QPointF centre(point.x() + to.x() * (reach + size.width() / 2),
                         point.y() + to.y() * (reach + size.height() / 2));
    return {centre.x() - size.width() / 2, centre.y() - size.height() / 2, size.width(),
            size.height()};
}

QRectF Inside(QRectF rect, const QRectF& area) {
    if (rect.right() > area.right())
        rect.moveRight(area.right());
    if (rect.left() < area.left())
        rect.moveLeft(area.left());
    if (rect.bottom() > area.bottom())
        rect.moveBottom(area.bottom());
    if (rect.top() < area.top())
        rect.moveTop(area.top());
    return rect;
}

/// What a label had better not cover, in pixels.
struct Obstacle {
    int group, series;
    double reach = 0;             ///< half the size of its symbols
    std::vector<QPointF> symbols; ///< those that are painted
    std::vector<QLineF> line;     ///< its parts near the plot area
};

std::vector<QLineF> LineParts(const PlotSeries& series, const PictureLayout& layout) {
    std::vector<QLineF> parts;
    const AxisScale &x = layout.x.scale, &y = layout.y.scale;
    std::optional<QPointF> before;
    for (std::size_t i = 0; i < series.x.size(); ++i) {
        const bool none = IsHole(series, static_cast<int>(i) + 1) ||
                          (x.range.log && series.x[i] <= 0) || (y.range.log && series.y[i] <= 0);
        if (none) {
            before.reset();
            continue;
        }
        const QPointF at(x.Pixel(series.x[i]), y.Pixel(series.y[i]));
        if (before && (layout.plotArea.contains(at) || layout.plotArea.contains(*before)))
            parts.emplace_back(*before, at);
        before = at;
    }
    return parts;
}

/// A vertical mark, which runs through the whole plot area, in pieces as short as labels are high.
std::vector<QLineF> MarkParts(const PlotSeries& mark, const PictureLayout& layout) {
    constexpr double kPiece = 8; // pixels
    std::vector<QLineF> parts;
    const double x = layout.x.scale.Pixel(mark.x.front());
    if (!layout.x.scale.Shows(mark.x.front()))
        return parts;
    for (double y = layout.plotArea.top(); y < layout.plotArea.bottom(); y += kPiece)
        parts.emplace_back(x, y, x, std::min(y + kPiece, layout.plotArea.bottom()));
    return parts;
}

std::vector<Obstacle> Obstacles(const PlotSurface& surface, const PictureLayout& layout) {
    std::vector<Obstacle> obstacles;
    for (const int group : {kLines, kPoints}) {
        for (int number = 1; number <= GetSeriesCount(surface, group); ++number) {
            const PlotSeries& series = GetSeries(surface, group, number);
            if (series.display != SeriesDisplay::Shown || series.x.empty())
                continue;
            Obstacle obstacle{.group = group, .series = number, .symbols = {}, .line = {}};
            const bool mark = group == kLines && number >= kHalfLifeASeries;
            if (series.line.pattern != LinePattern::None)
                obstacle.line = mark ? MarkParts(series, layout) : LineParts(series, layout);
            if (series.symbol.shape != SymbolShape::Hidden) {
                obstacle.reach = series.symbol.size / 2.0;
                for (std::size_t i = 0; i < series.x.size(); ++i)
                    if (!IsHole(series, static_cast<int>(i) + 1) &&
                        layout.x.scale.Shows(series.x[i]) && layout.y.scale.Shows(series.y[i]))
                        obstacle.symbols.emplace_back(layout.x.scale.Pixel(series.x[i]),
                                                      layout.y.scale.Pixel(series.y[i]));
            }
            obstacles.push_back(std::move(obstacle));
        }
    }
    return obstacles;
}

double Overlap(const QRectF& one, const QRectF& other) {
    const QRectF common = one.intersected(other);
    return common.width() * common.height();
}

/// Roughly how long a line runs under a box.
double LengthInside(const QLineF& line, const QRectF& rect) {
    constexpr int kSteps = 8;
    const QRectF bounds = QRectF(line.p1(), line.p2()).normalized().adjusted(-1, -1, 1, 1);
    if (!bounds.intersects(rect))
        return 0;
    int inside = 0;
    for (int i = 0; i < kSteps; ++i)
        inside += rect.contains(line.pointAt((i + 0.5) / kSteps)) ? 1 : 0;
    return line.length() * inside / kSteps;
}

double Distance(const QLineF& line, QPointF point) {
    const QPointF along = line.p2() - line.p1();
    const double length = QPointF::dotProduct(along, along);
    const double share =
        length > 0 ? std::clamp(QPointF::dotProduct(point - line.p1(), along) / length, 0.0, 1.0)
                   : 0;
    const QPointF apart = point - line.pointAt(share);
    return std::hypot(apart.x(), apart.y());
}

double Cost(const QRectF& rect, const PlotLabel& label, const std::vector<TextBox>& placed,
            const std::optional<LegendLayout>& legend, const std::vector<Obstacle>& obstacles) {
    double cost = 0;
    for (const TextBox& other : placed)
        if (rect.intersects(other.rect))
            cost += kCostOfLabel + Overlap(rect, other.rect);
    if (legend && rect.intersects(legend->rect))
        cost += kCostOfLabel;
    // Lines farther away than this can neither be covered nor mislead.
    const QRectF around =
        rect.adjusted(-rect.height(), -rect.height(), rect.height(), rect.height());
    double toOwn = std::numeric_limits<double>::max(), toOther = toOwn;
    for (const Obstacle& obstacle : obstacles) {
        const bool own = label.attachment == Attachment::Point && label.group == obstacle.group &&
                         label.series == obstacle.series;
        double& nearest = own ? toOwn : toOther;
        for (const QLineF& line : obstacle.line) {
            if (!around.contains(line.p1()) && !around.contains(line.p2()))
                continue;
            cost += kCostOfLine * LengthInside(line, rect);
            nearest = std::min(nearest, Distance(line, rect.center()));
        }
        const QRectF near =
            rect.adjusted(-obstacle.reach, -obstacle.reach, obstacle.reach, obstacle.reach);
        for (const QPointF& symbol : obstacle.symbols)
            if (near.contains(symbol))
                cost += kCostOfSymbol;
    }
    if (label.attachment == Attachment::Point && toOther < toOwn)
        cost += kCostOfOtherCurve;
    return cost;
}

QRectF BestPlace(QPointF point, QSizeF size, const PlotLabel& label, const QRectF& area,
                 const std::vector<TextBox>& placed, const std::optional<LegendLayout>& legend,
                 const std::vector<Obstacle>& obstacles) {
    QRectF best = Inside(Beside(point, size, label.anchor, label.offset), area);
    double least = Cost(best, label, placed, legend, obstacles);
    for (int ring = 0; ring <= kRings && least > kCostOfRing * ring; ++ring) {
        for (const LabelAnchor side : kSides) {
            const QRectF place =
                Inside(Beside(point, size, side, label.offset + ring * size.height() / 2), area);
            const double cost = Cost(place, label, placed, legend, obstacles) + kCostOfRing * ring +
                                (side == label.anchor ? 0 : kCostOfOtherSide);
            if (cost < least) {
                least = cost;
                best = place;
            }
        }
    }
    return best;
}

/// The point of the picture that a label belongs to. A curve that leaves the frame keeps its label
/// at its nearest point inside; a place outside has none.
std::optional<QPointF> Anchorage(const PlotSurface& surface, int number,
                                 const PictureLayout& layout) {
    const std::optional<DataPoint> position = LabelPosition(surface, number);
    if (!position)
        return std::nullopt;
    const auto pixel = [&](double x, double y) {
        return QPointF(layout.x.scale.Pixel(x), layout.y.scale.Pixel(y));
    };
    const auto shown = [&](double x, double y) {
        return layout.x.scale.Shows(x) && layout.y.scale.Shows(y);
    };
    if (shown(position->x, position->y))
        return pixel(position->x, position->y);
    const PlotLabel& label = GetLabel(surface, number);
    if (label.attachment == Attachment::Coord) {
        // A mark at a time: its height may lie anywhere.
        if (!layout.x.scale.Shows(position->x))
            return std::nullopt;
        const double y =
            std::clamp(position->y, layout.y.scale.range.min, layout.y.scale.range.max);
        return pixel(position->x, y);
    }
    const PlotSeries& series = GetSeries(surface, label.group, label.series);
    std::optional<QPointF> nearest;
    int away = std::numeric_limits<int>::max();
    for (int i = 1; i <= static_cast<int>(series.x.size()); ++i) {
        const auto at = static_cast<std::size_t>(i - 1);
        const int distance = std::abs(i - label.point);
        if (distance < away && !IsHole(series, i) && shown(series.x[at], series.y[at])) {
            away = distance;
            nearest = pixel(series.x[at], series.y[at]);
        }
    }
    return nearest;
}

} // namespace

std::vector<TextBox> PlaceLabels(const PlotSurface& surface, const PictureLayout& layout,
                                 double pixelsPerPoint) {
    std::vector<TextBox> placed;
    std::vector<Obstacle> obstacles;
    const double inset = kInset * pixelsPerPoint;
    const QRectF area = layout.plotArea.adjusted(inset, inset, -inset, -inset);
    const double padX = kPaddingX * pixelsPerPoint, padY = kPaddingY * pixelsPerPoint;
    for (int number = 1; number < static_cast<int>(surface.labels.size()); ++number) {
        const PlotLabel& label = GetLabel(surface, number);
        const std::optional<QPointF> point = Anchorage(surface, number, layout);
        if (!point || label.text.find_first_not_of(' ') == std::string::npos)
            continue;
        if (obstacles.empty())
            obstacles = Obstacles(surface, layout);
        TextBox box = FitText(label.text, ToFont(label.font, pixelsPerPoint), area.width());
        const double frame = label.border.type == BorderType::None ? 0 : label.border.width;
        const QSizeF size = box.rect.size() + QSizeF(2 * (padX + frame), 2 * (padY + frame));
        box.fore = ToColour(label.colours.fore, kBlack);
        if (!label.colours.transparent)
            box.back = ToColour(label.colours.back, kWhite);
        box.border = label.border;
        box.rect = BestPlace(*point, size, label, area, placed, layout.legend, obstacles);
        placed.push_back(std::move(box));
    }
    return placed;
}

} // namespace zorvant
