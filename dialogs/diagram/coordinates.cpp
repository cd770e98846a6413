#include "dialogs/diagram/coordinates.h"

#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <cmath>
#include <limits>

namespace zorvant {
namespace {

constexpr int kEnter = 13;
/// Below this a measured T, k or c counts as not given.
constexpr double kNotGiven = 1e-8;
/// Share of a range's width that stays free on each side of the points.
constexpr float kMarginShare = 20; // one part in
/// The Eyring diagram is widened by this at both ends, ln units.
constexpr float kEyringMargin = 1;
/// End of the normalized saturation diagram's x axis, c(S)/KM.
constexpr float kSaturationEnd = 20;
/// Lower end of the blood-alcohol axis, so that its zero line can be seen, g/kg.
constexpr float kBloodAlcoholFloor = -0.01F;

/// As Single; what is out of its range becomes its largest value.
float Narrow(double value) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

void Raise(Range& range, double value) {
    range.upper = std::max(range.upper, Narrow(value));
}

void Lower(Range& range, double value) {
    range.lower = std::min(range.lower, Narrow(value));
}

void Take(Range& range, double value) {
    Lower(range, value);
    Raise(range, value);
}

struct StartOfRange {
    Range KoordMemory::*range;
    float lower, upper;
};
constexpr StartOfRange kStarts[] = {
    {&KoordMemory::RngT, 0, 0},
    {&KoordMemory::RngC, 0, 0},
    {&KoordMemory::RngK, 0, 0},
    {&KoordMemory::RngTemp, 10000, 0},
    {&KoordMemory::RngInvT, 100000, 0},
    {&KoordMemory::RngLnK, 100000, -100000},
    {&KoordMemory::RngLnKT, 1000000, -1e6F},
    {&KoordMemory::RngLnC, 100000, -100000},
    {&KoordMemory::RngInvC, 100000, 0},
    {&KoordMemory::RngLnAB, 100000, -100000},
    {&KoordMemory::RngWilk, 100000, 0},
    {&KoordMemory::RngInvR, 1e9F, 0},
    {&KoordMemory::RngCR, 0, 0},
    {&KoordMemory::RngRC, 0, 0},
};

void TakePoint(const Workspace& ps, KoordMemory& m, const ExpPoint& p) {
    Raise(m.RngT, p.t);
    for (int slot = 1; slot <= kSpecies; ++slot)
        Raise(m.RngC, p.c(slot));
    if (ps.FitMode == kFitFirstOrderT)
        m.RngC.upper = 1;
    if (ps.FitMode == kFitSecondOrderT)
        m.RngC.upper = ps.c0Data[1];
    Raise(m.RngTemp, p.T);
    if (p.T > 0)
        Lower(m.RngTemp, p.T);
    Raise(m.RngK, p.k);
    if (p.T > kNotGiven)
        Take(m.RngInvT, 1 / p.T);
    if (p.k > kNotGiven) {
        Take(m.RngLnK, std::log(p.k));
        if (p.T > kNotGiven)
            Take(m.RngLnKT, std::log(p.k / p.T));
    }
    if (p.cA > kNotGiven) {
        Take(m.RngLnC, std::log(p.cA));
        Take(m.RngInvC, 1 / p.cA);
        const double c0 = static_cast<double>(ps.c0Data[1]);
        const double conversion = c0 > 0 ? (c0 - p.cA) / c0 : 0;
        if (p.t > kNotGiven && conversion != 0)
            Take(m.RngWilk, p.t / conversion);
        if (p.cB > kNotGiven)
            Take(m.RngLnAB, std::log(p.cA / p.cB));
    }
    if (!IsEnzymeModel(ps.ModelId))
        return;
    const double r = p.t;
    Raise(m.RngR, r);
    if (p.cB > 0) {
        Take(m.RngInvC, 1 / p.cB);
        Take(m.RngRC, r / p.cB);
    }
    if (r > 0) {
        Take(m.RngInvR, 1 / r);
        Take(m.RngCR, p.cB / r);
    }
}

void AddMargin(Range& range, bool atLowerEnd) {
    const float margin = (range.upper - range.lower) / kMarginShare;
    range.upper = Narrow(static_cast<double>(range.upper + margin));
    if (atLowerEnd)
        range.lower = Narrow(static_cast<double>(range.lower - margin));
}

void AddMargins(KoordMemory& m) {
    for (Range KoordMemory::*upward : {&KoordMemory::RngT, &KoordMemory::RngC, &KoordMemory::RngR})
        AddMargin(m.*upward, false);
    for (Range KoordMemory::*both :
         {&KoordMemory::RngTemp, &KoordMemory::RngK, &KoordMemory::RngInvT, &KoordMemory::RngLnK,
          &KoordMemory::RngLnKT, &KoordMemory::RngLnC, &KoordMemory::RngInvC, &KoordMemory::RngLnAB,
          &KoordMemory::RngInvR, &KoordMemory::RngCR, &KoordMemory::RngRC})
        AddMargin(m.*both, true);
    m.RngInvT.lower = std::max(m.RngInvT.lower, 0.0F);
    if (m.RngWilk.upper == m.RngWilk.lower) {
        const float margin = m.RngWilk.upper / kMarginShare;
        m.RngWilk = {m.RngWilk.lower - margin, m.RngWilk.upper + margin};
    } else {
        AddMargin(m.RngWilk, true);
    }
}

/// Concentrations against time: their y range is fixed in the non-isothermal fits.
bool ShowsConcentrations(const DiagramKindRow& row) {
    return row.x == &KoordMemory::RngT && row.y == &KoordMemory::RngC;
}

/// The diagrams whose frame the saturation curve of the enzyme model replaces.
bool GivesWayToSaturation(const Workspace& ps, const DiagramKindRow& row) {
    const bool rates = row.x == &KoordMemory::RngT && row.y == &KoordMemory::RngR;
    return IsMichaelisMentenCurve(ps) && (ShowsConcentrations(row) || rates);
}

std::array<float*, 4> Limits(DiaKoord& frame) {
    return {&frame.xMin, &frame.xMax, &frame.yMin, &frame.yMax};
}

/// Takes four boxes into the frame when their limits are in order.
bool TakeFrame(DiaKoord& frame, const Array<TextField, 4, 1>& boxes) {
    std::array<float, 4> limits{};
    for (int i = 1; i <= 4; ++i)
        limits[static_cast<std::size_t>(i - 1)] = Narrow(Val(boxes(i).text));
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
        FuKoordSetzen(ps, doc);
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

} // namespace

void FuKoordLesen(const Workspace& ps, int kind, const KoordMemory& memory, DiaKoord& frame) {
    const auto put = [&frame](Range x, Range y) {
        frame.xMin = x.lower;
        frame.xMax = x.upper;
        frame.yMin = y.lower;
        frame.yMax = y.upper;
    };
    const DiagramKindRow* row = FindDiagramKind(kind);
    if (row == nullptr)
        return;
    if (GivesWayToSaturation(ps, *row))
        put({0, ps.MMNormalized ? kSaturationEnd : ps.S0Max}, {0, 1});
    else if (kind == kKindBloodAlcohol)
        put({0, ps.BacTimeMax}, {kBloodAlcoholFloor, memory.RngC.upper});
    else if (row->x == nullptr)
        put({row->fixed[0], row->fixed[1]}, {row->fixed[2], row->fixed[3]});
    else
        put(memory.*row->x, memory.*row->y);
    if (kind == kKindEyring) {
        frame.yMin -= kEyringMargin;
        frame.yMax += kEyringMargin;
    }
}

void FuKoordMerken(const Workspace& ps, int kind, KoordMemory& memory, const DiaKoord& frame) {
    const DiagramKindRow* row = FindDiagramKind(kind);
    if (row == nullptr)
        return;
    if (kind == kKindBloodAlcohol) {
        memory.RngC = {frame.yMin, frame.yMax};
        memory.RngT.upper = frame.xMax;
        return;
    }
    // The saturation curve has ranges of its own, which nothing reads back.
    if (row->x == nullptr || GivesWayToSaturation(ps, *row))
        return;
    memory.*row->x = {frame.xMin, frame.xMax};
    memory.*row->y = {frame.yMin, frame.yMax};
    if (ShowsConcentrations(*row) && ps.FitMode == kFitFirstOrderT)
        memory.RngC.upper = 1;
    if (ShowsConcentrations(*row) && ps.FitMode == kFitSecondOrderT)
        memory.RngC.upper = ps.c0Data[1];
}

void FuDatenBereiche(Workspace& ps, int kind) {
    if (kind >= 0)
        return;
    KoordMemory& m = ps.Memory;
    for (const StartOfRange& start : kStarts)
        m.*start.range = {start.lower, start.upper};
    m.RngR.lower = 0;
    for (int i = 1; i <= ps.ExpPointCount; ++i)
        TakePoint(ps, m, ps.ExpData.at(static_cast<std::size_t>(i)));
    AddMargins(m);
}

void FuKoordSetzen(Workspace& ps, DiagramDocument& doc) {
    const auto xMin = static_cast<double>(ps.Frame.xMin);
    const auto xMax = static_cast<double>(ps.Frame.xMax);
    const auto yMin = static_cast<double>(ps.Frame.yMin);
    const auto yMax = static_cast<double>(ps.Frame.yMax);
    const PlotBatch batch(doc.surface);
    SetAxis(doc.surface, AxisId::X, xMin, xMax, xMin, xMax);
    SetAxis(doc.surface, AxisId::Y, yMin, yMax, yMin, yMax);
    SetAxis(doc.surface, AxisId::Y2, yMin, yMax, yMin, yMax);
    SetPoints(doc.surface, kLines, kFrameSeries, {xMin, xMax}, {yMin, yMax});
}

bool InsideFrame(const DiaKoord& frame, double x, double y) {
    return x >= static_cast<double>(frame.xMin) && x <= static_cast<double>(frame.xMax) &&
           y >= static_cast<double>(frame.yMin) && y <= static_cast<double>(frame.yMax);
}

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

} // namespace zorvant
