#include "dialogs/diagram/diagram_curves.h"

#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/curve_calculation.h"
#include "dialogs/diagram/diagram_legend.h"
#include "dialogs/diagram/diagram_marks.h"
#include "dialogs/diagram/diagram_points.h"
#include "dialogs/diagram/diagram_walk.h"
#include "engine/arithmetic.h"
#include "engine/modes.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace zorvant {
namespace {

/// Above this FitMode each press of cmdDraw draws one curve.
constexpr int kIsothermalFits = 5;
/// Where the label of the first curve stands on it, and how far the next ones are moved back.
constexpr double kFirstLabelPlace = 1.2;
constexpr double kLabelShift = 0.18;

/// Single points smaller than this can't be hit with the pointer, pixels.
constexpr int kSmallestDot = 4;

constexpr const char* kCurveCaption = "K. ";

/// By index of the curve style list.
struct CurveStyle {
    LinePattern pattern;
    SymbolShape symbol;
};
constexpr std::array<CurveStyle, 5> kCurveStyles{{{LinePattern::None, SymbolShape::Dot},
                                                  {LinePattern::Solid, SymbolShape::Hidden},
                                                  {LinePattern::Dotted, SymbolShape::Hidden},
                                                  {LinePattern::Dashed, SymbolShape::Hidden},
                                                  {LinePattern::DashDot, SymbolShape::Hidden}}};

int StyleIndex(LinePattern pattern) {
    for (std::size_t i = 0; i < kCurveStyles.size(); ++i)
        if (kCurveStyles[i].pattern == pattern)
            return static_cast<int>(i);
    return 1;
}

bool HasOwnBuffer(int kind) {
    return kind == kKindFitPoints || (kind >= kKindKOfT && kind <= 0);
}

/// The time axis of the batch calculation becomes the length of the tube.
void StretchToTube(const Workspace& ps, PointBuffer& curve) {
    const auto velocity = static_cast<double>(ps.vRohr);
    for (int i = 1; i <= BufferCount(curve); ++i) {
        float& x = curve[static_cast<std::size_t>(i)].x;
        x = ToSingle(static_cast<double>(x) * velocity);
    }
}

void StretchFrameToTube(Workspace& ps, DiagramDocument& doc) {
    ps.Frame.xMax = ToSingle(static_cast<double>(ps.Frame.xMax) * static_cast<double>(ps.vRohr));
    FuKoordMerken(ps, ps.DiagramKind, ps.Memory, ps.Frame);
    doc.coord(2).text = PlainText(static_cast<double>(ps.Frame.xMax));
    FuKoordSetzen(ps, doc);
}

/// The point of a curve that its label attaches to, spreading the labels of successive curves.
int LabelPoint(const DiaKoord& frame, const PointBuffer& curve, int slot) {
    int last = BufferCount(curve);
    while (last > 0 && !(curve[static_cast<std::size_t>(last)].x < frame.xMax))
        --last;
    return static_cast<int>(RoundHalfEven(last / kFirstLabelPlace - kLabelShift * last * slot));
}

/// The label of a curve whose points are counted already, and the slider that moves it.
void PlaceLabel(const Workspace& ps, DiagramDocument& doc, int slot, const PointBuffer& curve) {
    Slider& shift = doc.scrShiftLab(slot);
    shift.minimum = 1;
    shift.maximum = std::max(1, BufferCount(curve));
    shift.value =
        AttachLabelToPoint(doc.surface, slot, kLines, slot, LabelPoint(ps.Frame, curve, slot));
}

/// Fetches the next curve into the buffer and moves it to where the diagram shows it.
void FetchCurve(Workspace& ps, DiagramDocument& doc, bool& outside, bool& firstInTube) {
    if (HasOwnBuffer(ps.DiagramKind)) {
        outside = outside && !SeenInFrame(ps.Frame, ps.CurveBuf);
    } else {
        CalcCurve(ps, doc, ps.DiagramKind, doc.CurveSlot, ps.CurveBuf, doc.RegressA, doc.RegressB,
                  doc.RegressR2, doc.DrawNote, outside, doc.DrawError);
    }
    ps.CurvesToDraw = ps.FitMode >= kFirstTemperatureMode ? 0 : ps.CurvesToDraw - 1;
    if (!ps.IsTubular || doc.DrawError)
        return;
    try {
        StretchToTube(ps, ps.CurveBuf);
        if (firstInTube)
            StretchFrameToTube(ps, doc);
        firstInTube = false;
    } catch (const ArithmeticError& error) {
        doc.DrawError = true;
        doc.DrawNote = JoinLines({error.what(), "Message from CalcCurve"});
    }
}

/// Puts the fetched curve with label and legend text into its slot.
void PlaceCurve(Workspace& ps, DiagramDocument& doc) {
    const int slot = doc.CurveSlot;
    const int count = BufferCount(ps.CurveBuf);
    const PlotBatch batch(doc.surface);
    SetLineColour(doc.surface, kLines, slot, ps.PresetColor);
    SetPointCount(doc.surface, kLines, slot, count);
    PlaceLabel(ps, doc, slot, ps.CurveBuf);
    const std::string& text = GetLabel(doc.surface, slot).text;
    SetSeriesLabel(doc.surface, kLines, slot, text);
    doc.txtLegendCurves(slot).text = text;
    FuKurveZeichnen(ps, doc, slot, ps.CurveBuf);
    if (GetLabel(doc.surface, slot).visible)
        doc.mnuDelLabels.enabled = true;
    SelectSeries(doc, kLines, slot);
}

enum class DrawEnd { Done, NoSlot, Failed };

DrawEnd DrawPending(Workspace& ps, DiagramDocument& doc, bool& outside) {
    bool firstInTube = true;
    while (ps.CurvesToDraw > 0) {
        if (!FuKurvePlatz(ps, doc))
            return DrawEnd::NoSlot;
        FetchCurve(ps, doc, outside, firstInTube);
        if (doc.DrawError || BufferCount(ps.CurveBuf) == 0) {
            // The count is given back, the slot stays taken; the curve before is left alone.
            --ps.CurveCount;
            --doc.CurveSlot;
        } else {
            PlaceCurve(ps, doc);
        }
        if (doc.DrawError)
            return DrawEnd::Failed;
    }
    return DrawEnd::Done;
}

void EmptySlot(DiagramDocument& doc, int slot, SeriesDisplay mode) {
    SetPointCount(doc.surface, kLines, slot, 0);
    SetSeriesDisplay(doc.surface, kLines, slot, mode);
    SetCurveLabel(doc, slot, std::to_string(slot));
    SetSeriesLabel(doc.surface, kLines, slot, "");
    doc.txtLegendCurves(slot).text.clear();
    ShowPage(doc.tabKurven, slot - 1, false);
    doc.mnuSubDelKurv(slot).enabled = false;
    doc.CurveSlotFree[static_cast<std::size_t>(slot)] = true;
}

/// Before the first curve: whatever a draw without a count has left goes.
void FreeAllSlots(DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    for (int slot = 1; slot <= kCurveSlots; ++slot)
        EmptySlot(doc, slot, GetSeries(doc.surface, kLines, slot).display);
}

} // namespace

