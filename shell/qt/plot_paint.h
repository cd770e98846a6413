// Pens, symbols and the painting of what a laid-out picture has beside its curves.
#pragma once

#include "shell/qt/plot_layout.h"

#include <QPen>
#include <QRectF>
#include <QVector>

class QCPPainter;
class QCPScatterStyle;

namespace zorvant {

/// Qt::NoPen for a pattern that shows nothing.
/// Lines as wide as print and enlarged pictures need them, against the pixels of their style. On
/// the screen a line of one pixel is painted in a tenth of the time of a wider one.
inline constexpr double kPictureLine = 1.3, kScreenLine = 1;
QPen ToPen(const LineStyle& style, double widthFactor);
QPen GridPen(const PlotAxis& axis);
QCPScatterStyle ToScatter(const SymbolStyle& style);

/// Labels with the lines to their points, which lie below all of them.
void DrawLabels(QCPPainter& painter, const std::vector<TextBox>& labels);
void DrawTextBox(QCPPainter& painter, const TextBox& box);
void DrawBorder(QCPPainter& painter, const QRectF& rect, const Border& border,
                const QColor& colour);
/// Axis lines, ticks, numbers and titles, and the frame of the plot area.
void DrawAxes(QCPPainter& painter, const PlotSurface& surface, const PictureLayout& layout,
              double pixelsPerPoint);
void DrawLegend(QCPPainter& painter, const PlotSurface& surface, const LegendLayout& legend,
                double widthFactor);

/// The parts of a polyline that lie in a rectangle, parted by points that are not numbers.
QVector<QPointF> ClipPolyline(const QVector<QPointF>& points, const QRectF& rect);

} // namespace zorvant
