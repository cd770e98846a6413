#include "shell/qt/meta_picture.h"

#include <QPaintEngine>
#include <QPainterPath>

#include <cmath>

namespace zorvant {
namespace {

constexpr int kDotsPerInch = 96;
/// Curves are broken into lines as on a device this many times as fine.
constexpr double kFineness = 16;
constexpr double kSameLength = 1e-9;
constexpr double kShortestStroke = 1e-6;

double ScaleOf(const QTransform& transform) {
    return std::sqrt(std::abs(transform.determinant()));
}

/// A stroke of no length, which some readers draw as a dot and others not.
bool IsPoint(const QPolygonF& stroke) {
    return std::ranges::all_of(stroke, [&](const QPointF& point) {
        return QLineF(stroke.first(), point).length() <= kShortestStroke;
    });
}

QList<QPolygonF> Outlines(const QPainterPath& path, const QTransform& transform) {
    QList<QPolygonF> outlines =
        path.toSubpathPolygons(transform * QTransform::fromScale(kFineness, kFineness));
    for (QPolygonF& outline : outlines)
        outline = QTransform::fromScale(1 / kFineness, 1 / kFineness).map(outline);
    return outlines;
}

class MetaEngine : public QPaintEngine {
public:
    explicit MetaEngine(MetaPicture& picture)
        : QPaintEngine(PrimitiveTransform | PainterPaths | AlphaBlend | Antialiasing |
                       ConstantOpacity | BrushStroke | PaintOutsidePaintEvent),
          picture_(picture) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& now) override {
        const DirtyFlags dirty = now.state();
        if (dirty.testFlag(DirtyTransform))
            transform_ = now.transform();
        if (dirty.testFlag(DirtyPen))
            pen_ = now.pen();
        if (dirty.testFlag(DirtyBrush))
            brush_ = now.brush();
        if (dirty.testFlag(DirtyClipRegion))
            Clip(now.clipOperation(), QRectF(now.clipRegion().boundingRect()));
        if (dirty.testFlag(DirtyClipPath))
            Clip(now.clipOperation(), now.clipPath().boundingRect());
        if (dirty.testFlag(DirtyClipEnabled))
            clipEnabled_ = now.isClipEnabled();
    }

    void drawPath(const QPainterPath& path) override {
        MetaShape shape = Styled();
        shape.outlines = Outlines(path, transform_);
        shape.winding = path.fillRule() == Qt::WindingFill;
        shape.closed = std::ranges::all_of(
            shape.outlines, [](const QPolygonF& outline) { return outline.isClosed(); });
        if (!shape.closed && shape.fill) {
            MetaShape filled = shape;
            filled.closed = true;
            filled.pen.reset();
            Add(filled);
        }
        if (!shape.closed)
            shape.fill.reset();
        Add(shape);
    }

    using QPaintEngine::drawPolygon;
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
        MetaShape shape = Styled();
        shape.outlines = {transform_.map(QPolygonF(QList<QPointF>(points, points + count)))};
        shape.closed = mode != PolylineMode;
        shape.winding = mode == WindingMode;
        if (!shape.closed)
            shape.fill.reset();
        Add(shape);
    }

    using QPaintEngine::drawEllipse;
    void drawEllipse(const QRectF& box) override {
        if (transform_.type() > QTransform::TxScale) {
            QPainterPath path;
            path.addEllipse(box);
            drawPath(path);
            return;
        }
        MetaShape shape = Styled();
        shape.ellipse = transform_.mapRect(box);
        shape.closed = true;
        Add(shape);
    }

    void drawTextItem(const QPointF& start, const QTextItem& item) override {
        MetaText text;
        text.text = item.text();
        text.start = transform_.map(start);
        text.font = item.font();
        text.angle = std::atan2(-transform_.m12(), transform_.m11()) * 180 / M_PI;
        const double scale = ScaleOf(transform_);
        if (std::abs(scale - 1) > kSameLength)
            text.font.setPixelSize(std::max(1, qRound(text.font.pixelSize() * scale)));
        text.colour = pen_.color().rgb();
        const QRectF box(start.x(), start.y() - item.ascent(), item.width(),
                         item.ascent() + item.descent());
        text.clip = NeededClip(transform_.mapRect(box));
        picture_.items.emplace_back(text);
    }

    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}

