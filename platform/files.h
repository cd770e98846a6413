// Files as the program reads and writes them: whole, and atomically.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace zorvant {

/// A file that could not be read or written; what() is the text for the user: the system's reason
/// and the file's name, as a project may be missing one of several.
struct FileError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The bytes of a file.
/// Errors: FileError (not found, a folder, not readable, larger than 256 MiB).
std::string ReadFile(const std::string& path);

/// Replaces a file by these bytes or leaves it as it was: temporary file in the same folder, fsync,
/// rename, fsync of the folder (whose failure is none: the new file is in place). Permissions of an
/// existing file are kept, links are followed.
/// Errors: FileError; then the old file stands untouched and no temporary file is left.
void WriteFileAtomically(const std::string& path, std::string_view bytes);

bool FileExists(const std::string& path);

} // namespace zorvant
