// Where things stand in a picture: nothing covers or touches what it must not.
#include "diagrams/label_places.h"
#include "shell/qt/plot_layout.h"
#include "shell/qt/plot_paint.h"
#include "tests/qt/plot_samples.h"

#include <gtest/gtest.h>

namespace zorvant {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72;

std::vector<TextBox> AllTexts(const PictureLayout& layout) {
    std::vector<TextBox> texts = layout.x.numbers;
    texts.insert(texts.end(), layout.y.numbers.begin(), layout.y.numbers.end());
    for (const auto* text : {&layout.header, &layout.footer, &layout.x.title, &layout.y.title,
                             &layout.x.factor, &layout.y.factor})
        if (*text)
            texts.push_back(**text);
    return texts;
}

std::string Name(const TextBox& box) {
    return "\"" + box.lines.join(QLatin1Char(' ')).toStdString() + "\"";
}

} // namespace

TEST(PlotLayout, KeepsTextsApartAndInsideThePictureAtAnySize) {
    struct Ranges {
        double xMin, xMax, yMin, yMax;
        bool log;
    };
    for (const Ranges& frame :
         std::initializer_list<Ranges>{{0, 450, 0, 0.102, false},
                                       {0, 1e-7, -2.5e-9, 1e-9, false},
                                       {-1, 99999, 0, 123456, false},
                                       {273.15, 338.2, -14.2, -5.1, false},
                                       {0.0029, 0.00367, 1e9, 9e9, false},
                                       {1e-7, 100, 1e-6, 1, true},
                                       {99999, 100001, 0.1, 0.10000001, false},
                                       {0.1F, 0.7F, 0, 0.0002F, false},
                                       {3, 80, 0.02, 150, true},
                                       {0, 450, -1, 0.1, true}}) {
        for (const QSize size : {QSize(1200, 800), QSize(900, 600), QSize(500, 320)}) {
            PlotSurface surface = EmptyDiagram();
            SetFooter(surface, "measured at 318 K");
            for (const AxisId axis : {AxisId::X, AxisId::Y})
                SetAxisLog(surface, axis, frame.log);
            SetAxis(surface, AxisId::X, frame.xMin, frame.xMax, frame.xMin, frame.xMax);
            SetAxis(surface, AxisId::Y, frame.yMin, frame.yMax, frame.yMin, frame.yMax);
            const PictureLayout layout = LayOut(surface, size, kPixelsPerPoint);
            const std::vector<TextBox> texts = AllTexts(layout);
            EXPECT_GE(layout.x.numbers.size(), 2U);
            EXPECT_GE(layout.y.numbers.size(), 2U);
            for (std::size_t i = 0; i < texts.size(); ++i) {
                EXPECT_TRUE(layout.picture.contains(texts[i].rect)) << Name(texts[i]);
                EXPECT_FALSE(layout.plotArea.intersects(texts[i].rect)) << Name(texts[i]);
                for (std::size_t j = 0; j < i; ++j)
                    EXPECT_FALSE(texts[i].rect.intersects(texts[j].rect))
                        << Name(texts[i]) << " on " << Name(texts[j]) << " at " << size.width();
            }
            // most of the picture shows data
            EXPECT_GT(layout.plotArea.width() * layout.plotArea.height(),
                      0.45 * size.width() * size.height());
        }
    }
}

TEST(PlotLayout, PutsTheLegendBesideOrBelowTheAxes) {
    for (const Orientation orientation : {Orientation::Vertical, Orientation::Horizontal}) {
        PlotSurface surface = EmptyDiagram();
        for (int slot = 1; slot <= 6; ++slot)
            AddDecay(surface, slot, slot, "curve " + std::to_string(slot));
        SetSeriesLabel(surface, kLines, 3, ""); // no line in the legend
        SetSeriesDisplay(surface, kLines, 4, SeriesDisplay::Hidden);
        PlotLegend legend = surface.legend;
        legend.visible = true;
        legend.orientation = orientation;
        SetLegend(surface, legend);
        const PictureLayout layout = LayOut(surface, {900, 600}, kPixelsPerPoint);
        ASSERT_TRUE(layout.legend);
        EXPECT_EQ(layout.legend->entries.size(), 4U);
        EXPECT_TRUE(layout.picture.contains(layout.legend->rect));
        EXPECT_FALSE(layout.legend->rect.intersects(layout.plotArea));
        for (const TextBox& text : AllTexts(layout))
            EXPECT_FALSE(layout.legend->rect.intersects(text.rect)) << Name(text);
        for (const LegendEntry& entry : layout.legend->entries)
            EXPECT_TRUE(layout.legend->rect.contains(entry.text.rect));
    }
}

