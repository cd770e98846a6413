// What stands around the widget of a form: a view that scrolls where there is no room, a
// sub-window, a dialog.
#pragma once

#include <QDialog>
#include <QMdiSubWindow>
#include <QScrollArea>

#include <functional>

namespace zorvant {

/// A view of a form's widget that scrolls only when there is no room for the whole of it.
class FormScroll : public QScrollArea {
public:
    explicit FormScroll(QWidget* root);
    QSize sizeHint() const override;
    QSize NeededSize() const;
    std::function<void()> onNeededSize; ///< the contents may want another size

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// A sub-window that asks before it closes.
class SubWindow : public QMdiSubWindow {
public:
    std::function<void()> onCloseRequest;
    std::function<void()> onMoved;

protected:
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
};

/// A dialog of its own, with its help.
class ModalWindow : public QDialog {
public:
    using QDialog::QDialog;
    std::function<void()> onCloseRequest;
    int helpTopic = 0;
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

/// The size of a window for contents of this size: where they are too high or too wide for the
/// room, there is place for the bar that scrolls them.
QSize WithinRoom(const QScrollArea& scroll, QSize size, const QSize& room);
/// The same for a dialog on its screen.
QSize WithinScreen(const QScrollArea& scroll, QSize size);

/// Lets the layouts of a window that was never shown take notice of the texts that have been
/// written into it, from the innermost one outwards; the toolkit does so only for what is seen.
void MeasureAnew(QWidget& widget);

} // namespace zorvant
