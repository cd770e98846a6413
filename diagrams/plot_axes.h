// The axes of a diagram: ranges, titles, spacings, grid.
#pragma once

#include "diagrams/plot_contents.h"

namespace zorvant {

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

} // namespace zorvant
