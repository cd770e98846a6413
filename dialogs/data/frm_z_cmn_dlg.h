// The file dialog of the program: beside folders and files it shows what a file holds before it is
// loaded, and a file can be deleted from its list.
#pragma once

#include "data/file_dialog.h"
#include "dialogs/common/workspace.h"

namespace zorvant {

struct frmZCmnDlg : Form {
    explicit frmZCmnDlg(Workspace& state);

    Workspace& ps;

    Label lblPath{*this, "lblPath", "Path"};
    Label lblOpenPath{*this, "lblOpenPath"};
    ListBox dirOpenList{*this, "dirOpenList"}; ///< ".." and the folders of the present one
    ListBox filOpenList{*this, "filOpenList"};
    Label lblFileName{*this, "lblFileName", "File name"};
    TextField txtOpenFile{*this, "txtOpenFile"};
    Button cmdOpenOK{*this, "cmdOpenOK", "OK"};
    Button cmdOpenCancel{*this, "cmdOpenCancel", "Cancel"};
    Button cmdReturn{*this, "cmdReturn", ".."};
    Frame fraView{*this, "fraView", " Project information"};
    Label lblFileComment{*this, "lblFileComment", "File comment:"};
    TextField Text1{*this, "Text1"}; ///< the comment of the selected file
    Label Label6{*this, "Label6", "Experimental data"};
    Label Label7{*this, "Label7"}; ///< measuring points, or the data file of a project
    Label txtDatum{*this, "txtDatum"};

    std::string directory; ///< the present folder, absolute
    std::string pattern;
    bool accepted = false; ///< a file was chosen; any other way of leaving cancels
};

/// Shows the dialog until a file is chosen or the choice is cancelled.
void AskForFile(frmZCmnDlg& form, FileQuestion& question);

void dirOpenList_DoubleClick(frmZCmnDlg& form);
void filOpenList_Click(frmZCmnDlg& form);
void filOpenList_KeyPress(frmZCmnDlg& form, int& key);
void cmdOpenOK_Click(frmZCmnDlg& form);
void cmdReturn_Click(frmZCmnDlg& form);

} // namespace zorvant
