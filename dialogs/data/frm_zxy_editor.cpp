// The record of the X-Y editor: what it shows, the input line, entry in the list.
#include "dialogs/data/frm_zxy_editor.h"

#include "data/field_separator.h"
#include "dialogs/common/names.h"
#include "dialogs/data/grid_editing.h"
#include "engine/arithmetic.h"
#include "platform/host.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

constexpr int kHelpXYEditor = 10120;
constexpr const char* kEmptyList = "empty list";
/// Columns of the list.
constexpr int kMarkColumn = 1, kXColumn = 2, kYColumn = 3, kGridColumns = 4;
constexpr int kNumberWidth = 6, kMarkWidth = 4, kValueWidth = 14;

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

std::string CellText(float value) {
    return Trim(PlainText(static_cast<double>(value)));
}

XYListState StateOf(const frmZXYEditor& form) {
    const auto value = [&](std::size_t row, std::size_t column) {
        const XYPoint& point = form.XYData[row + 1];
        return static_cast<double>(column == 0 ? point.x : column == 1 ? point.y : point.inactive);
    };
    return {.table = TakeSnapshot(Index(form.ps.XYCount), 3, value, form.known),
            .comment = form.txtComment.text,
            .file = form.ps.XYFile};
}

void ShowHistory(frmZXYEditor& form) {
    ShowHistory(form.history, form.cmdUndo, form.cmdRedo);
}

void PutBack(frmZXYEditor& form, const XYListState& state, const XYListState& other) {
    form.ps.XYCount = static_cast<int>(state.table.rows);
    form.XYData.resize(state.table.rows + 1);
    for (std::size_t row = 0; row < state.table.rows; ++row)
        form.XYData[row + 1] = {.x = static_cast<float>(state.table.At(row, 0)),
                                .y = static_cast<float>(state.table.At(row, 1)),
                                .inactive = static_cast<float>(state.table.At(row, 2))};
    if (state.file != other.file) { // another file was loaded
        form.ps.XYFile = state.file;
        form.txtComment.text = state.comment;
    }
    form.known = state.table;
    Refill(form);
    form.XYChanged = form.commentChanged || !(state.table == form.saved);
    SetEditMode(form, form.EditMode);
    ShowHistory(form);
}

void ShowRowText(std::vector<std::string>& cells, const XYPoint& point, int row) {
    cells.resize(kGridColumns);
    cells[0] = std::to_string(row);
    cells[kMarkColumn] = point.inactive != 0 ? "-1" : "0";
    cells[kXColumn] = CellText(point.x);
    cells[kYColumn] = CellText(point.y);
}

/// After a change of one line.
void ShowLine(frmZXYEditor& form, int row) {
    ShowRowText(form.Grid.cells.at(Index(row - 1)), form.XYData[Index(row)], row);
    ++form.Grid.revision;
}

void Form_Load(frmZXYEditor& form) {
    form.ps.XYCount = 0;
    form.XYData.assign(1, {});
    form.history.Clear();
    form.known = form.saved = {};
    form.EditLine = 1;
    form.XYChanged = form.commentChanged = false;
    FillGrid(form);
    SetEditMode(form, false);
    EnableListCommands(form);
    ShowHistory(form);
    optManip_Click(form, form.optManip.selected);
    form.setFocus = &form.y(0);
}

void Form_Activate(frmZXYEditor& form) {
    form.cmbSep.index = SeparatorEntry(form.ps);
}

void Grid_Select(frmZXYEditor& form) {
    const int row = form.Grid.row + 1;
    if (row < 1 || row > form.ps.XYCount)
        return;
    form.EditLine = row;
    ShowInputLine(form);
    form.lblZeile.text = "line " + std::to_string(form.EditMode ? row : form.ps.XYCount + 1);
}

/// A list that was never stored may be closed only when the user knows it.
void Form_QueryUnload(frmZXYEditor& form, bool& cancel) {
    if (!form.XYChanged || form.ps.XYCount == 0)
        return;
    const Answer answer = Ask(JoinLines({"Data are not yet saved", "", "Save now?"}), "y ",
                              Icon::Warning, Buttons::YesNoCancel);
    cancel = answer == Answer::Cancel;
    if (answer != Answer::Yes)
        return;
    cmdSave_Click(form);
    cancel = form.XYChanged; // not saved after all
}

} // namespace

