#include "dialogs/diagram/point_panel.h"

#include "diagrams/point_sets.h"
#include "dialogs/diagram/curve_panel.h"
#include "dialogs/diagram/diagram_legend.h"
#include "dialogs/diagram/diagram_points.h"
#include "dialogs/diagram/diagram_walk.h"
#include "platform/host.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr int kLargestSymbol = 40; // pixels

void SetUpPointPage(DiagramDocument& doc, int set) {
    doc.cmbPunktStil(set).items = {"Dot",           "Circle",          "Cross", "Square",
                                   "Star",          "Triangle",        "Box",   "Diamond",
                                   "Vertical line", "Horizontal line", "hidden"};
    doc.txtLegendPoints(set).toolTip = kLegendHint;
    doc.UpDown1_PointSize(set).minimum = 1;
    doc.UpDown1_PointSize(set).maximum = kLargestSymbol;
    doc.chkLegend2(set).text = "Legend";
    doc.cmdPunktFarbe(set).text = "Colour ...";
    doc.cmdDelPoints(set).text = "Delete these points";
}

void WirePointPage(DiagramDocument& doc, int set) {
    doc.cmbPunktStil(set).onClick = [&doc, set] { cmbPunktStil_Click(doc, set); };
    doc.UpDown1_PointSize(set).onChange = [&doc, set] { UpDown1_PointSize_Change(doc, set); };
    doc.cmdPunktFarbe(set).onClick = [&doc, set] { cmdPunktFarbe_Click(doc, set); };
    doc.txtLegendPoints(set).onChange = [&doc, set] { txtLegendPoints_Change(doc, set); };
    doc.cmdDelPoints(set).onClick = [&doc, set] { cmdDelPoints_Click(doc, set); };
    doc.chkLegend2(set).onClick = [&doc, set] { ShowLegend(doc, doc.chkLegend2(set).checked); };
}

} // namespace

void WirePointPanel(DiagramDocument& doc) {
    for (int set = 1; set <= kPointSets; ++set) {
        SetUpPointPage(doc, set);
        WirePointPage(doc, set);
    }
    for (int set = 0; set <= kPointSets; ++set) {
        MenuEntry& entry = doc.mnuSubDelPoints(set);
        entry.text = set == 0 ? "all" : "point set " + std::to_string(set);
        entry.visible = set == 0;
        entry.onClick = [&doc, set] { mnuSubDelPoints_Click(doc, set); };
    }
    doc.tabPunkte.onClick = [&doc](int page) { SelectSeries(doc, kPoints, page + 1); };
}

void ShowPointDesign(DiagramDocument& doc) {
    for (int set = 1; set <= kPointSets; ++set) {
        const bool shown = HasPoints(doc.surface, set);
        const SymbolStyle& symbol = GetSymbol(doc.surface, kPoints, set);
        doc.cmdPunktFarbe(set).backColour = shown ? symbol.colour : doc.ps.PresetColor;
        doc.cmbPunktStil(set).index = static_cast<int>(symbol.shape);
        doc.UpDown1_PointSize(set).value = symbol.size;
        doc.Label56(set).text = std::to_string(symbol.size);
        if (!shown)
            continue;
        doc.txtLegendPoints(set).text = GetSeriesLabel(doc.surface, kPoints, set);
        TabPage& page = doc.tabPunkte.pages[static_cast<std::size_t>(set - 1)];
        if (page.text.empty())
            page.text = set == kManualSet ? kManualName : "set " + std::to_string(set);
    }
}

void mnuPunktDesign_Click(Workspace&, DiagramDocument& doc) {
    FuPanelsZu(doc);
    ShowPointDesign(doc);
    int front = -1;
    for (int set = 1; set <= kPointSets; ++set) {
        const bool shown = HasPoints(doc.surface, set);
        ShowPage(doc.tabPunkte, set - 1, shown);
        if (shown && (front < 0 || doc.tabPunkte.selected == set - 1))
            front = set - 1;
    }
    if (front >= 0)
        doc.tabPunkte.selected = front;
    doc.fraPunkte.visible = true;
    doc.setFocus = &doc.tabPunkte;
}

void cmbPunktStil_Click(DiagramDocument& doc, int set) {
    SymbolStyle symbol = GetSymbol(doc.surface, kPoints, set);
    symbol.shape = static_cast<SymbolShape>(
        std::clamp(doc.cmbPunktStil(set).index, 0, static_cast<int>(SymbolShape::Hidden)));
    SetSymbol(doc.surface, kPoints, set, symbol);
}

void UpDown1_PointSize_Change(DiagramDocument& doc, int set) {
    SymbolStyle symbol = GetSymbol(doc.surface, kPoints, set);
    symbol.size = doc.UpDown1_PointSize(set).value;
    doc.Label56(set).text = std::to_string(symbol.size);
    SetSymbol(doc.surface, kPoints, set, symbol);
}

void cmdPunktFarbe_Click(DiagramDocument& doc, int set) {
    const auto colour = host().chooseColour(GetSymbol(doc.surface, kPoints, set).colour);
    if (!colour)
        return;
    doc.cmdPunktFarbe(set).backColour = *colour;
    SetSymbolColour(doc.surface, kPoints, set, *colour);
}

} // namespace zorvant
