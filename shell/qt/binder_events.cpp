// The part of the binder that deals with grids and with what the toolkit tells by events alone:
// focus, keys of lists and grids, Enter and Esc, clicks on labels and pictures.
#include "shell/qt/binder.h"
#include "shell/qt/grid_model.h"
#include "shell/qt/key_filter.h"

#include <QtWidgets>

namespace zorvant {
namespace {

/// Room at both sides of a cell's text, in characters.
constexpr int kCellMargin = 2;
/// Rows that are looked at when a column takes the width of its contents: enough for numbers of one
/// kind, and a table of any length opens at once.
constexpr int kRowsMeasured = 100;

bool IsEnter(const QKeyEvent& key) {
    return (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) &&
           !(key.modifiers() & ~Qt::KeypadModifier);
}

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
    view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::AnyKeyPressed);
    view->setSelectionMode(QAbstractItemView::ContiguousSelection);
    view->verticalHeader()->hide();
    view->setWordWrap(false); // a number would be broken at its point
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() * 3 / 2);
    view->horizontalHeader()->setResizeContentsPrecision(kRowsMeasured);
    view->setContextMenuPolicy(Qt::CustomContextMenu);

    const auto pushing = std::make_shared<bool>(false);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [view, &grid, pushing] {
                if (!*pushing)
                    grid.selection = RangeOf(view->selectionModel()->selection());
            });
    connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [&grid, pushing](const QModelIndex& current) {
                if (*pushing)
                    return;
                grid.row = current.row();
                grid.column = current.column();
                Run(&grid, grid.onSelect);
            });
    connect(view->horizontalHeader(), &QHeaderView::sectionClicked, this, [&grid](int column) {
        Run(&grid, [&] {
            if (grid.onHeadClick)
                grid.onHeadClick(column);
        });
    });
    connect(view, &QAbstractItemView::doubleClicked, this,
            [&grid] { Run(&grid, grid.onDoubleClick); });
    connect(view, &QWidget::customContextMenuRequested, this,
            [&grid] { Run(&grid, grid.onContextMenu); });

    pushes_.emplace_back([&grid, view, model, pushing, widths = std::vector<int>(),
                          heads = std::size_t{0}]() mutable {
        *pushing = true;
        model->Refresh();
        if (heads != grid.heads.size() || widths != grid.columnWidths) {
            heads = grid.heads.size();
            widths = grid.columnWidths;
            SetColumnWidths(*view, grid);
        }
        QItemSelectionModel& selected = *view->selectionModel();
        const QModelIndex wanted = model->index(grid.row, std::max(grid.column, 0));
        const QModelIndex current = selected.currentIndex();
        if (wanted.isValid() && (wanted != current)) {
            selected.setCurrentIndex(wanted, QItemSelectionModel::NoUpdate);
            view->scrollTo(wanted);
        }
        if (grid.selection != RangeOf(selected.selection())) {
            const GridRange& range = grid.selection;
            const QModelIndex first = model->index(range.firstRow, range.firstColumn);
            const QModelIndex last = model->index(range.lastRow, range.lastColumn);
            if (first.isValid() && last.isValid())
                selected.select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
            else
                selected.clearSelection();
        }
        *pushing = false;
    });
}

void Binder::BindEscape() {
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), &root_);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, [this] {
        if (QAbstractButton* const button = UsableButton(&ButtonContents::isCancel))
            button->click();
    });
}

QAbstractButton* Binder::UsableButton(bool ButtonContents::*role) const {
    for (const Link& link : links_)
        if (link.control->kind == Kind::Button && static_cast<const Button*>(link.control)->*role &&
            link.widget->isVisible() && link.widget->isEnabled())
            return static_cast<QAbstractButton*>(link.widget);
    return nullptr;
}

