#include "dialogs/diagram/settings_panel.h"

#include "dialogs/diagram/axis_settings.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/diagram_curves.h"
#include "dialogs/diagram/diagram_legend.h"
#include "dialogs/diagram/diagram_points.h"
#include "dialogs/diagram/diagram_texts.h"
#include "platform/host.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zorvant {
namespace {

constexpr Colour kGrey = 0xD2D2D2;
constexpr double kLightGround = 0.4; // relative luminance
/// Sliders of places on the picture count in thousandths of its width and height.
constexpr double kPlaceSteps = 1000;
constexpr int kPlaceStep = 10;
constexpr int kWidestMargin = 400; // pixels
constexpr int kWidestBorder = 20;

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
constexpr std::array<MarginSlider, 4> kMargins{{{&DesignControls::scrHL, &Margins::left},
                                                {&DesignControls::scrHR, &Margins::right},
                                                {&DesignControls::scrHO, &Margins::top},
                                                {&DesignControls::scrHU, &Margins::bottom}}};

int Thousandths(double share) {
    return static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * kPlaceSteps));
}

double Share(double pixels, double of) {
    return of > 0 ? pixels / of : 0;
}

// --- where things stand now

/// The chart area as it is, also while it is automatic.
ChartAreaBox PresentChartArea(const PlotSurface& surface) {
    ChartAreaBox box = surface.chartAreaBox;
    const PixelRect &area = surface.layout.chartArea, &picture = surface.layout.picture;
    if (box.automatic && area.width > 0 && picture.width > 0)
        box = {.left = Share(area.left, picture.width),
               .top = Share(area.top, picture.height),
               .width = Share(area.width, picture.width),
               .height = Share(area.height, picture.height),
               .automatic = true};
    return box;
}

Location PresentLegendPlace(const PlotSurface& surface) {
    Location place = surface.legend.location;
    const PixelRect &legend = surface.layout.legend, &picture = surface.layout.picture;
    if (place.automatic && picture.width > 0)
        place = {.x = Share(legend.left, picture.width),
                 .y = Share(legend.top, picture.height),
                 .automatic = true};
    return place;
}

Margins PresentMargins(const PlotSurface& surface) {
    Margins present = surface.margins;
    for (const MarginSlider& row : kMargins)
        if ((present.*row.margin).automatic)
            (present.*row.margin).width = (surface.layout.margins.*row.margin).width;
    return present;
}

bool AllAutomatic(const Margins& margins) {
    return std::ranges::all_of(
        kMargins, [&](const MarginSlider& row) { return (margins.*row.margin).automatic; });
}

// --- colours

void PaintHeaderAndFooter(PlotSurface& surface, const Colours& colours, bool onlyIfOn,
                          Colour ground) {
    TextBlock header = surface.header, footer = surface.footer;
    for (TextBlock* block : {&header, &footer})
        if (!onlyIfOn || block->colours.back == ground) {
            block->colours.back = colours.back;
            block->colours.fore = colours.fore;
        }
    SetHeader(surface, header);
    SetFooter(surface, footer);
}

void ColourAxes(PlotSurface& surface, Colour colour) {
    for (const AxisId axis : {AxisId::X, AxisId::Y, AxisId::Y2})
        SetAxisColour(surface, axis, colour);
}

void ShowColours(DiagramDocument& doc) {
    DesignControls& design = doc.design;
    design.cmdRandCol_out.backColour = doc.surface.chart.back;
    design.cmdRandCol_in.backColour = doc.surface.chartArea.back;
    design.cmdColor_in.backColour = doc.surface.plotArea.back;
}

void ApplyScheme(DiagramDocument& doc, Colour back, Colour fore) {
    const PlotBatch batch(doc.surface);
    const Colours colours{.back = back, .fore = fore};
    SetChartColours(doc.surface, colours);
    SetChartAreaColours(doc.surface, colours);
    SetPlotAreaColours(doc.surface, colours);
    PaintHeaderAndFooter(doc.surface, colours, false, back);
    ColourAxes(doc.surface, fore);
    ShowColours(doc);
}

/// A background chosen by the user, with a foreground that can be read upon it.
std::optional<Colours> AskForGround(const Colours& present) {
    const auto colour = host().chooseColour(present.back);
    if (!colour)
        return std::nullopt;
    return Colours{.back = *colour, .fore = ReadableOn(*colour)};
}

