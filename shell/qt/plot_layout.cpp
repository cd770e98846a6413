#include "shell/qt/plot_layout.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace zorvant {
namespace {

// Distances in points, so that they grow with the fonts.
constexpr double kEdge = 6;        ///< around the picture
constexpr double kTextGap = 6;     ///< between header, chart area and footer
constexpr double kTick = 3.5;      ///< length of a tick with a number, outside the frame
constexpr double kNumberGap = 2.5; ///< between tick and number
constexpr double kTitleGap = 4;    ///< between numbers and title
constexpr double kNumberApart = 5; ///< least distance of two numbers
constexpr double kLegendGap = 9;   ///< between plot area and legend
constexpr double kLegendPadding = 4.5;
constexpr double kLegendRowGap = 2;
constexpr double kSampleWidth = 24;
constexpr double kSampleGap = 4.5;
constexpr double kLegendColumnGap = 10;
constexpr double kBlockPadding = 2.5; ///< header and footer with a frame
/// A plot area below this is not worth looking at, but it must exist.
constexpr int kSmallestSide = 8;
/// A legend beside the plot area may take this share of the width.
constexpr double kLegendShare = 0.45;

struct Sides {
    double left = 0, right = 0, top = 0, bottom = 0;
};

double Widest(const std::vector<TextBox>& boxes) {
    double widest = 0;
    for (const TextBox& box : boxes)
        widest = std::max(widest, box.rect.width());
    return widest;
}
double WidthOf(const std::optional<TextBox>& box) {
    return box ? box->rect.width() : 0;
}
double HeightOf(const std::optional<TextBox>& box) {
    return box ? box->rect.height() : 0;
}
double Highest(const std::vector<TextBox>& boxes) {
    double highest = 0;
    for (const TextBox& box : boxes)
        highest = std::max(highest, box.rect.height());
    return highest;
}

/// Where something that belongs to one axis stands on the other one.
double PlacePixel(const AxisScale& other, Placement placement) {
    switch (placement) {
    case Placement::Min:
        return other.pixelMin;
    case Placement::Max:
        return other.pixelMax;
    case Placement::AtZero:
        break;
    }
    if (other.range.log || other.range.min > 0)
        return other.pixelMin;
    return other.range.max < 0 ? other.pixelMax : other.Pixel(0);
}
/// The same as a share of the axis, before the plot area is known.
double PlaceShare(const ShownAxisRange& other, Placement placement) {
    return PlacePixel({.range = other, .pixelMin = 0, .pixelMax = 1}, placement);
}

// --- header and footer

TextBox MakeBlock(const TextBlock& block, const QRectF& inner, const QRectF& picture, bool above,
                  double ppp) {
    TextBox box = FitText(block.text, ToFont(block.font, ppp), inner.width());
    const double padding =
        block.border.type == BorderType::None ? 0 : kBlockPadding * ppp + block.border.width;
    QRectF rect = box.rect.adjusted(-padding, -padding, padding, padding);
    if (block.location.automatic) {
        rect.moveLeft(inner.center().x() - rect.width() / 2);
        above ? rect.moveTop(inner.top()) : rect.moveBottom(inner.bottom());
    } else {
        // Never out of the picture: a text that can't be seen can't be fetched back.
        const double left =
            std::min(picture.width() * block.location.x, picture.width() - rect.width());
        const double top =
            std::min(picture.height() * block.location.y, picture.height() - rect.height());
        rect.moveTopLeft({std::max(left, 0.0), std::max(top, 0.0)});
    }
    box.rect = rect;
    box.fore = ToColour(block.colours.fore, kBlack);
    if (!block.colours.transparent)
        box.back = ToColour(block.colours.back, kWhite);
    box.border = block.border;
    return box;
}

/// A text at its automatic place belongs to the plot area, as far as the picture has the room.
void CentreOverPlot(std::optional<TextBox>& box, const TextBlock& block, const QRectF& plotArea,
                    const QRectF& inner) {
    if (!box || !block.location.automatic)
        return;
    const double width = box->rect.width();
    box->rect.moveLeft(std::clamp(plotArea.center().x() - width / 2, inner.left(),
                                  std::max(inner.left(), inner.right() - width)));
}

/// What header and additional text leave to the chart. A text that was shifted keeps its room as
/// long as it touches the strip that it has without being shifted.
void ReserveBlock(QRectF& inner, const QRectF& block, bool above, double gap) {
    if (above && block.top() < inner.top() + block.height())
        inner.setTop(std::max(inner.top() + block.height(), block.bottom()) + gap);
    if (!above && block.bottom() > inner.bottom() - block.height())
        inner.setBottom(std::min(inner.bottom() - block.height(), block.top()) - gap);
}

// --- numbers of an axis

/// All numbers of an axis, measured but not placed.
void MakeNumbers(AxisLayout& axis, const PlotSurface& surface, AxisId id, double ppp) {
    const PlotAxis& source = GetAxis(surface, id);
    const AxisMarks marks = MarksOf(surface, id);
    axis.scale.range = ShownRange(surface, id);
    axis.grid = marks.grid;
    if (!source.visible)
        return;
    axis.ticks = marks.ticks;
    axis.marks = marks.numbers;
    axis.spacing = marks.spacing;
    axis.powers = marks.log;
    const AxisNotation notation = NotationOf(marks);
    const QFont font = ToFont(source.font, ppp);
    const auto finish = [&](TextBox box, bool vertical) {
        box.fore = ToColour(source.colour, kBlack);
        box.vertical = vertical;
        box.rect.setSize(MeasureText(box));
        return box;
    };
    const bool vertical = source.annotationRotation == TextRotation::Vertical;
    for (const double mark : marks.numbers)
        axis.numbers.push_back(finish(NumberText(MarkText(mark, notation), font), vertical));
    if (notation.power != 0)
        axis.factor = finish(FactorText(notation.power, font), false);
}

bool Touch(const std::vector<TextBox>& numbers, bool horizontal, double apart) {
    for (std::size_t i = 1; i < numbers.size(); ++i) {
        const QRectF &one = numbers[i - 1].rect, &next = numbers[i].rect;
        const double gap = horizontal ? next.left() - one.right() : one.top() - next.bottom();
        if (gap < apart)
            return true;
    }
    return false;
}

/// The numbers of which `take` says yes.
template <class Take> void KeepNumbers(AxisLayout& axis, const AxisLayout& all, Take take) {
    axis.numbers.clear();
    axis.marks.clear();
    for (std::size_t i = 0; i < all.marks.size(); ++i)
        if (take(i)) {
            axis.numbers.push_back(all.numbers[i]);
            axis.marks.push_back(all.marks[i]);
        }
}

/// Keeps the numbers that a reader expects when not all have room: powers of ten, or multiples of
/// two, five, ten ... times the spacing; never fewer than two that have room.
void ThinNumbers(AxisLayout& axis, bool horizontal, double apart) {
    if (axis.marks.size() < 2 || !Touch(axis.numbers, horizontal, apart))
        return;
    const AxisLayout all = axis;
    constexpr std::array<int, 10> kStrides{1, 2, 5, 10, 20, 50, 100, 200, 500, 1000};
    for (const int stride : kStrides) {
        KeepNumbers(axis, all, [&](std::size_t i) {
            // Steps from zero; on a logarithmic axis decades, broken ones between them.
            const double steps =
                all.powers ? std::log10(all.marks[i]) : std::round(all.marks[i] / all.spacing);
            return std::abs(steps - std::round(steps)) < 1e-6 && std::llround(steps) % stride == 0;
        });
        if (!Touch(axis.numbers, horizontal, apart))
            break;
    }
    if (axis.marks.size() >= 2)
        return;
    const AxisLayout thinned = axis;
    KeepNumbers(axis, all, [&](std::size_t i) { return i == 0 || i + 1 == all.marks.size(); });
    if (Touch(axis.numbers, horizontal, apart))
        axis = thinned;
}

void PlaceNumbersOfX(AxisLayout& axis, Placement placement, double distance, double apart) {
    for (std::size_t i = 0; i < axis.numbers.size(); ++i) {
        QRectF& rect = axis.numbers[i].rect;
        rect.moveLeft(axis.scale.Pixel(axis.marks[i]) - rect.width() / 2);
        if (placement == Placement::Max)
            rect.moveBottom(axis.numberLine - distance);
        else
            rect.moveTop(axis.numberLine + distance);
    }
    ThinNumbers(axis, true, apart);
}
void PlaceNumbersOfY(AxisLayout& axis, Placement placement, double distance, double apart) {
    for (std::size_t i = 0; i < axis.numbers.size(); ++i) {
        QRectF& rect = axis.numbers[i].rect;
        rect.moveTop(axis.scale.Pixel(axis.marks[i]) - rect.height() / 2);
        if (placement == Placement::Max)
            rect.moveLeft(axis.numberLine + distance);
        else
            rect.moveRight(axis.numberLine - distance);
    }
    ThinNumbers(axis, false, apart / 4); // lines of text may stand closer than words
}

/// Numbers inside the plot area make way for the line of the other axis and for the frame.
void ClearCrossing(AxisLayout& axis, bool horizontal, double otherLine, const QRectF& plotArea,
                   bool framed) {
    const double edges[] = {horizontal ? plotArea.left() : plotArea.top(),
                            horizontal ? plotArea.right() : plotArea.bottom()};
    for (std::size_t i = axis.numbers.size(); i-- > 0;) {
        const QRectF& rect = axis.numbers[i].rect;
        const auto crosses = [&](double line) {
            return horizontal ? rect.left() < line && line < rect.right()
                              : rect.top() < line && line < rect.bottom();
        };
        const bool crossed =
            crosses(otherLine) || (framed && (crosses(edges[0]) || crosses(edges[1])));
        if (crossed && plotArea.adjusted(1, 1, -1, -1).intersects(rect)) {
            axis.numbers.erase(axis.numbers.begin() + static_cast<std::ptrdiff_t>(i));
            axis.marks.erase(axis.marks.begin() + static_cast<std::ptrdiff_t>(i));
        }
    }
}

void MakeTitle(AxisLayout& axis, const PlotAxis& source, bool vertical, double length, double ppp) {
    if (!source.visible || source.title.empty())
        return;
    TextBox title = FitText(source.title, ToFont(source.titleFont, ppp), length);
    title.fore = ToColour(source.colour, kBlack);
    title.vertical = vertical;
    title.rect.setSize(MeasureText(title));
    axis.title = title;
}

// --- margins

/// Room that the numbers of an axis take outside the plot area, on the lower and the upper side of
/// the other axis.
std::pair<double, double> NumberRoom(const PlotAxis& axis, const ShownAxisRange& other,
                                     double extent, double otherLength, double distance) {
    if (extent <= 0)
        return {0, 0};
    const double needed = extent + distance;
    switch (axis.annotation) {
    case Placement::Min:
        return {needed, 0};
    case Placement::Max:
        return {0, needed};
    case Placement::AtZero:
        break;
    }
    const double inside = PlaceShare(other, Placement::AtZero) * otherLength;
    return {std::max(0.0, needed - inside), 0};
}

Sides AutomaticMargins(const PlotSurface& surface, const PictureLayout& layout, double ppp) {
    const PlotAxis& x = GetAxis(surface, AxisId::X);
    const PlotAxis& y = GetAxis(surface, AxisId::Y);
    const double distance = (kTick + kNumberGap) * ppp;
    const double widest = std::max(Widest(layout.y.numbers), WidthOf(layout.y.factor));
    const auto [leftOfY, rightOfY] =
        NumberRoom(y, layout.x.scale.range, widest, layout.chartArea.width() * 0.8, distance);
    const auto [belowX, aboveX] = NumberRoom(x, layout.y.scale.range, Highest(layout.x.numbers),
                                             layout.chartArea.height() * 0.8, distance);
    // A tick stands out even where no numbers are, and the last number hangs over the corner.
    const double tick = kTick * ppp;
    Sides sides{.left = std::max({leftOfY, Widest(layout.x.numbers) / 2, tick}),
                .right = std::max({rightOfY, Widest(layout.x.numbers) / 2, tick}),
                .top = std::max({aboveX, Highest(layout.y.numbers) / 2, tick}),
                .bottom = std::max(belowX, tick)};
    // The power of ten of x stands beside its title, that of y upon its axis.
    const double xFactor = HeightOf(layout.x.factor);
    if (x.annotation == Placement::Max)
        sides.top += xFactor;
    const double row = x.annotation == Placement::Max ? 0 : xFactor;
    if (layout.x.title || row > 0)
        sides.bottom += std::max(HeightOf(layout.x.title), row) + kTitleGap * ppp;
    if (layout.y.factor)
        sides.top = std::max(sides.top, Highest(layout.y.numbers) / 2 + HeightOf(layout.y.factor));
    if (layout.y.title && layout.y.title->vertical)
        sides.left += layout.y.title->rect.width() + kTitleGap * ppp;
    else if (layout.y.title)
        sides.top += layout.y.title->rect.height() + kTitleGap * ppp;
    return sides;
}

QRect AxisRect(const PlotSurface& surface, PictureLayout& layout, double ppp) {
    Sides sides = AutomaticMargins(surface, layout, ppp);
    const Margins& set = surface.margins;
    const auto take = [](double& side, const Margin& margin) {
        if (!margin.automatic)
            side = margin.width;
    };
    take(sides.left, set.left);
    take(sides.right, set.right);
    take(sides.top, set.top);
    take(sides.bottom, set.bottom);
    const auto came = [](const Margin& margin, double width) {
        return Margin{.width = qRound(width), .automatic = margin.automatic};
    };
    layout.margins = {.left = came(set.left, sides.left),
                      .right = came(set.right, sides.right),
                      .top = came(set.top, sides.top),
                      .bottom = came(set.bottom, sides.bottom)};
    const QRectF& area = layout.chartArea;
    const QRectF inside = area.adjusted(sides.left, sides.top, -sides.right, -sides.bottom);
    QRect rect(qRound(inside.left()), qRound(inside.top()), qRound(inside.width()),
               qRound(inside.height()));
    // Whatever the margins ask for, some plot area is left, and inside the picture.
    rect.setWidth(std::max(rect.width(), kSmallestSide));
    rect.setHeight(std::max(rect.height(), kSmallestSide));
    rect.moveLeft(
        std::clamp(rect.left(), 0, std::max(0, qRound(layout.picture.width()) - rect.width())));
    rect.moveTop(
        std::clamp(rect.top(), 1, std::max(1, qRound(layout.picture.height()) - rect.height())));
    return rect;
}

// --- legend

double RowHeight(const PlotSurface& surface, const LegendLine& line, const TextBox& text) {
    const SymbolStyle& symbol = GetSymbol(surface, line.group, line.series);
    const double mark = symbol.shape == SymbolShape::Hidden ? 0 : symbol.size + 2;
    return std::max(text.rect.height(), mark);
}

/// The legend in its own coordinates: one column, more where it would be too high; or rows.
LegendLayout MakeLegend(const PlotSurface& surface, QSizeF room, double ppp) {
    const PlotLegend& source = surface.legend;
    const bool vertical = source.orientation == Orientation::Vertical;
    const double padding = kLegendPadding * ppp;
    const double sampleWidth = (kSampleWidth + kSampleGap) * ppp;
    LegendLayout legend;
    double left = padding, top = padding, right = 0, bottom = 0, columnRight = 0, rowHeight = 0;
    for (const LegendLine& line : LegendLines(surface)) {
        LegendEntry entry;
        entry.line = line;
        entry.text = FitText(GetSeriesLabel(surface, line.group, line.series),
                             ToFont(source.font, ppp), room.width() - sampleWidth - 2 * padding);
        entry.text.fore = ToColour(source.colours.fore, kBlack);
        const double width = sampleWidth + entry.text.rect.width();
        const double height = RowHeight(surface, line, entry.text) + kLegendRowGap * ppp;
        if (vertical && top > padding && top + height + padding > room.height()) {
            left = columnRight + kLegendColumnGap * ppp;
            top = padding;
        } else if (!vertical && left > padding && left + width + padding > room.width()) {
            left = padding;
            top += rowHeight;
            rowHeight = 0;
        }
        entry.sample = QRectF(left, top, kSampleWidth * ppp, height);
        entry.text.rect.moveLeft(left + sampleWidth);
        entry.text.rect.moveTop(top + (height - entry.text.rect.height()) / 2);
        columnRight = std::max(columnRight, left + width);
        right = std::max(right, left + width);
        bottom = std::max(bottom, top + height);
        if (vertical) {
            top += height;
        } else {
            left += width + kLegendColumnGap * ppp;
            rowHeight = std::max(rowHeight, height);
        }
        legend.entries.push_back(entry);
    }
    legend.rect = QRectF(0, 0, right + padding, bottom + padding);
    return legend;
}

void MoveLegend(LegendLayout& legend, QPointF topLeft) {
    const QPointF by = topLeft - legend.rect.topLeft();
    legend.rect.translate(by);
    for (LegendEntry& entry : legend.entries) {
        entry.sample.translate(by);
        entry.text.rect.translate(by);
    }
}

/// Takes the room of an automatic legend out of the chart area.
void ReserveLegend(PictureLayout& layout, const PlotSurface& surface, double ppp) {
    if (!surface.legend.visible || LegendLines(surface).empty())
        return;
    const bool vertical = surface.legend.orientation == Orientation::Vertical;
    const bool automatic = surface.legend.location.automatic;
    const QSizeF room(layout.chartArea.width() * (vertical && automatic ? kLegendShare : 1),
                      layout.chartArea.height());
    layout.legend = MakeLegend(surface, room, ppp);
    if (!automatic)
        return;
    if (vertical)
        layout.chartArea.setRight(layout.chartArea.right() - layout.legend->rect.width() -
                                  kLegendGap * ppp);
    else
        layout.chartArea.setBottom(layout.chartArea.bottom() - layout.legend->rect.height() -
                                   kLegendGap * ppp);
}

void PlaceLegend(PictureLayout& layout, const PlotSurface& surface, double ppp) {
    if (!layout.legend)
        return;
    const QRectF& rect = layout.legend->rect;
    const Location& location = surface.legend.location;
    QPointF place(layout.chartArea.right() + kLegendGap * ppp, layout.plotArea.top());
    if (!location.automatic)
        place = {layout.picture.width() * location.x, layout.picture.height() * location.y};
    else if (surface.legend.orientation == Orientation::Horizontal)
        place = {layout.plotArea.center().x() - rect.width() / 2,
                 layout.chartArea.bottom() + kLegendGap * ppp};
    // Wherever it is asked to stand, it stays inside the picture.
    place.setX(std::clamp(place.x(), 0.0, std::max(0.0, layout.picture.width() - rect.width())));
    place.setY(std::clamp(place.y(), 0.0, std::max(0.0, layout.picture.height() - rect.height())));
    MoveLegend(*layout.legend, place);
}

// --- the axes when the plot area is known

void PlaceAxes(PictureLayout& layout, const PlotSurface& surface, double ppp) {
    const PlotAxis& x = GetAxis(surface, AxisId::X);
    const PlotAxis& y = GetAxis(surface, AxisId::Y);
    const QRectF& area = layout.plotArea;
    layout.x.scale.pixelMin = area.left();
    layout.x.scale.pixelMax = area.right();
    layout.y.scale.pixelMin = area.bottom();
    layout.y.scale.pixelMax = area.top();
    // The origin of an axis is the value on it at which the other one crosses.
    layout.x.line = PlacePixel(layout.y.scale, y.origin);
    layout.y.line = PlacePixel(layout.x.scale, x.origin);
    layout.x.numberLine = PlacePixel(layout.y.scale, x.annotation);
    layout.y.numberLine = PlacePixel(layout.x.scale, y.annotation);
    const double distance = (kTick + kNumberGap) * ppp, apart = kNumberApart * ppp;
    PlaceNumbersOfX(layout.x, x.annotation, distance, apart);
    PlaceNumbersOfY(layout.y, y.annotation, distance, apart);
    ClearCrossing(layout.x, true, layout.y.line, area, surface.plotAreaFrame);
    ClearCrossing(layout.y, false, layout.x.line, area, surface.plotAreaFrame);
}

/// The powers of ten that all numbers of an axis share: at its upper end, behind the numbers.
void PlaceFactors(PictureLayout& layout, const PlotSurface& surface, double below, double ppp) {
    const QRectF& area = layout.plotArea;
    if (layout.x.factor) {
        QRectF& rect = layout.x.factor->rect;
        rect.moveRight(area.right());
        if (GetAxis(surface, AxisId::X).annotation == Placement::Max) {
            double above = area.top() - kTick * ppp;
            for (const TextBox& number : layout.x.numbers)
                above = std::min(above, number.rect.top());
            rect.moveBottom(above);
        } else {
            rect.moveTop(below + kTitleGap * ppp);
        }
    }
    if (!layout.y.factor)
        return;
    QRectF& rect = layout.y.factor->rect;
    const double distance = (kTick + kNumberGap) * ppp;
    if (GetAxis(surface, AxisId::Y).annotation == Placement::Max)
        rect.moveLeft(layout.y.numberLine + distance);
    else
        rect.moveRight(
            std::max(layout.y.numberLine - distance, layout.chartArea.left() + rect.width()));
    double top = area.top() - kTick * ppp;
    for (const TextBox& number : layout.y.numbers)
        top = std::min(top, number.rect.top());
    rect.moveBottom(top);
}

void PlaceTitles(PictureLayout& layout, const PlotSurface& surface, double ppp) {
    const QRectF& area = layout.plotArea;
    double below = area.bottom() + kTick * ppp;
    for (const TextBox& number : layout.x.numbers)
        below = std::max(below, number.rect.bottom());
    PlaceFactors(layout, surface, below, ppp);
    if (layout.x.title) {
        QRectF& rect = layout.x.title->rect;
        rect.moveLeft(area.center().x() - rect.width() / 2);
        rect.moveTop(below + kTitleGap * ppp);
        if (layout.x.factor && layout.x.factor->rect.intersects(rect))
            rect.moveRight(layout.x.factor->rect.left() - kTitleGap * ppp);
    }
    if (!layout.y.title)
        return;
    QRectF& rect = layout.y.title->rect;
    double left = area.left() - kTick * ppp, top = area.top() - kTick * ppp;
    for (const TextBox& number : layout.y.numbers) {
        left = std::min(left, number.rect.left());
        top = std::min(top, number.rect.top());
    }
    for (const TextBox& number : layout.x.numbers) {
        left = std::min(left, number.rect.left());
        top = std::min(top, number.rect.top());
    }
    for (const auto& factor : {layout.x.factor, layout.y.factor})
        if (factor && !layout.y.title->vertical)
            top = std::min(top, factor->rect.top());
    if (layout.y.title->vertical) {
        rect.moveRight(left - kTitleGap * ppp);
        rect.moveTop(area.center().y() - rect.height() / 2);
    } else {
        rect.moveLeft(std::min(left, area.left()));
        rect.moveBottom(top - kTitleGap * ppp / 2);
    }
}

} // namespace

