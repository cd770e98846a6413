// Menu bars from tables.
#pragma once

#include "platform/controls.h"

#include <QAction>
#include <QMenuBar>

#include <span>

namespace zorvant {

/// Fills a menu bar: one action for each row, with the control's name as object name, so that the
/// binder finds it. A row with deeper rows below it is a menu; one of level 1 without any is a
/// command in the bar.
void BuildMenuBar(QMenuBar& bar, std::span<const MenuRow> rows);

} // namespace zorvant