frmZXYEditor::frmZXYEditor(Workspace& state, DiagramDocument& diagramDocument)
    : Form(name::kXYEditor, "Manual data input"), ps(state), diagram(diagramDocument) {
    helpTopic = kHelpXYEditor;
    lblY(0).text = "X";
    lblY(1).text = "Y";
    Grid.heads = {"No.", "off", "X", "Y"};
    Grid.columnWidths = {kNumberWidth, kMarkWidth, kValueWidth, kValueWidth};
    Grid.checkColumns = {false, true};
    Grid.editableColumns = {false, false, true, true};
    optInputMode.selected = 0;
    optDeleteXY.selected = 0;
    optManip.selected = 0;
    optIsPoints.selected = 0;
    fraManipulation.visible = false;
    cmbSep.items = {"Semicolon", "Comma", "Tab"};
    cmdAus.toolTip =
        "... excludes this line from drawing, modifying values, fitting, saving and printing ";
    cmdClipEinfuegen.toolTip =
        " corresponds to <Ctrl><V>; suitable for import from MS-Excel or Origin ";
    cmdClipboard.toolTip = " corresponds to <Ctrl><C> in the list ";
    cmdEraseSelected.toolTip = " corresponds to <Del> in the list ";
    XSort.toolTip = "x-Sorting, ascending";
    YSort.toolTip = "y-Sorting, ascending";
    cmdChangeXY.toolTip = " interchanges x- and y-column ";
    cmdUndo.shortcut = "Ctrl+Z";
    cmdRedo.shortcut = "Ctrl+Shift+Z";
    cmdEsc.isCancel = true;

    onLoad = [this] { Form_Load(*this); };
    onActivate = [this] { Form_Activate(*this); };
    onQueryUnload = [this](bool& cancel) { Form_QueryUnload(*this, cancel); };
    for (int box = 0; box < 2; ++box) {
        y(box).onKeyPress = [this, box](int& key) { y_KeyPress(*this, box, key); };
        y(box).onChange = [this, box] { y(box).text = CommasToPoints(y(box).text); };
        y(box).onGotFocus = [this, box] { y(box).selectAll = true; };
    }
    txtW.onKeyPress = NumberKey;
    txtW.onChange = [this] { txtW.text = CommasToPoints(txtW.text); };
    txtComment.onKeyPress = CommentKey;
    txtComment.onChange = [this] { XYChanged = commentChanged = true; };
    optInputMode.onClick = [this](int mode) { optInputMode_Click(*this, mode); };
    OKinput.onClick = [this] { OKinput_Click(*this); };
    Grid.onSelect = [this] { Grid_Select(*this); };
    Grid.onKeyPress = [this](int, int column, int& key) {
        const GridCommands commands{.copy = [this] { cmdClipboard_Click(*this); },
                                    .paste = [this] { cmdClipEinfuegen_Click(*this); },
                                    .erase = [this] { cmdEraseSelected_Click(*this); }};
        GridKey(column, kXColumn, ps.DecimalComma, key, commands);
    };
    Grid.onEdit = [this](int row, int column) { Grid_Edit(*this, row, column); };
    Grid.onContextMenu = [this] { PopUpMenu(ps.desktop, name::kMenuOfList); };
    cmdUndo.onClick = [this] { cmdUndo_Click(*this); };
    cmdRedo.onClick = [this] { cmdRedo_Click(*this); };
    cmdAus.onClick = [this] { cmdAus_Click(*this); };
    cmdErase.onClick = [this] { cmdErase_Click(*this); };
    cmdEraseSelected.onClick = [this] { cmdEraseSelected_Click(*this); };
    cmdClipboard.onClick = [this] { cmdClipboard_Click(*this); };
    cmdClipEinfuegen.onClick = [this] { cmdClipEinfuegen_Click(*this); };
    XSort.onClick = [this] { XSort_Click(*this); };
    YSort.onClick = [this] { YSort_Click(*this); };
    cmdChangeXY.onClick = [this] { cmdChangeXY_Click(*this); };
    cmdManip.onClick = [this] { fraManipulation.visible = true; };
    cmdCloseManip.onClick = [this] { fraManipulation.visible = false; };
    optManip.onClick = [this](int index) { optManip_Click(*this, index); };
    cmdExecManip.onClick = [this] { cmdExecManip_Click(*this); };
    cmdDrawManu.onClick = [this] { cmdDrawManu_Click(*this); };
    cmdLoad.onClick = [this] { cmdLoad_Click(*this); };
    cmdSave.onClick = [this] { cmdSave_Click(*this); };
    cmbSep.onClick = [this] {
        if (cmbSep.index >= 0)
            ps.CsvSep = kFieldSeparators.at(static_cast<std::size_t>(cmbSep.index)).text;
    };
    cmdPrint.onClick = [this] { cmdPrint_Click(*this); };
    cmdEsc.onClick = [this] { cmdEsc_Click(*this); };
    Declare();
}

