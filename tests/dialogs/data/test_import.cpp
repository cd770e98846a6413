// Import of text files: what the dialog finds out, what the user corrects, what reaches the table.
#include "dialogs/data/frm_import_text.h"
#include "platform/files.h"
#include "tests/dialogs/workbench.h"
#include "tests/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ImportText : public testing::Test {
protected:
    ImportText() { ps.ModelId = 2; }
    void Open(const std::string& bytes) {
        WriteFileAtomically(folder / "values.csv", bytes);
        bench.host.files = {FileChoice{folder / "values.csv"}};
        bench.Show(dialog);
    }
    int FieldColumn(int field) { return dialog.cmbField(field).index; }

    TempFolder folder;
    Workbench bench;
    Workspace& ps = bench.ps;
    frmDatedit editor{ps, bench.diagram};
    frmImportText dialog{ps, editor};
};

/// Little-endian UTF-16 with its mark, of ASCII text.
std::string Utf16(const std::string& ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii)
        bytes += {c, '\0'};
    return bytes;
}

TEST_F(ImportText, FindsHowAFileIsToBeReadAndWhereItsColumnsBelong) {
    const struct {
        const char* what;
        std::string bytes;
        int separator, skip;
    } cases[] = {
        {"UTF-8 with a heading and units",
         "Messung \xC3\xBC\nTime/min;T/K;c(A)/(mol/L)\n0;300,5;1,25\n2,5;301;0,5\n", 1, 2},
        {"UTF-16 with tabs", Utf16("Time\tT\tcA\r\n0\t300.5\t1.25\r\n2.5\t301\t0.5\r\n"), 0, 1},
        {"Windows-1252 with CR", "Zeit;T;c(A)\xFC\r0;300,5;1,25\r2,5;301;0,5\r", 1, 1},
        {"commas and quotes", "\"time\",\"T [K]\",\"c(A)\"\n0,300.5,1.25\n2.5,301.0,0.5\n", 2, 1},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        Open(each.bytes);
        ASSERT_TRUE(dialog.loaded);
        EXPECT_EQ(dialog.cmbSep.index, each.separator);
        EXPECT_EQ(dialog.updSkip.value, each.skip);
        EXPECT_EQ(FieldColumn(kExpTime), 1);
        EXPECT_EQ(FieldColumn(kExpTemperature), 2);
        EXPECT_EQ(FieldColumn(1), std::string(each.what).starts_with("Win") ? 0 : 3);
        Choose(dialog.cmbField(1), 3);
        EXPECT_THAT(dialog.GridRead.heads, ElementsAre("row", "t", "c(A)", "T"));
        EXPECT_THAT(dialog.GridRead.cells.at(1), ElementsAre("2", "2.5", "0.5", "301"));
        Press(dialog.cmdOK);
        EXPECT_FALSE(dialog.loaded);
        ASSERT_EQ(ps.ExpPointCount, 2);
        EXPECT_EQ(ps.ExpData[1], (ExpPoint{.cA = 1.25, .T = 300.5}));
        EXPECT_EQ(ps.ExpData[2], (ExpPoint{.t = 2.5, .cA = 0.5, .T = 301}));
        EXPECT_TRUE(editor.loaded);
        EXPECT_EQ(editor.cmdUndo.text, "Undo importing");
    }
    EXPECT_EQ(ps.TimeUnitText, "min"); // the first heading said so, the others say nothing
    EXPECT_TRUE(bench.host.boxes.empty());
    EXPECT_TRUE(ps.ExpDataChanged);
}

TEST_F(ImportText, ConvertsKnownUnitsAndTellsTheRest) {
    ps.TimeUnitText = "min";
    Open("t/ms;T/\u00B0C;c(A)/(mmol/L);c(B) [\u00B5M];c(C)/(g/L);k/(1/min);remark\n"
         "500;25;1500;250;7;6;x\n1000;;0;0;0;0;y\n");
    for (const char* told : {"times in s", "T in \u00B0C is converted", "c(C) in g/L is not known",
                             "Columns not used: 7: remark"})
        EXPECT_THAT(dialog.lblCount.text, HasSubstr(told));
    Press(dialog.cmdOK);
    const ExpPoint first{.t = .5, .cA = 1.5, .cB = 2.5e-4, .cC = 7, .T = 298.15, .k = .1};
    for (int field = 0; field < kExpColumns; ++field)
        EXPECT_DOUBLE_EQ(ExpValue(ps.ExpData[1], field), ExpValue(first, field)) << field;
    EXPECT_EQ(ps.ExpData[2], (ExpPoint{.t = 1})); // an empty cell is no 0 degrees
    EXPECT_EQ(ps.TimeUnitText, "s");
    Open("time (h);c(A) in mol/L\n1;2\n");
    Press(dialog.optTarget, 1); // the list keeps its unit
    EXPECT_THAT(dialog.lblCount.text, HasSubstr("t in h is converted"));
    Press(dialog.cmdOK);
    EXPECT_EQ(ps.ExpData[3], (ExpPoint{.t = 3600, .cA = 2}));
    EXPECT_EQ(ps.TimeUnitText, "s");
}

