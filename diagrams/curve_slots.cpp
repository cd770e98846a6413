#include "diagrams/curve_slots.h"

#include "diagrams/curve_points.h"
#include "diagrams/curve_styles.h"
#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr int kCurveLabelOffset = 10; // pixels from the point
/// Single points smaller than this can't be hit with the pointer, pixels.
constexpr int kSmallestDot = 4;
constexpr int kSolid = 1; // in kCurveStyles

/// A curve that is gone has no part in its draw any more.
void ForgetCurve(Diagram& diagram, int slot) {
    for (CurveDraw& draw : diagram.draws)
        std::erase_if(draw.curves,
                      [slot](const CurveDraw::Curve& curve) { return curve.slot == slot; });
    std::erase_if(diagram.draws, [](const CurveDraw& draw) { return draw.curves.empty(); });
    diagram.LabelMoved[static_cast<std::size_t>(slot)] = false;
}

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
    ForgetCurve(diagram, slot);
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

void WriteCurve(PlotSurface& surface, int slot, const PointBuffer& curve) {
    CurvePoints points = PointsOf(curve);
    const PlotBatch batch(surface);
    SetSeriesDisplay(surface, kLines, slot, SeriesDisplay::Shown);
    SetPoints(surface, kLines, slot, std::move(points.x), std::move(points.y));
    SetLabelVisible(surface, slot, true);
}

void StyleCurve(const ProjectState& ps, Diagram& diagram, int slot, int place, int curves) {
    const LineStyle line = DefaultLine(place, diagram.DrawNumber, curves, ps.PresetColor);
    const PlotBatch batch(diagram.surface);
    SetLineStyle(diagram.surface, kLines, slot, line);
    SetSymbol(diagram.surface, kLines, slot, {SymbolShape::Hidden, 1, line.colour});
}

void NoteDraw(Diagram& diagram, CurveDraw draw) {
    ++diagram.DrawNumber;
    std::erase_if(draw.curves, [](const CurveDraw::Curve& curve) { return curve.name.empty(); });
    if (!draw.curves.empty())
        diagram.draws.push_back(std::move(draw));
}

void NameDraws(Diagram& diagram) {
    const std::vector<std::string> changes = WhatChanged(diagram.draws);
    const PlotBatch batch(diagram.surface);
    for (std::size_t i = 0; i < diagram.draws.size(); ++i)
        for (CurveDraw::Curve& curve : diagram.draws[i].curves) {
            const std::string text =
                changes[i].empty() ? curve.name : Trim(curve.name) + changes[i];
            if (GetLabel(diagram.surface, curve.slot).text == curve.text)
                SetLabelText(diagram.surface, curve.slot, text);
            if (GetSeriesLabel(diagram.surface, kLines, curve.slot) == curve.text)
                SetSeriesLabel(diagram.surface, kLines, curve.slot, text);
            curve.text = text;
        }
}

void MoveCurveLabel(Diagram& diagram, int slot, int point) {
    const PlotBatch batch(diagram.surface);
    AttachLabelToPoint(diagram.surface, slot, kLines, slot, point);
    SetLabelOffset(diagram.surface, slot, kCurveLabelOffset);
    SetLabelAnchor(diagram.surface, slot, LabelAnchor::NorthEast);
    diagram.LabelMoved[static_cast<std::size_t>(slot)] = true;
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
