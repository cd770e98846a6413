// The X-Y editor as a user works with it.
#include "dialogs/data/frm_zxy_editor.h"
#include "platform/files.h"
#include "tests/dialogs/workbench.h"
#include "tests/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace zorvant {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

class XYEditor : public testing::Test {
protected:
    XYEditor() {
        ps.XYDir = folder.Path();
        bench.Show(editor);
    }
    void Add(const std::string& x, const std::string& y) {
        bench.Retype(editor.y(0), x);
        bench.Retype(editor.y(1), y + "+");
    }
    void Paste(const std::string& text) {
        bench.host.clipboard = text;
        Press(editor.cmdClipEinfuegen);
    }
    void Select(int firstRow, int lastRow, int firstColumn = 0, int lastColumn = 3) {
        editor.Grid.row = firstRow;
        editor.Grid.column = firstColumn;
        editor.Grid.selection = {firstRow, firstColumn, lastRow, lastColumn};
        editor.Grid.onSelect();
    }
    std::vector<std::pair<float, float>> Points() const {
        std::vector<std::pair<float, float>> points;
        for (int i = 1; i <= ps.XYCount; ++i)
            points.emplace_back(editor.XYData[static_cast<std::size_t>(i)].x,
                                editor.XYData[static_cast<std::size_t>(i)].y);
        return points;
    }
    const MessageBox& Box() const { return bench.host.boxes.back(); }

    TempFolder folder;
    Workbench bench;
    Workspace& ps = bench.ps;
    frmZXYEditor editor{ps, bench.diagram};
};

TEST_F(XYEditor, TellsOneStoryFromTypingToTheReloadedFile) {
    EXPECT_EQ(editor.Grid.cells[0][2], "empty list");
    EXPECT_FALSE(editor.cmdSave.enabled);
    Add("2", "4,5");
    Add("1", "7E-3");
    Add("3", "1");
    EXPECT_EQ(editor.lblZeile.text, "line 4");
    EXPECT_EQ(editor.Grid.cells[1][3], ".007");
    Press(editor.XSort);
    EXPECT_THAT(Points(), ElementsAre(Pair(1, 7e-3F), Pair(2, 4.5F), Pair(3, 1)));
    Select(2, 2);
    Press(editor.cmdAus);
    EXPECT_EQ(editor.Grid.cells[2][1], "-1");

    editor.txtComment.text = "calibration";
    const std::string path = folder / "cal.XY";
    bench.host.files = {FileChoice{path}};
    Press(editor.cmdSave);
    EXPECT_EQ(ReadFile(path), "calibration\r\n.1000000E+01;.7000000E-02\r\n"
                              ".2000000E+01;.4500000E+01\r\n");
    Press(editor.cmdEsc);
    EXPECT_FALSE(editor.loaded); // saved, so nothing is asked
    EXPECT_TRUE(bench.host.boxes.empty());

    bench.Show(editor);
    EXPECT_EQ(ps.XYCount, 0);
    bench.host.files = {FileChoice{path}};
    Press(editor.cmdLoad);
    EXPECT_THAT(Points(), ElementsAre(Pair(1, 7e-3F), Pair(2, 4.5F)));
    EXPECT_EQ(editor.XYData[0].x, 2);
    EXPECT_EQ(editor.caption, "Loaded: cal.XY");
    EXPECT_EQ(editor.txtComment.text, "calibration");
}

TEST_F(XYEditor, CancellingAFileOrAFileThatIsNoneChangesNothing) {
    Add("1", "2");
    const auto before = Points();
    Press(editor.cmdLoad); // cancelled
    WriteFileAtomically(folder / "words.XY", "comment\r\nnothing\r\n");
    for (const char* name : {"words.XY", "absent.XY"}) {
        bench.host.files = {FileChoice{folder / name}};
        Press(editor.cmdLoad);
        EXPECT_EQ(Box().title, "ERROR");
    }
    EXPECT_EQ(Points(), before);
    EXPECT_TRUE(ps.XYFile.empty());
    WriteFileAtomically(folder / "some.XY", "c\r\n1;2\r\nx;3\r\n");
    bench.host.files = {FileChoice{folder / "some.XY"}};
    Press(editor.cmdLoad);
    EXPECT_THAT(Points(), ElementsAre(Pair(1, 2), Pair(0, 3)));
    EXPECT_THAT(Box().text, HasSubstr("line 3"));
}

TEST_F(XYEditor, TransformsOnlyActiveLinesAndAllOrNothing) {
    const struct {
        int transform;
        const char* w;
        std::pair<float, float> result; // of (0.5, 2)
    } cases[] = {
        {0, "", {0.5F, std::exp(2.0F)}},
        {1, "", {0.5F, std::log(2.0F)}},
        {2, "3", {0.5F, 6}},
        {3, "3", {0.5F, 5}},
        {4, "", {0.5F, 0.5F}},
        {5, "", {0.5F, 2}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.transform);
        bench.host.answers = {Answer::No}; // to saving
        UnloadForm(ps.desktop, editor);
        bench.Show(editor);
        Paste("0.5\t2\n7\t0\n");
        Select(1, 1);
        Press(editor.cmdAus); // the 0 has no logarithm
        Press(editor.cmdManip);
        Press(editor.optManip, each.transform);
        EXPECT_EQ(editor.txtW.enabled, each.w[0] != '\0');
        bench.Retype(editor.txtW, each.w);
        Press(editor.cmdExecManip);
        EXPECT_FLOAT_EQ(Points()[0].first, each.result.first);
        EXPECT_FLOAT_EQ(Points()[0].second, each.result.second);
        EXPECT_EQ(Points()[1], std::pair(7.0F, 0.0F));
    }
    Select(1, 1);
    Press(editor.cmdAus); // active again
    Press(editor.optManip, 1);
    const auto before = Points();
    for (int transform : {1, 4}) {
        Press(editor.optManip, transform);
        Press(editor.cmdExecManip);
        EXPECT_EQ(Points(), before);
        EXPECT_THAT(Box().text, HasSubstr("Action is not possible using the actual data\r\n"));
    }
    EXPECT_THAT(Box().text, HasSubstr("Division by zero"));
}

