// What is shown, the input line, entry in the list.
#include "dialogs/data/list_editor.h"

#include "dialogs/common/names.h"
#include "dialogs/common/numeric_field.h"
#include "platform/host.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

constexpr const char* kEmptyList = "empty list";
constexpr const char *kOn = "0", *kOff = "-1";

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

void ShowRowText(const ListEditor& form, int row, std::vector<std::string>& cells) {
    cells.resize(form.rules.columns.size());
    cells[0] = std::to_string(row);
    cells[kMarkColumn] = form.Value(row, form.Mark()) != 0 ? kOff : kOn;
    for (int column = 0; column < form.Values(); ++column)
        cells[Index(kFirstValue + column)] = form.CellText(row, column);
}

/// Columns that hold nothing, so that the zeros in them do not look like values.
void ShowPaleColumns(ListEditor& form) {
    form.Grid.paleColumns.assign(form.rules.columns.size(), false);
    for (int column = 0; column < form.Values(); ++column) {
        int row = 1;
        while (row <= form.Rows() && form.Value(row, column) == 0)
            ++row;
        form.Grid.paleColumns[Index(kFirstValue + column)] = row > form.Rows();
    }
}

/// The empty row at the end, which takes what is typed or pasted there.
void ShowOpenRow(ListEditor& form) {
    form.Grid.cells.resize(Index(form.Rows()));
    if (form.Rows() < form.rules.mostRows)
        form.Grid.cells.emplace_back(form.rules.columns.size());
}

void ShowLineNumber(ListEditor& form, int row) {
    form.lblZeile.text = "line " + std::to_string(row);
}

// ---------------------------------------------------------------- keys

/// The menu of the main window whose entries press the buttons of a list, at the pointer.
void PopUpMenu(const Desktop& desktop, const char* menu) {
    Form* const main = FindForm(desktop, name::kMainWindow);
    Control* const entry = main == nullptr ? nullptr : main->Find(menu);
    if (entry != nullptr && entry->kind == Kind::MenuEntry)
        host().popupMenu(static_cast<MenuEntry&>(*entry));
}

void GoOn(ListEditor& form, int box) {
    do
        ++box;
    while (box < form.Values() && !form.boxes[Index(box)]->enabled);
    if (box < form.Values())
        form.setFocus = form.boxes[Index(box)];
    else
        OKinput_Click(form);
}

/// A key in a box of the input line: the numeric ones pass; "+", but not behind an exponent's E,
/// takes the line over, Enter goes on.
void BoxKey(ListEditor& form, int box, int& key) {
    if (key == kKeyCopy || key == kKeyPaste || key == kKeyCut)
        return;
    const std::string& text = form.boxes[Index(box)]->text;
    const bool behindE = !text.empty() && (text.back() | 0x20) == 'e';
    if (key == kKeyEnter)
        GoOn(form, box);
    else if (key == '+' && !behindE)
        OKinput_Click(form);
    else if (FilterNumericKey(key))
        return;
    key = 0;
}

/// A key in a comment, which is one line of its file.
void CommentKey(int& key) {
    if (key == kKeyEnter || key == kKeyCtrlEnter)
        key = 0;
}

void EraseMarked(ListEditor& form) {
    const GridRange& marked = form.Grid.selection;
    const bool lines = form.rules.delRemovesLines && marked.lastRow >= 0 && marked.firstColumn == 0;
    lines ? cmdErase_Click(form) : FuCellsClear(form);
}

/// A key in the list: copy, paste and Del are commands; in a column of values the decimal sign
/// becomes that of the system, and only numeric keys pass.
void GridKey(ListEditor& form, int column, int& key) {
    if (key == kKeyEnter || key == kKeyEsc)
        return;
    const bool value = column >= kFirstValue;
    if (value && (key == '.' || key == ',')) {
        key = form.ps.DecimalComma ? ',' : '.';
        return;
    }
    if (key == kKeyCopy)
        cmdClipboard_Click(form);
    else if (key == kKeyPaste)
        cmdClipEinfuegen_Click(form);
    else if (key == kKeyDel)
        EraseMarked(form);
    else if (!value || FilterNumericKey(key))
        return;
    key = 0;
}

void Grid_Select(ListEditor& form) {
    const int row = form.Grid.row + 1;
    if (row < 1 || row > form.Rows())
        return;
    form.CurrentRow = row;
    ShowInputLine(form);
    ShowLineNumber(form, form.LineShown(row));
}

constexpr auto kIsEmpty = [](const std::string& text) { return text.empty(); };

