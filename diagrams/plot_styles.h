// Numbers of series and labels, and how lines, symbols, axes and texts of a diagram look.
#pragma once

#include "platform/colour.h"

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

} // namespace zorvant
