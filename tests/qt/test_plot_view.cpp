// The picture on the screen, looked at pixel by pixel.
#include "shell/qt/plot_view.h"
#include "tests/qt/plot_samples.h"
#include "tests/qt/qt_user.h"

#include <gtest/gtest.h>

#include <set>

namespace zorvant {
namespace {

constexpr QSize kSize(800, 600);

struct Shown {
    explicit Shown(PlotSurface& surface) {
        view.resize(kSize);
        view.show();
        Settle();
        view.Show(surface);
    }
    QImage Picture() { return view.grab().toImage().convertToFormat(QImage::Format_RGB32); }
    PlotView view;
};

/// The darkest pixel within one pixel of a place.
int Darkest(const QImage& image, double px, double py) {
    int least = 255;
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx) {
            const QPoint at(qRound(px) + dx, qRound(py) + dy);
            if (image.valid(at))
                least = std::min(least, qGray(image.pixel(at)));
        }
    return least;
}

bool IsDark(const QImage& image, const PlotSurface& surface, double x, double y) {
    const auto pixel = DataToPixel(surface, x, y);
    // a line may lie between two pixels
    return pixel && Darkest(image, pixel->x, pixel->y) < 140;
}

/// A diagram without what could be mistaken for data.
PlotSurface PlainDiagram() {
    PlotSurface surface = EmptyDiagram();
    for (const AxisId axis : {AxisId::X, AxisId::Y})
        SetGrid(surface, axis, LinePattern::None, kBlack);
    return surface;
}

} // namespace

TEST(PlotView, PaintsDataWhereTheRecordFindsIt) {
    PlotSurface surface = PlainDiagram();
    AddDecay(surface, 1, 3, "c(A) ");
    SetLabelVisible(surface, 1, false);
    SetPoints(surface, kPoints, 4, {2, 7.5}, {0.9, 0.8});
    Shown shown(surface);
    const QImage picture = shown.Picture();
    for (const double t : {0.5, 2.0, 4.0, 9.0}) {
        EXPECT_TRUE(IsDark(picture, surface, t, std::exp(-t / 3))) << t;
        EXPECT_FALSE(IsDark(picture, surface, t, std::exp(-t / 3) + 0.05)) << t;
    }
    EXPECT_TRUE(IsDark(picture, surface, 2, 0.9));
    EXPECT_TRUE(IsDark(picture, surface, 7.5, 0.8));
    // the frame stands at the ends of the axes
    for (const auto& [x, y] : {std::pair(0.0, 0.6), {10.0, 0.6}, {5.0, 0.0}, {5.0, 1.0}})
        EXPECT_TRUE(IsDark(picture, surface, x, y)) << x << ' ' << y;
    // and the mouse finds a point from the pixel where it is painted
    const auto pixel = DataToPixel(surface, 7.5, 0.8);
    const NearestHit hit = NearestPoint(surface, kPoints, pixel->x, pixel->y);
    EXPECT_EQ(hit.series, 4);
    EXPECT_EQ(hit.point, 2);
    EXPECT_LT(hit.distance, 0.5);
}

TEST(PlotView, ReportsTheRegionsOfItsParts) {
    PlotSurface surface = PlainDiagram();
    AddDecay(surface, 1, 3, "c(A) ");
    SetLegendVisible(surface, true);
    Shown shown(surface);
    const auto regionAt = [&](const PixelRect& rect) {
        return PixelToData(surface, rect.left + rect.width / 2, rect.top + rect.height / 2).region;
    };
    EXPECT_EQ(regionAt(surface.layout.header), Region::Header);
    EXPECT_EQ(regionAt(surface.layout.legend), Region::Legend);
    EXPECT_EQ(regionAt(surface.layout.plotArea), Region::PlotArea);
    EXPECT_EQ(surface.layout.footer.width, 0); // no text, no place
    EXPECT_EQ(PixelToData(surface, 2, 300).region, Region::Outside);
    SetFooter(surface, "a note");
    shown.view.Show(surface);
    EXPECT_EQ(regionAt(surface.layout.footer), Region::Footer);
}

TEST(PlotView, RepaintsOncePerBatchAndSize) {
    PlotSurface surface = PlainDiagram();
    Shown shown(surface);
    surface.onRepaint = [&] { shown.view.Show(surface); };
    const int before = shown.view.Repaints();
    {
        const PlotBatch batch(surface);
        for (int slot = 1; slot <= kCurveSlots; ++slot)
            AddDecay(surface, slot, slot, "curve");
    }
    shown.view.Show(surface); // nothing is new
    EXPECT_EQ(shown.view.Repaints(), before + 1);
    shown.view.resize(500, 400);
    Settle();
    EXPECT_EQ(shown.view.Repaints(), before + 2);
}

TEST(PlotView, DoesNotShowHiddenSeries) {
    PlotSurface surface = PlainDiagram();
    Shown shown(surface);
    const QImage empty = shown.Picture();
    SetPoints(surface, kLines, kFrameSeries, {0, 10}, {0, 1});
    SetSeriesDisplay(surface, kLines, kFrameSeries, SeriesDisplay::Hidden);
    SetPoints(surface, kPoints, 2, {5}, {0.5});
    SetSeriesDisplay(surface, kPoints, 2, SeriesDisplay::Excluded);
    SetPoints(surface, kPoints, 3, {5}, {0.5});
    SetSymbol(surface, kPoints, 3, {.shape = SymbolShape::Hidden, .size = 8});
    shown.view.Show(surface);
    EXPECT_EQ(shown.Picture(), empty);
    SetSeriesDisplay(surface, kLines, kFrameSeries, SeriesDisplay::Shown);
    shown.view.Show(surface);
    EXPECT_NE(shown.Picture(), empty);
    SetPointCount(surface, kLines, kFrameSeries, 0);
    shown.view.Show(surface);
    EXPECT_EQ(shown.Picture(), empty);
}

