// The calls of the operating system that saving a file makes, as a table: a test puts failing ones
// there (a full disk, a call that fails, a process that dies between two calls).
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <functional>

namespace zorvant {

/// Each returns what the system call of its name returns and sets errno as it does.
struct FileCalls {
    std::function<int(const char* path, int flags, mode_t mode)> open;
    std::function<ssize_t(int file, const void* bytes, std::size_t count)> write;
    std::function<int(int file, uid_t owner, gid_t group)> fchown;
    std::function<int(int file, mode_t mode)> fchmod;
    std::function<int(int file)> fsync;
    std::function<int(int file)> close;
    std::function<int(const char* from, const char* to)> rename;
    std::function<int(const char* from, const char* to)> link;
    std::function<int(const char* path)> unlink;
};

/// The system's own.
FileCalls SystemFileCalls();

/// The table in force, at first the system's own.
FileCalls& fileCalls();

} // namespace zorvant
