// Changed data that are not saved survive a crash: a recovery file beside the last session is kept
// current while the program runs, removed at a clean exit, and offered at the next start.
#pragma once

#include "engine/project_state.h"

#include <string>
#include <vector>

namespace zorvant {

/// How often Keep is to be called, ms; the file is never older than this and one writing.
inline constexpr int kRecoveryInterval = 2000;

class RecoveryKeeper {
public:
    explicit RecoveryKeeper(ProjectState& state) : ps_(state) {}

    /// Where the file of this process stands; it exists only while there are changed data.
    std::string Path() const;
    /// Writes the file when the data have changed since, removes it when nothing is unsaved. A
    /// failure is kept in lastError and tried again next time: no box interrupts the work.
    void Keep();
    /// At a clean exit.
    void Remove();
    /// At an exit whose question about changed data was cancelled: the file stays, current.
    void Leave();

    std::string lastError;

private:
    ProjectState& ps_;
    std::vector<ExpPoint> kept_; ///< rows as the file holds them
    std::string keptTexts_;
    bool written_ = false;
};

/// The recovery files of processes that no longer run, the newest first.
std::vector<std::string> FindRecoveries(const ProjectState& ps);

/// Offers what processes that ended without a clean exit have left.
/// Returned: whether data were taken; they count as changed. Yes takes and removes the file, No
///           removes it, Cancel leaves it for the next start.
bool OfferRecovery(ProjectState& ps, RecoveryKeeper& keeper);

} // namespace zorvant
