#include "dialogs/diagram/diagram_mouse.h"

#include "dialogs/diagram/axis_settings.h"
#include "dialogs/diagram/curve_panel.h"
#include "dialogs/diagram/diagram_curves.h"
#include "dialogs/diagram/diagram_texts.h"
#include "dialogs/diagram/diagram_walk.h"
#include "dialogs/diagram/point_panel.h"
#include "dialogs/diagram/settings_panel.h"
#include "platform/number_text.h"

#include <utility>

namespace zorvant {
namespace {

/// The last curve whose design page a right click opens; slot 24 shows its readout only.
constexpr int kLastClickableCurve = 23;

void HideReadouts(DiagramDocument& doc) {
    doc.lblMausPosNr.visible = doc.lblMausPos.visible = false;
}

void SetPointer(DiagramDocument& doc, ChartPointer pointer) {
    doc.pointer = doc.surface.rubber.armed ? ChartPointer::CrossHair : pointer;
}

void ShowReadout(DiagramDocument& doc, const std::string& text, Colour ground) {
    doc.lblMausPos.text = text;
    doc.lblMausPos.backColour = ground;
    doc.lblMausPos.visible = true;
}

/// A point of a group near the pointer; nothing beyond the hit distance.
NearestHit HitPoint(const PlotSurface& surface, int group, double px, double py, int lastSeries) {
    const NearestHit hit = NearestPoint(surface, group, px, py);
    const bool near = hit.point > 0 && hit.series <= lastSeries && hit.distance <= kHitDistance;
    return near ? hit : NearestHit{};
}

bool ReadOutHit(DiagramDocument& doc, int group, const NearestHit& hit, ChartPointer pointer) {
    if (hit.point < 1)
        return false;
    ReadOutPoint(doc, {group, hit.series, hit.point});
    SetPointer(doc, pointer);
    return true;
}

void RightDownInPlot(Workspace& ps, DiagramDocument& doc, double px, double py) {
    const NearestHit curve = HitPoint(doc.surface, kLines, px, py, kLastClickableCurve);
    if (curve.point > 0) {
        SelectSeries(doc, kLines, curve.series, curve.point);
        mnuKurvenDesign_Click(ps, doc);
        doc.tabKurven.selected = curve.series - 1;
        return;
    }
    const NearestHit point = HitPoint(doc.surface, kPoints, px, py, kPointSets);
    if (point.point > 0) {
        SelectSeries(doc, kPoints, point.series, point.point);
        mnuPunktDesign_Click(ps, doc);
        doc.tabPunkte.selected = point.series - 1;
        return;
    }
    mnuDesignMore_Click(doc);
}

} // namespace

void ReadOutPoint(DiagramDocument& doc, const SeriesPoint& at) {
    doc.lblMausPosNr.text = " #" + std::to_string(at.series);
    doc.lblMausPosNr.visible = true;
    const double x = GetX(doc.surface, at.group, at.series, at.point);
    const double y = GetY(doc.surface, at.group, at.series, at.point);
    ShowReadout(doc, "  X = " + GeneralText(x) + ";      Y = " + GeneralText(y), kWhite);
}

void MouseMove(Workspace&, DiagramDocument& doc, double px, double py) {
    if (doc.drag.part != PlotDrag::Part::None) {
        DragTo(doc, doc.drag, px, py);
        return;
    }
    RubberMove(doc.surface, px, py);
    const Region region = PixelToData(doc.surface, px, py).region;
    if (Grab(doc.surface, px, py).part == PlotDrag::Part::Label) {
        HideReadouts(doc);
        SetPointer(doc, ChartPointer::Move);
        return;
    }
    switch (region) {
    case Region::PlotArea:
        if (ReadOutHit(doc, kLines, HitPoint(doc.surface, kLines, px, py, kCurveSlots),
                       ChartPointer::Curve) ||
            ReadOutHit(doc, kPoints, HitPoint(doc.surface, kPoints, px, py, kPointSets),
                       ChartPointer::Point))
            return;
        doc.lblMausPosNr.visible = false;
        ShowReadout(doc, " right click = Design", kLightGrey);
        SetPointer(doc, ChartPointer::Default);
        return;
    case Region::Header:
    case Region::Footer:
    case Region::Legend:
        doc.lblMausPosNr.visible = false;
        ShowReadout(doc,
                    region == Region::Legend ? "  right-click = edit, shift legend"
                                             : "  right click = edit, shift text",
                    kLightGreen);
        SetPointer(doc, ChartPointer::Move);
        return;
    default:
        HideReadouts(doc);
        SetPointer(doc, ChartPointer::Default);
    }
}

void MouseUp(Workspace& ps, DiagramDocument& doc, MouseButton button, double px, double py) {
    if (const PlotDrag dragged = std::exchange(doc.drag, {}); dragged.moved) {
        ShowDesign(doc);
        return;
    }
    ReleaseZoom(ps, doc, button == MouseButton::Left, px, py);
}

void MouseDown(Workspace& ps, DiagramDocument& doc, MouseButton button, double px, double py) {
    if (button == MouseButton::Left) {
        if (doc.surface.rubber.armed) {
            RubberDown(doc.surface, px, py);
            return;
        }
        SetCursor(doc.surface, std::nullopt);
        doc.drag = Grab(doc.surface, px, py);
        if (doc.drag.part != PlotDrag::Part::None)
            return;
        const NearestHit curve = HitPoint(doc.surface, kLines, px, py, kCurveSlots);
        if (curve.point > 0) {
            SelectSeries(doc, kLines, curve.series, curve.point);
            FuPunktLoeschen(ps, doc, curve.series, curve.point);
        } else {
            doc.fraTabs.visible = false;
        }
        return;
    }
    if (button == MouseButton::Other)
        return;
    switch (PixelToData(doc.surface, px, py).region) {
    case Region::PlotArea:
        RightDownInPlot(ps, doc, px, py);
        return;
    case Region::Header:
        mnuTextDesign_Click(ps, doc, static_cast<int>(DiagramText::Header));
        return;
    case Region::Footer:
        mnuTextDesign_Click(ps, doc, static_cast<int>(DiagramText::Additional));
        return;
    case Region::Legend:
        mnuDesignMore_Click(doc, SettingsPage::Legend);
        return;
    default:
        mnuDesignMore_Click(doc, SettingsPage::Frame);
    }
}

} // namespace zorvant
