#include "data/protocol_name.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <cstdio>
#include <ctime>

namespace zorvant {
namespace {

/// Files of one day; whoever has so many finds the search slow first.
constexpr int kLastNumber = 99999;

} // namespace

std::string ProtocolPath(const ProjectState& ps) {
    if (HasFolder(ps.ProtocolFile))
        return ps.ProtocolFile;
    return JoinPath(ps.ProgramDir, ps.ProtocolFile);
}

CalendarDay Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

std::string NextProtocolName(const CalendarDay& day,
                             const std::function<bool(const std::string&)>& exists) {
    for (int n = 1; n <= kLastNumber; ++n) {
        char name[64];
        std::snprintf(name, sizeof name, "%02d%02d%02d%02d.CSV", day.year % 100, day.month, day.day,
                      n);
        if (!exists(name))
            return name;
    }
    throw FileError("No free name for a protocol file.");
}

std::string NextProtocolName(const ProjectState& ps) {
    return NextProtocolName(Today(), [&ps](const std::string& name) {
        return FileExists(JoinPath(ps.ProgramDir, name));
    });
}

} // namespace zorvant
