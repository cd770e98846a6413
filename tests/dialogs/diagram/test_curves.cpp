// Curves of every kind, and the 24 slots they stand in.
#include "fixture.h"

namespace zorvant {
namespace {

struct Curves : Diagram {
    Curves() {
        ps.c0 = {0, 1, 0.8, 0.1, 0.05, 0.02};
        ps.k = {0, 0.03, 0.01, 0.02};
        ps.tMax = 100;
    }
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
        ps.DiagramKind = 114;
        GrafZentrale(ps, doc);
        ps.Frame.xMax = 1000;
    }
};

TEST_F(Curves, ShowEverySpeciesOfEveryModelInItsOrder) {
    constexpr const char* kOrder[] = {"",        "A P",     "A P",   "A P",     "A B P",    "A P",
                                      "A C P",   "A B C P", "A P",   "A B C P", "E S ES P", "A P Q",
                                      "A B P",   "A B C P", "A C P", "A C P",   "A P Q",    "A B P",
                                      "A B C P", "A B P Q", "A P"};
    for (int model = 1; model <= kModels; ++model)
        for (const bool rates : {false, true}) {
            DrawModel(model, rates);
            std::stringstream names(kOrder[model]);
            int slot = 0;
            for (std::string name; names >> name;) {
                ++slot;
                EXPECT_EQ(LabelOf(slot), (rates ? "r(" : "c(") + name + ") ") << model;
                EXPECT_EQ(doc.txtLegendCurves(slot).text, LabelOf(slot));
                EXPECT_EQ(GetSeriesLabel(doc.surface, kLines, slot), LabelOf(slot));
                int species = 1;
                while (name != SpeciesName(model, species))
                    ++species;
                ASSERT_EQ(GetPointCount(doc.surface, kLines, slot), 201) << model;
                for (const int i : {0, 1, 77, 200}) {
                    const auto at = static_cast<std::size_t>(i);
                    const double y =
                        rates ? static_cast<double>(rSim(ps, species)[at]) : cSim(ps, species)[at];
                    EXPECT_EQ(GetX(doc.surface, kLines, slot, i + 1),
                              static_cast<double>(static_cast<float>(ps.tSim[at])));
                    EXPECT_EQ(GetY(doc.surface, kLines, slot, i + 1),
                              static_cast<double>(static_cast<float>(y)))
                        << model << name;
                }
            }
            EXPECT_EQ(ps.CurveCount, slot) << model;
            EXPECT_EQ(ps.CurvesToDraw, 0);
        }
    EXPECT_THAT(Messages(), testing::IsEmpty());
}

TEST_F(Curves, OfSaturationAreOneWithoutName) {
    ps.MMDiagram = true;
    ps.KM = 1;
    DrawModel(10);
    EXPECT_EQ(ps.CurveCount, 1);
    EXPECT_EQ(LabelOf(1), "");
    EXPECT_EQ(GetX(doc.surface, kLines, 1, 201), 20);
    EXPECT_NEAR(GetY(doc.surface, kLines, 1, 201), 20.0 / 21, 1e-7);
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
    EXPECT_EQ(GetAxis(doc.surface, AxisId::X).max, 200);
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

TEST_F(Curves, OfNonIsothermalFitsAreOneForEachTemperature) {
    ps.FitMode = 6;
    ps.ModelId = 2;
    ps.Temperatures = {0, 298.15F, 1310};
    ps.nTemperatures = 2;
    DrawModel(2);
    ps.CurvesToDraw = 1;
    cmdDraw_Click(ps, doc);
    EXPECT_EQ(ps.CurveCount, 2);
    EXPECT_EQ(LabelOf(1), "T/K = 298.15");
    EXPECT_EQ(LabelOf(2), "T/K = 1310");
}

TEST_F(Curves, ReuseTheLowestFreeSlot) {
    OpenForBuffers();
    for (int i = 0; i < 3; ++i)
        DrawBuffer(10);
    FuKurveLoeschen(ps, doc, 2);
    EXPECT_EQ(ps.CurveCount, 2);
    EXPECT_FALSE(doc.tabKurven.pages[1].visible);
    EXPECT_EQ(GetSeries(doc.surface, kLines, 2).display, SeriesDisplay::Hidden);
    FuKurveLoeschen(ps, doc, 2);
    EXPECT_EQ(ps.CurveCount, 2) << "a free slot has nothing to delete";
    DrawBuffer(5);
    EXPECT_EQ(doc.CurveSlot, 2);
    EXPECT_EQ(doc.tabKurven.pages[1].text, "K. 2");
    EXPECT_EQ(GetSeries(doc.surface, kLines, 2).display, SeriesDisplay::Shown);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 2), 5);

