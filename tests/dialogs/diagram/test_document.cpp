// The diagram window: load, menus, legend, labels, frame, mouse, unload.
#include "fixture.h"

namespace zorvant {
namespace {

struct Document : Diagram {
    Document() {
        ps.c0 = {0, 1, 0.8, 0, 0, 0};
        ps.k = {0, 0.02, 0.01, 0.01};
        ps.tMax = 100;
    }
};

TEST_F(Document, OpensWithOneRepaint) {
    const std::uint64_t before = doc.surface.revision;
    DrawModel(7);
    EXPECT_EQ(doc.surface.revision, before + 1);
    EXPECT_EQ(ps.CurveCount, 4);
    EXPECT_TRUE(IsFormLoaded(ps.desktop, "frmZGraph2D"));
    EXPECT_EQ(doc.surface.header.text, ps.Frame.Header);
    const PlotAxis& y = GetAxis(doc.surface, AxisId::Y);
    EXPECT_EQ(y.title, "c(A), c(B), c(C), c(P)/ (mol/L)");
    EXPECT_EQ(y.titleRotation, TextRotation::Vertical);
    EXPECT_EQ(y.gridPattern, LinePattern::Dotted);
    EXPECT_FALSE(GetAxis(doc.surface, AxisId::Y2).visible);
    EXPECT_EQ(GetAxis(doc.surface, AxisId::Y2).max, y.max);
    EXPECT_EQ(GetSeriesCount(doc.surface, kLines), 28);
    EXPECT_EQ(GetSeriesCount(doc.surface, kPoints), 7);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, kFrameSeries), 2);
    EXPECT_EQ(doc.coord(2).text, " 100");
    EXPECT_EQ(doc.txtXGridValue.text, " 10");
    EXPECT_FALSE(doc.txtXGridValue.enabled);
}

TEST_F(Document, TakesItsPlaceOnTheScreen) {
    ps.DiagramLeft = 300;
    ps.DiagramTop = 700;
    DrawModel(2);
    EXPECT_EQ(doc.height, 800 * 15 * 7 / 10);
    EXPECT_EQ(doc.width, 1280 * 15 * 62 / 100);
    EXPECT_EQ(doc.left, 300);
    EXPECT_EQ(doc.top, 700);
    doc.left = 450;
    UnloadForm(ps.desktop, doc);
    EXPECT_EQ(ps.DiagramLeft, 450);
    EXPECT_EQ(ps.CurveCount, 0);

    ps.DiagramKind = 112;
    GrafZentrale(ps, doc);
    EXPECT_EQ(doc.width, 1280 * 15 * 42 / 100);
    EXPECT_EQ(doc.left + doc.width, 1280 * 15) << "flush right";
    UnloadForm(ps.desktop, doc);
    EXPECT_EQ(ps.DiagramLeft, 450) << "the narrow layout is not remembered";
}

TEST_F(Document, ForgetsWhatTheLastOneHeld) {
    DrawModel(7);
    ShowLegend(doc, true);
    SetFooter(doc.surface, "note");
    Press(doc.cmdYLog);
    SetLabelText(doc.surface, 9, "mine");
    DrawModel(2);
    EXPECT_EQ(ps.CurveCount, 2);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 3), 0);
    EXPECT_EQ(doc.surface.footer.text, "");
    EXPECT_FALSE(GetAxisLog(doc.surface, AxisId::Y));
    EXPECT_FALSE(doc.surface.legend.visible);
    EXPECT_EQ(GetLabel(doc.surface, 9).text, "9");
}

TEST_F(Document, OffersHalfLivesWhereThereAreSome) {
    struct Row {
        int kind, model;
        bool a, b;
    };
    for (const Row& row :
         {Row{-9, 2, false, false}, Row{-8, 4, true, true}, Row{-7, 2, true, false},
          Row{-5, 2, true, false}, Row{-4, 2, false, false}, Row{2, 2, true, false},
          Row{4, 4, true, true}, Row{5, 5, true, false}, Row{10, 10, true, true},
          Row{18, 18, true, false}, Row{19, 19, true, true}, Row{68, 18, true, true},
          Row{70, 20, true, false}, Row{112, 2, false, false}}) {
        UnloadForm(ps.desktop, doc);
        ps.ModelId = row.model;
        ps.DiagramKind = row.kind;
        GrafZentrale(ps, doc);
        EXPECT_EQ(doc.mnuHalbA.enabled, row.a) << row.kind;
        EXPECT_EQ(doc.mnuHalbB.enabled, row.b) << row.kind;
        EXPECT_EQ(doc.mnuHalbB.text, row.model == 10 ? "Half-li&fe of S" : "Half-li&fe of B");
    }
    ps.IsCSTR = true;
    DrawModel(4);
    EXPECT_FALSE(doc.mnuHalbA.enabled || doc.mnuHalbB.enabled);
}

