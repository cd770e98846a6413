// Metafiles: their records by the published rules, and as a reader of other people sees them.
#include "platform/files.h"
#include "shell/qt/plot_picture.h"
#include "shell/qt/plot_view.h"
#include "tests/qt/plot_samples.h"
#include "tests/temp_folder.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

namespace zorvant {
namespace {

using testing::HasSubstr;

constexpr Colour kCurveColour = 0xC01020;
constexpr QSize kSize(600, 400);

/// A dashed and a coloured curve, symbols of every shape, a legend, a header of two lines.
PlotSurface Sample() {
    PlotSurface surface = EmptyDiagram();
    AddDecay(surface, 1, 3, "c(A)");
    AddDecay(surface, 2, 1, "\u03C4 \u2212 1"); // letters that Windows-1252 lacks
    SetLineColour(surface, kLines, 1, kCurveColour);
    SetLineStyle(surface, kLines, 2, {.pattern = LinePattern::Dashed, .width = 2});
    SetPoints(surface, kLines, kHalfLifeASeries, {2, 2}, {0, 10000}); // beyond the frame
    for (int set = 1; set <= kPointSets; ++set) {
        SetPoints(surface, kPoints, set, {0, 1, 2}, {1, 0.7, 0.1 * set});
        SetSymbol(surface, kPoints, set, {.shape = static_cast<SymbolShape>(set - 1), .size = 8});
    }
    SetLegendVisible(surface, true);
    SetHeader(surface, "two lines\nof \303\204pfel & Birnen");
    return surface;
}

/// Little-endian numbers of a file; beyond its end a failure.
struct Reader {
    std::string bytes;
    unsigned U16(std::size_t at) const {
        return static_cast<unsigned char>(bytes.at(at)) |
               static_cast<unsigned>(static_cast<unsigned char>(bytes.at(at + 1))) << 8;
    }
    unsigned U32(std::size_t at) const { return U16(at) | U16(at + 2) << 16; }
    int I32(std::size_t at) const { return static_cast<int>(U32(at)); }
};

/// Objects must be made before they are selected, and all be gone in the end.
class Objects {
public:
    void Make(unsigned number) { EXPECT_TRUE(held_.insert(number).second) << number; }
    void Select(unsigned number) const { EXPECT_TRUE(held_.contains(number)) << number; }
    void Delete(unsigned number) { EXPECT_EQ(held_.erase(number), 1U) << number; }
    ~Objects() { EXPECT_TRUE(held_.empty()); }

private:
    std::set<unsigned> held_;
};

/// What the reader drew, from the SVG that it writes: path data by colour.
std::map<std::string, QStringList> PathsByColour(const QString& svg) {
    static const QRegularExpression kPath(
        QStringLiteral("<path[^>]* d=\"([^\"]*)\"[^>]*stroke=\"(#[0-9A-Fa-f]{6})\""));
    std::map<std::string, QStringList> paths;
    for (auto match = kPath.globalMatch(svg); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        paths[found.captured(2).toUpper().toStdString()].append(found.captured(1));
    }
    return paths;
}

} // namespace

TEST(Metafile, EnhancedOnesKeepTheRulesOfTheirRecords) {
    PlotSurface surface = Sample();
    const Reader file{PictureBytes(surface, ".emf", kSize)};
    EXPECT_EQ(file.U32(40), 0x464D4520U);
    EXPECT_EQ(file.U32(48), file.bytes.size());
    // 600x400 pixels of 1/96 inch, in 0.01 mm and in device units of 1/1200 inch
    EXPECT_EQ(file.I32(32), 15875);
    EXPECT_EQ(file.I32(36), 10583);
    EXPECT_EQ(file.I32(16), 7499);
    EXPECT_NEAR(file.I32(72) * 25.4 / file.I32(80), 1200, 1e-9);
    unsigned records = 0, type = 0;
    int depth = 0;
    Objects objects;
    for (std::size_t at = 0; at < file.bytes.size(); at += file.U32(at + 4)) {
        type = file.U32(at);
        const unsigned size = file.U32(at + 4), first = file.U32(at + 8);
        ASSERT_TRUE(size >= 8 && size % 4 == 0 && at + size <= file.bytes.size()) << at;
        ++records;
        if (type == 39 || type == 82 || type == 95)
            objects.Make(first);
        else if (type == 37 && first < 0x80000000U)
            objects.Select(first);
        else if (type == 40)
            objects.Delete(first);
        depth += type == 33 ? 1 : type == 34 ? -1 : 0;
        EXPECT_GE(depth, 0);
        if (type == 3 || type == 4) { // polygon, line: all points inside their bounds
            EXPECT_EQ(size, 28 + 8 * file.U32(at + 24));
            for (std::size_t point = at + 28; point < at + size; point += 8) {
                EXPECT_TRUE(file.I32(at + 8) <= file.I32(point) &&
                            file.I32(point) <= file.I32(at + 16));
                EXPECT_TRUE(file.I32(at + 12) <= file.I32(point + 4) &&
                            file.I32(point + 4) <= file.I32(at + 20));
            }
        }
        if (type == 84) { // text: letters and distances lie inside the record
            const unsigned letters = file.U32(at + 44);
            EXPECT_GE(file.U32(at + 72), file.U32(at + 48) + 2 * letters);
            EXPECT_LE(file.U32(at + 72) + 4 * letters, size);
        }
    }
    EXPECT_EQ(type, 14U);
    EXPECT_EQ(file.U32(file.bytes.size() - 4), 20U);
    EXPECT_EQ(file.U32(52), records);
    EXPECT_EQ(depth, 0);
}

TEST(Metafile, StandardOnesKeepTheRulesOfTheirRecords) {
    PlotSurface surface = Sample();
    for (const QSize size : {kSize, QSize(6000, 4000)}) { // the larger one in coarser units
        const Reader file{PictureBytes(surface, ".wmf", size)};
        unsigned check = 0;
        for (std::size_t at = 0; at < 20; at += 2)
            check ^= file.U16(at);
        EXPECT_EQ(file.U16(20), check);
        EXPECT_NEAR(96.0 * file.U16(10) / file.U16(14), size.width(), 1);
        EXPECT_LE(file.U16(10), 32767U);
        constexpr std::size_t kHeader = 22;
        EXPECT_EQ(file.U32(kHeader + 6) * 2 + kHeader, file.bytes.size());
        unsigned longest = 0, type = 1, made = 0;
        Objects objects;
        std::string letters;
        for (std::size_t at = kHeader + 18; at < file.bytes.size(); at += 2 * file.U32(at)) {
            const unsigned words = file.U32(at);
            type = file.U16(at + 4);
            ASSERT_TRUE(words >= 3 && at + 2 * words <= file.bytes.size()) << at;
            longest = std::max(longest, words);
            if (type == 0x02FA || type == 0x02FB || type == 0x02FC)
                objects.Make(made++);
            if (type == 0x012D)
                objects.Select(file.U16(at + 6));
            if (type == 0x01F0)
                objects.Delete(file.U16(at + 6));
            if (type == 0x0A32)
                letters += file.bytes.substr(at + 14, file.U16(at + 10)) + "|";
        }
        EXPECT_EQ(type, 0U);
        EXPECT_EQ(file.U32(kHeader + 12), longest);
        EXPECT_EQ(file.U16(kHeader + 10), made);
        EXPECT_THAT(letters, HasSubstr("|of \304pfel & Birnen|"));
        EXPECT_THAT(letters, HasSubstr("|c(A)|"));
        EXPECT_THAT(letters, testing::Not(HasSubstr("?"))); // what 1252 lacks is drawn instead
    }
    // without the header of placeable files the rest is the same
    const PictureMeasure measure = MeasureByScale(kSize, 1);
    EXPECT_EQ(PictureBytes(surface, PictureFormat::StandardMetafile, measure),
              PictureBytes(surface, PictureFormat::Metafile, measure).substr(22));
}

TEST(Metafile, AnotherReaderSeesTheSameLinesTextsAndColours) {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("emf2svg-conv"));
    if (program.isEmpty())
        GTEST_SKIP() << "emf2svg-conv (Debian package emf2svg) is not installed";
    PlotSurface surface = Sample();
    const TempFolder folder;
    WriteFileAtomically(folder / "a.emf", PictureBytes(surface, ".emf", kSize));
    const QString svgFile = QString::fromStdString(folder / "a.svg");
    ASSERT_EQ(
        QProcess::execute(program, {QStringLiteral("-i"), QString::fromStdString(folder / "a.emf"),
                                    QStringLiteral("-o"), svgFile}),
        0);
    const QString svg = QString::fromStdString(ReadFile(svgFile.toStdString()));
    for (const char* text : {"[c(A)]", "[c(A)/ (mol/L)]", "[t/ s]", "[\u03C4 \u2212 1]",
                             "[of \303\204pfel & Birnen]", "font-family=\"Arial\"", "rotate(-90"})
        EXPECT_TRUE(svg.contains(QString::fromUtf8(text))) << text;

    // the coloured curve, point for point; and its sample in the legend
    PlotView().PaintOn(*std::make_unique<QImage>(kSize, QImage::Format_RGB32), surface, kSize,
                       QTransform(), false);
    const QStringList coloured = PathsByColour(svg)["#C01020"];
    ASSERT_EQ(coloured.size(), 2);
    static const QRegularExpression kPoint(QStringLiteral("[ML] ([-\\d.]+),([-\\d.]+)"));
    int points = 0;
    for (auto match = kPoint.globalMatch(coloured[0]); match.hasNext(); ++points) {
        const QRegularExpressionMatch found = match.next();
        const auto expected = DataToPixel(surface, points * 0.05, std::exp(-points * 0.05 / 3));
        EXPECT_NEAR(found.captured(1).toDouble() / 12.5, expected->x, 0.1);
        EXPECT_NEAR(found.captured(2).toDouble() / 12.5, expected->y, 0.1);
    }
    EXPECT_EQ(points, 201);
    // the dashed curve came as strokes
    const QStringList black = PathsByColour(svg)["#000000"];
    EXPECT_TRUE(std::ranges::any_of(
        black, [](const QString& path) { return path.count(QLatin1Char('M')) > 20; }));
}

} // namespace zorvant
