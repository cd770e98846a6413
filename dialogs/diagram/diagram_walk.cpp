#include "dialogs/diagram/diagram_walk.h"

#include "dialogs/diagram/curve_panel.h"
#include "dialogs/diagram/diagram_curves.h"
#include "dialogs/diagram/diagram_mouse.h"
#include "dialogs/diagram/point_panel.h"

namespace zorvant {
namespace {

void ShowPanelPage(DiagramDocument& doc, int group, int series) {
    TabPanel& panel = group == kLines ? doc.tabKurven : doc.tabPunkte;
    if (panel.pages.at(static_cast<std::size_t>(series - 1)).visible)
        panel.selected = series - 1;
}

void OpenDesign(Workspace& ps, DiagramDocument& doc, int group, int series) {
    if (group == kLines)
        mnuKurvenDesign_Click(ps, doc);
    else
        mnuPunktDesign_Click(ps, doc);
    ShowPanelPage(doc, group, series);
}

/// Deletes the marked point of a curve when the user agrees.
/// Returned: the point that is marked then, at the same place or nearest to it
std::optional<SeriesPoint> DeletePoint(Workspace& ps, DiagramDocument& doc) {
    const std::optional<SeriesPoint> at = ShownCursor(doc.surface);
    if (!at || at->group != kLines)
        return std::nullopt;
    FuPunktLoeschen(ps, doc, at->series, at->point);
    const int left = NearestNumber(doc.surface, kLines, at->series, at->point);
    if (left == 0) {
        SetCursor(doc.surface, std::nullopt);
        return std::nullopt;
    }
    return SeriesPoint{kLines, at->series, left};
}

} // namespace

void SelectSeries(DiagramDocument& doc, int group, int series, int point) {
    doc.selected = {group, series, point};
}

bool KeyOnChart(Workspace& ps, DiagramDocument& doc, ChartKey key) {
    const std::optional<SeriesPoint> present = Walkable(doc.surface, doc.selected);
    if (!present)
        return false;
    if (key == ChartKey::Design) {
        OpenDesign(ps, doc, present->group, present->series);
        return true;
    }
    const std::optional<SeriesPoint> next =
        key == ChartKey::Delete ? DeletePoint(ps, doc) : StepOnChart(doc.surface, *present, key);
    if (!next)
        return false;
    doc.selected = *next;
    SetCursor(doc.surface, doc.selected);
    ReadOutPoint(doc, doc.selected);
    ShowPanelPage(doc, doc.selected.group, doc.selected.series);
    return true;
}

std::string SpokenReadout(const DiagramDocument& doc) {
    const auto [group, series, point] = doc.selected;
    if (series < 1 || !doc.lblMausPos.visible)
        return {};
    std::string name = GetSeriesLabel(doc.surface, group, series);
    name.erase(name.find_last_not_of(' ') + 1);
    std::string spoken = group == kLines ? "curve " : "point set ";
    spoken += std::to_string(series);
    if (!name.empty())
        spoken += ", " + name;
    return spoken + ":" + doc.lblMausPos.text;
}

} // namespace zorvant
