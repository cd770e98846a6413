#include "platform/files.h"

#include "platform/file_calls.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <utility>

namespace zorvant {
namespace {

/// More than any file of this program; a device that never ends must not fill the memory.
constexpr std::size_t kMaxFileBytes = std::size_t{256} << 20;
constexpr std::size_t kReadBlock = std::size_t{1} << 16;
/// Links followed before a circle is assumed, as the kernel does.
constexpr int kMaxLinks = 40;
/// Names tried for the temporary file.
constexpr int kMaxTemporaries = 100;
constexpr std::string_view kTemporaryStart = ".zorvant-";
/// A file of another machine's process may stand in a shared folder; no saving takes so long.
constexpr std::time_t kTemporaryAge = 60; ///< s

[[noreturn]] void ThrowFileError(const std::string& path, int error) {
    throw FileError(std::string(std::strerror(error)) + ": " + path);
}

std::string FolderOf(const std::string& path) { // a backslash is a letter to the system
    return path.substr(0, path.rfind('/') + 1);
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
        target = to.starts_with('/') ? to : FolderOf(target) + to;
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

/// "/dev/stdout" and the like: the number of the file that this process has open; -1: none. Opened
/// anew by its name it would be written from its start on.
int InheritedFile(const std::string& path) {
    if (path == "/dev/stdout")
        return STDOUT_FILENO;
    if (path == "/dev/stderr")
        return STDERR_FILENO;
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        int number = -1;
        const char* const end = path.data() + path.size();
        if (path.starts_with(folder) &&
            std::from_chars(path.data() + folder.size(), end, number).ptr == end)
            return number;
    }
    return -1;
}

/// A device or a pipe: there is nothing to replace. A pipe that nobody reads is refused, not waited
/// for.
void WriteThrough(const std::string& path, std::string_view bytes) {
    const int inherited = InheritedFile(path);
    const int file = inherited >= 0
                         ? fcntl(inherited, F_DUPFD_CLOEXEC, 0)
                         : fileCalls().open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK, 0);
    if (file < 0)
        ThrowFileError(path, errno);
    if (inherited < 0)
        (void)fcntl(file, F_SETFL, 0); // from here on it may wait for its reader
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

/// Removes what savings that were killed have left in a folder.
void RemoveLeftTemporaries(const std::string& folder) {
    DIR* const entries = opendir(folder.empty() ? "." : folder.c_str());
    if (entries == nullptr)
        return;
    while (const dirent* const entry = readdir(entries)) {
        const std::string_view name = entry->d_name;
        pid_t process = 0;
        if (!name.starts_with(kTemporaryStart) ||
            *std::from_chars(name.data() + kTemporaryStart.size(), name.data() + name.size(),
                             process)
                    .ptr != '-')
            continue;
        const std::string path = folder + std::string(name);
        struct stat info {};
        if (process > 0 && kill(process, 0) != 0 && errno == ESRCH &&
            lstat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) &&
            std::time(nullptr) - info.st_mtime > kTemporaryAge)
            (void)::unlink(path.c_str());
    }
    closedir(entries);
}

/// A new file in the folder. Its name does not contain the target's, which may be as long as names
/// can be.
std::string TemporaryName(const std::string& folder) {
    static int counter = 0;
    return folder + std::string(kTemporaryStart) + std::to_string(getpid()) + "-" +
           std::to_string(++counter);
}

TemporaryFile MakeTemporary(const std::string& folder, const std::string& target) {
    for (int attempt = 0; attempt < kMaxTemporaries; ++attempt) {
        TemporaryFile made{.path = TemporaryName(folder)};
        made.file =
            fileCalls().open(made.path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (made.file >= 0)
            return made;
        if (errno != EEXIST)
            break;
    }
    ThrowFileError(target, errno);
}

/// The content and what the old file's owner had set, safe on the disk. Returned: the error's
/// number.
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
        .link = ::link,
        .unlink = ::unlink,
    };
}

