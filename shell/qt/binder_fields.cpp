// Fields that are typed into: lines, texts of several lines, the lines of drop-down lists.
//
// What a widget holds after an edit is taken into the record before any handler runs: a handler
// leads to a push, and a push of a record that is behind its widget would take the edit back.
#include "shell/qt/binder.h"
#include "shell/qt/key_filter.h"
#include "shell/qt/qt_text.h"

#include <QtWidgets>

namespace zorvant {
namespace {

/// Text into a field without moving the cursor of who is typing there.
void ShowText(QLineEdit& line, const QString& text) {
    if (line.text() == text)
        return;
    const QSignalBlocker quiet(&line);
    const int cursor = line.hasFocus() ? line.cursorPosition() : 0;
    line.setText(text);
    line.setCursorPosition(cursor);
}

void ShowLines(QPlainTextEdit& edit, const QString& text) {
    if (edit.toPlainText() == text)
        return;
    const QSignalBlocker quiet(&edit);
    const int position = edit.textCursor().position();
    edit.setPlainText(text);
    if (!edit.hasFocus())
        return;
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(std::min(position, static_cast<int>(text.size())));
    edit.setTextCursor(cursor);
}

/// A mouse press that follows the focus would take a selection away again, so it is made after it.
void SelectAll(QLineEdit& line) {
    line.selectAll();
    QTimer::singleShot(0, &line, [&line] {
        if (line.hasFocus())
            line.selectAll();
    });
}

void ShowItems(QComboBox& widget, const std::vector<std::string>& items) {
    widget.clear();
    for (const std::string& item : items)
        widget.addItem(ToQt(item));
}

} // namespace

KeyFilter* Binder::FilterKeys(QWidget& editor, Control& control, const KeyHandler& handler) {
    auto filter = [this, &control, &handler](int& key) {
        if (detached_ || !handler)
            return;
        if (IsRunning(&control)) {
            key = 0;
            return;
        }
        Run(&control, [&] { handler(key); });
    };
    return new KeyFilter(editor, filter);
}

/// The user's edit has changed the text, which the record holds already.
/// Given: announced   a key press told of it beforehand; else (Del, cut, undo, a drop, a paste by
///                    mouse) it is told now, as the backspace that removes text: too late to refuse
void Binder::Edited(Control& control, bool announced, const KeyHandler& announce,
                    const Handler& onChange) {
    Run(&control, [&] {
        int code = kKeyBackspace;
        if (!announced && announce)
            announce(code);
        if (onChange)
            onChange();
    });
}

void Binder::BindTextField(TextField& field) {
    QWidget* const widget = Require<QLineEdit, QPlainTextEdit>(field.name, "text field");
    if (widget == nullptr)
        return;
    LinkWidget(field, *widget);
    widget->installEventFilter(this);
    if (auto* const line = qobject_cast<QLineEdit*>(widget))
        BindLine(field, *line);
    else
        BindLines(field, static_cast<QPlainTextEdit&>(*widget));
}

void Binder::BindLine(TextField& field, QLineEdit& line) {
    KeyFilter* const keys = FilterKeys(line, field, field.onKeyPress);
    connect(&line, &QLineEdit::textEdited, this, [this, &field, keys](const QString& text) {
        field.text = FromQt(text);
        Edited(field, keys->TakeAnnounced(), field.onKeyPress, field.onChange);
    });
    pushes_.emplace_back([&field, &line] {
        ShowText(line, ToQt(field.text));
        if (line.isReadOnly() != field.locked)
            line.setReadOnly(field.locked);
        if (field.maxLength > 0 && line.maxLength() != field.maxLength)
            line.setMaxLength(field.maxLength);
        if (std::exchange(field.selectAll, false))
            SelectAll(line);
    });
}

void Binder::BindLines(TextField& field, QPlainTextEdit& edit) {
    KeyFilter* const keys = FilterKeys(edit, field, field.onKeyPress);
    edit.setTabChangesFocus(true);
    // Texts may be long: what is shown is remembered, not read back at each push.
    auto shown = std::make_shared<std::optional<std::string>>();
    connect(&edit, &QPlainTextEdit::textChanged, this, [this, &field, keys, &edit, shown] {
        field.text = FromQtLines(edit.toPlainText());
        *shown = field.text;
        Edited(field, keys->TakeAnnounced(), field.onKeyPress, field.onChange);
    });
    pushes_.emplace_back([&field, &edit, shown] {
        if (*shown != field.text) {
            *shown = field.text;
            ShowLines(edit, ToQtLines(field.text));
        }
        if (edit.isReadOnly() != field.locked)
            edit.setReadOnly(field.locked);
        if (std::exchange(field.selectAll, false))
            edit.selectAll();
    });
}

void Binder::BindComboBox(ComboBox& box) {
    auto* const widget = qobject_cast<QComboBox*>(Require<QComboBox>(box.name, "combo box"));
    if (widget == nullptr)
        return;
    LinkWidget(box, *widget);
    widget->installEventFilter(this);
    widget->view()->installEventFilter(this);
    widget->setFocusPolicy(Qt::StrongFocus);
    if (widget->isEditable() != box.editable)
        widget->setEditable(box.editable);
    connect(widget, &QComboBox::activated, this, [&box](int index) {
        if (index < 0 || static_cast<std::size_t>(index) >= box.items.size())
            return;
        box.index = index;
        box.text = box.items[static_cast<std::size_t>(index)];
        Run(&box, [&] {
            if (box.onClick)
                box.onClick();
            if (box.editable && box.onChange)
                box.onChange();
        });
    });
    if (box.editable)
        BindLineOf(box, *widget);
    pushes_.emplace_back([&box, widget, shown = std::vector<std::string>()]() mutable {
        const QSignalBlocker quiet(widget);
        if (shown != box.items)
            ShowItems(*widget, shown = box.items);
        if (QLineEdit* const line = widget->lineEdit()) {
            if (box.index >= 0 && widget->currentIndex() != box.index)
                widget->setCurrentIndex(box.index); // marked in the open list
            ShowText(*line, ToQt(box.text));
            if (std::exchange(box.selectAll, false))
                SelectAll(*line);
        } else if (widget->currentIndex() != box.index) {
            widget->setCurrentIndex(box.index);
        }
    });
}

void Binder::BindLineOf(ComboBox& box, QComboBox& widget) {
    QLineEdit& line = *widget.lineEdit();
    widget.setInsertPolicy(QComboBox::NoInsert); // what is remembered is the handler's business
    widget.setCompleter(nullptr);                // "1" is not meant as "1.5"
    disconnect(&line, &QLineEdit::returnPressed, nullptr, nullptr); // Enter chooses no entry
    // The box has the focus of its line, so the keys are the box's events, never the line's.
    KeyFilter* const keys = FilterKeys(widget, box, box.onKeyPress);
    connect(&line, &QLineEdit::textEdited, this, [this, &box, keys](const QString& text) {
        box.text = FromQt(text);
        box.index = -1;
        Edited(box, keys->TakeAnnounced(), box.onKeyPress, box.onChange);
    });
}

} // namespace zorvant
