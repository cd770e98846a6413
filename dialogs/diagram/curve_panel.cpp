#include "dialogs/diagram/curve_panel.h"

#include "diagrams/curve_slots.h"
#include "dialogs/diagram/diagram_curves.h"
#include "dialogs/diagram/diagram_legend.h"
#include "dialogs/diagram/diagram_walk.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr const char* kCurveCaption = "K. ";
constexpr int kWidestLine = 20; // pixels

void SetUpCurvePage(DiagramDocument& doc, int slot) {
    doc.cmbKStil(slot).items = {"only single points", "curve solid", "Curve dotted", "Curve dashed",
                                "Curve dash-dotted"};
    doc.cmbKStil(slot).index = 1;
    doc.txtLegendCurves(slot).toolTip = kLegendHint;
    doc.UpDown1_KBreite(slot).minimum = 1;
    doc.UpDown1_KBreite(slot).maximum = kWidestLine;
    doc.UpDown1_KBreite(slot).value = 1;
    doc.Label39(slot).text = "1";
    doc.chkEinzelLabelSichtbar(slot).text = "visible";
    doc.cmdKurvenFarbe(slot).text = "Colour ...";
    doc.chkLegend1(slot).text = "Legend";
    doc.scrShiftLab(slot).minimum = 1;
}

void WireCurvePage(DiagramDocument& doc, int slot) {
    doc.cmbKStil(slot).onClick = [&doc, slot] { cmbKStil_Click(doc, slot); };
    doc.UpDown1_KBreite(slot).onChange = [&doc, slot] { UpDown1_KBreite_Change(doc, slot); };
    doc.cmdKurvenFarbe(slot).onClick = [&doc, slot] { cmdKurvenFarbe_Click(doc, slot); };
    doc.txtLegendCurves(slot).onChange = [&doc, slot] { txtLegendCurves_Change(doc, slot); };
    doc.txtLabel(slot).onChange = [&doc, slot] { txtLabel_Change(doc, slot); };
    doc.chkEinzelLabelSichtbar(slot).onClick = [&doc, slot] {
        chkEinzelLabelSichtbar_Click(doc, slot);
    };
    doc.scrShiftLab(slot).onChange = [&doc, slot] { scrShiftLab_Change(doc, slot); };
    doc.chkLegend1(slot).onClick = [&doc, slot] { ShowLegend(doc, doc.chkLegend1(slot).checked); };
}

void WireCurveMenu(Workspace& ps, DiagramDocument& doc) {
    for (int slot = 0; slot <= kCurveSlots; ++slot) {
        MenuEntry& entry = doc.mnuSubDelKurv(slot);
        entry.text = slot == 0 ? "all" : "curve " + std::to_string(slot);
        entry.visible = slot == 0;
        entry.onClick = [&ps, &doc, slot] { mnuSubDelKurv_Click(ps, doc, slot); };
    }
}

void ShowCurvePage(DiagramDocument& doc, int slot) {
    const LineStyle& line = GetLineStyle(doc.surface, kLines, slot);
    OfferCurvePage(doc, slot);
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

} // namespace

void WireCurvePanel(Workspace& ps, DiagramDocument& doc) {
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        SetUpCurvePage(doc, slot);
        WireCurvePage(doc, slot);
    }
    WireCurveMenu(ps, doc);
    doc.tabKurven.onClick = [&doc](int page) { SelectSeries(doc, kLines, page + 1); };
    doc.cmdDelKurv.onClick = [&ps, &doc] { cmdDelKurv_Click(ps, doc); };
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

void OfferCurvePage(DiagramDocument& doc, int slot) {
    TabPage& page = doc.tabKurven.pages.at(static_cast<std::size_t>(slot - 1));
    page.text = kCurveCaption + std::to_string(slot);
    page.visible = true;
}

void ShowCurveDesign(DiagramDocument& doc) {
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        TabPage& page = doc.tabKurven.pages[static_cast<std::size_t>(slot - 1)];
        page.visible = !doc.CurveSlotFree[static_cast<std::size_t>(slot)];
        if (page.visible)
            ShowCurvePage(doc, slot);
        else
            doc.cmdKurvenFarbe(slot).backColour = doc.ps.PresetColor;
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
    ApplyCurveStyle(doc.surface, slot, doc.cmbKStil(slot).index);
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
    doc.cmdKurvenFarbe(slot).backColour = *colour;
    ColourCurve(doc.surface, slot, *colour);
}

} // namespace zorvant