void cmdDraw_Click(Workspace& ps, DiagramDocument& doc) {
    if (ps.CurvesToDraw <= 0)
        return;
    FuPanelsZu(doc);
    doc.mnuDelKurv.enabled = doc.mnuSubDelKurv(0).enabled = true;
    bool outside = true;
    doc.DrawError = false;
    const WaitScope wait(ps);
    BeginBatch(doc.surface);
    const DrawEnd end = DrawPending(ps, doc, outside);
    EndBatch(doc.surface); // a box must not stand over a picture without its curves
    if (end == DrawEnd::Failed)
        ShowMessage(JoinLines({"Critical error occured:", doc.DrawNote}), "Aborted",
                    Icon::Critical);
    else if (end == DrawEnd::Done && outside)
        ShowMessage(
            JoinLines({"Curve outside the actual coordinates", "", "Enlarge the coordinates"}),
            "WARNING", Icon::Warning);
}

bool FuKurvePlatz(Workspace& ps, DiagramDocument& doc) {
    auto& slotFree = doc.CurveSlotFree;
    if (ps.CurveCount == 0)
        FreeAllSlots(doc);
    const auto found = std::find(slotFree.begin() + 1, slotFree.end(), true);
    if (ps.CurveCount >= kCurveSlots || found == slotFree.end()) {
        ShowMessage(JoinLines({"Maximum  24 curves possible", "Delete existing curves"}), "WARNING",
                    Icon::Warning);
        return false;
    }
    ++ps.CurveCount;
    *found = false;
    doc.CurveSlot = static_cast<int>(found - slotFree.begin());
    doc.mnuDelKurv.enabled = doc.mnuSubDelKurv(0).enabled = true;
    doc.mnuDelTotal.enabled = true;
    doc.mnuSubDelKurv(doc.CurveSlot).enabled = true;
    TabPage& page = doc.tabKurven.pages.at(static_cast<std::size_t>(doc.CurveSlot - 1));
    page.text = kCurveCaption + std::to_string(doc.CurveSlot);
    page.visible = true;
    return true;
}

