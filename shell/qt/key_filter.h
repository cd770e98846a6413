// Key presses of a text editing widget before they take effect.
#pragma once

#include "platform/controls.h"

#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <utility>

class QInputMethodEvent;
class QLineEdit;

namespace zorvant {

/// The code of a key press as the handlers of fields know it.
/// Returned: -1 for what is no key press to them: arrows, Tab, Del, Alt combinations, and the
/// editing shortcuts other than copy and paste.
int KeyCode(const QKeyEvent& event);

/// The line in which an editor of one line takes its text, its own or that of a drop-down list;
/// null for other widgets.
QLineEdit* LineOf(QObject& editor);

/// Hands each key press of an editor (a line, a text, a drop-down list with a line) to a handler,
/// which may change or drop it. Text that an input method composes passes character by character.
/// Dropping a copy has no effect: it changes nothing.
class KeyFilter : public QObject {
public:
    using Handler = std::function<void(int&)>;

    KeyFilter(QWidget& editor, Handler handler);

    /// To be asked once when the user's editing has changed the text.
    /// Returned: whether the handler was told of the edit before it happened
    bool TakeAnnounced() { return std::exchange(announced_, false); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool FilterKey(QKeyEvent& event);
    bool FilterComposed(QInputMethodEvent& event);
    void Deliver(QEvent& event);

    QPointer<QWidget> editor_;
    Handler handler_;
    bool announced_ = false;
    const QEvent* delivered_ = nullptr; ///< the event on its way to the editor itself
};

} // namespace zorvant
