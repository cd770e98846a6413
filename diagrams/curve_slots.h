// The 24 curve slots of a diagram: taking and freeing them, writing a curve, its style and label.
#pragma once

#include "diagrams/diagram.h"

#include <array>

namespace zorvant {

/// By index of the curve style list.
struct CurveStyle {
    LinePattern pattern;
    SymbolShape symbol;
};
inline constexpr std::array<CurveStyle, 5> kCurveStyles{
    {{LinePattern::None, SymbolShape::Dot},
     {LinePattern::Solid, SymbolShape::Hidden},
     {LinePattern::Dotted, SymbolShape::Hidden},
     {LinePattern::Dashed, SymbolShape::Hidden},
     {LinePattern::DashDot, SymbolShape::Hidden}}};
/// The place of a pattern in the list.
int StyleIndex(LinePattern pattern);
/// Gives a curve line and symbol of the list.
void ApplyCurveStyle(PlotSurface& surface, int slot, int index);
void ColourCurve(PlotSurface& surface, int slot, Colour colour);

/// Takes the lowest free slot and counts it.
/// Returned: the slot; 0 where none is free, and then nothing has changed
int TakeCurveSlot(ProjectState& ps, Diagram& diagram);
/// Frees a slot: no points, no legend text, the label reads the slot's number.
void FreeCurveSlot(Diagram& diagram, int slot, SeriesDisplay mode);
/// Which slots are taken after contents came from elsewhere: those with points.
void CountCurves(ProjectState& ps, Diagram& diagram);

/// Writes a buffer into a slot and shows it with its label, in the looks that the slot has.
void WriteCurve(PlotSurface& surface, int slot, const PointBuffer& curve);
/// The looks that the next curve begins with.
/// Given:    place and curves  of this draw; see DefaultLine
void StyleCurve(const ProjectState& ps, Diagram& diagram, int slot, int place, int curves);

/// Keeps which curves a draw has made, under which names.
void NoteDraw(Diagram& diagram, CurveDraw draw);
/// Writes into labels and legend what was changed from draw to draw; texts that the user has
/// written stay.
void NameDraws(Diagram& diagram);

/// Moves the label of a curve to a point, with the usual distance and side; it stays there.
void MoveCurveLabel(Diagram& diagram, int slot, int point);
void ShowCurveLabels(PlotSurface& surface, bool on);
bool AnyCurveLabel(const PlotSurface& surface);

} // namespace zorvant
