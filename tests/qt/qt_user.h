// What a user does to widgets, for tests of windows.
#pragma once

#include <QtWidgets>

namespace zorvant {

inline void Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
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
