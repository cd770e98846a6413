// Asks for the comment of a project that is being saved.
#pragma once

#include "dialogs/common/workspace.h"

namespace zorvant {

struct frmCommentInput : Form {
    explicit frmCommentInput(Workspace& state);

    Workspace& ps;

    Label lblComment{*this, "lblComment", "Input of a comment text"};
    TextField txtDatComm{*this, "txtDatComm"};
    Label lblCancelHint{*this, "lblCancelHint", "<Cancel> = no comment text"};
    Button cmdOK{*this, "cmdOK", "OK"};
    Button cmdAbort{*this, "cmdAbort", "Cancel"};
};

} // namespace zorvant