TEST_F(XYEditor, EveryChangeCanBeTakenBackAndMadeAgain) {
    std::vector<std::vector<std::pair<float, float>>> states{Points()};
    const auto note = [&] { states.push_back(Points()); };
    Paste("3\t1\n1\t2\n2\t3\n");
    note();
    Press(editor.YSort);
    Press(editor.XSort);
    note();
    Press(editor.cmdChangeXY);
    note();
    Select(0, 0, 2, 2);
    Press(editor.cmdEraseSelected);
    note();
    Select(0, 1);
    bench.host.answers = {Answer::Yes};
    Press(editor.cmdErase);
    EXPECT_EQ(Box().text, "lines 1 to 2 Really delete?");
    note();
    bench.host.answers = {Answer::Yes};
    Press(editor.optDeleteXY, 1);
    Press(editor.cmdErase);
    EXPECT_EQ(editor.lblZeile.text, " line 1");
    note();
    EXPECT_EQ(editor.cmdUndo.text, "Undo removing");
    for (std::size_t i = states.size() - 1; i-- > 0;) {
        Press(editor.cmdUndo);
        EXPECT_EQ(Points(), states[i]) << i;
    }
    EXPECT_FALSE(editor.XYChanged);
    for (std::size_t i = 1; i < states.size(); ++i) {
        Press(editor.cmdRedo);
        EXPECT_EQ(Points(), states[i]) << i;
    }
}

TEST_F(XYEditor, WhatItCopiesPastesBackUnchanged) {
    Paste("0.1\t1E-7\n3.333333\t-12345678\n");
    Select(0, 1);
    int key = 3;
    editor.Grid.onKeyPress(0, 2, key);
    EXPECT_EQ(key, 0);
    const auto before = Points();
    Select(1, 1);
    Press(editor.cmdClipEinfuegen);
    EXPECT_THAT(Points(), ElementsAre(before[0], before[0], before[1]));
    Paste("1\t2\t3\n");
    EXPECT_THAT(Box().text, HasSubstr("3 columns; from the cursor on the list has room for 2"));
}

TEST_F(XYEditor, HandsTheActiveLinesToTheDiagram) {
    Press(editor.cmdDrawManu);
    EXPECT_EQ(Box().text, "empty list");
    Paste("0\t5\n10\t5\n99\t99\n");
    Select(2, 2);
    Press(editor.cmdAus);
    Press(editor.optIsPoints, 1);
    Press(editor.cmdDrawManu);
    ASSERT_TRUE(bench.diagram.loaded);
    EXPECT_FALSE(bench.diagram.cmdDraw.enabled);
    EXPECT_EQ(GetPointCount(bench.diagram.surface, kPoints, kManualSet), 2);
    EXPECT_FLOAT_EQ(ps.Frame.xMin, -0.5F);
    EXPECT_FLOAT_EQ(ps.Frame.xMax, 10.5F);
    EXPECT_FLOAT_EQ(ps.Frame.yMin, 4.75F); // both ends were 5
    EXPECT_FLOAT_EQ(ps.Frame.yMax, 5.25F);
    Press(editor.optIsPoints, 0);
    Press(editor.cmdDrawManu);
    EXPECT_EQ(ps.CurveCount, 1);
    EXPECT_EQ(bench.host.boxes.size(), 1U);
}

TEST_F(XYEditor, PrintsTheActiveLinesWithoutSeconds) {
    Paste("1\t2\n3\t4\n5\t6\n");
    Select(1, 1);
    Press(editor.cmdAus);
    Press(editor.cmdPrint);
    ASSERT_EQ(bench.host.printed.size(), 1U);
    const std::string& page = bench.host.printed[0];
    EXPECT_THAT(page, HasSubstr("List X-Y data from  2000-01-01 12:00 o'clock\r\n"));
    EXPECT_THAT(page, HasSubstr("\r\n           3        5            6\r\n"));
    EXPECT_THAT(page, testing::Not(HasSubstr(" 4\r\n")));
}

TEST_F(XYEditor, LeavingWithAChangedListAsks) {
    Add("1", "2");
    bench.host.answers = {Answer::Cancel, Answer::Yes, Answer::No};
    Press(editor.cmdEsc);
    EXPECT_EQ(Box().text, "Data are not yet saved\r\n\r\nSave now?");
    EXPECT_TRUE(editor.loaded);
    Press(editor.cmdEsc); // yes, but the choice of the file is cancelled
    EXPECT_TRUE(editor.loaded);
    Press(editor.cmdEsc);
    EXPECT_FALSE(editor.loaded);
}

} // namespace
} // namespace zorvant
