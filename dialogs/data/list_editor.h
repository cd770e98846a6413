// What the editors of lists have in common: an input line above a list of rows, and the ways to
// change them: typing, marking, removing, sorting, the clipboard; each change can be taken back.
//
// An editor says what its table is; everything that follows from there being rows and columns of
// numbers is done here.
#pragma once

#include "data/formats/table_text.h"
#include "data/undo_history.h"
#include "dialogs/common/workspace.h"
#include "dialogs/diagram/diagram_document.h"

#include <string>
#include <vector>

namespace zorvant {

/// Columns of the list: number, mark, then the values.
inline constexpr int kMarkColumn = 1, kFirstValue = 2;

/// What a step of undo brings back.
struct ListState {
    /// How far a change reaches: the rows alone, the time unit of the whole project, all that a
    /// data file holds with its name, or that without the time unit, which is the project's.
    enum class Extent { Rows, Unit, File, Data };

    Extent extent = Extent::Rows;
    TableSnapshot table; ///< all stored columns
    std::string timeUnit;
    std::string comment;
    double lambdaInf = 0;
    std::string path, title; ///< of the file
};

/// A column of the list.
struct ListColumn {
    std::string head;
    int width; ///< characters
};

/// How an editor treats its list.
struct ListRules {
    std::vector<ListColumn> columns; ///< number and mark first
    int storedColumns;               ///< values, mark, and what is kept without being shown
    int mostRows;
    const char* menu;           ///< of the main window; its entries press the buttons here
    const char* removeQuestion; ///< stands behind the lines
    bool delRemovesLines;       ///< Del on line numbers means the lines, not their cells
    bool topAfterChange;        ///< a change of many rows leads back to the first one
};

struct ListEditor : Form {
    ListEditor(const char* formName, const char* formCaption, Workspace& state,
               DiagramDocument& diagramDocument, ListRules listRules);

    Workspace& ps;
    DiagramDocument& diagram;
    const ListRules rules;

    Label lblComment{*this, "lblComment", "Comment"};
    TextField txtComment{*this, "txtComment"};

    // --- the input line
    Frame fraInput{*this, "fraInput", " Input line "};
    OptionGroup optInputMode{*this, "optInputMode", {"add line", "edit line"}};
    Label lblZeile{*this, "lblZeile", "line 1"};
    Button OKinput{*this, "OKinput"};
    std::vector<TextField*> boxes; ///< one for each column of values

    // --- the list
    zorvant::Grid Grid{*this, "Grid"};
    Button cmdUndo{*this, "cmdUndo", "Undo"};
    Button cmdRedo{*this, "cmdRedo", "Redo"};
    Button cmdAus{*this, "cmdAus", "Line active/inactive"};
    Button cmdInsert{*this, "cmdInsert", "Insert line"};
    Button cmdErase{*this, "cmdErase"};
    Button cmdEraseSelected{*this, "cmdEraseSelected", "Marked cell(s) => 0"};
    Button cmdClipboard{*this, "cmdClipboard", "Copy"};
    Button cmdClipEinfuegen{*this, "cmdClipEinfuegen"};
    Button cmdPrevious{*this, "cmdPrevious", "Previous version ..."};

    bool EditMode = false; ///< the input line edits a row; false: it adds one
    int CurrentRow = 1;    ///< line in the input line, from 1

    UndoHistory<ListState> history;
    TableSnapshot known;       ///< the table as the history knows it
    std::string knownUnit;     ///< and the unit of its times
    TableSnapshot saved;       ///< the table as its file holds it
    bool textsChanged = false; ///< comment and the like, which undo does not take back
    bool changing = false;     ///< a change of this editor runs
    /// What the boxes were given; a box that still shows it leaves the value with all its digits.
    std::vector<std::string> shown;
    std::string copied; ///< what went to the clipboard from here: its decimal sign is known

    // --- the table: rows from 1, columns from 0
    virtual int Rows() const = 0;
    virtual double Value(int row, int column) const = 0;
    virtual void SetValue(int row, int column, double value) = 0;
    virtual std::string CellText(int row, int column) const = 0;
    /// New rows are empty.
    virtual void Resize(int rows) = 0;
    /// Row i becomes the row order[i - 1]; those that it leaves out are gone.
    virtual void Arrange(const std::vector<int>& order) = 0;

