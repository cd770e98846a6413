// Keeps a row of input boxes over the columns of the table below it.
#pragma once

#include <QObject>

class QGridLayout;
class QTableView;

namespace zorvant {

/// Follows the widths and the place of the columns. A table asks for it by its properties
/// "boxLayout", the name of the grid layout with one column for each box, and "firstBoxColumn".
class ColumnBoxes : public QObject {
public:
    /// Does nothing for a table without these properties.
    static void Install(QTableView& view, const QWidget& root);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ColumnBoxes(QTableView& view, QGridLayout& boxes, int firstColumn);
    void Align();

    QTableView& view_;
    QGridLayout& boxes_;
    int first_;
};

} // namespace zorvant
