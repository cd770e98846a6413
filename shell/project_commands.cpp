#include "shell/project_commands.h"

#include "data/exp_data.h"
#include "data/exp_file.h"
#include "data/project_file.h"
#include "data/protocol.h"
#include "dialogs/common/calc_dialog.h"
#include "dialogs/common/names.h"
#include "dialogs/common/time_unit_change.h"
#include "dialogs/data/frm_datedit.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/paths.h"
#include "shell/command_steps.h"
#include "shell/project_status.h"

#include <filesystem>
#include <utility>

namespace zorvant {
namespace {

/// Replaces the table so that the editor can take it back.
/// Given: timeUnit: of the times that stand in the table
void ReplaceData(MDIZOR& form, const std::string& name, ListState::Extent extent,
                 const std::string& timeUnit, const Handler& replace) {
    if (auto* const editor =
            dynamic_cast<frmDatedit*>(FindForm(form.ps.desktop, name::kDataEditor)))
        ReplaceTable(*editor, name, extent, timeUnit, replace);
    else
        replace();
}

/// Beside the program, in the tree of an installation or of the sources; without one the program's
/// own folder.
std::string ExamplesFolder(const std::string& programFolder) {
    for (const char* place : {"examples", "../examples", "../share/zorvant/examples"}) {
        std::error_code error;
        const auto folder = std::filesystem::canonical(JoinPath(programFolder, place), error);
        if (!error && std::filesystem::is_directory(folder, error))
            return JoinPath(folder.string(), "");
    }
    return programFolder;
}

} // namespace

void TakeLoadedProject(MDIZOR& form, const std::string& path, const std::string& dataFile,
                       const std::string& heading) {
    Enable(form, {"mnuNeudat", "mnuSaveProject"});
    EnableTools(form, {14, 8});
    if (!dataFile.empty()) {
        Enable(form, {"mnuEditDat"});
        EnableTools(form, {16});
    }
    ReplaceData(form, "loading project data", ListState::Extent::Data, form.ps.TimeUnitText,
                [&] { LoadDataOfProject(form.ps, path, dataFile); });
    TellUnitOfData(form.ps);
    ReopenModelDialog(form);
    ShowProjectStatus(form.ps, form.ps.DataFilePath, heading);
}

void OpenProject(MDIZOR& form, const std::string& path) {
    Unload(form, name::kBloodAlcohol);
    std::string dataFile;
    bool ok = false;
    FuLoadProjectFile(form.ps, path, dataFile, ok);
    if (!ok)
        return;
    form.ps.ProjectFile = path;
    form.ps.ProjectTitle = FileName(path);
    form.ps.ProjectDir = DirectoryOf(path);
    TakeLoadedProject(form, path, dataFile, "Project file  " + path);
}

void mnuLoadLastSession_Click(MDIZOR& form) {
    Unload(form, name::kBloodAlcohol);
    if (!FileExists(form.ps.LastSessionFile)) {
        ShowMessage("There is no last session yet.\r\nIt is saved when the program ends.",
                    "Load last session", Icon::Information);
        return;
    }
    std::string dataFile;
    bool ok = false;
    FuLoadProjectFile(form.ps, form.ps.LastSessionFile, dataFile, ok);
    if (!ok)
        return;
    TakeLoadedProject(form, form.ps.LastSessionFile, dataFile, "");
}

void mnuLoadProject_Click(MDIZOR& form) {
    Unload(form, name::kBloodAlcohol);
    Workspace& ps = form.ps;
    const std::string before = ps.ProjectDir;
    if (ps.ProjectFile.empty() && before == ps.ProgramDir)
        ps.ProjectDir = ExamplesFolder(ps.ProgramDir);
    std::string path, dataFile;
    bool ok = false, cancelled = false;
    FuLoadProjectDialog(ps, path, dataFile, ok, cancelled);
    if (cancelled || !ok) {
        ps.ProjectDir = before;
        return;
    }
    TakeLoadedProject(form, path, dataFile, "Project file  " + path);
}

void mnuSaveProject_Click(MDIZOR& form) {
    Unload(form, name::kBloodAlcohol);
    FuSaveProjectDialog(form.ps, OpenCalculation(form.ps));
}

void SaveUnderKnownName(MDIZOR& form) {
    Workspace& ps = form.ps;
    if (ps.ProjectFile.empty()) {
        mnuSaveProject_Click(form);
        return;
    }
    Unload(form, name::kBloodAlcohol);
    const auto question = std::exchange(commentQuestion(), [](ProjectState&) {});
    if (FuSaveProjectFile(ps, ps.ProjectFile, OpenCalculation(ps)))
        form.savedNote = "     saved: " + FileName(ps.ProjectFile) + ", " + host().dateAndTime();
    commentQuestion() = question;
}

void mnuNeudat_Click(MDIZOR& form) {
    Unload(form, name::kBloodAlcohol);
    Workspace& ps = form.ps;
    const std::string question =
        Lines({"New data input is expected;", "an existing set of data will be deleted.", "",
               "Would you like that?"});
    if (ps.ExpPointCount > 0 &&
        Ask(question, "WARNING", Icon::Warning, Buttons::YesNo, Answer::No) == Answer::No)
        return;
    ReplaceData(form, "new data", ListState::Extent::File, ps.TimeUnitText, [&] {
        FuClearExpData(ps);
        ps.ExpData.assign(2, {});
        ps.LambdaInf = ps.LambdaZero = 0;
        ps.ExpComment.clear();
        CheckExpData(ps);
    });
    Unload(form, name::kDataEditor);
    Show(form, name::kDataEditor);
}

void mnuEditDat_Click(MDIZOR& form) {
    Unload(form, name::kBloodAlcohol);
    if (form.ps.ExpPointCount > 0)
        Show(form, name::kDataEditor);
}

namespace {

/// Closing is a stop to whatever still runs in a dialog.
void CloseAllDialogs(MDIZOR& form) {
    const std::vector<Form*> open = form.ps.desktop.order;
    for (auto each = open.rbegin(); each != open.rend(); ++each)
        if (*each != &form)
            UnloadForm(form.ps.desktop, **each);
}

} // namespace

void mnuExit_Click(MDIZOR& form) {
    if (form.exiting)
        return;
    form.exiting = true;
    Workspace& ps = form.ps;
    bool cancelled = false;
    if (ps.ExpDataChanged && ps.ExpPointCount > 0) {
        std::string file;
        AskSaveExpData(ps, file, cancelled); // whatever the answer, the exit goes on
    }
    Unload(form, name::kBloodAlcohol); // its own model is none that a session can keep
    form.tmrRecovery.interval = 0;
    RecoveryKeeper& data = form.recoveries.front();
    cancelled ? data.Keep() : data.Remove(); // nothing is lost: the next start offers the data
    FuSaveProjectFile(ps, ps.LastSessionFile, OpenCalculation(ps));
    DeleteEmptyProtocol(ps);
    CloseAllDialogs(form);
    // Likewise a list whose closing was cancelled, though the exit can't be.
    for (std::size_t i = 1; i < form.recoveries.size(); ++i)
        form.recoveries[i].Keep();
    host().closeHelp();
    host().quit();
}

} // namespace zorvant
