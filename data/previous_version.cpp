#include "data/previous_version.h"

#include "platform/files.h"

#include <filesystem>

namespace zorvant {

void WriteKeepingPrevious(const std::string& path, std::string_view bytes) {
    std::error_code none;
    const bool replaces = std::filesystem::is_regular_file(path, none) && ReadFile(path) != bytes;
    // All that needs room is done before the older version goes: a full disk costs neither.
    PreparedFile fresh(path, bytes);
    if (replaces)
        PreparedFile::CopyOf(path, path + "~").Commit();
    fresh.Commit();
}

} // namespace zorvant
