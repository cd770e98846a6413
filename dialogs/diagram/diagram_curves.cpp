#include "dialogs/diagram/diagram_curves.h"

#include "diagrams/curve_points.h"
#include "diagrams/curve_slots.h"
#include "diagrams/label_places.h"
#include "diagrams/point_sets.h"
#include "diagrams/ranges.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/curve_panel.h"
#include "dialogs/diagram/diagram_legend.h"
#include "dialogs/diagram/diagram_marks.h"
#include "dialogs/diagram/diagram_points.h"
#include "dialogs/diagram/diagram_walk.h"
#include "engine/arithmetic.h"
#include "engine/modes.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

bool HasOwnBuffer(int kind) {
    return kind == kKindFitPoints || (kind >= kKindKOfT && kind <= 0);
}

void StretchFrameToTube(Workspace& ps, DiagramDocument& doc) {
    ps.Frame.xMax = ToSingle(static_cast<double>(ps.Frame.xMax) * static_cast<double>(ps.vRohr));
    FuKoordMerken(ps, ps.DiagramKind, ps.Memory, ps.Frame);
    doc.coord(2).text = PlainText(static_cast<double>(ps.Frame.xMax));
    FuKoordSetzen(ps.Frame, doc.surface);
}

/// Labels where they can be told apart, under names that tell the draws apart; the panel follows.
void PlaceLabels(DiagramDocument& doc) {
    NameDraws(doc);
    PlaceCurveLabels(doc.surface, doc.LabelMoved);
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        if (doc.CurveSlotFree[static_cast<std::size_t>(slot)])
            continue;
        doc.txtLabel(slot).text = GetLabel(doc.surface, slot).text;
        doc.txtLegendCurves(slot).text = GetSeriesLabel(doc.surface, kLines, slot);
        Slider& shift = doc.scrShiftLab(slot);
        shift.minimum = 1;
        shift.maximum = std::max(1, GetPointCount(doc.surface, kLines, slot));
        shift.value = GetLabel(doc.surface, slot).point;
    }
}

/// Shows what a calculation tells beside its points: label, result line, k, data points of a line.
void TakeCalculation(Workspace& ps, DiagramDocument& doc, const CurveCalculation& made) {
    doc.DrawError = made.failed;
    doc.DrawNote = made.note;
    doc.RegressLeftOut = made.leftOut;
    if (made.label)
        SetCurveLabel(doc, doc.CurveSlot, *made.label);
    doc.ResultOf = doc.CurveSlot;
    doc.StatusBar2.text = made.result;
    doc.StatusBar2.toolTip = made.leftOut == 0
                                 ? ""
                                 : std::to_string(made.leftOut) +
                                       (made.leftOut == 1 ? " row was" : " rows were") +
                                       " left out: their logarithm or quotient does not exist";
    if (made.k)
        ps.k[1] = *made.k;
    if (!made.line)
        return;
    doc.RegressA = made.a;
    doc.RegressB = made.b;
    doc.RegressR2 = made.r2;
    mnuAddPunkte_Click(ps, doc);
}

