// The record of the data editor: what it shows, the input line, entry in the list.
#include "dialogs/data/frm_datedit.h"

#include "data/exp_data.h"
#include "data/exp_file.h"
#include "dialogs/common/names.h"
#include "dialogs/common/time_unit_change.h"
#include "dialogs/data/grid_editing.h"
#include "engine/arithmetic.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"
#include "platform/host.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

constexpr int kHelpDataEditor = 10100;
constexpr const char* kRefused = "Execution not possible";
constexpr const char* kEmptyList = "empty list";
/// Columns of the list: number, mark, then the values.
constexpr int kMarkColumn = 1, kFirstValue = 2, kGridColumns = kFirstValue + kExpColumns;
/// Widths in characters; all columns have room beside each other, and the user can widen them.
constexpr int kNumberWidth = 4, kMarkWidth = 3, kTimeWidth = 10, kConcWidth = 11, kValueWidth = 9;
constexpr std::string_view kExclude = "-1";

using Heads = std::array<std::string, 6>;

struct ModelHeads {
    Heads heads;  ///< t, cA..cQ
    Heads labels; ///< over the boxes
};

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

ModelHeads HeadsOf(const Workspace& ps) {
    const std::string unit = Trim(ps.TimeUnitText);
    Heads heads{"time t/" + unit, "c(A)/(mol/L)", "c(B)/(mol/L)",
                "c(C)/(mol/L)",   "c(P)/(mol/L)", "c(Q)/(mol/L)"};
    if (!IsEnzymeModel(ps.ModelId))
        return {heads,
                {"Time t/" + unit, " cA/(mol/L)  ", " cB/(mol/L)  ", " cC/(mol/L)  ",
                 " cP/(mol/L)  ", " cQ/(mol/L)  "}};
    if (ps.RcSMode) {
        heads[0] = "r(P)/(mol/L " + unit + ")";
        heads[2] = "c(S)/(mol/L)";
    } else {
        heads = {"Zeit t/" + unit, "c(E)/(mol/L)", "c(S)/(mol/L)",
                 "c(ES)/(mol/L)",  "c(P)/(mol/L)", "c(Q)/(mol/L)"};
    }
    return {heads, heads};
}

bool BoxEnabled(const Workspace& ps, int box) {
    if (!IsEnzymeModel(ps.ModelId))
        return true;
    return ps.RcSMode ? box == kExpTime || box == 2 : box < kExpLambda;
}

int FirstEnabledBox(const frmDatedit& form) {
    int box = 0;
    while (box < kExpColumns - 1 && !form.y(box).enabled)
        ++box;
    return box;
}

void ShowRowText(std::vector<std::string>& cells, const ExpPoint& point, int row) {
    cells.resize(kGridColumns);
    cells[0] = std::to_string(row);
    cells[kMarkColumn] = point.exclude != 0 ? "-1" : "0";
    for (int column = 0; column < kExpColumns; ++column)
        cells[Index(kFirstValue + column)] = ExpCellText(point, column);
}

TableSnapshot TableOf(const frmDatedit& form) {
    const Workspace& ps = form.ps;
    constexpr std::size_t kMarks = kExpColumns, kReserved3 = kMarks + 1, kReserved4 = kMarks + 2;
    const auto value = [&](std::size_t row, std::size_t column) -> double {
        const ExpPoint& point = ps.ExpData[row + 1];
        switch (column) {
        case kMarks:
            return point.exclude;
        case kReserved3:
            return static_cast<double>(point.res3);
        case kReserved4:
            return static_cast<double>(point.res4);
        default:
            return ExpValue(point, static_cast<int>(column));
        }
    };
    return TakeSnapshot(Index(ps.ExpPointCount), kReserved4 + 1, value, form.known);
}

ExpTableState StateOf(const frmDatedit& form, ExpTableState::Extent extent) {
    const Workspace& ps = form.ps;
    return {.extent = extent,
            .table = TableOf(form),
            .timeUnit = ps.TimeUnitText,
            .comment = ps.ExpComment,
            .lambdaInf = ps.LambdaInf,
            .path = ps.DataFilePath,
            .title = ps.DataFileTitle};
}

