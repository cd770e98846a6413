#include "data/previous_version.h"

#include "platform/files.h"

#include <filesystem>

namespace zorvant {

void WriteKeepingPrevious(const std::string& path, std::string_view bytes) {
    std::error_code none;
    if (std::filesystem::is_regular_file(path, none)) { // a device has no version before
        // A copy, not a new name: the file itself must stand at every moment.
        const std::string before = ReadFile(path);
        if (before != bytes)
            WriteFileAtomically(path + "~", before);
    }
    WriteFileAtomically(path, bytes);
}

} // namespace zorvant
