#include "diagrams/curve_slots.h"

#include "diagrams/curve_points.h"
#include "engine/arithmetic.h"
#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

/// Where the label of the first curve stands on it, and how far the next ones are moved back.
constexpr double kFirstLabelPlace = 1.2;
constexpr double kLabelShift = 0.18;
constexpr int kCurveLabelOffset = 10; // pixels from the point
/// Single points smaller than this can't be hit with the pointer, pixels.
constexpr int kSmallestDot = 4;
constexpr int kSolid = 1; // in kCurveStyles

} // namespace

int StyleIndex(LinePattern pattern) {
    for (std::size_t i = 0; i < kCurveStyles.size(); ++i)
        if (kCurveStyles[i].pattern == pattern)
            return static_cast<int>(i);
    return kSolid;
}

void ApplyCurveStyle(PlotSurface& surface, int slot, int index) {
    const int last = static_cast<int>(kCurveStyles.size()) - 1;
    const CurveStyle& style = kCurveStyles[static_cast<std::size_t>(std::clamp(index, 0, last))];
    const PlotBatch batch(surface);
    LineStyle line = GetLineStyle(surface, kLines, slot);
    line.pattern = style.pattern;
    SetLineStyle(surface, kLines, slot, line);
    SymbolStyle symbol = GetSymbol(surface, kLines, slot);
    symbol.shape = style.symbol;
    symbol.size = std::max(symbol.size, kSmallestDot);
    symbol.colour = line.colour;
    SetSymbol(surface, kLines, slot, symbol);
}

void ColourCurve(PlotSurface& surface, int slot, Colour colour) {
    const PlotBatch batch(surface);
    SetLineColour(surface, kLines, slot, colour);
    SetSymbolColour(surface, kLines, slot, colour);
}

int TakeCurveSlot(ProjectState& ps, Diagram& diagram) {
    auto& slotFree = diagram.CurveSlotFree;
    const auto found = std::find(slotFree.begin() + 1, slotFree.end(), true);
    if (ps.CurveCount >= kCurveSlots || found == slotFree.end())
        return 0;
    ++ps.CurveCount;
    *found = false;
    diagram.CurveSlot = static_cast<int>(found - slotFree.begin());
    return diagram.CurveSlot;
}

void FreeCurveSlot(Diagram& diagram, int slot, SeriesDisplay mode) {
    const PlotBatch batch(diagram.surface);
    SetPointCount(diagram.surface, kLines, slot, 0);
    SetSeriesDisplay(diagram.surface, kLines, slot, mode);
    SetLabelText(diagram.surface, slot, std::to_string(slot));
    SetSeriesLabel(diagram.surface, kLines, slot, "");
    diagram.CurveSlotFree[static_cast<std::size_t>(slot)] = true;
}

void CountCurves(ProjectState& ps, Diagram& diagram) {
    ps.CurveCount = 0;
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        const bool taken = GetPointCount(diagram.surface, kLines, slot) > 0;
        ps.CurveCount += taken ? 1 : 0;
        diagram.CurveSlotFree[static_cast<std::size_t>(slot)] = !taken;
        diagram.CurveSlot = taken ? slot : diagram.CurveSlot;
    }
}

void WriteCurve(PlotSurface& surface, int slot, const PointBuffer& curve, Colour colour) {
    CurvePoints points = PointsOf(curve);
    const PlotBatch batch(surface);
    SetLineColour(surface, kLines, slot, colour);
    SetSeriesDisplay(surface, kLines, slot, SeriesDisplay::Shown);
    SetPoints(surface, kLines, slot, std::move(points.x), std::move(points.y));
    SetLabelVisible(surface, slot, true);
}

int LabelPoint(const DiaKoord& frame, const PointBuffer& curve, int slot) {
    int last = BufferCount(curve);
    while (last > 0 && !(curve[static_cast<std::size_t>(last)].x < frame.xMax))
        --last;
    return static_cast<int>(RoundHalfEven(last / kFirstLabelPlace - kLabelShift * last * slot));
}

void MoveCurveLabel(PlotSurface& surface, int slot, int point) {
    const PlotBatch batch(surface);
    AttachLabelToPoint(surface, slot, kLines, slot, point);
    SetLabelOffset(surface, slot, kCurveLabelOffset);
    SetLabelAnchor(surface, slot, LabelAnchor::NorthEast);
}

void ShowCurveLabels(PlotSurface& surface, bool on) {
    const PlotBatch batch(surface);
    for (int slot = 1; slot <= kCurveSlots; ++slot)
        SetLabelVisible(surface, slot, on);
}

bool AnyCurveLabel(const PlotSurface& surface) {
    for (int slot = 1; slot <= kCurveSlots; ++slot)
        if (GetLabel(surface, slot).visible)
            return true;
    return false;
}

} // namespace zorvant
