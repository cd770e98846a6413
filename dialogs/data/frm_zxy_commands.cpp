// The commands of the X-Y editor: removing all, transforms, diagram, files, print.
#include "data/file_dialog.h"
#include "data/previous_version.h"
#include "dialogs/data/frm_zxy_editor.h"
#include "engine/arithmetic.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

#include <array>
#include <cmath>

namespace zorvant {
namespace {

constexpr const char* kRefused = "Execution not possible";
constexpr int kAll = 1; ///< entry of optDeleteXY
/// Room beside the points of a new frame, as a part of their width.
constexpr double kMargin = 0.05;
/// No diagram kind of its own: the points come from the list alone.
constexpr int kNoKind = 0;

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

using Transform = double (*)(double value, double w);
struct TransformRow {
    Transform of;
    float XYPoint::*column;
    bool needsW;
};
constexpr std::array<TransformRow, 6> kTransforms{{
    {[](double y, double) { return CheckedExp(y); }, &XYPoint::y, false},
    {[](double y, double) { return CheckedLn(y); }, &XYPoint::y, false},
    {[](double y, double w) { return y * w; }, &XYPoint::y, true},
    {[](double y, double w) { return y + w; }, &XYPoint::y, true},
    {[](double y, double) { return Divide(1, y); }, &XYPoint::y, false},
    {[](double x, double) { return 1 - x; }, &XYPoint::x, false},
}};

/// The range of an axis around the values of a column.
Range RangeOf(const PointBuffer& points, float CurvePoint::*column) {
    const auto [least, most] = std::minmax_element(
        points.begin() + 1, points.end(),
        [column](const auto& a, const auto& b) { return a.*column < b.*column; });
    const double lower = static_cast<double>((*least).*column);
    const double upper = static_cast<double>((*most).*column);
    const double same = lower == 0 ? 1 : std::abs(lower * kMargin);
    const double margin = lower == upper ? same : kMargin * (upper - lower);
    return {NearestSingle(lower - margin), NearestSingle(upper + margin)};
}

/// The active lines, counted in element 0.
PointBuffer ActiveLines(const frmZXYEditor& form) {
    PointBuffer active(1);
    for (int line = 1; line <= form.ps.XYCount; ++line) {
        const XYPoint& point = form.XYData[Index(line)];
        if (point.inactive == 0)
            active.push_back({point.x, point.y});
    }
    active[0].x = static_cast<float>(active.size() - 1);
    return active;
}

void BuildFrame(frmZXYEditor& form) {
    Workspace& ps = form.ps;
    const Range x = RangeOf(ps.ManualBuf, &CurvePoint::x),
                y = RangeOf(ps.ManualBuf, &CurvePoint::y);
    ps.Frame = {.xMin = x.lower,
                .yMin = y.lower,
                .xMax = x.upper,
                .yMax = y.upper,
                .xTitle = "x",
                .yTitle = "y",
                .Header = form.txtComment.text,
                .SideWindow = true};
    form.diagram.GrafText = {ps.Frame.Header, ps.Frame.xTitle, ps.Frame.yTitle};
}

/// The folder without a separator at its end.
void TakeFolder(frmZXYEditor& form, const std::string& path) {
    std::string directory = DirectoryOf(path);
    if (directory.size() > 1)
        directory.pop_back();
    form.ps.XYDir = directory;
}

/// The list is that of its file now.
void NoteSaved(frmZXYEditor& form) {
    form.XYChanged = form.textsChanged = false;
    form.saved = form.known;
}

std::string WithoutSeconds(const std::string& dateAndTime) {
    const std::size_t colon = dateAndTime.find(':');
    const std::size_t second =
        colon == std::string::npos ? colon : dateAndTime.find(':', colon + 1);
    return dateAndTime.substr(0, second);
}

/// A line with texts at columns, counted from 1.
std::string AtColumns(std::initializer_list<std::pair<std::size_t, std::string>> texts) {
    std::string line;
    for (const auto& [column, text] : texts) {
        line.resize(std::max(line.size(), column - 1), ' ');
        line += text;
    }
    return line + kCrLf;
}

} // namespace

// ---------------------------------------------------------------- lines and cells

void cmdEraseXY_Click(frmZXYEditor& form) {
    if (form.optDeleteXY.selected != kAll || form.ps.XYCount == 0) {
        cmdErase_Click(form);
        return;
    }
    if (Ask("Really delete everything?", "WARNING", Icon::Question, Buttons::YesNo) != Answer::Yes)
        return;
    RemoveLines(form, 1, form.ps.XYCount);
    form.lblZeile.text = " line 1";
}

void cmdChangeXY_Click(frmZXYEditor& form) {
    if (!HasLines(form))
        return;
    MakeChange(form, "interchange of x and y", ListState::Extent::Rows, [&] {
        for (int line = 1; line <= form.ps.XYCount; ++line)
            std::swap(form.XYData[Index(line)].x, form.XYData[Index(line)].y);
    });
    Refill(form);
}

void optManip_Click(frmZXYEditor& form, int index) {
    const bool needsW = kTransforms.at(Index(std::max(index, 0))).needsW;
    form.txtW.enabled = form.lblW.enabled = needsW;
}

void cmdExecManip_Click(frmZXYEditor& form) {
    const double w = Val(form.txtW.text);
    const int chosen = std::max(form.optManip.selected, 0);
    const TransformRow& transform = kTransforms.at(Index(chosen));
    std::vector<XYPoint> changed = form.XYData;
    try {
        for (int line = 1; line <= form.ps.XYCount; ++line) {
            XYPoint& point = changed[Index(line)];
            if (point.inactive != 0)
                continue;
            float& value = point.*transform.column;
            value = ToSingle(transform.of(static_cast<double>(value), w));
        }
    } catch (const ArithmeticError& error) {
        ShowMessage(JoinLines({"Action is not possible using the actual data",
                               "(The problematic points can be set \"inactive\" ",
                               "or deleted; activate checkbox)", error.what()}),
                    kRefused, Icon::Critical);
        return;
    }
    MakeChange(form, "\"" + form.optManip(chosen).text + "\"", ListState::Extent::Rows,
               [&] { form.XYData = std::move(changed); });
    Refill(form);
}

// ---------------------------------------------------------------- diagram

void cmdDrawManu_Click(frmZXYEditor& form) {
    Workspace& ps = form.ps;
    if (ps.XYCount == 0) {
        ShowMessage("empty list", kRefused, Icon::Critical);
        return;
    }
    PointBuffer active = ActiveLines(form);
    if (active.size() == 1) {
        ShowMessage("All lines are inactive.", kRefused, Icon::Critical);
        return;
    }
    ps.ManualBuf = std::move(active);
    form.AsCurve = form.optIsPoints.selected == 0;
    Button& command = form.AsCurve ? form.diagram.cmdManuKurve : form.diagram.cmdManuPoints;
    if (!form.diagram.loaded) {
        ps.DiagramKind = kNoKind;
        ps.CurvesToDraw = 0;
        BuildFrame(form);
        ShowForm(ps.desktop, form.diagram);
        form.diagram.cmdDraw.enabled = false;
    }
    Press(command);
}

// ---------------------------------------------------------------- files

namespace {

/// Nothing when the file can't be read (a box told).
std::optional<XYFile> ReadPairs(const std::string& path) {
    try {
        return ParseXY(ReadFile(path));
    } catch (const std::runtime_error& error) { // FileError, FormatError
        ShowMessage(error.what(), "ERROR", Icon::Critical);
        return std::nullopt;
    }
}

/// Makes a file's pairs the list as one step.
/// Given: path: which the list then belongs to
void ShowPairs(frmZXYEditor& form, const XYFile& file, const std::string& path,
               const std::string& step) {
    MakeChange(form, step, ListState::Extent::File, [&] {
        form.ps.XYFile = path;
        SetPoints(form, file.points);
    });
    form.txtComment.text = file.comment;
    form.EditMode = true;
    Refill(form);
}

void TellBadLines(const XYFile& file) {
    if (file.badLines == 0)
        return;
    ShowMessage(
        std::to_string(file.badLines) +
            (file.badLines > 1 ? " lines are no pairs of numbers" : " line is no pair of numbers") +
            " (line " + std::to_string(file.firstBadLine) + " of the file first)." + kCrLf +
            "What could not be read counts as 0.",
        "Not all could be read", Icon::Warning);
}

} // namespace

void LoadIntoEditor(frmZXYEditor& form, const std::string& path) {
    const std::optional<XYFile> file = ReadPairs(path);
    if (!file)
        return;
    ShowPairs(form, *file, path, "loading");
    TakeFolder(form, path);
    form.caption = "Loaded: " + FileName(path);
    NoteSaved(form);
    TellBadLines(*file);
}

void frmZXYEditor::LoadPrevious(const std::string& path) {
    if (const std::optional<XYFile> file = ReadPairs(path))
        ShowPairs(*this, *file, std::string(ps.XYFile), "previous version");
}

void cmdLoad_Click(frmZXYEditor& form) {
    const std::optional<FileChoice> choice = host().chooseFile({
        .save = false,
        .title = "Load (curve)points",
        .directory = form.ps.XYDir,
        .name = form.ps.XYFile,
        .extension = ".XY",
        .filters = {{"x-y Data (*.XY)", "*.XY"}, {"(*.LRG)", "*.LRG"}},
        .overwritePrompt = false,
    });
    if (choice && !choice->path.empty())
        LoadIntoEditor(form, choice->path);
}

void cmdSave_Click(frmZXYEditor& form) {
    if (!HasLines(form))
        return;
    const SavePlace place = PlaceToSave(form.ps, form.ps.XYFile, form.ps.XYDir, ".XY");
    const std::optional<FileChoice> choice = host().chooseFile({
        .save = true,
        .title = "(Curve)Points Save as ... ",
        .directory = place.directory,
        .name = place.name,
        .extension = ".XY",
        .filters = {{"x-y data (*.XY)", "*.XY"}},
        .overwritePrompt = true,
    });
    if (!choice || choice->path.empty())
        return;
    try {
        WriteKeepingPrevious(
            choice->path,
            WriteXY(form.txtComment.text, std::span(form.XYData).subspan(1), form.ps.CsvSep));
    } catch (const FileError& error) {
        ShowMessage(error.what(), "ERROR", Icon::Critical);
        return;
    }
    form.ps.XYFile = choice->path;
    TakeFolder(form, choice->path);
    NoteSaved(form);
}

std::string PrintedList(const frmZXYEditor& form, const std::string& fileDate) {
    constexpr std::size_t kHead = 13, kRule = 12;
    const std::string rule = AtColumns({{kRule, std::string(35, '-')}});
    const std::string when = WithoutSeconds(fileDate) + " o'clock";
    std::string text = std::string(kCrLf) + kCrLf + kCrLf;
    if (form.ps.XYFile.empty()) {
        text += AtColumns({{kHead, "List X-Y data from  " + when}});
    } else {
        text += AtColumns({{kHead, "List from XY-data file " + UpperCase(form.ps.XYFile)}});
        text += kCrLf;
        text += AtColumns({{kHead, when}});
    }
    text += rule;
    text += AtColumns({{21, "X"}, {34, "Y"}});
    text += rule;
    for (int line = 1; line <= form.ps.XYCount; ++line) {
        const XYPoint& point = form.XYData[Index(line)];
        if (point.inactive == 0)
            text += AtColumns({{12, std::to_string(line)},
                               {20, PlainText(static_cast<double>(point.x))},
                               {33, PlainText(static_cast<double>(point.y))}});
    }
    return text + rule;
}

void cmdPrint_Click(frmZXYEditor& form) {
    if (!HasLines(form))
        return;
    const std::string& file = form.ps.XYFile;
    const std::string when = file.empty() ? host().dateAndTime() : host().fileDate(file);
    host().printText(PrintedList(form, when), form.caption);
}

} // namespace zorvant
