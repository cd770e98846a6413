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
constexpr double kCostOfLabel = 1e6, kCostOfSymbol = 1000;
constexpr double kCostOfLine = 100; ///< per pixel of a line under the box
/// Nearer to another curve than to its own, a label misleads; less so with a line to its point.
constexpr double kCostOfOtherCurve = 110;
/// A label leaves the side that it asks for, or the neighbourhood, only for a much better place.
constexpr double kCostOfOtherSide = 8, kCostOfRing = 12;
constexpr double kCloseShare = 0.35; ///< of its distance, where there is little room
constexpr int kRings = 20;           ///< how many half heights of its box a label may move away
/// A label farther from its point than this has a line to it, heights of its box.
constexpr double kLeaderFrom = 1.25;

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

/// What labels had better not cover, in pixels, sorted into squares: a label looks only at what
/// lies near it.
class Obstacles {
public:
    struct Line {
        QLineF at;
        int group, series;
    };
    struct Symbol {
        QPointF at;
        double reach; ///< half its size
    };

    explicit Obstacles(const QRectF& area)
        : origin_(area.topLeft()), columns_(Count(area.width())), rows_(Count(area.height())),
          squares_(columns_ * rows_) {}

    void Add(const Line& line) {
        const std::size_t one = Square(line.at.p1()), two = Square(line.at.p2());
        squares_[one].lines.push_back(lines_.size());
        if (two != one)
            squares_[two].lines.push_back(lines_.size());
        lines_.push_back(line);
        seen_.push_back(0);
    }
    void Add(const Symbol& symbol) {
        squares_[Square(symbol.at)].symbols.push_back(symbol);
        farthest_ = std::max(farthest_, symbol.reach);
    }

    /// Calls `take` for each line that has an end inside the rectangle, once.
    template <class Take> void EachLine(const QRectF& rect, Take take) {
        ++round_;
        EachSquare(rect, [&](const Contents& square) {
            for (const std::size_t number : square.lines) {
                const Line& line = lines_[number];
                if (std::exchange(seen_[number], round_) != round_ &&
                    (Contains(rect, line.at.p1()) || Contains(rect, line.at.p2())))
                    take(line);
            }
        });
    }
    /// How many symbols the rectangle touches.
    int Symbols(const QRectF& rect) const {
        int count = 0;
        EachSquare(Grown(rect, farthest_), [&](const Contents& square) {
            for (const Symbol& symbol : square.symbols)
                count += Contains(Grown(rect, symbol.reach), symbol.at) ? 1 : 0;
        });
        return count;
    }

private:
    struct Contents {
        std::vector<std::size_t> lines;
        std::vector<Symbol> symbols;
    };
    static constexpr double kSide = 24; ///< pixels, about the height of a label

    static std::size_t Count(double length) {
        return static_cast<std::size_t>(std::max(0.0, length / kSide)) + 1;
    }
    static bool Contains(const QRectF& rect, QPointF point) {
        return point.x() >= rect.left() && point.x() <= rect.right() && point.y() >= rect.top() &&
               point.y() <= rect.bottom();
    }
    static QRectF Grown(const QRectF& rect, double by) { return rect.adjusted(-by, -by, by, by); }
    /// What lies outside the area belongs to the square at its edge.
    static std::size_t Place(double distance, std::size_t count) {
        return static_cast<std::size_t>(
            std::clamp(distance / kSide, 0.0, static_cast<double>(count - 1)));
    }
    std::size_t Column(double x) const { return Place(x - origin_.x(), columns_); }
    std::size_t Row(double y) const { return Place(y - origin_.y(), rows_); }
    std::size_t Square(QPointF at) const { return Row(at.y()) * columns_ + Column(at.x()); }
    template <class Visit> void EachSquare(const QRectF& rect, Visit visit) const {
        for (std::size_t row = Row(rect.top()); row <= Row(rect.bottom()); ++row)
            for (std::size_t column = Column(rect.left()); column <= Column(rect.right()); ++column)
                visit(squares_[row * columns_ + column]);
    }

    QPointF origin_;
    std::size_t columns_, rows_;
    std::vector<Contents> squares_;
    std::vector<Line> lines_;
    std::vector<unsigned> seen_; ///< the last round in which a line was found
    unsigned round_ = 0;
    double farthest_ = 0;
};

constexpr double kShortest = 6; ///< pixels, of a part of a line
constexpr double kPiece = 12;   ///< and the longest one

