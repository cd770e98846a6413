// Key presses of a text editing widget before they take effect.
#pragma once

#include "platform/controls.h"

#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

class QInputMethodEvent;

namespace zorvant {

/// The code of a key press as the handlers of fields know it.
/// Returned: -1 for what is no key press to them: arrows, Tab, Del, Alt combinations, and the editing
/// shortcuts other than copy and paste.
int KeyCode(const QKeyEvent& event);

/// Hands each key press of an editor to a handler, which may change or drop it. Text that an input
/// method composes passes character by character. Dropping a copy has no effect: it changes nothing.
class KeyFilter : public QObject {
public:
    using Handler = std::function<void(int&)>;

    KeyFilter(QWidget& editor, Handler handler);

    /// To be called when the user's editing has changed the text. An edit that no key press announced
    /// (Del, cut, undo, a drop, a paste by mouse) is announced now.
    void NoteEdited();

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
