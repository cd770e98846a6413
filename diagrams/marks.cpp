#include "diagrams/marks.h"

#include "platform/number_text.h"
#include "reactors/half_life.h"

#include <algorithm>
#include <span>

namespace zorvant {
namespace {

/// Above any frame; the frame cuts the line off.
constexpr double kHalfLifeTop = 10000, kResidenceTop = 1000;
constexpr const char* kResidenceText = "          act. mean residence time";

struct HalfLifeMark {
    int series;
    const char* name;
    const char* notReached;
    std::span<const int> integrated; ///< models whose half-life the course has found
    float ProjectState::*ofCourse;
    float (*ofFormula)(const ProjectState&, double A0, double B0, double P0, double k1, double k2);
};
constexpr int kIntegratedA[] = {7, 9, 10, 13, 14, 15, 18, 20};
constexpr int kIntegratedB[] = {7, 9, 10, 13, 18};
constexpr HalfLifeMark kMarkA{kHalfLifeASeries,
                              "tau(A)",
                              "half-life tau(A) cannot be reached under these conditions ",
                              kIntegratedA,
                              &ProjectState::tHalfA,
                              FuHalbwertszeitA};
constexpr HalfLifeMark kMarkB{kHalfLifeBSeries,
                              "tau(B)",
                              "half-life tau(B) cannot be reached under this conditions ",
                              kIntegratedB,
                              &ProjectState::tHalfB,
                              FuHalbwertszeitB};

/// TU; as HalfLife::value.
float FindHalfLife(const ProjectState& ps, const HalfLifeMark& mark) {
    const bool simulated = ps.DiagramKind > 0;
    const bool integrated = std::ranges::find(mark.integrated, ps.ModelId) != mark.integrated.end();
    if (simulated && integrated && !ps.IsCSTR)
        return ps.*mark.ofCourse;
    const auto start = [&](std::size_t slot) {
        return simulated ? ps.c0[slot] : static_cast<double>(ps.c0Data[slot]);
    };
    return mark.ofFormula(ps, start(1), start(2), start(4), ps.k[1], ps.k[2]);
}

void LayMark(PlotSurface& surface, int series, double x, double top, Colour colour) {
    SetPoints(surface, kLines, series, {x, x}, {0, top});
    SetLineStyle(surface, kLines, series, {LinePattern::Dashed, 1, colour});
    SetSeriesDisplay(surface, kLines, series, SeriesDisplay::Shown);
}

} // namespace

std::optional<MarkNote> MarkHalfLife(const ProjectState& ps, PlotSurface& surface, int series) {
    const HalfLifeMark& mark = series == kHalfLifeASeries ? kMarkA : kMarkB;
    const float tau = FindHalfLife(ps, mark);
    if (tau < 0)
        return std::nullopt;
    if (tau == 0)
        return MarkNote{.text = ps.NumericModel
                                    ? "value of half-life is not inside the diagram range "
                                      "or cannot be reached under these conditions"
                                    : mark.notReached,
                        .toolTip = ""};
    const auto time = static_cast<double>(tau);
    const PlotBatch batch(surface);
    // The axis of a tube is its length: the half-life is reached where the flow has come by then.
    LayMark(surface, mark.series, ps.IsTubular ? time * ps.vRohr : time, kHalfLifeTop,
            ps.PresetColor);
    SetLabelVisible(surface, mark.series, false);
    return MarkNote{.text = std::string("Half-life ") + mark.name + " = " +
                            FormatNumber(time, "#######0.00") + " " + ps.TimeUnitText,
                    .toolTip =
                        std::string(mark.name) + " =" + GeneralText(time) + " " + ps.TimeUnitText};
}

void MarkResidenceTime(const ProjectState& ps, PlotSurface& surface) {
    const PlotBatch batch(surface);
    LayMark(surface, kResidenceSeries, ps.tVerweil, kResidenceTop, kBlack);
    SetLabelText(surface, kResidenceSeries, kResidenceText);
    Colours colours = GetLabel(surface, kResidenceSeries).colours;
    colours.fore = kBlack;
    SetLabelColours(surface, kResidenceSeries, colours);
    AttachLabelToCoord(surface, kResidenceSeries, ps.tVerweil, kResidenceTop);
    SetLabelAnchor(surface, kResidenceSeries, LabelAnchor::East);
    SetLabelVisible(surface, kResidenceSeries, true);
}

void RemoveMarks(PlotSurface& surface) {
    const PlotBatch batch(surface);
    HideMarkLabels(surface);
    for (int mark = kHalfLifeASeries; mark <= kResidenceSeries; ++mark)
        SetPointCount(surface, kLines, mark, 0);
}

bool AnyMarks(const PlotSurface& surface) {
    for (int mark = kHalfLifeASeries; mark <= kResidenceSeries; ++mark)
        if (GetPointCount(surface, kLines, mark) > 0)
            return true;
    return false;
}

void HideMarkLabels(PlotSurface& surface) {
    const PlotBatch batch(surface);
    for (int label = kCurveSlots + 1; label <= kPlotLabels; ++label)
        SetLabelVisible(surface, label, false);
}

} // namespace zorvant
