#include "dialogs/data/frm_comment_input.h"

namespace zorvant {

frmCommentInput::frmCommentInput(Workspace& state)
    : Form("frmCommentInput", " File Comment for Project (optional)"), ps(state) {
    modal = true;
    helpTopic = 7012;
    cmdOK.isDefault = true;
    onEscape = [this] { UnloadForm(ps.desktop, *this); }; // the comment stays
    onLoad = [this] {
        txtDatComm.text = ps.ProjectComment;
        txtDatComm.selectAll = true;
        setFocus = &txtDatComm;
    };
    // A comment is one line of the file.
    txtDatComm.onChange = [this] {
        std::erase_if(txtDatComm.text, [](char c) { return c == '\r' || c == '\n'; });
    };
    cmdOK.onClick = [this] {
        ps.ProjectComment = txtDatComm.text;
        UnloadForm(ps.desktop, *this);
    };
    cmdAbort.onClick = [this] {
        ps.ProjectComment.clear();
        UnloadForm(ps.desktop, *this);
    };
    Declare();
}

} // namespace zorvant
