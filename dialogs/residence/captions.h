// The captions of the residence-time dialog that change with what is chosen in it.
#pragma once

#include "engine/project_state.h"

#include <string>

namespace zorvant {

/// Captions that follow the number of tanks and the time unit.
struct VerweilCaptions {
    std::string flow;   ///< "volume flow V*/m^3/s)"
    std::string tm;     ///< "mean resid. time tm/s"
    std::string vessel; ///< "ideal cont. stirred tank"
};
VerweilCaptions MakeVerweilCaptions(const ProjectState& ps);
/// Captions that follow the choice of the x axis.
struct AxisCaptions {
    const char* frame;
    const char* buttonE;
    const char* buttonF;
};
const AxisCaptions& MakeAxisCaptions(bool xAchseZeit);

} // namespace zorvant
