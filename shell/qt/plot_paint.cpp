#include "shell/qt/plot_paint.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <qcustomplot.h>

#include <array>
#include <cmath>
#include <limits>

namespace zorvant {
namespace {

constexpr double kSymbolPen = 1.3;                        ///< pixels
constexpr double kLeaderPen = 0.8;                        ///< pixels
constexpr float kLeaderShade = 0.6F;                      ///< share of the full colour
constexpr double kTickWithNumber = 3.5, kTickWithout = 2; ///< points

/// Lengths of strokes and gaps in pixels, a fixed part and one for each pixel of the line's width:
/// wide lines show their whole pattern in a legend too.
struct Dash {
    double fixed, perWidth;
};
struct Dashes {
    LinePattern pattern;
    std::vector<Dash> lengths;
};
const std::array<Dashes, 3>& DashTable() {
    static const std::array<Dashes, 3> table{
        {{LinePattern::Dotted, {{0, 1.5}, {0, 3}}},
         {LinePattern::Dashed, {{4, 3}, {2, 1.5}}},
         {LinePattern::DashDot, {{4, 3}, {1.5, 1.5}, {0, 1.5}, {1.5, 1.5}}}}};
    return table;
}

/// Given: width: of the style, in pixels; that of the pen may be another
void SetPattern(QPen& pen, LinePattern pattern, double width) {
    if (pattern == LinePattern::None)
        pen.setStyle(Qt::NoPen);
    for (const Dashes& dashes : DashTable()) {
        if (dashes.pattern != pattern)
            continue;
        QList<qreal> lengths;
        for (const Dash& dash : dashes.lengths)
            lengths.append((dash.fixed + dash.perWidth * width) / pen.widthF());
        pen.setDashPattern(lengths);
    }
}

struct Shape {
    SymbolShape shape;
    QCPScatterStyle::ScatterShape drawn;
    bool filled;
};
constexpr std::array<Shape, 8> kShapes{{{SymbolShape::Dot, QCPScatterStyle::ssCircle, true},
                                        {SymbolShape::Circle, QCPScatterStyle::ssCircle, false},
                                        {SymbolShape::Cross, QCPScatterStyle::ssCross, false},
                                        {SymbolShape::Square, QCPScatterStyle::ssSquare, true},
                                        {SymbolShape::Star, QCPScatterStyle::ssStar, false},
                                        {SymbolShape::Triangle, QCPScatterStyle::ssTriangle, true},
                                        {SymbolShape::Box, QCPScatterStyle::ssSquare, false},
                                        {SymbolShape::Diamond, QCPScatterStyle::ssDiamond, false}}};

QPointF LineStart(const TextBox& box, const QFontMetricsF& metrics, const QRectF& rect,
                  qsizetype line) {
    const double width = TextWidth(box.lines[line], box.font);
    double left = rect.center().x() - width / 2;
    if (!box.exponent.isEmpty())
        left -= TextWidth(box.exponent, ExponentFont(box.font)) / 2;
    const auto count = static_cast<double>(box.lines.size());
    const double height = metrics.height() + (count - 1) * metrics.lineSpacing();
    const double top = rect.center().y() - height / 2;
    return {left, top + metrics.ascent() + static_cast<double>(line) * metrics.lineSpacing()};
}

/// A horizontal or vertical line on whole pixels of the device: lines of one width look so at any
/// scale. On paper and in vector files it lies where it is.
void DrawCrisp(QCPPainter& painter, const QLineF& line, double width, const QColor& colour) {
    if (painter.modes().testFlag(QCPPainter::pmVectorized)) {
        QPen pen(colour, width);
        pen.setCapStyle(Qt::SquareCap);
        painter.setPen(pen);
        painter.drawLine(line);
        return;
    }
    const QTransform toDevice = painter.deviceTransform();
    const double thick = std::max(1.0, std::round(width * std::abs(toDevice.m11())));
    const double before = (width - 1) / 2; // a line of one pixel begins at its coordinate
    const QPointF from(std::min(line.x1(), line.x2()), std::min(line.y1(), line.y2()));
    const QPointF to(std::max(line.x1(), line.x2()), std::max(line.y1(), line.y2()));
    const QPointF start = toDevice.map(from - QPointF(before, before));
    const QPointF end = toDevice.map(to - QPointF(before, before));
    const QRectF snapped(QPointF(std::round(start.x()), std::round(start.y())),
                         QPointF(std::round(end.x()) + thick, std::round(end.y()) + thick));
    painter.fillRect(toDevice.inverted().mapRect(snapped), colour);
}

/// A tick crosses a line inside the plot area and points away from it at the edge.
QLineF TickLine(bool ofX, double at, double line, double edgeMin, double edgeMax, double length) {
    const double outward = ofX ? 1 : -1; // downward, to the left
    double from = line, to = line + outward * length;
    if (line == edgeMax) {
        to = line - outward * length;
    } else if (line != edgeMin) {
        from = line - length / 2;
        to = line + length / 2;
    }
    return ofX ? QLineF(at, from, at, to) : QLineF(from, at, to, at);
}

void DrawAxis(QCPPainter& painter, const PlotAxis& source, const AxisLayout& axis,
              const AxisLayout& other, bool ofX, double ppp) {
    if (!source.visible)
        return;
    painter.setAntialiasing(false);
    const QColor colour = ToColour(source.colour, kBlack);
    const AxisScale& scale = axis.scale;
    DrawCrisp(painter,
              ofX ? QLineF(scale.pixelMin, axis.line, scale.pixelMax, axis.line)
                  : QLineF(axis.line, scale.pixelMin, axis.line, scale.pixelMax),
              source.lineWidth, colour);
    const auto draw = [&](double mark, double length) {
        DrawCrisp(painter,
                  TickLine(ofX, std::round(scale.Pixel(mark)), axis.line, other.scale.pixelMin,
                           other.scale.pixelMax, length * ppp),
                  source.lineWidth, colour);
    };
    for (const double tick : axis.ticks)
        draw(tick, kTickWithout);
    for (const double mark : axis.marks)
        draw(mark, kTickWithNumber);
    painter.setAntialiasing(true);
    for (const TextBox& number : axis.numbers)
        DrawTextBox(painter, number);
    for (const auto* text : {&axis.factor, &axis.title})
        if (*text)
            DrawTextBox(painter, **text);
}

/// Which part of the segment from p by d lies on the inner side of one edge; q: distance to the
/// edge, r: approach to it. Liang and Barsky, ACM Trans. Graphics 3 (1984) 1.
bool ClipEdge(double approach, double distance, double& begin, double& end) {
    if (approach == 0)
        return distance >= 0;
    const double at = distance / approach;
    if (approach < 0)
        begin = std::max(begin, at);
    else
        end = std::min(end, at);
    return begin <= end;
}

} // namespace

QPen ToPen(const LineStyle& style, double widthFactor) {
    QPen pen(ToColour(style.colour, kBlack), style.width * widthFactor);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    SetPattern(pen, style.pattern, style.width);
    return pen;
}

QPen GridPen(const PlotAxis& axis) {
    QPen pen(ToColour(axis.gridColour, kBlack), 1);
    pen.setCapStyle(Qt::FlatCap);
    SetPattern(pen, axis.gridPattern, 1);
    if (axis.gridPattern == LinePattern::Dotted)
        pen.setDashPattern({1, 3});
    return pen;
}

QCPScatterStyle ToScatter(const SymbolStyle& style) {
    const QColor colour = ToColour(style.colour, kBlack);
    const QPen pen(colour, kSymbolPen);
    for (const Shape& shape : kShapes)
        if (shape.shape == style.shape)
            return {shape.drawn, pen, shape.filled ? QBrush(colour) : QBrush(Qt::NoBrush),
                    static_cast<double>(style.size)};
    if (style.shape == SymbolShape::Hidden)
        return {QCPScatterStyle::ssNone};
    // Custom paths are drawn at their natural size when the symbol size is 6.
    constexpr double kHalf = 3;
    QPainterPath path;
    if (style.shape == SymbolShape::VerticalLine) {
        path.moveTo(0, -kHalf);
        path.lineTo(0, kHalf);
    } else {
        path.moveTo(-kHalf, 0);
        path.lineTo(kHalf, 0);
    }
    return {path, pen, Qt::NoBrush, static_cast<double>(style.size)};
}

void DrawBorder(QCPPainter& painter, const QRectF& rect, const Border& border,
                const QColor& colour) {
    const auto outline = [&](const QRectF& at, const QColor& with) {
        painter.setPen(QPen(with, border.width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(at);
    };
    const double width = border.width;
    painter.setAntialiasing(false);
    switch (border.type) {
    case BorderType::None:
        break;
    case BorderType::Plain:
        outline(rect, colour);
        break;
    case BorderType::Etched:
        outline(rect.translated(width, width).intersected(rect), QColor(Qt::lightGray));
        outline(rect.adjusted(0, 0, -width, -width), QColor(Qt::gray));
        break;
    case BorderType::ThreeD:
        outline(rect, QColor(Qt::lightGray));
        painter.setPen(QPen(QColor(Qt::darkGray), width));
        painter.drawLine(rect.bottomLeft(), rect.bottomRight());
        painter.drawLine(rect.topRight(), rect.bottomRight());
        break;
    }
    painter.setAntialiasing(true);
}

void DrawTextBox(QCPPainter& painter, const TextBox& box) {
    painter.setAntialiasing(true);
    if (box.back) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(*box.back);
        painter.drawRect(box.rect);
    }
    DrawBorder(painter, box.rect, box.border, box.fore);
    const QPointF centre = box.rect.center();
    painter.save();
    QRectF rect = box.rect;
    if (box.vertical) {
        painter.translate(centre);
        painter.rotate(-90);
        rect = QRectF(-box.rect.height() / 2, -box.rect.width() / 2, box.rect.height(),
                      box.rect.width());
    }
    painter.setPen(box.fore);
    painter.setFont(box.font);
    const QFontMetricsF metrics(box.font);
    QPointF start;
    for (qsizetype line = 0; line < box.lines.size(); ++line) {
        start = LineStart(box, metrics, rect, line);
        painter.drawText(start, box.lines[line]);
    }
    if (!box.exponent.isEmpty()) {
        const double width = TextWidth(box.lines.back(), box.font);
        painter.setFont(ExponentFont(box.font));
        painter.drawText(start + QPointF(width, -metrics.ascent() * 0.42), box.exponent);
    }
    painter.restore();
}

void DrawLabels(QCPPainter& painter, const std::vector<TextBox>& labels) {
    painter.setAntialiasing(true);
    for (const TextBox& label : labels)
        if (label.leader) {
            QColor colour = label.fore;
            colour.setAlphaF(kLeaderShade);
            painter.setPen(QPen(colour, kLeaderPen));
            painter.drawLine(*label.leader);
        }
    for (const TextBox& label : labels)
        DrawTextBox(painter, label);
}

void DrawAxes(QCPPainter& painter, const PlotSurface& surface, const PictureLayout& layout,
              double pixelsPerPoint) {
    const PlotAxis& x = GetAxis(surface, AxisId::X);
    const PlotAxis& y = GetAxis(surface, AxisId::Y);
    if (surface.plotAreaFrame && surface.plotAreaFrameWidth > 0) {
        painter.setAntialiasing(false);
        const QRectF& area = layout.plotArea;
        for (const QLineF& side : {QLineF(area.topLeft(), area.topRight()),
                                   QLineF(area.bottomLeft(), area.bottomRight()),
                                   QLineF(area.topLeft(), area.bottomLeft()),
                                   QLineF(area.topRight(), area.bottomRight())})
            DrawCrisp(painter, side, surface.plotAreaFrameWidth, ToColour(x.colour, kBlack));
    }
    DrawAxis(painter, x, layout.x, layout.y, true, pixelsPerPoint);
    DrawAxis(painter, y, layout.y, layout.x, false, pixelsPerPoint);
}

void DrawLegend(QCPPainter& painter, const PlotSurface& surface, const LegendLayout& legend,
                double widthFactor) {
    const PlotLegend& source = surface.legend;
    if (!source.colours.transparent) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ToColour(source.colours.back, kWhite));
        painter.drawRect(legend.rect);
    }
    DrawBorder(painter, legend.rect, source.border, ToColour(source.colours.fore, kBlack));
    painter.setAntialiasing(true);
    for (const LegendEntry& entry : legend.entries) {
        const auto [group, series] = entry.line;
        const QPointF centre = entry.sample.center();
        LineStyle line = GetLineStyle(surface, group, series);
        line.colour = SeenOn(LegendGround(surface), line.colour);
        if (line.pattern != LinePattern::None) {
            painter.setPen(ToPen(line, widthFactor));
            painter.drawLine(QPointF(entry.sample.left(), centre.y()),
                             QPointF(entry.sample.right(), centre.y()));
        }
        SymbolStyle symbol = GetSymbol(surface, group, series);
        symbol.colour = SeenOn(LegendGround(surface), symbol.colour);
        if (symbol.shape != SymbolShape::Hidden) {
            const QCPScatterStyle scatter = ToScatter(symbol);
            scatter.applyTo(&painter, scatter.pen());
            scatter.drawShape(&painter, centre);
        }
        DrawTextBox(painter, entry.text);
    }
}

