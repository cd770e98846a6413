#include "platform/paths.h"

namespace zorvant {
namespace {

constexpr const char* kSeparators = "/\\";

} // namespace

bool HasFolder(std::string_view path) {
    return path.find_first_of(kSeparators) != std::string_view::npos;
}

std::string FileName(std::string_view path) {
    return std::string(path.substr(path.find_last_of(kSeparators) + 1));
}

std::string DirectoryOf(std::string_view path) {
    return std::string(path.substr(0, path.find_last_of(kSeparators) + 1));
}

std::string JoinPath(std::string_view directory, std::string_view name) {
    std::string path(directory);
    if (!path.empty() && path.find_last_of(kSeparators) != path.size() - 1)
        path += '/';
    return path.append(name);
}

} // namespace zorvant