// --- frame and margins

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
    for (const MarginSlider& row : kMargins) {
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

// --- legend

/// Changes the legend in place.
template <class Change> void ChangeLegend(DiagramDocument& doc, const Change& change) {
    PlotLegend legend = doc.surface.legend;
    change(legend);
    SetLegend(doc.surface, legend);
}

void ShowLegendSettings(DiagramDocument& doc) {
    DesignControls& design = doc.design;
    const PlotLegend& legend = doc.surface.legend;
    ShowLegend(doc, legend.visible);
    design.optLegOrient.selected = legend.orientation == Orientation::Vertical ? 1 : 0;
    design.chkLegFrame.checked = legend.border.type != BorderType::None;
    design.chkLegTransparent.checked = legend.colours.transparent;
    design.cmdLegBColor.backColour = legend.colours.back;
    design.cmdLegFColor.backColour = legend.colours.fore;
    doc.LegendBackColor = legend.colours.back;
    const Location place = PresentLegendPlace(doc.surface);
    design.chkAutoLegend.checked = place.automatic;
    design.scrLegH.value = Thousandths(place.x);
    design.scrlegV.value = Thousandths(place.y);
}

void MoveLegend(DiagramDocument& doc, double Location::*side, const Slider& slider) {
    Location place = PresentLegendPlace(doc.surface);
    place.*side = slider.value / kPlaceSteps;
    place.automatic = doc.design.chkAutoLegend.checked = false;
    ChangeLegend(doc, [&](PlotLegend& legend) { legend.location = place; });
}

// --- labels

template <class Change> void ForAllCurveLabels(DiagramDocument& doc, const Change& change) {
    const PlotBatch batch(doc.surface);
    for (int slot = 1; slot <= kCurveSlots; ++slot)
        change(slot);
}

void ShowLabelSettings(DiagramDocument& doc) {
    const PlotLabel& first = GetLabel(doc.surface, 1);
    doc.design.cmdLabelFColor.backColour = first.colours.fore;
    doc.design.cmdLabelBColor.backColour = first.colours.back;
    doc.design.chkLabelFrame.checked = first.border.type != BorderType::None;
    bool anyVisible = false;
    for (int slot = 1; slot <= kCurveSlots; ++slot)
        anyVisible = anyVisible || GetLabel(doc.surface, slot).visible;
    doc.chkLabelNotVisible.checked = !anyVisible;
}

void ColourLabels(DiagramDocument& doc, Button& swatch, Colour Colours::*part) {
    const auto colour = host().chooseColour(GetLabel(doc.surface, 1).colours.*part);
    if (!colour)
        return;
    swatch.backColour = *colour;
    ForAllCurveLabels(doc, [&](int slot) {
        Colours colours = GetLabel(doc.surface, slot).colours;
        colours.*part = *colour;
        SetLabelColours(doc.surface, slot, colours);
    });
}

} // namespace

DesignControls::DesignControls(Form& owner)
    : form(owner), tabSettings(owner, "tabSettings",
                               {"&Coordinates", "G&rid", "&Origin", "Lege&nd", "&Labels",
                                "Colo&urs", "&Frame"}) {
    for (TextField* shown : {&txtXOrigin, &txtYOrigin}) {
        shown->locked = true;
        shown->backColour = kPaleYellow;
    }
    for (Slider* place :
         {&scrLegH, &scrlegV, &scrHLChartArea, &scrHChartArea, &scrVOChartArea, &scrVChartArea}) {
        place->maximum = static_cast<int>(kPlaceSteps);
        place->step = kPlaceStep;
    }
    for (const MarginSlider& row : kMargins)
        (this->*row.slider).maximum = kWidestMargin;
    UpDownRBreite.minimum = 1;
    UpDownRBreite.maximum = kWidestBorder;
    UpDownRBreite.value = 1;
    optStandardOrigin.selected = optXOrigin.selected = optYOrigin.selected = 0;
    optXZiffern.selected = optYZiffern.selected = opt2Gitter.selected = 0;
    optFrameType.selected = 0;
    opt1Gitter.selected = 3;
    optLegOrient.selected = 1;
    cmdZoom.toolTip = "Draw a rectangle around what you want to see larger (Ctrl++)";
    cmdZoomReset.toolTip = "Back to the coordinates given last (Ctrl+0)";
    cmdRandCol_out.toolTip = "Background of the whole chart";
    cmdRandCol_in.toolTip = "Background behind the axes with their numbers and titles";
    cmdColor_in.toolTip = "Background between the axes";
    chkAutoLegend.toolTip = "Beside the axes when vertical, below them when horizontal";
    chkAutoChartArea.toolTip = "All the room that header and additional text leave";
}

