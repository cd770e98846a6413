// Where the file of the log stands, and its automatic name.
#pragma once

#include "engine/project_state.h"

#include <functional>
#include <string>

namespace zorvant {

/// Where the protocol file stands: in the program's folder unless its name has a path.
std::string ProtocolPath(const ProjectState& ps);

/// A day of the calendar.
struct CalendarDay {
    int year = 0, month = 0, day = 0;
};
CalendarDay Today();

/// The next free automatic file name.
/// Given:    exists  whether a file of this name is there
/// Returned: YYMMDDnn.CSV, nn from 01; from the hundredth file of a day on with more digits
/// Errors:   FileError after 99999 files of a day
std::string NextProtocolName(const CalendarDay& day,
                             const std::function<bool(const std::string&)>& exists);
/// The same for today in the program's folder.
std::string NextProtocolName(const ProjectState& ps);

} // namespace zorvant
