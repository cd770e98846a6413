#include "shell/qt/plot_picture.h"

#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/paths.h"
#include "shell/qt/metafile.h"
#include "shell/qt/plot_view.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>
#include <QPageSize>
#include <QPdfWriter>
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

[[noreturn]] void ThrowNoMemory() {
    throw FileError("there is not enough memory for a picture of this size");
}

QByteArray Encoded(const QImage& image, const char* format, int quality) {
    if (image.isNull())
        ThrowNoMemory();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadWrite);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    if (!writer.write(image))
        throw FileError("the picture could not be encoded");
    // The writers work on a copy and do not notice when there is no room for it.
    buffer.seek(0);
    if (QImageReader(&buffer, format).size() != image.size())
        ThrowNoMemory();
    return bytes;
}

QByteArray Png(PlotSurface& surface, const PictureMeasure& measure) {
    return Encoded(PictureImage(surface, measure), "png", kPngQuality);
}

QByteArray Bmp(PlotSurface& surface, const PictureMeasure& measure) {
    QImage image = PictureImage(surface, measure);
    image.convertTo(QImage::Format_RGB888); // the form that every program reads
    return Encoded(image, "bmp", -1);
}

/// Drops the characters that XML has no place for. In UTF-8: controls, U+FFFE and U+FFFF.
QByteArray KnownToXml(const QByteArray& utf8) {
    QByteArray known;
    known.reserve(utf8.size());
    for (qsizetype i = 0; i < utf8.size(); ++i) {
        const char c = utf8[i];
        const QByteArrayView next = QByteArrayView(utf8).sliced(i);
        if (next.startsWith("\xEF\xBF\xBE") || next.startsWith("\xEF\xBF\xBF"))
            i += 2;
        else if (static_cast<unsigned char>(c) >= 0x20 || c == '\n' || c == '\r' || c == '\t')
            known += c;
    }
    return known;
}

QByteArray Svg(PlotSurface& surface, const PictureMeasure& measure) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(measure.size);
    generator.setViewBox(QRect(QPoint(0, 0), measure.size));
    generator.setResolution(qRound(kDotsPerInch));
    generator.setTitle(QString()); // it would be written as it is, markup and all
    PlotView().PaintOn(generator, surface, measure.size, QTransform(), true);
    const QString title = QString::fromStdString(surface.header.text).toHtmlEscaped();
    if (!title.isEmpty())
        bytes.insert(bytes.indexOf('>', bytes.indexOf("<svg")) + 1,
                     "\n<title>" + title.toUtf8() + "</title>");
    return KnownToXml(bytes);
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
        ThrowNoMemory();
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

QByteArray WithoutDate(QByteArray pdf) {
    const QByteArray start("/CreationDate (D:"), date("20000101000000Z");
    const qsizetype at = pdf.indexOf(start) + start.size();
    const qsizetype length = pdf.indexOf(')', at) - at;
    if (at < start.size() || length < 0)
        return pdf;
    pdf.replace(at, length, date);
    // How long a date is depends on the time zone. The table at the end says where the objects are.
    const qsizetype shift = date.size() - length;
    const qsizetype table = pdf.lastIndexOf("\nxref\n");
    const auto move = [&](qsizetype number, qsizetype digits, qsizetype width) {
        const qsizetype place = pdf.mid(number, digits).toLongLong();
        if (place > at)
            pdf.replace(number, digits,
                        QByteArray::number(place + shift).rightJustified(width, '0'));
    };
    constexpr qsizetype kOffsetDigits = 10;
    for (qsizetype line = table; line >= 0; line = pdf.indexOf('\n', line + 1))
        if (pdf.mid(line + 1 + kOffsetDigits, 9) == " 00000 n ")
            move(line + 1, kOffsetDigits, kOffsetDigits);
    const qsizetype last = pdf.lastIndexOf("startxref\n") + 10;
    move(last, pdf.indexOf(' ', last) - last, 0);
    return pdf;
}

QImage PictureImage(PlotSurface& surface, const PictureMeasure& measure) {
    CheckPixels(measure.pixels.width(), measure.pixels.height());
    QImage image(measure.pixels, QImage::Format_RGB32);
    if (image.isNull())
        ThrowNoMemory();
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

std::string PictureBytes(PlotSurface& surface, const std::string& name, QSize size, double scale) {
    const std::string ending = UpperCase(Ending(name));
    for (const Format& each : kFormats)
        if (each.ending != nullptr && ending == each.ending)
            return Draw(surface, each, MeasureByScale(size, scale));
    throw FileError("a picture ends in .png, .svg, .pdf, .bmp, .wmf or .emf, not as \"" + name +
                    "\"");
}

} // namespace zorvant
