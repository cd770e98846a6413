// The commands of the data editor: lines and cells, clipboard, sorting, diagrams, files.
#include "data/exp_data.h"
#include "data/exp_file.h"
#include "data/pasted_table.h"
#include "dialogs/common/names.h"
#include "dialogs/common/time_unit_change.h"
#include "dialogs/data/frm_datedit.h"
#include "dialogs/data/grid_editing.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/dispatcher.h"
#include "engine/arithmetic.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

constexpr const char* kRefused = "Execution not possible";
constexpr int kFirstValue = 2; ///< column of the list that holds t
constexpr int kDiagramOfCt = -1, kDiagramOfTk = -2, kDiagramOfRcS = -15;
/// Times of non-isothermal data that the fitting can do with, TU.
constexpr double kLongTime = 1, kShortTime = 0.2;
constexpr double kStartOfFit = 100;

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

bool HasRows(const frmDatedit& form) {
    return zorvant::HasLines(form.ps.ExpPointCount);
}

MarkedLines Marked(const frmDatedit& form) {
    return Marked(form.Grid, form.ps.ExpPointCount);
}

/// After a change of many rows.
void Refill(frmDatedit& form) {
    form.ps.ExpDataChanged = true;
    FillGrid(form);
    FuGridHeads(form);
    SetEditMode(form, form.EditMode);
    form.cmdSave.enabled = form.ps.ExpPointCount > 0;
    EnableDataCommands(form, form.ps.ExpPointCount > 0);
}

/// The fields that take so many pasted columns from the one at the cursor on; what has no room is
/// left out.
std::vector<int> FieldsFrom(const frmDatedit& form, int first, std::size_t count) {
    const Workspace& ps = form.ps;
    if (IsEnzymeModel(ps.ModelId) && ps.RcSMode && first == kExpTime && count == 2)
        return {kExpTime, 2}; // r(P) and c(S), which stand beside each other in people's sheets
    std::vector<int> fields;
    for (int field = first; field < kExpColumns && fields.size() < count; ++field)
        fields.push_back(field);
    return fields;
}

bool HaveRoom(std::size_t rows) {
    if (rows <= static_cast<std::size_t>(kMaxExpPoints))
        return true;
    ShowMessage("The list holds " + std::to_string(kMaxExpPoints) + " lines at most; with these " +
                    std::to_string(rows) + " would be needed.",
                kRefused, Icon::Critical);
    return false;
}

void WriteNumbers(Workspace& ps, const TableNumbers& numbers, const std::vector<int>& columns,
                  int firstRow) {
    const int last = firstRow - 1 + static_cast<int>(numbers.Rows());
    if (last > ps.ExpPointCount) {
        ps.ExpData.resize(Index(ps.ExpPointCount) + 1); // rows behind the count are old ones
        ps.ExpData.resize(std::max<std::size_t>(Index(last) + 1, 2));
        ps.ExpPointCount = last;
    }
    for (std::size_t row = 0; row < numbers.Rows(); ++row) {
        const auto values = numbers.Row(row);
        ExpPoint& point = ps.ExpData[Index(firstRow) + row];
        for (std::size_t i = 0; i < std::min(values.size(), columns.size()); ++i)
            if (columns[i] >= 0)
                SetExpValue(point, columns[i], values[i]);
    }
}

/// The rows that a diagram can show.
struct DiagramRows {
    int kind;
    int active; ///< rows of the kind less the deactivated ones
    const char* refusal;
};

void Draw(frmDatedit& form, const DiagramRows& rows) {
    Workspace& ps = form.ps;
    if (ps.ExpPointCount == 0) {
        ps.DiagramKind = 0;
        ShowMessage("No points available!", kRefused, Icon::Critical);
        return;
    }
    if (!(rows.active > 0)) {
        ShowMessage(std::string(rows.refusal) + kCrLf + "Cancel this deactivation." + kCrLf,
                    kRefused, Icon::Critical);
        return;
    }
    UnloadForm(ps.desktop, form.diagram);
    ps.DiagramKind = rows.kind;
    FuDatenBereiche(ps, ps.DiagramKind);
    GrafZentrale(ps, form.diagram);
}