/// One side of a step instead of the other.
void PutBack(frmDatedit& form, const ExpTableState& state, const ExpTableState& other) {
    using Extent = ExpTableState::Extent;
    Workspace& ps = form.ps;
    form.changing = true;
    const int unit = TimeUnitIndex(state.timeUnit), from = TimeUnitIndex(ps.TimeUnitText);
    if (state.extent == Extent::Unit)
        ChangeTimeUnit(ps, unit, from);
    if (state.extent == Extent::File && from == TimeUnitIndex(other.timeUnit)) {
        TakeUnitOfRows(ps, state.timeUnit);
        TellUnitOfData(ps);
    }
    if (state.extent == Extent::File || state.extent == Extent::Data) {
        ps.ExpComment = state.comment;
        ps.LambdaInf = state.lambdaInf;
        ps.DataFilePath = state.path;
        ps.DataFileTitle = state.title;
        form.txtComment.text = ps.ExpComment;
        form.lambda_infin.text = GeneralText(ps.LambdaInf);
    }
    // The numbers as they were to the last digit, which converting back would not give.
    ps.ExpPointCount = static_cast<int>(state.table.rows);
    ps.ExpData.resize(std::max<std::size_t>(state.table.rows + 1, 2));
    for (std::size_t row = 0; row < state.table.rows; ++row) {
        ExpPoint& point = ps.ExpData[row + 1];
        for (int column = 0; column < kExpColumns; ++column)
            SetExpValue(point, column, state.table.At(row, Index(column)));
        point.exclude = static_cast<std::int16_t>(state.table.At(row, kExpColumns));
        point.res3 = static_cast<float>(state.table.At(row, kExpColumns + 1));
        point.res4 = static_cast<float>(state.table.At(row, kExpColumns + 2));
    }
    // Where the unit went on without this list, its times follow.
    const int present = TimeUnitIndex(ps.TimeUnitText);
    if (present != unit)
        for (std::size_t row = 1; row <= state.table.rows; ++row)
            ps.ExpData[row].t = TimeColumnIn(ps, ps.ExpData[row].t, present, unit);
    form.changing = false;
    form.known = TableOf(form);
    form.knownUnit = ps.TimeUnitText;
    ps.ExpDataChanged = form.textsChanged || !(form.known == form.saved);
    form.optZeit.selected = TimeUnitIndex(ps.TimeUnitText);
    FuGridHeads(form);
    FillGrid(form);
    SetEditMode(form, form.EditMode);
    EnableDataCommands(form, ps.ExpPointCount > 0);
    if (state.extent == Extent::File || state.extent == Extent::Data) // as a load counts its rows
        CheckExpData(ps);
}

void ShowHistory(frmDatedit& form) {
    ShowHistory(form.history, form.cmdUndo, form.cmdRedo);
}

/// Whether a table is another one in a new time unit and nothing else.
bool IsUnitChange(const Workspace& ps, const TableSnapshot& from, int fromUnit,
                  const ExpTableState& now) {
    const TableSnapshot& to = now.table;
    const int unit = TimeUnitIndex(now.timeUnit);
    if (unit == fromUnit || from.rows != to.rows || from.columns.size() != to.columns.size())
        return false;
    for (std::size_t column = 0; column < to.columns.size(); ++column)
        for (std::size_t row = 0; row < to.rows; ++row) {
            const double before = from.At(row, column);
            if (to.At(row, column) !=
                (column == kExpTime ? TimeColumnIn(ps, before, unit, fromUnit) : before))
                return false;
        }
    return true;
}

bool HasTimes(const TableSnapshot& table) {
    for (std::size_t row = 0; row < table.rows; ++row)
        if (table.At(row, kExpTime) != 0)
            return true;
    return false;
}

