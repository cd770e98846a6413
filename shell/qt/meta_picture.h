// A picture as metafiles have it: a list of shapes and texts, recorded from a painter.
#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QPolygonF>
#include <QRectF>

#include <algorithm>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace zorvant {

// Lengths are logical pixels of 1/96 inch, y downward.

struct MetaPen {
    QRgb colour = qRgb(0, 0, 0);
    double width = 1;
    QList<qreal> dashes; ///< strokes and gaps in turn; empty: solid
    Qt::PenCapStyle cap = Qt::FlatCap;
    Qt::PenJoinStyle join = Qt::RoundJoin;
    bool operator==(const MetaPen& other) const {
        return colour == other.colour && width == other.width && cap == other.cap &&
               join == other.join && std::ranges::equal(dashes, other.dashes);
    }
};

struct MetaShape {
    QList<QPolygonF> outlines;
    QRectF ellipse;       ///< in place of the outlines, unless null
    bool closed = false;  ///< outlines are polygons, else lines
    bool winding = false; ///< what lies in two outlines is filled
    std::optional<MetaPen> pen;
    std::optional<QRgb> fill;
    std::optional<QRectF> clip; ///< only where something would stand out of it
};

struct MetaText {
    QString text;     ///< one line
    QPointF start;    ///< on the base line
    QFont font;       ///< size in pixels
    double angle = 0; ///< degrees, counter-clockwise
    QRgb colour = qRgb(0, 0, 0);
    std::optional<QRectF> clip;
};

struct MetaPicture {
    QSize size;
    std::vector<std::variant<MetaShape, MetaText>> items;
};

/// What is painted on it is added to the picture. Pixmaps and gradients are not part of diagrams
/// and are left out; colours are opaque.
class MetaDevice : public QPaintDevice {
public:
    explicit MetaDevice(MetaPicture& picture);
    ~MetaDevice() override;
    QPaintEngine* paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    MetaPicture& picture_;
    std::unique_ptr<QPaintEngine> engine_;
};

/// The shape of a text, for formats that have no letters for it.
MetaShape OutlinesOf(const MetaText& text);
/// The strokes of dashed outlines as lines of their own, for formats without such pens.
MetaShape StrokesOf(const MetaShape& dashed);

} // namespace zorvant
