// The data editor as a user works with it: enter, paste, deactivate, sort, take back, save, reload.
#include "data/exp_data.h"
#include "dialogs/common/time_unit_change.h"
#include "dialogs/data/frm_datedit.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "tests/dialogs/workbench.h"
#include "tests/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class DataEditor : public testing::Test {
protected:
    DataEditor() {
        bench.ps.desktop.forms.push_back(&editor);
        bench.ps.DataDir = folder.Path();
    }
    void Open(const std::vector<ExpPoint>& rows = {}) {
        ps.ExpData.assign(1, {});
        ps.ExpData.insert(ps.ExpData.end(), rows.begin(), rows.end());
        ps.ExpPointCount = static_cast<int>(rows.size());
        if (rows.empty())
            ps.ExpData.resize(2);
        bench.Show(editor);
    }
    /// Types into the boxes t, cA, cB, ... and takes the line over.
    void TypeLine(std::initializer_list<const char*> values) {
        int box = 0;
        for (const char* value : values)
            bench.Retype(editor.y(box++), value);
        Press(editor.OKinput);
    }
    void Select(int firstRow, int lastRow, int firstColumn = 0, int lastColumn = 10) {
        editor.Grid.row = firstRow;
        editor.Grid.column = firstColumn;
        editor.Grid.selection = {firstRow, firstColumn, lastRow, lastColumn};
        editor.Grid.onSelect();
    }
    void Paste(const std::string& text) {
        bench.host.clipboard = text;
        Press(editor.cmdClipEinfuegen);
    }
    void Edit(int row, int column, const std::string& text) {
        editor.Grid.cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)) =
            text;
        editor.Grid.onEdit(row, column);
    }
    void Key(int key, int column = 2) { editor.Grid.onKeyPress(editor.Grid.row, column, key); }
    std::vector<double> Times() const {
        std::vector<double> times;
        for (int i = 1; i <= ps.ExpPointCount; ++i)
            times.push_back(ps.ExpData[static_cast<std::size_t>(i)].t);
        return times;
    }
    const std::string& Cell(std::size_t row, std::size_t column) const {
        return editor.Grid.cells.at(row).at(column);
    }
    const MessageBox& Box() const { return bench.host.boxes.back(); }

    TempFolder folder;
    Workbench bench;
    Workspace& ps = bench.ps;
    frmDatedit editor{ps, bench.diagram};
};

TEST_F(DataEditor, TellsOneStoryFromTypingToTheReloadedFile) {
    ps.ModelId = 2;
    Open();
    EXPECT_EQ(editor.caption, "Input of Experimental Points  (unnamed)");
    EXPECT_EQ(editor.lblZeile.text, "line 1");
    EXPECT_EQ(Cell(0, 2), "empty list");
    Type(editor.txtComment, "run\r 7");
    TypeLine({"0", "1,2"});
    TypeLine({"10", "0.6"});
    TypeLine({"5", "0.85"});
    EXPECT_THAT(Times(), ElementsAre(0, 10, 5));
    EXPECT_EQ(ps.ExpData[1].cA, 1.2);
    EXPECT_EQ(editor.lblZeile.text, "line 4");
    EXPECT_TRUE(ps.ExpDataChanged);

    Select(1, 1);
    Press(editor.cmdAus);
    EXPECT_EQ(Cell(1, 1), "-1");
    Press(editor.TSort);
    EXPECT_THAT(Times(), ElementsAre(0, 5, 10));
    EXPECT_EQ(ps.ExpData[3].exclude, -1); // went with its row
    EXPECT_EQ(editor.cmdUndo.text, "Undo sorting");

    const std::string path = folder / "run7.ZI3";
    bench.host.files = {FileChoice{path}};
    Press(editor.cmdSave);
    EXPECT_FALSE(ps.ExpDataChanged);
    UnloadForm(ps.desktop, editor);
    ps.ExpData.assign(2, {});
    ps.ExpPointCount = 0;
    ps.ExpComment.clear();
    Open();
    bench.host.files = {FileChoice{path}};
    Press(editor.cmdLoadFile);
    EXPECT_THAT(Times(), ElementsAre(0, 5, 10));
    EXPECT_EQ(ps.ExpData[3].exclude, -1);
    EXPECT_EQ(editor.txtComment.text, "run 7");
    EXPECT_EQ(editor.caption, "Editing öf Experimental Data  (run7.ZI3)");
    EXPECT_TRUE(bench.host.boxes.empty());
}

