// The file of the log as text.
#pragma once

#include "engine/modes.h"
#include "engine/project_state.h"

#include <string>
#include <string_view>

namespace zorvant {

/// The text of the file.
/// Given:    caller  the dialog whose results these are
///           date    for people
/// Returned: heads and rows with CR LF. A column is in use when the species mask has its species
///           (1..10), else when the sum of its rows is not 0.
std::string ProtocolText(const ProjectState& ps, CalcTask caller, std::string_view date);

/// The text of the file as the clipboard takes it: tabs between the fields.
std::string ProtocolClipboardText(std::string fileText, std::string_view separator);

} // namespace zorvant
