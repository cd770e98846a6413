#include "diagrams/plot_marks.h"

#include "diagrams/plot_axes.h"
#include "diagrams/plot_series.h"
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

double Decades(const ShownAxisRange& range) {
    return std::log10(range.max / range.min);
}

/// A logarithmic axis of less than a decade is marked like a linear one.
bool MarkedLogarithmically(const ShownAxisRange& range) {
    return range.log && Decades(range) >= 1;
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

} // namespace

bool TooManyMarks(const ShownAxisRange& range, double spacing) {
    const bool log = MarkedLogarithmically(range);
    const double from = log ? std::log10(range.min) : range.min;
    const double to = log ? std::log10(range.max) : range.max;
    const double first = std::ceil(from / spacing - kMarkTolerance);
    return !(std::floor(to / spacing + kMarkTolerance) - first < kMaxMarks);
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

bool ShownAxisRange::Shows(double value) const {
    const double slack = kMarkTolerance * (max - min);
    return value >= min - slack && value <= max + slack && (!log || value > 0);
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

} // namespace zorvant