void cmdEsc_Click(frmZXYEditor& form) {
    UnloadForm(form.ps.desktop, form);
}

// ---------------------------------------------------------------- what is shown

void FillGrid(frmZXYEditor& form) {
    auto& cells = form.Grid.cells;
    ++form.Grid.revision;
    const int count = form.ps.XYCount;
    if (count == 0) {
        cells.assign(1, {"", "0", kEmptyList, ""});
        form.Grid.row = form.Grid.column = -1;
        form.Grid.selection = {};
        return;
    }
    cells.resize(Index(count));
    for (int row = 1; row <= count; ++row)
        ShowRowText(cells[Index(row - 1)], form.XYData[Index(row)], row);
    form.EditLine = std::clamp(form.EditLine, 1, count);
}

void Refill(frmZXYEditor& form) {
    form.XYData[0].x = static_cast<float>(form.ps.XYCount);
    FillGrid(form);
    if (form.ps.XYCount > 0) {
        form.EditLine = 1;
        form.Grid.row = 0;
        form.Grid.selection = {};
    }
    form.XYChanged = true;
    EnableListCommands(form);
}

void EnableListCommands(frmZXYEditor& form) {
    const bool rows = form.ps.XYCount > 0;
    for (Control* control : std::initializer_list<Control*>{
             &form.cmdSave, &form.cmdErase, &form.cmdManip, &form.cmdChangeXY, &form.optDeleteXY,
             &form.cmdPrint, &form.cmdAus, &form.XSort, &form.YSort, &form.optIsPoints}) {
        control->enabled = rows;
        control->disabledTip = kEmptyList;
    }
    for (const char* entry : {name::kEraseInList, name::kCopyFromList})
        EnableControl(form.ps.desktop, name::kMainWindow, entry, rows);
}

void ShowInputLine(frmZXYEditor& form) {
    const bool row = form.EditLine >= 1 && form.EditLine <= form.ps.XYCount;
    const XYPoint point = row ? form.XYData[Index(form.EditLine)] : XYPoint{};
    form.y(0).text = row ? GeneralText(static_cast<double>(point.x)) : std::string();
    form.y(1).text = row ? GeneralText(static_cast<double>(point.y)) : std::string();
    form.shown = {form.y(0).text, form.y(1).text};
}

void SetEditMode(frmZXYEditor& form, bool edit) {
    form.EditMode = edit && form.ps.XYCount > 0;
    form.optInputMode.selected = form.EditMode ? 1 : 0;
    if (form.EditMode) {
        form.EditLine = std::clamp(form.EditLine, 1, form.ps.XYCount);
        form.lblZeile.text = "line " + std::to_string(form.EditLine);
        ShowInputLine(form);
        return;
    }
    form.lblZeile.text = "line " + std::to_string(form.ps.XYCount + 1);
    form.y(0).text.clear();
    form.y(1).text.clear();
}