void WireDesign(Workspace& ps, DiagramDocument& doc) {
    DesignControls& design = doc.design;
    const auto on = [&doc](auto& control, void (*handler)(DiagramDocument&)) {
        control.onClick = [&doc, handler] { handler(doc); };
    };
    const auto chosen = [&doc](OptionGroup& group, void (*handler)(DiagramDocument&, int)) {
        group.onClick = [&doc, handler](int index) { handler(doc, index); };
    };
    const auto moved = [&doc](auto& control, void (*handler)(DiagramDocument&)) {
        control.onChange = [&doc, handler] { handler(doc); };
    };
    on(design.cmdZoom, cmdZoom_Click);
    design.cmdZoomReset.onClick = [&ps, &doc] { cmdZoomReset_Click(ps, doc); };
    chosen(design.opt1Gitter, opt1Gitter_Click);
    chosen(design.opt2Gitter, opt2Gitter_Click);
    on(design.cmdGitterFarbe, cmdGitterFarbe_Click);
    chosen(design.optStandardOrigin, optStandardOrigin_Click);
    chosen(design.optXOrigin, optXOrigin_Click);
    chosen(design.optYOrigin, optYOrigin_Click);
    chosen(design.optXZiffern, optXZiffern_Click);
    chosen(design.optYZiffern, optYZiffern_Click);

    chosen(design.optLegOrient, optLegOrient_Click);
    on(design.chkAutoLegend, chkAutoLegend_Click);
    moved(design.scrLegH, scrLegH_Change);
    moved(design.scrlegV, scrlegV_Change);
    on(design.chkLegFrame, chkLegFrame_Click);
    on(design.chkLegTransparent, chkLegTransparent_Click);
    on(design.cmdLegFont, cmdLegFont_Click);
    on(design.cmdLegBColor, cmdLegBColor_Click);
    on(design.cmdLegFColor, cmdLegFColor_Click);

    on(design.cmdFontLabel, cmdFontLabel_Click);
    on(design.cmdLabelFColor, cmdLabelFColor_Click);
    on(design.cmdLabelBColor, cmdLabelBColor_Click);
    on(design.chkLabelFrame, chkLabelFrame_Click);

    on(design.cmdFullBlack, cmdFullBlack_Click);
    on(design.cmdFullWhite, cmdFullWhite_Click);
    on(design.cmdRandColGrau, cmdRandColGrau_Click);
    on(design.cmdRandCol_out, cmdRandCol_out_Click);
    on(design.cmdRandCol_in, cmdRandCol_in_Click);
    on(design.cmdColor_in, cmdColor_in_Click);

    on(design.chkDiaFrame, chkDiaFrame_Click);
    chosen(design.optFrameType, optFrameType_Click);
    moved(design.UpDownRBreite, UpDownRBreite_Change);
    on(design.chkAutoRand, chkAutoRand_Click);
    for (const MarginSlider& row : kMargins)
        moved(design.*row.slider, MarginSlider_Change);
    on(design.chkAutoChartArea, chkAutoChartArea_Click);
    for (const auto& [slider, edge] : {std::pair(&design.scrHLChartArea, Edge::Left),
                                       {&design.scrHChartArea, Edge::Right},
                                       {&design.scrVOChartArea, Edge::Top},
                                       {&design.scrVChartArea, Edge::Bottom}})
        slider->onChange = [&doc, edge = edge] { ChartAreaSlider_Change(doc, edge); };
}

void ShowDesign(DiagramDocument& doc) {
    ShowAxisSettings(doc);
    ShowLegendSettings(doc);
    ShowLabelSettings(doc);
    ShowColours(doc);
    ShowFrameSettings(doc);
    ShowCurveDesign(doc);
    ShowPointDesign(doc);
    ShowText(doc);
}

// --- colour schemes

Colour ReadableOn(Colour ground) {
    const auto part = [ground](int shift) { return ((ground >> shift) & 0xFFU) / 255.0; };
    const double luminance = 0.2126 * part(16) + 0.7152 * part(8) + 0.0722 * part(0);
    return luminance > kLightGround ? kBlack : kWhite;
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
    const Colour before = doc.surface.chart.back;
    const auto ground = AskForGround(doc.surface.chart);
    if (!ground)
        return;
    const PlotBatch batch(doc.surface);
    SetChartColours(doc.surface, *ground);
    PaintHeaderAndFooter(doc.surface, *ground, true, before);
    ShowColours(doc);
}

void cmdRandCol_in_Click(DiagramDocument& doc) {
    const auto ground = AskForGround(doc.surface.chartArea);
    if (!ground)
        return;
    const PlotBatch batch(doc.surface);
    SetChartAreaColours(doc.surface, *ground);
    ColourAxes(doc.surface, ground->fore);
    ShowColours(doc);
}

void cmdColor_in_Click(DiagramDocument& doc) {
    const auto ground = AskForGround(doc.surface.plotArea);
    if (!ground)
        return;
    SetPlotAreaColours(doc.surface, *ground);
    ShowColours(doc);
}