/// The boxes into a row, a new one at the end if need be. A box that still shows what it was given
/// leaves the value of its row with all digits.
void TakeInputLine(ListEditor& form, int row) {
    const bool fresh = row > form.Rows();
    if (fresh)
        form.Resize(row);
    for (int box = 0; box < form.Values(); ++box) {
        const std::string& text = form.boxes[Index(box)]->text;
        if (text != form.shown[Index(box)])
            form.SetValue(row, box, Val(text));
        else if (fresh && !text.empty())
            form.SetValue(row, box, form.Value(form.CurrentRow, box));
    }
}

// ---------------------------------------------------------------- wiring

void WireBoxes(ListEditor& form) {
    for (int box = 0; box < form.Values(); ++box) {
        TextField& field = *form.boxes[Index(box)];
        MakeNumeric(field, nullptr);
        field.onKeyPress = [&form, box](int& key) { BoxKey(form, box, key); };
    }
    form.shown.resize(form.boxes.size());
    form.optInputMode.onClick = [&form](int mode) { optInputMode_Click(form, mode); };
    form.OKinput.onClick = [&form] { OKinput_Click(form); };
    form.txtComment.onKeyPress = CommentKey;
}

void WireGrid(ListEditor& form) {
    form.Grid.onSelect = [&form] { Grid_Select(form); };
    form.Grid.onKeyPress = [&form](int, int column, int& key) { GridKey(form, column, key); };
    form.Grid.onEdit = [&form](int row, int column) { Grid_Edit(form, row, column); };
    form.Grid.onContextMenu = [&form] { PopUpMenu(form.ps.desktop, form.rules.menu); };
}

void WireCommands(ListEditor& form) {
    form.cmdUndo.onClick = [&form] { cmdUndo_Click(form); };
    form.cmdRedo.onClick = [&form] { cmdRedo_Click(form); };
    form.cmdAus.onClick = [&form] { cmdAus_Click(form); };
    form.cmdInsert.onClick = [&form] { cmdInsert_Click(form); };
    form.cmdErase.onClick = [&form] { cmdErase_Click(form); };
    form.cmdEraseSelected.onClick = [&form] { FuCellsClear(form); };
    form.cmdClipboard.onClick = [&form] { cmdClipboard_Click(form); };
    form.cmdClipEinfuegen.onClick = [&form] { cmdClipEinfuegen_Click(form); };
    form.cmdPrevious.onClick = [&form] { cmdPrevious_Click(form); };
}

void SetUpGrid(ListEditor& form) {
    const std::size_t columns = form.rules.columns.size();
    for (const ListColumn& column : form.rules.columns) {
        form.Grid.heads.push_back(column.head);
        form.Grid.columnWidths.push_back(column.width);
    }
    form.Grid.checkColumns = {false, true};
    form.Grid.editableColumns.assign(columns, true);
    form.Grid.editableColumns[0] = form.Grid.editableColumns[kMarkColumn] = false;
}

} // namespace

ListEditor::ListEditor(const char* formName, const char* formCaption, Workspace& state,
                       DiagramDocument& diagramDocument, ListRules listRules)
    : Form(formName, formCaption), ps(state), diagram(diagramDocument),
      rules(std::move(listRules)) {
    SetUpGrid(*this);
    cmdUndo.shortcut = "Ctrl+Z";
    cmdRedo.shortcut = "Ctrl+Shift+Z";
    cmdInsert.toolTip = " an empty line above the one at the cursor ";
    cmdPrevious.toolTip = " what the file held before it was saved the last time ";
    cmdClipboard.toolTip = " corresponds to <Ctrl><C> in the list ";
}

void WireList(ListEditor& form) {
    WireBoxes(form);
    WireGrid(form);
    WireCommands(form);
}

void ForgetHistory(ListEditor& form) {
    form.history.Clear();
    form.known = form.saved = {};
    form.textsChanged = false;
}

TextField& FirstEnabledBox(const ListEditor& form) {
    const auto box =
        std::ranges::find_if(form.boxes, [](const TextField* field) { return field->enabled; });
    return box == form.boxes.end() ? *form.boxes.back() : **box;
}

// ---------------------------------------------------------------- what is shown

void FillGridRow(ListEditor& form, int row) {
    ShowRowText(form, row, form.Grid.cells.at(Index(row - 1)));
    ShowPaleColumns(form);
    ++form.Grid.revision;
}

void FillGrid(ListEditor& form) {
    zorvant::Grid& grid = form.Grid;
    ++grid.revision;
    const int count = form.Rows();
    if (count == 0) {
        grid.cells.assign(1, std::vector<std::string>(form.rules.columns.size()));
        grid.cells[0][kMarkColumn] = kOn;
        grid.cells[0][kFirstValue] = kEmptyList;
        grid.row = grid.column = -1;
        grid.selection = {};
        return;
    }
    ShowOpenRow(form);
    for (int row = 1; row <= count; ++row)
        ShowRowText(form, row, grid.cells[Index(row - 1)]);
    ShowPaleColumns(form);
    const int last = static_cast<int>(grid.cells.size()) - 1;
    grid.row = std::min(grid.row, last);
    if (grid.selection.lastRow > last)
        grid.selection = {};
    form.CurrentRow = std::clamp(form.CurrentRow, 1, count);
}