/// The table is that of its file now.
void NoteSaved(frmDatedit& form) {
    form.ps.ExpDataChanged = false;
    form.textsChanged = false;
    form.saved = form.known;
}

/// What follows a load that went through.
void ShowLoaded(frmDatedit& form) {
    Workspace& ps = form.ps;
    NoteSaved(form);
    TellUnitOfData(ps);
    form.optZeit.selected = TimeUnitIndex(ps.TimeUnitText);
    form.txtComment.text = ps.ExpComment;
    form.lambda_infin.text = GeneralText(ps.LambdaInf);
    form.CurrentRow = 1;
    form.Grid.row = 0;
    form.Grid.selection = {};
    FuGridHeads(form);
    FillGrid(form);
    SetEditMode(form, true);
    SetHeading(form, "Editing öf Experimental Data  ");
    form.cmdSave.enabled = ps.ExpPointCount > 0;
    EnableDataCommands(form, ps.ExpPointCount > 0);
}

/// The list as a failed load left it.
void ShowNotLoaded(frmDatedit& form) {
    FillGrid(form);
    SetEditMode(form, form.ps.ExpPointCount > 0);
    SetHeading(form, "Input of Experimental Points  ");
    form.cmdSave.enabled = false;
    EnableControl(form.ps.desktop, name::kMainWindow, name::kToolEditData, false);
}

} // namespace

// ---------------------------------------------------------------- lines and cells

void cmdAus_Click(frmDatedit& form) {
    Workspace& ps = form.ps;
    if (!HasRows(form))
        return;
    const int row = std::clamp(form.CurrentRow, 1, ps.ExpPointCount);
    MakeChange(form, "switching of line " + std::to_string(row), ExpTableState::Extent::Rows, [&] {
        std::int16_t& exclude = ps.ExpData[Index(row)].exclude;
        exclude = static_cast<std::int16_t>(exclude == 0 ? -1 : 0);
    });
    ps.ExpDataChanged = true;
    FillGridRow(form, row);
}

void cmdErase_Click(frmDatedit& form) {
    Workspace& ps = form.ps;
    if (!HasRows(form))
        return;
    const MarkedLines lines = Marked(form);
    if (lines.last == 0) {
        ShowMessage("No marked item!", kRefused, Icon::Critical);
        return;
    }
    if (Ask(lines.Text() + " really remove?", "WARNING", Icon::Question, Buttons::YesNo) !=
        Answer::Yes)
        return;
    MakeChange(form, "removing", ExpTableState::Extent::Rows, [&] {
        const auto start = ps.ExpData.begin();
        ps.ExpData.erase(start + lines.first, start + lines.last + 1);
        ps.ExpPointCount -= lines.last - lines.first + 1;
        ps.ExpData.resize(std::max<std::size_t>(Index(ps.ExpPointCount) + 1, 2));
    });
    form.Grid.selection = {};
    form.CurrentRow = std::max(std::min(lines.first, ps.ExpPointCount), 1);
    form.Grid.row = form.CurrentRow - 1;
    Refill(form);
}

void FuCellsClear(frmDatedit& form) {
    Workspace& ps = form.ps;
    if (!HasRows(form))
        return;
    const MarkedLines lines = Marked(form);
    const GridRange marked = form.Grid.selection;
    if (lines.last == 0 || marked.lastColumn < kFirstValue) {
        ShowMessage("No marked item!", kRefused, Icon::Critical);
        return;
    }
    MakeChange(form, "setting cells to 0", ExpTableState::Extent::Rows, [&] {
        for (int row = lines.first; row <= lines.last; ++row)
            for (int column = std::max(marked.firstColumn, kFirstValue);
                 column <= marked.lastColumn; ++column)
                SetExpValue(ps.ExpData[Index(row)], column - kFirstValue, 0);
    });
    Refill(form);
}

