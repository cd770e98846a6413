// Drawing into the 24 curve slots of the window, styling and deleting.
#include "diagrams/curve_points.h"
#include "dialogs/diagram/curve_panel.h"

#include "fixture.h"

namespace zorvant {
namespace {

struct Curves : DiagramTest {
    std::string LabelOf(int slot) { return GetLabel(doc.surface, slot).text; }
    /// Puts n points (i, y) into the caller's buffer and draws them.
    void DrawBuffer(int n, float y = 0.5F) {
        ps.CurveBuf.assign(static_cast<std::size_t>(n) + 1, {});
        ps.CurveBuf[0].x = static_cast<float>(n);
        for (int i = 1; i <= n; ++i)
            ps.CurveBuf[static_cast<std::size_t>(i)] = {static_cast<float>(i - 1), y};
        ps.CurvesToDraw = 1;
        cmdDraw_Click(ps, doc);
    }
    /// An open E(t) diagram, whose curves come from the caller.
    void OpenForBuffers() {
        ps.DiagramKind = kKindResidenceFirst;
        GrafZentrale(ps, doc);
        ps.Frame.xMax = 1000;
    }
};

TEST_F(Curves, StandUnderTheirNamesInLabelLegendAndPanel) {
    DrawModel(7);
    EXPECT_EQ(ps.CurveCount, 4);
    EXPECT_EQ(ps.CurvesToDraw, 0);
    for (const auto& [slot, name] : {std::pair(1, "c(A) "), {2, "c(B) "}, {4, "c(P) "}}) {
        EXPECT_EQ(LabelOf(slot), name);
        EXPECT_EQ(doc.txtLegendCurves(slot).text, name);
        EXPECT_EQ(GetSeriesLabel(doc.surface, kLines, slot), name);
        EXPECT_EQ(GetPointCount(doc.surface, kLines, slot), 201);
    }
    EXPECT_THAT(Messages(), testing::IsEmpty());
}

TEST_F(Curves, InATubeStandAgainstItsLengthAndWidenTheFrameOnce) {
    ps.IsTubular = true;
    ps.vRohr = 2;
    DrawModel(7);
    ASSERT_EQ(ps.CurveCount, 4);
    for (int slot = 1; slot <= 4; ++slot)
        EXPECT_EQ(GetX(doc.surface, kLines, slot, 201), 200);
    EXPECT_EQ(ps.Frame.xMax, 200.0F);
    EXPECT_EQ(ps.Memory.RngT.upper, 200.0F);
    EXPECT_EQ(doc.coord(2).text, " 200");
    EXPECT_EQ(GetX(doc.surface, kLines, kFrameSeries, 2), 200);

    ps.vRohr = 1e37F;
    DrawModel(2);
    EXPECT_THAT(Messages(), testing::ElementsAre("Aborted|Critical error occured:\r\nOverflow\r\n"
                                                 "Message from CalcCurve"));
}

TEST_F(Curves, AreAddedToAnOpenDiagramAndKeepItsAxes) {
    ps.AddCurves = true;
    DrawModel(2);
    cmdDraw_Click(ps, doc);
    EXPECT_EQ(ps.CurveCount, 2) << "the load has drawn them already";
    SetAxis(doc.surface, AxisId::Y, 0, 5, 0, 5);
    bool err = false;
    ps.k[1] = 0.1;
    calc_diagram_function(ps, 2, ps.tMax, err);
    GrafZentrale(ps, doc);
    cmdDraw_Click(ps, doc);
    EXPECT_EQ(ps.CurveCount, 4);
    EXPECT_EQ(doc.tabKurven.pages[3].text, "K. 4");
    EXPECT_EQ(GetAxis(doc.surface, AxisId::Y).max, 5);
}

TEST_F(Curves, ReuseTheLowestFreeSlot) {
    OpenForBuffers();
    for (int i = 0; i < 3; ++i)
        DrawBuffer(10);
    FuKurveLoeschen(ps, doc, 2);
    EXPECT_EQ(ps.CurveCount, 2);
    EXPECT_FALSE(doc.tabKurven.pages[1].visible);
    FuKurveLoeschen(ps, doc, 2);
    EXPECT_EQ(ps.CurveCount, 2) << "a free slot has nothing to delete";
    DrawBuffer(5);
    EXPECT_EQ(doc.CurveSlot, 2);
    EXPECT_EQ(doc.tabKurven.pages[1].text, "K. 2");
    EXPECT_EQ(GetSeries(doc.surface, kLines, 2).display, SeriesDisplay::Shown);
    doc.tabKurven.selected = 2;
    cmdDelKurv_Click(ps, doc);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 3), 0) << "the number comes from the caption";
    mnuDelete_Click(doc);
    EXPECT_TRUE(doc.mnuSubDelKurv(0).visible && doc.mnuSubDelKurv(2).visible);
    EXPECT_FALSE(doc.mnuSubDelKurv(3).visible);
}

