// The program's own question for a file to open. The dialog that shows what the files hold puts
// itself here; until then the host's choice of a file answers.
#pragma once

#include "engine/project_state.h"

#include <functional>
#include <string>
#include <string_view>

namespace zorvant {

/// What the question asks with and what it brings back.
struct FileQuestion {
    std::string fullPath{};  ///< in: preset; out: directory and name
    std::string fileName{};  ///< out
    std::string directory{}; ///< in: where to start; out: with the separator at its end
    std::string pattern{};   ///< "*.ZI3"; empty: all files
    std::string title{};
    bool cancelled = true; ///< out
};

using FileDialogHook = std::function<void(FileQuestion&)>;
/// Who asks.
FileDialogHook& fileDialogHook();

/// Asks for a file to open.
/// Given:    fullPath presets a file; directory, pattern and title set the dialog
/// Returned: cancelled; unless cancelled: fileName, directory, fullPath
void FuFileDialog(std::string& fullPath, std::string& fileName, std::string& directory,
                  const std::string& pattern, const std::string& title, bool& cancelled);

/// Where a dialog that saves begins, and the name that it offers.
struct SavePlace {
    std::string directory, name;
};
/// Given:    path, directory: where the contents were saved before; path empty: not yet
///           ending: ".XY"
/// Returned: the same again, or the project's name with this ending beside the project
SavePlace PlaceToSave(const ProjectState& ps, const std::string& path, const std::string& directory,
                      const std::string& ending);

} // namespace zorvant
