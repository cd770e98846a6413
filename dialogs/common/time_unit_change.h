// The change of the time unit and the default constants, as the open dialogs show them.
#pragma once

#include "dialogs/common/calc_dialog.h"

namespace zorvant {

/// Converts every time and constant of the state, the data and the open dialogs, and tells them.
/// Given:    units 0..4; what lies outside counts as the nearest
/// Returned: as ConvertTimeUnit; the velocity of an open tubular reactor and the flow of an open
///           tank are converted here too: the dialogs' onTimeUnitChanged only shows them
void ChangeTimeUnit(Workspace& ps, int newIdx, int oldIdx);
/// Rewrites constants and unit captions of the open calculation dialog and tells the data editor.
void UpdateUnitLabels(Workspace& ps);
/// Tells the open dialogs the time unit that loaded data or a project brought; the state is
/// converted already, what belongs to the open dialogs is converted here.
void TellUnitOfData(Workspace& ps);

/// Default constants of the selected model, shown in the open calculation dialog; the time
/// diagram's tMax becomes 100 s.
void ResetConstants(Workspace& ps);

/// Counts the measured values anew and tells the data editor, whose column heads are due.
void CheckExpData(Workspace& ps);

} // namespace zorvant