TEST_F(ImportText, IsOfferedWhereHeadingsContradictTheColumnsOfAPaste) {
    ps.desktop.forms.push_back(&dialog);
    bench.Show(editor);
    bench.host.clipboard = "T/\u00B0C\tc(A)\n25\t2\n";
    bench.host.answers = {Answer::No, Answer::Yes};
    Press(editor.cmdClipEinfuegen);
    EXPECT_THAT(bench.LastBox(), HasSubstr("T/\u00B0C in the column of t"));
    EXPECT_EQ(ps.ExpData[1].t, 25); // as it stands
    Press(editor.cmdClipEinfuegen);
    Press(dialog.cmdOK);
    EXPECT_EQ(ps.ExpData[1], (ExpPoint{.cA = 2, .T = 298.15}));
}

TEST_F(ImportText, TakesTheColumnsInTheirOrderWithoutKnownHeads) {
    Open("1\t2\t3\n");
    EXPECT_EQ(FieldColumn(kExpTime), 1);
    EXPECT_EQ(FieldColumn(1), 2);
    EXPECT_EQ(FieldColumn(2), 3);
    EXPECT_EQ(FieldColumn(3), 0);
    UnloadForm(ps.desktop, dialog);
    ps.ModelId = 10;
    ps.RcSMode = true;
    Open("1\t2\n");
    EXPECT_EQ(FieldColumn(1), 0);
    EXPECT_EQ(FieldColumn(2), 2); // r(P) and c(S)
}

TEST_F(ImportText, AsksWhereItIsNotSureUnlessTheUserHasChosen) {
    const std::string doubtful = "0\t1,234\n1\t2,345\n";
    Open(doubtful);
    EXPECT_TRUE(dialog.lblDoubt.visible);
    EXPECT_THAT(dialog.lblDoubt.text, HasSubstr("1,234"));
    bench.host.answers = {Answer::Cancel, Answer::No};
    Press(dialog.cmdOK);
    EXPECT_TRUE(dialog.loaded);
    Press(dialog.cmdOK);
    EXPECT_EQ(ps.ExpData[1].cA, 1234);
    EXPECT_EQ(bench.host.boxes.size(), 2U);

    Open(doubtful);
    Choose(dialog.cmbDecimal, 2); // comma
    EXPECT_FALSE(dialog.lblDoubt.visible);
    Press(dialog.cmdOK);
    EXPECT_EQ(ps.ExpData[1].cA, 1.234);
    EXPECT_EQ(bench.host.boxes.size(), 2U);
}

TEST_F(ImportText, ReplacingCanBeTakenBackAndAppendingKeepsWhatIsThere) {
    ps.ExpData = {{}, {.t = 5, .cA = 6}};
    ps.ExpPointCount = 1;
    ps.DataFilePath = folder / "old.ZI3";
    ps.DataFileTitle = "old.ZI3";
    ps.ExpComment = "old";
    ps.LambdaInf = 3;
    Open("1\t2\n");
    Press(dialog.cmdOK);
    EXPECT_EQ(ps.ExpData[1].t, 1);
    EXPECT_EQ(editor.txtComment.text + ps.ExpComment, "");
    EXPECT_EQ(ps.LambdaInf, 0);
    EXPECT_TRUE(ps.DataFilePath.empty()); // a save must not offer the old file
    Press(editor.cmdUndo);
    EXPECT_EQ(ps.ExpData[1].t, 5);
    EXPECT_EQ(ps.DataFileTitle, "old.ZI3");
    EXPECT_EQ(editor.txtComment.text, "old");
    Open("1\t2\nx\t3\n");
    Press(dialog.optTarget, 1);
    EXPECT_THAT(dialog.lblCount.text, HasSubstr("first in line 2"));
    Press(dialog.cmdOK);
    EXPECT_EQ(ps.ExpPointCount, 3);
    EXPECT_EQ(ps.ExpData[1].t, 5);
    EXPECT_EQ(ps.ExpData[2].t, 1);
}

TEST_F(ImportText, ShowsNothingWithoutAFileAndRefusesOneWithoutNumbers) {
    bench.Show(dialog); // the choice is cancelled
    EXPECT_FALSE(dialog.loaded);
    bench.host.files = {FileChoice{folder / "absent.csv"}};
    bench.Show(dialog);
    EXPECT_FALSE(dialog.loaded);
    EXPECT_EQ(bench.host.boxes.size(), 1U);
    for (const char* text : {"", "no numbers\n;here;;\n"}) {
        Open(text);
        EXPECT_FALSE(dialog.cmdOK.enabled);
        EXPECT_EQ(dialog.lblCount.text, "The text holds no numbers.");
    }
}

} // namespace
} // namespace zorvant
