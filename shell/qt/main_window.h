// The main window: menus and toolbar of its record, the work area of the dialogs, the foot.
#pragma once

#include "shell/commands.h"
#include "shell/qt/form_windows.h"

#include <QMainWindow>

#include <memory>

class QActionGroup;

namespace zorvant {

class HelpViewer;

class MainWindow : public QMainWindow {
public:
    /// Builds the widgets and connects the record; sets the host's help and menu members.
    explicit MainWindow(MDIZOR& record);
    ~MainWindow() override;

    /// Shows the window, in full size on a small screen.
    void Open();

    QMdiArea& area() { return *area_; }
    FormWindows& windows() { return *windows_; }
    /// The help window; made when it is first needed.
    HelpViewer& help();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildToolbar();
    void BuildFoot();
    void BuildWindowList();
    void FillWindowList(QMenu& menu, QActionGroup& list);
    void ConnectHost();

    MDIZOR& record_;
    QMdiArea* area_;
    std::unique_ptr<FormWindows> windows_;
    std::unique_ptr<HelpViewer> help_;
};

} // namespace zorvant
