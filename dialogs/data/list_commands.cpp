// Changes of many rows at once: removing, sorting, the clipboard, undo.
#include "data/pasted_table.h"
#include "dialogs/data/list_editor.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <filesystem>
#include <numeric>

namespace zorvant {
namespace {

constexpr const char* kRefused = "Execution not possible";

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

/// Lines of the list that are marked, from 1, and the columns of values among the marked ones.
struct Marked {
    int first = 0;
    int last = 0; ///< 0: none
    int firstValue = 0, lastValue = -1;

    bool AnyCell() const { return last > 0 && lastValue >= 0; }
    /// "line 3", "lines 1 to 4"
    std::string Lines() const {
        return first == last ? "line " + std::to_string(first)
                             : "lines " + std::to_string(first) + " to " + std::to_string(last);
    }
};

Marked MarkedIn(const ListEditor& form) {
    const GridRange& range = form.Grid.selection;
    if (range.lastRow < 0 || range.firstRow >= form.Rows())
        return {};
    return {.first = range.firstRow + 1,
            .last = std::min(range.lastRow + 1, form.Rows()),
            .firstValue = std::max(range.firstColumn - kFirstValue, 0),
            .lastValue = std::min(range.lastColumn - kFirstValue, form.Values() - 1)};
}

/// Where a paste begins: at the first marked cell where a block is marked, else at the cursor.
struct PastePlace {
    int line;  ///< from 1
    int value; ///< column of values
};

PastePlace PlaceOfPaste(const ListEditor& form) {
    const GridRange& marked = form.Grid.selection;
    const bool block = marked.lastRow > marked.firstRow || marked.lastColumn > marked.firstColumn;
    const int row = form.Rows() == 0 ? 0 : block ? marked.firstRow : form.Grid.row;
    const int column = block ? marked.firstColumn : form.Grid.column;
    return {std::max(row, 0) + 1, std::max(column - kFirstValue, 0)};
}

/// All rows in their order.
std::vector<int> AllRows(const ListEditor& form) {
    std::vector<int> rows(Index(form.Rows()));
    std::iota(rows.begin(), rows.end(), 1);
    return rows;
}

TableLayout LayoutOfCopies(bool decimalComma) {
    TableLayout layout;
    layout.decimals.assign(kMaxColumns, decimalComma ? DecimalSign::Comma : DecimalSign::Point);
    return layout;
}

void TellNothingMarked() {
    ShowMessage("No marked item!", kRefused, Icon::Critical);
}

/// One side of a step instead of the other.
void PutBack(ListEditor& form, const ListState& state, const ListState& other) {
    form.changing = true;
    form.BringBack(state, other);
    form.Resize(static_cast<int>(state.table.rows));
    for (int row = 1; row <= form.Rows(); ++row)
        for (int column = 0; column < form.rules.storedColumns; ++column)
            form.SetValue(row, column, state.table.At(Index(row - 1), Index(column)));
    form.RowsBroughtBack(state);
    form.changing = false;
    form.known = StateOf(form, state.extent).table;
    Refill(form);
    form.SetChanged(form.textsChanged || !(form.known == form.saved));
    ShowHistory(form);
}

} // namespace

std::vector<int> ListEditor::ColumnsForPaste(int first, std::size_t count) const {
    std::vector<int> columns(std::min(count, Index(Values() - first)));
    std::iota(columns.begin(), columns.end(), first);
    return columns;
}

// ---------------------------------------------------------------- undo

ListState StateOf(const ListEditor& form, ListState::Extent extent) {
    const auto value = [&](std::size_t row, std::size_t column) {
        return form.Value(static_cast<int>(row) + 1, static_cast<int>(column));
    };
    ListState state;
    state.extent = extent;
    state.table =
        TakeSnapshot(Index(form.Rows()), Index(form.rules.storedColumns), value, form.known);
    form.Keep(state);
    return state;
}

void MakeChange(ListEditor& form, const std::string& name, ListState::Extent extent,
                const Handler& change, const std::string& timeUnit) {
    ListState before = StateOf(form, extent);
    if (!timeUnit.empty())
        before.timeUnit = timeUnit;
    form.NoteForeignChanges(before);
    form.changing = true;
    change();
    form.changing = false;
    ListState after = StateOf(form, extent);
    const bool other = !(before.table == after.table) || before.timeUnit != after.timeUnit ||
                       before.path != after.path;
    form.known = after.table;
    form.knownUnit = after.timeUnit;
    if (other)
        form.history.Note(name, std::move(before), std::move(after));
    ShowHistory(form);
}

void ShowHistory(ListEditor& form) {
    const auto show = [](Button& button, const char* verb, const char* keys, const auto* step) {
        button.enabled = step != nullptr;
        button.text = step != nullptr ? verb + (" " + step->name) : verb;
        button.toolTip = button.text + keys;
        button.disabledTip = step != nullptr ? "" : "nothing to take back or to make again";
    };
    show(form.cmdUndo, "Undo", "  <Ctrl><Z>", form.history.ToUndo());
    show(form.cmdRedo, "Redo", "  <Ctrl><Shift><Z>", form.history.ToRedo());
}

void cmdUndo_Click(ListEditor& form) {
    form.TakeForeignChanges();
    const auto* const step = form.history.ToUndo();
    if (step == nullptr) {
        host().beep();
        return;
    }
    form.history.Undone();
    PutBack(form, step->before, step->after);
}

void cmdRedo_Click(ListEditor& form) {
    form.TakeForeignChanges();
    const auto* const step = form.history.ToRedo();
    if (step == nullptr) {
        host().beep();
        return;
    }
    form.history.Redone();
    PutBack(form, step->after, step->before);
}

// ---------------------------------------------------------------- lines and cells

bool HasLines(const ListEditor& form) {
    if (form.Rows() == 0)
        host().beep();
    return form.Rows() > 0;
}

void cmdAus_Click(ListEditor& form) {
    if (!HasLines(form))
        return;
    const int row = std::clamp(form.CurrentRow, 1, form.Rows());
    MakeChange(form, "switching of line " + std::to_string(row), ListState::Extent::Rows, [&] {
        form.SetValue(row, form.Mark(), form.Value(row, form.Mark()) == 0 ? -1 : 0);
    });
    form.SetChanged(true);
    FillGridRow(form, row);
}

void cmdInsert_Click(ListEditor& form) {
    if (!HasRoom(form, Index(form.Rows()) + 1))
        return;
    const int row = std::clamp(form.Grid.row + 1, 1, form.Rows() + 1);
    MakeChange(form, "inserting", ListState::Extent::Rows, [&] {
        form.Resize(form.Rows() + 1);
        std::vector<int> rows = AllRows(form);
        std::rotate(rows.begin() + row - 1, rows.end() - 1, rows.end());
        form.Arrange(rows);
    });
    form.SetChanged(true);
    form.EditMode = true;
    form.CurrentRow = row;
    form.Grid.row = row - 1;
    form.Grid.selection = {};
    FillGrid(form);
    form.RefreshCommands();
    SetEditMode(form, true);
    form.setFocus = &form.Grid;
}

void cmdErase_Click(ListEditor& form) {
    if (!HasLines(form))
        return;
    const Marked marked = MarkedIn(form);
    if (marked.last == 0)
        TellNothingMarked();
    else if (Ask(marked.Lines() + form.rules.removeQuestion, "WARNING", Icon::Question,
                 Buttons::YesNo) == Answer::Yes)
        RemoveLines(form, marked.first, marked.last);
}

void RemoveLines(ListEditor& form, int first, int last) {
    MakeChange(form, "removing", ListState::Extent::Rows, [&] {
        std::vector<int> rows = AllRows(form);
        rows.erase(rows.begin() + first - 1, rows.begin() + last);
        form.Arrange(rows);
    });
    form.Grid.selection = {};
    form.CurrentRow = std::max(std::min(first, form.Rows()), 1);
    form.Grid.row = form.CurrentRow - 1;
    Refill(form);
}

void FuCellsClear(ListEditor& form) {
    if (!HasLines(form))
        return;
    const Marked marked = MarkedIn(form);
    if (!marked.AnyCell()) {
        TellNothingMarked();
        return;
    }
    MakeChange(form, "setting cells to 0", ListState::Extent::Rows, [&] {
        for (int row = marked.first; row <= marked.last; ++row)
            for (int column = marked.firstValue; column <= marked.lastValue; ++column)
                form.SetValue(row, column, 0);
    });
    form.SetChanged(true);
    FillGrid(form);
    form.RefreshCommands();
    SetEditMode(form, form.EditMode);
}

void SortRows(ListEditor& form, int column) {
    if (!HasLines(form))
        return;
    MakeChange(form, "sorting", ListState::Extent::Rows, [&] {
        std::vector<int> rows = AllRows(form);
        std::ranges::stable_sort(rows, {}, [&](int row) { return form.Value(row, column); });
        form.Arrange(rows);
    });
    Refill(form);
}

// ---------------------------------------------------------------- numbers from outside

bool HasRoom(const ListEditor& form, std::size_t rows) {
    const int most = form.rules.mostRows;
    if (rows <= Index(most))
        return true;
    ShowMessage("The list holds " + std::to_string(most) + " lines at most; with these " +
                    std::to_string(rows) + " would be needed.",
                kRefused, Icon::Critical);
    return false;
}

void WriteNumbers(ListEditor& form, const TableNumbers& numbers, const std::vector<int>& columns,
                  int firstRow) {
    const int last = firstRow - 1 + static_cast<int>(numbers.Rows());
    if (last > form.Rows())
        form.Resize(last);
    for (std::size_t i = 0; i < numbers.Rows(); ++i) {
        const auto values = numbers.Row(i);
        for (std::size_t j = 0; j < std::min(values.size(), columns.size()); ++j)
            if (columns[j] >= 0)
                form.SetValue(firstRow + static_cast<int>(i), columns[j], values[j]);
    }
}

bool PutNumbers(ListEditor& form, const TableNumbers& numbers, const std::vector<int>& columns,
                int firstRow, const std::string& name) {
    if (!HasRoom(form, Index(firstRow) - 1 + numbers.Rows()))
        return false;
    MakeChange(form, name, ListState::Extent::Rows,
               [&] { WriteNumbers(form, numbers, columns, firstRow); });
    form.EditMode = true;
    form.CurrentRow = firstRow;
    form.Grid.row = firstRow - 1;
    Refill(form);
    return true;
}

// ---------------------------------------------------------------- clipboard

void cmdClipboard_Click(ListEditor& form) {
    const Marked marked = MarkedIn(form);
    if (!marked.AnyCell()) {
        host().beep();
        return;
    }
    // All digits, not only those that the list shows: what is pasted back is the same.
    TableNumbers numbers;
    for (int row = marked.first; row <= marked.last; ++row) {
        for (int column = marked.firstValue; column <= marked.lastValue; ++column)
            numbers.values.push_back(form.Value(row, column));
        numbers.rowStart.push_back(static_cast<std::uint32_t>(numbers.values.size()));
    }
    form.copied = WriteTable(numbers);
    if (form.ps.DecimalComma)
        std::ranges::replace(form.copied, '.', ',');
    host().setClipboardText(form.copied);
}

void cmdClipEinfuegen_Click(ListEditor& form) {
    const std::optional<std::string> text = host().clipboardText();
    if (!text || text->empty())
        return;
    const PastePlace place = PlaceOfPaste(form);
    const bool own = *text == form.copied;
    if (!own && form.PastedElsewhere(*text, place.value))
        return;
    const std::optional<TableNumbers> numbers =
        own ? ReadTable(*text, LayoutOfCopies(form.ps.DecimalComma)) : ReadPastedTable(*text);
    if (!numbers)
        return;
    const std::vector<int> columns = form.ColumnsForPaste(place.value, numbers->Columns());
    if (PutNumbers(form, *numbers, columns, place.line, "pasting"))
        TellSurplusColumns(*numbers, columns.size());
}

// ---------------------------------------------------------------- the version before

void cmdPrevious_Click(ListEditor& form) {
    const std::string file = form.FileOfList(), path = file + "~";
    std::error_code none;
    if (file.empty() || !std::filesystem::is_regular_file(path, none))
        ShowMessage("There is no previous version. One is kept beside the file when the file is "
                    "saved again.",
                    form.cmdPrevious.text, Icon::Information);
    else
        form.LoadPrevious(path);
}

} // namespace zorvant
