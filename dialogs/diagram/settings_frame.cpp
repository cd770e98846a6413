// The pages "Colours" and "Frame" of the settings panel.
#include "dialogs/diagram/settings_panel.h"

#include "diagrams/colour_schemes.h"
#include "diagrams/plot_places.h"
#include "platform/host.h"

#include <algorithm>
#include <array>

namespace zorvant {
namespace {

constexpr Colour kGrey = 0xD2D2D2;

/// By index of optFrameType.
constexpr std::array<BorderType, 4> kBorders{BorderType::None, BorderType::ThreeD,
                                             BorderType::Plain, BorderType::Etched};

int BorderIndex(BorderType type) {
    const auto found = std::ranges::find(kBorders, type);
    return found == kBorders.end() ? 0 : static_cast<int>(found - kBorders.begin());
}

struct MarginSlider {
    Slider DesignControls::*slider;
    Margin Margins::*margin;
};
constexpr std::array<MarginSlider, 4> kMarginSliders{{{&DesignControls::scrHL, &Margins::left},
                                                      {&DesignControls::scrHR, &Margins::right},
                                                      {&DesignControls::scrHO, &Margins::top},
                                                      {&DesignControls::scrHU, &Margins::bottom}}};

/// A background chosen by the user, with a foreground that can be read upon it.
std::optional<Colours> AskForGround(const Colours& present) {
    const auto colour = host().chooseColour(present.back);
    if (!colour)
        return std::nullopt;
    return Colours{.back = *colour, .fore = ReadableOn(*colour)};
}

void ApplyScheme(DiagramDocument& doc, Colour back, Colour fore) {
    ApplyColourScheme(doc.surface, back, fore);
    doc.LegendBackColor = back;
    ShowDesign(doc);
}

} // namespace

void ShowColourSettings(DiagramDocument& doc) {
    DesignControls& design = doc.design;
    design.cmdRandCol_out.backColour = doc.surface.chart.back;
    design.cmdRandCol_in.backColour = doc.surface.chartArea.back;
    design.cmdColor_in.backColour = doc.surface.plotArea.back;
}

void cmdFullBlack_Click(DiagramDocument& doc) {
    ApplyScheme(doc, kBlack, kWhite);
}

void cmdFullWhite_Click(DiagramDocument& doc) {
    ApplyScheme(doc, kWhite, kBlack);
}

void cmdRandColGrau_Click(DiagramDocument& doc) {
    ApplyScheme(doc, kGrey, kBlack);
}

void cmdRandCol_out_Click(DiagramDocument& doc) {
    if (const auto ground = AskForGround(doc.surface.chart))
        SetWholeGround(doc.surface, *ground);
    ShowColourSettings(doc);
}

void cmdRandCol_in_Click(DiagramDocument& doc) {
    if (const auto ground = AskForGround(doc.surface.chartArea))
        SetGroundOfAxes(doc.surface, *ground);
    ShowColourSettings(doc);
}

void cmdColor_in_Click(DiagramDocument& doc) {
    if (const auto ground = AskForGround(doc.surface.plotArea))
        SetPlotAreaColours(doc.surface, *ground);
    ShowColourSettings(doc);
}

// --- frame, border, margins, chart area

void ShowFrameSettings(DiagramDocument& doc) {
    DesignControls& design = doc.design;
    const PlotSurface& surface = doc.surface;
    const Border& border = surface.chartBorder;
    design.chkDiaFrame.checked = surface.plotAreaFrame;
    design.optFrameType.selected = BorderIndex(border.type);
    design.UpDownRBreite.value = border.width;
    design.labRBreite.text = std::to_string(border.width);
    design.UpDownRBreite.enabled = design.labRBreite.enabled = border.type != BorderType::None;

    const bool automatic = AllAutomatic(surface.margins);
    design.chkAutoRand.checked = automatic;
    design.frRandBreite.enabled = !automatic;
    const Margins margins = PresentMargins(surface);
    for (const MarginSlider& row : kMarginSliders) {
        Slider& slider = design.*row.slider;
        slider.enabled = !automatic;
        slider.value = std::clamp((margins.*row.margin).width, 0, kWidestMargin);
    }

    const ChartAreaBox box = PresentChartArea(surface);
    design.chkAutoChartArea.checked = surface.chartAreaBox.automatic;
    design.scrHLChartArea.value = Thousandths(box.left);
    design.scrHChartArea.value = Thousandths(box.left + box.width);
    design.scrVOChartArea.value = Thousandths(box.top);
    design.scrVChartArea.value = Thousandths(box.top + box.height);
}

void chkDiaFrame_Click(DiagramDocument& doc) {
    SetPlotAreaFrame(doc.surface, doc.design.chkDiaFrame.checked, doc.surface.plotAreaFrameWidth);
}

void optFrameType_Click(DiagramDocument& doc, int index) {
    Border border = doc.surface.chartBorder;
    border.type = kBorders.at(static_cast<std::size_t>(index));
    SetChartBorder(doc.surface, border);
    ShowFrameSettings(doc);
}

void UpDownRBreite_Change(DiagramDocument& doc) {
    Border border = doc.surface.chartBorder;
    border.width = doc.design.UpDownRBreite.value;
    doc.design.labRBreite.text = std::to_string(border.width);
    SetChartBorder(doc.surface, border);
}

void chkAutoRand_Click(DiagramDocument& doc) {
    Margins margins = PresentMargins(doc.surface);
    for (const MarginSlider& row : kMarginSliders)
        (margins.*row.margin).automatic = doc.design.chkAutoRand.checked;
    SetPlotAreaMargins(doc.surface, margins);
    ShowFrameSettings(doc);
}

void MarginSlider_Change(DiagramDocument& doc) {
    Margins margins = doc.surface.margins;
    for (const MarginSlider& row : kMarginSliders)
        margins.*row.margin = {.width = (doc.design.*row.slider).value, .automatic = false};
    SetPlotAreaMargins(doc.surface, margins);
}

void chkAutoChartArea_Click(DiagramDocument& doc) {
    ChartAreaBox box = PresentChartArea(doc.surface);
    box.automatic = doc.design.chkAutoChartArea.checked;
    SetChartAreaBox(doc.surface, box);
    ShowFrameSettings(doc);
}

void ChartAreaSlider_Change(DiagramDocument& doc, Edge edge) {
    const Slider DesignControls::*const kSliders[] = {
        &DesignControls::scrHLChartArea, &DesignControls::scrHChartArea,
        &DesignControls::scrVOChartArea, &DesignControls::scrVChartArea};
    const Slider& slider = doc.design.*kSliders[static_cast<std::size_t>(edge)];
    MoveChartEdge(doc.surface, edge, slider.value / kPlaceSteps);
    doc.design.chkAutoChartArea.checked = false;
}

} // namespace zorvant
