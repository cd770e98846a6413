// The whole of the program with its window: the state, every dialog's record, the table of forms.
#pragma once

#include "dialogs/common/workspace.h"
#include "shell/commands.h"
#include "shell/qt/main_window.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zorvant {

class Application {
public:
    /// Needs a QApplication. Fills the host, makes the records and the main window; shows nothing.
    Application();
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// The load event of the main window; its command line is opened when the window stands.
    void Start(const std::string& commandLine);

    Workspace& state() { return ps_; }
    MDIZOR& record() { return record_; }
    MainWindow& window() { return *window_; }
    FormWindows& windows() { return window_->windows(); }

private:
    void RegisterForms();
    /// Makes the record of a dialog and enters it with the layout of its .ui.
    /// Further: what its constructor takes beside the state.
    template <class Dialog, class Ui, class... Further>
    Dialog& Register(WindowPlacement placement = WindowPlacement::Stored, Further&... further);

    Workspace ps_;
    MDIZOR record_{ps_};
    std::vector<std::unique_ptr<Form>> forms_;
    std::unique_ptr<MainWindow> window_;
    std::function<void()> tellScreen_; ///< the size of the screen to the diagram, which asks it
};

/// Runs the program with its window.
/// Given:    the command line; a project file in it is loaded
/// Returned: the exit status
int RunWindow(int argc, char** argv);

} // namespace zorvant
