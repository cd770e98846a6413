// Paper and clipboard: a printed page measured, and what other programs find on the clipboard.
#include "dialogs/diagram/frm_z_graph_2d.h"
#include "platform/files.h"
#include "shell/qt/application.h"
#include "shell/qt/plot_output.h"
#include "shell/qt/plot_view.h"
#include "tests/qt/plot_samples.h"
#include "tests/qt/qt_user.h"
#include "tests/temp_folder.h"

#include <QPdfWriter>
#include <QtPrintSupport/QPrinter>
#include <QtPrintSupport/QPrinterInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72;
constexpr double kTolerance = 0.2; ///< mm

/// The operators of the page of a PDF, unpacked.
QByteArray PageContent(const QByteArray& pdf) {
    QByteArray longest;
    for (qsizetype at = pdf.indexOf("stream\n"); at >= 0; at = pdf.indexOf("stream\n", at + 7)) {
        if (pdf.mid(at - 3, 3) == "end")
            continue;
        const qsizetype from = at + 7, to = pdf.indexOf("endstream", from);
        const QByteArray packed = pdf.mid(from, to - from);
        if (!packed.startsWith(0x78)) // not packed
            continue;
        const QByteArray plain = qUncompress(QByteArray("\0\x10\0\0", 4) + packed);
        if (plain.contains(" cm\n") && plain.size() > longest.size())
            longest = plain;
    }
    return longest;
}

/// The outlines that are drawn or filled on a page, in mm from the upper left corner of the paper.
std::vector<QRectF> Outlines(const QByteArray& content, double paperHeight) {
    std::vector<QRectF> outlines;
    std::vector<QTransform> kept;
    QTransform now;
    QPolygonF points;
    std::vector<double> numbers;
    for (const QByteArray& word : content.simplified().split(' ')) {
        bool isNumber = false;
        const double number = word.toDouble(&isNumber);
        if (isNumber) {
            numbers.push_back(number);
            continue;
        }
        const std::size_t n = numbers.size();
        if (word == "q") {
            kept.push_back(now);
        } else if (word == "Q" && !kept.empty()) {
            now = kept.back();
            kept.pop_back();
        } else if (word == "cm" && n >= 6) {
            now =
                QTransform(numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5]) *
                now;
        } else if ((word == "m" || word == "l") && n >= 2) {
            points.append(now.map(QPointF(numbers[0], numbers[1])));
        } else if (word == "re" && n >= 4) {
            points.append(
                QPolygonF(now.mapRect(QRectF(numbers[0], numbers[1], numbers[2], numbers[3]))));
        } else if (QByteArrayList({"S", "s", "f", "f*", "B", "B*", "b", "b*"}).contains(word)) {
            const QRectF box = points.boundingRect();
            outlines.emplace_back(box.left() * kMillimetresPerPoint,
                                  paperHeight - box.bottom() * kMillimetresPerPoint,
                                  box.width() * kMillimetresPerPoint,
                                  box.height() * kMillimetresPerPoint);
            points.clear();
        } else if (word == "n") {
            points.clear();
        }
        numbers.clear();
    }
    return outlines;
}

bool HasOutline(const std::vector<QRectF>& outlines, const QRectF& wanted) {
    return std::ranges::any_of(outlines, [&](const QRectF& each) {
        return std::abs(each.left() - wanted.left()) < kTolerance &&
               std::abs(each.top() - wanted.top()) < kTolerance &&
               std::abs(each.right() - wanted.right()) < kTolerance &&
               std::abs(each.bottom() - wanted.bottom()) < kTolerance;
    });
}

/// The frame of the axes of a diagram that covers a rectangle on paper, mm.
QRectF AxesOn(const QRectF& paper, PlotSurface surface) {
    const QSizeF pixels = paper.size() * (96 / 25.4);
    QImage image(pixels.toSize(), QImage::Format_RGB32);
    PlotView().PaintOn(image, surface, image.size(), QTransform(), false);
    const PixelRect& axes = surface.layout.plotArea;
    const double x = paper.width() / image.width(), y = paper.height() / image.height();
    return {paper.left() + axes.left * x, paper.top() + axes.top * y, axes.width * x,
            axes.height * y};
}

} // namespace

