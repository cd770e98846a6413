#include "diagrams/plot_axes.h"

#include "diagrams/plot_changes.h"
#include "diagrams/plot_marks.h"

#include <cmath>

namespace zorvant {
namespace {

PlotAxis& MutableAxis(PlotSurface& surface, AxisId axis) {
    return surface.axes.at(static_cast<std::size_t>(axis));
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

} // namespace zorvant
