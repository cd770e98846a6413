// Axes of the plot surface: ranges, automatic spacings, marks; pixels and the zoom, which depend on
// them.
#include "diagrams/plot_surface.h"

#include "platform/number_text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zorvant {
namespace {

constexpr int kMostSteps = 10; // numbered steps to an axis; more make the numbers run together
// A frame without width is opened by this share of its value on each side.
constexpr double kOpeningShare = 0.05;
// Without any positive point a logarithmic axis shows this many times less than its upper limit.
constexpr double kDefaultLogSpan = 1000;
constexpr int kDecadesWithMantissas = 2;  // numbers and grid at 1, 2, 5; beyond that powers of ten
constexpr int kDecadesWithFineTicks = 10; // ticks at 2..9
// Marks closer to the end of the frame than this share of a step belong to it.
constexpr double kMarkTolerance = 1e-9;
constexpr double kSmallestZoom = 4; // pixels; a shorter drag is a click

PlotAxis& MutableAxis(PlotSurface& surface, AxisId axis) {
    return surface.axes.at(static_cast<std::size_t>(axis));
}

template <class T> void Assign(PlotSurface& surface, T& target, const T& value) {
    if (target == value)
        return;
    target = value;
    MarkChanged(surface);
}

double SmallestPositive(const PlotSurface& surface, AxisId axis) {
    double smallest = std::numeric_limits<double>::infinity();
    for (const int group : {kLines, kPoints})
        for (int s = 1; s <= GetSeriesCount(surface, group); ++s) {
            const PlotSeries& series = GetSeries(surface, group, s);
            if (series.display != SeriesDisplay::Shown)
                continue;
            for (const double value : axis == AxisId::X ? series.x : series.y)
                if (value > 0 && value < smallest)
                    smallest = value;
        }
    return smallest;
}

void ChooseAutomaticSpacings(PlotSurface& surface, AxisId axis) {
    PlotAxis& a = MutableAxis(surface, axis);
    const AutoSpacing chosen = ChooseSpacing(ShownRange(surface, axis));
    if (a.grid.automatic)
        a.grid.value = chosen.grid;
    if (a.tick.automatic)
        a.tick.value = chosen.tick;
    if (a.number.automatic)
        a.number.value = chosen.number;
}

double Decades(const ShownAxisRange& range) {
    return std::log10(range.max / range.min);
}

/// A logarithmic axis of less than a decade is marked like a linear one.
bool MarkedLogarithmically(const ShownAxisRange& range) {
    return range.log && Decades(range) >= 1;
}

bool TooManyMarks(const ShownAxisRange& range, double spacing) {
    const bool log = MarkedLogarithmically(range);
    const double from = log ? std::log10(range.min) : range.min;
    const double to = log ? std::log10(range.max) : range.max;
    const double first = std::ceil(from / spacing - kMarkTolerance);
    return !(std::floor(to / spacing + kMarkTolerance) - first < kMaxMarks);
}

bool SetSpacing(PlotSurface& surface, AxisId axis, Spacing PlotAxis::*which, double value,
                bool automatic) {
    if (!automatic && !(value > 0 && std::isfinite(value)))
        return false;
    if (!automatic && TooManyMarks(ShownRange(surface, axis), value))
        return false;
    PlotAxis& a = MutableAxis(surface, axis);
    const PlotAxis before = a;
    (a.*which).automatic = automatic;
    if (automatic)
        ChooseAutomaticSpacings(surface, axis);
    else
        (a.*which).value = value;
    if (!(a == before))
        MarkChanged(surface);
    return true;
}

double PowerOfTen(double exponent) {
    return exponent < 0 ? 1 / std::pow(10.0, -exponent) : std::pow(10.0, exponent);
}

/// Multiples of a step; empty when there would be too many.
std::vector<double> LinearMarks(double min, double max, double step) {
    std::vector<double> marks;
    const double first = std::ceil(min / step - kMarkTolerance);
    const double last = std::floor(max / step + kMarkTolerance);
    if (last - first >= kMaxMarks)
        return marks;
    const double inverse = std::round(1 / step);
    // 3 / 10 is the double nearest to 0.3, 3 * 0.1 is not.
    const bool divides = step < 1 && std::abs(inverse * step - 1) < kMarkTolerance;
    for (double n = first; n <= last; ++n)
        marks.push_back((divides ? n / inverse : n * step) + 0.0);
    return marks;
}

std::vector<double> LogarithmicMarks(const ShownAxisRange& range, double decades,
                                     std::initializer_list<int> mantissas) {
    std::vector<double> marks;
    const double first = std::floor(std::log10(range.min) / decades) - 1;
    const double last = std::ceil(std::log10(range.max) / decades);
    if (last - first >= kMaxMarks + 2)
        return marks;
    const double tolerance = 1 + kMarkTolerance;
    for (double n = first; n <= last; ++n)
        for (const int mantissa : mantissas) {
            const double mark = mantissa * PowerOfTen(n * decades);
            if (mark * tolerance >= range.min && mark <= range.max * tolerance)
                marks.push_back(mark);
        }
    return marks;
}

std::vector<double> Marks(const ShownAxisRange& range, const Spacing& spacing, double automatic,
                          bool ticks) {
    const bool chosen = spacing.automatic || !(spacing.value > 0);
    if (!MarkedLogarithmically(range)) {
        std::vector<double> marks =
            LinearMarks(range.min, range.max, chosen ? automatic : spacing.value);
        return marks.empty() && !chosen ? LinearMarks(range.min, range.max, automatic) : marks;
    }
    if (!chosen) {
        std::vector<double> marks = LogarithmicMarks(range, spacing.value, {1});
        if (!marks.empty())
            return marks;
    }
    const double decades = Decades(range);
    if (ticks && decades <= kDecadesWithFineTicks)
        return LogarithmicMarks(range, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    if (!ticks && decades <= kDecadesWithMantissas)
        return LogarithmicMarks(range, 1, {1, 2, 5});
    return LogarithmicMarks(range, automatic, {1});
}

/// How an axis maps its range to a stretch of pixels.
struct AxisScale {
    ShownAxisRange range;
    double start, length; // pixels of range.min, and to range.max (signed)

    std::optional<double> Pixel(double value) const {
        if (!range.log)
            return start + (value - range.min) / (range.max - range.min) * length;
        if (!(value > 0))
            return std::nullopt;
        return start + std::log(value / range.min) / std::log(range.max / range.min) * length;
    }
    double Value(double pixel) const {
        const double share = (pixel - start) / length;
        if (range.log)
            return range.min * std::pow(range.max / range.min, share);
        return range.min + share * (range.max - range.min);
    }
};

AxisScale ScaleX(const PlotSurface& surface) {
    const PixelRect& area = surface.layout.plotArea;
    return {ShownRange(surface, AxisId::X), area.left, area.width};
}

AxisScale ScaleY(const PlotSurface& surface) {
    const PixelRect& area = surface.layout.plotArea;
    return {ShownRange(surface, AxisId::Y), area.top + area.height, -area.height};
}

bool HasPlotArea(const PlotSurface& surface) {
    return surface.layout.plotArea.width > 0 && surface.layout.plotArea.height > 0;
}

void ShowRange(PlotSurface& surface, AxisId axis, double min, double max) {
    const PlotAxis& a = GetAxis(surface, axis);
    SetAxis(surface, axis, min, max, a.dataMin, a.dataMax);
}

} // namespace

const PlotAxis& GetAxis(const PlotSurface& surface, AxisId axis) {
    return surface.axes.at(static_cast<std::size_t>(axis));
}

void SetAxis(PlotSurface& surface, AxisId axis, double min, double max, double dataMin,
             double dataMax) {
    if (!std::isfinite(min) || !std::isfinite(max) || !std::isfinite(dataMin) ||
        !std::isfinite(dataMax))
        return;
    PlotAxis& a = MutableAxis(surface, axis);
    const PlotAxis before = a;
    a.min = min;
    a.max = max;
    a.dataMin = dataMin;
    a.dataMax = dataMax;
    ChooseAutomaticSpacings(surface, axis);
    if (!(a == before))
        MarkChanged(surface);
}

void SetAxisLog(PlotSurface& surface, AxisId axis, bool on) {
    PlotAxis& a = MutableAxis(surface, axis);
    if (a.log == on)
        return;
    a.log = on;
    ChooseAutomaticSpacings(surface, axis);
    MarkChanged(surface);
}

bool GetAxisLog(const PlotSurface& surface, AxisId axis) {
    return GetAxis(surface, axis).log;
}

void SetAxisVisible(PlotSurface& surface, AxisId axis, bool visible) {
    Assign(surface, MutableAxis(surface, axis).visible, visible);
}

void SetAxisTitle(PlotSurface& surface, AxisId axis, const std::string& text,
                  TextRotation rotation) {
    const PlotBatch batch(surface);
    PlotAxis& a = MutableAxis(surface, axis);
    Assign(surface, a.title, text);
    Assign(surface, a.titleRotation, rotation);
}

void SetAxisFont(PlotSurface& surface, AxisId axis, const FontChoice& numbers,
                 const FontChoice& title) {
    const PlotBatch batch(surface);
    PlotAxis& a = MutableAxis(surface, axis);
    Assign(surface, a.font, numbers);
    Assign(surface, a.titleFont, title);
}

void SetAxisColour(PlotSurface& surface, AxisId axis, Colour colour) {
    Assign(surface, MutableAxis(surface, axis).colour, colour);
}

void SetAxisAnnotation(PlotSurface& surface, AxisId axis, Placement placement,
                       TextRotation rotation) {
    const PlotBatch batch(surface);
    PlotAxis& a = MutableAxis(surface, axis);
    Assign(surface, a.annotation, placement);
    Assign(surface, a.annotationRotation, rotation);
}

void SetAxisOrigin(PlotSurface& surface, AxisId axis, Placement placement) {
    Assign(surface, MutableAxis(surface, axis).origin, placement);
}

bool SetGridSpacing(PlotSurface& surface, AxisId axis, double value, bool automatic) {
    return SetSpacing(surface, axis, &PlotAxis::grid, value, automatic);
}

bool SetTickSpacing(PlotSurface& surface, AxisId axis, double value, bool automatic) {
    return SetSpacing(surface, axis, &PlotAxis::tick, value, automatic);
}

bool SetNumberSpacing(PlotSurface& surface, AxisId axis, double value, bool automatic) {
    return SetSpacing(surface, axis, &PlotAxis::number, value, automatic);
}

void SetGrid(PlotSurface& surface, AxisId axis, LinePattern pattern, Colour colour) {
    const PlotBatch batch(surface);
    PlotAxis& a = MutableAxis(surface, axis);
    Assign(surface, a.gridPattern, pattern);
    Assign(surface, a.gridColour, colour);
}

ShownAxisRange ShownRange(const PlotSurface& surface, AxisId axis) {
    const PlotAxis& a = GetAxis(surface, axis);
    ShownAxisRange range{std::min(a.min, a.max), std::max(a.min, a.max), false};
    if (a.log && range.max > 0) {
        range.log = true;
        if (range.min <= 0) {
            const double positive = SmallestPositive(surface, axis);
            range.min = positive < range.max ? std::max(positive, range.max * kSmallestLogShare)
                                             : range.max / kDefaultLogSpan;
        }
    }
    if (!(range.min < range.max)) {
        const double opening = range.max == 0 ? 1 : std::abs(range.max) * kOpeningShare;
        range.min = range.max == 0 ? 0 : range.min - opening;
        range.max += opening;
    }
    return range;
}

double NiceStep(double span, int maxSteps) {
    if (!(span > 0) || !std::isfinite(span))
        return 1;
    const double atLeast = span / maxSteps;
    const double exponent = std::floor(std::log10(atLeast));
    for (const int mantissa : {1, 2, 5}) {
        const double step = exponent < 0 ? mantissa / std::pow(10.0, -exponent)
                                         : mantissa * std::pow(10.0, exponent);
        if (step >= atLeast * (1 - kMarkTolerance))
            return step;
    }
    return PowerOfTen(exponent + 1);
}

AutoSpacing ChooseSpacing(const ShownAxisRange& range) {
    if (MarkedLogarithmically(range)) {
        const double decades = std::max(1.0, NiceStep(Decades(range), kMostSteps));
        return {decades, decades, decades};
    }
    const double step = NiceStep(range.max - range.min, kMostSteps);
    const double mantissa = step / PowerOfTen(std::floor(std::log10(step) + kMarkTolerance));
    const int ticksToStep = mantissa > 4 ? 5 : 2;
    return {step, step, step / ticksToStep};
}

AxisMarks MarksOf(const PlotSurface& surface, AxisId axis) {
    const PlotAxis& a = GetAxis(surface, axis);
    const ShownAxisRange range = ShownRange(surface, axis);
    const AutoSpacing chosen = ChooseSpacing(range);
    return {.numbers = Marks(range, a.number, chosen.number, false),
            .grid = Marks(range, a.grid, chosen.grid, false),
            .ticks = Marks(range, a.tick, chosen.tick, true)};
}

namespace {

constexpr double kExponentFrom = 1e6;      // marks this large are written with an exponent
constexpr double kExponentBelow = 0.99e-4; // and those of a spacing this small
constexpr int kMostDecimals = 7;           // what the limits, which are Single, can tell apart

int DecimalsOf(double step) {
    for (int decimals = 0; decimals < kMostDecimals; ++decimals) {
        const double scaled = step * PowerOfTen(decimals);
        if (scaled >= 0.5 && std::abs(scaled - std::round(scaled)) < 1e-6 * scaled)
            return decimals;
    }
    return kMostDecimals;
}

std::string PlacesPicture(int decimals, const char* end) {
    return (decimals > 0 ? "0." + std::string(static_cast<std::size_t>(decimals), '0') : "0") + end;
}

} // namespace

std::string MarkText(double mark, double spacing, bool log) {
    if (mark == 0)
        return "0";
    const double size = std::abs(mark);
    const double step = log ? size : std::min(std::abs(spacing), size);
    if (size < kExponentFrom && step >= kExponentBelow)
        return FormatNumber(mark, PlacesPicture(DecimalsOf(step), ""));
    const double power = PowerOfTen(std::floor(std::log10(size) + kMarkTolerance));
    return FormatNumber(mark, PlacesPicture(DecimalsOf(std::min(1.0, step / power)), "E+00"));
}

// --- pixels

PixelHit PixelToData(const PlotSurface& surface, double px, double py) {
    PixelHit hit;
    if (HasPlotArea(surface)) {
        hit.x = ScaleX(surface).Value(px);
        hit.y = ScaleY(surface).Value(py);
    }
    const PlotLayout& layout = surface.layout;
    if (surface.legend.visible && layout.legend.Contains(px, py))
        hit.region = Region::Legend;
    else if (layout.header.Contains(px, py))
        hit.region = Region::Header;
    else if (layout.footer.Contains(px, py))
        hit.region = Region::Footer;
    else if (layout.plotArea.Contains(px, py))
        hit.region = Region::PlotArea;
    return hit;
}

std::optional<DataPoint> DataToPixel(const PlotSurface& surface, double x, double y) {
    if (!HasPlotArea(surface))
        return std::nullopt;
    const auto px = ScaleX(surface).Pixel(x);
    const auto py = ScaleY(surface).Pixel(y);
    if (!px || !py)
        return std::nullopt;
    return DataPoint{*px, *py};
}

NearestHit NearestPoint(const PlotSurface& surface, int group, double px, double py) {
    NearestHit nearest;
    if (!HasPlotArea(surface))
        return nearest;
    const AxisScale scaleX = ScaleX(surface);
    const AxisScale scaleY = ScaleY(surface);
    double best = std::numeric_limits<double>::infinity();
    for (int s = 1; s <= GetSeriesCount(surface, group); ++s) {
        const PlotSeries& series = GetSeries(surface, group, s);
        if (series.display != SeriesDisplay::Shown)
            continue;
        for (std::size_t i = 0; i < series.x.size(); ++i) {
            if (series.x[i] == kHole || series.y[i] == kHole)
                continue;
            const auto atX = scaleX.Pixel(series.x[i]);
            const auto atY = scaleY.Pixel(series.y[i]);
            if (!atX || !atY || !surface.layout.plotArea.Contains(*atX, *atY))
                continue;
            const double distance = std::hypot(*atX - px, *atY - py);
            if (distance < best) {
                best = distance;
                nearest = {s, static_cast<int>(i) + 1, distance};
            }
        }
    }
    return nearest;
}

// --- the marked point

namespace {

/// What lies over the picture is painted without it.
void RepaintOverlay(PlotSurface& surface) {
    if (surface.onRepaint)
        surface.onRepaint();
}

} // namespace

bool ShownAxisRange::Shows(double value) const {
    const double slack = kMarkTolerance * (max - min);
    return value >= min - slack && value <= max + slack && (!log || value > 0);
}

std::vector<int> PointsInFrame(const PlotSurface& surface, int group, int number) {
    const PlotSeries& series = GetSeries(surface, group, number);
    std::vector<int> seen;
    if (series.display != SeriesDisplay::Shown || series.x.empty())
        return seen;
    const ShownAxisRange x = ShownRange(surface, AxisId::X), y = ShownRange(surface, AxisId::Y);
    for (std::size_t i = 0; i < series.x.size(); ++i)
        if (!IsHole(series, static_cast<int>(i) + 1) && x.Shows(series.x[i]) &&
            y.Shows(series.y[i]))
            seen.push_back(static_cast<int>(i) + 1);
    return seen;
}

std::optional<SeriesPoint> ShownCursor(const PlotSurface& surface) {
    if (!surface.cursor || surface.cursor->series < 1 ||
        surface.cursor->series > GetSeriesCount(surface, surface.cursor->group))
        return std::nullopt;
    const std::vector<int> seen =
        PointsInFrame(surface, surface.cursor->group, surface.cursor->series);
    return std::ranges::binary_search(seen, surface.cursor->point) ? surface.cursor : std::nullopt;
}

void SetCursor(PlotSurface& surface, const std::optional<SeriesPoint>& point) {
    if (surface.cursor == point)
        return;
    surface.cursor = point;
    RepaintOverlay(surface);
}

// --- zoom

namespace {

DataPoint IntoPlotArea(const PlotSurface& surface, double px, double py) {
    const PixelRect& area = surface.layout.plotArea;
    return {std::clamp(px, area.left, area.left + area.width),
            std::clamp(py, area.top, area.top + area.height)};
}

} // namespace

void StartRubberZoom(PlotSurface& surface) {
    surface.rubber = {.armed = true};
}

void RubberDown(PlotSurface& surface, double px, double py) {
    if (!surface.rubber.armed || !HasPlotArea(surface))
        return;
    const DataPoint at = IntoPlotArea(surface, px, py);
    surface.rubber = {.armed = true,
                      .dragging = true,
                      .startX = at.x,
                      .startY = at.y,
                      .endX = at.x,
                      .endY = at.y};
}

void RubberMove(PlotSurface& surface, double px, double py) {
    if (!surface.rubber.dragging)
        return;
    const DataPoint at = IntoPlotArea(surface, px, py);
    surface.rubber.endX = at.x;
    surface.rubber.endY = at.y;
    RepaintOverlay(surface);
}

bool RubberUp(PlotSurface& surface, double px, double py) {
    if (!surface.rubber.dragging)
        return false;
    RubberMove(surface, px, py);
    const RubberZoom drawn = surface.rubber;
    surface.rubber = {};
    if (std::abs(drawn.endX - drawn.startX) < kSmallestZoom ||
        std::abs(drawn.endY - drawn.startY) < kSmallestZoom) {
        RepaintOverlay(surface);
        return false;
    }
    const AxisScale scaleX = ScaleX(surface);
    const AxisScale scaleY = ScaleY(surface);
    const double left = scaleX.Value(std::min(drawn.startX, drawn.endX));
    const double right = scaleX.Value(std::max(drawn.startX, drawn.endX));
    const double lower = scaleY.Value(std::max(drawn.startY, drawn.endY));
    const double upper = scaleY.Value(std::min(drawn.startY, drawn.endY));
    const PlotBatch batch(surface);
    ShowRange(surface, AxisId::X, left, right);
    ShowRange(surface, AxisId::Y, lower, upper);
    ShowRange(surface, AxisId::Y2, lower, upper);
    MarkChanged(surface);
    return true;
}

void CancelRubberZoom(PlotSurface& surface) {
    const bool drawn = surface.rubber.dragging;
    surface.rubber = {};
    if (drawn)
        RepaintOverlay(surface);
}

void ResetZoom(PlotSurface& surface) {
    const PlotBatch batch(surface);
    for (const AxisId axis : {AxisId::X, AxisId::Y, AxisId::Y2}) {
        const PlotAxis& a = GetAxis(surface, axis);
        ShowRange(surface, axis, a.dataMin, a.dataMax);
    }
}

} // namespace zorvant
