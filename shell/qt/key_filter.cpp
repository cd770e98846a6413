#include "shell/qt/key_filter.h"

#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace zorvant {

int KeyCode(const QKeyEvent& event) {
    const bool ctrl = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return alt ? -1 : ctrl ? kKeyCtrlEnter : kKeyEnter;
    case Qt::Key_Backspace:
        return alt ? -1 : kKeyBackspace;
    case Qt::Key_Escape:
        return kKeyEsc;
    case Qt::Key_Delete:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return -1;
    default:
        break;
    }
    if (event.matches(QKeySequence::Copy))
        return kKeyCopy;
    if (event.matches(QKeySequence::Paste))
        return kKeyPaste;
    // Both together are AltGr on some keyboards and give a character; each alone is a shortcut.
    if (ctrl != alt)
        return -1;
    const auto characters = event.text().toUcs4();
    if (characters.isEmpty() || !QChar::isPrint(characters.front()))
        return -1;
    return static_cast<int>(characters.front());
}

QLineEdit* LineOf(QObject& editor) {
    if (auto* const box = qobject_cast<QComboBox*>(&editor))
        return box->lineEdit();
    return qobject_cast<QLineEdit*>(&editor);
}

KeyFilter::KeyFilter(QWidget& editor, Handler handler)
    : QObject(&editor), editor_(&editor), handler_(std::move(handler)) {
    editor.installEventFilter(this);
}

bool KeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event == delivered_ || watched != editor_)
        return false;
    if (event->type() == QEvent::KeyPress)
        return FilterKey(static_cast<QKeyEvent&>(*event));
    if (event->type() == QEvent::InputMethod)
        return FilterComposed(static_cast<QInputMethodEvent&>(*event));
    return false;
}

void KeyFilter::Deliver(QEvent& event) {
    if (!editor_)
        return;
    const QEvent* const outer = std::exchange(delivered_, &event);
    announced_ = true;
    static_cast<QObject&>(*editor_).event(&event);
    announced_ = false;
    delivered_ = outer;
}

bool KeyFilter::FilterKey(QKeyEvent& event) {
    const QLineEdit* const line = LineOf(*editor_);
    if (line != nullptr && line->isReadOnly())
        return false;
    const int before = KeyCode(event);
    if (before < 0) {
        // The editor would take a letter with Alt, which no menu has, for a typed one.
        const bool strayLetter = event.modifiers() == Qt::AltModifier && !event.text().isEmpty() &&
                                 QChar::isPrint(event.text().toUcs4().front());
        if (strayLetter)
            event.ignore();
        return strayLetter;
    }
    int after = before;
    handler_(after);
    if (before == kKeyCopy)
        after = before;
    event.accept();
    if (after == 0)
        return true;
    if (after == before) {
        Deliver(event); // leaves the event ignored where the editor has no use for it
        return true;
    }
    const char32_t character = static_cast<char32_t>(after);
    const QString text = QString::fromUcs4(&character, 1);
    auto* const lines = qobject_cast<QPlainTextEdit*>(editor_.data());
    if (lines != nullptr && !QChar::isPrint(character)) { // no key types it
        announced_ = true;
        lines->insertPlainText(text);
        announced_ = false;
    } else {
        QKeyEvent typed(QEvent::KeyPress, 0, Qt::NoModifier, text);
        Deliver(typed);
    }
    event.accept();
    return true;
}

bool KeyFilter::FilterComposed(QInputMethodEvent& event) {
    if (event.commitString().isEmpty())
        return false;
    QString kept;
    for (const char32_t character : event.commitString().toUcs4()) {
        int code = static_cast<int>(character);
        handler_(code);
        const char32_t after = static_cast<char32_t>(code);
        if (code != 0)
            kept += QString::fromUcs4(&after, 1);
    }
    QInputMethodEvent filtered(event.preeditString(), event.attributes());
    filtered.setCommitString(kept, event.replacementStart(), event.replacementLength());
    Deliver(filtered);
    event.accept();
    return true;
}

} // namespace zorvant
