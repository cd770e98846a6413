// What a user does to widgets, for tests of windows.
#pragma once

#include <QTest>
#include <QtWidgets>

namespace zorvant {

inline void Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// The widget that gets what is typed on the keyboard.
inline QWidget& KeyReceiver() {
    // A modal dialog that has just come gets the keys, though this platform activates it later.
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal != QApplication::activeWindow()) {
        modal->activateWindow();
        QCoreApplication::processEvents();
    }
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const holder = popup == nullptr ? QApplication::focusWidget() : popup->focusWidget();
    QWidget* const window = popup != nullptr ? popup : QApplication::activeWindow();
    if (holder == nullptr && window == nullptr)
        qFatal("no window is active");
    return holder != nullptr ? *holder : *window;
}

/// A key on the keyboard, shortcuts included: pressed and let go wherever the focus is then.
inline void Key(int key, Qt::KeyboardModifiers modifiers = {}, QString text = {}) {
    if (text.isEmpty() && key < Qt::Key_Escape)
        text = modifiers.testFlag(Qt::ControlModifier) ? QChar(key & 0x1F) : QChar(key).toLower();
    QTest::sendKeyEvent(QTest::Press, &KeyReceiver(), Qt::Key(key), text, modifiers);
    if (QApplication::activeWindow() != nullptr)
        QTest::sendKeyEvent(QTest::Release, &KeyReceiver(), Qt::Key(key), text, modifiers);
}

inline void Keys(const QString& text) {
    for (const QChar character : text)
        Key(character.toUpper().unicode(), {}, character);
}

inline void PressKey(QWidget& widget, int key, const QString& text = {},
                     Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(&widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QCoreApplication::sendEvent(&widget, &release);
}

inline void TypeText(QWidget& widget, const QString& text) {
    for (const QChar character : text)
        PressKey(widget, character.toUpper().unicode(), QString(character));
}

inline void ClickAt(QWidget& widget, const QPoint& place) {
    const QPointF local(place), global(widget.mapToGlobal(place));
    QMouseEvent press(QEvent::MouseButtonPress, local, global, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, local, global, Qt::LeftButton, {}, {});
    QCoreApplication::sendEvent(&widget, &release);
}

/// The child of a name; a test without it must not go on.
template <class Widget> Widget& Child(const QWidget& root, const char* name) {
    auto* const child = root.findChild<Widget*>(QString::fromUtf8(name));
    if (child == nullptr)
        qFatal("no %s", name);
    return *child;
}

} // namespace zorvant
