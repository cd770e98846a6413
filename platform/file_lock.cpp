#include "platform/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace zorvant {

FileLock::FileLock(const std::string& path)
    : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW)) {
    struct stat info {};
    const bool regular = file_ >= 0 && fstat(file_, &info) == 0 && S_ISREG(info.st_mode);
    const bool taken =
        regular && flock(file_, LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR);
    // Between opening and locking its owner may have put a new file there.
    if (!regular || taken || !IsAt(path))
        *this = FileLock();
}

FileLock::~FileLock() {
    if (file_ >= 0)
        (void)::close(file_);
}

FileLock::FileLock(FileLock&& other) noexcept : file_(std::exchange(other.file_, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
    std::swap(file_, other.file_);
    return *this;
}

bool FileLock::IsAt(const std::string& path) const {
    struct stat held {
    }, there{};
    return file_ >= 0 && fstat(file_, &held) == 0 && lstat(path.c_str(), &there) == 0 &&
           held.st_dev == there.st_dev && held.st_ino == there.st_ino;
}

} // namespace zorvant
