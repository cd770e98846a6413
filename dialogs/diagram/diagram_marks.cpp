#include "dialogs/diagram/diagram_marks.h"

#include "dialogs/diagram/diagram_legend.h"
#include "platform/number_text.h"
#include "reactors/half_life.h"

#include <algorithm>
#include <span>
#include <string>

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
    float Workspace::*ofCourse;
    float (*ofFormula)(const ProjectState&, double A0, double B0, double P0, double k1, double k2);
};
constexpr int kIntegratedA[] = {7, 9, 10, 13, 14, 15, 18, 20};
constexpr int kIntegratedB[] = {7, 9, 10, 13, 18};
constexpr HalfLifeMark kMarkA{kHalfLifeASeries,
                              "tau(A)",
                              "half-life tau(A) cannot be reached under these conditions ",
                              kIntegratedA,
                              &Workspace::tHalfA,
                              FuHalbwertszeitA};
constexpr HalfLifeMark kMarkB{kHalfLifeBSeries,
                              "tau(B)",
                              "half-life tau(B) cannot be reached under this conditions ",
                              kIntegratedB,
                              &Workspace::tHalfB,
                              FuHalbwertszeitB};

/// TU; as HalfLife::value.
float FindHalfLife(const Workspace& ps, const HalfLifeMark& mark) {
    const bool simulated = ps.DiagramKind > 0;
    const bool integrated = std::ranges::find(mark.integrated, ps.ModelId) != mark.integrated.end();
    if (simulated && integrated && !ps.IsCSTR)
        return ps.*mark.ofCourse;
    const auto start = [&](std::size_t slot) {
        return simulated ? ps.c0[slot] : static_cast<double>(ps.c0Data[slot]);
    };
    return mark.ofFormula(ps, start(1), start(2), start(4), ps.k[1], ps.k[2]);
}

void LayMark(DiagramDocument& doc, int series, double x, double top, Colour colour) {
    SetPoints(doc.surface, kLines, series, {x, x}, {0, top});
    SetLineStyle(doc.surface, kLines, series, {LinePattern::Dashed, 1, colour});
    SetSeriesDisplay(doc.surface, kLines, series, SeriesDisplay::Shown);
}

void MarkHalfLife(Workspace& ps, DiagramDocument& doc, const HalfLifeMark& mark) {
    doc.mnuDelTotal.enabled = doc.mnuDelHalbAB.enabled = true;
    const float tau = FindHalfLife(ps, mark);
    if (tau < 0)
        return;
    const auto time = static_cast<double>(tau);
    doc.StatusBar2.toolTip.clear();
    if (tau == 0) {
        doc.StatusBar2.text = ps.NumericModel
                                  ? "value of half-life is not inside the diagram range "
                                    "or cannot be reached under these conditions"
                                  : mark.notReached;
        return;
    }
    const PlotBatch batch(doc.surface);
    // The axis of a tube is its length: the half-life is reached where the flow has come by then.
    LayMark(doc, mark.series, ps.IsTubular ? time * ps.vRohr : time, kHalfLifeTop, ps.PresetColor);
    SetLabelVisible(doc.surface, mark.series, false);
    doc.StatusBar2.text = std::string("Half-life ") + mark.name + " = " +
                          FormatNumber(time, "#######0.00") + " " + ps.TimeUnitText;
    doc.StatusBar2.toolTip =
        std::string(mark.name) + " =" + GeneralText(time) + " " + ps.TimeUnitText;
}

} // namespace

void mnuHalbA_Click(Workspace& ps, DiagramDocument& doc) {
    MarkHalfLife(ps, doc, kMarkA);
}

void mnuHalbB_Click(Workspace& ps, DiagramDocument& doc) {
    MarkHalfLife(ps, doc, kMarkB);
}

void cmdMarkConti_Click(Workspace& ps, DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    LayMark(doc, kResidenceSeries, ps.tVerweil, kResidenceTop, kBlack);
    SetLabelText(doc.surface, kResidenceSeries, kResidenceText);
    Colours colours = GetLabel(doc.surface, kResidenceSeries).colours;
    colours.fore = kBlack;
    SetLabelColours(doc.surface, kResidenceSeries, colours);
    AttachLabelToCoord(doc.surface, kResidenceSeries, ps.tVerweil, kResidenceTop);
    SetLabelAnchor(doc.surface, kResidenceSeries, LabelAnchor::East);
    SetLabelVisible(doc.surface, kResidenceSeries, true);
    doc.mnuDelHalbAB.enabled = true;
}

void mnuDelHalbAB_Click(DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    for (int mark = kHalfLifeASeries; mark <= kResidenceSeries; ++mark) {
        SetLabelVisible(doc.surface, mark, false);
        SetPointCount(doc.surface, kLines, mark, 0);
    }
    doc.mnuDelHalbAB.enabled = false;
}

void mnuDelMarkLabels_Click(DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    mnuDelLabels_Click(doc);
    for (int label = kCurveSlots + 1; label <= kPlotLabels; ++label)
        SetLabelVisible(doc.surface, label, false);
}

} // namespace zorvant
