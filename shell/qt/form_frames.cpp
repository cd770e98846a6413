#include "shell/qt/form_frames.h"

#include "platform/host.h"

#include <QtWidgets>

namespace zorvant {
namespace {

/// What a window manager adds around a dialog, in pixels.
constexpr QSize kFrameOfDialog(16, 48);

} // namespace

FormScroll::FormScroll(QWidget* root) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setWidget(root);
    setFocusPolicy(Qt::NoFocus);
}

QSize FormScroll::sizeHint() const {
    return widget()->sizeHint().expandedTo(NeededSize());
}

QSize FormScroll::NeededSize() const {
    return widget()->minimumSizeHint().expandedTo(widget()->minimumSize());
}

bool FormScroll::eventFilter(QObject* watched, QEvent* event) {
    const bool changed = watched == widget() && event->type() == QEvent::LayoutRequest;
    const bool done = QScrollArea::eventFilter(watched, event);
    if (changed && onNeededSize)
        onNeededSize();
    return done;
}

void SubWindow::moveEvent(QMoveEvent* event) {
    QMdiSubWindow::moveEvent(event);
    if (onMoved)
        onMoved();
}

void SubWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (onCloseRequest)
        onCloseRequest();
}

void ModalWindow::reject() {
    if (onCloseRequest)
        onCloseRequest();
}

void ModalWindow::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::HelpContents))
        host().showHelp(helpTopic);
    else
        QDialog::keyPressEvent(event);
}

QSize WithinRoom(const QScrollArea& scroll, QSize size, const QSize& room) {
    const QSize wanted = size;
    if (wanted.height() > room.height())
        size.rwidth() += scroll.verticalScrollBar()->sizeHint().width();
    if (wanted.width() > room.width())
        size.rheight() += scroll.horizontalScrollBar()->sizeHint().height();
    return size.boundedTo(room);
}

QSize WithinScreen(const QScrollArea& scroll, QSize size) {
    return WithinRoom(scroll, size, scroll.screen()->availableSize() - kFrameOfDialog);
}

void MeasureAnew(QWidget& widget) {
    widget.ensurePolished();
    for (QObject* child : widget.children())
        if (child->isWidgetType())
            MeasureAnew(static_cast<QWidget&>(*child));
    if (widget.layout() != nullptr) {
        widget.layout()->invalidate();
        widget.layout()->activate();
    }
}

} // namespace zorvant
