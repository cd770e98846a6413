// The pages "Legend" and "Labels" of the settings panel.
#include "dialogs/diagram/settings_panel.h"

#include "diagrams/curve_slots.h"
#include "diagrams/plot_extent.h"
#include "diagrams/plot_places.h"
#include "dialogs/diagram/diagram_legend.h"
#include "platform/host.h"

namespace zorvant {
namespace {

/// Changes the legend in place.
template <class Change> void ChangeLegend(DiagramDocument& doc, const Change& change) {
    PlotLegend legend = doc.surface.legend;
    change(legend);
    SetLegend(doc.surface, legend);
}

void MoveLegend(DiagramDocument& doc, double Location::*side, const Slider& slider) {
    Location place = PresentLegendPlace(doc.surface);
    place.*side = slider.value / kPlaceSteps;
    place.automatic = doc.design.chkAutoLegend.checked = false;
    ChangeLegend(doc, [&](PlotLegend& legend) { legend.location = place; });
}

template <class Change> void ForAllCurveLabels(DiagramDocument& doc, const Change& change) {
    const PlotBatch batch(doc.surface);
    for (int slot = 1; slot <= kCurveSlots; ++slot)
        change(slot);
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
    ShowLegendPlace(doc);
}

void ShowLegendPlace(DiagramDocument& doc) {
    const Location place = PresentLegendPlace(doc.surface);
    doc.design.chkAutoLegend.checked = place.automatic;
    doc.design.scrLegH.value = Thousandths(place.x);
    doc.design.scrlegV.value = Thousandths(place.y);
}

void cmdLegCorner_Click(DiagramDocument& doc) {
    const PixelRect& picture = doc.surface.layout.picture;
    ShowLegend(doc, true); // its size is known when it is laid out
    const PixelRect legend = doc.surface.layout.legend;
    if (!(picture.width > 0) || !(legend.width > 0))
        return;
    const DataPoint corner = FreeCorner(doc.surface, legend.width, legend.height);
    ChangeLegend(doc, [&](PlotLegend& of) {
        of.location = {corner.x / picture.width, corner.y / picture.height, false};
    });
    // Without the legend beside it the plot area is wider, and its corners lie elsewhere.
    const DataPoint again = FreeCorner(doc.surface, legend.width, legend.height);
    ChangeLegend(doc, [&](PlotLegend& of) {
        of.location = {again.x / picture.width, again.y / picture.height, false};
    });
    ShowLegendPlace(doc);
}

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

void ShowLabelSettings(DiagramDocument& doc) {
    const PlotLabel& first = GetLabel(doc.surface, 1);
    doc.design.cmdLabelFColor.backColour = first.colours.fore;
    doc.design.cmdLabelBColor.backColour = first.colours.back;
    doc.design.chkLabelFrame.checked = first.border.type != BorderType::None;
    doc.chkLabelNotVisible.checked = !AnyCurveLabel(doc.surface);
}

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
