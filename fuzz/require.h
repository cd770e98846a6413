// What a fuzz target holds: a failing condition ends the run, so that the input is kept.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace zorvant {

inline void Require(bool condition, const char* what) {
    if (condition)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

} // namespace zorvant
