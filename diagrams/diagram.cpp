#include "diagrams/diagram.h"

#include "engine/reaction_catalogue.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr int kPointSymbolSize = 8; // pixels
/// Seen on white, on the grey of its colour scheme and on black.
constexpr Colour kGridGrey = 0xA0A0A0;
constexpr const char* kFontFamily = "ARIAL";

/// Points, on usual and on narrow screens.
struct FontSize {
    double usual, small;
    double Of(bool onSmallScreen) const { return onSmallScreen ? small : usual; }
};
constexpr FontSize kAxisFont{11, 10};
constexpr FontSize kCurveLabelFont{10, 9};
constexpr FontSize kMarkLabelFont{11, 9};
constexpr double kLegendFont = 8;

constexpr int kCurveLabelOffset = 10; // pixels from the point
constexpr int kMarkLabelOffset = 3;

/// Models whose second species has a half-life, in diagrams of their courses and of their rates.
constexpr int kHalfLifeBModels[] = {4, 7, 9, 10, 12, 13, 17, 19};
constexpr int kHalfLifeBRates[] = {4, 7, 9, 10, 12, 13, 17, 18, 19};

} // namespace

void EmptyDiagram(ProjectState& ps, Diagram& diagram) {
    PlotSurface& surface = diagram.surface;
    static_cast<PlotContents&>(surface) = PlotContents();
    surface.rubber = {};
    surface.cursor.reset();
    SetSeriesCount(surface, kLines, kLineSeries);
    SetSeriesCount(surface, kPoints, kPointSets);
    SetSeriesDisplay(surface, kLines, kFrameSeries, SeriesDisplay::Hidden);
    ps.CurveCount = 0;
    diagram.selected = {};
    diagram.CurveSlot = 0;
    diagram.CurveSteps = kCurveSteps;
    diagram.ManualSet = kManualSet;
    diagram.CurveSlotFree.fill(true);
    diagram.DrawNumber = 0;
    diagram.draws.clear();
    diagram.LabelMoved.fill(false);
    diagram.RegressLeftOut = 0;
    diagram.DrawNote.clear();
    diagram.DrawError = false;
}

void StyleSeries(PlotSurface& surface, Colour colour) {
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        SetLineStyle(surface, kLines, slot, {LinePattern::Solid, 1, colour});
        SetSymbol(surface, kLines, slot, {SymbolShape::Hidden, 1, colour});
    }
    for (int set = 1; set <= kPointSets; ++set) {
        SetLineStyle(surface, kPoints, set, {LinePattern::None, 1, colour});
        SetSymbol(surface, kPoints, set,
                  {static_cast<SymbolShape>(set - 1), kPointSymbolSize, colour});
    }
}

void WriteFrameTexts(const DiaKoord& frame, Diagram& diagram, bool small) {
    PlotSurface& surface = diagram.surface;
    const FontChoice font{.family = kFontFamily, .size = kAxisFont.Of(small)};
    TextBlock block;
    block.font = font;
    SetFooter(surface, block);
    block.text = frame.Header;
    SetHeader(surface, block);
    SetAxisTitle(surface, AxisId::X, frame.xTitle, TextRotation::Horizontal);
    SetAxisTitle(surface, AxisId::Y, frame.yTitle, TextRotation::Vertical);
    for (const AxisId axis : {AxisId::X, AxisId::Y, AxisId::Y2})
        SetAxisFont(surface, axis, font, font);
    PlotLegend legend;
    legend.font = {.family = kFontFamily, .size = kLegendFont};
    SetLegend(surface, legend);
    diagram.LegendBackColor = legend.colours.back;
}

void ResetLabels(PlotSurface& surface, bool small) {
    PlotLabel curveLabel;
    curveLabel.offset = kCurveLabelOffset;
    curveLabel.font = {.family = kFontFamily, .size = kCurveLabelFont.Of(small)};
    PlotLabel markLabel = curveLabel;
    markLabel.offset = kMarkLabelOffset;
    markLabel.font = {
        .family = kFontFamily, .size = kMarkLabelFont.Of(small), .bold = true, .italic = true};
    markLabel.colours.fore = kRed;

    const PlotBatch batch(surface);
    surface.labels.clear();
    for (int number = 1; number <= kPlotLabels; ++number) {
        AddLabel(surface, number >= kHalfLifeASeries ? markLabel : curveLabel);
        if (number > kCurveSlots)
            continue;
        SetLabelText(surface, number, std::to_string(number));
        AttachLabelToPoint(surface, number, kLines, number, 1);
    }
}