TEST(PlotLayout, BreaksTextsThatAreTooLong) {
    PlotSurface surface = EmptyDiagram();
    SetHeader(surface, "reaction rates r(i)=(dc(i)/dt), consecutive 2nd-order rct. with following "
                       "revers. rct. A+B=>C<=>P,  K=k>/k<");
    SetAxisTitle(surface, AxisId::Y, "r(A), r(B), r(C), r(P) / (mol/L/min), all in one scale",
                 TextRotation::Vertical);
    for (const int width : {1200, 600, 300}) {
        const PictureLayout layout = LayOut(surface, {width, 300}, kPixelsPerPoint);
        EXPECT_TRUE(layout.picture.contains(layout.header->rect)) << width;
        EXPECT_TRUE(layout.picture.contains(layout.y.title->rect)) << width;
        EXPECT_EQ(layout.header->lines.size() > 1, width < 500) << width;
    }
    const PictureLayout wide = LayOut(surface, {1200, 500}, kPixelsPerPoint);
    EXPECT_NEAR(wide.header->rect.center().x(), wide.plotArea.center().x(), 1);
    // lines of the user's own stay apart
    SetHeader(surface, "first\r\nsecond");
    const QStringList two{QStringLiteral("first"), QStringLiteral("second")};
    EXPECT_EQ(LayOut(surface, {900, 600}, kPixelsPerPoint).header->lines, two);
}

TEST(PlotLayout, MovesLabelsThatFallOnEachOther) {
    PlotSurface surface = EmptyDiagram();
    for (int slot = 1; slot <= kCurveSlots; ++slot)
        AddDecay(surface, slot, 3, "c(A) "); // all curves and labels at one place
    const PictureLayout layout = LayOut(surface, {900, 600}, kPixelsPerPoint);
    ASSERT_EQ(layout.labels.size(), static_cast<std::size_t>(kCurveSlots));
    for (std::size_t i = 0; i < layout.labels.size(); ++i) {
        EXPECT_TRUE(layout.plotArea.contains(layout.labels[i].rect)) << i;
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(layout.labels[i].rect.intersects(layout.labels[j].rect)) << i << ' ' << j;
    }
}

/// Three draws of four species, as a student compares them.
PlotSurface ComparedCourses() {
    PlotSurface surface = EmptyDiagram();
    int slot = 0;
    for (const double tau : {1.5, 3.0, 6.0})
        for (const char* name :
             {"c(A), k1 = 0.05", "c(B), k1 = 0.05", "c(C), k1 = 0.05", "c(P), k1 = 0.05"}) {
            AddDecay(surface, ++slot, tau, name);
            PlotSeries& series = surface.series[kLines][static_cast<std::size_t>(slot)];
            for (std::size_t i = 0; i < series.y.size(); ++i) {
                const double left = series.y[i];
                series.y[i] = slot % 4 == 1   ? left
                              : slot % 4 == 2 ? 0.6 * left + 0.1
                              : slot % 4 == 3 ? 4 * 0.5 * left * (1 - left)
                                              : 1 - left;
            }
        }
    PlaceCurveLabels(surface, {});
    return surface;
}

