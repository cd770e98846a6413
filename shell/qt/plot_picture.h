// A diagram as a picture file.
#pragma once

#include "diagrams/plot_surface.h"

#include <QSize>

#include <string>

namespace zorvant {

/// The bytes of a picture; the same ones for the same diagram.
/// Given:    ending ".png", ".svg" or ".pdf", in any case; size in logical pixels of 1/96 inch;
///           scale: pixels of a .png to a logical pixel
/// Errors:   FileError for another ending, or when the device fails
std::string PictureBytes(PlotSurface& surface, const std::string& ending, QSize size,
                         double scale = 1);

/// Draws a diagram into a file by its ending, atomically. Needs a running QApplication; the
/// record's layout is left as it was.
/// Errors:   FileError
void RenderPicture(PlotSurface& surface, const std::string& path, QSize size, double scale = 1);

} // namespace zorvant