TEST_F(Document, OffersPointsAndTheCalculatorByKind) {
    SetRows({{.t = 1, .cA = 1}});
    DrawModel(2);
    EXPECT_TRUE(doc.mnuAddPunkte.enabled);
    EXPECT_TRUE(doc.cmdSingleCalc.visible);
    DrawModel(2, true);
    EXPECT_FALSE(doc.mnuAddPunkte.enabled);
    ps.IsCascade = true;
    DrawModel(2);
    EXPECT_FALSE(doc.cmdSingleCalc.visible);
    ps.IsCascade = false;
    Open(-5);
    EXPECT_FALSE(doc.cmdSingleCalc.visible);
    SetRows({});
    DrawModel(2);
    EXPECT_FALSE(doc.mnuAddPunkte.enabled);
}

// --- legend and labels

TEST_F(Document, ShowsTheLegendUnderManyNamesAsOne) {
    DrawModel(2);
    ASSERT_FALSE(doc.surface.legend.visible);
    Press(doc.mnuAddLegend);
    EXPECT_TRUE(doc.surface.legend.visible);
    EXPECT_TRUE(doc.chkLegend.checked && doc.chkLegend1(24).checked && doc.chkLegend2(7).checked);
    EXPECT_TRUE(doc.mnuDelLegend.enabled && doc.mnuDelLegendZeile.enabled);
    EXPECT_FALSE(doc.mnuAddLegend.enabled);
    Press(doc.chkLegend1(3), false);
    EXPECT_FALSE(doc.surface.legend.visible || doc.chkLegend2(7).checked);
    Press(doc.chkLegend2(2), true);
    EXPECT_TRUE(doc.chkLegend.checked);
    Press(doc.mnuDelLegend);
    EXPECT_FALSE(doc.chkLegend.checked);

    SetText(doc.txtLegendCurves(1), "");
    EXPECT_EQ(LegendLines(doc.surface), (std::vector<LegendLine>{{kLines, 2}}));
    SetText(doc.txtLegendCurves(5), "no curve here");
    EXPECT_EQ(GetSeriesLabel(doc.surface, kLines, 5), "");
    SetText(doc.txtLegendCurves(2), "");
    Press(doc.mnuAddLegend);
    EXPECT_FALSE(doc.surface.legend.visible);
    Press(doc.mnuDelLegendZeile); // off without a legend
    EXPECT_THAT(Messages(),
                testing::ElementsAre("Execution not possible|No legend texts given\r\n\r\n"
                                     "=> Design curve\r\n=> Design experimental points"));
    EXPECT_EQ(doc.txtLegendPoints(3).toolTip, " without text no entry in the legend! ");
}

TEST_F(Document, ShowsAndHidesLabels) {
    DrawModel(2);
    EXPECT_TRUE(doc.mnuDelLabels.enabled);
    EXPECT_TRUE(doc.chkEinzelLabelSichtbar(2).checked);
    SetText(doc.txtLabel(2), "product");
    EXPECT_EQ(GetLabel(doc.surface, 2).text, "product");
    Press(doc.chkEinzelLabelSichtbar(2), false);
    EXPECT_FALSE(LabelPosition(doc.surface, 2));
    Press(doc.mnuDelLabels);
    EXPECT_FALSE(LabelPosition(doc.surface, 1));
    EXPECT_TRUE(doc.mnuAddLabels.enabled && !doc.mnuDelLabels.enabled);
    Press(doc.mnuAddLabels);
    EXPECT_TRUE(LabelPosition(doc.surface, 1) && LabelPosition(doc.surface, 2));
    EXPECT_FALSE(LabelPosition(doc.surface, 3)) << "no curve, no label";
    Press(doc.chkLabelNotVisible, true);
    EXPECT_FALSE(LabelPosition(doc.surface, 2));

    const PlotLabel& curve = GetLabel(doc.surface, 1);
    EXPECT_EQ(curve.offset, 10);
    EXPECT_EQ(curve.font, (FontChoice{"ARIAL", 10, false, false}));
    const PlotLabel& mark = GetLabel(doc.surface, 28);
    EXPECT_EQ(mark.offset, 3);
    EXPECT_EQ(mark.font, (FontChoice{"ARIAL", 11, true, true}));
    EXPECT_EQ(mark.colours.fore, kRed);
    doc.screenWidth = 640;
    DrawModel(2);
    EXPECT_EQ(GetLabel(doc.surface, 1).font.size, 9);
    EXPECT_EQ(GetAxis(doc.surface, AxisId::X).font.size, 10);
}

