// What the main window offers: its menu tree, its toolbar and the dialogs that its commands open,
// as tables.
#pragma once

#include "platform/controls.h"

#include <optional>
#include <span>
#include <string_view>

namespace zorvant {

/// The whole tree, top to bottom. Entries of an array are called name_index.
std::span<const MenuRow> MainMenu();

/// A button of the toolbar. Indices between them are separators.
struct ToolRow {
    int index;
    const char* tip;
    const char* command; ///< the menu entry whose command it runs
    const char* text;    ///< its name for who can't see the drawing
    const char* icon;    ///< drawing, shell/qt/icons/<icon>.svg
};
std::span<const ToolRow> MainToolbar();

/// A command that opens a calculation dialog: the calculation dialogs exclude each other.
struct DialogSet {
    const char* command;
    const char* closes[8]; ///< in this order; unused places are null
    const char* opens;
    /// Context of the next diagram; no value: left as it is.
    std::optional<bool> isTubular = {}, isCSTR = {}, isCascade = {}, rateDiagram = {};
    bool clearsFitMode = false;
    bool hidesModelDialog = false;
    bool refusesEnzyme = false;    ///< not for the enzyme model
    const char* presses = nullptr; ///< a button of the dialog that is pressed at the end
};
std::span<const DialogSet> DialogSets();
/// The set of a command, null when it has none.
const DialogSet* DialogSetOf(std::string_view command);

/// An entry of a menu at the pointer presses a button of the dialog under it.
struct PopupRow {
    const char* control;
    const char* form;
    const char* button;
};
std::span<const PopupRow> PopupRows();

/// An entry that shows a topic of the help.
struct HelpRow {
    const char* control;
    int topic;
};
std::span<const HelpRow> HelpRows();

/// Where the dialogs open first, twips.
struct StartPosition {
    const char* form;
    int left, top;
};
std::span<const StartPosition> StartPositions();

} // namespace zorvant