void FuKurveZeichnen(Workspace& ps, DiagramDocument& doc, int slot, const PointBuffer& curve) {
    const int count = BufferCount(curve);
    std::vector<double> x, y;
    x.reserve(static_cast<std::size_t>(count));
    y.reserve(static_cast<std::size_t>(count));
    for (int i = 1; i <= count; ++i) {
        x.push_back(static_cast<double>(curve[static_cast<std::size_t>(i)].x));
        y.push_back(static_cast<double>(curve[static_cast<std::size_t>(i)].y));
    }
    const PlotBatch batch(doc.surface);
    SetLineColour(doc.surface, kLines, slot, ps.PresetColor);
    SetSeriesDisplay(doc.surface, kLines, slot, SeriesDisplay::Shown);
    SetPoints(doc.surface, kLines, slot, std::move(x), std::move(y));
    ShowCurveLabel(doc, slot, true);
}

void cmdManuKurve_Click(Workspace& ps, DiagramDocument& doc) {
    if (!FuKurvePlatz(ps, doc))
        return;
    const int slot = doc.CurveSlot;
    const PlotBatch batch(doc.surface);
    FuKurveZeichnen(ps, doc, slot, ps.ManualBuf);
    PlaceLabel(ps, doc, slot, ps.ManualBuf);
    doc.mnuDelLabels.enabled = true;
}

// --- deleting

void FuKurveLoeschen(Workspace& ps, DiagramDocument& doc, int slot) {
    const PlotBatch batch(doc.surface);
    if (slot == 0) {
        ps.CurveCount = 0;
        for (int i = 1; i <= kCurveSlots; ++i)
            EmptySlot(doc, i, SeriesDisplay::Excluded);
    } else {
        if (doc.CurveSlotFree[static_cast<std::size_t>(slot)])
            return;
        ps.CurveCount = std::max(0, ps.CurveCount - 1);
        EmptySlot(doc, slot, SeriesDisplay::Hidden);
    }
    if (ps.CurveCount > 0)
        return;
    doc.fraKurven.visible = false;
    doc.mnuDelKurv.enabled = doc.mnuDelLabels.enabled = false;
}

void mnuSubDelKurv_Click(Workspace& ps, DiagramDocument& doc, int slot) {
    FuKurveLoeschen(ps, doc, slot);
}

int SlotOfFrontPage(const DiagramDocument& doc) {
    const int front = doc.tabKurven.selected;
    if (front < 0 || front >= kCurveSlots)
        return 0;
    const std::string& caption = doc.tabKurven.pages[static_cast<std::size_t>(front)].text;
    const std::size_t point = caption.find('.');
    if (point == std::string::npos)
        return 0;
    const double number = Val(std::string_view(caption).substr(point + 1));
    return number >= 1 && number <= kCurveSlots ? static_cast<int>(number) : 0;
}

void cmdDelKurv_Click(Workspace& ps, DiagramDocument& doc) {
    const int slot = SlotOfFrontPage(doc);
    if (slot > 0)
        FuKurveLoeschen(ps, doc, slot);
}

void mnuDelTotal_Click(Workspace& ps, DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    FuKurveLoeschen(ps, doc, 0);
    mnuSubDelPoints_Click(doc, 0);
    mnuDelHalbAB_Click(doc);
    for (int slot = 1; slot <= kCurveSlots; ++slot)
        SetSeriesDisplay(doc.surface, kLines, slot, SeriesDisplay::Hidden);
    for (int set = 1; set <= kPointSets; ++set)
        SetSeriesDisplay(doc.surface, kPoints, set, SeriesDisplay::Hidden);
    ShowLegend(doc, false);
    doc.mnuDelHalbAB.enabled = doc.mnuDelLabels.enabled = false;
}

void mnuDelete_Click(DiagramDocument& doc) {
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        const bool taken = !doc.CurveSlotFree[static_cast<std::size_t>(slot)];
        doc.mnuSubDelKurv(slot).visible = taken;
    }
    for (int set = 1; set <= kPointSets; ++set)
        doc.mnuSubDelPoints(set).visible = GetPointCount(doc.surface, kPoints, set) > 0;
    doc.mnuSubDelKurv(0).visible = doc.mnuSubDelPoints(0).visible = true;
    doc.mnuDelMarkLabels.enabled = std::ranges::any_of(
        doc.surface.labels, [](const PlotLabel& label) { return label.visible; });
}

void FuPunktLoeschen(Workspace& ps, DiagramDocument& doc, int series, int point) {
    const PlotSeries& drawn = GetSeries(doc.surface, kLines, series);
    const std::string place = "point x =" + PlainText(GetX(doc.surface, kLines, series, point)) +
                              ",  y =" + PlainText(GetY(doc.surface, kLines, series, point));
    const std::string text =
        JoinLines({"(Note: Right-click on a curve", "opens the curve-design window)", "", place,
                   " Really delete?", "", ""});
    if (Ask(text, "Delete a curve point", Icon::Question, Buttons::YesNo) != Answer::Yes)
        return;
    PointBuffer rest(1);
    for (std::size_t i = 0; i < drawn.x.size(); ++i)
        if (static_cast<int>(i) + 1 != point)
            rest.push_back({static_cast<float>(drawn.x[i]), static_cast<float>(drawn.y[i])});
    rest[0].x = static_cast<float>(rest.size() - 1);
    FuKurveZeichnen(ps, doc, series, rest);
    Slider& shift = doc.scrShiftLab(series);
    shift.maximum = std::max(1, BufferCount(rest));
    shift.value = std::min(shift.value, shift.maximum);
}

