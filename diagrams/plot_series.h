// The curves and point sets of a diagram.
// Errors of all: std::out_of_range for a group, series or point that does not exist.
#pragma once

#include "diagrams/plot_contents.h"

namespace zorvant {

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
/// Whether any curve or point set has a legend text, shown or not.
bool AnyLegendText(const PlotSurface& surface);

} // namespace zorvant
