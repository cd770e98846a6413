// The diagram window: load, menus, legend, labels, frame, mouse, unload.
#include "fixture.h"

namespace zorvant {
namespace {

struct Document : DiagramTest {};

TEST_F(Document, OpensWithOneRepaint) {
    const std::uint64_t before = doc.surface.revision;
    DrawModel(7);
    EXPECT_EQ(doc.surface.revision, before + 1);
    EXPECT_TRUE(IsFormLoaded(ps.desktop, "frmZGraph2D"));
    EXPECT_EQ(doc.surface.header.text, ps.Frame.Header);
    const PlotAxis& y = GetAxis(doc.surface, AxisId::Y);
    EXPECT_EQ(y.title, "c(A), c(B), c(C), c(P)/ (mol/L)");
    EXPECT_EQ(GetAxis(doc.surface, AxisId::Y2).max, y.max);
    EXPECT_EQ(doc.coord(2).text, " 100");
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

    ps.DiagramKind = kKindResidenceFirst;
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
         {Row{kKindFitPoints, 2, false, false}, Row{kKindMixedSecondOrder, 4, true, true},
          Row{kKindFirstOrder, 2, true, false}, Row{kKindEyring, 2, false, false},
          Row{5, 5, true, false}, Row{10, 10, true, true}, Row{18, 18, true, false},
          Row{18 + kRateKinds, 18, true, true}, Row{kKindResidenceFirst, 2, false, false}}) {
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

// --- legend and labels

TEST_F(Document, ShowsTheLegendUnderManyNamesAsOne) {
    DrawModel(2);
    ASSERT_FALSE(doc.surface.legend.visible);
    Press(doc.mnuAddLegend);
    EXPECT_TRUE(doc.surface.legend.visible && doc.mnuDelLegendZeile.enabled);
    EXPECT_TRUE(doc.chkLegend.checked && doc.chkLegend1(24).checked && doc.chkLegend2(7).checked);
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
    EXPECT_THAT(Messages(),
                testing::ElementsAre("Execution not possible|No legend texts given\r\n\r\n"
                                     "=> Design curve\r\n=> Design experimental points"));
}

TEST_F(Document, ShowsAndHidesLabels) {
    DrawModel(2);
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
    EXPECT_EQ(GetLabel(doc.surface, 28).font, (FontChoice{"ARIAL", 11, true, true}));
    doc.screenWidth = 640;
    DrawModel(2);
    EXPECT_EQ(GetLabel(doc.surface, 1).font.size, 9) << "smaller on a narrow screen";
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

// --- mouse

TEST_F(Document, ReadsOutWhatThePointerIsOver) {
    SetRows({{.t = 50, .cA = 0.7}});
    ps.WithExpPoints = true;
    DrawModel(2);
    LayOut();
    doc.surface.layout.header = {50, 0, 300, 15};
    doc.surface.layout.legend = {300, 30, 40, 40};
    ShowLegend(doc, true);
    const double y = GetY(doc.surface, kLines, 1, 101);
    struct Row {
        DataPoint at;
        std::string text;
        ChartPointer pointer;
    };
    for (const Row& row :
         {Row{PixelOf(50, y), "  X =  50;      Y = " + GeneralText(y), ChartPointer::Curve},
          Row{PixelOf(50, 0.7), "  X =  50;      Y =  0.7", ChartPointer::Point},
          Row{PixelOf(50, 0.95), " right click = Design", ChartPointer::Default},
          Row{{100, 5}, "  right click = edit, shift text", ChartPointer::Move},
          Row{{310, 40}, "  right-click = edit, shift legend", ChartPointer::Move}}) {
        MouseMove(ps, doc, row.at.x, row.at.y);
        EXPECT_EQ(doc.lblMausPos.text, row.text);
        EXPECT_EQ(doc.pointer, row.pointer) << row.text;
    }
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
    scripted.answers = {Answer::Yes};
    MouseDown(ps, doc, MouseButton::Left, at.x, at.y);
    EXPECT_EQ(scripted.boxes.size(), 1U);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 1), 200);
    doc.fraTabs.visible = true;
    MouseDown(ps, doc, MouseButton::Left, PixelOf(50, 0.95).x, PixelOf(50, 0.95).y);
    EXPECT_FALSE(doc.fraTabs.visible);
}

TEST_F(Document, TellsWhatKeptItFromOpening) {
    host().showForm = [this](Form& form) {
        if (&form == &doc)
            throw std::runtime_error("no display");
    };
    DrawModel(2);
    ASSERT_EQ(scripted.boxes.size(), 1U);
    EXPECT_EQ(scripted.boxes[0].title, "message from Sub GrafZentrale");
    EXPECT_TRUE(scripted.boxes[0].text.starts_with("error occured:no display\r\n\r\n"));
    EXPECT_EQ(doc.surface.batchDepth, 0);
}

} // namespace
} // namespace zorvant