TEST_F(Curves, StopAtTwentyFour) {
    OpenForBuffers();
    for (int i = 1; i <= 25; ++i)
        DrawBuffer(3, static_cast<float>(i) / 100);
    EXPECT_EQ(ps.CurveCount, 24);
    EXPECT_EQ(GetY(doc.surface, kLines, 24, 1), static_cast<double>(0.24F));
    EXPECT_THAT(Messages(), testing::ElementsAre("WARNING|Maximum  24 curves possible\r\n"
                                                 "Delete existing curves"));
    EXPECT_EQ(ps.CurvesToDraw, 1) << "the curve is still waiting";
    EXPECT_EQ(scripted.waitDepth, 0);
    FuKurveLoeschen(ps, doc, 0);
    EXPECT_EQ(ps.CurveCount, 0);
    EXPECT_EQ(GetSeries(doc.surface, kLines, 7).display, SeriesDisplay::Excluded);
    DrawBuffer(3);
    EXPECT_EQ(doc.CurveSlot, 1);
}

TEST_F(Curves, WithoutPointsGiveTheCountBackAndHarmNoOther) {
    OpenForBuffers();
    DrawBuffer(10);
    DrawBuffer(0);
    EXPECT_EQ(ps.CurveCount, 1);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 1), 10);
    DrawBuffer(4);
    EXPECT_EQ(doc.CurveSlot, 3) << "the slot of the empty draw stays taken";
}

TEST_F(Curves, CanBeToldApartFromTheStart) {
    ps.AddCurves = true;
    DrawModel(2);
    for (const double k : {0.05, 0.1}) {
        bool err = false;
        ps.k[1] = k;
        calc_diagram_function(ps, 2, ps.tMax, err);
        GrafZentrale(ps, doc);
        cmdDraw_Click(ps, doc);
    }
    const char* const names[] = {"c(A), k1 = 0.02", "c(P), k1 = 0.02", "c(A), k1 = 0.05",
                                 "c(P), k1 = 0.05", "c(A), k1 = 0.1",  "c(P), k1 = 0.1"};
    std::vector<LineStyle> looks;
    for (int slot = 1; slot <= 6; ++slot) {
        EXPECT_EQ(LabelOf(slot), names[slot - 1]);
        EXPECT_EQ(GetSeriesLabel(doc.surface, kLines, slot), names[slot - 1]);
        looks.push_back(GetLineStyle(doc.surface, kLines, slot));
        EXPECT_EQ(looks.back().pattern, looks[(slot - 1) % 2].pattern)
            << "a species keeps its dash";
        EXPECT_EQ(std::ranges::count(looks, looks.back()), 1) << slot;
    }
    EXPECT_NE(looks[0].pattern, looks[1].pattern) << "also without colours";
    SetText(doc.txtLabel(3), "mine");
    cmdDelKurv_Click(ps, doc);
    FuKurveLoeschen(ps, doc, 1);
    FuKurveLoeschen(ps, doc, 2);
    ps.k[1] = 0.2;
    bool err = false;
    calc_diagram_function(ps, 2, ps.tMax, err);
    GrafZentrale(ps, doc);
    cmdDraw_Click(ps, doc);
    EXPECT_EQ(LabelOf(3), "mine") << "what the user wrote stays";
    EXPECT_EQ(LabelOf(1), "c(A), k1 = 0.2");
}

TEST_F(Curves, HaveTheirLabelsWhereTheyAreFarthestApart) {
    OpenForBuffers();
    ps.Frame.xMax = 300;
    ps.Frame.yMax = 1;
    FuKoordSetzen(ps.Frame, doc.surface);
    const auto ramp = [&](float upTo) { // apart at the end only
        DrawBuffer(301, 0);
        PointBuffer curve(302);
        curve[0].x = 301;
        for (int i = 1; i <= 301; ++i) {
            const float x = static_cast<float>(i - 1);
            curve[static_cast<std::size_t>(i)] = {x, x < 150 ? 0.1F : 0.1F + (x - 150) * upTo};
        }
        FuKurveZeichnen(ps, doc, doc.CurveSlot, curve);
    };
    ramp(0.001F);
    ramp(0.005F);
    DrawBuffer(301, 0.9F);
    for (const int slot : {1, 2})
        EXPECT_GT(GetLabel(doc.surface, slot).point, 200) << slot;
    EXPECT_EQ(doc.scrShiftLab(2).value, GetLabel(doc.surface, 2).point);
    Move(doc.scrShiftLab(2), 30);
    DrawBuffer(301, 0.5F);
    EXPECT_EQ(LabelPosition(doc.surface, 2)->x, 29) << "moved by hand: it stays";
}

TEST_F(Curves, OutsideTheFrameAreWarnedOf) {
    SetRows({{.t = 1, .cA = 1}});
    Open(kKindPoints);
    DrawBuffer(3, 0.5F);
    EXPECT_THAT(Messages(), testing::IsEmpty()) << "the caller's own curve lies inside";
    DrawBuffer(3, 50);
    EXPECT_THAT(Messages(), testing::ElementsAre("WARNING|Curve outside the actual coordinates\r\n"
                                                 "\r\nEnlarge the coordinates"));
    EXPECT_EQ(ps.CurveCount, 2) << "it stays drawn";
}

