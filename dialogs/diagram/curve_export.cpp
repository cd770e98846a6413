#include "dialogs/diagram/curve_export.h"

#include "data/field_separator.h"
#include "data/formats/xy.h"
#include "data/previous_version.h"
#include "dialogs/diagram/curve_panel.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

namespace zorvant {
namespace {

constexpr const char* kComment = "\"Curve points\"";

/// The points of a curve; holes are none.
std::vector<XYPoint> PointsOf(const PlotSeries& series) {
    std::vector<XYPoint> points;
    for (std::size_t i = 0; i < series.x.size(); ++i)
        if (!IsHole(series, static_cast<int>(i) + 1))
            points.push_back(
                {.x = static_cast<float>(series.x[i]), .y = static_cast<float>(series.y[i])});
    return points;
}

} // namespace

void WireCurveExport(Workspace& ps, DiagramDocument& doc) {
    doc.cmdClipboard.onClick = [&doc] { cmdClipboard_Click(doc); };
    doc.cmdClipboard.toolTip = "x and y with a tab between them, one line for each point";
    doc.cmdSaveCurveAsXY.onClick = [&ps, &doc] { cmdSaveCurveAsXY_Click(ps, doc); };
    doc.cmbSep.items = {";", ",", "Tab"};
    doc.cmbSep.onClick = [&ps, &doc] { cmbSep_Click(ps, doc); };
}

void cmdClipboard_Click(DiagramDocument& doc) {
    const int slot = SlotOfFrontPage(doc);
    if (slot == 0)
        return;
    std::string text;
    for (const XYPoint& point : PointsOf(GetSeries(doc.surface, kLines, slot)))
        text += SingleText(static_cast<double>(point.x)) + '\t' +
                SingleText(static_cast<double>(point.y)) + kCrLf;
    host().setClipboardText(text);
}

void cmdSaveCurveAsXY_Click(Workspace& ps, DiagramDocument& doc) {
    const int slot = SlotOfFrontPage(doc);
    if (slot == 0)
        return;
    const std::optional<FileChoice> choice = host().chooseFile({
        .save = true,
        .title = "Save curve under ...",
        .directory = ps.XYDir,
        .name = "",
        .extension = ".XY",
        .filters = {{"x-y data (*.XY)", "*.XY"}},
        .overwritePrompt = true,
    });
    if (!choice || choice->path.empty())
        return;
    ps.XYFile = choice->path;
    ps.XYDir = DirectoryOf(choice->path);
    if (ps.XYDir.size() > 1)
        ps.XYDir.pop_back();
    try {
        WriteKeepingPrevious(
            choice->path,
            WriteXY(kComment, PointsOf(GetSeries(doc.surface, kLines, slot)), ps.CsvSep));
    } catch (const FileError& error) {
        ShowMessage(error.what(), "Message from cmdSaveCurveAsXY", Icon::Critical);
    }
}

void cmbSep_Click(Workspace& ps, DiagramDocument& doc) {
    if (doc.cmbSep.index >= 0)
        ps.CsvSep = kFieldSeparators.at(static_cast<std::size_t>(doc.cmbSep.index)).text;
}

void ShowDelimiter(const Workspace& ps, DiagramDocument& doc) {
    doc.cmbSep.index = SeparatorEntry(ps);
}

} // namespace zorvant