QVector<QPointF> ClipPolyline(const QVector<QPointF>& points, const QRectF& rect) {
    // NaN lies nowhere.
    if (std::ranges::all_of(points, [&](const QPointF& point) {
            return point.x() >= rect.left() && point.x() <= rect.right() &&
                   point.y() >= rect.top() && point.y() <= rect.bottom();
        }))
        return points;
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    QVector<QPointF> clipped;
    clipped.reserve(points.size());
    bool joined = false; // the last point written is the start of the next segment
    for (qsizetype i = 1; i < points.size(); ++i) {
        const QPointF from = points[i - 1], by = points[i] - points[i - 1];
        double begin = 0, end = 1;
        const bool isNumber = std::isfinite(by.x()) && std::isfinite(by.y());
        const bool inside = isNumber && ClipEdge(-by.x(), from.x() - rect.left(), begin, end) &&
                            ClipEdge(by.x(), rect.right() - from.x(), begin, end) &&
                            ClipEdge(-by.y(), from.y() - rect.top(), begin, end) &&
                            ClipEdge(by.y(), rect.bottom() - from.y(), begin, end);
        if (!inside) {
            joined = false;
            continue;
        }
        if (!joined || begin > 0) {
            if (!clipped.isEmpty())
                clipped.append({kNone, kNone});
            clipped.append(from + begin * by);
        }
        clipped.append(from + end * by);
        joined = end == 1;
    }
    return clipped;
}

} // namespace zorvant
