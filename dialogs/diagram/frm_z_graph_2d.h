// The diagram window: the document with its menus, and the mouse of the chart.
#pragma once

#include "dialogs/diagram/diagram_document.h"
#include "dialogs/diagram/diagram_mouse.h"
#include "dialogs/diagram/diagram_pictures.h"

#include <deque>
#include <string>
#include <vector>

namespace zorvant {

struct frmZGraph2D : DiagramDocument {
    explicit frmZGraph2D(Workspace& state);

    // --- menus beside those of the document
    MenuEntry mnuAdd{*this, "mnuAdd", "Add"};
    MenuEntry mnuScale{*this, "mnuScale", "Scale"};
    MenuEntry mnuUndo{*this, "mnuUndo", "Undo"};
    MenuEntry mnuRedo{*this, "mnuRedo", "Redo"};
    MenuEntry mnuZoom{*this, "mnuZoom", "Zoom"};
    MenuEntry mnuZoomReset{*this, "mnuZoomReset", "Zoom back"};
    MenuEntry mnuShowAll{*this, "mnuShowAll", "Show all"};
    MenuEntry mnuFullSize{*this, "mnuFullSize", "Full size"};
    MenuEntry mnuXLog{*this, "mnuXLog", "X axis logarithmic"};
    MenuEntry mnuYLog{*this, "mnuYLog", "Y axis logarithmic"};
    MenuEntry mnuOutput{*this, "mnuOutput", "Picture"};
    MenuEntry mnuCopyPicture{*this, "mnuCopyPicture", "Copy picture"};
    Array<MenuEntry, 3, 1> mnuBild{*this, "mnuBild"};
    PicturePanel pictures{*this};
    MenuEntry mnuSaveOC2{*this, "mnuSaveOC2", "Save this diagram design"};
    MenuEntry mnuLoadOC2{*this, "mnuLoadOC2", "Load a saved pattern"};
    MenuEntry mnuLoadLook{*this, "mnuLoadLook", "Load the look of a saved pattern"};
    MenuEntry mnuManuXY{*this, "mnuManuXY", "X-Y editor"};
    MenuEntry mnuHaupt{*this, "mnuHaupt", "to Main Menu"};
    Button cmdEscGraph{*this, "cmdEscGraph", "Close <Esc>"};

    /// Keys over the chart: Esc ends a zoom, then closes an open panel, then the window.
    void Escape();

    Handler onFullSize; ///< the shell's: between full size and the size before

private:
    void WirePictures();
    void WireScale();
    void WireOtherWindows();
    void BuildMenu();
    void BuildDesignMenu();
    void BuildAddMenu();
    void BuildScaleMenu();
    void BuildDeleteMenu();
    void BuildPictureMenu();
    void Row(int level, Control& entry, const char* text = "");
    void Line();
    std::vector<MenuRow> rows_;
    std::deque<std::string> names_; ///< of the rows that are members of an array
};

} // namespace zorvant