const Binder::Link* Binder::LinkOf(const QObject* watched) const {
    // The line of a combo box stands for the box.
    const QObject* const wanted =
        qobject_cast<const QComboBox*>(watched->parent()) != nullptr ? watched->parent() : watched;
    const auto found = std::ranges::find(links_, wanted, &Link::widget);
    return found == links_.end() ? nullptr : &*found;
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    if (detached_)
        return false;
    if (watched == &root_) {
        if (event->type() == QEvent::Resize && form_.onResize && form_.loaded)
            Run(nullptr, form_.onResize);
        if (event->type() != QEvent::KeyPress || !IsEnter(static_cast<QKeyEvent&>(*event)))
            return false;
        QAbstractButton* const button = UsableButton(&ButtonContents::isDefault);
        if (button != nullptr)
            button->click();
        return button != nullptr;
    }
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // A field with nothing to take back leaves the keys of undo to its dialog.
        if (const auto* const line = qobject_cast<const QLineEdit*>(watched)) {
            const auto& key = static_cast<const QKeyEvent&>(*event);
            if ((key.matches(QKeySequence::Undo) && !line->isUndoAvailable()) ||
                (key.matches(QKeySequence::Redo) && !line->isRedoAvailable())) {
                event->ignore();
                return true;
            }
        }
        return false;
    case QEvent::FocusIn:
    case QEvent::FocusOut: {
        // A box or a menu that comes between is no leaving and coming back.
        const Qt::FocusReason reason = static_cast<QFocusEvent&>(*event).reason();
        const bool moves = reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason;
        if (const Link* link = moves ? LinkOf(watched) : nullptr)
            event->type() == QEvent::FocusIn ? FocusCame(*link->control)
                                             : FocusWent(*link->control);
        return false;
    }
    case QEvent::Wheel: {
        // A wheel turned to scroll the window must not change a number on its way.
        const auto& widget = static_cast<const QWidget&>(*watched);
        const bool takes = qobject_cast<const QComboBox*>(&widget) ||
                           qobject_cast<const QAbstractSpinBox*>(&widget) ||
                           qobject_cast<const QSlider*>(&widget);
        if (!takes || widget.hasFocus())
            return false;
        event->ignore();
        return true;
    }
    case QEvent::KeyPress:
        if (const Link* link = LinkOf(watched);
            link != nullptr &&
            (link->control->kind == Kind::Grid || link->control->kind == Kind::ListBox))
            return KeyOnList(*link->control, *link->widget, static_cast<QKeyEvent&>(*event));
        return false;
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent&>(*event).button() != Qt::LeftButton)
            return false;
        if (const Link* link = LinkOf(watched)) {
            if (link->control->kind == Kind::Label)
                Run(link->control, static_cast<Label*>(link->control)->onClick);
            if (link->control->kind == Kind::Picture)
                Run(link->control, static_cast<Picture*>(link->control)->onClick);
        }
        return false;
    default:
        return false;
    }
}

void Binder::FocusCame(Control& control) {
    if (control.kind == Kind::TextField)
        Run(&control, static_cast<TextField&>(control).onGotFocus);
    else if (control.kind == Kind::ComboBox)
        Run(&control, static_cast<ComboBox&>(control).onGotFocus);
}

void Binder::FocusWent(Control& control) {
    if (control.kind == Kind::TextField)
        Run(&control, static_cast<TextField&>(control).onLostFocus);
}

bool Binder::KeyOnList(Control& control, QWidget& widget, QKeyEvent& event) {
    const int before = event.key() == Qt::Key_Delete ? kKeyDel : KeyCode(event);
    int after = before;
    if (before > 0)
        Run(&control, [&] {
            if (control.kind == Kind::ListBox) {
                if (const auto& handler = static_cast<ListBox&>(control).onKeyPress)
                    handler(after);
                return;
            }
            auto& grid = static_cast<Grid&>(control);
            if (grid.onKeyPress)
                grid.onKeyPress(grid.row, grid.column, after);
        });
    // Enter in a grid ends an input there; the window's default button is not meant.
    if (after == 0 || (control.kind == Kind::Grid && IsEnter(event)))
        return before > 0;
    if (after == before)
        return false;
    const char32_t character = static_cast<char32_t>(after);
    QKeyEvent typed(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&character, 1));
    static_cast<QObject&>(widget).event(&typed);
    return true;
}

} // namespace zorvant