/// A unit change made elsewhere becomes a step; other changes that came from elsewhere can't be
/// taken back here.
/// Returned: whether there were any.
bool NoteForeignChanges(frmDatedit& form, const ExpTableState& now) {
    const std::string unitBefore = std::exchange(form.knownUnit, now.timeUnit);
    if (now.table == form.known && (unitBefore == now.timeUnit || !HasTimes(now.table)))
        return false;
    if (IsUnitChange(form.ps, form.known, TimeUnitIndex(unitBefore), now)) {
        ExpTableState before = now, after = now;
        before.table = form.known;
        before.timeUnit = unitBefore;
        before.extent = after.extent = ExpTableState::Extent::Unit;
        form.history.Note("unit change", std::move(before), std::move(after));
    } else {
        form.history.Clear();
    }
    form.known = now.table;
    if (!form.ps.ExpDataChanged)
        form.saved = form.known;
    ShowHistory(form);
    return true;
}

/// Shows the table when it was changed elsewhere.
void TakeForeignChanges(frmDatedit& form) {
    if (form.changing || !NoteForeignChanges(form, StateOf(form, ExpTableState::Extent::Rows)))
        return;
    form.txtComment.text = form.ps.ExpComment;
    form.lambda_infin.text = GeneralText(form.ps.LambdaInf);
    FillGrid(form);
    SetEditMode(form, form.ps.ExpPointCount > 0);
    SetHeading(form,
               form.EditMode ? "Editing öf Experimental Data  " : "Input of Experimental Points  ");
}

void Form_Load(frmDatedit& form) {
    Workspace& ps = form.ps;
    FuGridHeads(form);
    ps.FitMode = kNoFit;
    form.txtComment.text = ps.ExpComment;
    form.lambda_infin.text = GeneralText(ps.LambdaInf);
    form.optZeit.selected = TimeUnitIndex(ps.TimeUnitText);
    form.Lbl6.visible = false;
    form.CurrentRow = 1;
    form.NoteDue = true;
    NoteForeignChanges(form, StateOf(form, ExpTableState::Extent::Rows));
    if (!ps.ExpDataChanged) {
        form.saved = form.known;
        form.textsChanged = false;
    }
    ShowHistory(form);
    FillGrid(form);
    SetEditMode(form, ps.ExpPointCount > 0);
    SetHeading(form, ps.ExpPointCount > 0 ? "Editing öf Experimental Data  "
                                          : "Input of Experimental Points  ");
    form.setFocus = &form.y(FirstEnabledBox(form));
}

void Form_Unload(frmDatedit& form) {
    EnableDataCommands(form, form.ps.ExpPointCount > 0);
    EnableControl(form.ps.desktop, name::kMainWindow, name::kToolSaveProject,
                  form.ps.ExpPointCount > 0);
}

void Grid_Select(frmDatedit& form) {
    const int row = form.Grid.row + 1;
    if (row < 1 || row > form.ps.ExpPointCount)
        return;
    form.CurrentRow = row;
    form.lblZeile.text = "line " + std::to_string(row);
    ShowInputLine(form);
}

/// The nine boxes as numbers; one that still shows what it was given leaves the value of the row
/// with all its digits.
ExpPoint ReadInputLine(const frmDatedit& form, const ExpPoint& present) {
    ExpPoint point = present;
    for (int box = 0; box < kExpColumns; ++box) {
        const std::string& text = form.y(box).text;
        if (!form.EditMode || text != form.shown[Index(box)])
            SetExpValue(point, box, Val(text));
    }
    return point;
}

/// Del: line numbers mean the lines, values mean the cells.
void EraseMarked(frmDatedit& form) {
    const GridRange& marked = form.Grid.selection;
    marked.lastRow >= 0 && marked.firstColumn == 0 ? cmdErase_Click(form) : FuCellsClear(form);
}

void ShowNonIsothermalNote(frmDatedit& form) {
    form.NoteDue = false;
    ShowMessage(
        JoinLines({"For non-isothermal datasets c(A) = Fu(t, T), instead of",
                   "the concentration value c(A), the ratio c(A)/c(A)(0)   ",
                   "should be given for a first-order reaction,", "e. g. the value 1 for t = 0.",
                   "This has the advantage that the individual measuring points",
                   "can be related to different c(A, 0)."}),
        "One-time Reference", Icon::Information);
}

} // namespace