void Refill(ListEditor& form) {
    if (form.rules.topAfterChange && form.Rows() > 0) {
        form.CurrentRow = 1;
        form.Grid.row = 0;
        form.Grid.selection = {};
    }
    form.SetChanged(true);
    FillGrid(form);
    form.RefreshCommands();
    SetEditMode(form, form.EditMode);
}

void ShowInputLine(ListEditor& form) {
    const bool row = form.CurrentRow >= 1 && form.CurrentRow <= form.Rows();
    for (int box = 0; box < form.Values(); ++box) {
        TextField& field = *form.boxes[Index(box)];
        field.text = row && field.enabled ? GeneralText(form.Value(form.CurrentRow, box)) : "";
        form.shown[Index(box)] = field.text;
    }
}

void SetEditMode(ListEditor& form, bool edit) {
    form.EditMode = edit && form.Rows() > 0;
    form.optInputMode.selected = form.EditMode ? 1 : 0;
    form.ModeShown();
    if (form.EditMode) {
        form.CurrentRow = std::clamp(form.CurrentRow, 1, form.Rows());
        ShowLineNumber(form, form.CurrentRow);
        ShowInputLine(form);
        return;
    }
    ShowLineNumber(form, form.Rows() + 1);
    for (TextField* field : form.boxes)
        field->text.clear();
    std::ranges::fill(form.shown, "");
}

bool IsLinePending(const ListEditor& form) {
    for (int box = 0; box < form.Values(); ++box)
        if (form.boxes[Index(box)]->text != form.shown[Index(box)])
            return true;
    return false;
}

// ---------------------------------------------------------------- the input line

void optInputMode_Click(ListEditor& form, int mode) {
    SetEditMode(form, mode == 1);
    form.setFocus = &FirstEnabledBox(form);
}

void OKinput_Click(ListEditor& form) {
    const bool add = !form.EditMode;
    // A row that was clicked while lines are added is a pattern for the next one; as it stands it
    // would only be there twice.
    const bool again = add && !IsLinePending(form) && !std::ranges::all_of(form.shown, kIsEmpty);
    if (again || !form.MayTakeInputLine()) {
        host().beep();
        return;
    }
    const int row = add ? form.Rows() + 1 : form.CurrentRow;
    if (!HasRoom(form, Index(row)))
        return;
    const std::string name = (add ? "input of line " : "editing of line ") + std::to_string(row);
    MakeChange(form, name, ListState::Extent::Rows, [&] { TakeInputLine(form, row); });
    form.CurrentRow = row;
    form.InputLineTaken(row);
    if (add) {
        ShowOpenRow(form);
        form.Grid.row = row - 1;
        form.Grid.selection = {};
    }
    FillGridRow(form, row);
    SetEditMode(form, !add);
    form.setFocus = &FirstEnabledBox(form);
    form.SetChanged(true);
    form.RefreshCommands();
}

// ---------------------------------------------------------------- entry in the list

void Grid_Edit(ListEditor& form, int gridRow, int column) {
    const int row = gridRow + 1;
    const bool fresh = row > form.Rows();
    const std::string text = CommasToPoints(form.Grid.cells.at(Index(gridRow)).at(Index(column)));
    const bool mark = column == kMarkColumn;
    if (fresh && (mark || Trim(text).empty() || !HasRoom(form, Index(row)))) {
        FillGrid(form);
        return;
    }
    const int value = mark ? form.Mark() : column - kFirstValue;
    const double number = mark ? (text == kOff ? -1 : 0) : Val(text);
    const char* const what = fresh  ? "input of line "
                             : mark ? "switching of line "
                                    : "entry in line ";
    MakeChange(form, what + std::to_string(row), ListState::Extent::Rows, [&] {
        if (fresh)
            form.Resize(row);
        form.SetValue(row, value, number);
    });
    form.SetChanged(true);
    if (fresh) {
        form.CurrentRow = row;
        ShowOpenRow(form);
        form.RefreshCommands();
        ShowLineNumber(form, form.LineShown(row));
    }
    FillGridRow(form, row);
    if (mark || form.CurrentRow != row || !form.boxes[Index(value)]->enabled)
        return;
    form.shown[Index(value)] = form.boxes[Index(value)]->text = GeneralText(form.Value(row, value));
}

} // namespace zorvant
