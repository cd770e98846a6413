#include "shell/start_up.h"

#include "data/project_file.h"
#include "data/protocol_name.h"
#include "dialogs/common/names.h"
#include "dialogs/common/time_unit_change.h"
#include "dialogs/data/frm_zxy_editor.h"
#include "platform/paths.h"
#include "shell/command_steps.h"
#include "shell/project_commands.h"
#include "shell/user_folder.h"
#include "simulations/blood_alcohol.h"

namespace zorvant {
namespace {

void PlaceDialogs(const Desktop& desktop) {
    for (const StartPosition& place : StartPositions())
        if (Form* const dialog = FindForm(desktop, place.form)) {
            dialog->left = place.left;
            dialog->top = place.top;
        }
}

void KeepUnsavedWork(MDIZOR& form) {
    form.recoveries.clear();
    form.recoveries.emplace_back(form.ps, DataRecovery(form.ps));
    if (auto* const list = dynamic_cast<frmZXYEditor*>(FindForm(form.ps.desktop, name::kXYEditor)))
        form.recoveries.emplace_back(form.ps, ListRecovery(*list));
}

} // namespace

void MDIZOR_Load(MDIZOR& form) {
    ProjectState& ps = form.ps;
    InitProjectState(ps);
    ConnectBloodAlcohol(ps);
    ps.LastSessionFile = JoinPath(SessionFolder(ps.ProgramDir), FileName(ps.LastSessionFile));
    for (const int index : {8, 16})
        form.Tool(index).enabled = false;
    form.Entry("mnuEditDat").enabled = false;
    ps.ProtocolFile = NextProtocolName(ps);
    PlaceDialogs(form.ps.desktop);
    KeepUnsavedWork(form);
    UpdateAvailability(form);
    form.onModelChanged();
    Show(form, name::kModel);
}

void OpenCommandLine(MDIZOR& form, const std::string& commandLine) {
    Workspace& ps = form.ps;
    ps.ProjectFile = commandLine;
    std::erase(ps.ProjectFile, '"');
    if (ps.ProjectFile.empty())
        return;
    const std::string path = ps.ProjectFile;
    std::string dataFile;
    bool ok = false;
    FuLoadProjectFile(ps, path, dataFile, ok);
    if (!ok) {
        ps.ProjectFile.clear();
        ReopenModelDialog(form);
        return;
    }
    ps.ProjectTitle = FileName(path);
    ps.ProjectDir = DirectoryOf(path);
    if (dataFile.empty()) {
        Enable(form, {"mnuSaveProject"});
        EnableTools(form, {8});
        ReopenModelDialog(form);
        return;
    }
    TakeLoadedProject(form, path, dataFile, "");
}

void OfferLostData(MDIZOR& form) {
    for (RecoveryKeeper& keeper : form.recoveries)
        OfferRecovery(form.ps, keeper);
    TellUnitOfData(form.ps);
    if (!form.ps.ExpDataChanged)
        return;
    Enable(form, {"mnuEditDat"});
    EnableTools(form, {16});
    Unload(form, name::kDataEditor);
    Show(form, name::kDataEditor);
}

} // namespace zorvant
