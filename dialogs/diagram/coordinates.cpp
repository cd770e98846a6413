#include "dialogs/diagram/coordinates.h"

#include "engine/arithmetic.h"
#include "platform/host.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

constexpr int kEnter = 13;
std::array<float*, 4> Limits(DiaKoord& frame) {
    return {&frame.xMin, &frame.xMax, &frame.yMin, &frame.yMax};
}

/// Takes four boxes into the frame when their limits are in order.
bool TakeFrame(DiaKoord& frame, const Array<TextField, 4, 1>& boxes) {
    std::array<float, 4> limits{};
    for (int i = 1; i <= 4; ++i)
        limits[static_cast<std::size_t>(i - 1)] = NearestSingle(Val(boxes(i).text));
    if (!(limits[0] < limits[1] && limits[2] < limits[3]))
        return false;
    frame.xMin = limits[0];
    frame.xMax = limits[1];
    frame.yMin = limits[2];
    frame.yMax = limits[3];
    return true;
}

/// What both coordinate panels do with their boxes.
void ApplyCoordinates(Workspace& ps, DiagramDocument& doc, Array<TextField, 4, 1>& boxes,
                      bool closePanel) {
    if (TakeFrame(ps.Frame, boxes)) {
        if (closePanel)
            doc.fraCoordInput.visible = false;
        FuKoordSetzen(ps.Frame, doc.surface);
        FuKoordMerken(ps, ps.DiagramKind, ps.Memory, ps.Frame);
        // The boxes of both panels hold the frame given last; taking back a zoom reads it there.
        ShowFrame(ps.Frame, doc.coord);
        ShowFrame(ps.Frame, doc.Tabcoord);
    } else {
        ShowMessage("Lower limit has to be smaller than upper limit.", "INPUT ERROR",
                    Icon::Critical);
        ShowFrame(ps.Frame, boxes);
    }
    ChooseAutomaticScaling(doc);
}

struct SpacingField {
    TextField DiagramDocument::*box;
    AxisId axis;
    bool (*set)(PlotSurface&, AxisId, double, bool);
    Spacing PlotAxis::*spacing;
};
/// In the order of SpacingBox.
constexpr SpacingField kSpacings[] = {
    {&DiagramDocument::txtXGridValue, AxisId::X, SetGridSpacing, &PlotAxis::grid},
    {&DiagramDocument::txtYGridValue, AxisId::Y, SetGridSpacing, &PlotAxis::grid},
    {&DiagramDocument::txtXTickValue, AxisId::X, SetTickSpacing, &PlotAxis::tick},
    {&DiagramDocument::txtYTickValue, AxisId::Y, SetTickSpacing, &PlotAxis::tick},
    {&DiagramDocument::txtXZiffValue, AxisId::X, SetNumberSpacing, &PlotAxis::number},
    {&DiagramDocument::txtYZiffValue, AxisId::Y, SetNumberSpacing, &PlotAxis::number},
};

std::string SpacingText(const DiagramDocument& doc, const SpacingField& field) {
    return PlainText((GetAxis(doc.surface, field.axis).*field.spacing).value);
}

/// Grid spacings take the number of their box, tick spacings stay; a box without a number counts as
/// the present value.
void SetManualSpacing(DiagramDocument& doc, const SpacingField& field) {
    const bool grid = field.spacing == &PlotAxis::grid;
    if (grid && field.set(doc.surface, field.axis, Val((doc.*field.box).text), false))
        return;
    const Spacing& present = GetAxis(doc.surface, field.axis).*field.spacing;
    field.set(doc.surface, field.axis, present.value, false);
}

void WireSpacings(DiagramDocument& doc) {
    const std::pair<TextField*, SpacingBox> spacings[] = {
        {&doc.txtXGridValue, SpacingBox::XGrid},   {&doc.txtYGridValue, SpacingBox::YGrid},
        {&doc.txtXTickValue, SpacingBox::XTick},   {&doc.txtYTickValue, SpacingBox::YTick},
        {&doc.txtXZiffValue, SpacingBox::XNumber}, {&doc.txtYZiffValue, SpacingBox::YNumber},
    };
    for (const auto& [box, which] : spacings) {
        box->onChange = [&doc, which = which] { SpacingBox_Change(doc, which); };
        box->onLostFocus = [&doc, which = which] { SpacingBox_Leave(doc, which); };
        box->onKeyPress = [&doc, which = which](int& key) { SpacingBox_KeyPress(doc, which, key); };
    }
}

} // namespace

// --- panels

void ShowFrame(const DiaKoord& frame, Array<TextField, 4, 1>& boxes) {
    DiaKoord shown = frame;
    const std::array<float*, 4> limits = Limits(shown);
    for (int i = 1; i <= 4; ++i)
        boxes(i).text = PlainText(static_cast<double>(*limits[static_cast<std::size_t>(i - 1)]));
}

void mnuCoord_Click(Workspace& ps, DiagramDocument& doc) {
    FuPanelsZu(doc);
    ShowFrame(ps.Frame, doc.coord);
    doc.fraCoordInput.visible = true;
    doc.cmdCoord_Esc.isCancel = true;
    doc.setFocus = &doc.coord(1);
}

