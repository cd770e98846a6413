#include "data/folder_list.h"

#include "platform/files.h"
#include "platform/number_text.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace zorvant {
namespace {

/// Greedy match of one pattern; on a mismatch the last * takes one character more.
bool FitsOne(std::string_view name, std::string_view pattern) {
    std::size_t n = 0, p = 0, starPattern = std::string_view::npos, starName = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            starPattern = p++;
            starName = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (starPattern != std::string_view::npos) {
            p = starPattern + 1;
            n = ++starName;
        } else {
            return false;
        }
    }
    return pattern.substr(p).find_first_not_of('*') == std::string_view::npos;
}

void SortByName(std::vector<std::string>& names) {
    std::ranges::sort(names, [](const std::string& a, const std::string& b) {
        const std::string upperA = UpperCase(a), upperB = UpperCase(b);
        return upperA != upperB ? upperA < upperB : a < b;
    });
}

} // namespace

bool FitsPattern(std::string_view name, std::string_view pattern) {
    if (Trim(pattern).empty())
        return true;
    const std::string upperName = UpperCase(name);
    std::size_t from = 0;
    while (from <= pattern.size()) {
        const std::size_t end = std::min(pattern.find(';', from), pattern.size());
        const std::string one = UpperCase(Trim(pattern.substr(from, end - from)));
        if (one == "*.*" || FitsOne(upperName, one))
            return true;
        from = end + 1;
    }
    return false;
}

FolderList ListFolder(const std::string& path, std::string_view pattern) {
    namespace fs = std::filesystem;
    std::error_code error;
    FolderList list;
    const fs::path folder = fs::weakly_canonical(path.empty() ? "." : path, error);
    list.path = error ? path : folder.string();
    fs::directory_iterator entry(list.path, error);
    if (error)
        throw FileError(error.message() + ": " + list.path);
    while (entry != fs::directory_iterator()) {
        const std::string name = entry->path().filename().string();
        std::error_code ignored;
        if (name.starts_with('.')) {
        } else if (entry->is_directory(ignored)) {
            list.folders.push_back(name);
        } else if (FitsPattern(name, pattern)) {
            list.files.push_back(name);
        }
        entry.increment(error);
        if (error)
            break;
    }
    SortByName(list.folders);
    SortByName(list.files);
    return list;
}

std::string FuShortPath(const std::string& path, int width) {
    const auto most = static_cast<std::size_t>(std::max(width, 6));
    if (path.size() <= most)
        return path;
    const std::size_t rest = path.find_first_of("/\\", path.size() - most + 6);
    return path.substr(0, 3) + "..." + (rest == std::string::npos ? "" : path.substr(rest));
}

} // namespace zorvant
