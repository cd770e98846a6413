// Pictures as metafiles, in the records that Microsoft has published as [MS-EMF] and [MS-WMF].
#pragma once

#include "shell/qt/meta_picture.h"

#include <QByteArray>

namespace zorvant {

// Dashed lines are written as single strokes: standard metafiles know no other, and many readers of
// enhanced ones draw pens of the user's own pattern as solid ones.

/// An enhanced metafile. Coordinates are device units of 1/1200 inch; texts are in Unicode.
QByteArray EmfBytes(const MetaPicture& picture, const QString& title);

/// A standard metafile, 1200 units to the inch or as many as 16 bits have room for. Its texts are
/// in Windows-1252; those with other letters are written as outlines.
/// Given: placeable: with the header that tells the size on paper
QByteArray WmfBytes(const MetaPicture& picture, bool placeable);

} // namespace zorvant