/// A segment in pieces as short as labels are high, as far as they lie in the plot area: a label
/// looks for the ends of lines near it.
void AddPieces(std::vector<QLineF>& parts, const QLineF& segment, const QRectF& area) {
    if (!QRectF(segment.p1(), segment.p2()).normalized().adjusted(-1, -1, 1, 1).intersects(area))
        return;
    const double most = (area.width() + area.height()) / kPiece;
    const int pieces =
        static_cast<int>(std::clamp(std::ceil(segment.length() / kPiece), 1.0, most));
    for (int i = 0; i < pieces; ++i) {
        const QLineF piece(segment.pointAt(static_cast<double>(i) / pieces),
                           segment.pointAt((i + 1.0) / pieces));
        if (area.contains(piece.p1()) || area.contains(piece.p2()))
            parts.push_back(piece);
    }
}

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
        if (before && (at - *before).manhattanLength() < kShortest)
            continue; // as good as straight, against the size of a label
        if (before)
            AddPieces(parts, QLineF(*before, at), layout.plotArea);
        before = at;
    }
    return parts;
}

/// A vertical mark, which runs through the whole plot area, in pieces as short as labels are high.
std::vector<QLineF> MarkParts(const PlotSeries& mark, const PictureLayout& layout) {
    std::vector<QLineF> parts;
    const double x = layout.x.scale.Pixel(mark.x.front());
    if (!layout.x.scale.Shows(mark.x.front()))
        return parts;
    for (double y = layout.plotArea.top(); y < layout.plotArea.bottom(); y += kPiece)
        parts.emplace_back(x, y, x, std::min(y + kPiece, layout.plotArea.bottom()));
    return parts;
}

Obstacles FindObstacles(const PlotSurface& surface, const PictureLayout& layout) {
    Obstacles obstacles(layout.plotArea);
    for (const int group : {kLines, kPoints}) {
        for (int number = 1; number <= GetSeriesCount(surface, group); ++number) {
            const PlotSeries& series = GetSeries(surface, group, number);
            if (series.display != SeriesDisplay::Shown || series.x.empty())
                continue;
            const bool mark = group == kLines && number >= kHalfLifeASeries;
            if (series.line.pattern != LinePattern::None)
                for (const QLineF& part :
                     mark ? MarkParts(series, layout) : LineParts(series, layout))
                    obstacles.Add(Obstacles::Line{part, group, number});
            if (series.symbol.shape == SymbolShape::Hidden)
                continue;
            for (std::size_t i = 0; i < series.x.size(); ++i)
                if (!IsHole(series, static_cast<int>(i) + 1) && layout.x.scale.Shows(series.x[i]) &&
                    layout.y.scale.Shows(series.y[i]))
                    obstacles.Add(Obstacles::Symbol{
                        {layout.x.scale.Pixel(series.x[i]), layout.y.scale.Pixel(series.y[i])},
                        series.symbol.size / 2.0});
        }
    }
    return obstacles;
}

double Overlap(const QRectF& one, const QRectF& other) {
    const QRectF common = one.intersected(other);
    return common.width() * common.height();
}

/// How long a line runs under a box: the share between its crossings with the edges.
double LengthInside(const QLineF& line, const QRectF& rect) {
    double begin = 0, end = 1;
    const auto cut = [&](double from, double by, double least, double most) {
        if (by == 0) {
            if (from < least || from > most)
                end = -1;
            return;
        }
        const double one = (least - from) / by, two = (most - from) / by;
        begin = std::max(begin, std::min(one, two));
        end = std::min(end, std::max(one, two));
    };
    cut(line.x1(), line.dx(), rect.left(), rect.right());
    cut(line.y1(), line.dy(), rect.top(), rect.bottom());
    return begin < end ? (end - begin) * std::sqrt(line.dx() * line.dx() + line.dy() * line.dy())
                       : 0;
}

double Distance(const QLineF& line, QPointF point) {
    const QPointF along = line.p2() - line.p1();
    const double length = QPointF::dotProduct(along, along);
    const double share =
        length > 0 ? std::clamp(QPointF::dotProduct(point - line.p1(), along) / length, 0.0, 1.0)
                   : 0;
    const QPointF apart = point - line.p1() - share * along;
    return std::sqrt(QPointF::dotProduct(apart, apart));
}

