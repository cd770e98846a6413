#include "shell/qt/symbol_stamps.h"

#include <cmath>

namespace zorvant {
namespace {

constexpr double kLargestSymbol = 64; ///< pixels

bool SameStyle(const QCPScatterStyle& one, const QCPScatterStyle& other) {
    return one.shape() == other.shape() && one.size() == other.size() && one.pen() == other.pen() &&
           one.brush() == other.brush() && one.customPath() == other.customPath();
}

} // namespace

bool SymbolStamps::Draw(QCPPainter& painter, const QVector<QPointF>& points,
                        const QCPScatterStyle& style) {
    const QTransform place = painter.combinedTransform();
    if (painter.modes().testFlag(QCPPainter::pmNoCaching) || style.size() > kLargestSymbol ||
        place.type() > QTransform::TxTranslate)
        return false;
    Choose(style, painter.antialiasing());
    for (const QPointF& point : points) {
        const QPointF device = place.map(point) * kSteps;
        if (!std::isfinite(device.x()) || !std::isfinite(device.y()))
            continue;
        const QPoint steps(qRound(device.x()), qRound(device.y()));
        const QPoint pixel(qFloor(steps.x() / static_cast<double>(kSteps)),
                           qFloor(steps.y() / static_cast<double>(kSteps)));
        const QPoint beyond = steps - pixel * kSteps;
        painter.drawImage(QPointF(pixel - QPoint(half_, half_)) - QPointF(place.dx(), place.dy()),
                          Stamp(beyond.x(), beyond.y()));
    }
    return true;
}

void SymbolStamps::Choose(const QCPScatterStyle& style, bool antialiased) {
    if (SameStyle(style, style_) && antialiased == antialiased_)
        return;
    style_ = style;
    antialiased_ = antialiased;
    half_ = static_cast<int>(std::ceil(style.size() / 2 + style.pen().widthF())) + 2;
    stamps_.fill(QImage());
}

const QImage& SymbolStamps::Stamp(int stepX, int stepY) {
    QImage& stamp = stamps_[static_cast<std::size_t>(stepY * kSteps + stepX)];
    if (!stamp.isNull())
        return stamp;
    stamp = QImage(2 * half_ + 1, 2 * half_ + 1, QImage::Format_ARGB32_Premultiplied);
    stamp.fill(Qt::transparent);
    QCPPainter painter(&stamp);
    painter.setAntialiasing(antialiased_);
    style_.applyTo(&painter, style_.pen());
    const QPointF point(half_ + static_cast<double>(stepX) / kSteps,
                        half_ + static_cast<double>(stepY) / kSteps);
    style_.drawShape(&painter, painter.combinedTransform().inverted().map(point));
    return stamp;
}

} // namespace zorvant
