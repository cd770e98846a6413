// Files as the program reads and writes them: whole, and atomically.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

struct stat;

namespace zorvant {

/// A file that could not be read or written; what() is the text for the user: the system's reason
/// and the file's name, as a project may be missing one of several.
struct FileError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The bytes of a file.
/// Errors: FileError (not found, a folder, a device or pipe, not readable, larger than 256 MiB).
std::string ReadFile(const std::string& path);

/// A file that is ready on the disk but does not stand in its place yet: several can be made before
/// the first one replaces anything. Without Commit nothing has happened, and nothing is left.
class PreparedFile {
public:
    /// New content for a file. Links are followed, permissions of an existing file are kept. A
    /// device or pipe is written by Commit.
    /// Errors: FileError: no room, no right to write, a folder ...
    PreparedFile(const std::string& path, std::string_view bytes);
    /// A file as it is now, under another name, with its permissions. A link that has that name is
    /// replaced itself, never what it leads to.
    static PreparedFile CopyOf(const std::string& from, const std::string& path);
    ~PreparedFile();
    PreparedFile(PreparedFile&& other) noexcept;
    PreparedFile(const PreparedFile&) = delete;
    PreparedFile& operator=(const PreparedFile&) = delete;

    /// Puts it in its place, once. Errors: FileError; then what was there before stands untouched.
    void Commit();
    /// Where it is until then; empty for a device.
    const std::string& TemporaryPath() const { return temporary_; }

private:
    PreparedFile() = default;
    void Fill(std::string_view bytes, const std::optional<struct stat>& old);
    void Discard();

    std::string path_;                   ///< as it was asked for
    std::string target_;                 ///< behind the links
    std::string temporary_;              ///< beside it; empty: none
    std::optional<std::string> through_; ///< what a device gets
};

/// Replaces a file by these bytes or leaves it as it was: temporary file in the same folder, fsync,
/// rename, fsync of the folder (whose failure is none: the new file is in place). What a killed
/// saving has left in the folder is removed.
/// Errors: FileError; then the old file stands untouched and no temporary file is left.
void WriteFileAtomically(const std::string& path, std::string_view bytes);

bool FileExists(const std::string& path);

} // namespace zorvant
