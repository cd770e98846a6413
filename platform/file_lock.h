// A file that a running program holds, told apart from one that a dead program has left.
#pragma once

#include <string>

namespace zorvant {

/// Holds a file until it is destroyed or the process ends, however it ends. Where the file system
/// knows no locks every file can be held.
class FileLock {
public:
    FileLock() = default; ///< holds nothing
    /// Takes the file if nobody else holds it; see Held. Only a regular file can be held.
    explicit FileLock(const std::string& path);
    ~FileLock();
    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;

    bool Held() const { return file_ >= 0; }
    /// Whether the name stands for the held file, not for none or for another one.
    bool IsAt(const std::string& path) const;

private:
    int file_ = -1;
};

} // namespace zorvant
