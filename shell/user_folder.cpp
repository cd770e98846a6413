#include "shell/user_folder.h"

#include "platform/files.h"

#include <cstdlib>
#include <filesystem>

#include <unistd.h>

namespace zorvant {

std::string UserDataFolder() {
    const char* const data = std::getenv("XDG_DATA_HOME");
    const char* const home = std::getenv("HOME");
    std::filesystem::path folder;
    if (data != nullptr && *data == '/') // a relative one does not count
        folder = data;
    else if (home != nullptr && *home != '\0')
        folder = std::filesystem::path(home) / ".local" / "share";
    else
        return {};
    folder /= "zorvant";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return std::filesystem::is_directory(folder, error) ? folder.string() : std::string();
}

std::string SessionFolder(const std::string& programFolder) {
    if (access(programFolder.c_str(), W_OK) == 0)
        return programFolder;
    const std::string own = UserDataFolder();
    return own.empty() ? programFolder : own;
}

} // namespace zorvant
