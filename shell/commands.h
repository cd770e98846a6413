// The main window as a record, and what each entry of its menus does: which dialogs a command
// closes, which context it sets, what it opens.
#pragma once

#include "data/recovery.h"
#include "dialogs/common/workspace.h"
#include "shell/menu_table.h"

#include <memory>
#include <string>
#include <vector>

namespace zorvant {

struct MDIZOR : Form {
    explicit MDIZOR(Workspace& state);

    Workspace& ps;

    /// One for each row of the menu table, in its order.
    std::vector<std::unique_ptr<MenuEntry>> entries;
    /// Toolbar1(index) of the toolbar table.
    std::vector<std::unique_ptr<Button>> tools;
    Frame Picture2{*this, "Picture2"}; ///< the bar at the foot
    Button cmdErstnutzer{*this, "cmdErstnutzer", "Erste Schritte  (german)"};
    Label lblStatus{*this, "lblStatus"}; ///< model, time unit, data
    Timer Timer1{*this, "Timer1"};
    Timer tmrRecovery{*this, "tmrRecovery"}; ///< keeps unsaved data for the case of a crash
    /// One for each kind of unsaved work, the measured values first, which need no dialog.
    std::vector<RecoveryKeeper> recoveries;

    /// Errors: std::out_of_range when the table has no such entry.
    MenuEntry& Entry(const std::string& control);
    Button& Tool(int index);

    bool exiting = false;
    std::string savedNote; ///< for the status line: what the last command saved, and when
};

/// Commands whose dialog is not in the table of forms, or that nothing carries out, can't be used
/// and say so. Runs at start-up; to be run again when a form or a command has been added.
void UpdateAvailability(MDIZOR& form);

/// Opens a dialog of the dialog sets.
void OpenDialogSet(MDIZOR& form, const DialogSet& set);
/// Closes the model dialog and opens it anew, so that it shows the state.
void ReopenModelDialog(MDIZOR& form);

void mnuConvertTool1W_Click(MDIZOR& form);
void mnuHilfeHinweis_Click(MDIZOR& form);
void mnuInfo_Click(MDIZOR& form);

} // namespace zorvant
