// The data editor as a user works with it: enter, paste, deactivate, sort, take back, save, reload.
#include "dialogs/common/time_unit_change.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "tests/dialogs/data/list_user.h"

namespace zorvant {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class DataEditor : public testing::Test, public ListUser {
protected:
    DataEditor() : ListUser(ListKind::Data) {}
    void Open(const std::vector<ExpPoint>& rows = {}) {
        ps.ExpData.assign(1, {});
        ps.ExpData.insert(ps.ExpData.end(), rows.begin(), rows.end());
        ps.ExpPointCount = static_cast<int>(rows.size());
        bench.Show(editor);
    }
    std::vector<double> Times() const {
        std::vector<double> times;
        for (int i = 1; i <= ps.ExpPointCount; ++i)
            times.push_back(ps.ExpData[static_cast<std::size_t>(i)].t);
        return times;
    }

    frmDatedit& editor = data;
};

TEST_F(DataEditor, TellsOneStoryFromTypingToTheReloadedFile) {
    ps.ModelId = 2;
    Open();
    EXPECT_EQ(editor.caption, "Input of Experimental Points  (unnamed)");
    Type(editor.txtComment, "run\r 7");
    Paste("0\t1,2\n10\t0,6\n5\t0,85\n");
    Select(1, 1);
    Press(editor.cmdAus);
    Press(editor.TSort);
    EXPECT_TRUE(ps.ExpDataChanged);
    const std::string path = folder / "run7.ZI3";
    bench.host.files = {FileChoice{path}};
    Press(editor.cmdSave);
    EXPECT_FALSE(ps.ExpDataChanged);
    UnloadForm(ps.desktop, editor);
    ps.ExpComment.clear();
    Open();
    bench.host.files = {FileChoice{path}};
    Press(editor.cmdLoadFile);
    EXPECT_THAT(Times(), ElementsAre(0, 5, 10));
    EXPECT_EQ(ps.ExpData[3].exclude, -1); // it went with its row
    EXPECT_EQ(ps.ExpData[1].cA, 1.2);
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
    EXPECT_EQ(ps.ExpData[1], (ExpPoint{.T = 300, .k = 5e-4}));
    for (int i = 0; i < 2; ++i)
        TypeLine({"1", "1", "", "", "", "", "", "300"});
    ASSERT_EQ(bench.host.boxes.size(), 1U); // the reference comes once
    EXPECT_EQ(Box().title, "One-time Reference");
}

TEST_F(DataEditor, ListsSmallConcentrationsWithAnExponentAndLambdaAsSingle) {
    Open({{.t = 1.23456789, .cA = 5e-6, .cB = 1e-5, .cP = 0.123456789012345}});
    EXPECT_EQ(Cell(0, 2), "1.234568");
    EXPECT_EQ(Cell(0, 3), "5.000000E-06");
    EXPECT_EQ(Cell(0, 4), SingleText(1e-5));
    EXPECT_EQ(Cell(0, 5), "0");
    EXPECT_EQ(Cell(0, 6), "0.123456789012345");
    Edit(0, 8, "1E300");
    EXPECT_TRUE(std::isfinite(ps.ExpData[1].lambda));
}

TEST_F(DataEditor, DelMeansLinesOnTheirNumbersAndElseCells) {
    Open({{.t = 1}, {.t = 2, .cA = 1}});
    Select(0, 0);
    bench.host.answers = {Answer::Yes};
    Key(kKeyDel);
    EXPECT_EQ(Box().text, "line 1 really remove?");
    EXPECT_THAT(Times(), ElementsAre(2));
    Select(0, 0, 2, 2);
    Key(kKeyDel);
    EXPECT_THAT(Times(), ElementsAre(0));
}

TEST_F(DataEditor, AUnitChangeIsTakenBackToTheLastDigit) {
    Open({{.t = 1.0 / 3, .cA = 1}, {.t = 0.7}});
    const auto before = ps.ExpData;
    Press(editor.optZeit, 1);
    const auto after = ps.ExpData;
    EXPECT_EQ(editor.cmdUndo.text, "Undo unit change");
    EXPECT_NE(after, before);
    Press(editor.cmdUndo);
    EXPECT_EQ(ps.ExpData, before);
    EXPECT_EQ(ps.TimeUnitText, "s");
    Press(editor.cmdRedo);
    EXPECT_EQ(ps.ExpData, after);
    EXPECT_EQ(ps.TimeUnitText, "min");
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

TEST_F(DataEditor, KeepsTheTableWhenAFileCannotBeReadAndTakesAnEmptyOne) {
    Open({{.t = 1, .cA = 2}});
    ps.DataFilePath = "before";
    WriteFileAtomically(folder / "bad.ZI3", "nothing");
    WriteFileAtomically(folder / "none.ZI3", "no rows yet\r\nmin\r\nhead\r\n0\r\n");
    bench.host.files = {FileChoice{folder / "bad.ZI3"}, FileChoice{folder / "none.ZI3"}};
    Press(editor.cmdLoadFile);
    EXPECT_EQ(ps.ExpPointCount, 1);
    EXPECT_EQ(ps.DataFilePath, "before");
    EXPECT_TRUE(editor.cmdSave.enabled);
    Press(editor.cmdLoadFile);
    EXPECT_EQ(ps.ExpPointCount, 0);
    EXPECT_EQ(editor.txtComment.text, "no rows yet");
    EXPECT_FALSE(editor.cmdSave.enabled);
}

TEST_F(DataEditor, GoesBackToThePreviousVersionAndSuggestsANameBesideTheProject) {
    ps.ProjectFile = folder / "ester.ZC3";
    Open({{.t = 1}});
    for (const char* time : {"2", "3"}) {
        Edit(0, 2, time);
        bench.host.files = {FileChoice{folder / "ester.ZI3"}};
        Press(editor.cmdSave);
    }
    EXPECT_EQ(bench.host.fileRequests.front().name, "ester.ZI3");
    Press(editor.cmdPrevious);
    EXPECT_THAT(Times(), ElementsAre(2));
    EXPECT_TRUE(ps.ExpDataChanged);
    EXPECT_EQ(ps.DataFileTitle, "ester.ZI3");
    Press(editor.cmdUndo);
    EXPECT_THAT(Times(), ElementsAre(3));
    EXPECT_FALSE(ps.ExpDataChanged);
}

TEST_F(DataEditor, TakesTheInputLineOverWhenItIsLeft) {
    Open({{.t = 1}});
    bench.Retype(editor.y(0), "2");
    Press(editor.OK);
    EXPECT_THAT(Times(), ElementsAre(2));
    Open({{.t = 1}});
    bench.Retype(editor.y(0), "4");
    bench.host.answers = {Answer::Cancel, Answer::No};
    EXPECT_FALSE(UnloadForm(ps.desktop, editor));
    EXPECT_TRUE(UnloadForm(ps.desktop, editor));
    EXPECT_THAT(Times(), ElementsAre(1));
}

TEST_F(DataEditor, ForeignChangesEndTheHistory) {
    Open({{.t = 1, .cA = 2}});
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
