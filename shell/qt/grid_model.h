// The cells of a grid record as a table model, and the editor of a cell.
#pragma once

#include "platform/controls.h"

#include <QAbstractTableModel>
#include <QStyledItemDelegate>

#include <functional>

class QTableView;

namespace zorvant {

/// Reads the record as it stands: nothing is copied, so a table of any length is shown at once.
/// What the user writes goes into the record, then to the grid's edit event through `run`.
class GridModel : public QAbstractTableModel {
public:
    using Runner = std::function<void(const Handler&)>;
    GridModel(Grid& grid, Runner run, QObject* parent);

    /// Tells the views when the record's revision is another one. Returned: whether it was.
    bool Refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    bool Holds(const QModelIndex& index) const;
    /// Whether a check box of the row is set: the row takes no part.
    bool IsOff(int row) const;

    Grid& grid_;
    Runner run_;
    std::uint64_t shown_ = 0;
    int rows_ = 0, columns_ = 0; ///< as the views know them
};

/// Gives the keys typed into a cell's editor to the grid's key event; Enter leads to the cell
/// below.
class GridDelegate : public QStyledItemDelegate {
public:
    GridDelegate(Grid& grid, GridModel::Runner run, QTableView* view);
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void GoDown();

    Grid& grid_;
    GridModel::Runner run_;
    QTableView* view_;
};

} // namespace zorvant
