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

/// Writes a buffer into a slot, in the colour given, and shows it with its label.
void WriteCurve(PlotSurface& surface, int slot, const PointBuffer& curve, Colour colour);

/// The point of a curve that its label attaches to, spreading the labels of successive curves.
int LabelPoint(const DiaKoord& frame, const PointBuffer& curve, int slot);
/// Moves the label of a curve to a point, with the usual distance and side.
void MoveCurveLabel(PlotSurface& surface, int slot, int point);
void ShowCurveLabels(PlotSurface& surface, bool on);
bool AnyCurveLabel(const PlotSurface& surface);

} // namespace zorvant
