#include "shell/qt/plot_output.h"

#include "platform/files.h"
#include "platform/host.h"
#include "shell/qt/binder.h"
#include "shell/qt/plot_picture.h"
#include "shell/qt/plot_view.h"

#include <QPdfWriter>
#include <QtPrintSupport/QPageSetupDialog>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrinter>
#include <QtPrintSupport/QPrinterInfo>
#include <QtWidgets>

namespace zorvant {
namespace {

constexpr double kDotsPerInch = 96;
constexpr double kClipboardDotsPerInch = 300;
constexpr int kPdfResolution = 1200;
constexpr QSize kUsualSize(900, 600);
constexpr QSize kPreviewSize(820, 900);
constexpr const char* kDocument = "Diagram";

QString TitleOf(const PlotSurface& surface) {
    const QString header = QString::fromStdString(surface.header.text).simplified();
    return header.isEmpty() ? QString::fromLatin1(kDocument) : header;
}

/// The page as the user has set it up; for the run of the program.
QPageLayout& ChosenPage() {
    static QPageLayout page(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF());
    return page;
}

PaperRect Paper() {
    const QRectF millimetres = ChosenPage().fullRect(QPageLayout::Millimeter);
    return {0, 0, millimetres.width() / 10, millimetres.height() / 10};
}

// --- printing

void SetUpPage() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(ChosenPage());
    QPageSetupDialog dialog(&printer, QApplication::activeWindow());
    if (dialog.exec() == QDialog::Accepted)
        ChosenPage() = printer.pageLayout();
}

void Preview(PlotSurface& surface, const PrintRequest& request) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(TitleOf(surface));
    PreparePage(printer, request);
    QPrintPreviewDialog dialog(&printer, QApplication::activeWindow());
    dialog.setWindowTitle(QObject::tr("Print preview"));
    dialog.resize(kPreviewSize.boundedTo(dialog.screen()->availableSize()));
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* page) {
        page->setFullPage(true); // whatever the margins chosen there
        PaintPage(*page, surface, request);
    });
    dialog.exec();
    if (request.scaling != PaperScaling::Page)
        ChosenPage() = printer.pageLayout(); // its paper and direction can be chosen there
}

bool PrintIntoFile(PlotSurface& surface, const PrintRequest& request) {
    if (Ask("No printer is installed.\r\n\r\nDo you want to write the page into a PDF file?",
            "Print", Icon::Question, Buttons::YesNo) != Answer::Yes)
        return false;
    const auto choice = host().chooseFile({.save = true,
                                           .title = "Print into a file",
                                           .directory = {},
                                           .name = {},
                                           .extension = ".PDF",
                                           .filters = {{"PDF document (*.PDF)", "*.PDF"}}});
    if (!choice)
        return false;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(kPdfResolution);
        writer.setTitle(TitleOf(surface));
        PreparePage(writer, request);
        PaintPage(writer, surface, request);
    }
    WriteFileAtomically(choice->path, WithoutDate(bytes).toStdString());
    return true;
}

bool Print(PlotSurface& surface, const PrintRequest& request) {
    Binder::PushAll();
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        return PrintIntoFile(surface, request);
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(TitleOf(surface));
    PreparePage(printer, request);
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    printer.setFullPage(true);
    host().waitPointer(true);
    PaintPage(printer, surface, request);
    host().waitPointer(false);
    if (printer.printerState() == QPrinter::Error)
        throw FileError("The printer does not take the diagram.");
    return true;
}

// --- clipboard and files

bool Copy(PlotSurface& surface, PictureFormat first) {
    QGuiApplication::clipboard()->setMimeData(ClipboardPicture(surface, first));
    return true;
}

bool Draw(PlotSurface& surface, const std::string& file, PictureFormat format,
          const PictureSize& size) {
    WriteFileAtomically(file,
                        PictureBytes(surface, format, MeasureOnPaper(size, IsBitmap(format))));
    return true;
}

} // namespace

void InstallPictureOutput() {
    pictureOutput() = {.copyToClipboard = Copy,
                       .drawToFile = Draw,
                       .printChart = Print,
                       .previewChart = Preview,
                       .setUpPage = SetUpPage,
                       .paper = Paper};
}

QMimeData* ClipboardPicture(PlotSurface& surface, PictureFormat first) {
    const PixelRect& shown = surface.layout.picture;
    const QSize size = shown.width > 0 ? QSizeF(shown.width, shown.height).toSize() : kUsualSize;
    const double largest = std::max(size.width(), size.height());
    const double scale = std::min({kClipboardDotsPerInch / kDotsPerInch, kLargestSide / largest,
                                   std::sqrt(kMostPixels / (1.0 * size.width() * size.height()))});
    const PictureMeasure measure = MeasureByScale(size, scale);
    const auto bytes = [&](PictureFormat format) {
        return QByteArray::fromStdString(PictureBytes(surface, format, measure));
    };
    const QByteArray svg = bytes(PictureFormat::Svg);
    const QByteArray emf = bytes(PictureFormat::EnhancedMetafile);
    const QByteArray png = bytes(PictureFormat::Png);
    auto data = std::make_unique<QMimeData>();
    const auto addVector = [&] {
        for (const char* name : {"image/x-emf", "image/emf", "application/x-emf"})
            data->setData(QString::fromLatin1(name), emf);
        data->setData(QStringLiteral("image/svg+xml"), svg);
    };
    if (first != PictureFormat::Bitmap)
        addVector();
    data->setData(QStringLiteral("image/png"), png);
    data->setImageData(QImage::fromData(png));
    if (first == PictureFormat::Bitmap)
        addVector();
    return data.release();
}

void PreparePage(QPagedPaintDevice& device, const PrintRequest& request) {
    QPageLayout page = request.scaling == PaperScaling::Page
                           ? QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {})
                           : ChosenPage();
    page.setMode(QPageLayout::FullPageMode);
    device.setPageLayout(page);
}

void PaintPage(QPagedPaintDevice& device, PlotSurface& surface, const PrintRequest& request) {
    const PlotLayout kept = surface.layout;
    const PaperRect rect = PlaceOnPaper(request, AspectOf(surface));
    const double dotsPerCm = device.logicalDpiX() / kCentimetresPerInch;
    const QSizeF pixels = QSizeF(rect.width, rect.height) * (kDotsPerInch / kCentimetresPerInch);
    const QSize size = pixels.toSize().expandedTo({1, 1});
    QTransform place = QTransform::fromTranslate(rect.left * dotsPerCm, rect.top * dotsPerCm);
    place.scale(rect.width * dotsPerCm / size.width(), rect.height * dotsPerCm / size.height());
    PlotView().PaintOn(device, surface, size, place, true);
    surface.layout = kept;
}

} // namespace zorvant
