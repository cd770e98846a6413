// The editor of measured values. Its working copy is the table of the project itself: what is
// accepted goes straight into it, and every change can be taken back.
#pragma once

#include "data/exp_columns.h"
#include "data/formats/table_text.h"
#include "data/undo_history.h"
#include "dialogs/common/workspace.h"
#include "dialogs/diagram/diagram_document.h"

#include <string>
#include <vector>

namespace zorvant {

/// What a step of undo brings back.
struct ExpTableState {
    /// How far a change reaches: the rows alone, the time unit of the whole project, all that a data
    /// file holds with its name, or that without the time unit, which is the project's.
    enum class Extent { Rows, Unit, File, Data };

    Extent extent = Extent::Rows;
    TableSnapshot table;
    std::string timeUnit;
    std::string comment;
    double lambdaInf = 0;
    std::string path, title;
};

struct frmDatedit : Form {
    frmDatedit(Workspace& state, DiagramDocument& diagramDocument);

    Workspace& ps;
    DiagramDocument& diagram;

    // --- the data set as a whole
    Label lblComment{*this, "lblComment", "Comment"};
    TextField txtComment{*this, "txtComment"};
    Frame fraZeit{*this, "fraZeit", " Time unit "};
    OptionGroup optZeit{*this, "optZeit", {"s", "min", "h", "d", "a"}};
    Label lblLambdaInf{*this, "lblLambdaInf", "lambda (t = \u221E)"};
    TextField lambda_infin{*this, "lambda_infin"};

    // --- the input line
    Frame fraInput{*this, "fraInput", " Input line "};
    OptionGroup optInputMode{*this, "optInputMode", {"add line", "edit line"}};
    Label lblZeile{*this, "lblZeile", "line 1"};
    Array<Label, 8> lblY{*this, "lblY"};         ///< 7 stands over two boxes
    Array<TextField, kExpColumns> y{*this, "y"}; ///< t, cA..cQ, lambda, T, k
    Button OKinput{*this, "OKinput", "transfer data to list <+>"};

    // --- the list
    zorvant::Grid Grid{*this, "Grid"};
    Button cmdUndo{*this, "cmdUndo", "Undo"};
    Button cmdRedo{*this, "cmdRedo", "Redo"};
    Button cmdAus{*this, "cmdAus", "Line active/inactive"};
    Button cmdErase{*this, "cmdErase", "Remove marked lines"};
    Button cmdEraseSelected{*this, "cmdEraseSelected", "Marked cell(s) => 0"};
    Button cmdClipboard{*this, "cmdClipboard", "Copy"};
    Button cmdClipEinfuegen{*this, "cmdClipEinfuegen", "Paste clipboard content"};
    Button TSort{*this, "TSort", "Time sorting"};
    Button TemperaturSort{*this, "TemperaturSort", "Temperature sorting"};

    // --- diagrams, files, end
    Button cmdDraw_ct{*this, "cmdDraw_ct", "Draw c-t points"};
    Button cmdDraw_rcS{*this, "cmdDraw_rcS", "Draw &r(P)-c(S) points"};
    Button cmdDraw_Tk{*this, "cmdDraw_Tk", "Draw k-T points"};
    Button cmdLoadFile{*this, "cmdLoadFile", "NEW data *.ZI3"};
    Button cmdAddFile{*this, "cmdAddFile", "Append data *.ZI3"};
    Button cmdImport{*this, "cmdImport", "Import text/CSV ..."};
    Button cmdSave{*this, "cmdSave", "&Save as *.ZI3"};
    Button cmdApply{*this, "cmdApply", "Apply"};
    Button OK{*this, "OK", "OK, Apply and Close"};
    Label Lbl6{*this, "Lbl6"};

    bool EditMode = false; ///< the input line edits a row; false: it adds one
    int CurrentRow = 1;    ///< line in the input line, from 1
    bool NoteDue = true;   ///< the reference on non-isothermal data was not shown yet

