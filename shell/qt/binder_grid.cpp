// A grid and its table view: contents, current cell, selection, widths of the columns.
#include "shell/qt/binder.h"
#include "shell/qt/column_boxes.h"
#include "shell/qt/grid_model.h"

#include <QtWidgets>

namespace zorvant {
namespace {

/// Room at both sides of a cell's text, in characters.
constexpr int kCellMargin = 2;
/// Rows that are looked at when a column takes the width of its contents: enough for numbers of one
/// kind, and a table of any length opens at once.
constexpr int kRowsMeasured = 100;

GridRange RangeOf(const QItemSelection& selection) {
    GridRange range;
    for (const QItemSelectionRange& part : selection) {
        if (range.lastRow < 0) {
            range = {part.top(), part.left(), part.bottom(), part.right()};
            continue;
        }
        range.firstRow = std::min(range.firstRow, part.top());
        range.firstColumn = std::min(range.firstColumn, part.left());
        range.lastRow = std::max(range.lastRow, part.bottom());
        range.lastColumn = std::max(range.lastColumn, part.right());
    }
    return range;
}

void SetColumnWidths(QTableView& view, const Grid& grid) {
    const int character = view.fontMetrics().horizontalAdvance(u'0');
    for (int column = 0; column < static_cast<int>(grid.heads.size()); ++column) {
        const auto at = static_cast<std::size_t>(column);
        if (at < grid.columnWidths.size() && grid.columnWidths[at] > 0)
            view.setColumnWidth(column, (grid.columnWidths[at] + kCellMargin) * character);
        else
            view.resizeColumnToContents(column);
    }
}

/// The look and the manners that all grids share.
void PrepareView(QTableView& view) {
    view.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                         QAbstractItemView::AnyKeyPressed);
    view.setSelectionMode(QAbstractItemView::ContiguousSelection);
    view.setWordWrap(false); // a number would be broken at its point
    view.setContextMenuPolicy(Qt::CustomContextMenu);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultSectionSize(view.fontMetrics().height() * 3 / 2);
    view.horizontalHeader()->setResizeContentsPrecision(kRowsMeasured);
}

void ShowCurrentCell(QTableView& view, const Grid& grid) {
    QItemSelectionModel& selected = *view.selectionModel();
    const QModelIndex wanted = view.model()->index(grid.row, std::max(grid.column, 0));
    if (!wanted.isValid() || wanted == selected.currentIndex())
        return;
    selected.setCurrentIndex(wanted, QItemSelectionModel::NoUpdate);
    view.scrollTo(wanted);
}

void ShowSelection(QTableView& view, const GridRange& range) {
    QItemSelectionModel& selected = *view.selectionModel();
    if (range == RangeOf(selected.selection()))
        return;
    const QModelIndex first = view.model()->index(range.firstRow, range.firstColumn);
    const QModelIndex last = view.model()->index(range.lastRow, range.lastColumn);
    if (first.isValid() && last.isValid())
        selected.select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
    else
        selected.clearSelection();
}

} // namespace

void Binder::BindGrid(Grid& grid) {
    auto* const view = qobject_cast<QTableView*>(Require<QTableView>(grid.name, "grid"));
    if (view == nullptr)
        return;
    LinkWidget(grid, *view);
    view->installEventFilter(this);
    const auto run = [this, &grid](const Handler& handler) {
        if (!detached_)
            Run(&grid, handler);
    };
    auto* const model = new GridModel(grid, run, view);
    view->setModel(model);
    view->setItemDelegate(new GridDelegate(grid, run, view));
    PrepareView(*view);
    ColumnBoxes::Install(*view, root_);
    const auto pushing = std::make_shared<bool>(false);
    TakeFromGrid(grid, *view, pushing);
    pushes_.emplace_back([&grid, view, model, pushing, widths = std::vector<int>(),
                          heads = std::size_t{0}]() mutable {
        *pushing = true;
        model->Refresh();
        if (heads != grid.heads.size() || widths != grid.columnWidths) {
            heads = grid.heads.size();
            widths = grid.columnWidths;
            SetColumnWidths(*view, grid);
        }
        ShowCurrentCell(*view, grid);
        ShowSelection(*view, grid.selection);
        *pushing = false;
    });
}

/// Given: pushing   whether the program itself is changing the cell and the selection
void Binder::TakeFromGrid(Grid& grid, QTableView& view, const std::shared_ptr<bool>& pushing) {
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [&view, &grid, pushing] {
                if (!*pushing)
                    grid.selection = RangeOf(view.selectionModel()->selection());
            });
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [&grid, pushing](const QModelIndex& current) {
                if (*pushing)
                    return;
                grid.row = current.row();
                grid.column = current.column();
                Run(&grid, grid.onSelect);
            });
    connect(view.horizontalHeader(), &QHeaderView::sectionClicked, this, [&grid](int column) {
        Run(&grid, [&] {
            if (grid.onHeadClick)
                grid.onHeadClick(column);
        });
    });
    connect(&view, &QAbstractItemView::doubleClicked, this,
            [&grid] { Run(&grid, grid.onDoubleClick); });
    connect(&view, &QWidget::customContextMenuRequested, this,
            [&grid] { Run(&grid, grid.onContextMenu); });
}

} // namespace zorvant