void cmdCoord_OK_Click(Workspace& ps, DiagramDocument& doc) {
    ApplyCoordinates(ps, doc, doc.coord, true);
}

void cmdCoord_Esc_Click(DiagramDocument& doc) {
    doc.fraCoordInput.visible = false;
}

void cmdTabCoord_OK_Click(Workspace& ps, DiagramDocument& doc) {
    ApplyCoordinates(ps, doc, doc.Tabcoord, false);
    ps.BacTimeMax = ps.Frame.xMax;
}

void coord_KeyPress(DiagramDocument& doc, Array<TextField, 4, 1>& boxes, int index, int& key) {
    if (key == kEnter) {
        doc.setFocus = &boxes(index % 4 + 1);
        key = 0;
    } else if (!FilterNumericKey(key)) {
        key = 0;
    }
}

// --- scaling

void optScaling_Click(DiagramDocument& doc, int index) {
    doc.optScaling.selected = index;
    const bool automatic = index == 0;
    const PlotBatch batch(doc.surface);
    for (const SpacingField& field : kSpacings) {
        TextField& box = doc.*field.box;
        box.enabled = !automatic;
        if (automatic) {
            field.set(doc.surface, field.axis, 0, true);
            box.text = SpacingText(doc, field);
        }
    }
    if (automatic)
        return;
    for (const SpacingField& field : kSpacings)
        if (field.spacing != &PlotAxis::number)
            SetManualSpacing(doc, field);
}

void ChooseAutomaticScaling(DiagramDocument& doc) {
    for (const int index : {1, 0, 1, 0})
        optScaling_Click(doc, index);
}

void SpacingBox_Change(DiagramDocument& doc, SpacingBox which) {
    const SpacingField& field = kSpacings[static_cast<std::size_t>(which)];
    TextField& box = doc.*field.box;
    if (!box.enabled)
        return;
    box.text = CommasToPoints(box.text);
    const PlotBatch batch(doc.surface);
    field.set(doc.surface, field.axis, Val(box.text), false);
    // Numbers stand at ticks: a new tick spacing is followed by the number spacing of its axis.
    if (which == SpacingBox::XTick || which == SpacingBox::YTick) {
        const SpacingField& numbers = kSpacings[static_cast<std::size_t>(
            which == SpacingBox::XTick ? SpacingBox::XNumber : SpacingBox::YNumber)];
        numbers.set(doc.surface, numbers.axis, Val((doc.*numbers.box).text), false);
    }
}

void SpacingBox_Leave(DiagramDocument& doc, SpacingBox which) {
    const SpacingField& field = kSpacings[static_cast<std::size_t>(which)];
    TextField& box = doc.*field.box;
    if (!box.enabled || field.set(doc.surface, field.axis, Val(box.text), false))
        return;
    field.set(doc.surface, field.axis, 0, true);
    box.text = SpacingText(doc, field);
}

void SpacingBox_KeyPress(DiagramDocument& doc, SpacingBox which, int& key) {
    if (key != kEnter)
        return;
    SpacingBox_Leave(doc, which);
    key = 0;
}

void ShowSpacings(DiagramDocument& doc) {
    bool automatic = true;
    for (const SpacingField& field : kSpacings)
        automatic = automatic && (GetAxis(doc.surface, field.axis).*field.spacing).automatic;
    doc.optScaling.selected = automatic ? 0 : 1;
    for (const SpacingField& field : kSpacings) {
        (doc.*field.box).enabled = !automatic;
        (doc.*field.box).text = SpacingText(doc, field);
    }
}

void cmdXLog_Click(DiagramDocument& doc) {
    SetAxisLog(doc.surface, AxisId::X, !GetAxisLog(doc.surface, AxisId::X));
    ChooseAutomaticScaling(doc);
}

void cmdYLog_Click(DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    const bool on = !GetAxisLog(doc.surface, AxisId::Y);
    SetAxisLog(doc.surface, AxisId::Y, on);
    SetAxisLog(doc.surface, AxisId::Y2, on);
    ChooseAutomaticScaling(doc);
}

void WireCoordinates(Workspace& ps, DiagramDocument& doc) {
    for (Array<TextField, 4, 1>* boxes : {&doc.coord, &doc.Tabcoord})
        for (int i = 1; i <= 4; ++i) {
            TextField& box = (*boxes)(i);
            box.onKeyPress = [&doc, boxes, i](int& key) { coord_KeyPress(doc, *boxes, i, key); };
            box.onGotFocus = [&box] { box.selectAll = true; };
        }
    doc.mnuCoord.onClick = [&ps, &doc] { mnuCoord_Click(ps, doc); };
    doc.cmdCoord_OK.onClick = [&ps, &doc] { cmdCoord_OK_Click(ps, doc); };
    doc.cmdCoord_Esc.onClick = [&doc] { cmdCoord_Esc_Click(doc); };
    doc.cmdTabCoord_OK.onClick = [&ps, &doc] { cmdTabCoord_OK_Click(ps, doc); };
    doc.cmdXLog.onClick = [&doc] { cmdXLog_Click(doc); };
    doc.cmdYLog.onClick = [&doc] { cmdYLog_Click(doc); };
    doc.optScaling.onClick = [&doc](int index) { optScaling_Click(doc, index); };
    WireSpacings(doc);
}

} // namespace zorvant
