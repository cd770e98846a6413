// Clipboard, files and printer for the diagram window.
#pragma once

#include "diagrams/picture_output.h"

class QPagedPaintDevice;
class QMimeData;

namespace zorvant {

/// Puts the toolkit's means into pictureOutput().
void InstallPictureOutput();

/// The diagram as it goes to the clipboard, as large as the screen shows it: PNG, SVG and EMF at
/// once, those of `first` in front.
/// Given: first: Bitmap, else the vector pictures come first
/// Errors: FileError
QMimeData* ClipboardPicture(PlotSurface& surface, PictureFormat first);

/// Makes the whole paper the page, so that places count from its corner; an A4 page for a request
/// that asks for one.
void PreparePage(QPagedPaintDevice& device, const PrintRequest& request);
/// Paints a diagram on the prepared page, as large as asked for.
void PaintPage(QPagedPaintDevice& device, PlotSurface& surface, const PrintRequest& request);

} // namespace zorvant
