// The X-Y editor as a user works with it.
#include "platform/files.h"
#include "tests/dialogs/data/list_user.h"

#include <cmath>

namespace zorvant {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

class XYEditor : public testing::Test, public ListUser {
protected:
    XYEditor() : ListUser(ListKind::Pairs) { bench.Show(editor); }
    std::vector<std::pair<float, float>> Points() const {
        std::vector<std::pair<float, float>> pairs;
        for (int i = 1; i <= ps.XYCount; ++i)
            pairs.emplace_back(editor.XYData[static_cast<std::size_t>(i)].x,
                               editor.XYData[static_cast<std::size_t>(i)].y);
        return pairs;
    }

    frmZXYEditor& editor = points;
};

TEST_F(XYEditor, TellsOneStoryFromTypingToTheReloadedFile) {
    EXPECT_FALSE(editor.cmdSave.enabled);
    Paste("1\t7E-3\n2\t4,5\n3\t1\n");
    EXPECT_EQ(Cell(0, 3), ".007");
    Select(2, 2);
    Press(editor.cmdAus);
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
    TypeLine({"1", "2"});
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

TEST_F(XYEditor, InterchangesSortsAndRemovesAllAndTakesItBack) {
    Paste("3\t1\n1\t2\n2\t3\n");
    const auto before = Points();
    Press(editor.XSort);
    Press(editor.YSort);
    EXPECT_EQ(Points(), before);
    Press(editor.cmdChangeXY);
    EXPECT_THAT(Points(), ElementsAre(Pair(1, 3), Pair(2, 1), Pair(3, 2)));
    bench.host.answers = {Answer::Yes};
    Press(editor.optDeleteXY, 1);
    Press(editor.cmdErase);
    EXPECT_EQ(editor.lblZeile.text, " line 1");
    EXPECT_TRUE(Points().empty());
    for (int step = 0; step < 4; ++step) // removing, interchange, two sortings
        Press(editor.cmdUndo);
    EXPECT_EQ(Points(), before);
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
    TypeLine({"1", "2"});
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
