#include "shell/qt/plot_picture.h"

#include "platform/files.h"
#include "platform/number_text.h"
#include "shell/qt/plot_view.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSvgGenerator>

#include <array>

namespace zorvant {
namespace {

constexpr double kDotsPerInch = 96;
constexpr double kDotsPerMetre = kDotsPerInch / 0.0254;
/// Finer than any line of a diagram, so that nothing is rounded visibly.
constexpr int kPdfResolution = 1200;

QByteArray Png(PlotView& view, PlotSurface& surface, QSize size, double scale) {
    QImage image(size * scale, QImage::Format_RGB32);
    if (image.isNull())
        throw FileError("the picture is too large");
    image.fill(Qt::white);
    image.setDotsPerMeterX(qRound(kDotsPerMetre * scale));
    image.setDotsPerMeterY(qRound(kDotsPerMetre * scale));
    view.PaintOn(image, surface, size, scale, false);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG"))
        throw FileError("the picture could not be encoded");
    return bytes;
}

QByteArray Svg(PlotView& view, PlotSurface& surface, QSize size, double) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    generator.setResolution(qRound(kDotsPerInch));
    generator.setTitle(QString::fromStdString(surface.header.text));
    view.PaintOn(generator, surface, size, 1, true);
    return bytes;
}

QByteArray Pdf(PlotView& view, PlotSurface& surface, QSize size, double) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(kPdfResolution);
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        writer.setPageSize(QPageSize(QSizeF(size) / kDotsPerInch, QPageSize::Inch, QString(),
                                     QPageSize::ExactMatch));
        writer.setTitle(QString::fromStdString(surface.header.text));
        writer.setCreator(QStringLiteral("ZORVANT"));
        view.PaintOn(writer, surface, size, kPdfResolution / kDotsPerInch, true);
    }
    // The date of the drawing would make every file another one. Same length: the table of
    // positions at the end stays right.
    static const QRegularExpression kDate(QStringLiteral(R"(/CreationDate \(D:\d{14})"));
    QString text = QString::fromLatin1(bytes);
    text.replace(kDate, QStringLiteral("/CreationDate (D:20000101000000"));
    return text.toLatin1();
}

struct Format {
    const char* ending;
    QByteArray (*draw)(PlotView&, PlotSurface&, QSize, double);
};
constexpr std::array<Format, 3> kFormats{
    {{".PNG", Png}, {".SVG", Svg}, {".PDF", Pdf}}
};

std::string Ending(const std::string& path) {
    const std::string name = FileName(path);
    const std::size_t point = name.rfind('.');
    return point == std::string::npos ? std::string() : name.substr(point);
}

} // namespace

std::string PictureBytes(PlotSurface& surface, const std::string& ending, QSize size,
                         double scale) {
    const PlotLayout kept = surface.layout;
    for (const Format& format : kFormats) {
        if (UpperCase(ending) != format.ending)
            continue;
        PlotView view;
        const QByteArray bytes = format.draw(view, surface, size, scale);
        surface.layout = kept;
        return bytes.toStdString();
    }
    throw FileError("a picture ends in .png, .svg or .pdf, not in \"" + ending + "\"");
}

void RenderPicture(PlotSurface& surface, const std::string& path, QSize size, double scale) {
    WriteFileAtomically(path, PictureBytes(surface, Ending(path), size, scale));
}

} // namespace zorvant
