#include "data/recovery.h"

#include "data/exp_data.h"
#include "data/exp_file.h"
#include "data/formats/zi3.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <span>

namespace zorvant {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kStart = "ZorRecovery-", kEnd = ".ZI3";
/// Stands behind the rows of a recovery file, where a data file has nothing more.
constexpr std::string_view kNameOfData = "recovered from: ";

std::string Folder(const ProjectState& ps) {
    return DirectoryOf(ps.LastSessionFile);
}

/// The process that wrote a file of this name; 0: none did.
long long ProcessOf(const std::string& name) {
    if (!name.starts_with(kStart) || !name.ends_with(kEnd) ||
        name.size() <= kStart.size() + kEnd.size())
        return 0;
    const std::string number =
        name.substr(kStart.size(), name.size() - kStart.size() - kEnd.size());
    return ParseInteger(number).value_or(0);
}

/// Whether a process runs that may still be keeping its file. The number may by now be that of
/// another program, or of this one.
bool StillRuns(long long process) {
    if (process == getpid() || (kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH))
        return false;
    std::error_code error;
    const fs::path own = fs::read_symlink("/proc/self/exe", error);
    const fs::path other = fs::read_symlink("/proc/" + std::to_string(process) + "/exe", error);
    return error || own == other;
}

std::span<const ExpPoint> Rows(const ProjectState& ps) {
    return std::span(ps.ExpData).subspan(1, static_cast<std::size_t>(ps.ExpPointCount));
}

/// The path of the data file whose changes a recovery holds.
std::string NameOfData(const std::string& bytes) {
    const std::size_t at = bytes.rfind(kNameOfData);
    if (at == std::string::npos)
        return {};
    return Trim(bytes.substr(at + kNameOfData.size()));
}

} // namespace

std::string RecoveryKeeper::Path() const {
    return JoinPath(Folder(ps_),
                    std::string(kStart) + std::to_string(getpid()) + std::string(kEnd));
}

void RecoveryKeeper::Keep() {
    if (!ps_.ExpDataChanged || ps_.ExpPointCount == 0) {
        if (written_)
            Remove();
        return;
    }
    const std::span<const ExpPoint> rows = Rows(ps_);
    const std::string texts = ps_.ExpComment + '\n' + ps_.TimeUnitText + '\n' + ps_.DataFilePath +
                              '\n' + FileText(ps_.LambdaInf);
    if (written_ && texts == keptTexts_ && std::ranges::equal(rows, kept_))
        return;
    try {
        const Zi3Head head{
            .comment = ps_.ExpComment, .timeUnit = ps_.TimeUnitText, .count = ps_.ExpPointCount};
        WriteFileAtomically(Path(), WriteZi3(head, rows, ps_.LambdaInf) + std::string(kNameOfData) +
                                        ps_.DataFilePath + kCrLf);
        kept_.assign(rows.begin(), rows.end());
        keptTexts_ = texts;
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
    kept_.clear();
}

void RecoveryKeeper::Leave() {
    Keep();
}

std::vector<std::string> FindRecoveries(const ProjectState& ps) {
    std::vector<std::pair<fs::file_time_type, std::string>> found;
    std::error_code error;
    const std::string folder = Folder(ps).empty() ? "." : Folder(ps);
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const long long process = ProcessOf(entry->path().filename().string());
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

bool OfferRecovery(ProjectState& ps, RecoveryKeeper& keeper) {
    for (const std::string& path : FindRecoveries(ps)) {
        std::string comment, unit, dataFile;
        int count = 0;
        try {
            const std::string bytes = ReadFile(path);
            const Zi3Head head = ParseZi3Head(bytes);
            comment = head.comment;
            count = head.count;
            dataFile = NameOfData(bytes);
        } catch (const std::runtime_error&) { // not one of ours after all
            continue;
        }
        const Answer answer =
            Ask(JoinLines(
                    {"The program was not closed properly: changed experimental data",
                     "were not saved. They were kept:", "",
                     "    " + std::to_string(count) + " measuring points, " + host().fileDate(path),
                     "    data file: " + (dataFile.empty() ? "(unnamed)" : dataFile),
                     "    comment: " + comment, "", "Load them now?",
                     "(No: they are deleted. Cancel: you are asked again at the next start.)"}),
                "Recovery", Icon::Question, Buttons::YesNoCancel);
        if (answer == Answer::Cancel)
            continue;
        bool taken = false;
        if (answer == Answer::Yes) {
            LoadExpFile(ps, path, false, taken);
            if (!taken)
                continue;
            ps.DataFilePath = dataFile;
            ps.DataFileTitle = FileName(dataFile);
            ps.DataIsSession = false;
            ps.ExpDataChanged = true;
            FuCheckExpData(ps);
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