TEST_F(Document, DeletesEverythingAndDrawsAgain) {
    SetRows({{.t = 10, .cA = 0.5}});
    ps.WithExpPoints = true;
    DrawModel(2);
    Press(doc.mnuAddLegend);
    SetPoints(doc.surface, kLines, kHalfLifeASeries, {1, 1}, {0, 10000});
    doc.mnuDelHalbAB.enabled = true;
    Press(doc.mnuDelTotal);
    EXPECT_EQ(ps.CurveCount, 0);
    for (const int group : {kLines, kPoints})
        for (int s = 1; s <= GetSeriesCount(doc.surface, group); ++s) {
            const bool spansFrame = group == kLines && s == kFrameSeries;
            EXPECT_EQ(GetPointCount(doc.surface, group, s), spansFrame ? 2 : 0) << group << s;
        }
    EXPECT_FALSE(doc.mnuDelLabels.enabled || doc.mnuDelLegend.enabled ||
                 doc.mnuDelLegendZeile.enabled || doc.mnuDelHalbAB.enabled);
    Press(doc.mnuAddLegend);
    EXPECT_EQ(scripted.boxes.size(), 1U) << "no legend text is left";
    ps.CurvesToDraw = 2;
    cmdDraw_Click(ps, doc);
    Press(doc.mnuAddPunkte);
    EXPECT_EQ(GetSeries(doc.surface, kLines, 1).display, SeriesDisplay::Shown);
    EXPECT_EQ(GetSeries(doc.surface, kPoints, 1).display, SeriesDisplay::Shown);
    EXPECT_TRUE(doc.mnuAddLegend.enabled);
}

TEST_F(Document, OpensItsDesignMenuForWhatThereIs) {
    DrawModel(2);
    doc.fraTabs.visible = true;
    mnuDesign_Click(ps, doc);
    EXPECT_FALSE(doc.fraTabs.visible);
    EXPECT_TRUE(doc.mnuKurvenDesign.enabled);
    EXPECT_FALSE(doc.mnuPunktDesign.enabled);
    SetRows({{.t = 1, .cA = 1}});
    Open(-1);
    mnuDesign_Click(ps, doc);
    EXPECT_FALSE(doc.mnuKurvenDesign.enabled);
    EXPECT_TRUE(doc.mnuPunktDesign.enabled);
}

// --- frame

TEST_F(Document, TakesTypedCoordinates) {
    DrawModel(2);
    Press(doc.mnuCoord);
    EXPECT_TRUE(doc.fraCoordInput.visible);
    EXPECT_EQ(doc.setFocus, &doc.coord(1));
    EXPECT_TRUE(doc.cmdCoord_Esc.isCancel);
    for (const auto& [index, text] :
         {std::pair(1, "5"), std::pair(2, "50abc"), std::pair(3, "-.5"), std::pair(4, "2e0")})
        doc.coord(index).text = text;
    Press(doc.cmdCoord_OK);
    EXPECT_FALSE(doc.fraCoordInput.visible);
    EXPECT_EQ(ps.Frame.xMax, 50.0F) << "digits followed by letters count as the digits";
    EXPECT_EQ(GetAxis(doc.surface, AxisId::Y).min, -0.5);
    EXPECT_EQ(doc.txtXGridValue.text, " 5") << "spacing for the new frame";
    EXPECT_EQ(doc.optScaling.selected, 0);
    EXPECT_EQ(ps.Memory.RngT, (Range{5, 50}));
    UnloadForm(ps.desktop, doc);
    GrafZentrale(ps, doc);
    EXPECT_EQ(ps.Frame.xMin, 5.0F) << "the next diagram of the kind starts there";

    for (const auto& [box, text] : {std::pair(2, "5"), std::pair(4, "-7")}) {
        Press(doc.mnuCoord);
        doc.coord(box).text = text;
        Press(doc.cmdCoord_OK);
        EXPECT_TRUE(doc.fraCoordInput.visible);
        EXPECT_EQ(doc.coord(2).text, " 50");
    }
    EXPECT_EQ(ps.Frame.xMax, 50.0F);
    EXPECT_THAT(Messages(), testing::Each("INPUT ERROR|Lower limit has to be smaller than upper "
                                          "limit."));
    EXPECT_EQ(scripted.boxes.size(), 2U);

    doc.Tabcoord(2).text = "1e99";
    Press(doc.cmdTabCoord_OK);
    EXPECT_TRUE(std::isfinite(ps.Frame.xMax));
    EXPECT_EQ(ps.BacTimeMax, ps.Frame.xMax);
}

