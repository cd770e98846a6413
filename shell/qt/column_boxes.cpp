#include "shell/qt/column_boxes.h"

#include <QtWidgets>

namespace zorvant {
namespace {

/// Room between two boxes.
constexpr int kGap = 2;

/// What stands in the layout takes the width of its column, whatever it would like.
void Yield(QGridLayout& layout) {
    for (int i = 0; i < layout.count(); ++i)
        if (QWidget* const widget = layout.itemAt(i)->widget()) {
            widget->setMinimumWidth(1);
            widget->setMaximumWidth(QWIDGETSIZE_MAX);
            widget->setSizePolicy(QSizePolicy::Ignored, widget->sizePolicy().verticalPolicy());
        }
}

} // namespace

void ColumnBoxes::Install(QTableView& view, const QWidget& root) {
    const QString name = view.property("boxLayout").toString();
    auto* const boxes = name.isEmpty() ? nullptr : root.findChild<QGridLayout*>(name);
    if (boxes != nullptr)
        new ColumnBoxes(view, *boxes, view.property("firstBoxColumn").toInt());
}

ColumnBoxes::ColumnBoxes(QTableView& view, QGridLayout& boxes, int firstColumn)
    : QObject(&view), view_(view), boxes_(boxes), first_(firstColumn) {
    Yield(boxes_);
    boxes_.setHorizontalSpacing(kGap);
    boxes_.setColumnStretch(boxes_.columnCount(), 1); // takes what is left over
    connect(view_.horizontalHeader(), &QHeaderView::sectionResized, this, &ColumnBoxes::Align);
    connect(view_.horizontalHeader(), &QHeaderView::geometriesChanged, this, &ColumnBoxes::Align);
    view_.viewport()->installEventFilter(this);
}

bool ColumnBoxes::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        Align();
    return false;
}

void ColumnBoxes::Align() {
    const QWidget* const frame = boxes_.parentWidget();
    const QWidget* const window = view_.window();
    const int start = view_.viewport()->mapTo(window, QPoint(0, 0)).x() +
                      view_.horizontalHeader()->sectionPosition(first_) -
                      frame->mapTo(window, QPoint(0, 0)).x();
    const QMargins margins = boxes_.contentsMargins();
    const int left = std::max(start - boxes_.geometry().left(), 0);
    if (left != margins.left())
        boxes_.setContentsMargins(left, margins.top(), margins.right(), margins.bottom());
    for (int column = first_; column < view_.horizontalHeader()->count(); ++column)
        boxes_.setColumnMinimumWidth(column - first_, view_.columnWidth(column) - kGap);
}

} // namespace zorvant
