#include "shell/qt/plot_view.h"

#include "shell/qt/plot_paint.h"
#include "shell/qt/symbol_stamps.h"

#include <qcustomplot.h>

#include <array>
#include <cmath>
#include <limits>

namespace zorvant {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kPictureDotsPerInch = 96;          ///< of pictures that are not on a screen
constexpr double kCursorRadius = 6, kCursorPen = 2; ///< pixels
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

/// Marks that were settled elsewhere.
class MarkTicker : public QCPAxisTicker {
public:
    QVector<double> marks;
    void generate(const QCPRange&, const QLocale&, QChar, int, QVector<double>& ticks,
                  QVector<double>* subTicks, QVector<QString>* tickLabels) override {
        ticks = marks;
        if (subTicks != nullptr)
            subTicks->clear();
        if (tickLabels != nullptr)
            tickLabels->clear();
    }
};

/// A layer's content that paints itself by a function.
class Painted : public QCPLayerable {
public:
    using Paint = std::function<void(QCPPainter&)>;
    Painted(QCustomPlot* plot, const QString& layer, Paint paint)
        : QCPLayerable(plot, layer), paint_(std::move(paint)) {}

protected:
    void applyDefaultAntialiasingHint(QCPPainter* painter) const override {
        painter->setAntialiasing(true);
    }
    void draw(QCPPainter* painter) override { paint_(*painter); }

private:
    Paint paint_;
};

/// A line that ends at the frame by itself: some devices know no clipping.
class LineSeries : public QCPCurve {
public:
    using QCPCurve::QCPCurve;
    QRectF frame;

protected:
    void drawCurveLine(QCPPainter* painter, const QVector<QPointF>& lines) const override {
        QCPCurve::drawCurveLine(painter, ClipPolyline(lines, frame));
    }
};

/// Symbols whose points lie inside are whole, also those that sit on the frame.
class SymbolSeries : public QCPCurve {
public:
    using QCPCurve::QCPCurve;

protected:
    QRect clipRect() const override { return mParentPlot->viewport(); }
    void drawScatterPlot(QCPPainter* painter, const QVector<QPointF>& points,
                         const QCPScatterStyle& style) const override {
        applyScattersAntialiasingHint(painter);
        if (!stamps_.Draw(*painter, points, style))
            QCPCurve::drawScatterPlot(painter, points, style);
    }

private:
    mutable SymbolStamps stamps_;
};

/// A vertical mark runs through the whole plot area, also where y is logarithmic or below 0.
PlotSeries OverWholeHeight(PlotSeries mark, const ShownAxisRange& y) {
    mark.y.assign(mark.y.size(), y.min);
    mark.y.back() = y.max;
    return mark;
}

bool PaintsChartArea(const PlotSurface& surface) {
    return !surface.chartArea.transparent && surface.chartArea.back != surface.chart.back;
}

struct SeriesItems {
    LineSeries* line = nullptr;
    SymbolSeries* symbols = nullptr;
};

} // namespace

// ---

class PlotView::Canvas : public QCustomPlot {
public:
    explicit Canvas(PlotView& view);

    /// Everything from the record; nothing is painted yet.
    void Build(PlotSurface& surface, QSize size, double pixelsPerPoint, double lineFactor);
    /// The rectangle of the zoom and the marked point have a buffer of their own only while there
    /// is one: laying one more over the picture takes as long as the curves.
    void PaintOverlay() {
        QCPLayer& overlay = *layer(QStringLiteral("overlay"));
        const bool used =
            surface_ != nullptr && (surface_->rubber.dragging || surface_->cursor.has_value());
        const QCPLayer::LayerMode mode = used ? QCPLayer::lmBuffered : QCPLayer::lmLogical;
        if (overlay.mode() == mode) {
            if (used)
                overlay.replot();
            return;
        }
        overlay.setMode(mode);
        replot(rpQueuedRefresh);
    }
    void Clear() { surface_ = nullptr; }