TEST_F(Curves, OfResidenceTimesWaitForTheirCaller) {
    DrawModel(7);
    UnloadForm(ps.desktop, doc);
    ps.DiagramKind = kKindResidenceFirst;
    GrafZentrale(ps, doc);
    EXPECT_EQ(ps.CurveCount, 0) << "what an earlier diagram left is not shown";
    DrawBuffer(50, 0.05F);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 1), 50);
    EXPECT_THAT(Messages(), testing::IsEmpty());
}

TEST_F(Curves, OfStraightLinesStandWithTheirPointsAndGiveK) {
    SetRows({{.t = 0, .cA = 1}, {.t = 10, .cA = 0.5}, {.t = 20, .cA = 0.25}});
    ps.ModelId = 2;
    Open(kKindFirstOrder);
    EXPECT_EQ(GetPointCount(doc.surface, kPoints, 1), 3);
    EXPECT_NEAR(ps.k[1], std::log(2) / 10, 1e-6);
    EXPECT_TRUE(doc.StatusBar2.text.starts_with("Result:   k =  0.0693"));
    SetRows({{.T = 300, .k = 1}, {.T = 310, .k = 0}, {.T = 320, .k = 2}});
    Open(kKindArrhenius);
    EXPECT_TRUE(doc.StatusBar2.toolTip.starts_with("1 row was left out"));
    // an error of the arithmetic leaves k and draws nothing
    SetRows({{.t = 1, .cA = 1, .cB = 0.5}, {.t = 2, .cA = 0.8, .cB = 0.3}});
    ps.ModelId = 4;
    ps.k[1] = 0.125;
    Open(kKindMixedSecondOrder);
    EXPECT_THAT(Messages(), testing::ElementsAre("Aborted|Critical error occured:\r\nDivision by "
                                                 "zero\r\nMessage from CalcCurve"));
    EXPECT_EQ(ps.k[1], 0.125);
    EXPECT_EQ(ps.CurveCount, 0);
    EXPECT_EQ(scripted.waitDepth, 0);
}

TEST_F(Curves, LosePointsOneByOneWhenTheUserSaysSo) {
    OpenForBuffers();
    DrawBuffer(4);
    scripted.answers = {Answer::No, Answer::Yes};
    FuPunktLoeschen(ps, doc, 1, 2);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 1), 4);
    FuPunktLoeschen(ps, doc, 1, 2);
    EXPECT_EQ(GetSeries(doc.surface, kLines, 1).x, (std::vector<double>{0, 2, 3}));
    EXPECT_EQ(scripted.boxes[0].text,
              "(Note: Right-click on a curve\r\nopens the curve-design window)\r\n\r\n"
              "point x = 1,  y = .5\r\n Really delete?\r\n\r\n");
    EXPECT_EQ(doc.scrShiftLab(1).maximum, 3);
}

TEST_F(Curves, TakeTheirStyleFromThePanelAndGiveItBack) {
    OpenForBuffers();
    ps.PresetColor = kRed;
    DrawBuffer(4);
    ps.PresetColor = 0x0000FF;
    DrawBuffer(4);
    EXPECT_EQ(GetLineStyle(doc.surface, kLines, 1).colour, kRed);
    Choose(doc.cmbKStil(2), 0);
    EXPECT_EQ(GetSymbol(doc.surface, kLines, 2).shape, SymbolShape::Dot);
    Choose(doc.cmbKStil(2), 3);
    EXPECT_EQ(GetSymbol(doc.surface, kLines, 2).shape, SymbolShape::Hidden);
    Move(doc.UpDown1_KBreite(2), 5);
    EXPECT_EQ(GetLineStyle(doc.surface, kLines, 2), (LineStyle{LinePattern::Dashed, 5, 0x0000FF}));
    doc.cmbKStil(2).index = 1;
    FuKurveLoeschen(ps, doc, 1);
    mnuKurvenDesign_Click(ps, doc);
    EXPECT_EQ(doc.tabKurven.selected, 1) << "the first taken slot";
    EXPECT_EQ(doc.cmbKStil(2).index, 3) << "read back from the series";
    EXPECT_EQ(doc.cmdKurvenFarbe(1).backColour, 0x0000FFU) << "a free slot shows the preset";
    FuKurveLoeschen(ps, doc, 2);
    EXPECT_FALSE(doc.fraKurven.visible) << "the last curve takes the panel with it";
    ps.ManualBuf = {{2, 0}, {1, 0.1F}, {5, 0.2F}};
    Press(doc.cmdManuKurve);
    EXPECT_EQ(GetSeries(doc.surface, kLines, 1).x, (std::vector<double>{1, 5}));
}

} // namespace
} // namespace zorvant
