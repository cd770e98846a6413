// A diagram as a picture: in memory, in a file.
#pragma once

#include "diagrams/picture_output.h"

#include <QImage>

#include <string>

namespace zorvant {

/// What a picture measures.
struct PictureMeasure {
    QSize size;   ///< logical pixels of 1/96 inch, which texts and lines are laid out by
    QSize pixels; ///< of a bitmap
};
/// Errors: FileError for more pixels than a bitmap may have
PictureMeasure MeasureByScale(QSize size, double scale);
PictureMeasure MeasureOnPaper(const PictureSize& size, bool bitmap);

/// The bytes of a picture; the same ones for the same diagram. Metafiles are placeable ones except
/// that of StandardMetafile.
/// Errors:   FileError when the device fails or memory does not do
std::string PictureBytes(PlotSurface& surface, PictureFormat format, const PictureMeasure& measure);

/// The same by the ending of a file's name.
/// Given:    name: ends in .png, .svg, .pdf, .bmp, .wmf or .emf, in any case; size in logical
///           pixels; scale: pixels of a bitmap to a logical pixel
/// Errors:   FileError for another ending too
std::string PictureBytes(PlotSurface& surface, const std::string& name, QSize size,
                         double scale = 1);

/// The painted bitmap. Errors: FileError
QImage PictureImage(PlotSurface& surface, const PictureMeasure& measure);

/// A PDF with a fixed date in place of the one of the drawing, so that equal diagrams give equal
/// files.
QByteArray WithoutDate(QByteArray pdf);

} // namespace zorvant