    int repaints = 0;

protected:
    void resizeEvent(QResizeEvent*) override { setViewport(rect()); } // the view paints anew
    void mouseMoveEvent(QMouseEvent* event) override {
        if (view_.onMouseMove)
            view_.onMouseMove(event->position().x(), event->position().y());
    }
    void mousePressEvent(QMouseEvent* event) override { Pass(view_.onMousePress, *event); }
    void mouseReleaseEvent(QMouseEvent* event) override { Pass(view_.onMouseRelease, *event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { Pass(view_.onMousePress, *event); }
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
    void leaveEvent(QEvent*) override {
        if (view_.onMouseLeave)
            view_.onMouseLeave();
    }

private:
    static void Pass(const std::function<void(PlotButton, double, double)>& handler,
                     const QMouseEvent& event) {
        if (!handler)
            return;
        const PlotButton button = event.button() == Qt::LeftButton    ? PlotButton::Left
                                  : event.button() == Qt::RightButton ? PlotButton::Right
                                                                      : PlotButton::Other;
        handler(button, event.position().x(), event.position().y());
    }
    void BuildAxis(QCPAxis& axis, MarkTicker& ticker, const PlotAxis& source,
                   const AxisLayout& layout);
    void BuildSeries(SeriesItems& items, const PlotSeries& series, int group);
    void PaintBackground(QCPPainter& painter) const;
    void PaintTexts(QCPPainter& painter) const;
    void PaintRubber(QCPPainter& painter) const;
    void PaintCursor(QCPPainter& painter) const;

    PlotView& view_;
    PlotSurface* surface_ = nullptr;
    PictureLayout layout_;
    double pixelsPerPoint_ = kPictureDotsPerInch / kPointsPerInch;
    double lineFactor_ = kScreenLine;
    QSharedPointer<MarkTicker> xTicker_{new MarkTicker}, yTicker_{new MarkTicker};
    std::array<std::vector<SeriesItems>, 3> items_; ///< by group, as the record's series
};

PlotView::Canvas::Canvas(PlotView& view) : QCustomPlot(&view), view_(view) {
    setMouseTracking(true);
    plotLayout()->setMargins({});
    axisRect()->setAutoMargins(QCP::msNone);
    axisRect()->setMinimumSize(1, 1);
    addLayer(QStringLiteral("symbols"), layer(QStringLiteral("main")));
    layer(QStringLiteral("overlay"))->setMode(QCPLayer::lmLogical);
    axisRect()->setupFullAxesBox();
    for (QCPAxis* axis : {xAxis, yAxis, xAxis2, yAxis2}) {
        axis->setBasePen(Qt::NoPen);
        axis->setTicks(false);
        axis->setTickLabels(false);
        axis->grid()->setVisible(false);
        axis->grid()->setZeroLinePen(Qt::NoPen);
    }
    xAxis->setTicker(xTicker_);
    yAxis->setTicker(yTicker_);
    new Painted(this, QStringLiteral("background"),
                [this](QCPPainter& painter) { PaintBackground(painter); });
    new Painted(this, QStringLiteral("axes"), [this](QCPPainter& painter) {
        if (surface_ != nullptr)
            DrawAxes(painter, *surface_, layout_, pixelsPerPoint_);
    });
    new Painted(this, QStringLiteral("legend"),
                [this](QCPPainter& painter) { PaintTexts(painter); });
    new Painted(this, QStringLiteral("overlay"), [this](QCPPainter& painter) {
        PaintCursor(painter);
        PaintRubber(painter);
    });
    connect(this, &QCustomPlot::afterReplot, this, [this] { ++repaints; });
}

void PlotView::Canvas::BuildAxis(QCPAxis& axis, MarkTicker& ticker, const PlotAxis& source,
                                 const AxisLayout& layout) {
    const ShownAxisRange& range = layout.scale.range;
    axis.setScaleType(range.log ? QCPAxis::stLogarithmic : QCPAxis::stLinear);
    axis.setRange(range.min, range.max);
    axis.grid()->setVisible(source.gridPattern != LinePattern::None);
    axis.grid()->setPen(GridPen(source));
    ticker.marks = QVector<double>(layout.grid.begin(), layout.grid.end());
}

void PlotView::Canvas::BuildSeries(SeriesItems& items, const PlotSeries& series, int group) {
    const bool shown = series.display == SeriesDisplay::Shown && !series.x.empty();
    const bool hasLine = shown && series.line.pattern != LinePattern::None;
    const bool hasSymbols = shown && series.symbol.shape != SymbolShape::Hidden;
    const AxisScale &x = layout_.x.scale, &y = layout_.y.scale;
    if (hasLine) {
        if (items.line == nullptr)
            items.line = new LineSeries(xAxis, yAxis);
        QVector<QCPCurveData> points;
        points.reserve(static_cast<qsizetype>(series.x.size()));
        for (std::size_t i = 0; i < series.x.size(); ++i) {
            // A logarithmic axis shows the positive part.
            const bool none = IsHole(series, static_cast<int>(i) + 1) ||
                              (x.range.log && series.x[i] <= 0) ||
                              (y.range.log && series.y[i] <= 0);
            points.append({static_cast<double>(i), none ? kNoNumber : series.x[i],
                           none ? kNoNumber : series.y[i]});
        }
        items.line->data()->set(points, true);
        LineStyle style = series.line;
        style.colour = SeenOn(PlotGround(*surface_), style.colour);
        items.line->setPen(ToPen(style, lineFactor_));
        items.line->frame = layout_.plotArea;
    }
    if (hasSymbols) {
        if (items.symbols == nullptr) {
            items.symbols = new SymbolSeries(xAxis, yAxis);
            items.symbols->setLineStyle(QCPCurve::lsNone);
            items.symbols->setLayer(group == kPoints ? QStringLiteral("symbols")
                                                     : QStringLiteral("main"));
        }
        QVector<QCPCurveData> points;
        for (std::size_t i = 0; i < series.x.size(); ++i)
            if (!IsHole(series, static_cast<int>(i) + 1) && x.Shows(series.x[i]) &&
                y.Shows(series.y[i]))
                points.append({static_cast<double>(i), series.x[i], series.y[i]});
        items.symbols->data()->set(points, true);
        SymbolStyle style = series.symbol;
        style.colour = SeenOn(PlotGround(*surface_), style.colour);
        items.symbols->setScatterStyle(ToScatter(style));
    }
    if (items.line != nullptr)
        items.line->setVisible(hasLine);
    if (items.symbols != nullptr)
        items.symbols->setVisible(hasSymbols);
}

void PlotView::Canvas::Build(PlotSurface& surface, QSize size, double pixelsPerPoint,
                             double lineFactor) {
    surface_ = &surface;
    lineFactor_ = lineFactor;
    pixelsPerPoint_ = pixelsPerPoint;
    layout_ = LayOut(surface, size, pixelsPerPoint);
    surface.layout = ToPlotLayout(layout_);

    const QRect& area = layout_.axisRect;
    axisRect()->setMargins({area.left(), area.top(), size.width() - area.left() - area.width(),
                            size.height() - area.top() - area.height()});
    setBackground(QBrush(ToColour(surface.chart.back, kWhite)));
    // What has the colour of the ground below need not be painted.
    const Colour ground = PaintsChartArea(surface) ? surface.chartArea.back : surface.chart.back;
    const bool same = surface.plotArea.transparent || surface.plotArea.back == ground;
    axisRect()->setBackground(same ? QBrush(Qt::NoBrush)
                                   : QBrush(ToColour(surface.plotArea.back, kWhite)));
    BuildAxis(*xAxis, *xTicker_, GetAxis(surface, AxisId::X), layout_.x);
    BuildAxis(*yAxis, *yTicker_, GetAxis(surface, AxisId::Y), layout_.y);
    for (const int group : {kLines, kPoints}) {
        auto& items = items_[static_cast<std::size_t>(group)];
        const int count = GetSeriesCount(surface, group);
        for (std::size_t i = static_cast<std::size_t>(count); i < items.size(); ++i)
            BuildSeries(items[i], {}, group);
        items.resize(std::max(items.size(), static_cast<std::size_t>(count)));
        for (int series = 1; series <= count; ++series) {
            const PlotSeries& source = GetSeries(surface, group, series);
            const bool mark = group == kLines && series >= kHalfLifeASeries && !source.x.empty();
            BuildSeries(items[static_cast<std::size_t>(series - 1)],
                        mark ? OverWholeHeight(source, layout_.y.scale.range) : source, group);
        }
    }
}

void PlotView::Canvas::PaintBackground(QCPPainter& painter) const {
    if (surface_ == nullptr || !PaintsChartArea(*surface_))
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(ToColour(surface_->chartArea.back, kWhite));
    painter.drawRect(layout_.chartArea);
}

void PlotView::Canvas::PaintTexts(QCPPainter& painter) const {
    if (surface_ == nullptr)
        return;
    DrawLabels(painter, layout_.labels);
    if (layout_.header)
        DrawTextBox(painter, *layout_.header);
    if (layout_.footer)
        DrawTextBox(painter, *layout_.footer);
    if (layout_.legend)
        DrawLegend(painter, *surface_, *layout_.legend, lineFactor_);
    const Border& border = surface_->chartBorder;
    const double half = border.width * 0.5;
    DrawBorder(painter, layout_.picture.adjusted(half, half, -half - 1, -half - 1), border,
               ToColour(surface_->chart.fore, kBlack));
}

/// A ring and a cross hair around the point that the keys walk along.
void PlotView::Canvas::PaintCursor(QCPPainter& painter) const {
    const std::optional<SeriesPoint> at =
        surface_ == nullptr ? std::nullopt : ShownCursor(*surface_);
    if (!at)
        return;
    const QPointF centre(layout_.x.scale.Pixel(GetX(*surface_, at->group, at->series, at->point)),
                         layout_.y.scale.Pixel(GetY(*surface_, at->group, at->series, at->point)));
    const QColor colour = ToColour(PlotGround(*surface_).fore, kBlack);
    const QRectF& area = layout_.plotArea;
    painter.setAntialiasing(true);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, 1, Qt::DotLine));
    painter.drawLine(QPointF(centre.x(), area.top()), QPointF(centre.x(), area.bottom()));
    painter.drawLine(QPointF(area.left(), centre.y()), QPointF(area.right(), centre.y()));
    painter.setPen(QPen(colour, kCursorPen));
    painter.drawEllipse(centre, kCursorRadius, kCursorRadius);
}

