// Everything that a diagram shows, as one plain record, and the operations on it. The record is
// complete in itself: tests read it, a design file is its contents written down, and nearest point
// and pixel to data work on it with the rectangles that the view reports back. A view only paints
// what stands here.
//
// Groups, series, points and labels count from 1. Coordinates of the picture are logical pixels
// from its upper left corner, y downward.
//
// For a view:
// - `revision` goes up once for each repaint that is due (the outermost EndBatch after a change, or
//   a change outside any batch); `onRepaint` is called then. Compare it with the last painted one.
// - Paint with ShownRange(surface, axis) and AxisMarks(surface, axis): they settle what a reversed,
//   empty or (on a logarithmic axis) non-positive frame looks like, and where numbers, ticks and
//   grid lines stand.
// - A point whose x or y is kHole is not painted and breaks the line.
// - Labels: LabelPosition gives the point they stand at, offset and anchor say on which side.
// - After laying out, write the rectangles into `layout`.
#pragma once

#include "platform/colour.h"
#include "platform/host.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zorvant {

// --- sizes and marks

/// Line series; 1..24 are curves, the last four have uses of their own.
inline constexpr int kCurveSlots = 24;
inline constexpr int kFrameSeries = 25;     ///< hidden, its two points span the frame
inline constexpr int kHalfLifeASeries = 26; ///< vertical marks
inline constexpr int kHalfLifeBSeries = 27;
inline constexpr int kResidenceSeries = 28;
inline constexpr int kLineSeries = 28;
/// Point series; 1..5 species slots, 6 transformed data, 7 manual points.
inline constexpr int kPointSets = 7;
inline constexpr int kPairSet = 6;
inline constexpr int kManualSet = 7;
/// Labels 1..24 belong to the curves, 26..28 to the marks; 25 is spare.
inline constexpr int kPlotLabels = 28;

inline constexpr int kLines = 1;  ///< group of the line series
inline constexpr int kPoints = 2; ///< group of the point series

/// A coordinate that marks a missing point.
inline constexpr double kHole = 1e308;

/// More marks than this on one axis are unreadable and slow: a manual spacing that asks for more is
/// refused, and painted with the automatic one where a wider frame came later.
inline constexpr int kMaxMarks = 2000;
/// A logarithmic axis without a positive lower limit shows at most this share of its upper limit.
inline constexpr double kSmallestLogShare = 1e-6;

// --- styles

enum class LinePattern { None, Solid, Dotted, Dashed, DashDot };
/// In the order of the point style list; Hidden draws nothing.
enum class SymbolShape {
    Dot,    ///< filled circle
    Circle, ///< open circle
    Cross,
    Square, ///< filled
    Star,
    Triangle,
    Box, ///< open square
    Diamond,
    VerticalLine,
    HorizontalLine,
    Hidden
};
enum class SeriesDisplay {
    Shown = 1,
    Hidden = 2,  ///< painted nowhere, not in the legend
    Excluded = 3 ///< the same, and not asked for by anything
};
enum class TextRotation { Horizontal, Vertical };
/// Where an axis or its numbers stand, seen on the other axis. AtZero on an axis without 0: its end
/// that is nearest to 0, on a logarithmic one the lower end.
enum class Placement { Min, AtZero, Max };
enum class Orientation { Horizontal, Vertical };
/// Borders of the chart; the numbers go into design files.
enum class BorderType { None = 0, ThreeD = 1, Plain = 4, Etched = 9 };
/// On which side of its point a label stands; Centre: upon it.
enum class LabelAnchor {
    North,
    NorthEast,
    East,
    SouthEast,
    South,
    SouthWest,
    West,
    NorthWest,
    Centre
};
enum class AxisId { X, Y, Y2 };

struct LineStyle {
    LinePattern pattern = LinePattern::Solid;
    int width = 1; ///< pixels
    Colour colour = kBlack;
    bool operator==(const LineStyle&) const = default;
};
struct SymbolStyle {
    SymbolShape shape = SymbolShape::Hidden;
    int size = 1; ///< pixels across
    Colour colour = kBlack;
    bool operator==(const SymbolStyle&) const = default;
};
struct Border {
    BorderType type = BorderType::None;
    int width = 1; ///< pixels
    bool operator==(const Border&) const = default;
};
struct Colours {
    Colour back = kWhite;
    Colour fore = kBlack;
    bool transparent = false; ///< the background is not painted
    bool operator==(const Colours&) const = default;
};
/// Upper left corner as shares 0..1 of the picture's width and height.
struct Location {
    double x = 0;
    double y = 0;
    bool automatic = true; ///< the view places it
    bool operator==(const Location&) const = default;
};

