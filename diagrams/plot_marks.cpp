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
constexpr int kDecadesWithMantissas = 2;  // grid at 1, 2, 5; beyond that powers of ten
constexpr int kDecadesWithNumbers = 4;    // the same of numbers, as far as they have room
constexpr int kDecadesWithFineTicks = 10; // ticks at 2..9
// Marks closer to the end of the frame than this share of a step belong to it.
constexpr double kMarkTolerance = 1e-9;
// The limits are of single precision: what was typed as 0.7 lies this share of it away, and the
// mark 0.7 belongs to the frame; but never a mark that is seen to stand apart from its end.
constexpr double kLimitPrecision = 6e-8;
constexpr double kMostOutside = 0.05; // steps
// A span that is longer than its steps by less than this has been rounded.
constexpr double kStepTolerance = 1e-6;

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

/// How far beyond the limits a mark may stand, in steps.
double Slack(double min, double max, double step) {
    const double rounded = kLimitPrecision * std::max(std::abs(min), std::abs(max)) / step;
    return kMarkTolerance + std::min(rounded, kMostOutside);
}

/// Multiples of a step; empty when there would be too many.
std::vector<double> LinearMarks(double min, double max, double step) {
    std::vector<double> marks;
    const double slack = Slack(min, max, step);
    const double first = std::ceil(min / step - slack);
    const double last = std::floor(max / step + slack);
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
    const double tolerance = 1 + 2 * kLimitPrecision;
    for (double n = first; n <= last; ++n)
        for (const int mantissa : mantissas) {
            const double mark = mantissa * PowerOfTen(n * decades);
            if (mark * tolerance >= range.min && mark <= range.max * tolerance)
                marks.push_back(mark);
        }
    return marks;
}

enum class MarkKind { Number, Grid, Tick };

std::vector<double> Marks(const ShownAxisRange& range, const Spacing& spacing, double automatic,
                          MarkKind kind) {
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
    if (kind == MarkKind::Tick && decades <= kDecadesWithFineTicks)
        return LogarithmicMarks(range, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    const int mantissas = kind == MarkKind::Number ? kDecadesWithNumbers : kDecadesWithMantissas;
    if (kind != MarkKind::Tick && decades <= mantissas)
        return LogarithmicMarks(range, 1, {1, 2, 5});
    return LogarithmicMarks(range, automatic, {1});
}

} // namespace

bool TooManyMarks(const ShownAxisRange& range, double spacing) {
    const bool log = MarkedLogarithmically(range);
    const double from = log ? std::log10(range.min) : range.min;
    const double to = log ? std::log10(range.max) : range.max;
    const double slack = log ? kMarkTolerance : Slack(from, to, spacing);
    const double first = std::ceil(from / spacing - slack);
    return !(std::floor(to / spacing + slack) - first < kMaxMarks);
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
        if (step >= atLeast * (1 - kStepTolerance))
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
    AxisMarks marks{.numbers = Marks(range, a.number, chosen.number, MarkKind::Number),
                    .grid = Marks(range, a.grid, chosen.grid, MarkKind::Grid),
                    .ticks = Marks(range, a.tick, chosen.tick, MarkKind::Tick),
                    .log = MarkedLogarithmically(range)};
    // A spacing that would give too many marks was not taken.
    const bool taken =
        !a.number.automatic && a.number.value > 0 && !TooManyMarks(range, a.number.value);
    marks.spacing = taken ? a.number.value : chosen.number;
    return marks;
}

namespace {

constexpr double kPowerFrom = 1e6;      // an axis up to such numbers has a power of ten at its end
constexpr double kPowerBelow = 0.99e-4; // and so has one with so small a spacing,
constexpr double kPlainFrom = 0.01;     // unless its numbers themselves are larger than this
constexpr int kMostDecimals = 15;       // of a double
constexpr int kDigitsOfSpacing = 5;     // of a spacing that no few decimals hold

/// How many decimals a spacing has, as far as it is known to five digits.
int DecimalsOf(double step) {
    const int needed = static_cast<int>(std::ceil(-std::log10(step))) + kDigitsOfSpacing - 1;
    const int most = std::clamp(needed, 0, kMostDecimals);
    for (int decimals = 0; decimals < most; ++decimals) {
        const double scaled = step * PowerOfTen(decimals);
        if (scaled >= 0.5 && std::abs(scaled - std::round(scaled)) < 1e-6 * scaled)
            return decimals;
    }
    return most;
}

std::string PlacesPicture(int decimals, const char* end) {
    return (decimals > 0 ? "0." + std::string(static_cast<std::size_t>(decimals), '0') : "0") + end;
}

} // namespace

AxisNotation NotationOf(const AxisMarks& marks) {
    if (marks.log)
        return {.powers = true};
    double largest = 0;
    for (const double mark : marks.numbers)
        largest = std::max(largest, std::abs(mark));
    const bool power = largest >= kPowerFrom ||
                       (largest > 0 && largest < kPlainFrom && marks.spacing < kPowerBelow);
    const int exponent =
        power ? static_cast<int>(std::floor(std::log10(largest) + kMarkTolerance)) : 0;
    return {.power = exponent, .decimals = DecimalsOf(marks.spacing / PowerOfTen(exponent))};
}

std::string MarkText(double mark, const AxisNotation& notation) {
    if (notation.powers)
        return FormatNumber(mark, "0E+00");
    if (mark == 0)
        return "0";
    const double shown = mark / PowerOfTen(notation.power);
    return FormatNumber(shown, PlacesPicture(notation.decimals, ""));
}

} // namespace zorvant