/// Fetches the next curve into the buffer and moves it to where the diagram shows it.
void FetchCurve(Workspace& ps, DiagramDocument& doc, bool& outside, bool& firstInTube) {
    if (HasOwnBuffer(ps.DiagramKind)) {
        outside = outside && !SeenInFrame(ps.Frame, ps.CurveBuf);
    } else {
        const CurveCalculation made =
            CalcCurve(ps, ps.DiagramKind, doc.CurveSlot, doc.CurveSteps, ps.CurveBuf);
        outside = outside && made.outside;
        TakeCalculation(ps, doc, made);
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
    const PlotBatch batch(doc.surface);
    const std::string& text = GetLabel(doc.surface, slot).text;
    SetSeriesLabel(doc.surface, kLines, slot, text);
    doc.txtLegendCurves(slot).text = text;
    FuKurveZeichnen(ps, doc, slot, ps.CurveBuf);
    if (GetLabel(doc.surface, slot).visible)
        doc.mnuDelLabels.enabled = true;
    SelectSeries(doc, kLines, slot);
}

/// "curve 1 - c(A)"
void OfferToDelete(MenuEntry& entry, bool there, std::string text, const std::string& name) {
    if (name.find_first_not_of(' ') != std::string::npos)
        text += " - " + Trim(name);
    entry.text = std::move(text);
    entry.visible = there;
}

enum class DrawEnd { Done, NoSlot, Failed };

DrawEnd DrawPending(Workspace& ps, DiagramDocument& doc, bool& outside) {
    bool firstInTube = true;
    const int curves = ps.CurvesToDraw;
    DrawEnd end = DrawEnd::Done;
    CurveDraw draw{.inputs = InputsOf(ps), .curves = {}};
    int placed = 0;
    while (ps.CurvesToDraw > 0 && end == DrawEnd::Done) {
        if (!FuKurvePlatz(ps, doc)) {
            end = DrawEnd::NoSlot;
            break;
        }
        FetchCurve(ps, doc, outside, firstInTube);
        if (doc.DrawError || BufferCount(ps.CurveBuf) == 0) {
            // The count is given back, the slot stays taken; the curve before is left alone.
            --ps.CurveCount;
            --doc.CurveSlot;
        } else {
            StyleCurve(ps, doc, doc.CurveSlot, placed++, curves);
            PlaceCurve(ps, doc);
            const std::string& name = GetLabel(doc.surface, doc.CurveSlot).text;
            const bool course = IsModelKind(ps.DiagramKind) && ps.FitMode < kFirstTemperatureMode;
            draw.curves.push_back({doc.CurveSlot, course ? name : "", name});
        }
        if (doc.DrawError)
            end = DrawEnd::Failed;
    }
    if (placed > 0) {
        NoteDraw(doc, std::move(draw));
        PlaceLabels(doc);
    }
    return end;
}

void EmptySlot(DiagramDocument& doc, int slot, SeriesDisplay mode) {
    FreeCurveSlot(doc, slot, mode);
    doc.txtLabel(slot).text = GetLabel(doc.surface, slot).text;
    doc.txtLegendCurves(slot).text.clear();
    ShowPage(doc.tabKurven, slot - 1, false);
    doc.mnuSubDelKurv(slot).enabled = false;
}

/// The front page of the panel is one of a curve that is there.
void TurnToCurve(DiagramDocument& doc) {
    const auto& pages = doc.tabKurven.pages;
    const auto front = static_cast<std::size_t>(std::max(0, doc.tabKurven.selected));
    if (front < pages.size() && pages[front].visible)
        return;
    auto next = std::find_if(pages.begin() + static_cast<std::ptrdiff_t>(front), pages.end(),
                             [](const TabPage& page) { return page.visible; });
    if (next == pages.end())
        next = std::ranges::find_if(pages, [](const TabPage& page) { return page.visible; });
    if (next != pages.end())
        doc.tabKurven.selected = static_cast<int>(next - pages.begin());
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
    if (ps.CurveCount == 0)
        FreeAllSlots(doc);
    const int slot = TakeCurveSlot(ps, doc);
    if (slot == 0) {
        ShowMessage(JoinLines({"Maximum  24 curves possible", "Delete existing curves"}), "WARNING",
                    Icon::Warning);
        return false;
    }
    doc.mnuDelKurv.enabled = doc.mnuSubDelKurv(0).enabled = true;
    doc.mnuDelTotal.enabled = true;
    doc.mnuSubDelKurv(slot).enabled = true;
    OfferCurvePage(doc, slot);
    return true;
}

void FuKurveZeichnen(Workspace&, DiagramDocument& doc, int slot, const PointBuffer& curve) {
    WriteCurve(doc.surface, slot, curve);
    doc.chkEinzelLabelSichtbar(slot).checked = true;
}

void cmdManuKurve_Click(Workspace& ps, DiagramDocument& doc) {
    if (!FuKurvePlatz(ps, doc))
        return;
    const int slot = doc.CurveSlot;
    const PlotBatch batch(doc.surface);
    StyleCurve(ps, doc, slot, 0, 1);
    FuKurveZeichnen(ps, doc, slot, ps.ManualBuf);
    ++doc.DrawNumber;
    PlaceLabels(doc);
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
    TurnToCurve(doc);
    if (slot == 0 || slot == doc.ResultOf)
        ClearResult(doc);
    if (ps.CurveCount > 0)
        return;
    doc.DrawNumber = 0;
    doc.fraKurven.visible = false;
    doc.mnuDelKurv.enabled = doc.mnuDelLabels.enabled = false;
}

void mnuSubDelKurv_Click(Workspace& ps, DiagramDocument& doc, int slot) {
    FuKurveLoeschen(ps, doc, slot);
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
    for (int slot = 1; slot <= kCurveSlots; ++slot)
        OfferToDelete(doc.mnuSubDelKurv(slot), !doc.CurveSlotFree[static_cast<std::size_t>(slot)],
                      "curve " + std::to_string(slot), GetSeriesLabel(doc.surface, kLines, slot));
    for (int set = 1; set <= kPointSets; ++set)
        OfferToDelete(doc.mnuSubDelPoints(set), HasPoints(doc.surface, set),
                      "point set " + std::to_string(set),
                      GetSeriesLabel(doc.surface, kPoints, set));
    doc.mnuSubDelKurv(0).visible = doc.mnuSubDelPoints(0).visible = true;
    doc.mnuDelMarkLabels.enabled = std::ranges::any_of(
        doc.surface.labels, [](const PlotLabel& label) { return label.visible; });
}

void FuPunktLoeschen(Workspace& ps, DiagramDocument& doc, int series, int point) {
    const std::string place = "point x =" + PlainText(GetX(doc.surface, kLines, series, point)) +
                              ",  y =" + PlainText(GetY(doc.surface, kLines, series, point));
    const std::string text =
        JoinLines({"(Note: Right-click on a curve", "opens the curve-design window)", "", place,
                   " Really delete?", "", ""});
    if (Ask(text, "Delete a curve point", Icon::Question, Buttons::YesNo, Answer::No) !=
        Answer::Yes)
        return;
    const PointBuffer rest = WithoutPoint(GetSeries(doc.surface, kLines, series), point);
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

void cmdFarbVorwahl_Click(Workspace& ps, DiagramDocument& doc) {
    const auto colour = host().chooseColour(ps.PresetColor);
    if (!colour)
        return;
    ps.PresetColor = *colour;
    doc.cmdFarbVorwahl.backColour = *colour;
}

} // namespace zorvant
