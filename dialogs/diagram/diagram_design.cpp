#include "dialogs/diagram/diagram_design.h"

#include "diagrams/curve_slots.h"
#include "diagrams/design_file.h"
#include "diagrams/marks.h"
#include "diagrams/point_sets.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/diagram_undo.h"
#include "dialogs/diagram/settings_panel.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr const char* kFilter = "Diagram file (*.oc2)";
constexpr const char* kPattern = "*.oc2";

std::optional<std::string> AskForDesign(Workspace& ps, bool save, const char* title) {
    const std::optional<FileChoice> choice = host().chooseFile({
        .save = save,
        .title = title,
        .directory = ps.GraphDir,
        .name = "",
        .extension = ".oc2",
        .filters = {{kFilter, kPattern}},
        .overwritePrompt = true,
    });
    if (!choice || choice->path.empty())
        return std::nullopt;
    ps.GraphDir = DirectoryOf(choice->path);
    if (ps.GraphDir.size() > 1)
        ps.GraphDir.pop_back();
    return choice->path;
}

void TakeCurves(Workspace& ps, DiagramDocument& doc) {
    CountCurves(ps, doc);
    doc.LabelMoved.fill(true); // as the design has them
    doc.draws.clear();
    doc.DrawNumber = ps.CurveCount;
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        doc.mnuSubDelKurv(slot).enabled = !doc.CurveSlotFree[static_cast<std::size_t>(slot)];
        doc.txtLegendCurves(slot).text = GetSeriesLabel(doc.surface, kLines, slot);
        doc.txtLabel(slot).text = GetLabel(doc.surface, slot).text;
    }
    doc.mnuDelKurv.enabled = doc.mnuSubDelKurv(0).enabled = ps.CurveCount > 0;
}

void TakePoints(DiagramDocument& doc) {
    bool any = false;
    for (int set = 1; set <= kPointSets; ++set) {
        const bool shown = HasPoints(doc.surface, set);
        ShowPage(doc.tabPunkte, set - 1, shown);
        doc.mnuSubDelPoints(set).enabled = shown;
        doc.txtLegendPoints(set).text = GetSeriesLabel(doc.surface, kPoints, set);
        if (shown)
            doc.tabPunkte.selected = set - 1;
        any = any || shown;
    }
    doc.mnuDelPoints.enabled = doc.mnuSubDelPoints(0).enabled = any;
}

void TakeMarksAndTexts(DiagramDocument& doc) {
    doc.mnuDelHalbAB.enabled = AnyMarks(doc.surface);
    doc.mnuDelLabels.enabled = AnyCurveLabel(doc.surface);
    doc.mnuAddLabels.enabled = true;
    doc.mnuAddText.enabled = doc.surface.footer.text.empty();
}

float ToLimit(double value) {
    return static_cast<float>(value); // the file has no limits beyond those of a Single
}

/// The frame of the axes. A spacing that the design sets by hand stays; the others are chosen anew.
void TakeAxes(Workspace& ps, DiagramDocument& doc) {
    const PlotAxis x = GetAxis(doc.surface, AxisId::X), y = GetAxis(doc.surface, AxisId::Y);
    ps.Frame.xMin = ToLimit(x.min);
    ps.Frame.xMax = ToLimit(x.max);
    ps.Frame.yMin = ToLimit(y.min);
    ps.Frame.yMax = ToLimit(y.max);
    SetPoints(doc.surface, kLines, kFrameSeries, {x.min, x.max}, {y.min, y.max});
    ShowFrame(ps.Frame, doc.coord);
    optScaling_Click(doc, 1);
    optScaling_Click(doc, 0);
    const auto byHand = [](const PlotAxis& axis) {
        return !(axis.grid.automatic && axis.tick.automatic && axis.number.automatic);
    };
    if (!byHand(x) && !byHand(y))
        return;
    for (const auto& [id, axis] : {std::pair(AxisId::X, &x), std::pair(AxisId::Y, &y)}) {
        SetGridSpacing(doc.surface, id, axis->grid.value, axis->grid.automatic);
        SetTickSpacing(doc.surface, id, axis->tick.value, axis->tick.automatic);
        SetNumberSpacing(doc.surface, id, axis->number.value, axis->number.automatic);
    }
}

} // namespace

void TakeContents(Workspace& ps, DiagramDocument& doc, PlotContents contents) {
    const PlotBatch batch(doc.surface);
    CancelRubberZoom(doc.surface);
    FitContents(contents);
    static_cast<PlotContents&>(doc.surface) = std::move(contents);
    MarkChanged(doc.surface);
    TakeCurves(ps, doc);
    TakePoints(doc);
    TakeMarksAndTexts(doc);
    TakeAxes(ps, doc);
    doc.selected = {};
    SetCursor(doc.surface, std::nullopt);
    ShowDesign(doc);
    doc.mnuDelTotal.enabled =
        doc.mnuDelKurv.enabled || doc.mnuDelPoints.enabled || doc.mnuDelHalbAB.enabled;
}

void TakeDesign(Workspace& ps, DiagramDocument& doc, PlotContents contents) {
    const PlotBatch batch(doc.surface);
    FuPanelsZu(doc);
    ClearResult(doc); // it spoke of what was shown before
    TakeContents(ps, doc, std::move(contents));
}

void mnuSaveOC2_Click(Workspace& ps, DiagramDocument& doc) {
    const auto path = AskForDesign(ps, true, "Save this diagram design");
    if (!path)
        return;
    try {
        WriteFileAtomically(*path, WriteDesign(doc.surface));
        NoteStep(doc);
        doc.designEdited = false;
    } catch (const FileError& error) {
        ShowMessage(error.what(), "ERROR", Icon::Critical);
    }
}

namespace {

/// The contents of a design file that the user chooses; nothing after a message.
std::optional<PlotContents> AskForContents(Workspace& ps, const char* title) {
    const auto path = AskForDesign(ps, false, title);
    if (!path)
        return std::nullopt;
    try {
        return ParseDesign(ReadFile(*path));
    } catch (const FileError& error) {
        ShowMessage(error.what(), "ERROR", Icon::Critical);
    } catch (const FormatError& error) {
        ShowMessage(JoinLines({FileName(*path), error.what(), "", "The diagram stays as it was."}),
                    "ERROR", Icon::Critical);
    }
    return std::nullopt;
}

} // namespace

void mnuLoadOC2_Click(Workspace& ps, DiagramDocument& doc) {
    auto contents = AskForContents(ps, "Load a saved pattern (*.oc2)");
    if (!contents)
        return;
    TakeDesign(ps, doc, std::move(*contents));
    NoteStep(doc);
    doc.designEdited = false;
}

void mnuLoadLook_Click(Workspace& ps, DiagramDocument& doc) {
    auto pattern = AskForContents(ps, "Load only the look of a saved pattern (*.oc2)");
    if (!pattern)
        return;
    FitContents(*pattern);
    const PlotBatch batch(doc.surface);
    TakeLook(doc.surface, *pattern);
    ShowDesign(doc);
    NoteStep(doc);
    doc.designEdited = false;
}

} // namespace zorvant