frmDatedit::frmDatedit(Workspace& state, DiagramDocument& diagramDocument)
    : Form(name::kDataEditor, " Input/Edit Experimental Data "), ps(state),
      diagram(diagramDocument) {
    helpTopic = kHelpDataEditor;
    lblY(7).text = "temperature/K        rate constant k";
    lblY(6).text = "lambda (t)";
    Grid.heads.assign(kGridColumns, "");
    Grid.heads[0] = "No.";
    Grid.heads[kMarkColumn] = "aus";
    Grid.heads[Index(kFirstValue + kExpLambda)] = "lambda";
    Grid.heads[Index(kFirstValue + kExpTemperature)] = "T/K";
    Grid.heads[Index(kFirstValue + kExpRate)] = "k";
    Grid.columnWidths.assign(kGridColumns, kValueWidth);
    for (int slot = 1; slot <= kSpecies; ++slot)
        Grid.columnWidths[Index(kFirstValue + slot)] = kConcWidth;
    Grid.columnWidths[0] = kNumberWidth;
    Grid.columnWidths[kMarkColumn] = kMarkWidth;
    Grid.columnWidths[kFirstValue] = kTimeWidth;
    Grid.checkColumns = {false, true};
    Grid.editableColumns.assign(kGridColumns, true);
    Grid.editableColumns[0] = Grid.editableColumns[kMarkColumn] = false;
    Lbl6.text = JoinLines(
        {"The data can be evaluated now:", "Main menue \"Evaluation of Exper./Fitting\""});
    Lbl6.visible = false;
    cmdUndo.shortcut = "Ctrl+Z";
    cmdRedo.shortcut = "Ctrl+Shift+Z";
    cmdClipboard.toolTip = " corresponds to <Ctrl><C> in the list ";
    cmdClipEinfuegen.toolTip = " corresponds to <Ctrl><V> in the list ";
    cmdErase.toolTip = " corresponds to <Del> on line numbers ";
    cmdEraseSelected.toolTip = " corresponds to <Del> on values ";
    cmdAus.toolTip = " a line that is off takes no part in diagrams and evaluations ";
    cmdImport.toolTip = " measured values from a text file, with a preview ";
    OK.isCancel = false;

    onLoad = [this] { Form_Load(*this); };
    onUnload = [this] { Form_Unload(*this); };
    onActivate = [this] { TakeForeignChanges(*this); };
    onModelChanged = [this] {
        TakeForeignChanges(*this);
        FuGridHeads(*this);
    };
    onTimeUnitChanged = [this] {
        TakeForeignChanges(*this);
        optZeit.selected = TimeUnitIndex(ps.TimeUnitText);
        FuGridHeads(*this);
    };
    for (int box = 0; box < kExpColumns; ++box) {
        y(box).onKeyPress = [this, box](int& key) { y_KeyPress(*this, box, key); };
        y(box).onChange = [this, box] { y(box).text = CommasToPoints(y(box).text); };
        y(box).onGotFocus = [this, box] { y(box).selectAll = true; };
    }
    txtComment.onKeyPress = CommentKey;
    txtComment.onChange = [this] {
        ps.ExpComment = txtComment.text;
        ps.ExpDataChanged = textsChanged = true;
    };
    lambda_infin.onKeyPress = NumberKey;
    lambda_infin.onChange = [this] {
        lambda_infin.text = CommasToPoints(lambda_infin.text);
        ps.LambdaInf = Val(lambda_infin.text);
        ps.ExpDataChanged = textsChanged = true;
    };
    lambda_infin.onGotFocus = [this] { lambda_infin.selectAll = true; };
    optZeit.onClick = [this](int unit) { optZeit_Click(*this, unit); };
    optInputMode.onClick = [this](int mode) { optInputMode_Click(*this, mode); };
    OKinput.onClick = [this] { OKinput_Click(*this); };
    Grid.onSelect = [this] { Grid_Select(*this); };
    Grid.onDoubleClick = [this] {
        if (ps.ExpPointCount > 0)
            SetEditMode(*this, true);
    };
    Grid.onKeyPress = [this](int, int column, int& key) {
        const GridCommands commands{.copy = [this] { cmdClipboard_Click(*this); },
                                    .paste = [this] { cmdClipEinfuegen_Click(*this); },
                                    .erase = [this] { EraseMarked(*this); }};
        GridKey(column, kFirstValue, ps.DecimalComma, key, commands);
    };
    Grid.onEdit = [this](int row, int column) { Grid_Edit(*this, row, column); };
    Grid.onContextMenu = [this] { PopUpMenu(ps.desktop, name::kMenuOfData); };
    cmdUndo.onClick = [this] { cmdUndo_Click(*this); };
    cmdRedo.onClick = [this] { cmdRedo_Click(*this); };
    cmdAus.onClick = [this] { cmdAus_Click(*this); };
    cmdErase.onClick = [this] { cmdErase_Click(*this); };
    cmdEraseSelected.onClick = [this] { FuCellsClear(*this); };
    cmdClipboard.onClick = [this] { cmdClipboard_Click(*this); };
    cmdClipEinfuegen.onClick = [this] { cmdClipEinfuegen_Click(*this); };
    TSort.onClick = [this] { SortRows(*this, kExpTime); };
    TemperaturSort.onClick = [this] { SortRows(*this, kExpTemperature); };
    cmdDraw_ct.onClick = [this] { cmdDraw_ct_Click(*this); };
    cmdDraw_rcS.onClick = [this] { cmdDraw_rcS_Click(*this); };
    cmdDraw_Tk.onClick = [this] { cmdDraw_Tk_Click(*this); };
    cmdLoadFile.onClick = [this] { cmdLoadFile_Click(*this); };
    cmdAddFile.onClick = [this] { cmdAddFile_Click(*this); };
    cmdImport.onClick = [this] {
        if (Form* const dialog = FindForm(ps.desktop, name::kImportText))
            ShowForm(ps.desktop, *dialog);
    };
    cmdSave.onClick = [this] { cmdSave_Click(*this); };
    cmdApply.onClick = [this] { cmdApply_Click(*this); };
    OK.onClick = [this] { OK_Click(*this); };
    Declare();
}

