// Unsaved work survives a crash: a recovery file beside the last session is kept current while the
// program runs, removed at a clean exit, and offered at the next start. One mechanism for every
// kind of work; a kind says what is unsaved, how it is written and how it is taken back.
#pragma once

#include "engine/project_state.h"
#include "platform/file_lock.h"

#include <functional>
#include <string>
#include <vector>

namespace zorvant {

/// How often Keep is to be called, ms; the file is never older than this and one writing.
inline constexpr int kRecoveryInterval = 2000;

struct RecoveryKind {
    std::string ending;            ///< of the files: ".ZI3"
    std::string what;              ///< "changed experimental data"
    std::function<bool()> unsaved; ///< whether there is such work now
    /// Takes a copy of the work. Returned: whether it differs from the copy taken before.
    std::function<bool()> differs;
    std::function<std::string()> bytes; ///< of the file that keeps it
    /// What a file keeps, in lines for the user.
    /// Errors: FileError, FormatError: it is none of this kind
    std::function<std::vector<std::string>(const std::string& path)> describe;
    /// Loads the work of a file; it counts as changed. Returned: false when it can't (a box told).
    std::function<bool(const std::string& path)> take;
};

/// The table of measured values: a data file with one line more, the path of the data file.
RecoveryKind DataRecovery(ProjectState& ps);

class RecoveryKeeper {
public:
    RecoveryKeeper(const ProjectState& state, RecoveryKind work)
        : ps_(state), kind_(std::move(work)) {}

    /// Where the file of this process stands, locked while it runs; empty: none was needed yet. It
    /// exists only while there is unsaved work.
    const std::string& Path() const { return path_; }
    /// Writes the file when the work has changed since or the file is missing, removes it when
    /// nothing is unsaved. A failure
    /// is kept in lastError and tried again next time: no box interrupts the work.
    void Keep();
    /// When nothing has to be kept any more.
    void Remove();
    const RecoveryKind& Kind() const { return kind_; }

    std::string lastError; ///< empty: the work is safe

private:
    const ProjectState& ps_;
    RecoveryKind kind_;
    std::string path_;
    FileLock lock_;        ///< on the file
    bool written_ = false; ///< the file has the work as it was last copied
};

/// The recovery files that no running program holds, the newest first.
std::vector<std::string> FindRecoveries(const ProjectState& ps, const std::string& ending);

/// Offers what processes that ended without a clean exit have left of one kind.
/// Returned: whether work was taken; it counts as changed. Yes takes and removes the file, No
///           removes it, Cancel leaves it for the next start.
bool OfferRecovery(const ProjectState& ps, RecoveryKeeper& keeper);

/// The text, with its line end, that tells in a recovery file which file's changes it keeps.
std::string RecoveredFrom(const std::string& path);
/// Returned: the path; empty: there was no file.
std::string FileRecoveredFrom(const std::string& bytes);

} // namespace zorvant
