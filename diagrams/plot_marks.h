// Where numbers, ticks and grid lines of an axis stand, and what the numbers read.
#pragma once

#include "diagrams/plot_contents.h"

namespace zorvant {

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

/// Whether more than kMaxMarks would stand in the range.
bool TooManyMarks(const ShownAxisRange& range, double spacing);

/// Where numbers, grid lines and ticks stand: multiples of the spacing inside the shown range, in
/// ascending order; a limit of single precision that a multiple was meant for counts as that
/// multiple. Logarithmic: powers of ten; up to four decades also 2 and 5 times those for numbers,
/// up to two for the grid; up to ten decades ticks at 2..9 times those.
struct AxisMarks {
    std::vector<double> numbers, grid, ticks;
    double spacing = 1; ///< of the numbers
    bool log = false;   ///< by powers of ten; an axis of less than a decade is marked as linear
};
AxisMarks MarksOf(const PlotSurface& surface, AxisId axis);

/// How the numbers of an axis are written, all alike.
struct AxisNotation {
    bool powers = false; ///< each number by its own power of ten
    int power = 0;       ///< otherwise this power of ten stands at the end of the axis
    int decimals = 0;
    bool operator==(const AxisNotation&) const = default;
};
/// As many decimals as tell the numbers apart; a power of ten for the very large and small.
AxisNotation NotationOf(const AxisMarks& marks);
/// A number without blank in front; powers as "2E-03".
std::string MarkText(double mark, const AxisNotation& notation);

} // namespace zorvant
