#include "dialogs/data/frm_z_cmn_dlg.h"

#include "data/exp_file.h"
#include "data/folder_list.h"
#include "data/project_file.h"
#include "platform/encoding.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace zorvant {
namespace {

constexpr int kHelpFiles = 7011;
constexpr int kPathWidth = 60;
constexpr const char* kUp = "..";

void Report(const frmZCmnDlg& form, const std::string& text) {
    ShowMessage(text, form.caption, Icon::Critical);
}

void ClearPreview(frmZCmnDlg& form) {
    form.Text1.text.clear();
    form.Text1.enabled = false;
    form.lblFileComment.visible = false;
    form.Label7.text.clear();
    form.txtDatum.text.clear();
}

/// Fills both lists. A folder that can't be read is reported and the present one stays.
void GoTo(frmZCmnDlg& form, const std::string& directory) {
    try {
        FolderList list = ListFolder(directory, form.pattern);
        form.directory = list.path;
        form.dirOpenList.items = {kUp};
        std::ranges::move(list.folders, std::back_inserter(form.dirOpenList.items));
        form.dirOpenList.index = -1;
        form.filOpenList.items = std::move(list.files);
        form.filOpenList.index = -1;
        form.lblOpenPath.text = FuShortPath(form.directory, kPathWidth);
        form.lblOpenPath.toolTip = form.directory;
        ClearPreview(form);
    } catch (const FileError& error) {
        Report(form, error.what());
        form.setFocus = &form.txtOpenFile;
    }
}

std::string SelectedFile(const frmZCmnDlg& form) {
    const int index = form.filOpenList.index;
    return index < 0 ? std::string() : form.filOpenList.items.at(static_cast<std::size_t>(index));
}

std::string Ending(const std::string& name) {
    return UpperCase(name.size() < 3 ? name : name.substr(name.size() - 3));
}

void PreviewData(frmZCmnDlg& form, const std::string& path) {
    form.fraView.text = "File Information";
    std::string comment, timeUnit;
    int count = 0;
    bool ok = false;
    ViewExpFile(path, comment, timeUnit, count, ok);
    if (!ok)
        return;
    form.Text1.enabled = true;
    form.Text1.text = Shortened(comment, kShownComment);
    form.lblFileComment.text = "File comment:";
    form.lblFileComment.visible = true;
    form.Label7.text = " " + std::to_string(count) + " Measuring points";
}

void PreviewProject(frmZCmnDlg& form, const std::string& path) {
    form.fraView.text = "Project Information";
    std::string date, comment, dataFile;
    bool ok = false;
    FuViewProjectFile(path, date, comment, dataFile, ok);
    if (!ok)
        return;
    form.Text1.enabled = true;
    form.Text1.text = Shortened(comment, kShownComment);
    form.lblFileComment.text = "Project Comment";
    form.lblFileComment.visible = true;
    if (dataFile.empty()) {
        form.Label7.text = "(without data file)";
        return;
    }
    form.txtDatum.text = "   from  " + date;
    form.Label7.text = " " + dataFile + "   from  " + date;
}

/// The path of a file whose name may be written in capitals; the one that is given without such.
std::string PathAnyCase(const std::string& path) {
    std::error_code none;
    if (std::filesystem::exists(path, none))
        return path;
    const std::string name = UpperCase(FileName(path));
    for (const auto& entry : std::filesystem::directory_iterator(DirectoryOf(path), none))
        if (UpperCase(entry.path().filename().string()) == name)
            return entry.path().string();
    return path;
}

void Accept(frmZCmnDlg& form) {
    form.accepted = true;
    UnloadForm(form.ps.desktop, form);
}

/// The name of the open project or data file stands selected, so that its preview shows.
void SelectPresent(frmZCmnDlg& form) {
    const Workspace& ps = form.ps;
    const std::string pattern = UpperCase(form.pattern);
    const std::string wanted = UpperCase(pattern == "*.ZC3"   ? ps.ProjectTitle
                                         : pattern == "*.ZI3" ? ps.DataFileTitle
                                                              : std::string());
    if (wanted.empty())
        return;
    const auto& files = form.filOpenList.items;
    const auto found =
        std::ranges::find_if(files, [&](const auto& name) { return UpperCase(name) == wanted; });
    if (found == files.end())
        return;
    form.filOpenList.index = static_cast<int>(found - files.begin());
    filOpenList_Click(form);
}

void WireLists(frmZCmnDlg& form) {
    form.dirOpenList.onDoubleClick = [&form] { dirOpenList_DoubleClick(form); };
    form.filOpenList.onClick = [&form] { filOpenList_Click(form); };
    form.filOpenList.onDoubleClick = [&form] {
        filOpenList_Click(form);
        if (form.filOpenList.index >= 0)
            Accept(form);
    };
    form.filOpenList.onKeyPress = [&form](int& key) { filOpenList_KeyPress(form, key); };
}

void WireNameAndButtons(frmZCmnDlg& form) {
    form.txtOpenFile.onChange = [&form] { form.dirOpenList.index = -1; };
    form.txtOpenFile.onGotFocus = [&form] { form.txtOpenFile.selectAll = true; };
    form.cmdOpenOK.onClick = [&form] { cmdOpenOK_Click(form); };
    form.cmdOpenCancel.onClick = [&form] { UnloadForm(form.ps.desktop, form); };
    form.cmdReturn.onClick = [&form] { cmdReturn_Click(form); };
    form.cmdOpenOK.isDefault = true;
    form.cmdOpenCancel.isCancel = true;
}

void SetUpPreview(frmZCmnDlg& form) {
    form.Text1.locked = true;
    form.Text1.multiLine = true;
    form.Text1.enabled = false;
    form.lblFileComment.visible = false;
    form.cmdReturn.toolTip = " to higher directory ";
}

/// What the dialog shows when a question begins.
void ShowQuestion(frmZCmnDlg& form, const FileQuestion& question) {
    form.caption = question.title;
    form.pattern = question.pattern.empty() ? "*.*" : question.pattern;
    form.directory.clear();
    GoTo(form, question.directory.empty() ? form.ps.ProgramDir : question.directory);
    if (form.directory.empty()) // the last folder is gone
        GoTo(form, ".");
    form.txtOpenFile.text =
        question.fullPath.empty() ? form.pattern : UpperCase(FileName(question.fullPath));
    SelectPresent(form);
    form.setFocus = &form.txtOpenFile;
}

} // namespace

