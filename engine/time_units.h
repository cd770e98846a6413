// Time units and default parameters.
#pragma once

#include "engine/project_state.h"

#include <array>
#include <string>
#include <string_view>

namespace zorvant {

inline constexpr std::array<const char*, 5> kTimeUnits{"s", "min", "h", "d", "a"};
/// Lengths in s; a year has 365 days.
inline constexpr std::array<double, 5> kTimeUnitSeconds{1, 60, 3600, 86400, 31536000};

/// Index of a unit word, case-sensitive; 0 for an unknown one.
int TimeUnitIndex(std::string_view word);
/// Fills TimeFactor: t in unit j = t in unit i * TimeFactor[i][j].
void FillTimeFactor(ProjectState& ps);

/// A value of the data's time column in another unit (indices 0..4): a time t * F, a rate r(P) / F.
double TimeColumnIn(const ProjectState& ps, double value, int newIdx, int oldIdx);

/// Converts every time and constant of the state and the data.
/// Given:    units 0..4; what lies outside counts as the nearest
/// Returned: F = TimeFactor[oldIdx][newIdx], by which times that others keep grow and rates shrink,
///           1 between equal units; TimeUnitText, TimeUnitIdx and TimeUnitOldIdx; times t * F,
///           constants k / F; r(P) in the time column of enzyme data is divided by F as every rate
///           is, and k2 is left alone where it holds the order n
double ConvertTimeUnit(ProjectState& ps, int newIdx, int oldIdx);
/// Takes the unit of rows that come with a word for it: constants and times of the state are
/// converted, the rows are not. A word that is none of ours converts nothing and stays as it is.
/// TimeUnitIdx stays behind until the dialogs have been told.
void TakeUnitOfRows(ProjectState& ps, const std::string& word);
/// Takes the unit that a project brings for its constants and times: the rows are converted. It has
/// to come before the project's model, which may read the time column otherwise.
void TakeUnitOfConstants(ProjectState& ps, const std::string& word);

/// Constants of the selected model back to their defaults.
void SetDefaultK(ProjectState& ps);
/// The end of the time axis when none is given, TU.
double DefaultTimeAxis(const ProjectState& ps);

/// The caption behind constant 1..3 of the selected model, "/(1/s)" and so on.
std::string ConstantUnitText(const ProjectState& ps, int constant);

/// Defaults at the selection of a model: what is exactly 0 is filled.
void SelectionDefaultTimes(ProjectState& ps);
void SelectionDefaultConcentrations(ProjectState& ps);
void SelectionDefaultConstants(ProjectState& ps);

} // namespace zorvant