/// Returned: what a place costs; at least `enough` as soon as it is so much.
double Cost(const QRectF& rect, const PlotLabel& label, const std::vector<TextBox>& placed,
            const std::optional<LegendLayout>& legend, Obstacles& obstacles, double enough) {
    double cost = 0;
    for (const TextBox& other : placed)
        if (rect.intersects(other.rect))
            cost += kCostOfLabel + Overlap(rect, other.rect);
    if (legend && rect.intersects(legend->rect))
        cost += kCostOfLabel;
    if (cost < enough)
        cost += kCostOfSymbol * obstacles.Symbols(rect);
    if (cost >= enough)
        return cost;
    // Lines farther away than this can neither be covered nor mislead.
    const QRectF around =
        rect.adjusted(-rect.height(), -rect.height(), rect.height(), rect.height());
    double toOwn = std::numeric_limits<double>::max(), toOther = toOwn;
    obstacles.EachLine(around, [&](const Obstacles::Line& line) {
        const bool own = label.attachment == Attachment::Point && label.group == line.group &&
                         label.series == line.series;
        double& nearest = own ? toOwn : toOther;
        cost += kCostOfLine * LengthInside(line.at, rect);
        nearest = std::min(nearest, Distance(line.at, rect.center()));
    });
    if (label.attachment == Attachment::Point && toOther < toOwn)
        cost += kCostOfOtherCurve;
    return cost;
}

bool CoversLine(const QRectF& rect, Obstacles& obstacles) {
    bool covers = false;
    obstacles.EachLine(
        rect.adjusted(-kPiece, -kPiece, kPiece, kPiece),
        [&](const Obstacles::Line& line) { covers = covers || LengthInside(line.at, rect) > 0; });
    return covers;
}

/// From the nearest place of a label's edge to its point, where that is far.
std::optional<QLineF> Leader(const QRectF& rect, QPointF point) {
    const QPointF edge(std::clamp(point.x(), rect.left(), rect.right()),
                       std::clamp(point.y(), rect.top(), rect.bottom()));
    const QLineF line(edge, point);
    return line.length() > kLeaderFrom * rect.height() ? std::optional(line) : std::nullopt;
}

QRectF BestPlace(QPointF point, QSizeF size, const PlotLabel& label, const QRectF& area,
                 const std::vector<TextBox>& placed, const std::optional<LegendLayout>& legend,
                 Obstacles& obstacles) {
    QRectF best = Inside(Beside(point, size, label.anchor, label.offset), area);
    double least = Cost(best, label, placed, legend, obstacles, std::numeric_limits<double>::max());
    // At its distance, then close to the curve, then farther and farther away.
    for (int ring = 0; ring <= kRings + 1 && least > kCostOfRing * ring; ++ring) {
        const double distance = ring == 1
                                    ? label.offset * kCloseShare
                                    : label.offset + std::max(0, ring - 1) * size.height() / 2;
        for (const LabelAnchor side : kSides) {
            const QRectF place = Inside(Beside(point, size, side, distance), area);
            const double away = kCostOfRing * ring + (side == label.anchor ? 0 : kCostOfOtherSide);
            if (away >= least)
                continue;
            const double cost = Cost(place, label, placed, legend, obstacles, least - away) + away;
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
    std::optional<Obstacles> obstacles;
    const double inset = kInset * pixelsPerPoint;
    const QRectF area = layout.plotArea.adjusted(inset, inset, -inset, -inset);
    const double padX = kPaddingX * pixelsPerPoint, padY = kPaddingY * pixelsPerPoint;
    for (int number = 1; number < static_cast<int>(surface.labels.size()); ++number) {
        const PlotLabel& label = GetLabel(surface, number);
        const std::optional<QPointF> point = Anchorage(surface, number, layout);
        if (!point || label.text.find_first_not_of(' ') == std::string::npos)
            continue;
        if (!obstacles)
            obstacles = FindObstacles(surface, layout);
        TextBox box = FitText(label.text, ToFont(label.font, pixelsPerPoint), area.width());
        const double frame = label.border.type == BorderType::None ? 0 : label.border.width;
        const QSizeF size = box.rect.size() + QSizeF(2 * (padX + frame), 2 * (padY + frame));
        box.fore = ToColour(label.colours.fore, kBlack);
        if (!label.colours.transparent)
            box.back = ToColour(label.colours.back, kWhite);
        box.border = label.border;
        box.number = number;
        box.rect = BestPlace(*point, size, label, area, placed, layout.legend, *obstacles);
        if (CoversLine(box.rect, *obstacles))
            box.back.reset(); // where no place is free the curve is seen through the label
        box.leader = Leader(box.rect, *point);
        placed.push_back(std::move(box));
    }
    return placed;
}

} // namespace zorvant
