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
    boxes_.parentWidget()->installEventFilter(this); // its margins are known only with its layout
}

bool ColumnBoxes::eventFilter(QObject*, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::Resize || type == QEvent::Show || type == QEvent::LayoutRequest)
        QMetaObject::invokeMethod(this, &ColumnBoxes::Align, Qt::QueuedConnection);
    return false;
}

void ColumnBoxes::Align() {
    const QLayoutItem* const first = boxes_.itemAtPosition(boxes_.rowCount() - 1, 0);
    if (first == nullptr)
        return;
    const QWidget* const window = view_.window();
    const int wanted = view_.viewport()->mapTo(window, QPoint(0, 0)).x() +
                       view_.horizontalHeader()->sectionPosition(first_);
    const int present = first->widget()->mapTo(window, QPoint(0, 0)).x();
    const QMargins margins = boxes_.contentsMargins();
    const int left = std::max(margins.left() + wanted - present, 0);
    if (left != margins.left()) // the layout then asks for this again, until it fits
        boxes_.setContentsMargins(left, margins.top(), margins.right(), margins.bottom());
    for (int column = first_; column < view_.horizontalHeader()->count(); ++column)
        if (const int width = view_.columnWidth(column) - kGap;
            width != boxes_.columnMinimumWidth(column - first_))
            boxes_.setColumnMinimumWidth(column - first_, width);
}

} // namespace zorvant
