#include "dialogs/diagram/diagram_points.h"

#include "diagrams/curve_styles.h"
#include "diagrams/point_sets.h"
#include "dialogs/common/names.h"
#include "engine/reaction_catalogue.h"
#include "platform/host.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

void RemovePointSet(DiagramDocument& doc, int set) {
    // The field keeps its text, so that points loaded again have their legend.
    EmptyPointSet(doc.surface, set);
    ShowPage(doc.tabPunkte, set - 1, false);
}

} // namespace

void LoadPointSets(Workspace& ps, DiagramDocument& doc, bool& anyInside) {
    const PlotBatch batch(doc.surface);
    doc.mnuDelPoints.enabled = doc.mnuDelTotal.enabled = true;
    FuPunkteLaden(ps, doc.surface, anyInside);
    for (int set = 1; set <= kPointSets; ++set) {
        const bool shown = HasPoints(doc.surface, set);
        ShowPage(doc.tabPunkte, set - 1, shown);
        doc.mnuSubDelPoints(set).enabled = shown;
        if (!shown)
            continue;
        SetSeriesLabel(doc.surface, kPoints, set, doc.txtLegendPoints(set).text);
        const Colour colour = PointColour(ps, ps.DiagramKind, set);
        SetSymbolColour(doc.surface, kPoints, set, colour);
        doc.cmdPunktFarbe(set).backColour = colour;
    }
}

void mnuAddPunkte_Click(Workspace& ps, DiagramDocument& doc) {
    doc.mnuDelPoints.enabled = doc.mnuDelTotal.enabled = true;
    if (!ps.DiagramOfTk && !IsEnzymeModel(ps.ModelId) && !HasPointsForDiagram(ps)) {
        ShowMessage(
            JoinLines({"For this diagram no c-t points are loaded.",
                       "Load concentration data from file or use the Data Editor for manual "
                       "input."}),
            "Execution not possible", Icon::Critical);
        return;
    }
    bool anyInside = false;
    LoadPointSets(ps, doc, anyInside);
    if (!anyInside)
        WarnPointsOutside("Enlarge the range of coordinates.");
}

void WarnPointsOutside(const std::string& advice) {
    ShowMessage(
        JoinLines(
            {"all experimental points are outside the coordinate range of the diagram", advice}),
        "WARNING", Icon::Warning);
}

void cmdManuPoints_Click(Workspace& ps, DiagramDocument& doc) {
    const int set = doc.ManualSet;
    if (HasPoints(doc.surface, set) &&
        Ask("Overwright the loaded data set?", "WARNING", Icon::Warning, Buttons::YesNo,
            Answer::No) != Answer::Yes) {
        // The editor that the points come from must not cover the diagram.
        if (Form* editor = FindForm(ps.desktop, name::kXYEditor))
            HideForm(*editor);
        return;
    }
    WriteManualSet(doc.surface, set, ps.ManualBuf, ps.PresetColor);
    doc.mnuDelTotal.enabled = doc.mnuDelPoints.enabled = doc.mnuSubDelPoints(set).enabled = true;
    ShowPage(doc.tabPunkte, set - 1, true);
    doc.tabPunkte.selected = set - 1;
    doc.txtLegendPoints(set).text = kManualName;
    doc.cmdPunktFarbe(set).backColour = ps.PresetColor;
}

void mnuSubDelPoints_Click(DiagramDocument& doc, int set) {
    doc.fraKurven.visible = doc.fraTabs.visible = doc.fraPunkte.visible = false;
    const PlotBatch batch(doc.surface);
    if (set > 0) {
        RemovePointSet(doc, set);
        doc.mnuSubDelPoints(set).enabled = false;
        return;
    }
    for (int i = 1; i <= kPointSets; ++i)
        RemovePointSet(doc, i);
}

void cmdDelPoints_Click(DiagramDocument& doc, int set) {
    mnuSubDelPoints_Click(doc, set);
}

} // namespace zorvant
