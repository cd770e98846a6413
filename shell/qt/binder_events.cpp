// What the toolkit tells by events alone: focus, keys of lists and grids, Enter and Esc, clicks on
// labels and pictures, the wheel.
#include "shell/qt/binder.h"
#include "shell/qt/key_filter.h"

#include <QtWidgets>

namespace zorvant {
namespace {

bool IsEnter(const QKeyEvent& key) {
    return (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) &&
           !(key.modifiers() & ~Qt::KeypadModifier);
}

/// A field with nothing to take back leaves the keys of undo to its dialog.
bool LeavesUndo(QObject& watched, const QKeyEvent& key) {
    const QLineEdit* const line = LineOf(watched);
    return line != nullptr && ((key.matches(QKeySequence::Undo) && !line->isUndoAvailable()) ||
                               (key.matches(QKeySequence::Redo) && !line->isRedoAvailable()));
}

/// Esc in an open drop-down list closes the list; the dialog's own Esc is not meant.
bool IsEscapeOfList(const QObject& watched, const QKeyEvent& key) {
    return key.key() == Qt::Key_Escape && qobject_cast<const QAbstractItemView*>(&watched) &&
           static_cast<const QWidget&>(watched).window()->windowType() == Qt::Popup;
}

/// A key that may be a shortcut comes first as a question. Returned: whether it is answered here.
bool AnswersShortcut(QObject& watched, QKeyEvent& key) {
    if (IsEscapeOfList(watched, key)) {
        key.accept();
        return true;
    }
    if (!LeavesUndo(watched, key))
        return false;
    key.ignore();
    return true;
}

/// A wheel turned to scroll the window must not change a number on its way.
bool PassesOn(const QWidget& widget, QEvent& wheel) {
    const bool takes = qobject_cast<const QComboBox*>(&widget) ||
                       qobject_cast<const QAbstractSpinBox*>(&widget) ||
                       qobject_cast<const QSlider*>(&widget);
    if (!takes || widget.hasFocus())
        return false;
    wheel.ignore();
    return true;
}

/// A control of one kind with a handler of its own, run.
template <class Kind> void RunClick(Control& control) {
    Binder::Run(&control, static_cast<Kind&>(control).onClick);
}

} // namespace

void Binder::BindEscape() {
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), &root_);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, [this] {
        if (form_.onEscape)
            Run(nullptr, form_.onEscape);
        else if (QAbstractButton* const button = UsableButton(&ButtonContents::isCancel))
            button->click();
    });
}

QAbstractButton* Binder::UsableButton(bool ButtonContents::*role) const {
    for (const Link& link : links_)
        if (link.control->kind == Kind::Button && static_cast<const Button*>(link.control)->*role &&
            link.widget->isVisible() && link.widget->isEnabled())
            return static_cast<QAbstractButton*>(link.widget);
    return nullptr;
}

const Binder::Link* Binder::LinkOf(const QObject* watched) const {
    const auto found = std::ranges::find(links_, watched, &Link::widget);
    return found == links_.end() ? nullptr : &*found;
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    if (detached_)
        return false;
    if (watched == &root_)
        return RootEvent(*event);
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        return AnswersShortcut(*watched, static_cast<QKeyEvent&>(*event));
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        FocusMoved(watched, static_cast<QFocusEvent&>(*event));
        return false;
    case QEvent::Wheel:
        return PassesOn(static_cast<QWidget&>(*watched), *event);
    case QEvent::KeyPress:
        return KeyPressed(watched, static_cast<QKeyEvent&>(*event));
    case QEvent::MouseButtonRelease:
        Clicked(watched, static_cast<QMouseEvent&>(*event));
        return false;
    default:
        return false;
    }
}

bool Binder::RootEvent(QEvent& event) {
    if (event.type() == QEvent::Resize && form_.onResize && form_.loaded)
        Run(nullptr, form_.onResize);
    if (event.type() != QEvent::KeyPress || !IsEnter(static_cast<QKeyEvent&>(event)))
        return false;
    QAbstractButton* const button = UsableButton(&ButtonContents::isDefault);
    if (button != nullptr)
        button->click();
    return button != nullptr;
}

void Binder::FocusMoved(const QObject* watched, const QFocusEvent& event) {
    // A box or a menu that comes between is no leaving and coming back.
    if (event.reason() == Qt::PopupFocusReason || event.reason() == Qt::ActiveWindowFocusReason)
        return;
    const Link* const link = LinkOf(watched);
    if (link == nullptr)
        return;
    Control& control = *link->control;
    if (control.kind == Kind::TextField) {
        const auto& field = static_cast<TextField&>(control);
        Run(&control, event.gotFocus() ? field.onGotFocus : field.onLostFocus);
    } else if (control.kind == Kind::ComboBox && event.gotFocus()) {
        Run(&control, static_cast<ComboBox&>(control).onGotFocus);
    }
}

bool Binder::KeyPressed(const QObject* watched, QKeyEvent& event) {
    const Link* const link = LinkOf(watched);
    if (link == nullptr)
        return false;
    const Kind kind = link->control->kind;
    return (kind == Kind::Grid || kind == Kind::ListBox) &&
           KeyOnList(*link->control, *link->widget, event);
}

void Binder::Clicked(const QObject* watched, const QMouseEvent& event) {
    const Link* const link = event.button() == Qt::LeftButton ? LinkOf(watched) : nullptr;
    if (link == nullptr)
        return;
    if (link->control->kind == Kind::Label)
        RunClick<Label>(*link->control);
    else if (link->control->kind == Kind::Picture)
        RunClick<Picture>(*link->control);
}

bool Binder::KeyOnList(Control& control, QWidget& widget, QKeyEvent& event) {
    const int before = event.key() == Qt::Key_Delete ? kKeyDel : KeyCode(event);
    int after = before;
    if (before > 0)
        Run(&control, [&] {
            if (control.kind == Kind::ListBox) {
                if (const auto& handler = static_cast<ListBox&>(control).onKeyPress)
                    handler(after);
                return;
            }
            auto& grid = static_cast<Grid&>(control);
            if (grid.onKeyPress)
                grid.onKeyPress(grid.row, grid.column, after);
        });
    // Enter in a grid ends an input there; the window's default button is not meant.
    if (after == 0 || (control.kind == Kind::Grid && IsEnter(event)))
        return before > 0;
    if (after == before)
        return false;
    const char32_t character = static_cast<char32_t>(after);
    QKeyEvent typed(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&character, 1));
    static_cast<QObject&>(widget).event(&typed);
    return true;
}

} // namespace zorvant