TEST_F(Document, MovesThroughTheCoordinateBoxesWithEnter) {
    DrawModel(2);
    for (int i = 1; i <= 4; ++i) {
        int key = 13;
        doc.coord(i).onKeyPress(key);
        EXPECT_EQ(key, 0);
        EXPECT_EQ(doc.setFocus, &doc.coord(i % 4 + 1));
    }
    Press(doc.mnuCoord);
    doc.coord(1).text.clear();
    Type(doc.coord(1), "1,x5");
    EXPECT_EQ(doc.coord(1).text, "1.5");
    Enter(doc.coord(2));
    EXPECT_TRUE(doc.coord(2).selectAll);
    Press(doc.cmdCoord_Esc);
    EXPECT_FALSE(doc.fraCoordInput.visible);
}

TEST_F(Document, TakesSpacingsByHand) {
    DrawModel(2);
    SetText(doc.txtXGridValue, "3");
    EXPECT_EQ(GetAxis(doc.surface, AxisId::X).grid.value, 10) << "the box is off";
    doc.txtXGridValue.text = " 10";
    Press(doc.optScaling, 1);
    EXPECT_TRUE(doc.txtXGridValue.enabled);
    EXPECT_FALSE(GetAxis(doc.surface, AxisId::X).grid.automatic);
    EXPECT_TRUE(GetAxis(doc.surface, AxisId::X).number.automatic);
    SetText(doc.txtXGridValue, "12,5");
    EXPECT_EQ(doc.txtXGridValue.text, "12.5");
    EXPECT_EQ(MarksOf(doc.surface, AxisId::X).grid.size(), 9U);
    for (const char* refused : {"0", "-4", "", "x"}) {
        SetText(doc.txtXGridValue, refused);
        EXPECT_EQ(GetAxis(doc.surface, AxisId::X).grid.value, 12.5);
    }
    SetText(doc.txtYZiffValue, "0.25");
    SetText(doc.txtYTickValue, "0.05");
    EXPECT_EQ(GetAxis(doc.surface, AxisId::Y).number.value, 0.25);
    Press(doc.optScaling, 0);
    EXPECT_EQ(doc.txtXGridValue.text, " 10");
    EXPECT_TRUE(GetAxis(doc.surface, AxisId::Y).number.automatic);
}

TEST_F(Document, TurnsAxesLogarithmicAndBack) {
    DrawModel(2);
    const float yMax = ps.Frame.yMax;
    Press(doc.cmdYLog);
    EXPECT_TRUE(GetAxisLog(doc.surface, AxisId::Y) && GetAxisLog(doc.surface, AxisId::Y2));
    EXPECT_GT(ShownRange(doc.surface, AxisId::Y).min, 0);
    Press(doc.cmdXLog);
    Press(doc.cmdXLog);
    EXPECT_FALSE(GetAxisLog(doc.surface, AxisId::X));
    EXPECT_EQ(ps.Frame.yMax, yMax);
}

// --- mouse

TEST_F(Document, ReadsOutWhatThePointerIsOver) {
    SetRows({{.t = 50, .cA = 0.7}});
    ps.WithExpPoints = true;
    DrawModel(2);
    LayOut();
    doc.surface.layout.header = {50, 0, 300, 15};
    const double x = GetX(doc.surface, kLines, 1, 101), y = GetY(doc.surface, kLines, 1, 101);
    MouseMove(ps, doc, PixelOf(x, y).x, PixelOf(x, y).y);
    EXPECT_EQ(doc.lblMausPosNr.text, " #1");
    EXPECT_EQ(doc.lblMausPos.text, "  X =  50;      Y = " + GeneralText(y));
    EXPECT_EQ(doc.lblMausPos.backColour, kWhite);
    EXPECT_EQ(doc.pointer, ChartPointer::Curve);
    MouseMove(ps, doc, PixelOf(50, 0.7).x, PixelOf(50, 0.7).y);
    EXPECT_EQ(doc.pointer, ChartPointer::Point);
    EXPECT_EQ(doc.lblMausPos.text, "  X =  50;      Y =  0.7");
    MouseMove(ps, doc, PixelOf(50, 0.95).x, PixelOf(50, 0.95).y);
    EXPECT_FALSE(doc.lblMausPosNr.visible);
    EXPECT_EQ(doc.lblMausPos.text, " right click = Design");
    EXPECT_EQ(doc.lblMausPos.backColour, 0xE0E0E0U);
    EXPECT_EQ(doc.pointer, ChartPointer::Default);
    MouseMove(ps, doc, 100, 5);
    EXPECT_EQ(doc.lblMausPos.text, "  right click = edit, shift text");
    EXPECT_EQ(doc.lblMausPos.backColour, 0xC0FFC0U);
    doc.surface.layout.legend = {300, 30, 40, 40};
    ShowLegend(doc, true);
    MouseMove(ps, doc, 310, 40);
    EXPECT_EQ(doc.lblMausPos.text, "  right-click = edit, shift legend");
    MouseMove(ps, doc, 10, 290);
    EXPECT_FALSE(doc.lblMausPos.visible);
}

