// Pictures and tables without a window: the same dialogs that a user opens, pressed in order.
#pragma once

#include "diagrams/plot_surface.h"
#include "shell/command_line.h"

#include <functional>

namespace zorvant {

inline constexpr int kSuccess = 0, kFailure = 2; ///< exit status

/// Draws a diagram into the file that the command line names. Errors: FileError
using DrawPicture = std::function<void(PlotSurface&, const CommandLine&)>;

/// Loads the project with its measured values, computes its course and writes what was asked for.
/// The measured points are in the diagram where the project has some for it; the table is the text
/// alone, without the quotes that the window's file has.
/// Returned: the exit status; what went wrong stands on standard error, and then no file of the
///           two was begun before both were ready
int RunExport(const CommandLine& line, const DrawPicture& draw);

} // namespace zorvant