TEST_F(DataEditor, TakesALineOnlyWhenItsSumIsPositive) {
    Open();
    TypeLine({"0", "0"});
    EXPECT_EQ(ps.ExpPointCount, 0);
    EXPECT_EQ(bench.host.beeps, 1);
    TypeLine({"", "", "", "", "", "", "", "300", "5E-4"});
    EXPECT_EQ(ps.ExpData[1].T, 300);
    EXPECT_EQ(ps.ExpData[1].k, 5e-4);
    Type(editor.y(0), "2+"); // "+" takes the line, but not behind an exponent's E
    EXPECT_EQ(ps.ExpData[2].t, 2);
    Type(editor.y(0), "2E+1");
    EXPECT_EQ(ps.ExpPointCount, 2);
    Press(editor.OKinput);
    EXPECT_EQ(ps.ExpData[3].t, 20);
    editor.NoteDue = true;
    for (int i = 0; i < 2; ++i)
        TypeLine({"1", "1", "", "", "", "", "", "300"});
    ASSERT_EQ(bench.host.boxes.size(), 1U); // the reference comes once
    EXPECT_EQ(Box().title, "One-time Reference");
}

TEST_F(DataEditor, EditingALineKeepsTheDigitsAndFieldsThatWereNotTouched) {
    ps.ModelId = 10;
    ps.RcSMode = true;
    Open({{.t = 1.23456789012, .cB = 0.123456789012, .T = 300, .lambda = 7}});
    Select(0, 0);
    EXPECT_EQ(editor.y(0).text, " 1.234568");
    EXPECT_EQ(editor.y(7).text, ""); // not enabled
    bench.Retype(editor.y(2), "0.5");
    Press(editor.OKinput);
    EXPECT_EQ(ps.ExpData[1], (ExpPoint{.t = 1.23456789012, .cB = 0.5, .T = 300, .lambda = 7}));
}

TEST_F(DataEditor, ListsSmallConcentrationsWithAnExponent) {
    Open({{.t = 1.23456789, .cA = 5e-6, .cB = 1e-5, .cP = 0.123456789012345}});
    EXPECT_EQ(Cell(0, 2), "1.234568");
    EXPECT_EQ(Cell(0, 3), "5.000000E-06");
    EXPECT_EQ(Cell(0, 4), SingleText(1e-5));
    EXPECT_EQ(Cell(0, 5), "0");
    EXPECT_EQ(Cell(0, 6), "0.123456789012345");
}

TEST_F(DataEditor, AsksWhereAPastedTextCanBeReadInTwoWays) {
    const std::string text = "0\t1,234\n1\t2,345\n";
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        UnloadForm(ps.desktop, editor);
        Open();
        bench.host.answers = {answer};
        Paste(text);
        EXPECT_THAT(Box().text, HasSubstr("1,234"));
        if (answer == Answer::Cancel)
            EXPECT_EQ(ps.ExpPointCount, 0);
        else
            EXPECT_EQ(ps.ExpData[1].cA, answer == Answer::Yes ? 1.234 : 1234);
    }
}

TEST_F(DataEditor, PastingExtendsTheTableAndTellsOfColumnsWithoutRoom) {
    Open({{.t = 1}, {.t = 2}});
    Select(1, 1, 2, 2);
    Paste("t/s\r\n7\r\n8,0\r\n9\r\n");
    EXPECT_THAT(Times(), ElementsAre(1, 7, 8, 9));
    Select(0, 0, 9, 9); // the temperature; one more column has room
    Paste("300\t0.5\t9\t9\n");
    EXPECT_EQ(ps.ExpData[1].T, 300);
    EXPECT_EQ(ps.ExpData[1].k, 0.5);
    EXPECT_THAT(Box().text, HasSubstr("4 columns; from the cursor on the list has room for 2"));
    const auto before = ps.ExpData;
    Paste("no numbers here");
    EXPECT_EQ(Box().text, "The clipboard holds no numbers.");
    EXPECT_EQ(ps.ExpData, before);
}

TEST_F(DataEditor, CouplesArePastedIntoRateAndSubstrate) {
    ps.ModelId = 10;
    ps.RcSMode = true;
    Open();
    EXPECT_EQ(editor.Grid.heads[2], "r(P)/(mol/L s)");
    EXPECT_EQ(editor.TSort.text, "r(P) sorting");
    EXPECT_TRUE(editor.cmdDraw_rcS.enabled);
    EXPECT_FALSE(editor.cmdDraw_ct.enabled);
    EXPECT_FALSE(editor.y(1).enabled);
    Paste("0.1\t2\n0.2\t4");
    EXPECT_EQ(ps.ExpData[2], (ExpPoint{.t = 0.2, .cB = 4}));
    ps.RcSMode = false;
    editor.onModelChanged();
    EXPECT_EQ(editor.Grid.heads[2], "Zeit t/s");
    EXPECT_TRUE(editor.y(5).enabled);
    EXPECT_FALSE(editor.y(6).enabled);
}

