// What survives a crash of an X-Y list: a list .XY with all digits, a third column that marks the
// inactive lines, and behind the comment the name of the file whose changes it keeps.
#include "data/formats/table_text.h"
#include "dialogs/data/frm_zxy_editor.h"
#include "platform/encoding.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <memory>

namespace zorvant {
namespace {

/// The list with all that its file holds.
struct ListCopy {
    std::vector<XYPoint> points;
    std::string comment, path;
    bool operator==(const ListCopy&) const = default;
};

ListCopy CopyOf(const frmZXYEditor& form) {
    return {.points = {form.XYData.begin() + 1, form.XYData.end()},
            .comment = form.txtComment.text,
            .path = form.ps.XYFile};
}

std::string BytesOf(const ListCopy& list) {
    TableNumbers numbers;
    for (const XYPoint& point : list.points) {
        for (const float value : {point.x, point.y, point.inactive})
            numbers.values.push_back(static_cast<double>(value));
        numbers.rowStart.push_back(static_cast<std::uint32_t>(numbers.values.size()));
    }
    return EncodeText(OneLine(list.comment) + "\t" + RecoveredFrom(list.path) +
                      WriteTable(numbers));
}

/// Errors: FileError; FormatError: not such a file
ListCopy ReadCopy(const std::string& path) {
    const std::string text = DecodeText(ReadFile(path));
    const std::size_t end = text.find(kCrLf), tab = text.rfind('\t', end);
    if (end == std::string::npos || tab == std::string::npos)
        throw FormatError(kPastEnd);
    ListCopy list{.points = {},
                  .comment = text.substr(0, tab),
                  .path = FileRecoveredFrom(text.substr(0, end))};
    const TableNumbers numbers = ReadTable(std::string_view(text).substr(end), {});
    for (std::size_t i = 0; i < numbers.Rows(); ++i)
        if (const auto row = numbers.Row(i); row.size() == 3)
            list.points.push_back({.x = static_cast<float>(row[0]),
                                   .y = static_cast<float>(row[1]),
                                   .inactive = static_cast<float>(row[2])});
    return list;
}

std::vector<std::string> Describe(const std::string& path) {
    const ListCopy list = ReadCopy(path);
    return {std::to_string(list.points.size()) + " lines, " + host().fileDate(path),
            "file: " + (list.path.empty() ? "(unnamed)" : list.path),
            "comment: " + Shortened(list.comment, kShownComment)};
}

bool Take(frmZXYEditor& form, const std::string& path) {
    ListCopy list;
    try {
        list = ReadCopy(path);
    } catch (const std::runtime_error& error) { // FileError, FormatError
        ShowMessage(error.what(), "ERROR", Icon::Critical);
        return false;
    }
    ShowForm(form.ps.desktop, form);
    MakeChange(form, "recovery", ListState::Extent::File, [&] {
        form.ps.XYFile = list.path;
        SetPoints(form, list.points);
    });
    form.txtComment.text = list.comment;
    form.textsChanged = true;
    form.EditMode = true;
    Refill(form);
    return true;
}

} // namespace

RecoveryKind ListRecovery(frmZXYEditor& form) {
    const auto copy = std::make_shared<ListCopy>();
    return {.ending = ".XY",
            .what = "changed X-Y data",
            .unsaved = [&form] { return form.loaded && form.XYChanged && form.ps.XYCount > 0; },
            .differs =
                [&form, copy] {
                    const ListCopy before = std::exchange(*copy, CopyOf(form));
                    return before != *copy;
                },
            .bytes = [copy] { return BytesOf(*copy); },
            .describe = Describe,
            .take = [&form](const std::string& path) { return Take(form, path); }};
}

} // namespace zorvant
