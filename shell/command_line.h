// What the user asked for when starting the program.
#pragma once

#include "diagrams/picture_output.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace zorvant {

inline constexpr int kPictureWidth = 900, kPictureHeight = 600; ///< logical pixels

/// A call that can't be understood; what() says why.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

enum class Task { Window, Export, Help, Version };

struct CommandLine {
    Task task = Task::Window;
    std::string project; ///< empty: none was named
    std::string picture; ///< --export; empty: none
    std::string table;   ///< --table; empty: none
    bool rates = false;  ///< --rates: r(t) instead of c(t)
    bool michaelis = false;
    int width = kPictureWidth, height = kPictureHeight; ///< logical pixels
    double scale = 1;                                   ///< pixels of a bitmap to a logical pixel
};

/// Reads the arguments behind the program's name. Whatever does not start with "--" is the name of
/// the project, double quotes taken out; several words of it belong together.
/// Errors: UsageError: an unknown option, a missing or impossible value, an export without project
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

std::string HelpText();

} // namespace zorvant
