// The settings panel, the zoom and the walk along curves, on the window's record.
#include "dialogs/diagram/axis_settings.h"
#include "dialogs/diagram/diagram_walk.h"
#include "dialogs/diagram/settings_panel.h"
#include "fixture.h"

namespace zorvant {
namespace {

struct Settings : DiagramTest {
    Settings() {
        DrawModel(2);
        LayOut();
        doc.surface.layout.chartArea = {20, 30, 360, 240};
        doc.surface.layout.margins = {.left = {30}, .right = {10}, .top = {5}, .bottom = {25}};
    }
    DesignControls& design = doc.design;
    PlotSurface& surface = doc.surface;

    const PlotContents& Contents() const { return doc.surface; }
    void Give(std::initializer_list<Colour> colours) {
        scripted.colours.assign(colours.begin(), colours.end());
    }
    void SetFrame(float xMin, float xMax, float yMin, float yMax) {
        ps.Frame.xMin = xMin;
        ps.Frame.xMax = xMax;
        ps.Frame.yMin = yMin;
        ps.Frame.yMax = yMax;
        FuKoordSetzen(ps.Frame, surface);
    }
    void Drag(DataPoint from, DataPoint to) {
        const DataPoint down = PixelOf(from.x, from.y), up = PixelOf(to.x, to.y);
        MouseDown(ps, doc, MouseButton::Left, down.x, down.y);
        MouseMove(ps, doc, up.x, up.y);
        MouseUp(ps, doc, MouseButton::Left, up.x, up.y);
    }
};

TEST_F(Settings, SchemesColourEveryGroundAndWhatStandsOnIt) {
    EXPECT_EQ(surface.chart.back, kWhite) << "white at load";
    struct Row {
        Button& button;
        Colour back, fore;
    };
    for (const Row& row : {Row{design.cmdFullBlack, 0x000000, 0xFFFFFF},
                           Row{design.cmdRandColGrau, 0xD2D2D2, 0x000000},
                           Row{design.cmdFullWhite, 0xFFFFFF, 0x000000}}) {
        const std::uint64_t before = surface.revision;
        Press(row.button);
        EXPECT_EQ(surface.revision, before + 1);
        for (const Colours& colours : {surface.chart, surface.chartArea, surface.plotArea,
                                       surface.header.colours, surface.footer.colours}) {
            EXPECT_EQ(colours.back, row.back);
            EXPECT_EQ(colours.fore, row.fore);
        }
        EXPECT_EQ(GetAxis(surface, AxisId::Y).colour, row.fore);
        // a black curve is seen on any of them, and is black again on white
        EXPECT_EQ(SeenOn(PlotGround(surface), kBlack), row.fore);
    }
}

TEST_F(Settings, ADialogThatIsCancelledChangesNothing) {
    const PlotContents before = Contents();
    const Colour preset = ps.PresetColor;
    for (Button* asks :
         {&design.cmdGitterFarbe, &design.cmdLegFont, &design.cmdLegBColor, &design.cmdLegFColor,
          &design.cmdFontLabel, &design.cmdLabelFColor, &design.cmdLabelBColor,
          &design.cmdRandCol_out, &design.cmdRandCol_in, &design.cmdColor_in, &doc.cmdFarbVorwahl,
          &doc.cmdKurvenFarbe(1), &doc.cmdPunktFarbe(1)}) {
        const Colour swatch = asks->backColour;
        Press(*asks);
        EXPECT_EQ(Contents(), before) << asks->name;
        EXPECT_EQ(asks->backColour, swatch) << asks->name;
        // and with an answer it does something, in one repaint at most
        const std::uint64_t revision = surface.revision;
        Give({0x123456});
        scripted.fonts = {FontChoice{.family = "Serif", .size = 20}};
        Press(*asks);
        EXPECT_TRUE(!(Contents() == before) || ps.PresetColor != preset) << asks->name;
        EXPECT_LE(surface.revision, revision + 1) << asks->name;
        static_cast<PlotContents&>(surface) = before;
        scripted.colours.clear();
        scripted.fonts.clear();
    }
}

TEST_F(Settings, ABackgroundTakesAForegroundThatCanBeRead) {
    Give({0x202020, 0x101030, 0xFFFFE0});
    Press(design.cmdRandCol_in);
    EXPECT_EQ(GetAxis(surface, AxisId::X).colour, kWhite) << "numbers stand on the chart area";
    EXPECT_EQ(surface.header.colours.back, kWhite);
    Press(design.cmdRandCol_out);
    EXPECT_EQ(surface.header.colours.back, 0x101030U) << "the header lay on the chart's white";
    EXPECT_EQ(surface.header.colours.fore, kWhite);
    Press(design.cmdColor_in);
    EXPECT_EQ(surface.plotArea.back, 0xFFFFE0U);
    EXPECT_EQ(surface.plotArea.fore, kBlack);
}

TEST_F(Settings, ASpacingIsTypedAndWhatCannotBeDrawnIsTakenBack) {
    SetText(doc.txtXGridValue, "3");
    EXPECT_EQ(GetAxis(surface, AxisId::X).grid.value, 10) << "the box is off";
    doc.txtXGridValue.text = " 10";
    Press(doc.optScaling, 1);
    SetText(doc.txtXGridValue, "");
    Type(doc.txtXGridValue, "0,5");
    EXPECT_EQ(doc.txtXGridValue.text, "0.5") << "typing passes through 0";
    EXPECT_EQ(GetAxis(surface, AxisId::X).grid, (Spacing{0.5, false}));
    for (const char* refused : {"0", "-3", "abc", "0.04", "1e-300"}) {
        SetText(doc.txtXGridValue, refused);
        EXPECT_EQ(doc.txtXGridValue.text, refused);
        int enter = 13;
        doc.txtXGridValue.onKeyPress(enter);
        EXPECT_EQ(doc.txtXGridValue.text, " 10") << refused;
        EXPECT_EQ(GetAxis(surface, AxisId::X).grid, (Spacing{10, true})) << refused;
    }
}

TEST_F(Settings, ALogarithmicAxisTellsThatItShowsThePositivePart) {
    SetFrame(-5, 100, 0.1F, 1);
    EXPECT_EQ(ChartHint(doc), "");
    Press(doc.cmdXLog);
    Press(doc.cmdYLog);
    EXPECT_EQ(ChartHint(doc), "positive part only: X from 0.5") << "first point above 0";
    SetFrame(-5, -1, 0, 1);
    EXPECT_TRUE(ChartHint(doc).starts_with("positive part only: X none, Y from 0."))
        << ChartHint(doc);
    Press(doc.cmdXLog);
    Press(doc.cmdYLog);
    EXPECT_EQ(ChartHint(doc), "");
}

TEST_F(Settings, MarginsChartAreaAndLegendStartFromWhereTheyAre) {
    Press(design.chkAutoRand, false);
    EXPECT_EQ(surface.margins.left, (Margin{30, false}));
    EXPECT_TRUE(design.scrHR.enabled && design.frRandBreite.enabled);
    Move(design.scrHR, 60);
    EXPECT_EQ(surface.margins.right, (Margin{60, false}));
    EXPECT_EQ(surface.margins.bottom, (Margin{25, false}));
    Press(design.chkAutoRand, true);
    EXPECT_TRUE(surface.margins.right.automatic && !design.scrHR.enabled);

    Move(design.scrHLChartArea, 500); // the picture is 400x300
    const ChartAreaBox& box = surface.chartAreaBox;
    EXPECT_NEAR(box.left, 0.5, 1e-12);
    EXPECT_NEAR(box.left + box.width, 380 / 400.0, 1e-12) << "the other edge stays";
    EXPECT_NEAR(box.top, 30 / 300.0, 1e-12);
    Move(design.scrHChartArea, 100);
    EXPECT_NEAR(box.left, 0.5, 1e-12);
    EXPECT_NEAR(box.width, kLeastChartArea, 1e-12);
    Press(design.chkAutoChartArea, true);
    EXPECT_TRUE(box.automatic);

    surface.layout.legend = {300, 60, 60, 40};
    Move(design.scrLegH, 250);
    EXPECT_EQ(surface.legend.location, (Location{0.25, 0.2, false}));
    EXPECT_FALSE(design.chkAutoLegend.checked);
}

TEST_F(Settings, PanelsShowASurfaceThatCameFromElsewhere) {
    PlotContents other = Contents();
    other.axes[0].origin = Placement::Max;
    other.axes[0].gridPattern = LinePattern::None;
    other.axes[1].gridPattern = LinePattern::Solid;
    other.axes[1].grid = {0.3, false};
    other.margins.left = {77, false};
    other.legend.visible = true;
    other.legend.orientation = Orientation::Horizontal;
    other.labels[2].point = 17;
    other.series[kLines][2].line = {LinePattern::Dashed, 3, kRed};
    static_cast<PlotContents&>(surface) = other;
    Press(doc.mnuDesignMore);
    EXPECT_EQ(Contents(), other) << "showing changes nothing";
    EXPECT_EQ(design.optXOrigin.selected, 2);
    EXPECT_EQ(design.opt1Gitter.selected, 1);
    EXPECT_EQ(doc.txtYGridValue.text, " .3");
    EXPECT_EQ(design.scrHL.value, 77);
    EXPECT_TRUE(doc.chkLegend.checked && !doc.mnuAddLegend.enabled);
    EXPECT_EQ(design.optLegOrient.selected, 0);
    EXPECT_EQ(doc.scrShiftLab(2).value, 17);
    EXPECT_EQ(doc.cmbKStil(2).index, 3);
}

// --- zoom

TEST_F(Settings, ZoomTakesTheFrameFromTheAxesAndGivesItBack) {
    const DiaKoord before = ps.Frame;
    Press(doc.mnuDesignMore);
    Press(design.cmdZoom);
    EXPECT_FALSE(doc.fraTabs.visible);
    EXPECT_EQ(doc.pointer, ChartPointer::CrossHair);
    Drag({20, 0.9}, {60, 0.3});
    EXPECT_EQ(doc.pointer, ChartPointer::Default);
    EXPECT_NEAR(ps.Frame.xMin, 20, 1e-3);
    EXPECT_NEAR(ps.Frame.xMax, 60, 1e-3);
    EXPECT_NEAR(ps.Frame.yMax, 0.9, 1e-5);
    EXPECT_EQ(doc.coord(2).text, " 100") << "the boxes hold the frame of before";
    EXPECT_EQ(ps.Memory.RngT.upper, before.xMax);
    Press(design.cmdZoomReset);
    EXPECT_EQ(ps.Frame.xMin, before.xMin);
    EXPECT_EQ(ps.Frame.xMax, before.xMax);

    // the coordinate panel takes the zoomed frame into its boxes: that is what comes back then
    Press(design.cmdZoom);
    Drag({20, 0.9}, {60, 0.3});
    Press(doc.mnuCoord);
    Press(design.cmdZoomReset);
    EXPECT_NEAR(ps.Frame.xMax, 60, 1e-3);
}

TEST_F(Settings, ZoomEndsByEscapeByAClickAndAtTheLimitOfSingle) {
    const PlotContents before = Contents();
    Press(design.cmdZoom);
    const DataPoint at = PixelOf(40, 0.9);
    MouseDown(ps, doc, MouseButton::Left, at.x, at.y);
    MouseMove(ps, doc, at.x + 50, at.y + 50);
    EXPECT_TRUE(surface.rubber.dragging);
    EXPECT_TRUE(CancelZoom(doc));
    EXPECT_FALSE(CancelZoom(doc));
    MouseUp(ps, doc, MouseButton::Left, at.x + 50, at.y + 50);
    Press(design.cmdZoom);
    MouseDown(ps, doc, MouseButton::Left, at.x, at.y);
    MouseUp(ps, doc, MouseButton::Left, at.x, at.y);
    EXPECT_FALSE(surface.rubber.armed);
    EXPECT_EQ(Contents(), before);

    SetFrame(1, 1.0000005F, 0, 1);
    const DiaKoord narrow = ps.Frame;
    StartRubberZoom(surface);
    MouseDown(ps, doc, MouseButton::Left, 100, 50);
    MouseUp(ps, doc, MouseButton::Left, 110, 150);
    EXPECT_EQ(ps.Frame.xMax, narrow.xMax);
    EXPECT_EQ(GetAxis(surface, AxisId::X).max, static_cast<double>(narrow.xMax));
}

// --- keys

TEST_F(Settings, KeysWalkAlongCurvesAndSets) {
    SetRows({{.t = 20, .cA = 0.7}, {.t = 30, .cA = 9}, {.t = 40, .cA = 0.4}});
    ps.WithExpPoints = true;
    DrawModel(2); // A => P: two curves of 201 points, and a set
    const auto at = [&] { return surface.cursor.value_or(SeriesPoint{}); };
    const auto key = [&](ChartKey pressed) { return KeyOnChart(ps, doc, pressed); };
    EXPECT_TRUE(key(ChartKey::Right));
    EXPECT_EQ(at(), (SeriesPoint{kLines, 2, 1})) << "the curve drawn last";
    key(ChartKey::PageDown);
    key(ChartKey::Right);
    key(ChartKey::Left);
    EXPECT_EQ(at(), (SeriesPoint{kLines, 2, 1 + kWalkStride}));
    EXPECT_EQ(doc.lblMausPosNr.text, " #2");
    const double x = GetX(surface, kLines, 2, 1 + kWalkStride);
    EXPECT_TRUE(doc.lblMausPos.text.starts_with("  X = " + GeneralText(x) + ";      Y = "));
    EXPECT_TRUE(SpokenReadout(doc).starts_with("curve 2, c(P):  X = ")) << SpokenReadout(doc);
    key(ChartKey::Up);
    EXPECT_EQ(at(), (SeriesPoint{kLines, 1, 1 + kWalkStride})) << "the same x";
    key(ChartKey::End);
    EXPECT_EQ(at().point, GetPointCount(surface, kLines, 1));
    key(ChartKey::Right);
    EXPECT_EQ(at().point, GetPointCount(surface, kLines, 1)) << "stays at the end";
    key(ChartKey::Up);
    EXPECT_EQ(at(), (SeriesPoint{kPoints, 1, 3})) << "round to the set, its nearest point";
    key(ChartKey::Left);
    EXPECT_EQ(at().point, 1) << "the point outside the frame is passed over";
    key(ChartKey::Down);
    EXPECT_EQ(at().series, 1);
    EXPECT_EQ(at().group, kLines);

    // the panel follows, and its front page is where the keys begin
    Press(doc.mnuKurvenDesign);
    key(ChartKey::Down);
    EXPECT_EQ(doc.tabKurven.selected, 1);
    Choose(doc.tabKurven, 0);
    key(ChartKey::Home);
    EXPECT_EQ(at(), (SeriesPoint{kLines, 1, 1}));
    scripted.answers = {Answer::Yes};
    key(ChartKey::Delete);
    EXPECT_EQ(scripted.boxes.size(), 1U);
    EXPECT_EQ(GetPointCount(surface, kLines, 1), 200);
    EXPECT_EQ(at(), (SeriesPoint{kLines, 1, 1}));

    Press(doc.mnuDelTotal);
    EXPECT_FALSE(key(ChartKey::Right)) << "nothing to walk along";
    EXPECT_FALSE(ShownCursor(surface));
}

} // namespace
} // namespace zorvant