// --- frame, border, margins, chart area

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
    for (const MarginSlider& row : kMargins)
        (margins.*row.margin).automatic = doc.design.chkAutoRand.checked;
    SetPlotAreaMargins(doc.surface, margins);
    ShowFrameSettings(doc);
}

void MarginSlider_Change(DiagramDocument& doc) {
    Margins margins = doc.surface.margins;
    for (const MarginSlider& row : kMargins)
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
    ChartAreaBox box = PresentChartArea(doc.surface);
    const double right = box.left + box.width, bottom = box.top + box.height;
    const auto at = [](const Slider& slider) { return slider.value / kPlaceSteps; };
    switch (edge) {
    case Edge::Left:
        box.left =
            std::clamp(at(doc.design.scrHLChartArea), 0.0, std::max(0.0, right - kLeastChartArea));
        box.width = right - box.left;
        break;
    case Edge::Right:
        box.width = std::max(kLeastChartArea, at(doc.design.scrHChartArea) - box.left);
        break;
    case Edge::Top:
        box.top =
            std::clamp(at(doc.design.scrVOChartArea), 0.0, std::max(0.0, bottom - kLeastChartArea));
        box.height = bottom - box.top;
        break;
    case Edge::Bottom:
        box.height = std::max(kLeastChartArea, at(doc.design.scrVChartArea) - box.top);
        break;
    }
    box.automatic = doc.design.chkAutoChartArea.checked = false;
    SetChartAreaBox(doc.surface, box);
}

// --- legend

void optLegOrient_Click(DiagramDocument& doc, int index) {
    ChangeLegend(doc, [&](PlotLegend& legend) {
        legend.orientation = index == 0 ? Orientation::Horizontal : Orientation::Vertical;
    });
    ShowLegendSettings(doc);
}

void chkAutoLegend_Click(DiagramDocument& doc) {
    Location place = PresentLegendPlace(doc.surface);
    place.automatic = doc.design.chkAutoLegend.checked;
    ChangeLegend(doc, [&](PlotLegend& legend) { legend.location = place; });
    ShowLegendSettings(doc);
}

void scrLegH_Change(DiagramDocument& doc) {
    MoveLegend(doc, &Location::x, doc.design.scrLegH);
}

void scrlegV_Change(DiagramDocument& doc) {
    MoveLegend(doc, &Location::y, doc.design.scrlegV);
}

void chkLegFrame_Click(DiagramDocument& doc) {
    ChangeLegend(doc, [&](PlotLegend& legend) {
        legend.border.type = doc.design.chkLegFrame.checked ? BorderType::Plain : BorderType::None;
    });
}

void chkLegTransparent_Click(DiagramDocument& doc) {
    ChangeLegend(doc, [&](PlotLegend& legend) {
        legend.colours.transparent = doc.design.chkLegTransparent.checked;
    });
}

void cmdLegFont_Click(DiagramDocument& doc) {
    if (const auto font = host().chooseFont(doc.surface.legend.font))
        ChangeLegend(doc, [&](PlotLegend& legend) { legend.font = *font; });
}

void cmdLegBColor_Click(DiagramDocument& doc) {
    const auto colour = host().chooseColour(doc.surface.legend.colours.back);
    if (!colour)
        return;
    doc.LegendBackColor = doc.design.cmdLegBColor.backColour = *colour;
    ChangeLegend(doc, [&](PlotLegend& legend) { legend.colours.back = *colour; });
}

void cmdLegFColor_Click(DiagramDocument& doc) {
    const auto colour = host().chooseColour(doc.surface.legend.colours.fore);
    if (!colour)
        return;
    doc.design.cmdLegFColor.backColour = *colour;
    ChangeLegend(doc, [&](PlotLegend& legend) { legend.colours.fore = *colour; });
}

// --- labels

void cmdFontLabel_Click(DiagramDocument& doc) {
    const auto font = host().chooseFont(GetLabel(doc.surface, 1).font);
    if (font)
        ForAllCurveLabels(doc, [&](int slot) { SetLabelFont(doc.surface, slot, *font); });
}

void cmdLabelFColor_Click(DiagramDocument& doc) {
    ColourLabels(doc, doc.design.cmdLabelFColor, &Colours::fore);
}

void cmdLabelBColor_Click(DiagramDocument& doc) {
    ColourLabels(doc, doc.design.cmdLabelBColor, &Colours::back);
}

void chkLabelFrame_Click(DiagramDocument& doc) {
    const Border border{.type = doc.design.chkLabelFrame.checked ? BorderType::Plain
                                                                 : BorderType::None};
    ForAllCurveLabels(doc, [&](int slot) { SetLabelBorder(doc.surface, slot, border); });
}

} // namespace zorvant
