// Symbols of points, painted once and then stamped.
#pragma once

#include <QImage>
#include <qcustomplot.h>

#include <array>

namespace zorvant {

/// Stamps of one style of symbols, for each quarter of a pixel that a point may lie at: a point is
/// never more than an eighth of a pixel beside its place.
class SymbolStamps {
public:
    /// Returned: false where stamps do not do: vector pictures, enlarged ones, very large symbols;
    ///           nothing is drawn then
    bool Draw(QCPPainter& painter, const QVector<QPointF>& points, const QCPScatterStyle& style);

private:
    static constexpr int kSteps = 4; ///< to a pixel
    void Choose(const QCPScatterStyle& style, bool antialiased);
    const QImage& Stamp(int stepX, int stepY);

    QCPScatterStyle style_;
    bool antialiased_ = true;
    int half_ = 0; ///< pixels from the edge of a stamp to the pixel of its point
    std::array<QImage, kSteps * kSteps> stamps_;
};

} // namespace zorvant