frmZCmnDlg::frmZCmnDlg(Workspace& state) : Form("frmZCmnDlg"), ps(state) {
    modal = true;
    helpTopic = kHelpFiles;
    left = 20;
    top = 216;
    SetUpPreview(*this);
    WireLists(*this);
    WireNameAndButtons(*this);
    Declare();
}

void AskForFile(frmZCmnDlg& form, FileQuestion& question) {
    form.accepted = false;
    form.onLoad = [&form, &question] { ShowQuestion(form, question); };
    ShowForm(form.ps.desktop, form);
    if (form.loaded) // a host without a screen does not wait
        UnloadForm(form.ps.desktop, form);
    form.onLoad = nullptr;
    question.cancelled = !form.accepted;
    if (question.cancelled)
        return;
    question.fileName = form.txtOpenFile.text;
    question.directory = JoinPath(form.directory, "");
    question.fullPath = JoinPath(form.directory, question.fileName);
}

void dirOpenList_DoubleClick(frmZCmnDlg& form) {
    const int index = form.dirOpenList.index;
    if (index < 0)
        return;
    const std::string name = form.dirOpenList.items.at(static_cast<std::size_t>(index));
    GoTo(form, JoinPath(form.directory, name));
    form.txtOpenFile.text = form.pattern;
}

void filOpenList_Click(frmZCmnDlg& form) {
    const std::string name = SelectedFile(form);
    if (name.empty())
        return;
    form.dirOpenList.index = -1; // OK means the file now
    form.txtOpenFile.text = name;
    ClearPreview(form);
    const std::string path = JoinPath(form.directory, name);
    if (Ending(name) == "ZI3")
        PreviewData(form, path);
    else if (Ending(name) == "ZC3")
        PreviewProject(form, path);
}

void filOpenList_KeyPress(frmZCmnDlg& form, int& key) {
    if (key != kKeyDel)
        return;
    key = 0;
    const std::string name = SelectedFile(form);
    if (name.empty())
        return;
    if (Ask("File " + name + " Really delete?", "Confirm deleting", Icon::Question,
            Buttons::YesNo) != Answer::Yes)
        return;
    std::error_code error;
    std::filesystem::remove(JoinPath(form.directory, name), error);
    if (error) {
        Report(form, error.message());
        return;
    }
    GoTo(form, form.directory);
    form.txtOpenFile.text.clear();
    form.setFocus = &form.txtOpenFile; // nothing is chosen until somebody chooses
}

void cmdOpenOK_Click(frmZCmnDlg& form) {
    if (form.dirOpenList.index >= 0) { // a folder was chosen: enter it
        dirOpenList_DoubleClick(form);
        return;
    }
    const std::string typed = Trim(form.txtOpenFile.text);
    if (!typed.empty() && typed == SelectedFile(form)) {
        Accept(form);
        return;
    }
    const std::string path =
        PathAnyCase(typed.starts_with('/') ? typed : JoinPath(form.directory, typed));
    if (!typed.empty() && std::filesystem::is_regular_file(path)) {
        form.directory = std::filesystem::path(path).parent_path().string();
        form.txtOpenFile.text = FileName(path);
        Accept(form);
        return;
    }
    if (!typed.empty() && std::filesystem::is_directory(path)) {
        GoTo(form, path);
        form.txtOpenFile.text = form.pattern;
        return;
    }
    if (typed.find_first_of("*?") != std::string::npos) {
        form.pattern = typed;
        GoTo(form, form.directory);
        form.txtOpenFile.text = UpperCase(typed);
        form.setFocus = &form.txtOpenFile;
        return;
    }
    Report(form, "File not found");
    const std::string selected = SelectedFile(form);
    form.txtOpenFile.text = selected.empty() ? form.pattern : selected;
    form.setFocus = &form.txtOpenFile;
}

void cmdReturn_Click(frmZCmnDlg& form) {
    GoTo(form, JoinPath(form.directory, kUp));
    form.txtOpenFile.text = form.pattern;
    form.setFocus = &form.dirOpenList;
}

} // namespace zorvant