// ---------------------------------------------------------------- what is shown

void FuGridHeads(frmDatedit& form) {
    const Workspace& ps = form.ps;
    const ModelHeads texts = HeadsOf(ps);
    for (std::size_t i = 0; i < texts.heads.size(); ++i) {
        std::string& head = form.Grid.heads[kFirstValue + i];
        if (head != texts.heads[i]) {
            head = texts.heads[i];
            ++form.Grid.revision;
        }
        form.lblY(static_cast<int>(i)).text = texts.labels[i];
    }
    for (int box = 0; box < kExpColumns; ++box) {
        form.y(box).enabled = BoxEnabled(ps, box);
        form.y(box).disabledTip = "not for data of the MICHAELIS-MENTEN enzyme reaction";
    }
    const bool couples = IsEnzymeModel(ps.ModelId) && ps.RcSMode;
    form.y(0).toolTip = couples ? " reaction rate of P" : "";
    form.TSort.text = couples ? "r(P) sorting" : "Time sorting";
    form.cmdDraw_rcS.enabled = couples;
    form.cmdDraw_rcS.disabledTip =
        "only for r(P)-c(S) data of the MICHAELIS-MENTEN enzyme reaction";
    form.cmdDraw_ct.enabled = !couples;
    form.cmdDraw_ct.disabledTip = "the list holds r(P)-c(S) data";
    form.cmdDraw_Tk.disabledTip = form.cmdSave.disabledTip = kEmptyList;
    if (!IsEnzymeModel(ps.ModelId))
        form.cmdDraw_Tk.enabled = ps.ExpPointCount > 0;
}

void FillGridRow(frmDatedit& form, int row) {
    ShowRowText(form.Grid.cells.at(Index(row - 1)), form.ps.ExpData[Index(row)], row);
    ++form.Grid.revision;
}