    UndoHistory<ExpTableState> history;
    TableSnapshot known;   ///< the table as the history knows it
    std::string knownUnit; ///< and the unit of its times
    TableSnapshot saved;   ///< the table as its file holds it
    bool textsChanged = false;
    bool changing = false; ///< a change of this editor runs
    /// What the boxes were given; a box that still shows it leaves the value with all its digits.
    std::array<std::string, kExpColumns> shown;
};

/// Column heads, labels and enabled boxes for the model.
void FuGridHeads(frmDatedit& form);

// --- pieces of the commands

/// Lists the table anew and refreshes what depends on whether there are rows.
void FillGrid(frmDatedit& form);
/// Lists row 1.. of the table anew.
void FillGridRow(frmDatedit& form, int row);
/// The row of the input line into the boxes, or empty boxes when a line is added.
void ShowInputLine(frmDatedit& form);
/// Adding or editing; the first choice falls back to adding where there is no row.
void SetEditMode(frmDatedit& form, bool edit);
/// The window's title: the heading and the name of the file in brackets.
void SetHeading(frmDatedit& form, const std::string& heading);
/// Commands of the main window that need data.
void EnableDataCommands(const frmDatedit& form, bool enabled);
/// Carries a change out as one step of undo.
/// Given: timeUnit: of the times before; empty: the project's
void MakeChange(frmDatedit& form, const std::string& name, ExpTableState::Extent extent,
                const Handler& change, const std::string& timeUnit = {});

/// Puts numbers into the table as one step of undo.
/// Given:    columns: the field (ExpColumn) of each column of the numbers, -1: left out
///           firstRow: row of the table, from 1, that takes the first one; the table grows
///           name: of the step
/// Returned: false when the table can't hold them (a box told)
bool PutNumbers(frmDatedit& form, const TableNumbers& numbers, const std::vector<int>& columns,
                int firstRow, const std::string& name);
/// The same for a table that is emptied before, as one step.
/// Given: timeUnit: word of the unit that the times are in; empty: the present one. As when a file is
///        loaded nothing is converted
bool ReplaceByNumbers(frmDatedit& form, const TableNumbers& numbers,
                      const std::vector<int>& columns, const std::string& name,
                      const std::string& timeUnit);
/// Loads a data file into the editor as "NEW data" does, without the question for its name.
void LoadIntoEditor(frmDatedit& form, const std::string& path);
/// Lets a command of the main window replace the table (new data, another project) as one step that
/// can be taken back here, whether the editor is open or not; shows the result.
/// Given: timeUnit: of the times that stand in the table, which a project may have changed since
void ReplaceTable(frmDatedit& form, const std::string& name, ExpTableState::Extent extent,
                  const std::string& timeUnit, const Handler& replace);

void y_KeyPress(frmDatedit& form, int index, int& key);
void OKinput_Click(frmDatedit& form);
void optInputMode_Click(frmDatedit& form, int mode);
void optZeit_Click(frmDatedit& form, int unit);
void Grid_Edit(frmDatedit& form, int row, int column);
void FuCellsClear(frmDatedit& form);
void cmdAus_Click(frmDatedit& form);
void cmdErase_Click(frmDatedit& form);
void cmdClipboard_Click(frmDatedit& form);
void cmdClipEinfuegen_Click(frmDatedit& form);
void cmdUndo_Click(frmDatedit& form);
void cmdRedo_Click(frmDatedit& form);
/// Sorts the rows by a column, ascending; equal ones keep their order.
void SortRows(frmDatedit& form, int column);
void cmdDraw_ct_Click(frmDatedit& form);
void cmdDraw_rcS_Click(frmDatedit& form);
void cmdDraw_Tk_Click(frmDatedit& form);
void cmdLoadFile_Click(frmDatedit& form);
void cmdAddFile_Click(frmDatedit& form);
void cmdSave_Click(frmDatedit& form);
/// Returned: false when the user wants to change the time unit first.
bool cmdApply_Click(frmDatedit& form);
void OK_Click(frmDatedit& form);

} // namespace zorvant
