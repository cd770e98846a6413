#include "data/project_file.h"

#include "data/exp_data.h"
#include "data/exp_file.h"
#include "data/file_dialog.h"
#include "data/formats/zc3.h"
#include "data/previous_version.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>

namespace zorvant {
namespace {

constexpr std::string_view kLastSessionEnd = "ZORLASTSESSION.ZC3";

/// The code of the open calculation in the file.
struct WindowCode {
    int code;
    CalcTask task;
};
constexpr std::array<WindowCode, 6> kWindowCodes = {{{1, CalcTask::TimeDiagram},
                                                     {2, CalcTask::Batch},
                                                     {3, CalcTask::Tubular},
                                                     {4, CalcTask::Cstr},
                                                     {5, CalcTask::Cascade},
                                                     {6, CalcTask::Fitting}}};

bool IsLastSession(const std::string& path) {
    return EndsWith(UpperCase(path), kLastSessionEnd);
}

int CodeOf(CalcTask open) {
    const auto found = std::ranges::find(kWindowCodes, open, &WindowCode::task);
    return found == kWindowCodes.end() ? 0 : found->code;
}

Zc3File ProjectOf(const ProjectState& ps, CalcTask open) {
    Zc3File file;
    file.date = host().dateAndTime();
    file.comment = ps.ProjectComment;
    file.dataFile = FileName(ps.DataFilePath);
    if (ps.ModelId != kKindBloodAlcohol) // that is none of the models
        file.model = IsEnzymeModel(ps.ModelId) && ps.RcSMode ? kEnzymeWithRcS : ps.ModelId;
    for (std::size_t i = 0; i < file.k.size(); ++i)
        file.k[i] = ps.k[i + 1];
    file.window = CodeOf(open);
    for (std::size_t i = 0; i < file.c0.size(); ++i)
        file.c0[i] = ps.c0[i + 1];
    file.scaleSpecies = ps.ScaleSpecies;
    file.scaleOneSpecies = ps.ScaleOneSpecies;
    file.tMax = ps.tMax;
    file.tVerweil = ps.tVerweil;
    file.timeUnit = ps.TimeUnitText;
    return file;
}

/// Writes a field where the file had one.
template <class Field, class Value> void Take(Field& field, const std::optional<Value>& value) {
    if (value)
        field = *value;
}

void TakeProject(ProjectState& ps, const Zc3File& file) {
    if (file.timeUnit)
        TakeUnitOfConstants(ps, *file.timeUnit);
    Take(ps.ProjectComment, file.comment);
    if (file.model) {
        ps.RcSMode = *file.model == kEnzymeWithRcS;
        ps.ModelId = ps.RcSMode ? kEnzymeModel : *file.model;
    }
    for (std::size_t i = 0; i < file.k.size(); ++i)
        Take(ps.k[i + 1], file.k[i]);
    for (std::size_t i = 0; i < file.c0.size(); ++i)
        Take(ps.c0[i + 1], file.c0[i]);
    Take(ps.ScaleSpecies, file.scaleSpecies);
    Take(ps.ScaleOneSpecies, file.scaleOneSpecies);
    Take(ps.tMax, file.tMax);
    Take(ps.tVerweil, file.tVerweil);
}

/// The file of this name in the folder, in any case when there is none of just this one.
/// Returned: "" when there is none.
std::string FindInFolder(const std::string& folder, const std::string& name) {
    const std::string exact = folder + name;
    if (FileExists(exact))
        return exact;
    std::error_code error;
    std::filesystem::directory_iterator entries(folder.empty() ? "." : folder, error), end;
    for (; !error && entries != end; entries.increment(error))
        if (const std::string found = entries->path().filename().string();
            UpperCase(found) == UpperCase(name))
            return folder + found;
    return {};
}

/// A project knows its data by name alone; the user may know the folder.
/// Returned: "" when the user does not.
std::string AskWhereDataAre(const ProjectState& ps, const std::string& missing) {
    std::string reason;
    try {
        (void)ReadFile(missing);
    } catch (const FileError& error) {
        reason = error.what();
    }
    if (Ask(JoinLines({reason, "", "Look for it in another folder?"}),
            "message from Sub LoadExpFile", Icon::Critical, Buttons::YesNo) != Answer::Yes)
        return {};
    std::string path = missing, name, directory = ps.DataDir;
    bool cancelled = true;
    FuFileDialog(path, name, directory, "*.ZI3", "Where is " + FileName(missing) + "?", cancelled);
    return cancelled ? std::string() : path;
}

/// A project without its first line, which says when it was saved.
std::string_view WhatIsSaved(std::string_view bytes) {
    return bytes.substr(std::min(bytes.find('\n'), bytes.size()));
}

/// The project of a program that was just started: the model dialog has filled in its defaults.
Zc3File FreshProject(CalcTask open) {
    ProjectState fresh;
    InitProjectState(fresh);
    SelectionDefaultTimes(fresh);
    SelectionDefaultConcentrations(fresh);
    SelectionDefaultConstants(fresh);
    return ProjectOf(fresh, open);
}

/// The last session takes the place of another one only where something was done in it, and the one
/// before stays beside it.
void WriteSession(const std::string& path, const std::string& bytes, CalcTask open) {
    std::string before;
    if (FileExists(path))
        before = ReadFile(path);
    if (!before.empty() && WhatIsSaved(bytes) == WhatIsSaved(WriteZc3(FreshProject(open))))
        return;
    if (WhatIsSaved(bytes) == WhatIsSaved(before))
        WriteFileAtomically(path, bytes);
    else
        WriteKeepingPrevious(path, bytes);
}

} // namespace

std::function<void(ProjectState&)>& commentQuestion() {
    static std::function<void(ProjectState&)> question = [](ProjectState&) {};
    return question;
}

bool FuSaveProjectFile(ProjectState& ps, const std::string& path, CalcTask open) {
    const bool session = IsLastSession(path);
    if (!session)
        commentQuestion()(ps);
    try {
        const std::string bytes = WriteZc3(ProjectOf(ps, open));
        session ? WriteSession(path, bytes, open) : WriteFileAtomically(path, bytes);
        return true;
    } catch (const FileError& error) {
        ShowMessage(error.what(),
                    std::string("Error while saving the session file") + kCrLf +
                        "(possibly missing write permissions)",
                    Icon::Critical);
        return false;
    }
}

void FuLoadProjectFile(ProjectState& ps, const std::string& path, std::string& dataFile, bool& ok) {
    ok = false;
    dataFile.clear();
    Zc3Reading reading;
    try {
        reading = ParseZc3(ReadFile(path));
    } catch (const FileError& error) {
        reading.error = error.what();
    }
    dataFile = reading.file.dataFile.value_or("");
    if (!dataFile.empty() && !EndsWith(UpperCase(dataFile), "ZI3")) {
        ShowMessage("data file is not of the type *.ZI3 and cannot be loaded", "WARNING",
                    Icon::Warning);
        dataFile.clear();
    }
    TakeProject(ps, reading.file);
    ok = !reading.error;
    if (!ok)
        ShowMessage(*reading.error, "Execution not possible", Icon::Critical);
}

void FuViewProjectFile(const std::string& path, std::string& date, std::string& comment,
                       std::string& dataFile, bool& ok) {
    ok = false;
    try {
        const Zc3File head = ParseZc3Head(ReadFile(path));
        date = *head.date;
        comment = *head.comment;
        dataFile = *head.dataFile;
        ok = true;
    } catch (const std::runtime_error& error) { // FileError, FormatError
        ShowMessage(error.what(), "ERROR", Icon::Critical);
    }
}

void FuSaveProjectDialog(ProjectState& ps, CalcTask open) {
    const std::optional<FileChoice> choice = host().chooseFile({
        .save = true,
        .title = "Save the actual project as ...",
        .directory = ps.ProjectDir,
        .name = ps.ProjectFile,
        .extension = ".ZC3",
        .filters = {{"ZORVANT project file (*.ZC3)", "*.ZC3"}},
        .overwritePrompt = true,
    });
    if (!choice || choice->path.empty() || !FuSaveProjectFile(ps, choice->path, open))
        return;
    ps.ProjectFile = choice->path;
    ps.ProjectTitle = FileName(choice->path);
    ps.ProjectDir = DirectoryOf(choice->path);
}

void FuLoadProjectDialog(ProjectState& ps, std::string& path, std::string& dataFile, bool& ok,
                         bool& cancelled) {
    ok = false;
    path = ps.ProjectFile;
    std::string name, directory = ps.ProjectDir;
    FuFileDialog(path, name, directory, "*.ZC3", "Load a project (*.ZC3)", cancelled);
    if (cancelled)
        return;
    ps.ProjectTitle = name;
    ps.ProjectDir = directory;
    FuLoadProjectFile(ps, path, dataFile, ok);
    if (ok)
        ps.ProjectFile = path;
}

std::string FindDataFile(const ProjectState& ps, const std::string& projectPath,
                         const std::string& dataFile) {
    const std::string name = FileName(dataFile);
    const std::string beside = DirectoryOf(projectPath);
    const bool session = IsLastSession(projectPath);
    const std::array<std::string, 3> folders = {
        beside, session && !ps.ProgramDir.empty() ? JoinPath(ps.ProgramDir, "") : beside,
        std::string()}; // where the program was started
    for (const std::string& folder : folders) {
        const std::string found = FindInFolder(folder, name);
        if (!found.empty())
            return found;
    }
    return beside + name;
}

bool LoadDataOfProject(ProjectState& ps, const std::string& projectPath,
                       const std::string& dataFile, bool mayAsk) {
    ps.DataIsSession = IsLastSession(projectPath);
    if (dataFile.empty())
        return false;
    std::string path = FindDataFile(ps, projectPath, dataFile);
    if (mayAsk && !FileExists(path))
        path = AskWhereDataAre(ps, path);
    bool ok = false;
    if (!path.empty())
        LoadExpFile(ps, path, false, ok);
    if (!ok) {
        ps.DataFilePath.clear();
        return false;
    }
    ps.DataFilePath = path;
    ps.DataFileTitle = FileName(path);
    ps.DataDir = DirectoryOf(path);
    FuCheckExpData(ps);
    FuInitialValuesFromData(ps);
    return true;
}

} // namespace zorvant
