// What a folder holds, for the file dialog.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorvant {

struct FolderList {
    std::string path;                 ///< as asked for, made absolute
    std::vector<std::string> folders; ///< by name, hidden ones left out
    std::vector<std::string> files;   ///< those that fit the pattern, by name
};

/// Folders and files of a folder. Names sort without regard to case.
/// Given:  path; pattern: "*.ZI3", several separated by ";", empty: all files
/// Errors: FileError with the system's text when the folder can't be read
FolderList ListFolder(const std::string& path, std::string_view pattern);

/// Whether a name fits a pattern of * and ?, without regard to case. "*.*" fits every name.
bool FitsPattern(std::string_view name, std::string_view pattern);

/// A path for display in at most `width` characters: the first three, "...", and the end from a
/// separator on.
std::string FuShortPath(const std::string& path, int width);

} // namespace zorvant
