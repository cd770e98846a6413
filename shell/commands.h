// The main window as a record, and its commands: what each closes, which context it sets, what it
// opens. Start-up and exit stand here because they are the first and the last command.
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
};

/// Start-up: start values, the model dialog, the first places of the dialogs.
void MDIZOR_Load(MDIZOR& form);
/// The second half of start-up, when the window stands: the project named on the command line.
/// Given: commandLine   a path, double quotes in it are dropped; empty: none. The name of a file
///                      that can't be read is forgotten: saving must not offer it
void OpenCommandLine(MDIZOR& form, const std::string& commandLine);
/// The last step of start-up: data that a crash has left are offered and shown in their editor.
void OfferLostData(MDIZOR& form);
/// Loads a project as the command does, without the question for its name.
void OpenProject(MDIZOR& form, const std::string& path);

/// Commands whose dialog is not in the table of forms, or that nothing carries out, can't be used
/// and say so. Runs at start-up; to be run again when a form or a command has been added.
void UpdateAvailability(MDIZOR& form);

/// Opens a dialog of the dialog sets.
void OpenDialogSet(MDIZOR& form, const DialogSet& set);
/// Closes the model dialog and opens it anew, so that it shows the state.
void ReopenModelDialog(MDIZOR& form);

void mnuLoadLastSession_Click(MDIZOR& form);
void mnuLoadProject_Click(MDIZOR& form);
void mnuSaveProject_Click(MDIZOR& form);
void mnuNeudat_Click(MDIZOR& form);
void mnuEditDat_Click(MDIZOR& form);
/// Saves what has to be saved, writes the last session and ends the program; also run when the
/// window is closed. Can't be refused; a second call while it runs does nothing.
void mnuExit_Click(MDIZOR& form);
void mnuConvertTool1W_Click(MDIZOR& form);
void mnuHilfeHinweis_Click(MDIZOR& form);
void mnuInfo_Click(MDIZOR& form);

} // namespace zorvant