void SortRows(frmDatedit& form, int column) {
    Workspace& ps = form.ps;
    if (!HasRows(form))
        return;
    MakeChange(form, "sorting", ExpTableState::Extent::Rows, [&] {
        std::stable_sort(ps.ExpData.begin() + 1, ps.ExpData.begin() + 1 + ps.ExpPointCount,
                         [column](const ExpPoint& a, const ExpPoint& b) {
                             return ExpValue(a, column) < ExpValue(b, column);
                         });
    });
    Refill(form);
}

// ---------------------------------------------------------------- clipboard

void cmdClipboard_Click(frmDatedit& form) {
    const auto [first, last] = Marked(form);
    const GridRange& marked = form.Grid.selection;
    if (last == 0 || marked.lastColumn < kFirstValue) {
        host().beep();
        return;
    }
    // All digits, not only those that the list shows: what is pasted back is the same.
    TableNumbers numbers;
    for (int row = first; row <= last; ++row) {
        for (int column = std::max(marked.firstColumn, kFirstValue); column <= marked.lastColumn;
             ++column)
            numbers.values.push_back(ExpValue(form.ps.ExpData[Index(row)], column - kFirstValue));
        numbers.rowStart.push_back(static_cast<std::uint32_t>(numbers.values.size()));
    }
    host().setClipboardText(WriteTable(numbers));
}

void cmdClipEinfuegen_Click(frmDatedit& form) {
    const std::optional<std::string> text = host().clipboardText();
    if (!text || text->empty())
        return;
    const std::optional<TableNumbers> numbers = ReadPastedTable(*text);
    if (!numbers)
        return;
    const PastePlace place = PlaceOfPaste(form.Grid, form.ps.ExpPointCount, kFirstValue);
    const std::vector<int> fields =
        FieldsFrom(form, place.column - kFirstValue, numbers->Columns());
    if (PutNumbers(form, *numbers, fields, place.line, "pasting"))
        TellSurplusColumns(*numbers, fields.size());
}

bool PutNumbers(frmDatedit& form, const TableNumbers& numbers, const std::vector<int>& columns,
                int firstRow, const std::string& name) {
    if (!HaveRoom(Index(firstRow) - 1 + numbers.Rows()))
        return false;
    MakeChange(form, name, ExpTableState::Extent::Rows,
               [&] { WriteNumbers(form.ps, numbers, columns, firstRow); });
    form.EditMode = true;
    form.CurrentRow = firstRow;
    form.Grid.row = firstRow - 1;
    Refill(form);
    return true;
}

bool ReplaceByNumbers(frmDatedit& form, const TableNumbers& numbers,
                      const std::vector<int>& columns, const std::string& name,
                      const std::string& timeUnit) {
    if (!HaveRoom(numbers.Rows()))
        return false;
    Workspace& ps = form.ps;
    MakeChange(form, name, ExpTableState::Extent::File, [&] {
        FuClearExpData(ps);
        ps.ExpData.assign(2, {});
        ps.DataFileTitle.clear();
        if (!timeUnit.empty())
            TakeUnitOfRows(ps, timeUnit);
        WriteNumbers(ps, numbers, columns, 1);
    });
    form.saved = {};
    TellUnitOfData(ps);
    form.optZeit.selected = TimeUnitIndex(ps.TimeUnitText);
    form.EditMode = true;
    form.CurrentRow = 1;
    form.Grid.row = 0;
    Refill(form);
    SetHeading(form, "Editing öf Experimental Data  ");
    return true;
}

// ---------------------------------------------------------------- diagrams

void cmdDraw_ct_Click(frmDatedit& form) {
    CheckExpData(form.ps);
    Draw(form, {kDiagramOfCt, form.ps.ExpPointCount - form.ps.nExcluded,
                "all c-t points are deactivated!"});
}

void cmdDraw_rcS_Click(frmDatedit& form) {
    CheckExpData(form.ps);
    Draw(form, {kDiagramOfRcS, form.ps.nRcSPoints - form.ps.nExcluded,
                "all r(P)-c(S) points are deactivated!"});
}

void cmdDraw_Tk_Click(frmDatedit& form) {
    CheckExpData(form.ps);
    Draw(form,
         {kDiagramOfTk, form.ps.nkTPoints - form.ps.nExcluded, "all k-T points are deactivated!"});
}

