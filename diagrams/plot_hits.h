// Pixels and data: what the pointer is over, the marked point, and the zoom.
#pragma once

#include "diagrams/plot_contents.h"

namespace zorvant {

enum class Region { PlotArea = -100, Legend = -99, Header = -98, Footer = -97, Outside = 0 };
struct PixelHit {
    double x = 0, y = 0; ///< data coordinates, by the plot area
    Region region = Region::Outside;
};
/// Legend, header and footer lie above the plot area where they overlap it.
PixelHit PixelToData(const PlotSurface& surface, double px, double py);
/// Returned: nothing where a logarithmic axis has no such place.
std::optional<DataPoint> DataToPixel(const PlotSurface& surface, double x, double y);

struct NearestHit {
    int series = -1; ///< -1: none
    int point = -1;
    double distance = 0; ///< pixels
};
/// The nearest point of the shown series of a group that is painted inside the plot area.
NearestHit NearestPoint(const PlotSurface& surface, int group, double px, double py);

// --- zoom

/// Waits for a rectangle drawn with the left button.
void StartRubberZoom(PlotSurface& surface);
/// Left button down, move and up; nothing happens unless a zoom waits.
void RubberDown(PlotSurface& surface, double px, double py);
void RubberMove(PlotSurface& surface, double px, double py);
/// Zooms when the rectangle is at least 4 pixels wide and high.
/// Returned: whether the axes have changed.
bool RubberUp(PlotSurface& surface, double px, double py);
/// Esc, or the mouse map emptied.
void CancelRubberZoom(PlotSurface& surface);
/// Brings back the data ranges of the axes.
void ResetZoom(PlotSurface& surface);

// --- the marked point

/// Where the marked point stands; nothing when there is none, or it is a hole or outside the frame.
std::optional<SeriesPoint> ShownCursor(const PlotSurface& surface);
/// Marks a point on the screen, or none. Not part of the picture.
void SetCursor(PlotSurface& surface, const std::optional<SeriesPoint>& point);
/// The numbers of the points of a series that can be seen: it is shown, they are no holes and lie
/// in the shown ranges of the axes.
std::vector<int> PointsInFrame(const PlotSurface& surface, int group, int series);

} // namespace zorvant
