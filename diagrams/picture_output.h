// The diagram as a picture: to the clipboard, into a file, onto paper. What to make and how large
// is settled here; the shell puts in how it is made.
#pragma once

#include "diagrams/plot_surface.h"

#include <functional>
#include <string>

namespace zorvant {

inline constexpr double kCentimetresPerInch = 2.54;
inline constexpr double kSmallestPicture = 1, kLargestPicture = 100;   ///< cm
inline constexpr double kLeastResolution = 30, kMostResolution = 2400; ///< dots per inch
inline constexpr int kLargestSide = 16384;                             ///< pixels of a bitmap
inline constexpr double kMostPixels = 150e6;                           ///< of a bitmap in all
/// Printers leave the edge of the paper free; places on it count from a corner this far inside.
inline constexpr double kPaperEdge = 0.5; ///< cm

/// `ImageFormat`. The numbers above 20 are pictures that other programs take without conversion.
enum class PictureFormat {
    Bitmap = 1,
    Metafile = 2,
    EnhancedMetafile = 3,
    StandardMetafile = 4,
    EnhancedFile = 13, ///< an enhanced metafile whose file ends in .EMF
    Png = 21,
    Svg = 22,
    Pdf = 23
};
/// Whether a picture of this format consists of pixels.
bool IsBitmap(PictureFormat format);

/// The size of a picture on paper. Fonts keep their size in points, whatever the picture's.
struct PictureSize {
    double width = 15, height = 10; ///< cm
    double dotsPerInch = 300;       ///< of a bitmap
};
/// Errors: FileError that tells the limit, for more pixels than a bitmap may have
void CheckPixels(double width, double height);

/// `PrintScaling`.
enum class PaperScaling {
    Width = 2,  ///< as wide as asked for, the height as on the screen
    Height = 3, ///< the other way round
    Page = 5    ///< an A4 page, upright, between margins as wide as left and top
};

/// What a print is asked for, in cm. Left and top count from `kPaperEdge` inside the paper.
struct PrintRequest {
    PictureFormat format = PictureFormat::Bitmap;
    PaperScaling scaling = PaperScaling::Width;
    double left = 3, top = 2.5, width = 15, height = 10;
};
/// A rectangle on paper, cm from the paper's corner.
struct PaperRect {
    double left, top, width, height;
};
/// Where a diagram comes to lie.
/// Given: aspect: height of the diagram on the screen to its width
PaperRect PlaceOnPaper(const PrintRequest& request, double aspect);
/// Height to width of the diagram as the screen shows it; 2/3 before it is shown.
double AspectOf(const PlotSurface& surface);

/// How pictures are made. Each tells whether it was done; what went wrong is a FileError. Without a
/// shell nothing is done.
struct PictureOutput {
    std::function<bool(PlotSurface&, PictureFormat)> copyToClipboard;
    std::function<bool(PlotSurface&, const std::string& file, PictureFormat, const PictureSize&)>
        drawToFile;
    std::function<bool(PlotSurface&, const PrintRequest&)> printChart;
    std::function<void(PlotSurface&, const PrintRequest&)> previewChart;
    std::function<void()> setUpPage;
    std::function<PaperRect()> paper; ///< the page as it is set up
};
PictureOutput& pictureOutput();

} // namespace zorvant
