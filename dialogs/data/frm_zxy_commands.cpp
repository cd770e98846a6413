// The commands of the X-Y editor: lines and cells, clipboard, sorting, transforms, diagram, files.
#include "data/pasted_table.h"
#include "data/previous_version.h"
#include "dialogs/data/frm_zxy_editor.h"
#include "dialogs/data/grid_editing.h"
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
constexpr int kXColumn = 2, kYColumn = 3;
constexpr int kAll = 1; ///< entry of optDeleteXY
/// Room beside the points of a new frame, as a part of their width.
constexpr double kMargin = 0.05;
/// No diagram kind of its own: the points come from the list alone.
constexpr int kNoKind = 0;

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

MarkedLines Marked(const frmZXYEditor& form) {
    return Marked(form.Grid, form.ps.XYCount);
}

bool HasLines(const frmZXYEditor& form) {
    return zorvant::HasLines(form.ps.XYCount);
}

void Sort(frmZXYEditor& form, float XYPoint::*column) {
    if (!HasLines(form))
        return;
    MakeChange(form, "sorting", [&] {
        std::stable_sort(
            form.XYData.begin() + 1, form.XYData.begin() + 1 + form.ps.XYCount,
            [column](const XYPoint& a, const XYPoint& b) { return a.*column < b.*column; });
    });
    Refill(form);
    SetEditMode(form, form.EditMode);
}

