// The record of the X-Y editor and its table.
#include "dialogs/data/frm_zxy_editor.h"

#include "data/field_separator.h"
#include "dialogs/common/names.h"
#include "dialogs/common/numeric_field.h"
#include "engine/arithmetic.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <limits>

namespace zorvant {
namespace {

constexpr int kHelpXYEditor = 10120;
/// Columns of values, and widths in characters.
constexpr int kX = 0, kY = 1;
constexpr int kNumberWidth = 6, kMarkWidth = 4, kValueWidth = 14;

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

/// A stored column: x, y, mark.
float XYPoint::*Member(int column) {
    return column == kX ? &XYPoint::x : column == kY ? &XYPoint::y : &XYPoint::inactive;
}

ListRules RulesOfPairs() {
    return {.columns = {{"No.", kNumberWidth},
                        {"off", kMarkWidth},
                        {"X", kValueWidth},
                        {"Y", kValueWidth}},
            .storedColumns = 3,
            .mostRows = std::numeric_limits<int>::max(),
            .menu = name::kMenuOfList,
            .removeQuestion = " Really delete?",
            .delRemovesLines = false,
            .topAfterChange = true};
}

/// Keeps the count where the diagram looks for it.
void NoteCount(frmZXYEditor& form) {
    form.ps.XYCount = static_cast<int>(form.XYData.size()) - 1;
    form.XYData[0].x = static_cast<float>(form.ps.XYCount);
}

void Form_Load(frmZXYEditor& form) {
    SetPoints(form, {});
    ForgetHistory(form);
    form.CurrentRow = 1;
    form.XYChanged = false;
    FillGrid(form);
    SetEditMode(form, false);
    form.RefreshCommands();
    ShowHistory(form);
    optManip_Click(form, form.optManip.selected);
    form.setFocus = &form.y(0);
}

void Form_Activate(frmZXYEditor& form) {
    form.cmbSep.index = SeparatorEntry(form.ps);
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

// ---------------------------------------------------------------- wiring

void WireEvents(frmZXYEditor& form) {
    form.onLoad = [&form] { Form_Load(form); };
    form.onActivate = [&form] { Form_Activate(form); };
    form.onQueryUnload = [&form](bool& cancel) { Form_QueryUnload(form, cancel); };
    form.txtComment.onChange = [&form] { form.XYChanged = form.textsChanged = true; };
    form.cmdEsc.onClick = [&form] { UnloadForm(form.ps.desktop, form); };
}

void WireRows(frmZXYEditor& form) {
    form.cmdErase.onClick = [&form] { cmdEraseXY_Click(form); };
    form.XSort.onClick = [&form] { SortRows(form, kX); };
    form.YSort.onClick = [&form] { SortRows(form, kY); };
    form.cmdChangeXY.onClick = [&form] { cmdChangeXY_Click(form); };
}

void WireTransforms(frmZXYEditor& form) {
    MakeNumeric(form.txtW, nullptr);
    form.cmdManip.onClick = [&form] { form.fraManipulation.visible = true; };
    form.cmdCloseManip.onClick = [&form] { form.fraManipulation.visible = false; };
    form.optManip.onClick = [&form](int index) { optManip_Click(form, index); };
    form.cmdExecManip.onClick = [&form] { cmdExecManip_Click(form); };
}

void WireDiagramAndFiles(frmZXYEditor& form) {
    form.cmdDrawManu.onClick = [&form] { cmdDrawManu_Click(form); };
    form.cmdLoad.onClick = [&form] { cmdLoad_Click(form); };
    form.cmdSave.onClick = [&form] { cmdSave_Click(form); };
    form.cmdPrint.onClick = [&form] { cmdPrint_Click(form); };
    form.cmbSep.onClick = [&form] {
        if (form.cmbSep.index >= 0)
            form.ps.CsvSep = kFieldSeparators.at(Index(form.cmbSep.index)).text;
    };
}

void SetTexts(frmZXYEditor& form) {
    form.lblY(kX).text = "X";
    form.lblY(kY).text = "Y";
    form.OKinput.text = "Transfer input data to list <+>";
    form.cmdErase.text = "Remove line(s)";
    form.cmdClipEinfuegen.text = "Insert clipboard content";
    form.cmbSep.items = {"Semicolon", "Comma", "Tab"};
    form.cmdAus.toolTip =
        "... excludes this line from drawing, modifying values, fitting, saving and printing ";
    form.cmdClipEinfuegen.toolTip =
        " corresponds to <Ctrl><V>; suitable for import from MS-Excel or Origin ";
    form.cmdEraseSelected.toolTip = " corresponds to <Del> in the list ";
    form.XSort.toolTip = "x-Sorting, ascending";
    form.YSort.toolTip = "y-Sorting, ascending";
    form.cmdChangeXY.toolTip = " interchanges x- and y-column ";
}

void SetStart(frmZXYEditor& form) {
    for (OptionGroup* group :
         {&form.optInputMode, &form.optDeleteXY, &form.optManip, &form.optIsPoints})
        group->selected = 0;
    form.fraManipulation.visible = false;
    form.cmdEsc.isCancel = true;
}

} // namespace

frmZXYEditor::frmZXYEditor(Workspace& state, DiagramDocument& diagramDocument)
    : ListEditor(name::kXYEditor, "Manual data input", state, diagramDocument, RulesOfPairs()) {
    helpTopic = kHelpXYEditor;
    for (TextField& box : y.items)
        boxes.push_back(&box);
    SetTexts(*this);
    SetStart(*this);
    WireList(*this);
    WireEvents(*this);
    WireRows(*this);
    WireTransforms(*this);
    WireDiagramAndFiles(*this);
    Declare();
}

void frmZXYEditor::RefreshCommands() {
    const bool rows = ps.XYCount > 0;
    for (Control* control :
         std::initializer_list<Control*>{&cmdSave, &cmdErase, &cmdManip, &cmdChangeXY, &optDeleteXY,
                                         &cmdPrint, &cmdAus, &XSort, &YSort, &optIsPoints}) {
        control->enabled = rows;
        control->disabledTip = "empty list";
    }
    for (const char* entry : {name::kEraseInList, name::kCopyFromList})
        EnableControl(ps.desktop, name::kMainWindow, entry, rows);
}

// ---------------------------------------------------------------- the table

double frmZXYEditor::Value(int row, int column) const {
    return static_cast<double>(XYData[Index(row)].*Member(column));
}

void frmZXYEditor::SetValue(int row, int column, double value) {
    XYData[Index(row)].*Member(column) = NearestSingle(value);
}

std::string frmZXYEditor::CellText(int row, int column) const {
    return Trim(PlainText(Value(row, column)));
}

void frmZXYEditor::Resize(int rows) {
    XYData.resize(Index(rows) + 1);
    NoteCount(*this);
}

void frmZXYEditor::Arrange(const std::vector<int>& order) {
    std::vector<XYPoint> rows(1);
    for (const int row : order)
        rows.push_back(XYData[Index(row)]);
    XYData = std::move(rows);
    NoteCount(*this);
}

void SetPoints(frmZXYEditor& form, const std::vector<XYPoint>& points) {
    form.XYData.assign(1, {});
    form.XYData.insert(form.XYData.end(), points.begin(), points.end());
    NoteCount(form);
}

/// One column goes where the cursor stands, more than one into both.
std::vector<int> frmZXYEditor::ColumnsForPaste(int first, std::size_t count) const {
    return count == 1 ? std::vector{first} : std::vector{kX, kY};
}

void frmZXYEditor::Keep(ListState& state) const {
    state.comment = txtComment.text;
    state.path = ps.XYFile;
}

void frmZXYEditor::BringBack(const ListState& state, const ListState& other) {
    if (state.path == other.path)
        return;
    ps.XYFile = state.path; // another file was loaded
    txtComment.text = state.comment;
}

} // namespace zorvant
