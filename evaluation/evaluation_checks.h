// What must hold before an evaluation or a fit starts, and what is said otherwise. The functions
// only look and answer; the commands show the boxes, close windows and draw.
#pragma once

#include "engine/modes.h"
#include "engine/project_state.h"
#include "platform/host.h"

#include <optional>
#include <string>
#include <vector>

namespace zorvant {

/// Above this a value counts as given. Single, as the initial concentrations are.
inline constexpr float kGiven = 1E-8F;

struct CommandCheck {
    bool passed = false;
    /// In the order in which they are to be shown; a passed check may have notes too.
    std::vector<MessageBox> messages;
    /// The last message asks whether to go to the data editor (or, for CheckAnyData, to start a new
    /// table); the command ends with either answer.
    bool asksForEditor = false;
    /// For the state; empty: it stays as it is.
    std::optional<int> FitMode;
    std::optional<bool> TwoSpeciesEqual, LambdaMode;
    int ModelId = 0, DiagramKind = 0; ///< for the state when passed
};
/// Puts into the state what a check has found.
void TakeOver(ProjectState& ps, const CommandCheck& check);

/// Opening the menu of the evaluations: there must be data.
CommandCheck CheckAnyData(const ProjectState& ps);

/// Lines through c-t data: 1 first order, 2 second order, 3 A + B, 4 Wilkinson.
CommandCheck CheckCtEvaluation(const ProjectState& ps, int index);
/// Lines through r(P)-c(S) data: 0 Lineweaver/Burk, 1 Hanes/Woolf, 2 Eadie/Hofstee.
CommandCheck CheckMichaelisEvaluation(const ProjectState& ps, int index);
/// Lines through lambda-t data: 1 first order, 2 second order 2A, 3 second order A + B; the
/// statistics of the table are fresh.
CommandCheck CheckLambdaEvaluation(const ProjectState& ps, int index);
/// Lines through k-T data: 1 Arrhenius, 2 Eyring.
CommandCheck CheckKtEvaluation(const ProjectState& ps, int index);

/// Start of the fits: rate constants; order and k; k(T) of first (1) or second order (2); the
/// statistics of the table are fresh.
CommandCheck CheckCtFitting(const ProjectState& ps);
CommandCheck CheckOrderFitting(const ProjectState& ps);
CommandCheck CheckNonIsothermalFitting(const ProjectState& ps, int index);

/// The different couples of k and T: rows with both above 0, less the rows with T above 0 whose k
/// and T repeat an earlier row.
int DistinctKtCouples(const ProjectState& ps);

/// Axis ranges of the lambda evaluations from all rows, into RngT and RngLam1 or RngLam2. Rows
/// whose logarithm or quotient does not exist are left out; without any row the ordinate goes from
/// 0 to 1.
void FuExtentsLambda1(ProjectState& ps);
void FuExtentsLambda2(ProjectState& ps);

} // namespace zorvant
