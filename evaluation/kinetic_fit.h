// The fits of the workbench: rate constants, order and rate constant, the parameters of k(T).
#pragma once

#include "engine/project_state.h"
#include "evaluation/marquardt_nash.h"
#include "platform/host.h"

#include <optional>

namespace zorvant {

/// Limits and bounds of a fit of n parameters by FitMode.
FitLimits LimitsOfFit(int fitMode, int n);

/// A run, and what is to be said about it.
struct FitReport : FitRun {
    std::optional<MessageBox> message; ///< after an arithmetic error
};

/// Finds the parameters of the selected model that minimise the sum of squares over rows 1..m.
/// Given:    FitMode and what its residuals need (kinetic_problem.h); n 1..3; FitParam start
///           values; FitFixed of the state
/// Returned: FitParam, FitStdDev, LimitReached; k and OrderN hold the last evaluated vector, the
///           caller sets them from FitParam. Courses and spline tables stay as they were.
/// Errors:   the report's error and message; LimitReached. std::invalid_argument: n outside 1..3, m
///           beyond the table
/// Formula:  see marquardt_nash.h
FitReport MarquardtNashFitting(ProjectState& ps, int n, int m, FitVector& FitParam,
                               FitVector& FitStdDev, bool& LimitReached);

/// The fit as the workbench starts and ends it: start values of k(T) that are out of range go back
/// to 100, n is the number of constants in RateMask, m the number of rows; then the result is taken
/// over into k and OrderN, or ArrA and ArrEA, or EyrB, EyrH and EyrS.
struct AutoFit {
    bool ran = false;
    FitReport report;
    std::vector<MessageBox> messages; ///< to be shown in this order
};
AutoFit RunAutoFit(ProjectState& ps);

/// The start values of a fit: FitParam from the fields that hold the task's parameters.
void StartFitParameters(ProjectState& ps);
/// Writes parameter i of FitParam (1..3) where the task keeps it; 0 becomes 1E-8.
/// Returned: false: no entropy belongs to Eyring's factor
bool SetFitParameter(ProjectState& ps, int i, double value);
/// A slider's move, relative to the parameter: coarse in per cent, fine in a thousandth.
bool MoveFitParameter(ProjectState& ps, int i, int position, bool fine);

} // namespace zorvant
