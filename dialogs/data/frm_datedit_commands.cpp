// The commands of the data editor: time unit, diagrams, files, end.
#include "data/exp_data.h"
#include "data/exp_file.h"
#include "dialogs/common/names.h"
#include "dialogs/common/time_unit_change.h"
#include "dialogs/data/frm_datedit.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/dispatcher.h"
#include "engine/time_units.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

namespace zorvant {
namespace {

using Extent = ListState::Extent;

constexpr const char* kRefused = "Execution not possible";
constexpr int kDiagramOfCt = -1, kDiagramOfTk = -2, kDiagramOfRcS = -15;
/// Times of non-isothermal data that the fitting can do with, TU.
constexpr double kLongTime = 1, kShortTime = 0.2;
constexpr double kStartOfFit = 100;

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

/// The list anew after its table was replaced or appended to.
void ShowTable(frmDatedit& form, const std::string& heading) {
    TellUnitOfData(form.ps);
    ShowTexts(form);
    FillGrid(form);
    form.RefreshCommands();
    SetEditMode(form, true);
    SetHeading(form, heading);
}

void ShowFromTop(frmDatedit& form) {
    form.CurrentRow = 1;
    form.Grid.row = 0;
    form.Grid.selection = {};
    ShowTable(form, form.ps.ExpPointCount > 0 ? kHeadingEditing : kHeadingInput);
}

/// Makes a data file the table as one step; a failure leaves the table as it is.
/// Given:    path: to read; file: which the table then belongs to
/// Returned: whether it went through
bool TakeFile(frmDatedit& form, const std::string& path, const std::string& file,
              const std::string& step) {
    Workspace& ps = form.ps;
    bool ok = false;
    MakeChange(form, step, Extent::File, [&] {
        LoadExpFile(ps, path, false, ok);
        if (!ok)
            return;
        ps.DataFilePath = file;
        ps.DataFileTitle = FileName(file);
        ps.DataDir = DirectoryOf(file);
        ps.DataIsSession = false;
        CheckExpData(ps);
    });
    return ok;
}

/// Non-isothermal data whose times the fitting can hardly do with.
bool HasAwkwardTimes(const Workspace& ps) {
    return ps.nTemperatures > 1 && ps.HasCtTData &&
           (ps.tMaxData > kLongTime || ps.tMaxData < kShortTime);
}

bool AskToChangeUnit() {
    return Ask(JoinLines({"The actual values of the reaction times t can cause ",
                          "numerical problems in the fitting procedure.",
                          "Reactions of 1st-order are very sensititiv!",
                          "The t-values have to be inside the following range:",
                          "for 1st-order reactions: (1>t>1E-4)", "für 2nd-order reaction: (t>1E-4)",
                          "", "Try to experiment with different time units and ",
                          "different (small!) starting parameters (0|1|10|100).", "",
                          "Now change time unit?"}),
               "Warning for non-isothermal fitting", Icon::Warning, Buttons::YesNo) == Answer::Yes;
}

} // namespace

void optZeit_Click(frmDatedit& form, int unit) {
    Workspace& ps = form.ps;
    const int old = TimeUnitIndex(ps.TimeUnitText);
    ps.TimeUnitOldIdx = old;
    ps.TimeUnitIdx = unit;
    if (unit == old && ps.TimeUnitText == kTimeUnits[static_cast<std::size_t>(unit)])
        return;
    MakeChange(form, "unit change", Extent::Unit, [&] { ChangeTimeUnit(ps, unit, old); });
    if (ps.ExpPointCount > 0)
        ps.ExpDataChanged = true;
    FuGridHeads(form);
    FillGrid(form);
    if (form.EditMode)
        ShowInputLine(form);
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
    MakeChange(form, "loading", Extent::File,
               [&] { LoadExpDialog(form.ps, false, ok, cancelled); });
    if (!ok)
        return;
    NoteSaved(form);
    ShowFromTop(form);
}

void LoadIntoEditor(frmDatedit& form, const std::string& path) {
    if (!TakeFile(form, path, path, "loading"))
        return;
    NoteSaved(form);
    ShowFromTop(form);
}

void frmDatedit::LoadPrevious(const std::string& path) {
    if (!TakeFile(*this, path, std::string(ps.DataFilePath), "previous version"))
        return;
    ps.ExpDataChanged = true; // the file holds the later one
    ShowFromTop(*this);
}

void ReplaceTable(frmDatedit& form, const std::string& name, Extent extent,
                  const std::string& timeUnit, const Handler& replace) {
    MakeChange(form, name, extent, replace, timeUnit);
    if (form.ps.ExpDataChanged) // nothing could be loaded
        return;
    NoteSaved(form);
    if (form.loaded)
        ShowFromTop(form);
}

bool ReplaceByNumbers(frmDatedit& form, const TableNumbers& numbers,
                      const std::vector<int>& columns, const std::string& name,
                      const std::string& timeUnit) {
    if (!HasRoom(form, numbers.Rows()))
        return false;
    Workspace& ps = form.ps;
    MakeChange(form, name, Extent::File, [&] {
        FuClearExpData(ps);
        ps.DataFileTitle.clear();
        ps.ExpComment.clear();
        ps.LambdaInf = ps.LambdaZero = 0;
        if (!timeUnit.empty())
            TakeUnitOfRows(ps, timeUnit);
        WriteNumbers(form, numbers, columns, 1);
    });
    form.saved = {};
    ps.ExpDataChanged = true;
    ShowFromTop(form);
    return true;
}

void cmdAddFile_Click(frmDatedit& form) {
    bool ok = false, cancelled = false;
    MakeChange(form, "appending", Extent::File,
               [&] { LoadExpDialog(form.ps, true, ok, cancelled); });
    if (ok)
        ShowTable(form, "Experimental Data, Edit a Data Set  ");
}

void cmdSave_Click(frmDatedit& form) {
    if (!HasLines(form))
        return;
    std::string file;
    bool cancelled = false;
    SaveExpDialog(form.ps, file, cancelled);
    if (cancelled)
        return;
    NoteSaved(form);
    SetHeading(form, " Editing Experimental Data ");
}

// ---------------------------------------------------------------- end

bool cmdApply_Click(frmDatedit& form) {
    Workspace& ps = form.ps;
    CheckExpData(ps);
    if (HasAwkwardTimes(ps) && AskToChangeUnit())
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
    if (IsLinePending(form))
        OKinput_Click(form); // what is typed is meant
    if (IsLinePending(form)) {
        if (Ask(JoinLines({"The input line holds no positive value and is not taken over.",
                           "Close all the same?"}),
                "WARNING", Icon::Question, Buttons::YesNo, Answer::No) != Answer::Yes)
            return;
        SetEditMode(form, form.EditMode);
    }
    if (cmdApply_Click(form))
        UnloadForm(form.ps.desktop, form);
}

} // namespace zorvant
