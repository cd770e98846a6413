// Pictures and tables without a window: the same dialogs that a user opens, pressed in order.
#pragma once

#include "diagrams/plot_surface.h"
#include "shell/command_line.h"

#include <functional>

namespace zorvant {

inline constexpr int kSuccess = 0, kFailure = 2; ///< exit status

/// The bytes of the picture that the command line asks for. Errors: FileError
using DrawPicture = std::function<std::string(PlotSurface&, const CommandLine&)>;

/// Loads the project with its measured values, computes its course and writes what was asked for.
/// The measured points are in the diagram where the project has some for it; the table is the text
/// alone, without the quotes that the window's file has.
/// Returned: the exit status; what went wrong stands on standard error, and then neither file was
///           replaced: both are ready before, and neither may be an input or the other
int RunExport(const CommandLine& line, const DrawPicture& draw);

} // namespace zorvant
