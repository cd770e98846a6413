#include "platform/files.h"

#include "platform/file_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>

namespace zorvant {
namespace {

/// More than any file of this program; a device that never ends must not fill the memory.
constexpr std::size_t kMaxFileBytes = std::size_t{256} << 20;
constexpr std::size_t kReadBlock = std::size_t{1} << 16;
/// Links followed before a circle is assumed, as the kernel does.
constexpr int kMaxLinks = 40;
/// Names tried for the temporary file.
constexpr int kMaxTemporaries = 100;

[[noreturn]] void ThrowFileError(const std::string& path, int error) {
    throw FileError(std::string(std::strerror(error)) + ": " + path);
}

/// Where a chain of links ends; the end need not exist.
std::string FollowLinks(const std::string& path) {
    std::string target = path;
    for (int links = 0;; ++links) {
        struct stat info {};
        if (lstat(target.c_str(), &info) != 0 || !S_ISLNK(info.st_mode))
            return target;
        if (links == kMaxLinks)
            ThrowFileError(path, ELOOP);
        std::array<char, 4096> link{};
        const ssize_t length = readlink(target.c_str(), link.data(), link.size());
        if (length < 0)
            ThrowFileError(path, errno);
        const std::string to(link.data(), static_cast<std::size_t>(length));
        target = to.starts_with('/') ? to : target.substr(0, target.rfind('/') + 1) + to;
    }
}

/// Returned: 0, or the error's number.
int WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = fileCalls().write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return written == 0 ? ENOSPC : errno;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

/// A device or a pipe: there is nothing to replace.
void WriteThrough(const std::string& path, std::string_view bytes) {
    const int file = fileCalls().open(path.c_str(), O_WRONLY | O_CLOEXEC, 0);
    if (file < 0)
        ThrowFileError(path, errno);
    int error = WriteAll(file, bytes);
    if (fileCalls().close(file) != 0 && error == 0)
        error = errno;
    if (error != 0)
        ThrowFileError(path, error);
}

struct TemporaryFile {
    int file = -1;
    std::string path;
};

/// A new file in the folder. Its name does not contain the target's, which may be as long as names
/// can be.
TemporaryFile MakeTemporary(const std::string& folder, const std::string& target) {
    static int counter = 0;
    for (int attempt = 0; attempt < kMaxTemporaries; ++attempt) {
        TemporaryFile made;
        made.path =
            folder + ".zorvant-" + std::to_string(getpid()) + "-" + std::to_string(++counter);
        made.file =
            fileCalls().open(made.path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (made.file >= 0)
            return made;
        if (errno != EEXIST)
            break;
    }
    ThrowFileError(target, errno);
}

/// The content and what the old file's owner had set, safe on the disk. Returned: the error's number.
int FillTemporary(int file, std::string_view bytes, const std::optional<struct stat>& old) {
    if (old) {
        // Another owner's file may be writable for us without our being allowed to give it back;
        // then it becomes ours, as with any program that replaces files.
        struct stat fresh {};
        if (fstat(file, &fresh) == 0 &&
            (fresh.st_uid != old->st_uid || fresh.st_gid != old->st_gid))
            (void)fileCalls().fchown(file, old->st_uid, old->st_gid);
        if (fileCalls().fchmod(file, old->st_mode & 07777) != 0)
            return errno;
    }
    const int error = WriteAll(file, bytes);
    if (error != 0)
        return error;
    return fileCalls().fsync(file) == 0 ? 0 : errno;
}

/// Makes the new name last. The new file is in place by now, so that a failure here is not one of
/// saving; file systems without this call exist.
void SyncFolder(const std::string& folder) {
    const int file = fileCalls().open(folder.empty() ? "." : folder.c_str(),
                                      O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    if (file < 0)
        return;
    (void)fileCalls().fsync(file);
    (void)fileCalls().close(file);
}

} // namespace

FileCalls SystemFileCalls() {
    return {
        .open = [](const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); },
        .write = ::write,
        .fchown = ::fchown,
        .fchmod = ::fchmod,
        .fsync = ::fsync,
        .close = ::close,
        .rename = [](const char* from, const char* to) { return std::rename(from, to); },
        .unlink = ::unlink,
    };
}

FileCalls& fileCalls() {
    static FileCalls calls = SystemFileCalls();
    return calls;
}

std::string ReadFile(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        ThrowFileError(path, errno);
    std::string bytes;
    int error = 0;
    for (;;) {
        const std::size_t had = bytes.size();
        bytes.resize(had + kReadBlock);
        const ssize_t got = ::read(file, bytes.data() + had, kReadBlock);
        if (got < 0 && errno != EINTR)
            error = errno;
        bytes.resize(had + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (bytes.size() > kMaxFileBytes)
            error = EFBIG;
        if (error != 0 || got == 0)
            break;
    }
    ::close(file);
    if (error != 0)
        ThrowFileError(path, error);
    return bytes;
}

void WriteFileAtomically(const std::string& path, std::string_view bytes) {
    const std::string target = FollowLinks(path);
    std::optional<struct stat> old;
    struct stat info {};
    if (stat(target.c_str(), &info) == 0) {
        old = info;
        if (S_ISDIR(info.st_mode))
            ThrowFileError(path, EISDIR);
        if (access(target.c_str(), W_OK) != 0) // a file locked against writing is not replaced
            ThrowFileError(path, errno);
        if (!S_ISREG(info.st_mode)) {
            WriteThrough(target, bytes);
            return;
        }
    }
    const std::string folder = target.substr(0, target.rfind('/') + 1);
    const TemporaryFile temporary = MakeTemporary(folder, path);
    int error = FillTemporary(temporary.file, bytes, old);
    if (fileCalls().close(temporary.file) != 0 && error == 0)
        error = errno;
    if (error == 0 && fileCalls().rename(temporary.path.c_str(), target.c_str()) != 0)
        error = errno;
    if (error != 0) {
        (void)fileCalls().unlink(temporary.path.c_str());
        ThrowFileError(path, error);
    }
    SyncFolder(folder);
}

bool FileExists(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0;
}

} // namespace zorvant
