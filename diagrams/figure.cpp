#include "diagrams/figure.h"

#include <algorithm>
#include <cmath>

namespace zorvant {
namespace {

int Scaled(int pixels, double scale, int least) {
    return std::max(least, static_cast<int>(std::lround(pixels * scale)));
}

void Scale(Border& border, double scale) {
    border.width = Scaled(border.width, scale, 1);
}

void Scale(PlotSeries& series, double scale) {
    constexpr int kLeastSymbol = 3;
    series.line.width = Scaled(series.line.width, scale, 1);
    if (series.symbol.shape != SymbolShape::Hidden)
        series.symbol.size = Scaled(series.symbol.size, scale, kLeastSymbol);
}

void Scale(PlotAxis& axis, double scale) {
    axis.font.size *= scale;
    axis.titleFont.size *= scale;
    axis.lineWidth = Scaled(axis.lineWidth, scale, 1);
}

} // namespace

PlotSurface ScaledFigure(const PlotContents& contents, double scale) {
    PlotSurface figure;
    static_cast<PlotContents&>(figure) = contents;
    for (auto& group : figure.series)
        for (PlotSeries& series : group)
            Scale(series, scale);
    for (PlotAxis& axis : figure.axes)
        Scale(axis, scale);
    for (PlotLabel& label : figure.labels) {
        label.font.size *= scale;
        label.offset = Scaled(label.offset, scale, 1);
        Scale(label.border, scale);
    }
    for (TextBlock* block : {&figure.header, &figure.footer}) {
        block->font.size *= scale;
        Scale(block->border, scale);
    }
    figure.legend.font.size *= scale;
    Scale(figure.legend.border, scale);
    Scale(figure.chartBorder, scale);
    figure.plotAreaFrameWidth = Scaled(figure.plotAreaFrameWidth, scale, 1);
    for (Margin* margin :
         {&figure.margins.left, &figure.margins.right, &figure.margins.top, &figure.margins.bottom})
        margin->width = Scaled(margin->width, scale, 0);
    return figure;
}

} // namespace zorvant
