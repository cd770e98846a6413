// Where the program keeps its own files when its folder can't be written.
#pragma once

#include <string>

namespace zorvant {

/// The folder of the user for this program's data: $XDG_DATA_HOME/zorvant, else
/// ~/.local/share/zorvant; made when it is missing.
/// Returned: the folder without a separator at its end; empty when there is none to be had.
std::string UserDataFolder();

/// Where the last session and the recovery files stand: the program's folder, or, where that can't
/// be written, the folder of the user.
std::string SessionFolder(const std::string& programFolder);

} // namespace zorvant