    // --- what differs around it
    /// Notes that the list differs from its file, or no longer does.
    virtual void SetChanged(bool changed) = 0;
    /// Commands and texts that depend on the rows.
    virtual void RefreshCommands() = 0;
    /// Adding or editing was chosen.
    virtual void ModeShown() {}
    /// The number that stands above the input line while the cursor is on a row.
    virtual int LineShown(int row) const { return EditMode ? row : Rows() + 1; }
    virtual bool MayTakeInputLine() const { return true; }
    virtual void InputLineTaken(int) {}
    /// The columns that take so many pasted ones from the one at the cursor on; what has no room is
    /// left out.
    virtual std::vector<int> ColumnsForPaste(int first, std::size_t count) const;
    /// A pasted text that had better be imported. Returned: true when it is no longer to be pasted.
    virtual bool PastedElsewhere(const std::string&, int /*firstColumn*/) { return false; }
    /// The file of the list, "" without one.
    virtual std::string FileOfList() const = 0;
    /// The version that was saved before takes the place of the list.
    virtual void LoadPrevious(const std::string& path) = 0;
    /// What belongs to the list beside its rows.
    virtual void Keep(ListState& state) const = 0;
    /// Brings that back, before the rows / deals with the rows that came back.
    virtual void BringBack(const ListState& state, const ListState& other) = 0;
    virtual void RowsBroughtBack(const ListState&) {}
    /// Enters what was changed elsewhere into the history / shows it too.
    virtual void NoteForeignChanges(const ListState&) {}
    virtual void TakeForeignChanges() {}

    int Values() const { return static_cast<int>(boxes.size()); }
    int Mark() const { return Values(); } ///< stored column of the mark, -1: the row is off
};

/// Connects the common controls; called by the constructor of an editor that has its boxes.
void WireList(ListEditor& form);
/// The first start of a form: nothing to take back, the file as it is.
void ForgetHistory(ListEditor& form);

// --- what is shown

/// Lists the table anew / row 1.. of it.
void FillGrid(ListEditor& form);
void FillGridRow(ListEditor& form, int row);
/// After a change of many rows: the list, the commands, the input line.
void Refill(ListEditor& form);
/// Whether something stands in the input line that the list does not have.
bool IsLinePending(const ListEditor& form);
/// The current row into the boxes, or empty boxes without one.
void ShowInputLine(ListEditor& form);
/// Adding or editing; the first choice falls back to adding where there is no row.
void SetEditMode(ListEditor& form, bool edit);
/// The buttons of undo and redo name the step that they take back or make again.
void ShowHistory(ListEditor& form);
TextField& FirstEnabledBox(const ListEditor& form);

// --- changes

ListState StateOf(const ListEditor& form, ListState::Extent extent);
/// Carries a change out as one step of undo.
/// Given: timeUnit: of the times before; empty: the present one
void MakeChange(ListEditor& form, const std::string& name, ListState::Extent extent,
                const Handler& change, const std::string& timeUnit = {});
/// Beeps when there is no line. Returned: whether there is one.
bool HasLines(const ListEditor& form);
/// Whether the list can hold so many rows; a box tells that it can't.
bool HasRoom(const ListEditor& form, std::size_t rows);
/// Writes numbers from a row on; the table grows.
/// Given: columns: the column of values for each column of the numbers, -1: left out
void WriteNumbers(ListEditor& form, const TableNumbers& numbers, const std::vector<int>& columns,
                  int firstRow);
/// The same as one step of undo, shown.
/// Returned: false when the list can't hold them (a box told)
bool PutNumbers(ListEditor& form, const TableNumbers& numbers, const std::vector<int>& columns,
                int firstRow, const std::string& name);
/// Removes lines as one step.
void RemoveLines(ListEditor& form, int first, int last);
/// Sorts the rows by a column, ascending; equal ones keep their order.
void SortRows(ListEditor& form, int column);

// --- commands

void optInputMode_Click(ListEditor& form, int mode);
void OKinput_Click(ListEditor& form);
void Grid_Edit(ListEditor& form, int row, int column);
void cmdAus_Click(ListEditor& form);
void cmdInsert_Click(ListEditor& form);
void cmdErase_Click(ListEditor& form);
void FuCellsClear(ListEditor& form);
void cmdClipboard_Click(ListEditor& form);
void cmdClipEinfuegen_Click(ListEditor& form);
void cmdPrevious_Click(ListEditor& form);
void cmdUndo_Click(ListEditor& form);
void cmdRedo_Click(ListEditor& form);

} // namespace zorvant