    doc.tabKurven.selected = 2;
    cmdDelKurv_Click(ps, doc);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 3), 0) << "the number comes from the caption";
    mnuDelete_Click(doc);
    EXPECT_TRUE(doc.mnuSubDelKurv(0).visible);
    EXPECT_TRUE(doc.mnuSubDelKurv(2).visible);
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
    EXPECT_EQ(doc.CurveSlot, 1);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 1), 10);
    DrawBuffer(4);
    EXPECT_EQ(doc.CurveSlot, 3) << "the slot of the empty draw stays taken";
}

TEST_F(Curves, SpreadTheirLabels) {
    OpenForBuffers();
    ps.Frame.xMax = 300;
    for (const int point : {196, 142, 88, 34, 1, 1}) {
        DrawBuffer(301);
        const int slot = doc.CurveSlot;
        EXPECT_EQ(doc.scrShiftLab(slot).value, point) << slot;
        EXPECT_EQ(GetLabel(doc.surface, slot).point, point);
        EXPECT_EQ(doc.scrShiftLab(slot).maximum, 301);
        EXPECT_TRUE(LabelPosition(doc.surface, slot));
    }
    Move(doc.scrShiftLab(2), 300);
    EXPECT_EQ(LabelPosition(doc.surface, 2)->x, 299);
}

TEST_F(Curves, OutsideTheFrameAreWarnedOf) {
    ps.DiagramKind = -1;
    SetRows({{.t = 1, .cA = 1}});
    Open(-1);
    const std::string warning =
        "WARNING|Curve outside the actual coordinates\r\n\r\nEnlarge the coordinates";
    DrawBuffer(3, 0.5F);
    EXPECT_THAT(Messages(), testing::IsEmpty()) << "the caller's own curve lies inside";
    DrawBuffer(3, 50);
    EXPECT_THAT(Messages(), testing::ElementsAre(warning));
    EXPECT_EQ(ps.CurveCount, 2) << "it stays drawn";
}

TEST_F(Curves, OfATracerRunFromZeroToAHundredPercent) {
    ps.TracerBuf = {4, 0.1F, 0.4F, 0.2F, 0.05F};
    ps.DiagramKind = 110;
    GrafZentrale(ps, doc);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 1), 4);
    EXPECT_EQ(GetX(doc.surface, kLines, 1, 1), 25);
    EXPECT_EQ(GetX(doc.surface, kLines, 1, 4), 100);
    EXPECT_THAT(Messages(), testing::IsEmpty());

    // counts of one, none, more than there are, and no number at all
    for (const float count : {1.0F, 0.0F, 9.0F, NAN}) {
        UnloadForm(ps.desktop, doc);
        scripted.boxes.clear();
        ps.TracerBuf = {count, 0.5F};
        GrafZentrale(ps, doc);
        EXPECT_EQ(scripted.boxes.size(), 1U) << "one value is no signal";
    }
}

TEST_F(Curves, OfResidenceTimesWaitForTheirCaller) {
    DrawModel(7);
    UnloadForm(ps.desktop, doc);
    ps.DiagramKind = 112;
    GrafZentrale(ps, doc);
    EXPECT_EQ(ps.CurveCount, 0) << "what an earlier diagram left is not shown";
    DrawBuffer(50, 0.05F);
    EXPECT_EQ(ps.CurveCount, 1);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 1), 50);
    EXPECT_THAT(Messages(), testing::IsEmpty());
}

TEST_F(Curves, OfBloodAlcoholAreGivenPerMass) {
    ps.NPoints = 3;
    ps.tSim = {0, 1, 2, 3};
    ps.cSimA = {0, 1.055, 0.5275, 0.211};
    ps.BacTimeMax = 3;
    ps.Memory.RngC = {0, 2};
    ps.DiagramKind = 500;
    GrafZentrale(ps, doc);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 1), 4);
    EXPECT_EQ(GetY(doc.surface, kLines, 1, 2), 1);
    EXPECT_EQ(GetY(doc.surface, kLines, 1, 3), 0.5);
}

