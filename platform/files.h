// Files as the program reads and writes them: whole, and atomically.
#pragma once

#include <functional>
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

/// Text from bytes: UTF-8 where the bytes are valid UTF-8, else Windows-1252. A mark at the start is
/// dropped.
std::string DecodeText(std::string_view bytes);
/// Windows-1252 where every character fits, else UTF-8.
std::string EncodeText(std::string_view utf8);
/// Whether the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
bool IsUtf8(std::string_view bytes);
/// Appends a character by its number in Unicode.
void AppendUtf8(std::string& text, unsigned codePoint);

/// Paths: both separators are understood on reading; "/" is used here.
std::string FileName(std::string_view path);    ///< behind the last separator
std::string DirectoryOf(std::string_view path); ///< with the separator at its end; "" without one
std::string JoinPath(std::string_view directory, std::string_view name);

} // namespace zorvant