void PlotView::Canvas::PaintRubber(QCPPainter& painter) const {
    if (surface_ == nullptr || !surface_->rubber.dragging)
        return;
    const RubberZoom& rubber = surface_->rubber;
    painter.setAntialiasing(false);
    painter.setPen(QPen(Qt::darkGray, 1, Qt::DashLine));
    painter.setBrush(QColor(0, 0, 0, 16));
    painter.drawRect(
        QRectF(QPointF(rubber.startX, rubber.startY), QPointF(rubber.endX, rubber.endY))
            .normalized());
}

// ---

PlotView::PlotView(QWidget* parent) : QWidget(parent), canvas_(std::make_unique<Canvas>(*this)) {}

PlotView::~PlotView() = default;

void PlotView::Show(PlotSurface& surface) {
    const bool same =
        surface_ == &surface && shownRevision_ == surface.revision && shownSize_ == size();
    surface_ = &surface;
    if (same)
        canvas_->PaintOverlay();
    else
        Refresh();
}

void PlotView::Forget() {
    surface_ = nullptr;
    canvas_->Clear();
}

void PlotView::Refresh() {
    shownRevision_ = surface_->revision;
    shownSize_ = size();
    canvas_->setGeometry(rect());
    canvas_->setViewport(rect());
    canvas_->Build(*surface_, size(), logicalDpiY() / kPointsPerInch, kScreenLine);
    canvas_->replot(QCustomPlot::rpQueuedRefresh);
}

void PlotView::PaintOn(QPaintDevice& device, PlotSurface& surface, QSize size,
                       const QTransform& place, bool vector) {
    canvas_->Build(surface, size, kPictureDotsPerInch / kPointsPerInch, kPictureLine);
    QCPPainter painter;
    painter.begin(&device);
    painter.setMode(QCPPainter::pmVectorized, vector);
    painter.setTransform(place);
    // What lies over the picture on the screen does not belong to it.
    canvas_->layer(QStringLiteral("overlay"))->setVisible(false);
    canvas_->toPainter(&painter, size.width(), size.height());
    canvas_->layer(QStringLiteral("overlay"))->setVisible(true);
    painter.end();
    if (surface_ != nullptr)
        Refresh();
    else
        canvas_->Clear();
}

int PlotView::Repaints() const {
    return canvas_->repaints;
}

QSize PlotView::sizeHint() const {
    return {720, 480};
}

QSize PlotView::minimumSizeHint() const {
    return {160, 120};
}

void PlotView::resizeEvent(QResizeEvent*) {
    canvas_->setGeometry(rect());
    if (surface_ != nullptr)
        Refresh();
}

} // namespace zorvant
