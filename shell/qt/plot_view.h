// The picture of a diagram on the screen. It shows what the record of the diagram holds and writes
// back only where things stand; it changes nothing else in it.
#pragma once

#include "shell/qt/plot_layout.h"

#include <QWidget>

#include <functional>
#include <memory>

class QPaintDevice;

namespace zorvant {

enum class PlotButton { Left, Right, Other };

class PlotView : public QWidget {
public:
    explicit PlotView(QWidget* parent = nullptr);
    ~PlotView() override;

    /// Brings the picture up to date when the record's revision, the record itself or the size has
    /// changed, and writes the rectangles of its parts into the record. Shows the rubber rectangle
    /// in any case. The record must outlive the view, or Forget be called.
    void Show(PlotSurface& surface);
    void Forget();

    /// Paints a diagram of that size on a device without showing it. `place` takes its logical
    /// pixels to those of the device; `vector` for devices that keep lines and texts as such.
    void PaintOn(QPaintDevice& device, PlotSurface& surface, QSize size, const QTransform& place,
                 bool vector);

    /// How often the picture was painted anew.
    int Repaints() const;

    /// The mouse over the picture, in logical pixels from its upper left corner.
    std::function<void(double px, double py)> onMouseMove;
    std::function<void(PlotButton button, double px, double py)> onMousePress, onMouseRelease;
    std::function<void()> onMouseLeave;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Canvas;
    void Refresh();

    std::unique_ptr<Canvas> canvas_;
    PlotSurface* surface_ = nullptr;
    std::uint64_t shownRevision_ = 0;
    QSize shownSize_;
};

} // namespace zorvant
