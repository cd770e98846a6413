#include "platform/files.h"

#include "platform/file_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
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

// Windows-1252 0x80..0x9F; the five places that it leaves open stand for the control characters of
// the same numbers, so that any bytes come back unchanged.
constexpr std::array<std::uint16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

struct CodePoint {
    unsigned code = 0;
    std::size_t length = 0; ///< bytes; 0: not well formed
};

/// The character at the head of a text that is not empty.
CodePoint HeadOf(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(0);
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return {};
    unsigned code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return {};
        code = code << 6 | (byte(i) & 0x3FU);
    }
    constexpr std::array<unsigned, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < kSmallest[length] || code > 0x10FFFF || surrogate ? CodePoint{}
                                                                    : CodePoint{code, length};
}

/// Returned: nothing where a character does not fit.
std::optional<std::string> Windows1252Of(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!utf8.empty()) {
        const CodePoint head = HeadOf(utf8);
        utf8.remove_prefix(head.length);
        if (head.code < 0x80 || (head.code >= 0xA0 && head.code <= 0xFF)) {
            bytes += static_cast<char>(head.code);
            continue;
        }
        const auto place = std::ranges::find(kWindows1252, head.code);
        if (place == kWindows1252.end())
            return std::nullopt;
        bytes += static_cast<char>(0x80 + (place - kWindows1252.begin()));
    }
    return bytes;
}

bool IsAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
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

void AppendUtf8(std::string& text, unsigned codePoint) {
    if (codePoint < 0x80) {
        text += static_cast<char>(codePoint);
        return;
    }
    const unsigned following = codePoint < 0x800 ? 1 : codePoint < 0x10000 ? 2 : 3;
    constexpr std::array<unsigned, 4> kLead = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(kLead[following] | codePoint >> 6 * following);
    for (unsigned i = following; i-- > 0;)
        text += static_cast<char>(0x80 | (codePoint >> 6 * i & 0x3F));
}

bool FileExists(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0;
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const CodePoint head = HeadOf(bytes);
        if (head.length == 0)
            return false;
        bytes.remove_prefix(head.length);
    }
    return true;
}

std::string DecodeText(std::string_view bytes) {
    if (IsUtf8(bytes)) {
        if (bytes.starts_with(kUtf8Mark))
            bytes.remove_prefix(kUtf8Mark.size());
        return std::string(bytes);
    }
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const unsigned byte = static_cast<unsigned char>(c);
        AppendUtf8(text, byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : byte);
    }
    return text;
}

std::string EncodeText(std::string_view utf8) {
    if (!IsUtf8(utf8) || IsAscii(utf8))
        return std::string(utf8);
    // Few texts in Windows-1252 happen to be valid UTF-8 as well and would be read as that.
    const std::optional<std::string> bytes = Windows1252Of(utf8);
    if (bytes && !IsUtf8(*bytes))
        return *bytes;
    // A text that itself begins with a mark gets one more, since reading drops one.
    return (utf8.starts_with(kUtf8Mark) ? std::string(kUtf8Mark) : std::string()) +
           std::string(utf8);
}

std::string FileName(std::string_view path) {
    return std::string(path.substr(path.find_last_of("/\\") + 1));
}

std::string DirectoryOf(std::string_view path) {
    return std::string(path.substr(0, path.find_last_of("/\\") + 1));
}

std::string JoinPath(std::string_view directory, std::string_view name) {
    std::string path(directory);
    if (!path.empty() && path.back() != '/' && path.back() != '\\')
        path += '/';
    return path.append(name);
}

} // namespace zorvant
