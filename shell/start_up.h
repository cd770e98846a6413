// From the start of the program to a window that shows the state, in three steps.
#pragma once

#include "shell/commands.h"

#include <string>

namespace zorvant {

/// Start values, the model dialog, the first places of the dialogs.
void MDIZOR_Load(MDIZOR& form);
/// The second step, when the window stands: the project named on the command line.
/// Given: commandLine   a path, double quotes in it are dropped; empty: none. The name of a file
///                      that can't be read is forgotten: saving must not offer it
void OpenCommandLine(MDIZOR& form, const std::string& commandLine);
/// The last step: data that a crash has left are offered and shown in their editor.
void OfferLostData(MDIZOR& form);

} // namespace zorvant
