// Diagrams as files.
#include "engine/reaction_catalogue.h"
#include "platform/files.h"
#include "shell/qt/plot_picture.h"
#include "tests/qt/plot_samples.h"

#include <QImage>
#include <QXmlStreamReader>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

PlotSurface Sample() {
    PlotSurface surface = EmptyDiagram();
    AddDecay(surface, 1, 3, "c(A) ");
    SetPoints(surface, kLines, kHalfLifeASeries, {2, 2}, {0, 10000}); // a mark beyond the frame
    SetPoints(surface, kPoints, 1, {0, 1, 2}, {1, 0.7, 0.5});
    return surface;
}

} // namespace

TEST(PlotPicture, IsTheSameFileEachTime) {
    PlotSurface surface = Sample();
    for (const auto& [ending, start] : {std::pair{".png", "\x89PNG"},
                                        {".svg", "<?xml"},
                                        {".PDF", "%PDF-"},
                                        {".bmp", "BM"},
                                        {".Wmf", "\xD7\xCD\xC6\x9A"},
                                        {".emf", "\1"}}) {
        const std::string once = PictureBytes(surface, ending, {600, 400});
        EXPECT_TRUE(once.starts_with(start)) << ending;
        EXPECT_EQ(PictureBytes(surface, ending, {600, 400}), once) << ending;
    }
    // whatever the clock says
    const std::string pdf = "1 0 obj\n/CreationDate (D:20260704030201+02'00')\n";
    EXPECT_THAT(WithoutDate(QByteArray::fromStdString(pdf)).toStdString(),
                testing::HasSubstr("(D:20000101000000"));
}

TEST(PlotPicture, MeasuresCentimetresAndDots) {
    PlotSurface surface = Sample();
    const PictureMeasure measure =
        MeasureOnPaper({.width = 15, .height = 10, .dotsPerInch = 300}, true);
    for (const PictureFormat format : {PictureFormat::Png, PictureFormat::Bitmap}) {
        const QImage image =
            QImage::fromData(QByteArray::fromStdString(PictureBytes(surface, format, measure)));
        EXPECT_EQ(image.size(), QSize(1772, 1181));
        EXPECT_NEAR(image.dotsPerMeterX(), 300 / 0.0254, 5);
    }
    EXPECT_THROW(MeasureOnPaper({.width = 100, .height = 100, .dotsPerInch = 600}, true),
                 FileError);
}

TEST(PlotPicture, HasTheSizeAskedForAndLeavesTheRecordAlone) {
    PlotSurface surface = Sample();
    surface.layout.plotArea = {1, 2, 3, 4};
    const PlotContents before = surface;
    for (const double scale : {1.0, 2.0, 0.5}) {
        const QImage image = QImage::fromData(
            QByteArray::fromStdString(PictureBytes(surface, ".png", {600, 400}, scale)));
        EXPECT_EQ(image.size(), QSize(600, 400) * scale);
        EXPECT_EQ(image.pixel(0, 0), qRgb(255, 255, 255));
        EXPECT_EQ(image.pixel(image.width() - 1, image.height() - 1), qRgb(255, 255, 255));
    }
    EXPECT_EQ(surface.layout.plotArea, (PixelRect{1, 2, 3, 4}));
    EXPECT_THROW(PictureBytes(surface, ".gif", {600, 400}), FileError);
    EXPECT_EQ(static_cast<const PlotContents&>(surface), before);
}

TEST(PlotPicture, IsXmlAsSvgWhateverItsTextsAre) {
    PlotSurface surface = Sample();
    SetLegendVisible(surface, true);
    std::vector<std::string> texts{"</title><script>alert(1)</script>", "a & b \" '\x01\x1B",
                                   "\xEF\xBF\xBF]]>&#0;\xC2\xB5", ""};
    for (int model = 1; model <= kModels; ++model)
        texts.emplace_back(Model(model).name); // half of them have arrows
    for (const std::string& text : texts) {
        SetHeader(surface, text);
        surface.footer.text = surface.axes[0].title = surface.labels[1].text = text;
        surface.series[kLines][1].label = text;
        surface.legend.font.family = surface.header.font.family =
            "x\" onload=\"alert(1)\"><script/>" + text;
        QXmlStreamReader svg(QByteArray::fromStdString(PictureBytes(surface, ".svg", {600, 400})));
        QString title;
        while (!svg.atEnd()) {
            if (svg.readNext() != QXmlStreamReader::StartElement)
                continue;
            EXPECT_NE(svg.name(), QLatin1String("script")) << text;
            for (const QXmlStreamAttribute& each : svg.attributes())
                EXPECT_FALSE(each.name().startsWith(QLatin1String("on"))) << text;
            if (svg.name() == QLatin1String("title"))
                title = svg.readElementText();
        }
        EXPECT_FALSE(svg.hasError()) << text << ": " << svg.errorString().toStdString();
        QString known = QString::fromStdString(text);
        known.removeIf([](QChar c) { return c.unicode() < 0x20 || c.unicode() == 0xFFFF; });
        EXPECT_EQ(title, known);
    }
}

TEST(PlotPicture, KeepsTextAsTextAndLinesInsideTheFrame) {
    PlotSurface surface = Sample();
    const std::string svg = PictureBytes(surface, ".svg", {600, 400});
    EXPECT_NE(svg.find(">c(A)/ (mol/L)<"), std::string::npos);
    EXPECT_NE(svg.find("Liberation Sans"), std::string::npos);
    EXPECT_EQ(svg.find("nan"), std::string::npos);
    // some programs do not clip: the mark that reaches to 10000 is cut off beforehand
    for (std::size_t at = svg.find("<polyline"); at != std::string::npos;
         at = svg.find("<polyline", at + 1)) {
        const std::size_t from = svg.find("points=\"", at) + 8;
        std::istringstream points(svg.substr(from, svg.find('"', from) - from));
        double x = 0, y = 0;
        for (char comma = 0; points >> x >> comma >> y;) {
            EXPECT_GE(y, 0);
            EXPECT_LE(y, 400);
        }
    }
}

} // namespace zorvant