void FillGrid(frmDatedit& form) {
    const int count = form.ps.ExpPointCount;
    auto& cells = form.Grid.cells;
    ++form.Grid.revision;
    if (count == 0) {
        cells.assign(1, std::vector<std::string>(kGridColumns));
        cells[0][kMarkColumn] = "0";
        cells[0][kFirstValue] = kEmptyList;
        form.Grid.row = form.Grid.column = -1;
        form.Grid.selection = {};
        return;
    }
    cells.resize(Index(count));
    for (int row = 1; row <= count; ++row)
        ShowRowText(cells[Index(row - 1)], form.ps.ExpData[Index(row)], row);
    if (form.Grid.row >= count)
        form.Grid.row = count - 1;
    if (form.Grid.selection.lastRow >= count)
        form.Grid.selection = {};
    form.CurrentRow = std::clamp(form.CurrentRow, 1, count);
}

void ShowInputLine(frmDatedit& form) {
    const bool row = form.CurrentRow >= 1 && form.CurrentRow <= form.ps.ExpPointCount;
    for (int box = 0; box < kExpColumns; ++box) {
        TextField& field = form.y(box);
        field.text = row && field.enabled
                         ? GeneralText(ExpValue(form.ps.ExpData[Index(form.CurrentRow)], box))
                         : std::string();
        form.shown[Index(box)] = field.text;
    }
}

void SetEditMode(frmDatedit& form, bool edit) {
    form.EditMode = edit && form.ps.ExpPointCount > 0;
    form.optInputMode.selected = form.EditMode ? 1 : 0;
    const Colour colour = form.EditMode ? kStyleColour : kWhite;
    for (int box = 0; box < kExpColumns; ++box)
        form.y(box).backColour = colour;
    if (form.EditMode) {
        form.CurrentRow = std::clamp(form.CurrentRow, 1, form.ps.ExpPointCount);
        form.lblZeile.text = "line " + std::to_string(form.CurrentRow);
        ShowInputLine(form);
        return;
    }
    form.lblZeile.text = "line " + std::to_string(form.ps.ExpPointCount + 1);
    for (int box = 0; box < kExpColumns; ++box)
        form.y(box).text.clear();
}

void SetHeading(frmDatedit& form, const std::string& heading) {
    const Workspace& ps = form.ps;
    form.caption = heading + (ps.DataFilePath.empty() ? "(unnamed)" : "(" + ps.DataFileTitle + ")");
}

void EnableDataCommands(const frmDatedit& form, bool enabled) {
    EnableControl(form.ps.desktop, name::kMainWindow, name::kEditData, enabled);
    EnableControl(form.ps.desktop, name::kMainWindow, name::kToolEditData, enabled);
}

// ---------------------------------------------------------------- undo

void MakeChange(frmDatedit& form, const std::string& name, ExpTableState::Extent extent,
                const Handler& change, const std::string& timeUnit) {
    ExpTableState before = StateOf(form, extent);
    if (!timeUnit.empty())
        before.timeUnit = timeUnit;
    NoteForeignChanges(form, before);
    form.changing = true;
    change();
    form.changing = false;
    ExpTableState after = StateOf(form, extent);
    const bool other = !(before.table == after.table) || before.timeUnit != after.timeUnit ||
                       before.path != after.path;
    form.known = after.table;
    form.knownUnit = after.timeUnit;
    if (other)
        form.history.Note(name, std::move(before), std::move(after));
    ShowHistory(form);
}

void cmdUndo_Click(frmDatedit& form) {
    TakeForeignChanges(form);
    const auto* const step = form.history.ToUndo();
    if (step == nullptr) {
        host().beep();
        return;
    }
    form.history.Undone();
    PutBack(form, step->before, step->after);
    ShowHistory(form);
}

void cmdRedo_Click(frmDatedit& form) {
    TakeForeignChanges(form);
    const auto* const step = form.history.ToRedo();
    if (step == nullptr) {
        host().beep();
        return;
    }
    form.history.Redone();
    PutBack(form, step->after, step->before);
    ShowHistory(form);
}

// ---------------------------------------------------------------- the input line

void optInputMode_Click(frmDatedit& form, int mode) {
    SetEditMode(form, mode == 1);
    if (form.EditMode)
        SetHeading(form, " Editing Experimental Data ");
    form.setFocus = &form.y(FirstEnabledBox(form));
}

