// What a user does to a diagram can be taken back, and an edited design is not lost unasked.
#include "dialogs/diagram/axis_settings.h"
#include "dialogs/diagram/diagram_design.h"
#include "dialogs/diagram/diagram_undo.h"
#include "dialogs/diagram/settings_panel.h"
#include "platform/files.h"
#include "tests/temp_folder.h"

#include "fixture.h"

namespace zorvant {
namespace {

struct Steps : DiagramTest {
    Steps() {
        SetRows({{.t = 20, .cA = 0.7}, {.t = 40, .cA = 0.4}});
        DrawModel(2);
        scripted.clock = seconds;
        doc.onRefresh();
    }
    /// What the window does after each command.
    void Settle(double later = 5) {
        scripted.clock = seconds += later;
        doc.onRefresh();
    }
    const PlotContents& Contents() const { return doc.surface; }
    double seconds = 100;
};

TEST_F(Steps, AreTakenBackOneByOneAndMadeAgain) {
    std::vector<PlotContents> stages{Contents()};
    const auto commands = std::vector<std::function<void()>>{
        [&] { mnuSubDelKurv_Click(ps, doc, 1); },  [&] { Press(doc.mnuAddPunkte); },
        [&] { Press(doc.mnuAddLegend); },          [&] { Press(doc.cmdYLog); },
        [&] { SetText(doc.txtLabel(2), "mine"); }, [&] { cmdFullBlack_Click(doc); },
        [&] { Move(doc.UpDown1_KBreite(2), 4); },  [&] { Press(doc.mnuDelTotal); }};
    for (const auto& command : commands) {
        command();
        Settle();
        stages.push_back(Contents());
    }
    for (std::size_t i = commands.size(); i-- > 0;) {
        mnuUndo_Click(ps, doc);
        Settle();
        EXPECT_TRUE(Contents() == stages[i]) << i;
    }
    EXPECT_FALSE(doc.history.CanUndo());
    EXPECT_EQ(ps.CurveCount, 2);
    EXPECT_FALSE(doc.CurveSlotFree[1]);
    for (std::size_t i = 1; i < stages.size(); ++i) {
        mnuRedo_Click(ps, doc);
        Settle();
        EXPECT_TRUE(Contents() == stages[i]) << i;
    }
    EXPECT_EQ(ps.CurveCount, 0);
    mnuUndo_Click(ps, doc);
    Press(doc.cmdXLog);
    Settle();
    EXPECT_FALSE(doc.history.CanRedo()) << "another way was taken";
}

TEST_F(Steps, TypingIsOneStep) {
    const std::string before = doc.surface.header.text;
    Press(doc.mnuTextDesign(1));
    for (const char* key : {"a", "b", "c"}) {
        Type(doc.schrift, key);
        Settle(0.2);
    }
    Settle();
    Type(doc.schrift, "d");
    Settle();
    mnuUndo_Click(ps, doc);
    EXPECT_EQ(doc.surface.header.text, before + "abc");
    EXPECT_TRUE(doc.fraSchrift.visible) << "the panel stays open";
    EXPECT_EQ(doc.schrift.text, before + "abc");
    mnuUndo_Click(ps, doc);
    EXPECT_EQ(doc.surface.header.text, before);
}

TEST_F(Steps, ADrawOfItsOwnCanBeTakenBack) {
    const PlotContents before = Contents();
    ps.k[1] = 0.2;
    DrawModel(2);
    Settle();
    mnuUndo_Click(ps, doc);
    EXPECT_TRUE(Contents() == before);
}

TEST_F(Steps, AnEditedDesignIsAskedAboutBeforeItCloses) {
    TempFolder folder;
    UnloadForm(ps.desktop, doc);
    EXPECT_TRUE(scripted.boxes.empty()) << "nothing was edited";
    DrawModel(2);
    Settle();
    cmdFullBlack_Click(doc);
    Settle();
    scripted.answers = {Answer::Cancel, Answer::Yes, Answer::Yes};
    EXPECT_FALSE(UnloadForm(ps.desktop, doc));
    EXPECT_FALSE(UnloadForm(ps.desktop, doc)) << "no name was given";
    scripted.files = {FileChoice{folder / "kept.oc2"}};
    EXPECT_TRUE(UnloadForm(ps.desktop, doc));
    EXPECT_EQ(scripted.boxes.size(), 3U);
    EXPECT_FALSE(ReadFile(folder / "kept.oc2").empty());
}

TEST_F(Steps, ALookIsTakenWithoutItsData) {
    TempFolder folder;
    cmdFullBlack_Click(doc);
    Move(doc.UpDown1_KBreite(1), 5);
    SetHeader(doc.surface, "another");
    scripted.files = {FileChoice{folder / "look.oc2"}};
    mnuSaveOC2_Click(ps, doc);
    DrawModel(7);
    const PlotContents before = Contents();
    scripted.files = {FileChoice{folder / "look.oc2"}};
    mnuLoadLook_Click(ps, doc);
    EXPECT_EQ(doc.surface.chart.back, kBlack);
    EXPECT_EQ(GetLineStyle(doc.surface, kLines, 1).width, 5);
    EXPECT_EQ(doc.surface.header.text, before.header.text);
    EXPECT_EQ(GetSeries(doc.surface, kLines, 3).y, before.series[kLines][3].y);
    EXPECT_EQ(GetAxis(doc.surface, AxisId::Y).max, before.axes[1].max);
    EXPECT_EQ(ps.CurveCount, 4);
}

TEST_F(Steps, ShowAllFindsWhatLiesOutside) {
    Press(doc.mnuAddPunkte);
    SetPoints(doc.surface, kPoints, kManualSet, {10, 400}, {-2, 3});
    const DiaKoord before = ps.Frame;
    cmdShowAll_Click(ps, doc);
    for (const int group : {kLines, kPoints})
        for (int series = 1; series <= kPointSets; ++series)
            EXPECT_EQ(std::ssize(PointsInFrame(doc.surface, group, series)),
                      GetPointCount(doc.surface, group, series));
    EXPECT_EQ(ps.Frame.xMin, 0.0F);
    cmdZoomReset_Click(ps, doc);
    EXPECT_EQ(ps.Frame.xMax, before.xMax);
    EXPECT_FLOAT_EQ(ps.Frame.yMin, before.yMin);
}

// --- small faults

TEST_F(Steps, DeletingACurveTurnsToTheNextAndTakesItsResultAlong) {
    Press(doc.mnuKurvenDesign);
    Choose(doc.tabKurven, 0);
    cmdDelKurv_Click(ps, doc);
    EXPECT_EQ(doc.tabKurven.selected, 1);
    doc.mnuDelete.onOpen();
    EXPECT_EQ(doc.mnuSubDelKurv(2).text, "curve 2 - c(P)");

    SetRows({{.t = 0, .cA = 1}, {.t = 10, .cA = 0.5}});
    ps.ModelId = 2;
    Open(kKindFirstOrder);
    ASSERT_NE(doc.StatusBar2.text, "");
    mnuSubDelKurv_Click(ps, doc, 1);
    EXPECT_EQ(doc.StatusBar2.text, "");
}

TEST_F(Steps, ASchemeColoursLegendAndLabelsToo) {
    cmdFullBlack_Click(doc);
    EXPECT_EQ(doc.surface.legend.colours.back, kBlack);
    EXPECT_EQ(GetLabel(doc.surface, 1).colours.back, kBlack);
    EXPECT_EQ(GetLabel(doc.surface, 1).colours.fore, kWhite);
    EXPECT_EQ(GetLabel(doc.surface, kHalfLifeASeries).colours.fore, kRed);
}

TEST_F(Steps, TextsLegendAndLabelsAreDragged) {
    LayOut();
    PlotLayout& layout = doc.surface.layout;
    layout.header = {100, 5, 100, 10};
    layout.labels = {{.label = 1, .rect = {60, 30, 30, 12}}};
    const auto drag = [&](DataPoint from, DataPoint to) {
        MouseDown(ps, doc, MouseButton::Left, from.x, from.y);
        MouseMove(ps, doc, to.x, to.y);
        MouseUp(ps, doc, MouseButton::Left, to.x, to.y);
    };
    drag({110, 10}, {30, 25});
    EXPECT_EQ(doc.surface.header.location, (Location{20.0 / 400, 20.0 / 300, false}));
    const double y = GetY(doc.surface, kLines, 1, 151);
    drag({65, 35}, PixelOf(75, y));
    EXPECT_EQ(GetLabel(doc.surface, 1).point, 151) << "along its curve";
    EXPECT_TRUE(scripted.boxes.empty()) << "no point is deleted by that";
    doc.mnuAddLegend.onClick();
    layout.legend = {300, 30, 40, 40};
    drag({310, 40}, {900, 40});
    EXPECT_EQ(doc.surface.legend.location.x, 1) << "not out of the picture";
}

} // namespace
} // namespace zorvant
