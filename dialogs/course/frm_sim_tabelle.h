// The table of a calculated course: shown, copied, saved, printed.
#pragma once

#include "dialogs/common/workspace.h"

namespace zorvant {

struct frmSimTabelle : Form {
    explicit frmSimTabelle(Workspace& state);

    Workspace& ps;

    TextField txtSimTabelle{*this, "txtSimTabelle"};
    Button cmdClipboard{*this, "cmdClipboard", "Paste to clipboard"};
    Button cmdSaveTable{*this, "cmdSaveTable", "Write File"};
    Button cmdPrint{*this, "cmdPrint", "Print Table"};
    Button cmdCloseSimTab{*this, "cmdCloseSimTab", "Close <Esc>"};
};

void cmdClipboard_Click(frmSimTabelle& form);
void cmdSaveTable_Click(frmSimTabelle& form);
void cmdPrint_Click(frmSimTabelle& form);

} // namespace zorvant