TEST_F(DataEditor, WhatItCopiesPastesBackUnchanged) {
    const std::vector<ExpPoint> rows{
        {.t = 1.0 / 3, .cA = 5.5e-6, .T = 298.15, .k = 1.25e-7, .lambda = 0.1F},
        {.t = 1e6, .cQ = 0.123456789012345}};
    Open(rows);
    Select(0, 1);
    Key(3);
    ASSERT_TRUE(bench.host.clipboard.has_value());
    const std::string copied = *bench.host.clipboard;
    Select(1, 1, 0, 0); // two rows from the last one on: the table grows by one
    Paste(copied);
    ASSERT_EQ(ps.ExpPointCount, 3);
    Select(1, 2);
    Key(3);
    EXPECT_EQ(*bench.host.clipboard, copied);
    EXPECT_EQ(ps.ExpData[2].cA, rows[0].cA);
    EXPECT_EQ(ps.ExpData[2].lambda, rows[0].lambda);
}

TEST_F(DataEditor, RemovesMarkedLinesAfterAQuestion) {
    Open({{.t = 1}, {.t = 2}, {.t = 3}});
    editor.Grid.selection = {};
    Press(editor.cmdErase);
    EXPECT_EQ(Box().text, "No marked item!");
    Select(0, 1);
    bench.host.answers = {Answer::No, Answer::Yes};
    Press(editor.cmdErase);
    EXPECT_EQ(Box().text, "lines 1 to 2 really remove?");
    EXPECT_EQ(ps.ExpPointCount, 3);
    Key(127); // line numbers are marked: the lines are meant
    EXPECT_THAT(Times(), ElementsAre(3));
    Select(0, 0, 2, 3);
    Key(127); // values are marked: the cells are meant
    EXPECT_THAT(Times(), ElementsAre(0));
    Select(0, 0);
    bench.host.answers = {Answer::Yes};
    Press(editor.cmdErase);
    EXPECT_EQ(Box().text, "line 1 really remove?");
    EXPECT_EQ(Cell(0, 2), "empty list");
    EXPECT_EQ(editor.lblZeile.text, "line 1");
    EXPECT_FALSE(editor.EditMode);
    const int beeps = bench.host.beeps;
    Press(editor.TSort);
    Press(editor.cmdAus);
    Press(editor.cmdErase);
    EXPECT_EQ(bench.host.beeps, beeps + 3);
}

TEST_F(DataEditor, EntryInTheListFollowsTheSystemsDecimalSign) {
    Open({{.t = 1}, {.t = 2}});
    for (const bool comma : {false, true}) {
        ps.DecimalComma = comma;
        for (int key : {'.', ','}) {
            editor.Grid.onKeyPress(0, 3, key);
            EXPECT_EQ(key, comma ? ',' : '.');
        }
    }
    int letter = 'x';
    editor.Grid.onKeyPress(0, 3, letter);
    EXPECT_EQ(letter, 0);
    Select(0, 0, 3, 3);
    Edit(0, 3, "2,5");
    EXPECT_EQ(ps.ExpData[1].cA, 2.5);
    EXPECT_EQ(Cell(0, 3), "2.5");
    EXPECT_EQ(editor.y(1).text, " 2.5");
    Edit(1, 1, "-1");
    EXPECT_EQ(ps.ExpData[2].exclude, -1);
    Edit(0, 8, "1E300"); // lambda is kept as Single
    EXPECT_TRUE(std::isfinite(ps.ExpData[1].lambda));
}

TEST_F(DataEditor, EveryChangeCanBeTakenBackAndMadeAgain) {
    ps.ModelId = 2;
    Open({{.t = 3, .cA = 1.0 / 3}, {.t = 1, .cA = 0.7}, {.t = 2, .cA = 0.1}});
    std::vector<std::vector<ExpPoint>> states{ps.ExpData};
    std::vector<std::string> names;
    const auto note = [&] {
        states.push_back(ps.ExpData);
        names.push_back(editor.cmdUndo.text);
    };
    Press(editor.TSort);
    note();
    Press(editor.optZeit, 1);
    note();
    Press(editor.cmdAus);
    note();
    Paste("7\t8");
    note();
    Select(0, 1);
    bench.host.answers = {Answer::Yes};
    Press(editor.cmdErase);
    note();
    Edit(0, 3, "4");
    note();
    Press(editor.optInputMode, 0);
    TypeLine({"9"});
    note();
    EXPECT_THAT(names, ElementsAre("Undo sorting", "Undo unit change", "Undo switching of line 1",
                                   "Undo pasting", "Undo removing", "Undo entry in line 1",
                                   "Undo input of line 2"));
    ASSERT_NE(ps.TimeUnitText, "s");
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = states.size() - 1; i-- > 0;) {
            Press(editor.cmdUndo);
            EXPECT_EQ(ps.ExpData, states[i]) << i; // to the last digit, the unit change too
        }
        EXPECT_EQ(ps.TimeUnitText, "s");
        EXPECT_FALSE(ps.ExpDataChanged); // as it was opened
        EXPECT_FALSE(editor.cmdUndo.enabled);
        for (std::size_t i = 1; i < states.size(); ++i) {
            Press(editor.cmdRedo);
            EXPECT_EQ(ps.ExpData, states[i]) << i;
        }
        EXPECT_EQ(ps.TimeUnitText, "min");
        EXPECT_TRUE(ps.ExpDataChanged);
        EXPECT_FALSE(editor.cmdRedo.enabled);
    }
    Press(editor.cmdUndo);
    TypeLine({"5"}); // what had been taken back is forgotten
    EXPECT_FALSE(editor.cmdRedo.enabled);
}

