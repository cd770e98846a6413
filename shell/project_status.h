// What the program says of the project: the status box and the status line.
#pragma once

#include "dialogs/common/workspace.h"

#include <string>

namespace zorvant {

/// The text of the status box.
/// Given: dataFile   path of the data file; empty, or of no file: told as none
std::string ProjectStatusText(const Workspace& ps, const std::string& dataFile);

/// Shows it. Given: heading   a line before the rest, empty: none
void ShowProjectStatus(const Workspace& ps, const std::string& dataFile,
                       const std::string& heading = {});

/// One line for the foot of the main window: model, time unit, data.
std::string StatusLine(const Workspace& ps);

} // namespace zorvant
