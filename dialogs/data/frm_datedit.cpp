// The record of the data editor and what it shows.
#include "dialogs/data/frm_datedit.h"

#include "dialogs/common/names.h"
#include "dialogs/common/numeric_field.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"
#include "platform/host.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

constexpr int kHelpDataEditor = 10100;
/// Widths in characters; all columns have room beside each other, and the user can widen them.
constexpr int kNumberWidth = 4, kMarkWidth = 3, kTimeWidth = 10, kConcWidth = 11, kValueWidth = 9;

using Heads = std::array<std::string, 6>;

struct ModelHeads {
    Heads heads;  ///< t, cA..cQ
    Heads labels; ///< over the boxes
};

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

ListRules RulesOfData() {
    std::vector<ListColumn> columns{
        {"No.", kNumberWidth}, {"aus", kMarkWidth}, {"", kTimeWidth}}; // heads follow the model
    columns.resize(columns.size() + kSpecies, {"", kConcWidth});
    for (const char* head : {"lambda", "T/K", "k"})
        columns.push_back({head, kValueWidth});
    return {.columns = columns,
            .storedColumns = kExpColumns + 3, // the mark and two reserved ones
            .mostRows = kMaxExpPoints,
            .menu = name::kMenuOfData,
            .removeQuestion = " really remove?",
            .delRemovesLines = true,
            .topAfterChange = false};
}

bool BoxEnabled(const Workspace& ps, int box) {
    if (!IsEnzymeModel(ps.ModelId))
        return true;
    return ps.RcSMode ? box == kExpTime || box == 2 : box < kExpLambda;
}

void Form_Load(frmDatedit& form) {
    Workspace& ps = form.ps;
    FuGridHeads(form);
    ps.FitMode = kNoFit;
    ShowTexts(form);
    form.Lbl6.visible = false;
    form.CurrentRow = 1;
    form.NoteDue = true;
    form.NoteForeignChanges(StateOf(form, ListState::Extent::Rows));
    if (!ps.ExpDataChanged) {
        form.saved = form.known;
        form.textsChanged = false;
    }
    ShowHistory(form);
    FillGrid(form);
    SetEditMode(form, ps.ExpPointCount > 0);
    SetHeading(form, form.EditMode ? kHeadingEditing : kHeadingInput);
    form.setFocus = &FirstEnabledBox(form);
}

/// What stands typed may be meant.
void Form_QueryUnload(frmDatedit& form, bool& cancel) {
    if (!IsLinePending(form))
        return;
    const Answer answer = Ask("Transfer the input line to the list before closing?", "WARNING",
                              Icon::Question, Buttons::YesNoCancel);
    cancel = answer == Answer::Cancel;
    if (answer == Answer::Yes)
        OKinput_Click(form);
}

void Form_Unload(frmDatedit& form) {
    EnableDataCommands(form);
    EnableControl(form.ps.desktop, name::kMainWindow, name::kToolSaveProject,
                  form.ps.ExpPointCount > 0);
}

// ---------------------------------------------------------------- wiring

void WireEvents(frmDatedit& form) {
    form.onLoad = [&form] { Form_Load(form); };
    form.onQueryUnload = [&form](bool& cancel) { Form_QueryUnload(form, cancel); };
    form.onUnload = [&form] { Form_Unload(form); };
    form.onActivate = [&form] { form.TakeForeignChanges(); };
    form.onModelChanged = [&form] {
        form.TakeForeignChanges();
        FuGridHeads(form);
    };
    form.onTimeUnitChanged = [&form] {
        form.TakeForeignChanges();
        form.optZeit.selected = TimeUnitIndex(form.ps.TimeUnitText);
        FuGridHeads(form);
    };
}

void WireTexts(frmDatedit& form) {
    form.txtComment.onChange = [&form] {
        form.ps.ExpComment = form.txtComment.text;
        form.ps.ExpDataChanged = form.textsChanged = true;
    };
    MakeNumeric(form.lambda_infin, nullptr, [&form](double lambda) {
        form.ps.LambdaInf = lambda;
        form.ps.ExpDataChanged = form.textsChanged = true;
    });
    form.optZeit.onClick = [&form](int unit) { optZeit_Click(form, unit); };
}

void WireRows(frmDatedit& form) {
    form.optInputMode.onClick = [&form](int mode) {
        optInputMode_Click(form, mode);
        if (form.EditMode)
            SetHeading(form, " Editing Experimental Data ");
    };
    form.Grid.onDoubleClick = [&form] {
        if (form.ps.ExpPointCount > 0)
            SetEditMode(form, true);
    };
    form.TSort.onClick = [&form] { SortRows(form, kExpTime); };
    form.TemperaturSort.onClick = [&form] { SortRows(form, kExpTemperature); };
}

void WireDiagramsAndFiles(frmDatedit& form) {
    form.cmdDraw_ct.onClick = [&form] { cmdDraw_ct_Click(form); };
    form.cmdDraw_rcS.onClick = [&form] { cmdDraw_rcS_Click(form); };
    form.cmdDraw_Tk.onClick = [&form] { cmdDraw_Tk_Click(form); };
    form.cmdLoadFile.onClick = [&form] { cmdLoadFile_Click(form); };
    form.cmdAddFile.onClick = [&form] { cmdAddFile_Click(form); };
    form.cmdImport.onClick = [&form] {
        if (Form* const dialog = FindForm(form.ps.desktop, name::kImportText))
            ShowForm(form.ps.desktop, *dialog);
    };
    form.cmdSave.onClick = [&form] { cmdSave_Click(form); };
    form.cmdApply.onClick = [&form] { cmdApply_Click(form); };
    form.OK.onClick = [&form] { OK_Click(form); };
}