TEST(PlotLayout, NeverHidesACurveUnderALabel) {
    for (const QSize size : {QSize(1200, 800), QSize(790, 520), QSize(420, 280), QSize(300, 220)}) {
        const PlotSurface surface = ComparedCourses();
        const PictureLayout layout = LayOut(surface, size, kPixelsPerPoint);
        const auto pixel = [&](const PlotSeries& curve, std::size_t i) {
            return QPointF(layout.x.scale.Pixel(curve.x[i]), layout.y.scale.Pixel(curve.y[i]));
        };
        int covering = 0;
        for (const TextBox& label : layout.labels) {
            double toOwn = 1e9, toOther = 1e9;
            bool covers = false;
            for (int slot = 1; slot <= 12; ++slot) {
                const PlotSeries& curve = GetSeries(surface, kLines, slot);
                for (std::size_t i = 0; i < curve.x.size(); ++i) {
                    const QPointF at = pixel(curve, i);
                    covers = covers || label.rect.adjusted(1, 1, -1, -1).contains(at);
                    const QPointF apart = at - label.rect.center();
                    double& nearest = slot == label.number ? toOwn : toOther;
                    nearest = std::min(nearest, std::hypot(apart.x(), apart.y()));
                }
            }
            EXPECT_FALSE(covers && label.back) << Name(label) << size.width();
            covering += covers ? 1 : 0;
            if (!covers && size.width() > 700)
                EXPECT_TRUE(toOwn < toOther + 1 || label.leader) << label.number << size.width();
        }
        EXPECT_LE(covering, size.width() > 700 ? 0 : 8) << size.width();
    }
}

TEST(PlotLayout, KeepsALabelWithItsCurve) {
    PlotSurface surface = EmptyDiagram();
    AddDecay(surface, 1, 3, "c(A) ");
    AttachLabelToPoint(surface, 1, kLines, 1, 201);
    SetAxis(surface, AxisId::X, 0, 5, 0, 5); // the point of the label is out of sight now
    const PictureLayout layout = LayOut(surface, {900, 600}, kPixelsPerPoint);
    ASSERT_EQ(layout.labels.size(), 1U);
    const QPointF end(layout.x.scale.Pixel(5), layout.y.scale.Pixel(std::exp(-5.0 / 3)));
    const QPointF away = layout.labels[0].rect.center() - end;
    EXPECT_LT(std::hypot(away.x(), away.y()), 60);
    // a curve that is nowhere in the frame has no label, and neither has a mark beyond it
    SetAxis(surface, AxisId::Y, 2, 3, 2, 3);
    AttachLabelToCoord(surface, kResidenceSeries, 7, 0);
    SetLabelVisible(surface, kResidenceSeries, true);
    EXPECT_TRUE(LayOut(surface, {900, 600}, kPixelsPerPoint).labels.empty());
}

TEST(PlotLayout, PutsAxesAndNumbersWhereTheyAreAskedTo) {
    PlotSurface surface = EmptyDiagram();
    SetAxis(surface, AxisId::X, -5, 10, -5, 10);
    struct Row {
        Placement placement;
        double x; ///< where the line of the y-axis and its numbers are
    };
    for (const Row& row :
         {Row{Placement::Min, -5}, Row{Placement::AtZero, 0}, Row{Placement::Max, 10}}) {
        SetAxisOrigin(surface, AxisId::X, row.placement);
        SetAxisAnnotation(surface, AxisId::Y, row.placement, TextRotation::Horizontal);
        const PictureLayout layout = LayOut(surface, {900, 600}, kPixelsPerPoint);
        const double line = layout.x.scale.Pixel(row.x);
        EXPECT_DOUBLE_EQ(layout.y.line, line);
        ASSERT_FALSE(layout.y.numbers.empty());
        const QRectF number = layout.y.numbers.front().rect;
        const double gap =
            row.placement == Placement::Max ? number.left() - line : line - number.right();
        EXPECT_GT(gap, 0);
        EXPECT_LT(gap, 15);
    }
    // zero is not in the frame: the nearer end
    SetAxis(surface, AxisId::X, 2, 10, 2, 10);
    SetAxisOrigin(surface, AxisId::X, Placement::AtZero);
    const PictureLayout layout = LayOut(surface, {900, 600}, kPixelsPerPoint);
    EXPECT_DOUBLE_EQ(layout.y.line, layout.plotArea.left());
}

