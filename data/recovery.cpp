#include "data/recovery.h"

#include "data/exp_data.h"
#include "data/exp_file.h"
#include "data/formats/zi3.h"
#include "platform/encoding.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <utility>

namespace zorvant {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kStart = "ZorRecovery-";
constexpr std::string_view kNameOfFile = "recovered from: ";

std::string Folder(const ProjectState& ps) {
    return DirectoryOf(ps.LastSessionFile);
}

bool IsRecovery(const std::string& name, const std::string& ending) {
    return name.starts_with(kStart) && name.ends_with(ending);
}

/// A name that no file has: that of this process's number may be left over from another one.
std::string FreePath(const std::string& folder, const std::string& ending) {
    const std::string start = JoinPath(folder, kStart) + std::to_string(getpid());
    std::string path = start + ending;
    for (int n = 2; FileExists(path); ++n)
        path = start + "-" + std::to_string(n) + ending;
    return path;
}

/// The table with all that its file holds.
struct TableCopy {
    std::vector<ExpPoint> rows;
    std::string comment, timeUnit, path;
    double lambdaInf = 0;
    bool operator==(const TableCopy&) const = default;
};

TableCopy CopyOf(const ProjectState& ps) {
    const auto start = ps.ExpData.begin() + 1;
    return {.rows = {start, start + ps.ExpPointCount},
            .comment = ps.ExpComment,
            .timeUnit = ps.TimeUnitText,
            .path = ps.DataFilePath,
            .lambdaInf = ps.LambdaInf};
}

std::string BytesOf(const TableCopy& table) {
    const Zi3Head head{.comment = table.comment, .timeUnit = table.timeUnit, .count = 0};
    return WriteZi3(head, table.rows, table.lambdaInf) + RecoveredFrom(table.path);
}

std::vector<std::string> DescribeData(const std::string& path) {
    const std::string bytes = ReadFile(path);
    const Zi3Head head = ParseZi3Head(bytes);
    const std::string dataFile = FileRecoveredFrom(bytes);
    return {std::to_string(head.count) + " measuring points, " + host().fileDate(path),
            "data file: " + (dataFile.empty() ? "(unnamed)" : dataFile),
            "comment: " + Shortened(head.comment, kShownComment)};
}

bool TakeData(ProjectState& ps, const std::string& path) {
    const std::string dataFile = FileRecoveredFrom(ReadFile(path));
    bool taken = false;
    LoadExpFile(ps, path, false, taken);
    if (!taken)
        return false;
    ps.DataFilePath = dataFile;
    ps.DataFileTitle = FileName(dataFile);
    ps.DataIsSession = false;
    ps.ExpDataChanged = true;
    FuCheckExpData(ps);
    return true;
}

} // namespace

std::string RecoveredFrom(const std::string& path) {
    return std::string(kNameOfFile) + path + kCrLf;
}

std::string FileRecoveredFrom(const std::string& bytes) {
    const std::size_t at = bytes.rfind(kNameOfFile);
    if (at == std::string::npos)
        return {};
    const std::size_t start = at + kNameOfFile.size();
    return bytes.substr(start, bytes.find('\r', start) - start);
}

RecoveryKind DataRecovery(ProjectState& ps) {
    const auto copy = std::make_shared<TableCopy>();
    return {.ending = ".ZI3",
            .what = "changed experimental data",
            .unsaved = [&ps] { return ps.ExpDataChanged && ps.ExpPointCount > 0; },
            .differs =
                [&ps, copy] {
                    const TableCopy before = std::exchange(*copy, CopyOf(ps));
                    return before != *copy;
                },
            .bytes = [copy] { return BytesOf(*copy); },
            .describe = DescribeData,
            .take = [&ps](const std::string& path) { return TakeData(ps, path); }};
}

void RecoveryKeeper::Keep() {
    if (!kind_.unsaved()) {
        Remove();
        lastError.clear();
        return;
    }
    const bool differs = kind_.differs();
    if (written_ && !differs && lock_.IsAt(path_))
        return;
    written_ = false; // until the copy stands in the file
    try {
        if (!lock_.IsAt(path_)) // another's file of this name is not written over
            path_ = FreePath(Folder(ps_), kind_.ending);
        PreparedFile file(path_, kind_.bytes());
        FileLock lock(file.TemporaryPath()); // before any other program can see it
        file.Commit();
        lock_ = std::move(lock);
        written_ = true;
        lastError.clear();
    } catch (const FileError& error) {
        lastError = error.what();
    }
}

void RecoveryKeeper::Remove() {
    std::error_code none;
    if (lock_.IsAt(path_))
        fs::remove(path_, none);
    lock_ = FileLock();
}

std::vector<std::string> FindRecoveries(const ProjectState& ps, const std::string& ending) {
    std::vector<std::pair<fs::file_time_type, std::string>> found;
    std::error_code error;
    const std::string folder = Folder(ps).empty() ? "." : Folder(ps);
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string path = entry->path().string();
        if (!IsRecovery(entry->path().filename().string(), ending) || !FileLock(path).Held())
            continue; // none, or a running program's
        std::error_code none;
        found.emplace_back(fs::last_write_time(path, none), path);
    }
    std::ranges::sort(found, std::greater());
    std::vector<std::string> paths;
    for (const auto& [time, path] : found)
        paths.push_back(path);
    return paths;
}

bool OfferRecovery(const ProjectState& ps, RecoveryKeeper& keeper) {
    const RecoveryKind& kind = keeper.Kind();
    for (const std::string& path : FindRecoveries(ps, kind.ending)) {
        const FileLock held(path); // it is asked for once
        if (!held.Held())
            continue;
        std::string question = "The program was not closed properly: " + kind.what + kCrLf +
                               "were not saved. They were kept:" + kCrLf;
        try {
            for (const std::string& line : kind.describe(path))
                question += kCrLf + ("    " + line);
        } catch (const std::runtime_error&) { // FileError, FormatError: not one of ours after all
            continue;
        }
        question +=
            JoinLines({"", "", "Load them now?",
                       "(No: they are deleted. Cancel: you are asked again at the next start.)"});
        const Answer answer = Ask(question, "Recovery", Icon::Question, Buttons::YesNoCancel);
        if (answer == Answer::Cancel)
            continue;
        const bool taken = answer == Answer::Yes;
        if (taken) {
            if (!kind.take(path))
                continue;
            keeper.Keep(); // before the old one goes
            if (!keeper.lastError.empty())
                return true;
        }
        std::error_code none;
        fs::remove(path, none);
        if (taken)
            return true; // further ones at the next start
    }
    return false;
}

} // namespace zorvant