void y_KeyPress(frmDatedit& form, int index, int& key) {
    InputLineKey(
        form.y(index), key, [&] { OKinput_Click(form); },
        [&] {
            int next = index + 1;
            while (next < kExpColumns && !form.y(next).enabled)
                ++next;
            if (next < kExpColumns)
                form.setFocus = &form.y(next);
            else
                OKinput_Click(form);
        });
}

void OKinput_Click(frmDatedit& form) {
    Workspace& ps = form.ps;
    double sum = 0;
    for (int box = 0; box < kExpColumns; ++box)
        sum += Val(form.y(box).text);
    if (!(sum > 0)) {
        host().beep();
        return;
    }
    const bool add = !form.EditMode;
    if (add && ps.ExpPointCount >= kMaxExpPoints) {
        ShowMessage("The list holds " + std::to_string(kMaxExpPoints) + " lines at most.", kRefused,
                    Icon::Critical);
        return;
    }
    const int row = add ? ps.ExpPointCount + 1 : form.CurrentRow;
    MakeChange(form, (add ? "input of line " : "editing of line ") + std::to_string(row),
               ExpTableState::Extent::Rows, [&] {
                   const ExpPoint present = add ? ExpPoint{} : ps.ExpData[Index(row)];
                   const ExpPoint point = ReadInputLine(form, present);
                   if (add) {
                       ps.ExpData.resize(Index(row) + 1);
                       ps.ExpPointCount = row;
                   }
                   ps.ExpData[Index(row)] = point;
               });
    form.CurrentRow = row;
    ps.LambdaInf = Val(form.lambda_infin.text);
    const ExpPoint& point = ps.ExpData[Index(row)];
    if (point.cA > 0 && form.NoteDue && point.T > 0)
        ShowNonIsothermalNote(form);
    if (add) {
        form.Grid.cells.resize(Index(row));
        form.Grid.row = row - 1;
        form.Grid.selection = {};
    }
    FillGridRow(form, row);
    SetEditMode(form, !add);
    form.setFocus = &form.y(FirstEnabledBox(form));
    ps.ExpDataChanged = true;
    FuGridHeads(form);
    EnableDataCommands(form, true);
    form.cmdSave.enabled = true;
}

void optZeit_Click(frmDatedit& form, int unit) {
    Workspace& ps = form.ps;
    const int old = TimeUnitIndex(ps.TimeUnitText);
    ps.TimeUnitOldIdx = old;
    ps.TimeUnitIdx = unit;
    if (unit == old && ps.TimeUnitText == kTimeUnits[Index(unit)])
        return;
    MakeChange(form, "unit change", ExpTableState::Extent::Unit,
               [&] { ChangeTimeUnit(ps, unit, old); });
    if (ps.ExpPointCount > 0)
        ps.ExpDataChanged = true;
    FuGridHeads(form);
    FillGrid(form);
    if (form.EditMode)
        ShowInputLine(form);
}

// ---------------------------------------------------------------- entry in the list

void Grid_Edit(frmDatedit& form, int row, int column) {
    Workspace& ps = form.ps;
    const std::string text = CommasToPoints(form.Grid.cells.at(Index(row)).at(Index(column)));
    if (row >= ps.ExpPointCount) { // the row that says that there is none
        FillGrid(form);
        return;
    }
    ExpPoint& point = ps.ExpData[Index(row + 1)];
    const int value = column - kFirstValue;
    const std::string line = std::to_string(row + 1);
    if (column == kMarkColumn)
        MakeChange(form, "switching of line " + line, ExpTableState::Extent::Rows,
                   [&] { point.exclude = static_cast<std::int16_t>(text == kExclude ? -1 : 0); });
    else
        MakeChange(form, "entry in line " + line, ExpTableState::Extent::Rows,
                   [&] { SetExpValue(point, value, Val(text)); });
    ps.ExpDataChanged = true;
    FillGridRow(form, row + 1);
    if (value < 0 || form.CurrentRow != row + 1)
        return;
    if (form.y(value).enabled) {
        form.y(value).text = GeneralText(ExpValue(point, value));
        form.shown[Index(value)] = form.y(value).text;
    }
}

} // namespace zorvant