TEST(PlotLayout, KeepsTextsApartWhereverAxesAndNumbersStand) {
    constexpr Placement kAll[] = {Placement::Min, Placement::AtZero, Placement::Max};
    for (const auto& [min, max, log] : {std::tuple(-20.0, 100.0, false),
                                        {0.0, 100.0, false},
                                        {-100.0, -20.0, false},
                                        {0.1, 1e4, true}})
        for (const Placement ofX : kAll)
            for (const Placement ofY : kAll)
                for (const bool vertical : {false, true}) {
                    PlotSurface surface = EmptyDiagram();
                    for (const AxisId axis : {AxisId::X, AxisId::Y}) {
                        SetAxisLog(surface, axis, log);
                        SetAxis(surface, axis, min, max, min, max);
                        SetAxisOrigin(surface, axis, axis == AxisId::X ? ofY : ofX);
                        SetAxisAnnotation(surface, axis, axis == AxisId::X ? ofX : ofY,
                                          vertical ? TextRotation::Vertical
                                                   : TextRotation::Horizontal);
                    }
                    const PictureLayout layout = LayOut(surface, {700, 450}, kPixelsPerPoint);
                    const auto where = ::testing::Message()
                                       << min << ' ' << max << " x " << static_cast<int>(ofX)
                                       << " y " << static_cast<int>(ofY) << ' ' << vertical;
                    EXPECT_GE(std::min(layout.x.numbers.size(), layout.y.numbers.size()), 2U)
                        << where;
                    const std::vector<TextBox> texts = AllTexts(layout);
                    for (std::size_t i = 0; i < texts.size(); ++i) {
                        EXPECT_TRUE(layout.picture.contains(texts[i].rect))
                            << Name(texts[i]) << where;
                        for (std::size_t j = 0; j < i; ++j)
                            EXPECT_FALSE(texts[i].rect.intersects(texts[j].rect))
                                << Name(texts[i]) << " on " << Name(texts[j]) << where;
                    }
                }
}

TEST(PlotLayout, WritesNumbersAsPeopleDo) {
    const QFont font = ToFont({}, kPixelsPerPoint);
    EXPECT_EQ(NumberText("-0.5", font).lines[0], QString::fromUtf8("\u22120.5"));
    const TextBox power = NumberText("1E-05", font);
    EXPECT_EQ(power.lines[0], QStringLiteral("10"));
    EXPECT_EQ(power.exponent, QString::fromUtf8("\u22125"));
    const TextBox product = NumberText("2E+12", font);
    EXPECT_EQ(product.lines[0], QString::fromUtf8("2\u00b710"));
    EXPECT_EQ(product.exponent, QStringLiteral("12"));
}

TEST(PlotLayout, SurvivesPicturesWithoutRoom) {
    PlotSurface surface = EmptyDiagram();
    AddDecay(surface, 1, 3, "c(A) ");
    SetLegendVisible(surface, true);
    for (const QSize size : {QSize(0, 0), QSize(1, 1), QSize(20, 300), QSize(160, 120)}) {
        const PictureLayout layout = LayOut(surface, size, kPixelsPerPoint);
        EXPECT_GT(layout.plotArea.width(), 0);
        EXPECT_GT(layout.plotArea.height(), 0);
        for (const TextBox& text : AllTexts(layout))
            EXPECT_TRUE(std::isfinite(text.rect.left() + text.rect.top()));
    }
}

TEST(ClipPolyline, KeepsWhatLiesInsideAndPartsWhatLeaves) {
    const QRectF frame(0, 0, 10, 10);
    const auto nan = std::numeric_limits<double>::quiet_NaN();
    // a zigzag that leaves at the top and comes back, then a gap, then a segment across
    const QVector<QPointF> clipped =
        ClipPolyline({{1, 5}, {2, -5}, {3, 5}, {nan, nan}, {-5, 2}, {15, 2}, {20, 20}}, frame);
    const QVector<QPointF> expected{{1, 5}, {1.5, 0},   {nan, nan}, {2.5, 0},
                                    {3, 5}, {nan, nan}, {0, 2},     {10, 2}};
    ASSERT_EQ(clipped.size(), expected.size());
    for (qsizetype i = 0; i < clipped.size(); ++i) {
        EXPECT_EQ(std::isnan(clipped[i].x()), std::isnan(expected[i].x())) << i;
        if (!std::isnan(expected[i].x())) {
            EXPECT_NEAR(clipped[i].x(), expected[i].x(), 1e-12) << i;
            EXPECT_NEAR(clipped[i].y(), expected[i].y(), 1e-12) << i;
        }
    }
}

} // namespace zorvant