TEST_F(Document, OpensPanelsByRightClick) {
    SetRows({{.t = 50, .cA = 0.7}});
    ps.WithExpPoints = true;
    DrawModel(2);
    LayOut();
    doc.surface.layout.header = {50, 0, 300, 15};
    const auto click = [&](double x, double y) {
        MouseDown(ps, doc, MouseButton::Right, PixelOf(x, y).x, PixelOf(x, y).y);
    };
    click(100, GetY(doc.surface, kLines, 2, 201));
    EXPECT_TRUE(doc.fraKurven.visible);
    EXPECT_EQ(doc.tabKurven.selected, 1);
    click(50, 0.7);
    EXPECT_TRUE(doc.fraPunkte.visible && !doc.fraKurven.visible);
    EXPECT_EQ(doc.tabPunkte.selected, 0);
    click(50, 0.95);
    EXPECT_TRUE(doc.fraTabs.visible && !doc.fraPunkte.visible);
    MouseDown(ps, doc, MouseButton::Right, 100, 5);
    EXPECT_TRUE(doc.fraSchrift.visible);
    EXPECT_EQ(doc.TextTarget, DiagramText::Header);
    MouseDown(ps, doc, MouseButton::Right, 2, 298);
    EXPECT_TRUE(doc.fraTabs.visible);
    EXPECT_EQ(doc.design.tabSettings.selected, static_cast<int>(SettingsPage::Frame));

    // a curve in slot 24 has a readout but no page
    SetPoints(doc.surface, kLines, 24, {20}, {0.9});
    MouseMove(ps, doc, PixelOf(20, 0.9).x, PixelOf(20, 0.9).y);
    EXPECT_EQ(doc.lblMausPosNr.text, " #24");
    click(20, 0.9);
    EXPECT_FALSE(doc.fraKurven.visible);
}

TEST_F(Document, OffersToDeleteAPointByLeftClick) {
    DrawModel(2);
    LayOut();
    const double y = GetY(doc.surface, kLines, 1, 101);
    const DataPoint at = PixelOf(50, y);
    StartRubberZoom(doc.surface);
    MouseDown(ps, doc, MouseButton::Left, at.x, at.y);
    EXPECT_TRUE(scripted.boxes.empty()) << "not while zooming";
    CancelRubberZoom(doc.surface);
    MouseDown(ps, doc, MouseButton::Left, at.x, at.y);
    EXPECT_EQ(scripted.boxes.size(), 1U);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 1), 200);
    doc.fraTabs.visible = true;
    MouseDown(ps, doc, MouseButton::Left, PixelOf(50, 0.95).x, PixelOf(50, 0.95).y);
    EXPECT_FALSE(doc.fraTabs.visible);
    cmdMsgDelPoint_Click();
    EXPECT_EQ(
        scripted.boxes.back().text,
        "1st) Switch the the style from the curve in question\r\n"
        "     from \"Curve solid\" to \"only single points\"\r\n"
        "2nd) Then click with the LEFT mouse button\r\n     on the curve point to be deleted");
}

TEST_F(Document, TellsWhatKeptItFromOpening) {
    host().showForm = [](Form&) { throw std::runtime_error("no display"); };
    DrawModel(2);
    ASSERT_EQ(scripted.boxes.size(), 1U);
    EXPECT_EQ(scripted.boxes[0].title, "message from Sub GrafZentrale");
    EXPECT_TRUE(scripted.boxes[0].text.starts_with("error occured:no display\r\n\r\n"));
    EXPECT_EQ(doc.surface.batchDepth, 0);
}

} // namespace
} // namespace zorvant