TEST(PlotView, LeavesHolesOutAndBreaksTheLineThere) {
    PlotSurface surface = PlainDiagram();
    SetPoints(surface, kLines, 1, {1, 4, kHole, 6, 9}, {0.5, 0.5, kHole, 0.5, 0.5});
    SetPoints(surface, kPoints, 1, {2, 5, 8}, {0.8, kHole, 0.8});
    Shown shown(surface);
    const QImage picture = shown.Picture();
    EXPECT_TRUE(IsDark(picture, surface, 2.5, 0.5));
    EXPECT_FALSE(IsDark(picture, surface, 5, 0.5));
    EXPECT_TRUE(IsDark(picture, surface, 7.5, 0.5));
    EXPECT_TRUE(IsDark(picture, surface, 8, 0.8));
    EXPECT_FALSE(IsDark(picture, surface, 5, 0.8));
}

TEST(PlotView, ShowsThePositivePartOnALogarithmicAxis) {
    PlotSurface surface = PlainDiagram();
    SetAxisLog(surface, AxisId::Y, true);
    SetAxis(surface, AxisId::Y, -1, 100, -1, 100);
    SetPoints(surface, kLines, 1, {0, 3, 5, 10}, {-1, 0, 10, 10});
    Shown shown(surface);
    const QImage picture = shown.Picture();
    EXPECT_GT(ShownRange(surface, AxisId::Y).min, 0);
    EXPECT_TRUE(IsDark(picture, surface, 7.5, 10));
    // nothing leads down to the points that such an axis does not have
    int dark = 0;
    for (double y = 0.01; y < 9; y *= 1.5)
        dark += IsDark(picture, surface, 4, y) ? 1 : 0;
    EXPECT_EQ(dark, 0);
}

TEST(PlotView, ShowsPointsOnTheFrameWhole) {
    PlotSurface surface = PlainDiagram();
    SetPoints(surface, kPoints, 1, {0, 10.5}, {0.55, 0.5});
    SetSymbol(surface, kPoints, 1, {.shape = SymbolShape::Square, .size = 12});
    Shown shown(surface);
    const QImage picture = shown.Picture();
    const auto corner = DataToPixel(surface, 0, 0.55);
    EXPECT_LT(Darkest(picture, corner->x - 4, corner->y), 100); // left of the frame too
    EXPECT_LT(Darkest(picture, corner->x + 4, corner->y), 100);
    const auto beyond = DataToPixel(surface, 10.5, 0.5); // outside the frame: not at all
    EXPECT_GT(Darkest(picture, beyond->x, beyond->y), 200);
}

TEST(PlotView, GivesEverySymbolAndPatternAFaceOfItsOwn) {
    PlotSurface surface = PlainDiagram();
    Shown shown(surface);
    std::set<QByteArray> faces;
    const auto note = [&] {
        shown.view.Show(surface);
        const auto at = DataToPixel(surface, 5, 0.5);
        const QImage face = shown.Picture().copy(qRound(at->x) - 40, qRound(at->y) - 10, 80, 20);
        faces.insert(
            QByteArray(reinterpret_cast<const char*>(face.constBits()), face.sizeInBytes()));
    };
    SetPoints(surface, kPoints, 1, {5}, {0.5});
    constexpr int kShapes = static_cast<int>(SymbolShape::Hidden) + 1;
    for (int shape = 0; shape < kShapes; ++shape) {
        SetSymbol(surface, kPoints, 1, {.shape = static_cast<SymbolShape>(shape), .size = 12});
        note();
    }
    EXPECT_EQ(faces.size(), static_cast<std::size_t>(kShapes));
    SetPointCount(surface, kPoints, 1, 0);
    SetPoints(surface, kLines, 1, {0, 10}, {0.5, 0.5});
    for (const LinePattern pattern :
         {LinePattern::Solid, LinePattern::Dotted, LinePattern::Dashed, LinePattern::DashDot}) {
        SetLineStyle(surface, kLines, 1, {.pattern = pattern});
        note();
    }
    EXPECT_EQ(faces.size(), static_cast<std::size_t>(kShapes + 4));
}

TEST(PlotView, StaysDarkOnWhiteUnderADarkTheme) {
    const QPalette before = QApplication::palette();
    QPalette dark(Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(dark);
    PlotSurface surface = PlainDiagram();
    AddDecay(surface, 1, 3, "c(A) ");
    Shown shown(surface);
    const QImage picture = shown.Picture();
    QApplication::setPalette(before);
    EXPECT_EQ(picture.pixel(1, 1), qRgb(255, 255, 255));
    EXPECT_FALSE(IsDark(picture, surface, 8, 0.9));
    EXPECT_TRUE(IsDark(picture, surface, 2, std::exp(-2.0 / 3)));
    const PixelRect& header = surface.layout.header;
    int darkest = 255;
    for (int px = 0; px < qRound(header.width); ++px)
        darkest =
            std::min(darkest, Darkest(picture, header.left + px, header.top + header.height / 2));
    EXPECT_LT(darkest, 60);
}

} // namespace zorvant
