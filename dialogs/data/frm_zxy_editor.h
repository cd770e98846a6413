// The editor of a free list of x-y pairs, apart from the measured values: typed, pasted or loaded,
// transformed, sorted, and handed to the diagram as a curve or as points.
#pragma once

#include "data/formats/xy.h"
#include "data/recovery.h"
#include "data/undo_history.h"
#include "dialogs/common/workspace.h"
#include "dialogs/diagram/diagram_document.h"

#include <string>
#include <vector>

namespace zorvant {

/// What a step of undo brings back.
struct XYListState {
    TableSnapshot table; ///< x, y, inactive
    std::string comment, file;
};

struct frmZXYEditor : Form {
    frmZXYEditor(Workspace& state, DiagramDocument& diagramDocument);

    Workspace& ps;
    DiagramDocument& diagram;

    Label lblComment{*this, "lblComment", "Comment"};
    TextField txtComment{*this, "txtComment"};

    // --- the input line
    Frame fraInput{*this, "fraInput", " Input line "};
    OptionGroup optInputMode{*this, "optInputMode", {"add line", "edit line"}};
    Label lblZeile{*this, "lblZeile", "line 1"};
    Array<Label, 2> lblY{*this, "lblY"};
    Array<TextField, 2> y{*this, "y"}; ///< x and y
    Button OKinput{*this, "OKinput", "Transfer input data to list <+>"};

    // --- the list
    zorvant::Grid Grid{*this, "Grid"};
    Button cmdUndo{*this, "cmdUndo", "Undo"};
    Button cmdRedo{*this, "cmdRedo", "Redo"};
    Button cmdAus{*this, "cmdAus", "Line active/inactive"};
    Button cmdErase{*this, "cmdErase", "Remove line(s)"};
    OptionGroup optDeleteXY{*this, "optDeleteXY", {"Marked line(s)", "all"}};
    Button cmdEraseSelected{*this, "cmdEraseSelected", "Marked cell(s) => 0"};
    Button cmdClipboard{*this, "cmdClipboard", "Copy"};
    Button cmdClipEinfuegen{*this, "cmdClipEinfuegen", "Insert clipboard content"};
    Button XSort{*this, "XSort", "x-Sorting"};
    Button YSort{*this, "YSort", "y-Sorting"};
    Button cmdChangeXY{*this, "cmdChangeXY", "x <==> y"};

    // --- transforms
    Button cmdManip{*this, "cmdManip", "Modify values"};
    Frame fraManipulation{*this, "fraManipulation", " Modify values "};
    OptionGroup optManip{
        *this,
        "optManip",
        {"y = exp(y)", "y = ln(y)", "y = y * W", "y = y + W", "y = 1 / y", "x = 1 - x"}};
    Label lblW{*this, "lblW", "W = "};
    TextField txtW{*this, "txtW"};
    Button cmdExecManip{*this, "cmdExecManip", "Execute"};
    Button cmdCloseManip{*this, "cmdCloseManip", "Close \"Modify values\""};

    // --- diagram, files, end
    Frame fraDraw{*this, "fraDraw", " Diagram "};
    OptionGroup optIsPoints{*this, "optIsPoints", {"as curve", "as points"}};
    Button cmdDrawManu{*this, "cmdDrawManu", "Draw"};
    Button cmdLoad{*this, "cmdLoad", "Load data *.XY | *.LRG"};
    Button cmdSave{*this, "cmdSave", "Save as *.XY"};
    Label lblSep{*this, "lblSep", "Delimiter for the *.XY text file"};
    ComboBox cmbSep{*this, "cmbSep"};
    Button cmdPrint{*this, "cmdPrint", "Print list"};
    Button cmdEsc{*this, "cmdEsc", "Close <Esc>"};

    std::vector<XYPoint> XYData = std::vector<XYPoint>(1); ///< lines from index 1; 0: count in x
    int EditLine = 1;
    bool EditMode = false;
    bool XYChanged = false;
    bool commentChanged = false; ///< which undo does not take back
    bool AsCurve = false;

    UndoHistory<XYListState> history;
    TableSnapshot known; ///< the list as the history knows it
    TableSnapshot saved; ///< the list as its file holds it
    /// What the boxes were given; a box that still shows it leaves the value with all its digits.
    std::array<std::string, 2> shown;
};

/// Reads a list into the editor as "Load data" does, without the question for its name.
void LoadIntoEditor(frmZXYEditor& form, const std::string& path);
/// What keeps a changed list for the case of a crash.
RecoveryKind ListRecovery(frmZXYEditor& form);
/// The text that "Print list" prints.
/// Given: fileDate: of the file, or today's date and time without one; seconds are cut
std::string PrintedList(const frmZXYEditor& form, const std::string& fileDate);

void y_KeyPress(frmZXYEditor& form, int index, int& key);
void OKinput_Click(frmZXYEditor& form);
void optInputMode_Click(frmZXYEditor& form, int mode);
void Grid_Edit(frmZXYEditor& form, int row, int column);
void cmdAus_Click(frmZXYEditor& form);
void cmdErase_Click(frmZXYEditor& form);
void cmdEraseSelected_Click(frmZXYEditor& form);
void cmdClipboard_Click(frmZXYEditor& form);
void cmdClipEinfuegen_Click(frmZXYEditor& form);
void cmdUndo_Click(frmZXYEditor& form);
void cmdRedo_Click(frmZXYEditor& form);
void XSort_Click(frmZXYEditor& form);
void YSort_Click(frmZXYEditor& form);
void cmdChangeXY_Click(frmZXYEditor& form);
void optManip_Click(frmZXYEditor& form, int index);
void cmdExecManip_Click(frmZXYEditor& form);
void cmdDrawManu_Click(frmZXYEditor& form);
void cmdLoad_Click(frmZXYEditor& form);
void cmdSave_Click(frmZXYEditor& form);
void cmdPrint_Click(frmZXYEditor& form);
void cmdEsc_Click(frmZXYEditor& form);

// --- pieces of the commands
void MakeChange(frmZXYEditor& form, const std::string& name, const Handler& change);
void FillGrid(frmZXYEditor& form);
/// Lists the changed list anew, from its first row on; refreshes the buttons.
void Refill(frmZXYEditor& form);
void EnableListCommands(frmZXYEditor& form);
void SetEditMode(frmZXYEditor& form, bool edit);
void ShowInputLine(frmZXYEditor& form);

} // namespace zorvant