private:
    MetaShape Styled() const {
        MetaShape shape;
        if (brush_.style() != Qt::NoBrush)
            shape.fill = brush_.color().rgb();
        if (pen_.style() == Qt::NoPen)
            return shape;
        MetaPen pen;
        pen.colour = pen_.color().rgb();
        pen.cap = pen_.capStyle();
        pen.join = pen_.joinStyle();
        const double width = pen_.widthF() > 0 ? pen_.widthF() : 1;
        pen.width = pen_.isCosmetic() ? width : width * ScaleOf(transform_);
        for (const qreal length : pen_.dashPattern())
            pen.dashes.append(length * pen.width);
        shape.pen = pen;
        return shape;
    }

    void Add(MetaShape& shape) {
        if (!shape.pen && !shape.fill)
            return;
        QRectF bounds = shape.ellipse;
        for (const QPolygonF& outline : shape.outlines)
            bounds |= outline.boundingRect();
        const double half = shape.pen ? shape.pen->width / 2 : 0;
        shape.clip = NeededClip(bounds.adjusted(-half, -half, half, half));
        picture_.items.emplace_back(shape);
    }

    void Clip(Qt::ClipOperation operation, const QRectF& rect) {
        const QRectF mapped = transform_.mapRect(rect);
        clipEnabled_ = operation != Qt::NoClip;
        if (operation == Qt::IntersectClip && clip_)
            clip_ = clip_->intersected(mapped);
        else if (operation != Qt::NoClip)
            clip_ = mapped;
        else
            clip_.reset();
    }

    /// The edge of the picture cuts everything off by itself.
    std::optional<QRectF> NeededClip(const QRectF& bounds) const {
        const QRectF whole(QPointF(0, 0), QSizeF(picture_.size));
        if (!clipEnabled_ || !clip_ || clip_->contains(bounds.intersected(whole)))
            return std::nullopt;
        return clip_;
    }

    MetaPicture& picture_;
    QTransform transform_;
    QPen pen_;
    QBrush brush_;
    std::optional<QRectF> clip_;
    bool clipEnabled_ = false;
};

} // namespace

MetaDevice::MetaDevice(MetaPicture& picture)
    : picture_(picture), engine_(std::make_unique<MetaEngine>(picture)) {}

MetaDevice::~MetaDevice() = default;

QPaintEngine* MetaDevice::paintEngine() const {
    return engine_.get();
}

int MetaDevice::metric(PaintDeviceMetric metric) const {
    switch (metric) {
    case PdmWidth:
        return picture_.size.width();
    case PdmHeight:
        return picture_.size.height();
    case PdmWidthMM:
        return qRound(picture_.size.width() * 25.4 / kDotsPerInch);
    case PdmHeightMM:
        return qRound(picture_.size.height() * 25.4 / kDotsPerInch);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return kDotsPerInch;
    case PdmNumColors:
        return std::numeric_limits<int>::max();
    case PdmDepth:
        return 24;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return qRound(devicePixelRatioFScale());
    default:
        return QPaintDevice::metric(metric);
    }
}

MetaShape OutlinesOf(const MetaText& text) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addText(QPointF(0, 0), text.font, text.text);
    MetaShape shape;
    shape.outlines = Outlines(
        path, QTransform::fromTranslate(text.start.x(), text.start.y()).rotate(-text.angle));
    shape.closed = shape.winding = true;
    shape.fill = text.colour;
    shape.clip = text.clip;
    return shape;
}

MetaShape StrokesOf(const MetaShape& dashed) {
    MetaShape strokes = dashed;
    strokes.outlines.clear();
    strokes.closed = false;
    strokes.fill.reset();
    const QList<qreal>& lengths = dashed.pen->dashes;
    strokes.pen->dashes.clear();
    for (const QPolygonF& outline : dashed.outlines) {
        qsizetype phase = 0;
        double left = lengths[0];
        QPolygonF stroke;
        const auto end = [&] {
            if (stroke.size() > 1 && !IsPoint(stroke))
                strokes.outlines.append(stroke);
            stroke.clear();
        };
        for (qsizetype i = 1; i < outline.size(); ++i) {
            const QLineF side(outline[i - 1], outline[i]);
            for (double done = 0; side.length() - done > kSameLength;) {
                const double step = std::min(left, side.length() - done);
                if (phase % 2 == 0) {
                    if (stroke.isEmpty())
                        stroke.append(side.pointAt(done / side.length()));
                    stroke.append(side.pointAt((done + step) / side.length()));
                }
                done += step;
                left -= step;
                if (left > kSameLength)
                    continue;
                end();
                phase = (phase + 1) % lengths.size();
                left = lengths[phase];
            }
        }
        end();
    }
    return strokes;
}

} // namespace zorvant