// --- what stands in a diagram

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
/// Where the view has put things. Nothing of it is saved.
struct PlotLayout {
    PixelRect picture, plotArea, legend, header, footer;
    PixelRect chartArea;
    Margins margins; ///< of the plot area, as wide as they came out
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

// --- series. Errors of all: std::out_of_range for a group, series or point that does not exist.

/// Fixes the number of series of a group; new ones are empty.
void SetSeriesCount(PlotSurface& surface, int group, int count);
int GetSeriesCount(const PlotSurface& surface, int group);
const PlotSeries& GetSeries(const PlotSurface& surface, int group, int series);

/// Size of a series; 0 empties it, points that come to it are holes.
void SetPointCount(PlotSurface& surface, int group, int series, int count);
int GetPointCount(const PlotSurface& surface, int group, int series);
/// A value that is not finite becomes a hole.
void SetX(PlotSurface& surface, int group, int series, int point, double x);
void SetY(PlotSurface& surface, int group, int series, int point, double y);
double GetX(const PlotSurface& surface, int group, int series, int point);
double GetY(const PlotSurface& surface, int group, int series, int point);
/// A whole series at once; the shorter of the two lists counts.
void SetPoints(PlotSurface& surface, int group, int series, std::vector<double> x,
               std::vector<double> y);
/// Whether the point is there at all.
bool IsHole(const PlotSeries& series, int point);

void SetSeriesDisplay(PlotSurface& surface, int group, int series, SeriesDisplay mode);
void SetSeriesLabel(PlotSurface& surface, int group, int series, const std::string& text);
const std::string& GetSeriesLabel(const PlotSurface& surface, int group, int series);
void ClearSeriesLabels(PlotSurface& surface, int group);
void SetLineStyle(PlotSurface& surface, int group, int series, const LineStyle& style);
void SetLineColour(PlotSurface& surface, int group, int series, Colour colour);
const LineStyle& GetLineStyle(const PlotSurface& surface, int group, int series);
void SetSymbol(PlotSurface& surface, int group, int series, const SymbolStyle& style);
void SetSymbolColour(PlotSurface& surface, int group, int series, Colour colour);
const SymbolStyle& GetSymbol(const PlotSurface& surface, int group, int series);

/// The series that have a line in the legend, group 1 first: shown, with points and a text.
struct LegendLine {
    int group;
    int series;
    bool operator==(const LegendLine&) const = default;
};
std::vector<LegendLine> LegendLines(const PlotSurface& surface);

// --- texts, legend, areas

void SetHeader(PlotSurface& surface, const std::string& text);
void SetFooter(PlotSurface& surface, const std::string& text);
/// Text, place and looks at once.
void SetHeader(PlotSurface& surface, const TextBlock& block);
void SetFooter(PlotSurface& surface, const TextBlock& block);
void SetLegend(PlotSurface& surface, const PlotLegend& legend);
void SetLegendVisible(PlotSurface& surface, bool visible);
void SetPlotAreaMargins(PlotSurface& surface, const Margins& margins);
void SetPlotAreaFrame(PlotSurface& surface, bool shown, int width);
void SetChartAreaBox(PlotSurface& surface, const ChartAreaBox& box);
void SetChartBorder(PlotSurface& surface, const Border& border);
/// Backgrounds and foregrounds of the whole picture, of the chart area and of the plot area.
void SetChartColours(PlotSurface& surface, const Colours& colours);
void SetChartAreaColours(PlotSurface& surface, const Colours& colours);
void SetPlotAreaColours(PlotSurface& surface, const Colours& colours);

// --- axes

const PlotAxis& GetAxis(const PlotSurface& surface, AxisId axis);
/// The shown range and the one that ResetZoom brings back. Values that are not finite change
/// nothing. Automatic spacings are chosen anew.
void SetAxis(PlotSurface& surface, AxisId axis, double min, double max, double dataMin,
             double dataMax);
void SetAxisLog(PlotSurface& surface, AxisId axis, bool on);
bool GetAxisLog(const PlotSurface& surface, AxisId axis);
void SetAxisVisible(PlotSurface& surface, AxisId axis, bool visible);
void SetAxisTitle(PlotSurface& surface, AxisId axis, const std::string& text,
                  TextRotation rotation);
void SetAxisFont(PlotSurface& surface, AxisId axis, const FontChoice& numbers,
                 const FontChoice& title);
/// Colour of line, ticks, numbers and title.
void SetAxisColour(PlotSurface& surface, AxisId axis, Colour colour);
void SetAxisAnnotation(PlotSurface& surface, AxisId axis, Placement placement,
                       TextRotation rotation);
void SetAxisOrigin(PlotSurface& surface, AxisId axis, Placement placement);
/// Given:    value; automatic: the value is chosen for the present range, the given one is ignored
/// Returned: false for a value that is not above 0, not finite, or so small that more than
///           kMaxMarks stand in the present range; the spacing stays as it was
bool SetGridSpacing(PlotSurface& surface, AxisId axis, double value, bool automatic);
bool SetTickSpacing(PlotSurface& surface, AxisId axis, double value, bool automatic);
bool SetNumberSpacing(PlotSurface& surface, AxisId axis, double value, bool automatic);
void SetGrid(PlotSurface& surface, AxisId axis, LinePattern pattern, Colour colour);

/// Where the marked point stands; nothing when there is none, or it is a hole or outside the frame.
std::optional<SeriesPoint> ShownCursor(const PlotSurface& surface);
/// Marks a point on the screen, or none. Not part of the picture.
void SetCursor(PlotSurface& surface, const std::optional<SeriesPoint>& point);
/// The numbers of the points of a series that can be seen: it is shown, they are no holes and lie in
/// the shown ranges of the axes.
std::vector<int> PointsInFrame(const PlotSurface& surface, int group, int series);

/// The colours that stand behind the curves, and behind the legend, whatever is transparent.
const Colours& PlotGround(const PlotSurface& surface);
const Colours& LegendGround(const PlotSurface& surface);
/// What a line or a symbol is painted with so that it can be seen: the foreground where its colour is
/// that of the ground.
Colour SeenOn(const Colours& ground, Colour colour);

/// The range as it can be painted, min < max, on a logarithmic axis min > 0.
struct ShownAxisRange {
    double min = 0, max = 1;
    bool log = false; ///< false where a logarithmic axis has no positive limit at all
    /// Whether a value lies in the range; the limits are of single precision.
    bool Shows(double value) const;
    bool operator==(const ShownAxisRange&) const = default;
};
ShownAxisRange ShownRange(const PlotSurface& surface, AxisId axis);

/// Spacings that suit a range.
struct AutoSpacing {
    double number, grid, tick;
    bool operator==(const AutoSpacing&) const = default;
};
/// The automatic rule: linear: numbers and grid at 1, 2 or 5 times a power of ten, between 4 and 10
/// steps to the range, ticks at a half (of 1 and 2) or a fifth (of 5) of it. Logarithmic: whole
/// decades, one for up to 10 decades, then 2, 5, 10 and so on; ticks as numbers.
AutoSpacing ChooseSpacing(const ShownAxisRange& range);
/// The smallest of 1, 2, 5 times a power of ten of which at most `maxSteps` fit into the span.
double NiceStep(double span, int maxSteps);

/// Where numbers, grid lines and ticks stand: multiples of the spacing inside the shown range, in
/// ascending order. Logarithmic: powers of ten; up to two decades also 2 and 5 times those for
/// numbers and grid; up to ten decades ticks at 2..9 times those.
struct AxisMarks {
    std::vector<double> numbers, grid, ticks;
};
AxisMarks MarksOf(const PlotSurface& surface, AxisId axis);
/// A mark as text: as many decimals as its spacing needs, exponent form for the very large and
/// small, no blank in front.
std::string MarkText(double mark, double spacing, bool log);

// --- labels

/// Adds a label at the end. Returned: its number.
int AddLabel(PlotSurface& surface, const PlotLabel& label = {});
const PlotLabel& GetLabel(const PlotSurface& surface, int label);
void SetLabelText(PlotSurface& surface, int label, const std::string& text);
void SetLabelVisible(PlotSurface& surface, int label, bool on);
/// A point number outside the series is moved to its nearest point.
/// Returned: the point as the label keeps it, at least 1.
int AttachLabelToPoint(PlotSurface& surface, int label, int group, int series, int point);
void AttachLabelToCoord(PlotSurface& surface, int label, double x, double y);
void SetLabelOffset(PlotSurface& surface, int label, int pixels);
void SetLabelAnchor(PlotSurface& surface, int label, LabelAnchor anchor);
void SetLabelFont(PlotSurface& surface, int label, const FontChoice& font);
void SetLabelColours(PlotSurface& surface, int label, const Colours& colours);
void SetLabelBorder(PlotSurface& surface, int label, const Border& border);

struct DataPoint {
    double x = 0, y = 0;
};
/// Where a label stands; nothing when it is hidden or has no point to stand at.
std::optional<DataPoint> LabelPosition(const PlotSurface& surface, int label);

// --- pixels

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

} // namespace zorvant
