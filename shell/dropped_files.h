// Files dropped on the main window: projects, measured values, lists of points, text to import.
#pragma once

#include "shell/commands.h"

#include <string>

namespace zorvant {

/// Whether a file is, by its name, of a kind that can be opened so.
bool CanOpenDropped(const std::string& path);
/// Opens it in the dialog of its kind; another file does nothing.
void OpenDropped(MDIZOR& form, const std::string& path);

} // namespace zorvant