TEST(PlotOutput, APageHasTheDiagramWhereItWasAskedFor) {
    PlotSurface surface = EmptyDiagram();
    AddDecay(surface, 1, 3, "c(A)");
    surface.layout.picture = {0, 0, 750, 450};
    SetChartColours(surface, {.back = 0xF0F0F0}); // the picture can be told from the paper
    const PlotLayout before = surface.layout;
    struct Row {
        PrintRequest request;
        QRectF picture; ///< mm
    };
    for (const Row& row : {Row{{.left = 3, .top = 2.5, .width = 15}, {35, 30, 150, 90}},
                           Row{{.scaling = PaperScaling::Height, .left = 1, .top = 10, .height = 7},
                               {15, 105, 70 * 5 / 3.0, 70}},
                           Row{{.scaling = PaperScaling::Page}, {35, 30, 140, 237}}}) {
        QByteArray written;
        QBuffer buffer(&written);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("page.pdf"));
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        for (QPagedPaintDevice* device : {static_cast<QPagedPaintDevice*>(&writer),
                                          static_cast<QPagedPaintDevice*>(&printer)}) {
            PreparePage(*device, row.request);
            PaintPage(*device, surface, row.request);
        }
        QFile printed(file);
        ASSERT_TRUE(printed.open(QIODevice::ReadOnly));
        for (const QByteArray& pdf : {written, printed.readAll()}) {
            const auto outlines = Outlines(PageContent(pdf), 297);
            EXPECT_TRUE(HasOutline(outlines, row.picture));
            EXPECT_TRUE(HasOutline(outlines, AxesOn(row.picture, surface)));
        }
    }
    EXPECT_EQ(surface.layout.picture, before.picture);
}

TEST(PlotOutput, WithoutAPrinterAPdfIsOffered) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "a printer is installed";
    ScriptedHost screen;
    const PictureOutput kept = pictureOutput();
    InstallPictureOutput();
    PlotSurface surface = EmptyDiagram();
    const TempFolder folder;
    screen.answers = {Answer::No, Answer::Yes};
    screen.files = {FileChoice{.path = folder / "page.pdf"}};
    EXPECT_FALSE(pictureOutput().printChart(surface, {}));
    EXPECT_TRUE(pictureOutput().printChart(surface, {}));
    EXPECT_THAT(screen.boxes.back().text, testing::HasSubstr("No printer is installed"));
    EXPECT_TRUE(ReadFile(folder / "page.pdf").starts_with("%PDF"));
    pictureOutput() = kept;
}

TEST(PlotOutput, TheClipboardHoldsPixelsAndLinesAtOnce) {
    PlotSurface surface = EmptyDiagram();
    surface.layout.picture = {0, 0, 600, 400};
    for (const PictureFormat first : {PictureFormat::Bitmap, PictureFormat::EnhancedMetafile}) {
        const std::unique_ptr<QMimeData> data(ClipboardPicture(surface, first));
        const QStringList formats = data->formats();
        EXPECT_EQ(formats.indexOf(QStringLiteral("image/png")) <
                      formats.indexOf(QStringLiteral("image/emf")),
                  first == PictureFormat::Bitmap);
        EXPECT_EQ(data->data(QStringLiteral("image/emf")).left(4), QByteArray("\1\0\0\0", 4));
        EXPECT_TRUE(data->data(QStringLiteral("image/svg+xml")).contains("<svg"));
        const auto image = qvariant_cast<QImage>(data->imageData());
        EXPECT_EQ(image.size(), QSize(1875, 1250)); // 300 dots per inch
        EXPECT_NEAR(image.dotsPerMeterX(), 300 / 0.0254, 5);
    }
}

TEST(PlotOutput, KeysCopyThePictureOfTheOpenDiagram) {
    const ScriptedHost restore;
    const PictureOutput kept = pictureOutput();
    QTemporaryDir folder;
    Application program;
    host().programDirectory = folder.path().toStdString();
    program.Start("");
    auto& graph = dynamic_cast<frmZGraph2D&>(*FindForm(program.state().desktop, "frmZGraph2D"));
    ShowForm(program.state().desktop, graph);
    Settle();
    ASSERT_NE(program.windows().WidgetOf(graph), nullptr);
    QWidget& window = *program.windows().WidgetOf(graph);
    QGuiApplication::clipboard()->clear();
    for (QShortcut* shortcut : window.findChildren<QShortcut*>())
        if (shortcut->key() == QKeySequence(QStringLiteral("Ctrl+Shift+C")))
            emit shortcut->activated();
    Settle();
    ASSERT_NE(QGuiApplication::clipboard()->mimeData(), nullptr);
    EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->hasFormat(QStringLiteral("image/emf")));
    EXPECT_FALSE(Child<QLabel>(window, "StatusBar2").text().isEmpty());
    pictureOutput() = kept;
}

} // namespace zorvant