void EraseAll(frmZXYEditor& form) {
    if (Ask("Really delete everything?", "WARNING", Icon::Question, Buttons::YesNo) != Answer::Yes)
        return;
    MakeChange(form, "removing", [&] {
        form.XYData.assign(1, {});
        form.ps.XYCount = 0;
    });
    Refill(form);
    SetEditMode(form, false);
    form.lblZeile.text = " line 1";
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

struct Extremes {
    double lower, upper;
};

/// The range of an axis around values from lower to upper.
Range Widened(Extremes of) {
    if (of.lower == of.upper) {
        const double margin = of.lower == 0 ? 1 : std::abs(of.lower * kMargin);
        return {NearestSingle(of.lower - margin), NearestSingle(of.upper + margin)};
    }
    const double margin = kMargin * (of.upper - of.lower);
    return {NearestSingle(of.lower - margin), NearestSingle(of.upper + margin)};
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
    const PointBuffer& points = ps.ManualBuf;
    Extremes x{static_cast<double>(points[1].x), static_cast<double>(points[1].x)};
    Extremes y{static_cast<double>(points[1].y), static_cast<double>(points[1].y)};
    for (std::size_t i = 2; i < points.size(); ++i) {
        x = {std::min(x.lower, static_cast<double>(points[i].x)),
             std::max(x.upper, static_cast<double>(points[i].x))};
        y = {std::min(y.lower, static_cast<double>(points[i].y)),
             std::max(y.upper, static_cast<double>(points[i].y))};
    }
    const Range xRange = Widened(x), yRange = Widened(y);
    ps.Frame = {.xMin = xRange.lower,
                .yMin = yRange.lower,
                .xMax = xRange.upper,
                .yMax = yRange.upper,
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
    form.XYChanged = form.commentChanged = false;
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

void cmdErase_Click(frmZXYEditor& form) {
    if (!HasLines(form))
        return;
    if (form.optDeleteXY.selected == kAll) {
        EraseAll(form);
        return;
    }
    const MarkedLines lines = Marked(form);
    if (lines.last == 0) {
        ShowMessage("No marked item!", kRefused, Icon::Critical);
        return;
    }
    if (Ask(lines.Text() + " Really delete?", "WARNING", Icon::Question, Buttons::YesNo) !=
        Answer::Yes)
        return;
    MakeChange(form, "removing", [&] {
        const auto start = form.XYData.begin();
        form.XYData.erase(start + lines.first, start + lines.last + 1);
        form.ps.XYCount -= lines.last - lines.first + 1;
    });
    Refill(form);
    SetEditMode(form, form.EditMode);
}

void cmdEraseSelected_Click(frmZXYEditor& form) {
    const MarkedLines lines = Marked(form);
    const GridRange marked = form.Grid.selection;
    if (lines.last == 0 || marked.lastColumn < kXColumn) {
        host().beep();
        return;
    }
    MakeChange(form, "setting cells to 0", [&] {
        for (int line = lines.first; line <= lines.last; ++line) {
            XYPoint& point = form.XYData[Index(line)];
            if (marked.firstColumn <= kXColumn)
                point.x = 0;
            if (marked.lastColumn >= kYColumn)
                point.y = 0;
        }
    });
    FillGrid(form);
    form.XYChanged = true;
    SetEditMode(form, form.EditMode);
}

void XSort_Click(frmZXYEditor& form) {
    Sort(form, &XYPoint::x);
}

void YSort_Click(frmZXYEditor& form) {
    Sort(form, &XYPoint::y);
}

void cmdChangeXY_Click(frmZXYEditor& form) {
    if (!HasLines(form))
        return;
    MakeChange(form, "interchange of x and y", [&] {
        for (int line = 1; line <= form.ps.XYCount; ++line)
            std::swap(form.XYData[Index(line)].x, form.XYData[Index(line)].y);
    });
    Refill(form);
    SetEditMode(form, form.EditMode);
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
    MakeChange(form, "\"" + form.optManip(chosen).text + "\"",
               [&] { form.XYData = std::move(changed); });
    Refill(form);
    SetEditMode(form, form.EditMode);
}

// ---------------------------------------------------------------- clipboard

void cmdClipboard_Click(frmZXYEditor& form) {
    const auto [first, last] = Marked(form);
    const GridRange& marked = form.Grid.selection;
    if (last == 0 || marked.lastColumn < kXColumn) {
        host().beep();
        return;
    }
    TableNumbers numbers;
    for (int line = first; line <= last; ++line) {
        const XYPoint& point = form.XYData[Index(line)];
        if (marked.firstColumn <= kXColumn)
            numbers.values.push_back(static_cast<double>(point.x));
        if (marked.lastColumn >= kYColumn)
            numbers.values.push_back(static_cast<double>(point.y));
        numbers.rowStart.push_back(static_cast<std::uint32_t>(numbers.values.size()));
    }
    host().setClipboardText(WriteTable(numbers));
}

void cmdClipEinfuegen_Click(frmZXYEditor& form) {
    const std::optional<std::string> text = host().clipboardText();
    if (!text || text->empty())
        return;
    const std::optional<TableNumbers> numbers = ReadPastedTable(*text);
    if (!numbers)
        return;
    const PastePlace place = PlaceOfPaste(form.Grid, form.ps.XYCount, kXColumn);
    const std::size_t first = Index(place.line);
    // One column goes where the cursor stands, more than one into both.
    const bool onlyY = numbers->Columns() == 1 && place.column == kYColumn;
    MakeChange(form, "pasting", [&] {
        form.XYData.resize(std::max(form.XYData.size(), first + numbers->Rows()));
        form.ps.XYCount = static_cast<int>(form.XYData.size() - 1);
        for (std::size_t i = 0; i < numbers->Rows(); ++i) {
            const auto values = numbers->Row(i);
            XYPoint& point = form.XYData[first + i];
            if (!values.empty())
                (onlyY ? point.y : point.x) = NearestSingle(values[0]);
            if (values.size() > 1)
                point.y = NearestSingle(values[1]);
        }
    });
    Refill(form);
    SetEditMode(form, true);
    TellSurplusColumns(*numbers, 2);
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

void LoadIntoEditor(frmZXYEditor& form, const std::string& path) {
    XYFile file;
    try {
        file = ParseXY(ReadFile(path));
    } catch (const std::runtime_error& error) { // FileError, FormatError
        ShowMessage(error.what(), "ERROR", Icon::Critical);
        return;
    }
    MakeChange(form, "loading", [&] {
        form.ps.XYFile = path;
        form.XYData.assign(1, {});
        form.XYData.insert(form.XYData.end(), file.points.begin(), file.points.end());
        form.ps.XYCount = static_cast<int>(file.points.size());
    });
    TakeFolder(form, path);
    form.txtComment.text = file.comment;
    form.caption = "Loaded: " + FileName(path);
    Refill(form);
    SetEditMode(form, true);
    NoteSaved(form);
    if (file.badLines > 0)
        ShowMessage(std::to_string(file.badLines) +
                        (file.badLines > 1 ? " lines are no pairs of numbers"
                                           : " line is no pair of numbers") +
                        " (line " + std::to_string(file.firstBadLine) + " of the file first)." +
                        kCrLf + "What could not be read counts as 0.",
                    "Not all could be read", Icon::Warning);
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
    const std::optional<FileChoice> choice = host().chooseFile({
        .save = true,
        .title = "(Curve)Points Save as ... ",
        .directory = form.ps.XYDir,
        .name = form.ps.XYFile,
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