TEST_F(Curves, ThroughMeasuredPointsStartAtZeroWhateverTheFrame) {
    SetRows({{.t = 0, .cB = 0},
             {.t = 1, .cB = 3, .exclude = -1},
             {.t = 2, .cB = 4},
             {.t = 4, .cB = 2},
             {.t = 6, .cB = 1}});
    ps.SingleSpecies = 2;
    ps.Memory.RngT = {2, 6};
    ps.Memory.RngC = {0, 5};
    ps.DiagramKind = 100;
    GrafZentrale(ps, doc);
    const PlotSeries& curve = GetSeries(doc.surface, kLines, 1);
    EXPECT_EQ(curve.x.front(), 0);
    EXPECT_NEAR(static_cast<double>(curve.x.size()), 6 / (4.0 / 300 * 0.5) + 1, 1);
    // a step is 1/150: the knots are points of the curve, switched-off rows among them
    for (const auto& [t, c] : {std::pair(0, 0.0), std::pair(1, 3.0), std::pair(4, 2.0)})
        EXPECT_NEAR(curve.y[static_cast<std::size_t>(t * 150)], c, 1e-3) << t;

    // a frame far from 0 must not take for ever
    ps.Memory.RngT = {1e6F, 1e6F + 1};
    UnloadForm(ps.desktop, doc);
    GrafZentrale(ps, doc);
    EXPECT_LE(GetPointCount(doc.surface, kLines, 1), kCurveBufferPoints + 1);

    scripted.boxes.clear();
    SetRows({{.t = 1, .cB = 3}, {.t = 2, .cB = 4}});
    UnloadForm(ps.desktop, doc);
    GrafZentrale(ps, doc);
    ASSERT_EQ(scripted.boxes.size(), 1U) << "too few for a spline";
    EXPECT_EQ(scripted.boxes[0].title, "Aborted");
}

TEST_F(Curves, ThatAreNotFiniteAreAnErrorAndNotDrawn) {
    DrawModel(2);
    for (const double bad : {double{NAN}, double{INFINITY}, 1e300}) {
        scripted.boxes.clear();
        ps.cSimA[100] = bad;
        ps.CurvesToDraw = 2;
        cmdDraw_Click(ps, doc);
        EXPECT_THAT(Messages(),
                    testing::ElementsAre("Aborted|Critical error occured:\r\nOverflow\r\n"
                                         "Message from CalcCurve"));
        EXPECT_EQ(ps.CurveCount, 2);
        for (int slot = 1; slot <= kCurveSlots; ++slot)
            for (const double y : GetSeries(doc.surface, kLines, slot).y)
                ASSERT_TRUE(std::isfinite(y));
    }
}

TEST_F(Curves, LosePointsOneByOneWhenTheUserSaysSo) {
    OpenForBuffers();
    DrawBuffer(4);
    scripted.answers = {Answer::No, Answer::Yes};
    FuPunktLoeschen(ps, doc, 1, 2);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 1), 4);
    FuPunktLoeschen(ps, doc, 1, 2);
    EXPECT_EQ(GetSeries(doc.surface, kLines, 1).x, (std::vector<double>{0, 2, 3}));
    EXPECT_EQ(scripted.boxes[0].title, "Delete a curve point");
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
    EXPECT_EQ(GetLineStyle(doc.surface, kLines, 2).pattern, LinePattern::None);
    EXPECT_EQ(GetSymbol(doc.surface, kLines, 2).shape, SymbolShape::Dot);
    Choose(doc.cmbKStil(2), 3);
    EXPECT_EQ(GetSymbol(doc.surface, kLines, 2).shape, SymbolShape::Hidden);
    Move(doc.UpDown1_KBreite(2), 5);
    EXPECT_EQ(GetLineStyle(doc.surface, kLines, 2), (LineStyle{LinePattern::Dashed, 5, 0x0000FF}));
    EXPECT_EQ(doc.Label39(2).text, "5");
    scripted.colours = {0x00FF00, std::nullopt};
    Press(doc.cmdKurvenFarbe(1));
    Press(doc.cmdKurvenFarbe(1));
    doc.cmbKStil(2).index = 1;
    FuKurveLoeschen(ps, doc, 1);
    mnuKurvenDesign_Click(ps, doc);
    EXPECT_TRUE(doc.fraKurven.visible);
    EXPECT_EQ(doc.tabKurven.selected, 1) << "the first taken slot";
    EXPECT_FALSE(doc.tabKurven.pages[0].visible);
    EXPECT_EQ(doc.cmbKStil(2).index, 3) << "read back from the series";
    EXPECT_EQ(doc.cmdKurvenFarbe(1).backColour, 0x0000FFU) << "a free slot shows the preset";
    FuKurveLoeschen(ps, doc, 2);
    EXPECT_FALSE(doc.fraKurven.visible) << "the last curve takes the panel with it";
    EXPECT_FALSE(doc.mnuDelKurv.enabled);
}

TEST_F(Curves, FromTheEditorTakeASlot) {
    OpenForBuffers();
    ps.ManualBuf = {{2, 0}, {1, 0.1F}, {5, 0.2F}};
    Press(doc.cmdManuKurve);
    EXPECT_EQ(ps.CurveCount, 1);
    EXPECT_EQ(GetSeries(doc.surface, kLines, 1).x, (std::vector<double>{1, 5}));
    ps.ManualBuf[0].x = 9e9F;
    Press(doc.cmdManuKurve);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 2), 2) << "a count that lies reads nothing else";
}

} // namespace
} // namespace zorvant