void cmdMsgDelPoint_Click() {
    ShowMessage(JoinLines({"1st) Switch the the style from the curve in question",
                           "     from \"Curve solid\" to \"only single points\"",
                           "2nd) Then click with the LEFT mouse button",
                           "     on the curve point to be deleted"}),
                "How to delete a single curve point", Icon::Information);
}

// --- design

void ShowCurveDesign(DiagramDocument& doc) {
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        TabPage& page = doc.tabKurven.pages[static_cast<std::size_t>(slot - 1)];
        page.visible = !doc.CurveSlotFree[static_cast<std::size_t>(slot)];
        if (!page.visible) {
            doc.cmdKurvenFarbe(slot).backColour = doc.ps.PresetColor;
            continue;
        }
        page.text = kCurveCaption + std::to_string(slot);
        const LineStyle& line = GetLineStyle(doc.surface, kLines, slot);
        doc.cmdKurvenFarbe(slot).backColour = line.colour;
        doc.cmbKStil(slot).index = StyleIndex(line.pattern);
        doc.UpDown1_KBreite(slot).value = line.width;
        doc.Label39(slot).text = std::to_string(line.width);
        const int count = GetPointCount(doc.surface, kLines, slot);
        const PlotLabel& label = GetLabel(doc.surface, slot);
        doc.txtLabel(slot).text = label.text;
        doc.chkEinzelLabelSichtbar(slot).checked = label.visible;
        doc.scrShiftLab(slot).maximum = std::max(1, count);
        doc.scrShiftLab(slot).value = std::clamp(label.point, 1, std::max(1, count));
        if (count > 0)
            doc.txtLegendCurves(slot).text = GetSeriesLabel(doc.surface, kLines, slot);
    }
}

void mnuKurvenDesign_Click(Workspace&, DiagramDocument& doc) {
    FuPanelsZu(doc);
    ShowCurveDesign(doc);
    const auto taken =
        std::ranges::find_if(doc.tabKurven.pages, [](const TabPage& page) { return page.visible; });
    if (taken != doc.tabKurven.pages.end())
        doc.tabKurven.selected = static_cast<int>(taken - doc.tabKurven.pages.begin());
    doc.fraKurven.visible = true;
    doc.setFocus = &doc.tabKurven;
}

void cmbKStil_Click(DiagramDocument& doc, int slot) {
    const int index =
        std::clamp(doc.cmbKStil(slot).index, 0, static_cast<int>(kCurveStyles.size()) - 1);
    const CurveStyle& style = kCurveStyles[static_cast<std::size_t>(index)];
    const PlotBatch batch(doc.surface);
    LineStyle line = GetLineStyle(doc.surface, kLines, slot);
    line.pattern = style.pattern;
    SetLineStyle(doc.surface, kLines, slot, line);
    SymbolStyle symbol = GetSymbol(doc.surface, kLines, slot);
    symbol.shape = style.symbol;
    symbol.size = std::max(symbol.size, kSmallestDot);
    symbol.colour = line.colour;
    SetSymbol(doc.surface, kLines, slot, symbol);
}

void UpDown1_KBreite_Change(DiagramDocument& doc, int slot) {
    LineStyle line = GetLineStyle(doc.surface, kLines, slot);
    line.width = doc.UpDown1_KBreite(slot).value;
    doc.Label39(slot).text = std::to_string(line.width);
    SetLineStyle(doc.surface, kLines, slot, line);
}

void cmdKurvenFarbe_Click(DiagramDocument& doc, int slot) {
    const auto colour = host().chooseColour(GetLineStyle(doc.surface, kLines, slot).colour);
    if (!colour)
        return;
    const PlotBatch batch(doc.surface);
    doc.cmdKurvenFarbe(slot).backColour = *colour;
    SetLineColour(doc.surface, kLines, slot, *colour);
    SetSymbolColour(doc.surface, kLines, slot, *colour);
}

void cmdFarbVorwahl_Click(Workspace& ps, DiagramDocument& doc) {
    const auto colour = host().chooseColour(ps.PresetColor);
    if (!colour)
        return;
    ps.PresetColor = *colour;
    doc.cmdFarbVorwahl.backColour = *colour;
}

} // namespace zorvant
