// The plot surface on its own: batches, spacings and marks, pixels, labels, zoom.
#include "fixture.h"

#include <random>

namespace zorvant {
namespace {

struct PlotSurfaceTest : DiagramRecord {
    void SetUp() override { LayOut(); }
    void Frame(double xMin, double xMax, double yMin, double yMax) {
        SetAxis(surface, AxisId::X, xMin, xMax, xMin, xMax);
        for (const AxisId axis : {AxisId::Y, AxisId::Y2})
            SetAxis(surface, axis, yMin, yMax, yMin, yMax);
    }
};

TEST_F(PlotSurfaceTest, RepaintsOnceForTheOutermostBatchThatChangedSomething) {
    int repaints = 0;
    surface.onRepaint = [&] { ++repaints; };
    const std::uint64_t before = surface.revision;
    {
        const PlotBatch outer(surface);
        for (int s = 1; s <= kCurveSlots; ++s) {
            const PlotBatch inner(surface);
            SetPointCount(surface, kLines, s, 300);
            for (int i = 1; i <= 300; ++i)
                SetY(surface, kLines, s, i, i);
        }
        EXPECT_EQ(repaints, 0);
    }
    EXPECT_EQ(repaints, 1);
    EXPECT_EQ(surface.revision, before + 1);
    {
        const PlotBatch unchanged(surface);
        SetPointCount(surface, kLines, 1, 300);
        SetHeader(surface, surface.header.text);
    }
    EXPECT_EQ(repaints, 1) << "nothing was changed";
    SetPointCount(surface, kPoints, 1, 1);
    EXPECT_EQ(repaints, 2);
    BeginBatch(surface, kLines);
    SetX(surface, kLines, 1, 1, 5);
    EXPECT_EQ(repaints, 2) << "data of the group are held";
    SetFooter(surface, "note");
    EXPECT_EQ(repaints, 3) << "a text is not";
    SetX(surface, kLines, 1, 2, 5);
    EndBatch(surface, kLines);
    EXPECT_EQ(repaints, 4);
}

TEST_F(PlotSurfaceTest, KeepsNoNumberThatIsNotFinite) {
    SetPoints(surface, kLines, 1, {1, NAN, 3}, {INFINITY, 2, 3, 4});
    EXPECT_EQ(GetPointCount(surface, kLines, 1), 3);
    EXPECT_EQ(GetY(surface, kLines, 1, 1), kHole);
    EXPECT_EQ(GetX(surface, kLines, 1, 2), kHole);
    SetY(surface, kLines, 1, 3, -INFINITY);
    EXPECT_TRUE(IsHole(GetSeries(surface, kLines, 1), 3));
    Frame(0, 1, 0, 1);
    Frame(NAN, INFINITY, 0, 1);
    EXPECT_EQ(GetAxis(surface, AxisId::X).max, 1);
    EXPECT_THROW(SetPointCount(surface, kLines, 29, 1), std::out_of_range);
    EXPECT_THROW(SetPointCount(surface, 3, 1, 1), std::out_of_range);
    EXPECT_THROW(SetX(surface, kLines, 1, 0, 1), std::out_of_range);
}

TEST(AxisSpacing, IsOneTwoOrFiveWithFourToTenSteps) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> exponent(-30, 30), share(0.1, 1);
    for (int i = 0; i < 20000; ++i) {
        const double span = share(random) * std::pow(10.0, exponent(random));
        const double step = NiceStep(span, 10);
        EXPECT_GE(span / step, 4 - 1e-6) << span;
        EXPECT_LE(span / step, 10 + 1e-6) << span;
        const double mantissa = step / std::pow(10.0, std::floor(std::log10(step) + 1e-9));
        EXPECT_NEAR(mantissa, mantissa < 1.5 ? 1 : mantissa < 3 ? 2 : 5, 1e-9) << span;
    }
    EXPECT_EQ(ChooseSpacing({0, 100, false}), (AutoSpacing{10, 10, 5}));
    EXPECT_EQ(ChooseSpacing({0, 1.05, false}), (AutoSpacing{0.2, 0.2, 0.1}));
    EXPECT_EQ(ChooseSpacing({-3, 47, false}), (AutoSpacing{5, 5, 1}));
    EXPECT_EQ(ChooseSpacing({1e-3, 1e3, true}), (AutoSpacing{1, 1, 1}));
    EXPECT_EQ(ChooseSpacing({1e-15, 1e15, true}).number, 5);
    for (const double span : {0.0, -1.0, double{NAN}, double{INFINITY}})
        EXPECT_EQ(NiceStep(span, 10), 1);
}

TEST_F(PlotSurfaceTest, MarksStandAtMultiplesInsideTheFrame) {
    Frame(-0.25, 1.1, 0, 300);
    EXPECT_EQ(MarksOf(surface, AxisId::X).numbers,
              (std::vector<double>{-0.2, 0, 0.2, 0.4, 0.6, 0.8, 1}));
    EXPECT_EQ(MarksOf(surface, AxisId::Y).numbers,
              (std::vector<double>{0, 50, 100, 150, 200, 250, 300}));
    EXPECT_EQ(MarksOf(surface, AxisId::Y).ticks.size(), 31U);

    EXPECT_TRUE(SetNumberSpacing(surface, AxisId::Y, 75, false));
    EXPECT_EQ(MarksOf(surface, AxisId::Y).numbers, (std::vector<double>{0, 75, 150, 225, 300}));
    // 0, 0.15, 0.3 ... 300 are 2001 marks
    for (const double refused : {0.0, -1.0, double{NAN}, double{INFINITY}, 0.15, 1e-9})
        EXPECT_FALSE(SetNumberSpacing(surface, AxisId::Y, refused, false)) << refused;
    EXPECT_TRUE(SetNumberSpacing(surface, AxisId::Y, 0.1501, false));
    EXPECT_EQ(MarksOf(surface, AxisId::Y).numbers.size(), 1999U);
    Frame(-0.25, 1.1, 0, 400);
    EXPECT_EQ(MarksOf(surface, AxisId::Y).numbers.size(), 9U) << "too many now: the automatic ones";
    Frame(-0.25, 1.1, 0, 300);
    EXPECT_TRUE(SetNumberSpacing(surface, AxisId::Y, 0, true));
    EXPECT_EQ(GetAxis(surface, AxisId::Y).number.value, 50);
}

TEST_F(PlotSurfaceTest, LogarithmicMarksAreDecadesAndTwoAndFiveWhereTheyFit) {
    SetAxisLog(surface, AxisId::Y, true);
    Frame(0, 1, 0.05, 20000);
    EXPECT_EQ(MarksOf(surface, AxisId::Y).numbers,
              (std::vector<double>{0.1, 1, 10, 100, 1000, 10000}));
    EXPECT_EQ(MarksOf(surface, AxisId::Y).ticks.front(), 0.05);
    Frame(0, 1, 0.01F, 0.5);
    EXPECT_EQ(MarksOf(surface, AxisId::Y).numbers,
              (std::vector<double>{0.01, 0.02, 0.05, 0.1, 0.2, 0.5}));
    Frame(0, 1, 3, 8);
    EXPECT_EQ(MarksOf(surface, AxisId::Y).numbers.size(), 11U) << "less than a decade: as linear";
}

/// What was typed as a limit is a mark when a step leads to it, though Single has rounded it.
TEST_F(PlotSurfaceTest, NumbersStandAtTypedLimits) {
    struct Row {
        float min, max;
        std::vector<std::string> texts;
        int power;
    };
    const std::vector<Row> rows = {
        {0.1F, 0.7F, {"0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7"}, 0},
        {0,
         0.0002F,
         {"0", "0.2", "0.4", "0.6", "0.8", "1.0", "1.2", "1.4", "1.6", "1.8", "2.0"},
         -4},
        {99999,
         100001,
         {"99999.0", "99999.2", "99999.4", "99999.6", "99999.8", "100000.0", "100000.2", "100000.4",
          "100000.6", "100000.8", "100001.0"},
         0},
        {0.0029F,
         0.0033F,
         {"2.90", "2.95", "3.00", "3.05", "3.10", "3.15", "3.20", "3.25", "3.30"},
         -3},
        {0, 3e6F, {"0", "0.5", "1.0", "1.5", "2.0", "2.5", "3.0"}, 6},
        {-0.2F, 0.1F, {"-0.20", "-0.15", "-0.10", "-0.05", "0", "0.05", "0.10"}, 0}};
    for (const Row& row : rows) {
        Frame(static_cast<double>(row.min), static_cast<double>(row.max), 0, 1);
        const AxisMarks marks = MarksOf(surface, AxisId::X);
        const AxisNotation notation = NotationOf(marks);
        std::vector<std::string> texts;
        for (const double mark : marks.numbers)
            texts.push_back(MarkText(mark, notation));
        EXPECT_EQ(texts, row.texts);
        EXPECT_EQ(notation.power, row.power);
    }
    Frame(0.1, 0.1 + 1e-8, 0, 1); // below what Single tells apart
    const AxisMarks marks = MarksOf(surface, AxisId::X);
    ASSERT_GE(marks.numbers.size(), 2U);
    EXPECT_NE(MarkText(marks.numbers[0], NotationOf(marks)),
              MarkText(marks.numbers[1], NotationOf(marks)));
}

TEST_F(PlotSurfaceTest, AnyFrameCanBePainted) {
    const auto range = [&](double min, double max, bool log) {
        SetAxisLog(surface, AxisId::Y, log);
        Frame(0, 1, min, max);
        return ShownRange(surface, AxisId::Y);
    };
    EXPECT_EQ(range(4, 1, false), (ShownAxisRange{1, 4, false})) << "reversed";
    EXPECT_EQ(range(0, 0, false), (ShownAxisRange{0, 1, false})) << "empty at 0";
    EXPECT_EQ(range(2, 2, false), (ShownAxisRange{1.9, 2.1, false})) << "empty";
    EXPECT_EQ(range(-5, -1, true), (ShownAxisRange{-5, -1, false})) << "no logarithm at all";
    EXPECT_EQ(range(0, 10, true), (ShownAxisRange{0.01, 10, true})) << "no data";
    SetPoints(surface, kPoints, 1, {0.5, 0.6}, {0, 0.25});
    EXPECT_EQ(range(0, 10, true), (ShownAxisRange{0.25, 10, true})) << "smallest positive point";
}

TEST_F(PlotSurfaceTest, PixelsAndDataAreInverse) {
    for (const bool log : {false, true}) {
        SetAxisLog(surface, AxisId::X, log);
        Frame(0.5, 50, -1, 3);
        for (const auto& [x, y] :
             {std::pair(0.5, -1.0), std::pair(7.0, 2.5), std::pair(50.0, 3.0)}) {
            const DataPoint at = PixelOf(x, y);
            const PixelHit back = PixelToData(surface, at.x, at.y);
            EXPECT_NEAR(back.x, x, 1e-12 * x);
            EXPECT_NEAR(back.y, y, 1e-12);
        }
        EXPECT_NEAR(PixelOf(0.5, -1).x, 50, 1e-9);
        EXPECT_NEAR(PixelOf(0.5, -1).y, 220, 1e-9) << "y runs downward";
    }
    EXPECT_FALSE(DataToPixel(surface, 0, 1)) << "no place on a logarithmic axis";
}

TEST_F(PlotSurfaceTest, FindsTheNearestPaintedPoint) {
    Frame(0, 10, 0, 10);
    SetPoints(surface, kLines, 3, {1, 5, 9}, {1, 5, 9});
    SetPoints(surface, kLines, 4, {5, 50}, {kHole, 5});
    SetPoints(surface, kLines, 5, {5.1}, {5});
    SetSeriesDisplay(surface, kLines, 5, SeriesDisplay::Hidden);
    const DataPoint at = PixelOf(5.1, 5);
    const NearestHit hit = NearestPoint(surface, kLines, at.x, at.y);
    EXPECT_EQ(hit.series, 3);
    EXPECT_EQ(hit.point, 2);
    EXPECT_NEAR(hit.distance, 3, 1e-9);
    EXPECT_EQ(NearestPoint(surface, kPoints, at.x, at.y).series, -1);
}

TEST_F(PlotSurfaceTest, LabelStandsAtAPointOfItsCurve) {
    Frame(0, 10, 0, 10);
    EXPECT_FALSE(LabelPosition(surface, 2)) << "hidden";
    SetLabelVisible(surface, 2, true);
    EXPECT_FALSE(LabelPosition(surface, 2)) << "no curve";
    SetPoints(surface, kLines, 2, {1, 2, 3}, {4, kHole, 6});
    EXPECT_EQ(AttachLabelToPoint(surface, 2, kLines, 2, -20), 1);
    EXPECT_EQ(LabelPosition(surface, 2)->x, 1);
    EXPECT_EQ(AttachLabelToPoint(surface, 2, kLines, 2, 99), 3);
    AttachLabelToPoint(surface, 2, kLines, 2, 2);
    EXPECT_EQ(LabelPosition(surface, 2)->x, 3) << "the nearest point that is none of the holes";
    AttachLabelToCoord(surface, 2, 7, 8);
    EXPECT_EQ(LabelPosition(surface, 2)->y, 8);
}

TEST_F(PlotSurfaceTest, LegendHasALineForEachShownSeriesWithAText) {
    for (const int s : {1, 2, 3, 4}) {
        SetPoints(surface, kLines, s, {1}, {1});
        SetSeriesLabel(surface, kLines, s, "curve");
    }
    SetSeriesLabel(surface, kLines, 2, "");
    SetSeriesDisplay(surface, kLines, 3, SeriesDisplay::Hidden);
    SetPointCount(surface, kLines, 4, 0);
    SetPoints(surface, kPoints, 1, {1}, {1});
    SetSeriesLabel(surface, kPoints, 1, "points");
    EXPECT_EQ(LegendLines(surface), (std::vector<LegendLine>{{kLines, 1}, {kPoints, 1}}));
    ClearSeriesLabels(surface, kLines);
    EXPECT_EQ(LegendLines(surface), (std::vector<LegendLine>{{kPoints, 1}}));
}

TEST_F(PlotSurfaceTest, ZoomsIntoARectangleAndBack) {
    Frame(0, 10, 0, 100);
    RubberDown(surface, 100, 100);
    EXPECT_FALSE(surface.rubber.dragging) << "no zoom was asked for";
    StartRubberZoom(surface);
    RubberDown(surface, PixelOf(8, 90).x, PixelOf(8, 90).y);
    EXPECT_TRUE(RubberUp(surface, PixelOf(2, 40).x, PixelOf(2, 40).y));
    EXPECT_NEAR(GetAxis(surface, AxisId::X).min, 2, 1e-9);
    EXPECT_NEAR(GetAxis(surface, AxisId::Y2).max, 90, 1e-9);
    EXPECT_EQ(GetAxis(surface, AxisId::Y).number.value, 5) << "spacings follow the zoom";
    ResetZoom(surface);
    EXPECT_EQ(GetAxis(surface, AxisId::X).max, 10);
    StartRubberZoom(surface);
    RubberDown(surface, 100, 100);
    EXPECT_FALSE(RubberUp(surface, 102, 102)) << "a click is no rectangle";
}

} // namespace
} // namespace zorvant
