#include "shell/qt/plot_picture.h"

#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/paths.h"
#include "shell/qt/metafile.h"
#include "shell/qt/plot_view.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPageSize>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSvgGenerator>

#include <array>

namespace zorvant {
namespace {

constexpr double kDotsPerInch = 96;
constexpr double kMetre = 1 / 0.0254; ///< inches
/// Finer than any line of a diagram, so that nothing is rounded visibly.
constexpr int kPdfResolution = 1200;
/// Diagrams are mostly ground: the first step of compression does most of it.
constexpr int kPngQuality = 89;

QByteArray Encoded(QImage image, const char* format, int quality) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    if (!writer.write(image))
        throw FileError("the picture could not be encoded");
    return bytes;
}

QByteArray Png(PlotSurface& surface, const PictureMeasure& measure) {
    return Encoded(PictureImage(surface, measure), "png", kPngQuality);
}

QByteArray Bmp(PlotSurface& surface, const PictureMeasure& measure) {
    QImage image = PictureImage(surface, measure);
    image.convertTo(QImage::Format_RGB888); // the form that every program reads
    return Encoded(std::move(image), "bmp", -1);
}

QByteArray Svg(PlotSurface& surface, const PictureMeasure& measure) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(measure.size);
    generator.setViewBox(QRect(QPoint(0, 0), measure.size));
    generator.setResolution(qRound(kDotsPerInch));
    generator.setTitle(QString::fromStdString(surface.header.text));
    PlotView().PaintOn(generator, surface, measure.size, QTransform(), true);
    return bytes;
}

QByteArray Pdf(PlotSurface& surface, const PictureMeasure& measure) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(kPdfResolution);
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        writer.setPageSize(QPageSize(QSizeF(measure.size) / kDotsPerInch, QPageSize::Inch,
                                     QString(), QPageSize::ExactMatch));
        writer.setTitle(QString::fromStdString(surface.header.text));
        writer.setCreator(QStringLiteral("ZORVANT"));
        constexpr double kScale = kPdfResolution / kDotsPerInch;
        PlotView().PaintOn(writer, surface, measure.size, QTransform::fromScale(kScale, kScale),
                           true);
    }
    return WithoutDate(bytes);
}

MetaPicture Recorded(PlotSurface& surface, const PictureMeasure& measure) {
    MetaPicture picture{.size = measure.size, .items = {}};
    MetaDevice device(picture);
    PlotView().PaintOn(device, surface, measure.size, QTransform(), true);
    return picture;
}

QByteArray Emf(PlotSurface& surface, const PictureMeasure& measure) {
    return EmfBytes(Recorded(surface, measure), QString::fromStdString(surface.header.text));
}
QByteArray Wmf(PlotSurface& surface, const PictureMeasure& measure) {
    return WmfBytes(Recorded(surface, measure), true);
}
QByteArray BareWmf(PlotSurface& surface, const PictureMeasure& measure) {
    return WmfBytes(Recorded(surface, measure), false);
}

struct Format {
    PictureFormat format;
    const char* ending; ///< that means this format; nullptr: none
    QByteArray (*draw)(PlotSurface&, const PictureMeasure&);
};
constexpr std::array<Format, 8> kFormats{{{PictureFormat::Png, ".PNG", Png},
                                          {PictureFormat::Svg, ".SVG", Svg},
                                          {PictureFormat::Pdf, ".PDF", Pdf},
                                          {PictureFormat::Bitmap, ".BMP", Bmp},
                                          {PictureFormat::Metafile, ".WMF", Wmf},
                                          {PictureFormat::EnhancedFile, ".EMF", Emf},
                                          {PictureFormat::EnhancedMetafile, nullptr, Emf},
                                          {PictureFormat::StandardMetafile, nullptr, BareWmf}}};

std::string Ending(const std::string& path) {
    const std::string name = FileName(path);
    const std::size_t point = name.rfind('.');
    return point == std::string::npos ? std::string() : name.substr(point);
}

/// Runs a drawing function; the record's layout is the screen's again afterwards.
std::string Draw(PlotSurface& surface, const Format& format, const PictureMeasure& measure) {
    const PlotLayout kept = surface.layout;
    try {
        const QByteArray bytes = format.draw(surface, measure);
        surface.layout = kept;
        return bytes.toStdString();
    } catch (const std::bad_alloc&) {
        surface.layout = kept;
        throw FileError("there is not enough memory for a picture of this size");
    }
}

} // namespace

PictureMeasure MeasureByScale(QSize size, double scale) {
    return {.size = size, .pixels = (QSizeF(size) * scale).toSize()};
}

PictureMeasure MeasureOnPaper(const PictureSize& size, bool bitmap) {
    const QSizeF inches = QSizeF(size.width, size.height) / kCentimetresPerInch;
    const PictureMeasure measure{.size = (inches * kDotsPerInch).toSize().expandedTo({1, 1}),
                                 .pixels = (inches * size.dotsPerInch).toSize()};
    if (bitmap)
        CheckPixels(measure.pixels.width(), measure.pixels.height());
    return measure;
}

QByteArray WithoutDate(const QByteArray& pdf) {
    // Same length: the table of positions at the end stays right.
    static const QRegularExpression kDate(QStringLiteral(R"(/CreationDate \(D:\d{14})"));
    QString text = QString::fromLatin1(pdf);
    text.replace(kDate, QStringLiteral("/CreationDate (D:20000101000000"));
    return text.toLatin1();
}

QImage PictureImage(PlotSurface& surface, const PictureMeasure& measure) {
    CheckPixels(measure.pixels.width(), measure.pixels.height());
    QImage image(measure.pixels, QImage::Format_RGB32);
    if (image.isNull())
        throw FileError("there is not enough memory for a picture of this size");
    const double scaleX = static_cast<double>(image.width()) / measure.size.width();
    const double scaleY = static_cast<double>(image.height()) / measure.size.height();
    image.fill(Qt::white);
    image.setDotsPerMeterX(qRound(kDotsPerInch * kMetre * scaleX));
    image.setDotsPerMeterY(qRound(kDotsPerInch * kMetre * scaleY));
    PlotView().PaintOn(image, surface, measure.size, QTransform::fromScale(scaleX, scaleY), false);
    return image;
}

std::string PictureBytes(PlotSurface& surface, PictureFormat format,
                         const PictureMeasure& measure) {
    for (const Format& each : kFormats)
        if (each.format == format)
            return Draw(surface, each, measure);
    throw FileError("there is no such format of pictures");
}

std::string PictureBytes(PlotSurface& surface, const std::string& ending, QSize size,
                         double scale) {
    for (const Format& each : kFormats)
        if (each.ending != nullptr && UpperCase(ending) == each.ending)
            return Draw(surface, each, MeasureByScale(size, scale));
    throw FileError("a picture ends in .png, .svg, .pdf, .bmp, .wmf or .emf, not in \"" + ending +
                    "\"");
}

void RenderPicture(PlotSurface& surface, const std::string& path, QSize size, double scale) {
    WriteFileAtomically(path, PictureBytes(surface, Ending(path), size, scale));
}

} // namespace zorvant