TEST_F(DataEditor, AHundredStepsAreKept) {
    Open();
    for (int i = 1; i <= 130; ++i)
        TypeLine({std::to_string(i).c_str()});
    int steps = 0;
    while (editor.cmdUndo.enabled && steps < 1000) {
        Press(editor.cmdUndo);
        ++steps;
    }
    EXPECT_GE(steps, 100);
    EXPECT_EQ(ps.ExpPointCount, 130 - steps);
}

TEST_F(DataEditor, AFailedLoadCanBeTakenBackAndForeignChangesEndTheHistory) {
    Open({{.t = 1, .cA = 2}});
    WriteFileAtomically(folder / "bad.ZI3", "nothing");
    bench.host.files = {FileChoice{folder / "bad.ZI3"}};
    Press(editor.cmdLoadFile);
    EXPECT_EQ(ps.ExpPointCount, 0);
    EXPECT_FALSE(editor.cmdSave.enabled);
    Press(editor.cmdUndo);
    EXPECT_EQ(ps.ExpPointCount, 1);
    EXPECT_EQ(ps.ExpData[1].cA, 2);

    ps.ExpData = {{}, {.t = 8}, {.t = 9}}; // another project was loaded
    ps.ExpPointCount = 2;
    ps.ExpDataChanged = false;
    CheckExpData(ps);
    EXPECT_EQ(Cell(1, 2), "9"); // and is shown
    EXPECT_FALSE(editor.cmdUndo.enabled);
    Edit(1, 2, "7");
    Press(editor.cmdUndo);
    EXPECT_THAT(Times(), ElementsAre(8, 9));
    EXPECT_FALSE(ps.ExpDataChanged);
}

TEST_F(DataEditor, DrawsOnlyWhatIsThereAndActive) {
    ps.ModelId = 2;
    Open();
    Press(editor.cmdDraw_ct);
    EXPECT_EQ(Box().text, "No points available!");
    TypeLine({"0", "1"});
    TypeLine({"1", "0.5"});
    Press(editor.optInputMode, 1);
    for (int row : {0, 1}) {
        Select(row, row);
        Press(editor.cmdAus);
    }
    Press(editor.cmdDraw_ct);
    EXPECT_EQ(Box().text, "all c-t points are deactivated!\r\nCancel this deactivation.\r\n");
    EXPECT_FALSE(bench.diagram.loaded);
    Press(editor.cmdUndo);
    Press(editor.cmdDraw_ct);
    EXPECT_TRUE(bench.diagram.loaded);
    EXPECT_EQ(ps.DiagramKind, -1);
    Press(editor.cmdDraw_Tk);
    EXPECT_THAT(Box().text, HasSubstr("all k-T points"));
}

TEST_F(DataEditor, ApplyWarnsOfAwkwardTimesAndTakesInitialConcentrations) {
    ps.ModelId = 2;
    Open({{.t = 0, .cA = 1, .T = 300},
          {.t = 5, .cA = 0.8, .T = 310},
          {.t = 9, .cA = 0.5, .T = 320}});
    bench.host.answers = {Answer::Yes};
    Press(editor.OK);
    EXPECT_EQ(Box().title, "Warning for non-isothermal fitting");
    EXPECT_TRUE(editor.loaded); // so that the unit can be changed
    EXPECT_FALSE(editor.Lbl6.visible);
    bench.host.answers = {Answer::No};
    Press(editor.cmdApply);
    EXPECT_EQ(ps.c0Data[1], 1.0F);
    EXPECT_TRUE(editor.Lbl6.visible);
    bench.host.answers = {Answer::No};
    Press(editor.OK);
    EXPECT_FALSE(editor.loaded);
}

TEST_F(DataEditor, TheLargestTableTakesNoFurtherLine) {
    Open(std::vector<ExpPoint>(kMaxExpPoints, {.t = 1}));
    Press(editor.optInputMode, 0);
    TypeLine({"1"});
    EXPECT_EQ(ps.ExpPointCount, kMaxExpPoints);
    EXPECT_THAT(Box().text, HasSubstr("32767"));
}

} // namespace
} // namespace zorvant
