// A text whose first line stays in sight while the rest scrolls below it: tables.
#pragma once

#include <QPlainTextEdit>

namespace zorvant {

class PinnedHeadText : public QPlainTextEdit {
public:
    using QPlainTextEdit::QPlainTextEdit;
    /// Wide enough for the longest line, so that at first nothing is cut.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
};

} // namespace zorvant
