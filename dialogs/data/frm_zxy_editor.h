// The editor of a free list of x-y pairs, apart from the measured values: typed, pasted or loaded,
// transformed, sorted, and handed to the diagram as a curve or as points.
#pragma once

#include "data/formats/xy.h"
#include "data/recovery.h"
#include "dialogs/data/list_editor.h"

#include <string>
#include <vector>

namespace zorvant {

struct frmZXYEditor : ListEditor {
    frmZXYEditor(Workspace& state, DiagramDocument& diagramDocument);

    // --- the input line
    Array<Label, 2> lblY{*this, "lblY"};
    Array<TextField, 2> y{*this, "y"}; ///< x and y

    // --- the list
    OptionGroup optDeleteXY{*this, "optDeleteXY", {"Marked line(s)", "all"}};
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
    bool XYChanged = false;
    bool AsCurve = false;

    int Rows() const override { return ps.XYCount; }
    double Value(int row, int column) const override;
    void SetValue(int row, int column, double value) override;
    std::string CellText(int row, int column) const override;
    void Resize(int rows) override;
    void Arrange(const std::vector<int>& order) override;

    void SetChanged(bool changed) override { XYChanged = changed; }
    void RefreshCommands() override;
    std::vector<int> ColumnsForPaste(int first, std::size_t count) const override;
    std::string FileOfList() const override { return ps.XYFile; }
    void LoadPrevious(const std::string& path) override;
    void Keep(ListState& state) const override;
    void BringBack(const ListState& state, const ListState& other) override;
};

/// Makes points the whole list.
void SetPoints(frmZXYEditor& form, const std::vector<XYPoint>& points);
/// Reads a list into the editor as "Load data" does, without the question for its name.
void LoadIntoEditor(frmZXYEditor& form, const std::string& path);
/// What keeps a changed list for the case of a crash.
RecoveryKind ListRecovery(frmZXYEditor& form);
/// The text that "Print list" prints.
/// Given: fileDate: of the file, or today's date and time without one; seconds are cut
std::string PrintedList(const frmZXYEditor& form, const std::string& fileDate);

void cmdEraseXY_Click(frmZXYEditor& form);
void cmdChangeXY_Click(frmZXYEditor& form);
void optManip_Click(frmZXYEditor& form, int index);
void cmdExecManip_Click(frmZXYEditor& form);
void cmdDrawManu_Click(frmZXYEditor& form);
void cmdLoad_Click(frmZXYEditor& form);
void cmdSave_Click(frmZXYEditor& form);
void cmdPrint_Click(frmZXYEditor& form);

} // namespace zorvant