double AxisScale::Pixel(double value) const {
    const double share = range.log ? std::log(value / range.min) / std::log(range.max / range.min)
                                   : (value - range.min) / (range.max - range.min);
    return pixelMin + share * (pixelMax - pixelMin);
}

bool AxisScale::Shows(double value) const {
    return range.Shows(value);
}

PictureLayout LayOut(const PlotSurface& surface, QSize size, double pixelsPerPoint) {
    const double ppp = pixelsPerPoint;
    PictureLayout layout;
    layout.picture = QRectF(QPointF(0, 0), QSizeF(size));
    const Border& border = surface.chartBorder;
    const double edge = kEdge * ppp + (border.type == BorderType::None ? 0 : border.width);
    QRectF inner = layout.picture.adjusted(edge, edge, -edge, -edge);
    if (!surface.header.text.empty()) {
        layout.header = MakeBlock(surface.header, inner, layout.picture, true, ppp);
        ReserveBlock(inner, layout.header->rect, true, kTextGap * ppp);
    }
    if (!surface.footer.text.empty()) {
        layout.footer = MakeBlock(surface.footer, inner, layout.picture, false, ppp);
        ReserveBlock(inner, layout.footer->rect, false, kTextGap * ppp);
    }
    const ChartAreaBox& box = surface.chartAreaBox;
    layout.chartArea = box.automatic ? inner
                                     : QRectF(size.width() * box.left, size.height() * box.top,
                                              size.width() * box.width, size.height() * box.height);
    const QRectF wholeArea = layout.chartArea;
    ReserveLegend(layout, surface, ppp);

    MakeNumbers(layout.x, surface, AxisId::X, ppp);
    MakeNumbers(layout.y, surface, AxisId::Y, ppp);
    const bool vertical = GetAxis(surface, AxisId::Y).titleRotation == TextRotation::Vertical;
    MakeTitle(layout.x, GetAxis(surface, AxisId::X), false,
              layout.chartArea.width() * 0.9 - WidthOf(layout.x.factor), ppp);
    MakeTitle(layout.y, GetAxis(surface, AxisId::Y), vertical,
              (vertical ? layout.chartArea.height() : layout.chartArea.width()) * 0.9, ppp);

    layout.axisRect = AxisRect(surface, layout, ppp);
    // The lowest value stands on the lowest row of pixels, so the range begins one row higher up.
    layout.plotArea = QRectF(layout.axisRect).translated(0, -1);
    PlaceAxes(layout, surface, ppp);
    PlaceTitles(layout, surface, ppp);
    CentreOverPlot(layout.header, surface.header, layout.plotArea, inner);
    CentreOverPlot(layout.footer, surface.footer, layout.plotArea, inner);
    PlaceLegend(layout, surface, ppp);
    layout.chartArea = wholeArea;
    layout.labels = PlaceLabels(surface, layout, ppp);
    return layout;
}

PlotLayout ToPlotLayout(const PictureLayout& layout) {
    const auto pixels = [](const QRectF& rect) {
        return PixelRect{rect.left(), rect.top(), rect.width(), rect.height()};
    };
    PlotLayout result;
    result.picture = pixels(layout.picture);
    result.plotArea = pixels(layout.plotArea);
    result.chartArea = pixels(layout.chartArea);
    result.margins = layout.margins;
    if (layout.legend)
        result.legend = pixels(layout.legend->rect);
    if (layout.header)
        result.header = pixels(layout.header->rect);
    if (layout.footer)
        result.footer = pixels(layout.footer->rect);
    for (const TextBox& label : layout.labels)
        result.labels.push_back({label.number, pixels(label.rect)});
    return result;
}

} // namespace zorvant
