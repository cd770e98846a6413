// Loading and saving of the table of measured values (.ZI3).
#pragma once

#include "engine/project_state.h"

#include <string>

namespace zorvant {

/// Reads a data file into the table.
/// Given:    path; append: the rows come behind those that are there
/// Returned: table, ExpPointCount, LambdaInf, ExpDataChanged and, unless appending, ExpComment,
///           TimeUnitText and TimeUnitOldIdx; appended rows are converted to the unit of those that
///           are there, else constants and times of the state to the unit of the rows. ok
/// Errors:   a box tells, ok is false and everything is as it was: the file can't be read, is not
///           of its format, or the rows exceed 32767
/// FuCheckExpData is the caller's to run.
void LoadExpFile(ProjectState& ps, const std::string& path, bool append, bool& ok);

/// Writes the table whole, or leaves the file as it was; the version before stays as `name~`.
/// Errors: a box tells, ok is false.
void WriteDataFile(const ProjectState& ps, const std::string& path, bool& ok);

/// What the head of a data file says, for previews.
/// Errors: a box tells, ok is false.
void ViewExpFile(const std::string& path, std::string& comment, std::string& timeUnit, int& count,
                 bool& ok);

/// The commands "load" and "append": asks for the file, clears unless appending, loads, counts.
/// Returned: ok: loaded; cancelled: the user chose none, and nothing changed. After a failure the
///           name of the file is not taken, only its folder: a save must not offer to overwrite it
void LoadExpDialog(ProjectState& ps, bool append, bool& ok, bool& cancelled);

/// Asks for a name and saves.
/// Returned: file: the chosen name; cancelled: no name was chosen, or it could not be written
void SaveExpDialog(ProjectState& ps, std::string& file, bool& cancelled);

/// The question on leaving with changed data; Yes saves.
/// Returned: cancelled: the user chose Cancel here or in the choice of the file, or saving failed
void AskSaveExpData(ProjectState& ps, std::string& file, bool& cancelled);

} // namespace zorvant