// ---------------------------------------------------------------- files

void cmdLoadFile_Click(frmDatedit& form) {
    bool ok = false, cancelled = false;
    MakeChange(form, "loading", ExpTableState::Extent::File,
               [&] { LoadExpDialog(form.ps, false, ok, cancelled); });
    if (cancelled)
        return;
    if (ok && form.ps.ExpPointCount > 0)
        ShowLoaded(form);
    else
        ShowNotLoaded(form);
}

void LoadIntoEditor(frmDatedit& form, const std::string& path) {
    Workspace& ps = form.ps;
    bool ok = false;
    MakeChange(form, "loading", ExpTableState::Extent::File, [&] {
        LoadExpFile(ps, path, false, ok); // a failure leaves the table as it is
        if (!ok)
            return;
        ps.DataFilePath = path;
        ps.DataFileTitle = FileName(path);
        ps.DataDir = DirectoryOf(path);
        ps.DataIsSession = false;
        CheckExpData(ps);
    });
    if (ok)
        ShowLoaded(form);
}

void ReplaceTable(frmDatedit& form, const std::string& name, ExpTableState::Extent extent,
                  const std::string& timeUnit, const Handler& replace) {
    MakeChange(form, name, extent, replace, timeUnit);
    if (form.ps.ExpDataChanged) // nothing could be loaded
        return;
    NoteSaved(form);
    if (form.loaded)
        ShowLoaded(form);
}

void cmdAddFile_Click(frmDatedit& form) {
    Workspace& ps = form.ps;
    bool ok = false, cancelled = false;
    MakeChange(form, "appending", ExpTableState::Extent::File,
               [&] { LoadExpDialog(ps, true, ok, cancelled); });
    if (!ok)
        return;
    TellUnitOfData(ps);
    form.optZeit.selected = TimeUnitIndex(ps.TimeUnitText);
    form.lambda_infin.text = GeneralText(ps.LambdaInf);
    SetHeading(form, "Experimental Data, Edit a Data Set  ");
    FuGridHeads(form);
    FillGrid(form);
    SetEditMode(form, true);
    form.cmdSave.enabled = ps.ExpPointCount > 0;
    EnableDataCommands(form, ps.ExpPointCount > 0);
}

void cmdSave_Click(frmDatedit& form) {
    if (form.ps.ExpPointCount == 0) {
        host().beep();
        return;
    }
    std::string file;
    bool cancelled = false;
    SaveExpDialog(form.ps, file, cancelled);
    if (cancelled)
        return;
    NoteSaved(form);
    SetHeading(form, " Editing Experimental Data ");
}

bool cmdApply_Click(frmDatedit& form) {
    Workspace& ps = form.ps;
    CheckExpData(ps);
    const bool awkward = ps.tMaxData > kLongTime || ps.tMaxData < kShortTime;
    if (ps.nTemperatures > 1 && ps.HasCtTData && awkward &&
        Ask(JoinLines({"The actual values of the reaction times t can cause ",
                       "numerical problems in the fitting procedure.",
                       "Reactions of 1st-order are very sensititiv!",
                       "The t-values have to be inside the following range:",
                       "for 1st-order reactions: (1>t>1E-4)", "für 2nd-order reaction: (t>1E-4)",
                       "", "Try to experiment with different time units and ",
                       "different (small!) starting parameters (0|1|10|100).", "",
                       "Now change time unit?"}),
            "Warning for non-isothermal fitting", Icon::Warning, Buttons::YesNo) == Answer::Yes)
        return false;
    if (ps.HasCtTData)
        ps.ArrA = ps.ArrEA = kStartOfFit;
    FuInitialValuesFromData(ps);
    if (ps.ExpPointCount > 0) {
        EnableControl(ps.desktop, name::kMainWindow, name::kToolEditData, true);
        form.Lbl6.visible = true;
    }
    return true;
}

void OK_Click(frmDatedit& form) {
    if (cmdApply_Click(form))
        UnloadForm(form.ps.desktop, form);
}

} // namespace zorvant
