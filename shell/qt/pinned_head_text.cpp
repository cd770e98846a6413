#include "shell/qt/pinned_head_text.h"

#include <QtWidgets>

#include <algorithm>

namespace zorvant {
namespace {

constexpr int kLinesAtFirst = 24;

} // namespace

QSize PinnedHeadText::sizeHint() const {
    double widest = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        widest = std::max(widest, blockBoundingRect(block).width());
    const int frame = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    const int width = static_cast<int>(widest) + frame + verticalScrollBar()->sizeHint().width();
    return {width, kLinesAtFirst * fontMetrics().lineSpacing() + frame};
}

void PinnedHeadText::paintEvent(QPaintEvent* event) {
    QPlainTextEdit::paintEvent(event);
    const QTextBlock head = document()->begin();
    if (firstVisibleBlock() == head)
        return;
    QPainter painter(viewport());
    const QRectF line = blockBoundingRect(head);
    painter.fillRect(QRectF(0, 0, viewport()->width(), line.height()), palette().alternateBase());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(QLineF(0, line.height(), viewport()->width(), line.height()));
    painter.setPen(palette().color(QPalette::Text));
    head.layout()->draw(&painter, QPointF(contentOffset().x(), 0));
}

void PinnedHeadText::scrollContentsBy(int dx, int dy) {
    QPlainTextEdit::scrollContentsBy(dx, dy);
    viewport()->update(); // what was scrolled took the pinned line along
}

} // namespace zorvant