// ---------------------------------------------------------------- undo

void MakeChange(frmZXYEditor& form, const std::string& name, const Handler& change) {
    XYListState before = StateOf(form);
    change();
    form.XYData[0].x = static_cast<float>(form.ps.XYCount);
    XYListState after = StateOf(form);
    const bool other = !(before.table == after.table) || before.file != after.file;
    form.known = after.table;
    if (other)
        form.history.Note(name, std::move(before), std::move(after));
    ShowHistory(form);
}

void cmdUndo_Click(frmZXYEditor& form) {
    const auto* const step = form.history.ToUndo();
    if (step == nullptr) {
        host().beep();
        return;
    }
    form.history.Undone();
    PutBack(form, step->before, step->after);
}

void cmdRedo_Click(frmZXYEditor& form) {
    const auto* const step = form.history.ToRedo();
    if (step == nullptr) {
        host().beep();
        return;
    }
    form.history.Redone();
    PutBack(form, step->after, step->before);
}

// ---------------------------------------------------------------- the input line

void optInputMode_Click(frmZXYEditor& form, int mode) {
    SetEditMode(form, mode == 1);
    form.setFocus = &form.y(0);
}

void y_KeyPress(frmZXYEditor& form, int index, int& key) {
    InputLineKey(
        form.y(index), key, [&] { OKinput_Click(form); },
        [&] {
            if (index == 0)
                form.setFocus = &form.y(1);
            else
                OKinput_Click(form);
        });
}

void OKinput_Click(frmZXYEditor& form) {
    const bool add = !form.EditMode;
    if (add)
        form.EditLine = form.ps.XYCount + 1;
    const int line = form.EditLine;
    MakeChange(form, (add ? "input of line " : "editing of line ") + std::to_string(line), [&] {
        if (add) {
            form.XYData.resize(Index(line) + 1);
            form.ps.XYCount = line;
        }
        XYPoint& point = form.XYData[Index(line)];
        if (add || form.y(0).text != form.shown[0])
            point.x = NearestSingle(Val(form.y(0).text));
        if (add || form.y(1).text != form.shown[1])
            point.y = NearestSingle(Val(form.y(1).text));
    });
    if (add) {
        form.Grid.cells.resize(Index(line));
        form.Grid.row = line - 1;
        form.Grid.selection = {};
    }
    ShowLine(form, line);
    SetEditMode(form, !add);
    EnableListCommands(form);
    form.XYChanged = true;
    form.setFocus = &form.y(0);
}

// ---------------------------------------------------------------- entry in the list

void Grid_Edit(frmZXYEditor& form, int row, int column) {
    if (row >= form.ps.XYCount) { // the row that says that there is none
        FillGrid(form);
        return;
    }
    const std::string text = CommasToPoints(form.Grid.cells.at(Index(row)).at(Index(column)));
    XYPoint& point = form.XYData[Index(row + 1)];
    const std::string line = std::to_string(row + 1);
    if (column == kMarkColumn) {
        MakeChange(form, "switching of line " + line,
                   [&] { point.inactive = text == "-1" ? -1.0F : 0.0F; });
    } else {
        float& value = column == kXColumn ? point.x : point.y;
        MakeChange(form, "entry in line " + line, [&] { value = NearestSingle(Val(text)); });
        const int box = column - kXColumn;
        form.y(box).text = GeneralText(static_cast<double>(value));
        if (form.EditLine == row + 1)
            form.shown[Index(box)] = form.y(box).text;
    }
    ShowLine(form, row + 1);
    form.XYChanged = true;
}

void cmdAus_Click(frmZXYEditor& form) {
    if (form.ps.XYCount == 0) {
        host().beep();
        return;
    }
    const int line = std::clamp(form.EditLine, 1, form.ps.XYCount);
    MakeChange(form, "switching of line " + std::to_string(line), [&] {
        float& inactive = form.XYData[Index(line)].inactive;
        inactive = inactive == 0 ? -1.0F : 0.0F;
    });
    ShowLine(form, line);
    form.XYChanged = true;
}

} // namespace zorvant