void SetUpAxes(Diagram& diagram) {
    PlotSurface& surface = diagram.surface;
    diagram.GridMode = 3;
    diagram.GridPattern = LinePattern::Dotted;
    for (const AxisId axis : {AxisId::X, AxisId::Y}) {
        SetAxisVisible(surface, axis, true);
        SetGrid(surface, axis, diagram.GridPattern, kGridGrey);
        SetAxisOrigin(surface, axis, Placement::Min);
        SetAxisAnnotation(surface, axis, Placement::Min, TextRotation::Horizontal);
    }
    SetAxisVisible(surface, AxisId::Y2, false);
    SetPlotAreaFrame(surface, true, 1);
}

void FitContents(PlotContents& contents) {
    contents.series[kLines].resize(kLineSeries + 1);
    contents.series[kPoints].resize(kPointSets + 1);
    contents.labels.resize(kPlotLabels + 1);
    contents.series[kLines][kFrameSeries] = {};
    contents.series[kLines][kFrameSeries].display = SeriesDisplay::Hidden;
    for (PlotLabel& label : contents.labels) {
        const auto count = contents.series.at(static_cast<std::size_t>(label.group)).size();
        if (static_cast<std::size_t>(label.series) >= count)
            label.attachment = Attachment::None;
    }
}

namespace {

void TakeLookOfAxis(PlotAxis& axis, const PlotAxis& pattern) {
    axis.titleRotation = pattern.titleRotation;
    axis.font = pattern.font;
    axis.titleFont = pattern.titleFont;
    axis.colour = pattern.colour;
    axis.lineWidth = pattern.lineWidth;
    axis.annotation = pattern.annotation;
    axis.annotationRotation = pattern.annotationRotation;
    axis.origin = pattern.origin;
    axis.gridPattern = pattern.gridPattern;
    axis.gridColour = pattern.gridColour;
}

void TakeLookOfText(TextBlock& block, const TextBlock& pattern) {
    std::string text = std::move(block.text);
    block = pattern;
    block.text = std::move(text);
}

void TakeLookOfLabel(PlotLabel& label, const PlotLabel& pattern) {
    label.offset = pattern.offset;
    label.font = pattern.font;
    label.colours = pattern.colours;
    label.border = pattern.border;
}

} // namespace

void TakeLook(PlotSurface& surface, const PlotContents& pattern) {
    for (std::size_t axis = 0; axis < surface.axes.size(); ++axis)
        TakeLookOfAxis(surface.axes[axis], pattern.axes[axis]);
    for (const int group : {kLines, kPoints}) {
        auto& series = surface.series[static_cast<std::size_t>(group)];
        const auto& look = pattern.series[static_cast<std::size_t>(group)];
        for (std::size_t i = 0; i < std::min(series.size(), look.size()); ++i) {
            series[i].line = look[i].line;
            series[i].symbol = look[i].symbol;
        }
    }
    for (std::size_t i = 0; i < std::min(surface.labels.size(), pattern.labels.size()); ++i)
        TakeLookOfLabel(surface.labels[i], pattern.labels[i]);
    TakeLookOfText(surface.header, pattern.header);
    TakeLookOfText(surface.footer, pattern.footer);
    surface.legend = pattern.legend;
    surface.chart = pattern.chart;
    surface.chartBorder = pattern.chartBorder;
    surface.chartArea = pattern.chartArea;
    surface.chartAreaBox = pattern.chartAreaBox;
    surface.plotArea = pattern.plotArea;
    surface.plotAreaFrame = pattern.plotAreaFrame;
    surface.plotAreaFrameWidth = pattern.plotAreaFrameWidth;
    surface.margins = pattern.margins;
    MarkChanged(surface);
}

bool OffersHalfLifeA(const ProjectState& ps, int kind) {
    const bool lines = kind >= kKindMixedSecondOrder && kind <= kKindFirstOrder;
    return !ps.IsCSTR && !ps.IsCascade && (lines || IsModelKind(kind));
}

bool OffersHalfLifeB(const ProjectState& ps, int kind) {
    if (ps.IsCSTR || ps.IsCascade)
        return false;
    if (kind > kRateKinds)
        return std::ranges::find(kHalfLifeBRates, kind - kRateKinds) != std::end(kHalfLifeBRates);
    return kind == kKindMixedSecondOrder ||
           std::ranges::find(kHalfLifeBModels, kind) != std::end(kHalfLifeBModels);
}

bool ShowsPointsOnly(int kind) {
    return kind == kKindPoints || kind == kKindKOfT || kind == kKindFitPoints ||
           kind == kKindMichaelisMenten;
}

bool IsResidenceKind(int kind) {
    return kind >= kKindResidenceFirst && kind <= kKindResidenceLast;
}

} // namespace zorvant
