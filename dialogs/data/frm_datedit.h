// The editor of measured values. Its working copy is the table of the project itself: what is
// accepted goes straight into it, and every change can be taken back.
#pragma once

#include "data/exp_columns.h"
#include "dialogs/data/list_editor.h"

#include <string>
#include <vector>

namespace zorvant {

struct frmDatedit : ListEditor {
    frmDatedit(Workspace& state, DiagramDocument& diagramDocument);

    // --- the data set as a whole
    Frame fraZeit{*this, "fraZeit", " Time unit "};
    OptionGroup optZeit{*this, "optZeit", {"s", "min", "h", "d", "a"}};
    Label lblLambdaInf{*this, "lblLambdaInf", "lambda (t = \u221E)"};
    TextField lambda_infin{*this, "lambda_infin"};

    // --- the input line
    Array<Label, 8> lblY{*this, "lblY"};         ///< 7 stands over two boxes
    Array<TextField, kExpColumns> y{*this, "y"}; ///< t, cA..cQ, lambda, T, k

    // --- the list, diagrams, files, end
    Button TSort{*this, "TSort", "Time sorting"};
    Button TemperaturSort{*this, "TemperaturSort", "Temperature sorting"};
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

    bool NoteDue = true; ///< the reference on non-isothermal data was not shown yet

    int Rows() const override { return ps.ExpPointCount; }
    double Value(int row, int column) const override;
    void SetValue(int row, int column, double value) override;
    std::string CellText(int row, int column) const override;
    void Resize(int rows) override;
    void Arrange(const std::vector<int>& order) override;

    void SetChanged(bool changed) override { ps.ExpDataChanged = changed; }
    void RefreshCommands() override;
    void ModeShown() override;
    int LineShown(int row) const override { return row; }
    bool MayTakeInputLine() const override;
    void InputLineTaken(int row) override;
    std::vector<int> ColumnsForPaste(int first, std::size_t count) const override;
    bool PastedElsewhere(const std::string& text, int firstColumn) override;
    std::string FileOfList() const override { return ps.DataFilePath; }
    void LoadPrevious(const std::string& path) override;
    void Keep(ListState& state) const override;
    void BringBack(const ListState& state, const ListState& other) override;
    void RowsBroughtBack(const ListState& state) override;
    void NoteForeignChanges(const ListState& now) override;
    void TakeForeignChanges() override;
};

/// Column heads, labels and enabled boxes for the model.
void FuGridHeads(frmDatedit& form);

// --- pieces of the commands

/// Headings of the window: a table to begin, a table with rows.
inline constexpr const char* kHeadingInput = "Input of Experimental Points  ";
inline constexpr const char* kHeadingEditing = "Editing öf Experimental Data  ";

/// Comment, lambda after infinite time and time unit as the project has them.
void ShowTexts(frmDatedit& form);
/// The window's title: the heading and the name of the file in brackets.
void SetHeading(frmDatedit& form, const std::string& heading);
/// Commands of the main window that need data.
void EnableDataCommands(const frmDatedit& form);

/// Puts numbers into a table that is emptied before, as one step of undo.
/// Given:    columns: the field (ExpColumn) of each column of the numbers, -1: left out
///           name: of the step
///           timeUnit: word of the unit that the times are in; empty: the present one. As when a
///           file is loaded nothing is converted
/// Returned: false when the table can't hold them (a box told)
bool ReplaceByNumbers(frmDatedit& form, const TableNumbers& numbers,
                      const std::vector<int>& columns, const std::string& name,
                      const std::string& timeUnit);
/// Loads a data file into the editor as "NEW data" does, without the question for its name.
void LoadIntoEditor(frmDatedit& form, const std::string& path);
/// Lets a command of the main window replace the table (new data, another project) as one step that
/// can be taken back here, whether the editor is open or not; shows the result.
/// Given: timeUnit: of the times that stand in the table, which a project may have changed since
void ReplaceTable(frmDatedit& form, const std::string& name, ListState::Extent extent,
                  const std::string& timeUnit, const Handler& replace);

void optZeit_Click(frmDatedit& form, int unit);
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
