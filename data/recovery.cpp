#include "data/recovery.h"

#include "data/exp_data.h"
#include "data/exp_file.h"
#include "data/formats/zi3.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
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

/// The process that wrote a file of this name; 0: none did.
long long ProcessOf(const std::string& name, const std::string& ending) {
    if (!name.starts_with(kStart) || !name.ends_with(ending) ||
        name.size() <= kStart.size() + ending.size())
        return 0;
    const std::string number =
        name.substr(kStart.size(), name.size() - kStart.size() - ending.size());
    return ParseInteger(number).value_or(0);
}

/// Whether a process has ended and only waits to be asked for its result.
bool HasEnded(const std::string& process) {
    std::ifstream file("/proc/" + process +
                       "/stat"); // "17 (name) Z ..."; the name may hold anything
    const std::string stat(std::istreambuf_iterator<char>(file), {});
    const std::size_t state = stat.rfind(") ");
    return state != std::string::npos && state + 2 < stat.size() && stat[state + 2] == 'Z';
}

/// Whether a process runs that may still be keeping its file. The number may by now be that of
/// another program, or of this one.
bool StillRuns(long long process) {
    const std::string number = std::to_string(process);
    if (process == getpid() || HasEnded(number) ||
        (kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH))
        return false;
    std::error_code error;
    const fs::path own = fs::read_symlink("/proc/self/exe", error);
    const fs::path other = fs::read_symlink("/proc/" + number + "/exe", error);
    return error || own == other;
}

/// A file that is left for the next start must not stand where this process will write its own.
void LeaveTo(const std::string& path, const std::string& own) {
    if (path != own)
        return;
    constexpr long long kNoProcess = 1'000'000'000; // beyond the numbers that processes get
    std::error_code none;
    fs::rename(path,
               JoinPath(DirectoryOf(path), std::string(kStart) +
                                               std::to_string(kNoProcess + getpid()) +
                                               fs::path(path).extension().string()),
               none);
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
            "comment: " + head.comment};
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

std::string RecoveryKeeper::Path() const {
    return JoinPath(Folder(ps_), std::string(kStart) + std::to_string(getpid()) + kind_.ending);
}

void RecoveryKeeper::Keep() {
    if (!kind_.unsaved()) {
        if (written_)
            Remove();
        lastError.clear();
        return;
    }
    const bool differs = kind_.differs();
    if (written_ && !differs)
        return;
    written_ = false; // until the copy stands in the file
    try {
        WriteFileAtomically(Path(), kind_.bytes());
        written_ = true;
        lastError.clear();
    } catch (const FileError& error) {
        lastError = error.what();
    }
}

void RecoveryKeeper::Remove() {
    std::error_code none;
    fs::remove(Path(), none);
    written_ = false;
}

std::vector<std::string> FindRecoveries(const ProjectState& ps, const std::string& ending) {
    std::vector<std::pair<fs::file_time_type, std::string>> found;
    std::error_code error;
    const std::string folder = Folder(ps).empty() ? "." : Folder(ps);
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const long long process = ProcessOf(entry->path().filename().string(), ending);
        if (process > 0 && !StillRuns(process)) {
            std::error_code none;
            found.emplace_back(fs::last_write_time(entry->path(), none), entry->path().string());
        }
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
        if (answer == Answer::Cancel) {
            LeaveTo(path, keeper.Path());
            continue;
        }
        const bool taken = answer == Answer::Yes;
        if (taken) {
            if (!kind.take(path))
                continue;
            keeper.Keep(); // before the old one goes
            if (!keeper.lastError.empty())
                return true;
        }
        std::error_code none;
        if (path != keeper.Path())
            fs::remove(path, none);
        if (taken)
            return true; // further ones at the next start
    }
    return false;
}

} // namespace zorvant