void SetTexts(frmDatedit& form) {
    form.lblY(7).text = "temperature/K        rate constant k";
    form.lblY(6).text = "lambda (t)";
    form.OKinput.text = "transfer data to list <+>";
    form.cmdErase.text = "Remove marked lines";
    form.cmdClipEinfuegen.text = "Paste clipboard content";
    form.Lbl6.text = JoinLines(
        {"The data can be evaluated now:", "Main menue \"Evaluation of Exper./Fitting\""});
    form.Lbl6.visible = false;
    form.cmdClipEinfuegen.toolTip = " corresponds to <Ctrl><V> in the list ";
    form.cmdErase.toolTip = " corresponds to <Del> on line numbers ";
    form.cmdEraseSelected.toolTip = " corresponds to <Del> on values ";
    form.cmdAus.toolTip = " a line that is off takes no part in diagrams and evaluations ";
    form.cmdImport.toolTip = " measured values from a text file, with a preview ";
    for (TextField* box : form.boxes)
        box->disabledTip = "not for data of the MICHAELIS-MENTEN enzyme reaction";
    form.cmdDraw_rcS.disabledTip =
        "only for r(P)-c(S) data of the MICHAELIS-MENTEN enzyme reaction";
    form.cmdDraw_ct.disabledTip = "the list holds r(P)-c(S) data";
    form.cmdDraw_Tk.disabledTip = form.cmdSave.disabledTip = "empty list";
}

} // namespace

frmDatedit::frmDatedit(Workspace& state, DiagramDocument& diagramDocument)
    : ListEditor(name::kDataEditor, " Input/Edit Experimental Data ", state, diagramDocument,
                 RulesOfData()) {
    helpTopic = kHelpDataEditor;
    for (TextField& box : y.items)
        boxes.push_back(&box);
    SetTexts(*this);
    WireList(*this);
    WireEvents(*this);
    WireTexts(*this);
    WireRows(*this);
    WireDiagramsAndFiles(*this);
    Declare();
}

// ---------------------------------------------------------------- what is shown

void FuGridHeads(frmDatedit& form) {
    const Workspace& ps = form.ps;
    const ModelHeads texts = HeadsOf(ps);
    for (std::size_t i = 0; i < texts.heads.size(); ++i) {
        std::string& head = form.Grid.heads[kFirstValue + i];
        form.Grid.revision += head != texts.heads[i] ? 1 : 0;
        head = texts.heads[i];
        form.lblY(static_cast<int>(i)).text = texts.labels[i];
    }
    for (int box = 0; box < kExpColumns; ++box)
        form.y(box).enabled = BoxEnabled(ps, box);
    const bool couples = IsEnzymeModel(ps.ModelId) && ps.RcSMode;
    form.y(0).toolTip = couples ? " reaction rate of P" : "";
    form.TSort.text = couples ? "r(P) sorting" : "Time sorting";
    form.cmdDraw_rcS.enabled = couples;
    form.cmdDraw_ct.enabled = !couples;
    if (!IsEnzymeModel(ps.ModelId))
        form.cmdDraw_Tk.enabled = ps.ExpPointCount > 0;
}

void frmDatedit::RefreshCommands() {
    FuGridHeads(*this);
    cmdSave.enabled = ps.ExpPointCount > 0;
    EnableDataCommands(*this);
}

void frmDatedit::ModeShown() {
    for (TextField* box : boxes)
        box->backColour = EditMode ? kStyleColour : kWhite;
}

void frmDatedit::InputLineTaken(int row) {
    const ExpPoint& point = ps.ExpData[static_cast<std::size_t>(row)];
    if (!(point.cA > 0 && NoteDue && point.T > 0))
        return;
    NoteDue = false;
    ShowMessage(
        JoinLines({"For non-isothermal datasets c(A) = Fu(t, T), instead of",
                   "the concentration value c(A), the ratio c(A)/c(A)(0)   ",
                   "should be given for a first-order reaction,", "e. g. the value 1 for t = 0.",
                   "This has the advantage that the individual measuring points",
                   "can be related to different c(A, 0)."}),
        "One-time Reference", Icon::Information);
}

void ShowTexts(frmDatedit& form) {
    form.txtComment.text = form.ps.ExpComment;
    form.lambda_infin.text = GeneralText(form.ps.LambdaInf);
    form.optZeit.selected = TimeUnitIndex(form.ps.TimeUnitText);
}

void SetHeading(frmDatedit& form, const std::string& heading) {
    const Workspace& ps = form.ps;
    form.caption = heading + (ps.DataFilePath.empty() ? "(unnamed)" : "(" + ps.DataFileTitle + ")");
}

void EnableDataCommands(const frmDatedit& form) {
    for (const char* command : {name::kEditData, name::kToolEditData})
        EnableControl(form.ps.desktop, name::kMainWindow, command, form.ps.ExpPointCount > 0);
}

} // namespace zorvant
