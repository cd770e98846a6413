#include "shell/qt/grid_model.h"

#include "shell/qt/key_filter.h"
#include "shell/qt/qt_text.h"

#include <QGuiApplication>
#include <QPalette>
#include <QTableView>

namespace zorvant {
namespace {

constexpr const char* kUnchecked = "0";
constexpr const char* kChecked = "-1";

bool At(const std::vector<bool>& flags, int column) {
    return static_cast<std::size_t>(column) < flags.size() &&
           flags[static_cast<std::size_t>(column)];
}

} // namespace

GridModel::GridModel(Grid& grid, Runner run, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid), run_(std::move(run)) {
    Refresh();
}

bool GridModel::Refresh() {
    const int rows = static_cast<int>(grid_.cells.size());
    const int columns = static_cast<int>(grid_.heads.size());
    if (shown_ == grid_.revision && rows == rows_ && columns == columns_)
        return false;
    shown_ = grid_.revision;
    if (rows == rows_ && columns == columns_) { // scroll position and selection stay
        if (rows > 0 && columns > 0)
            emit dataChanged(index(0, 0), index(rows - 1, columns - 1));
        if (columns > 0)
            emit headerDataChanged(Qt::Horizontal, 0, columns - 1);
        return true;
    }
    if (columns == columns_ && rows_ > 0 && rows > 0) { // scroll position and cursor stay
        if (rows > rows_) {
            beginInsertRows({}, rows_, rows - 1);
            rows_ = rows;
            endInsertRows();
        } else {
            beginRemoveRows({}, rows, rows_ - 1);
            rows_ = rows;
            endRemoveRows();
        }
        emit dataChanged(index(0, 0), index(rows - 1, columns - 1));
        emit headerDataChanged(Qt::Horizontal, 0, columns - 1);
        return true;
    }
    beginResetModel();
    rows_ = rows;
    columns_ = columns;
    endResetModel();
    return true;
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

bool GridModel::Holds(const QModelIndex& index) const {
    return index.isValid() && static_cast<std::size_t>(index.row()) < grid_.cells.size() &&
           static_cast<std::size_t>(index.column()) <
               grid_.cells[static_cast<std::size_t>(index.row())].size();
}

bool GridModel::IsOff(int row) const {
    const std::vector<std::string>& cells = grid_.cells[static_cast<std::size_t>(row)];
    for (std::size_t column = 0; column < std::min(cells.size(), grid_.checkColumns.size());
         ++column)
        if (grid_.checkColumns[column] && cells[column] == kChecked)
            return true;
    return false;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!Holds(index))
        return {};
    const std::string& cell =
        grid_
            .cells[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
    if (At(grid_.checkColumns, index.column())) {
        if (role != Qt::CheckStateRole || cell.empty())
            return {};
        return cell == kChecked ? Qt::Checked : Qt::Unchecked;
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return ToQt(cell);
    case Qt::ForegroundRole:
        if (IsOff(index.row()))
            return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
        if (cell == kUnchecked && At(grid_.paleColumns, index.column()))
            return QGuiApplication::palette().brush(QPalette::PlaceholderText);
        return {};
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole ||
        static_cast<std::size_t>(section) >= grid_.heads.size())
        return {};
    return ToQt(grid_.heads[static_cast<std::size_t>(section)]);
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (At(grid_.checkColumns, index.column()))
        flags |=
            data(index, Qt::CheckStateRole).isValid() ? Qt::ItemIsUserCheckable : Qt::NoItemFlags;
    else if (At(grid_.editableColumns, index.column()))
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!Holds(index))
        return false;
    const bool checkable = At(grid_.checkColumns, index.column());
    if (role != (checkable ? Qt::CheckStateRole : Qt::EditRole))
        return false;
    std::string text = checkable ? (value.toInt() == Qt::Checked ? kChecked : kUnchecked)
                                 : FromQt(value.toString());
    std::string& cell =
        grid_
            .cells[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
    if (cell == text)
        return true;
    cell = std::move(text);
    const QModelIndex first = this->index(index.row(), 0);
    emit dataChanged(first, this->index(index.row(), columns_ - 1)); // a mark greys its row
    if (grid_.onEdit)
        run_([this, row = index.row(), column = index.column()] { grid_.onEdit(row, column); });
    return true;
}

GridDelegate::GridDelegate(Grid& grid, GridModel::Runner run, QTableView* view)
    : QStyledItemDelegate(view), grid_(grid), run_(std::move(run)), view_(view) {
    view->installEventFilter(this);
}

bool GridDelegate::eventFilter(QObject* watched, QEvent* event) {
    const bool press = event->type() == QEvent::KeyPress;
    const int key = press ? static_cast<QKeyEvent*>(event)->key() : 0;
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    const bool ofView = watched == view_;
    const bool handled = !ofView && QStyledItemDelegate::eventFilter(watched, event);
    if (!enter || (ofView && !At(grid_.editableColumns, view_->currentIndex().column())))
        return handled;
    // Behind the editor's text, which is handed over by a queued call as well.
    QMetaObject::invokeMethod(this, &GridDelegate::GoDown, Qt::QueuedConnection);
    return ofView || handled;
}

void GridDelegate::GoDown() {
    const QModelIndex below = view_->currentIndex().siblingAtRow(view_->currentIndex().row() + 1);
    if (below.isValid())
        view_->setCurrentIndex(below);
}

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    // A number without its exponent would be another one.
    if (option->text.contains(u'E'))
        option->textElideMode = Qt::ElideMiddle;
}

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (editor != nullptr && grid_.onKeyPress) {
        auto filter = [this, row = index.row(), column = index.column()](int& key) {
            // Enter ends the editing; what the cell took is told by the edit event.
            if (key != kKeyEnter)
                run_([&] { grid_.onKeyPress(row, column, key); });
        };
        new KeyFilter(*editor, filter);
    }
    return editor;
}

} // namespace zorvant
