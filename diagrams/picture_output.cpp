#include "diagrams/picture_output.h"

#include "platform/files.h"

namespace zorvant {
namespace {

constexpr double kA4Width = 21, kA4Height = 29.7; ///< cm
constexpr double kUsualAspect = 2.0 / 3;

PictureOutput NoOutput() {
    PictureOutput none;
    none.copyToClipboard = [](PlotSurface&, PictureFormat) { return false; };
    none.drawToFile = [](PlotSurface&, const std::string&, PictureFormat, const PictureSize&) {
        return false;
    };
    none.printChart = [](PlotSurface&, const PrintRequest&) { return false; };
    none.previewChart = [](PlotSurface&, const PrintRequest&) {};
    none.setUpPage = [] {};
    none.paper = [] { return PaperRect{0, 0, kA4Width, kA4Height}; };
    return none;
}

} // namespace

bool IsBitmap(PictureFormat format) {
    return format == PictureFormat::Bitmap || format == PictureFormat::Png;
}

void CheckPixels(double width, double height) {
    if (width < 1 || height < 1)
        throw FileError("a picture of this size has no pixels");
    if (width > kLargestSide || height > kLargestSide || width * height > kMostPixels)
        throw FileError("the picture would be larger than " + std::to_string(kLargestSide) +
                        " pixels on a side or " +
                        std::to_string(static_cast<int>(kMostPixels / 1e6)) + " million in all");
}

PaperRect PlaceOnPaper(const PrintRequest& request, double aspect) {
    PaperRect rect{request.left + kPaperEdge, request.top + kPaperEdge, request.width,
                   request.height};
    switch (request.scaling) {
    case PaperScaling::Width:
        rect.height = rect.width * aspect;
        break;
    case PaperScaling::Height:
        rect.width = rect.height / aspect;
        break;
    case PaperScaling::Page:
        rect.width = kA4Width - 2 * rect.left;
        rect.height = kA4Height - 2 * rect.top;
        break;
    }
    return rect;
}

double AspectOf(const PlotSurface& surface) {
    const PixelRect& picture = surface.layout.picture;
    return picture.width > 0 && picture.height > 0 ? picture.height / picture.width : kUsualAspect;
}

PictureOutput& pictureOutput() {
    static PictureOutput theOutput = NoOutput();
    return theOutput;
}

} // namespace zorvant
