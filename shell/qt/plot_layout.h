// Where everything in a diagram's picture stands: texts, numbers, legend and plot area in pixels,
// worked out from the record of the diagram and the metrics of its fonts. Nothing is painted here.
#pragma once

#include "shell/qt/plot_text.h"

#include <QRect>
#include <QSize>

#include <vector>

namespace zorvant {

/// Data to pixels along one axis.
struct AxisScale {
    ShownAxisRange range;
    double pixelMin = 0, pixelMax = 1; ///< of range.min and range.max
    double Pixel(double value) const;
    bool Shows(double value) const;
};

struct AxisLayout {
    AxisScale scale;
    double line = 0;           ///< pixel on the other axis where this axis' line stands
    double numberLine = 0;     ///< the same of its numbers
    std::vector<double> grid;  ///< data
    std::vector<double> ticks; ///< data
    std::vector<double> marks; ///< data, the ticks with a number
    double spacing = 1;        ///< of the numbers, data
    bool powers = false;       ///< the numbers are powers of ten
    std::vector<TextBox> numbers;
    std::optional<TextBox> factor; ///< the power of ten of all numbers
    std::optional<TextBox> title;
};

struct LegendEntry {
    LegendLine line;
    QRectF sample; ///< where line and symbol are shown
    TextBox text;
};
struct LegendLayout {
    QRectF rect;
    std::vector<LegendEntry> entries;
};

struct PictureLayout {
    QRectF picture, chartArea;
    QRect axisRect;  ///< whole pixels, as the plotting axes take it
    QRectF plotArea; ///< what the data ranges cover
    Margins margins; ///< pixels, as wide as they came out
    std::optional<TextBox> header, footer;
    AxisLayout x, y;
    std::optional<LegendLayout> legend;
    std::vector<TextBox> labels; ///< of curves and marks, the visible ones
};

/// Lays out a picture.
/// Given:    size in logical pixels; pixelsPerPoint: 4/3 at 96 dots to the inch
/// Returned: texts wrapped or made smaller where they are too long, numbers left out where they
///           would touch, labels inside the plot area and apart from each other
PictureLayout LayOut(const PlotSurface& surface, QSize size, double pixelsPerPoint);

/// The labels, laid out when everything else is; later ones make room for earlier ones.
std::vector<TextBox> PlaceLabels(const PlotSurface& surface, const PictureLayout& layout,
                                 double pixelsPerPoint);

/// The rectangles that nearest point, zoom and mouse readout work with.
PlotLayout ToPlotLayout(const PictureLayout& layout);

} // namespace zorvant
