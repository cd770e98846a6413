// The commands that load and save: projects, measured values, the last session at the exit.
#pragma once

#include "shell/commands.h"

#include <string>

namespace zorvant {

void mnuLoadLastSession_Click(MDIZOR& form);
void mnuLoadProject_Click(MDIZOR& form);
void mnuSaveProject_Click(MDIZOR& form);
/// Saves the project under the name that it has, without a question; one without a name as
/// mnuSaveProject_Click does.
void SaveUnderKnownName(MDIZOR& form);
void mnuNeudat_Click(MDIZOR& form);
void mnuEditDat_Click(MDIZOR& form);
/// Saves what has to be saved, writes the last session and ends the program; also run when the
/// window is closed. Can't be refused; a second call while it runs does nothing.
void mnuExit_Click(MDIZOR& form);

/// Loads a project as the command does, without the question for its name.
void OpenProject(MDIZOR& form, const std::string& path);
/// What follows when a project has been read: its commands, its data, the model dialog, the status.
/// Given: dataFile: named by the project, may be empty
void TakeLoadedProject(MDIZOR& form, const std::string& path, const std::string& dataFile,
                       const std::string& heading);

} // namespace zorvant
