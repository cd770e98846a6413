#include "dialogs/diagram/dispatcher.h"

#include "diagrams/point_sets.h"
#include "diagrams/ranges.h"
#include "dialogs/diagram/diagram_legend.h"
#include "dialogs/diagram/diagram_undo.h"
#include "engine/modes.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <exception>

namespace zorvant {
namespace {

/// A page of the point panel under a caption, its legend text beside it.
void NamePointSet(DiagramDocument& doc, int set, const std::string& caption,
                  const std::string& legend) {
    ShowPage(doc.tabPunkte, set - 1, true);
    doc.tabPunkte.pages[static_cast<std::size_t>(set - 1)].text = caption;
    SetText(doc.txtLegendPoints(set), legend);
    // Points that stood before under the same field text get it too.
    txtLegendPoints_Change(doc, set);
}

void HidePointSet(DiagramDocument& doc, int set, bool dropCaption) {
    ShowPage(doc.tabPunkte, set - 1, false);
    if (dropCaption)
        doc.tabPunkte.pages[static_cast<std::size_t>(set - 1)].text.clear();
}

void NameSingleSpecies(Workspace& ps, DiagramDocument& doc) {
    constexpr const char* kLetters[] = {"A", "B", "C", "P", "Q"};
    for (int set = 1; set <= kSpecies; ++set)
        HidePointSet(doc, set, true);
    ShowLegend(doc, false);
    const int set = std::clamp(ps.SingleSpecies, 1, kSpecies);
    NamePointSet(doc, set, PointSetName(ps, set), std::string("c(") + kLetters[set - 1] + ")");
    doc.tabPunkte.selected = set - 1;
}

void NameSpeciesSets(Workspace& ps, DiagramDocument& doc) {
    const bool function = IsFunctionOfC(ps) && ps.ColumnHasData[1];
    for (int set = 1; set <= kSpecies; ++set) {
        if (!OffersPointSet(ps, doc.surface, set)) {
            HidePointSet(doc, set, function);
            continue;
        }
        const std::string name = function ? "Fu(c)" : PointSetName(ps, set);
        NamePointSet(doc, set, name, name);
        ShowLegend(doc, ps.PointLegend && !function);
    }
}

void NamePointSets(Workspace& ps, DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    if (ps.DiagramKind == kKindSingleSpecies) {
        NameSingleSpecies(ps, doc);
        return;
    }
    NameSpeciesSets(ps, doc);
    if (!OffersPointSet(ps, doc.surface, kPairSet)) {
        HidePointSet(doc, kPairSet, true);
        return;
    }
    const std::string name = ps.DiagramOfTk ? "k-T" : "r-c(S)";
    ShowLegend(doc, false);
    NamePointSet(doc, kPairSet, name, name);
}

} // namespace

void GrafZentrale(Workspace& ps, DiagramDocument& doc) {
    try {
        const int kind = ps.DiagramKind;
        FuKoordLesen(ps, kind, ps.Memory, ps.Frame);
        ps.CurvesToDraw = 1;
        DescribeDiagram(ps, kind, doc.GrafText, ps.CurvesToDraw);
        const DiagramKindRow* row = FindDiagramKind(kind);
        ps.PointLegend = row != nullptr && row->pointLegend;
        ps.Frame.SideWindow = row != nullptr && row->sideWindow;
        ps.Frame.Header = doc.GrafText.header;
        ps.Frame.xTitle = doc.GrafText.xTitle;
        ps.Frame.yTitle = doc.GrafText.yTitle;
        const PlotBatch batch(doc.surface);
        const bool anew = !doc.loaded;
        ShowForm(ps.desktop, doc);
        NamePointSets(ps, doc);
        if (anew)
            BeginSteps(doc);
    } catch (const std::exception& error) {
        ShowMessage(JoinLines({"error occured:" + std::string(error.what()), "",
                               "If this happens with the first diagram, the plotting component "
                               "(QCustomPlot) is probably not installed correctly."}),
                    "message from Sub GrafZentrale", Icon::Critical);
    }
}

} // namespace zorvant
