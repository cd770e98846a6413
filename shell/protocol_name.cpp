#include "shell/protocol_name.h"

#include "platform/files.h"

#include <ctime>

namespace zorvant {

std::string DateDigits() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[8];
    const std::size_t length = std::strftime(text, sizeof text, "%y%m%d", &local);
    return {text, length};
}

std::string NextProtocolName(const std::string& directory, const std::string& dateDigits) {
    for (int number = 1;; ++number) {
        const std::string name =
            dateDigits + (number < 10 ? "0" : "") + std::to_string(number) + ".CSV";
        if (!FileExists(JoinPath(directory, name)))
            return name;
    }
}

} // namespace zorvant
