#include "dialogs/diagram/axis_settings.h"

#include "diagrams/plot_extent.h"
#include "dialogs/diagram/coordinates.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <cmath>

namespace zorvant {
namespace {

constexpr Placement kPlacements[] = {Placement::Min, Placement::AtZero, Placement::Max};

Placement PlacementOf(int index) {
    return kPlacements[std::clamp(index, 0, 2)];
}

void PlaceOrigin(DiagramDocument& doc, OptionGroup& group, AxisId axis, int index) {
    group.selected = index;
    SetAxisOrigin(doc.surface, axis, PlacementOf(index));
}

void PlaceNumbers(DiagramDocument& doc, OptionGroup& group, AxisId axis, int index) {
    group.selected = index;
    SetAxisAnnotation(doc.surface, axis, PlacementOf(index),
                      GetAxis(doc.surface, axis).annotationRotation);
}

void PutOriginIntoMinima(DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    SetAxisOrigin(doc.surface, AxisId::X, Placement::Min);
    SetAxisOrigin(doc.surface, AxisId::Y, Placement::Min);
}

void ShowOrigin(DiagramDocument& doc, bool manual) {
    DesignControls& design = doc.design;
    design.optStandardOrigin.selected = manual ? 1 : 0;
    design.fraOrigin.visible = manual;
    design.txtXOrigin.text = PlainText(static_cast<double>(doc.ps.Frame.xMin));
    design.txtYOrigin.text = PlainText(static_cast<double>(doc.ps.Frame.yMin));
}

/// " X from 0.5" with three digits, or nothing for an axis that is linear or shows its whole range.
std::string LogHint(const PlotSurface& surface, AxisId axis, const char* name) {
    const PlotAxis& a = GetAxis(surface, axis);
    if (!a.log || std::min(a.min, a.max) > 0)
        return {};
    const ShownAxisRange range = ShownRange(surface, axis);
    if (!range.log)
        return std::string(" ") + name + " none";
    const double unit = std::pow(10.0, std::floor(std::log10(range.min)) - 2);
    return std::string(" ") + name + " from" + GeneralText(std::round(range.min / unit) * unit);
}

} // namespace

// --- origin and numbers

void optStandardOrigin_Click(DiagramDocument& doc, int index) {
    const PlotBatch batch(doc.surface);
    ShowOrigin(doc, index == 1);
    optXOrigin_Click(doc, 0);
    optYOrigin_Click(doc, 0);
}

void optXOrigin_Click(DiagramDocument& doc, int index) {
    PlaceOrigin(doc, doc.design.optXOrigin, AxisId::X, index);
}

void optYOrigin_Click(DiagramDocument& doc, int index) {
    PlaceOrigin(doc, doc.design.optYOrigin, AxisId::Y, index);
}

void optXZiffern_Click(DiagramDocument& doc, int index) {
    PlaceNumbers(doc, doc.design.optXZiffern, AxisId::X, index);
}

void optYZiffern_Click(DiagramDocument& doc, int index) {
    PlaceNumbers(doc, doc.design.optYZiffern, AxisId::Y, index);
}

// --- grid

void opt1Gitter_Click(DiagramDocument& doc, int index) {
    doc.design.opt1Gitter.selected = doc.GridMode = index;
    const bool ofY = index == 1 || index == 3;
    const bool ofX = index == 2 || index == 3;
    const PlotBatch batch(doc.surface);
    for (const auto& [axis, on] : {std::pair(AxisId::X, ofX), std::pair(AxisId::Y, ofY)})
        SetGrid(doc.surface, axis, on ? doc.GridPattern : LinePattern::None,
                GetAxis(doc.surface, axis).gridColour);
}

void opt2Gitter_Click(DiagramDocument& doc, int index) {
    doc.design.opt2Gitter.selected = index;
    doc.GridPattern = index == 1 ? LinePattern::Solid : LinePattern::Dotted;
    opt1Gitter_Click(doc, doc.GridMode);
}

void cmdGitterFarbe_Click(DiagramDocument& doc) {
    const auto colour = host().chooseColour(GetAxis(doc.surface, AxisId::X).gridColour);
    if (!colour)
        return;
    doc.design.cmdGitterFarbe.backColour = *colour;
    const PlotBatch batch(doc.surface);
    for (const AxisId axis : {AxisId::X, AxisId::Y})
        SetGrid(doc.surface, axis, GetAxis(doc.surface, axis).gridPattern, *colour);
}

// --- zoom

void cmdZoom_Click(DiagramDocument& doc) {
    FuPanelsZu(doc);
    doc.pointer = ChartPointer::CrossHair;
    PutOriginIntoMinima(doc);
    StartRubberZoom(doc.surface);
}

void cmdZoomReset_Click(Workspace& ps, DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    ResetZoom(doc.surface);
    CancelZoom(doc);
    cmdCoord_OK_Click(ps, doc);
    optScaling_Click(doc, 1);
    optScaling_Click(doc, 0);
}

void cmdShowAll_Click(Workspace& ps, DiagramDocument& doc) {
    const std::optional<PlotExtent> all = ExtentOfAll(doc.surface);
    if (!all)
        return;
    const PlotBatch batch(doc.surface);
    CancelZoom(doc);
    // As after a zoom the boxes keep the frame of before, so that "Zoom back" leads there.
    ps.Frame.xMin = all->x.lower;
    ps.Frame.xMax = all->x.upper;
    ps.Frame.yMin = all->y.lower;
    ps.Frame.yMax = all->y.upper;
    FuKoordSetzen(ps.Frame, doc.surface);
    ChooseAutomaticScaling(doc);
}

void ReleaseZoom(Workspace& ps, DiagramDocument& doc, bool leftButton, double px, double py) {
    doc.pointer = ChartPointer::Default;
    if (!leftButton)
        return;
    const PlotBatch batch(doc.surface);
    const PlotAxis xBefore = GetAxis(doc.surface, AxisId::X);
    const PlotAxis yBefore = GetAxis(doc.surface, AxisId::Y);
    const bool zoomed = RubberUp(doc.surface, px, py);
    CancelRubberZoom(doc.surface);
    const PlotAxis& x = GetAxis(doc.surface, AxisId::X);
    const PlotAxis& y = GetAxis(doc.surface, AxisId::Y);
    DiaKoord taken = ps.Frame;
    taken.xMin = static_cast<float>(x.min);
    taken.xMax = static_cast<float>(x.max);
    taken.yMin = static_cast<float>(y.min);
    taken.yMax = static_cast<float>(y.max);
    if (zoomed && !(taken.xMin < taken.xMax && taken.yMin < taken.yMax)) {
        SetAxis(doc.surface, AxisId::X, xBefore.min, xBefore.max, x.dataMin, x.dataMax);
        for (const AxisId axis : {AxisId::Y, AxisId::Y2})
            SetAxis(doc.surface, axis, yBefore.min, yBefore.max, y.dataMin, y.dataMax);
        return;
    }
    ps.Frame = taken;
}

bool CancelZoom(DiagramDocument& doc) {
    const bool waited = doc.surface.rubber.armed || doc.surface.rubber.dragging;
    CancelRubberZoom(doc.surface);
    doc.pointer = ChartPointer::Default;
    return waited;
}

std::string ChartHint(const DiagramDocument& doc) {
    if (doc.surface.rubber.armed)
        return "Zoom: drag a rectangle (Esc: stop)";
    const std::string x = LogHint(doc.surface, AxisId::X, "X");
    const std::string y = LogHint(doc.surface, AxisId::Y, "Y");
    if (x.empty() && y.empty())
        return {};
    return "positive part only:" + x + (x.empty() || y.empty() ? "" : ",") + y;
}

// --- from the surface into the controls

void ShowAxisSettings(DiagramDocument& doc) {
    DesignControls& design = doc.design;
    const PlotAxis& x = GetAxis(doc.surface, AxisId::X);
    const PlotAxis& y = GetAxis(doc.surface, AxisId::Y);
    const bool ofX = x.gridPattern != LinePattern::None;
    const bool ofY = y.gridPattern != LinePattern::None;
    doc.GridMode = (ofX ? 2 : 0) + (ofY ? 1 : 0);
    if (ofX || ofY)
        doc.GridPattern = ofX ? x.gridPattern : y.gridPattern;
    design.opt1Gitter.selected = doc.GridMode;
    design.opt2Gitter.selected = doc.GridPattern == LinePattern::Solid ? 1 : 0;
    design.cmdGitterFarbe.backColour = x.gridColour;

    const auto indexOf = [](Placement placement) { return static_cast<int>(placement); };
    design.optXOrigin.selected = indexOf(x.origin);
    design.optYOrigin.selected = indexOf(y.origin);
    design.optXZiffern.selected = indexOf(x.annotation);
    design.optYZiffern.selected = indexOf(y.annotation);
    ShowOrigin(doc, x.origin != Placement::Min || y.origin != Placement::Min);
    ShowFrame(doc.ps.Frame, doc.Tabcoord);
    ShowSpacings(doc);
}

} // namespace zorvant