FileCalls& fileCalls() {
    static FileCalls calls = SystemFileCalls();
    return calls;
}

std::string ReadFile(const std::string& path) {
    // A pipe without a writer must not be waited for.
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        ThrowFileError(path, errno);
    struct stat info {};
    int error = fstat(file, &info) != 0 ? errno : S_ISDIR(info.st_mode) ? EISDIR : 0;
    if (error == 0 && !S_ISREG(info.st_mode)) {
        ::close(file);
        throw FileError("Not a regular file: " + path);
    }
    std::string bytes;
    while (error == 0) {
        const std::size_t had = bytes.size();
        bytes.resize(had + kReadBlock);
        const ssize_t got = ::read(file, bytes.data() + had, kReadBlock);
        if (got < 0 && errno != EINTR)
            error = errno;
        bytes.resize(had + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (bytes.size() > kMaxFileBytes)
            error = EFBIG;
        if (got == 0)
            break;
    }
    ::close(file);
    if (error != 0)
        ThrowFileError(path, error);
    return bytes;
}

PreparedFile::PreparedFile(const std::string& path, std::string_view bytes) : path_(path) {
    struct stat info {};
    const bool exists = stat(path.c_str(), &info) == 0;
    if (exists && S_ISDIR(info.st_mode))
        ThrowFileError(path, EISDIR);
    if ((exists && !S_ISREG(info.st_mode)) || InheritedFile(path) >= 0) {
        through_ = bytes;
        return;
    }
    target_ = FollowLinks(path);
    if (exists && access(target_.c_str(), W_OK) != 0) // a file locked against writing stays
        ThrowFileError(path, errno);
    Fill(bytes, exists ? std::optional(info) : std::nullopt);
}

PreparedFile PreparedFile::CopyOf(const std::string& from, const std::string& path) {
    PreparedFile copy;
    copy.path_ = copy.target_ = path;
    copy.temporary_ = TemporaryName(FolderOf(path));
    // The same file under a second name needs no room; not every file system has that.
    if (fileCalls().link(FollowLinks(from).c_str(), copy.temporary_.c_str()) == 0)
        return copy;
    copy.temporary_.clear();
    struct stat info {};
    if (stat(from.c_str(), &info) != 0)
        ThrowFileError(from, errno);
    copy.Fill(ReadFile(from), info);
    return copy;
}

void PreparedFile::Fill(std::string_view bytes, const std::optional<struct stat>& old) {
    const std::string folder = FolderOf(target_);
    RemoveLeftTemporaries(folder);
    const TemporaryFile made = MakeTemporary(folder, path_);
    temporary_ = made.path;
    int error = FillTemporary(made.file, bytes, old);
    if (fileCalls().close(made.file) != 0 && error == 0)
        error = errno;
    if (error != 0) {
        Discard();
        ThrowFileError(path_, error);
    }
}

void PreparedFile::Commit() {
    if (through_) {
        WriteThrough(path_, *through_);
        return;
    }
    if (fileCalls().rename(temporary_.c_str(), target_.c_str()) != 0) {
        const int error = errno;
        Discard();
        ThrowFileError(path_, error);
    }
    // Two names of one file: renaming one onto the other has left both.
    Discard();
    SyncFolder(FolderOf(target_));
}

void PreparedFile::Discard() {
    if (!temporary_.empty())
        (void)fileCalls().unlink(temporary_.c_str());
    temporary_.clear();
}

PreparedFile::PreparedFile(PreparedFile&& other) noexcept
    : path_(std::move(other.path_)), target_(std::move(other.target_)),
      temporary_(std::exchange(other.temporary_, {})), through_(std::move(other.through_)) {}

PreparedFile::~PreparedFile() {
    Discard();
}

void WriteFileAtomically(const std::string& path, std::string_view bytes) {
    PreparedFile(path, bytes).Commit();
}

bool FileExists(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0;
}

} // namespace zorvant
