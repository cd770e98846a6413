// Loading and saving of projects and of the last session (.ZC3).
#pragma once

#include "engine/modes.h"
#include "engine/project_state.h"

#include <functional>
#include <string>

namespace zorvant {

/// Asks for the comment of a project that is being saved; leaves it in ProjectComment. The dialog
/// that asks puts itself here; without one the comment stays.
std::function<void(ProjectState&)>& commentQuestion();

/// Writes the project; asks for its comment unless it is the last session.
/// Given:    open: the calculation whose dialog is open, which the file notes
/// Returned: whether the file was written; else a box told why and the old file stands. A last
///           session in which nothing was done is not written over another one; the one before is
///           kept as `name~`
bool FuSaveProjectFile(ProjectState& ps, const std::string& path, CalcTask open = CalcTask::None);

/// Reads a project into the state.
/// Returned: dataFile: the name of its data file, empty without one or (told in a box) when it is
///           not of the type; ok
/// Errors:   a box tells, ok is false; the fields read until then have their new values
void FuLoadProjectFile(ProjectState& ps, const std::string& path, std::string& dataFile, bool& ok);

/// The first lines of a project, for previews.
/// Errors: a box tells, ok is false.
void FuViewProjectFile(const std::string& path, std::string& date, std::string& comment,
                       std::string& dataFile, bool& ok);

/// The command "save project": asks for a name and saves. A cancel changes nothing.
void FuSaveProjectDialog(ProjectState& ps, CalcTask open);

/// Asks for a project and reads it.
/// Returned: path: the chosen file; dataFile, ok as FuLoadProjectFile; cancelled
void FuLoadProjectDialog(ProjectState& ps, std::string& path, std::string& dataFile, bool& ok,
                         bool& cancelled);

/// Where the data file of a project is: beside the project, else in the program's folder for the
/// last session, else in the folder from which the program was started. A folder in the name is
/// not followed; where no name fits letter by letter, one that differs in case alone does.
/// Returned: the place beside the project when there is none.
std::string FindDataFile(const ProjectState& ps, const std::string& projectPath,
                         const std::string& dataFile);

/// The measured values of a loaded project: finds, loads and counts them, takes the initial
/// concentrations from them.
/// Given:    dataFile: as FuLoadProjectFile brought it; empty: the table stays
///           mayAsk: whether the user may be asked where a file is that is not found
/// Returned: whether data were loaded; DataIsSession; then DataFilePath, DataFileTitle, DataDir.
///           After a failure, which a box told, DataFilePath is empty and the table as it was
bool LoadDataOfProject(ProjectState& ps, const std::string& projectPath,
                       const std::string& dataFile, bool mayAsk = true);

} // namespace zorvant
