// What is known of the table of measured values.
#pragma once

#include "engine/project_state.h"

namespace zorvant {

/// Empties the table: its rows keep their place with times, c(A), c(B), k and T of 0.
/// Returned: ExpPointCount 0, DataFilePath "", ExpDataChanged false
void FuClearExpData(ProjectState& ps);

/// Counts the kinds of measurement in the table and takes its extremes.
/// Given:    ExpData(1..ExpPointCount), LambdaInf
/// Returned: the statistics of ExpDataSet (docs/numerics.md, chapter 10)
void FuCheckExpData(ProjectState& ps);

/// Initial concentrations from the table.
/// Returned: c0Data(1..5) mol/L: species slot j of the first row with t < 1E-8, 0 without one
void FuInitialValuesFromData(ProjectState& ps);

} // namespace zorvant
