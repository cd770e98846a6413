// Everything that a diagram shows, as one plain record, and how its repainting is held back.
//
// Groups, series, points and labels count from 1. Coordinates of the picture are logical pixels
// from its upper left corner, y downward.
#pragma once

#include "diagrams/plot_styles.h"
#include "platform/host.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zorvant {

struct PlotSeries {
    std::vector<double> x; ///< kHole: no point
    std::vector<double> y;
    SeriesDisplay display = SeriesDisplay::Shown;
    std::string label; ///< legend text; empty: no line in the legend
    LineStyle line;
    SymbolStyle symbol;
    bool operator==(const PlotSeries&) const = default;
};

enum class Attachment { None, Point, Coord };
struct PlotLabel {
    std::string text;
    bool visible = false;
    Attachment attachment = Attachment::None;
    int group = kLines, series = 1, point = 1; ///< Attachment::Point
    double x = 0, y = 0;                       ///< Attachment::Coord
    int offset = 0;                            ///< pixels between the point and the text
    LabelAnchor anchor = LabelAnchor::NorthEast;
    FontChoice font;
    Colours colours;
    Border border;
    bool operator==(const PlotLabel&) const = default;
};

/// Header or footer; may have several lines (line feeds). Painted where it has a text.
struct TextBlock {
    std::string text;
    Location location; ///< automatic: centred above or below the chart area
    FontChoice font;
    Colours colours;
    Border border;
    bool operator==(const TextBlock&) const = default;
};

struct PlotLegend {
    bool visible = false;
    Orientation orientation = Orientation::Vertical;
    Border border{.type = BorderType::Plain};
    FontChoice font;
    Colours colours;
    Location location; ///< automatic: right of the plot area
    bool operator==(const PlotLegend&) const = default;
};

/// Distance of grid lines, ticks or numbers; on a logarithmic axis in decades.
struct Spacing {
    double value = 0; ///< the automatic one is written here too, so that it can be read back
    bool automatic = true;
    bool operator==(const Spacing&) const = default;
};

struct PlotAxis {
    double min = 0, max = 1;         ///< shown
    double dataMin = 0, dataMax = 1; ///< the frame, brought back by ResetZoom
    bool log = false;
    bool visible = true; ///< line, numbers and title; Y2 has none
    std::string title;   ///< may have several lines
    TextRotation titleRotation = TextRotation::Horizontal;
    FontChoice font; ///< of the numbers
    FontChoice titleFont;
    Colour colour = kBlack;
    int lineWidth = 1;                     ///< pixels
    Placement annotation = Placement::Min; ///< where the numbers stand on the other axis
    TextRotation annotationRotation = TextRotation::Horizontal;
    Placement origin = Placement::Min; ///< where on this axis the other one crosses it
    Spacing grid, tick, number;
    LinePattern gridPattern = LinePattern::None;
    Colour gridColour = 0xC0C0C0;
    bool operator==(const PlotAxis&) const = default;
};

/// Distance of the plot area (the rectangle between the axes) from the edge of the chart area.
struct Margin {
    int width = 0; ///< pixels
    bool automatic = true;
    bool operator==(const Margin&) const = default;
};
struct Margins {
    Margin left, right, top, bottom;
    bool operator==(const Margins&) const = default;
};
/// Shares 0..1 of the picture; automatic: what header and footer leave.
struct ChartAreaBox {
    double left = 0, top = 0, width = 1, height = 1;
    bool automatic = true;
    bool operator==(const ChartAreaBox&) const = default;
};

/// What a design file keeps.
struct PlotContents {
    /// By group 1 and 2, element 0 of each list unused.
    std::array<std::vector<PlotSeries>, 3> series;
    std::vector<PlotLabel> labels; ///< element 0 unused
    TextBlock header, footer;
    PlotLegend legend;
    std::array<PlotAxis, 3> axes; ///< by AxisId
    Colours chart;                ///< the whole picture
    Border chartBorder;
    Colours chartArea; ///< the box with axes, numbers and titles
    ChartAreaBox chartAreaBox;
    Colours plotArea;          ///< between the axes
    bool plotAreaFrame = true; ///< its outline
    int plotAreaFrameWidth = 1;
    Margins margins;
    bool operator==(const PlotContents&) const = default;
};

/// Pixels of the picture; empty where width or height is not above 0.
struct PixelRect {
    double left = 0, top = 0, width = 0, height = 0;
    bool Contains(double px, double py) const {
        return px >= left && px <= left + width && py >= top && py <= top + height && width > 0 &&
               height > 0;
    }
    bool operator==(const PixelRect&) const = default;
};
/// Where the view has put a label.
struct LabelRect {
    int label = 0;
    PixelRect rect;
};
/// Where the view has put things. Nothing of it is saved.
struct PlotLayout {
    PixelRect picture, plotArea, legend, header, footer;
    PixelRect chartArea;
    Margins margins; ///< of the plot area, as wide as they came out
    std::vector<LabelRect> labels;
};

struct DataPoint {
    double x = 0, y = 0;
};

/// The rectangle that the user draws to zoom.
struct RubberZoom {
    bool armed = false;                                ///< the next left press starts a rectangle
    bool dragging = false;                             ///< it is being drawn
    double startX = 0, startY = 0, endX = 0, endY = 0; ///< pixels
};

/// A point of a series; point 0: none of them yet.
struct SeriesPoint {
    int group = kLines;
    int series = 0;
    int point = 0;
    bool operator==(const SeriesPoint&) const = default;
};

struct PlotSurface : PlotContents {
    PlotLayout layout;
    RubberZoom rubber;
    std::optional<SeriesPoint> cursor; ///< the point that is marked on the screen
    int batchDepth = 0;
    std::array<int, 3> groupBatchDepth{}; ///< by group
    bool changed = false;                 ///< since the batch began
    std::uint64_t revision = 0;           ///< repaints due so far
    std::function<void()> onRepaint; ///< the view's; also after a change of `rubber` or `cursor`
};

// --- batches

/// Holds repainting; batches nest.
void BeginBatch(PlotSurface& surface);
/// Releases it; the outermost one raises the revision if anything was changed meanwhile.
void EndBatch(PlotSurface& surface);
/// The same for the data of one group: other changes are painted at once.
void BeginBatch(PlotSurface& surface, int group);
void EndBatch(PlotSurface& surface, int group);
/// Holds repainting for a scope.
class PlotBatch {
public:
    explicit PlotBatch(PlotSurface& surface) : surface_(surface) { BeginBatch(surface_); }
    ~PlotBatch() { EndBatch(surface_); }
    PlotBatch(const PlotBatch&) = delete;
    PlotBatch& operator=(const PlotBatch&) = delete;

private:
    PlotSurface& surface_;
};
/// For whoever changes the contents in place: a repaint is due.
void MarkChanged(PlotSurface& surface);

} // namespace zorvant
