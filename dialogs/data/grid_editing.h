// What the editors of lists have in common: keys, marked lines, the place of a paste, undo.
#pragma once

#include "data/formats/table_text.h"
#include "data/undo_history.h"
#include "platform/controls.h"

#include <string>

namespace zorvant {

/// Lines of the list that are marked, from 1.
struct MarkedLines {
    int first = 0;
    int last = 0; ///< 0: none
    /// "line 3", "lines 1 to 4"
    std::string Text() const;
};
MarkedLines Marked(const Grid& grid, int lineCount);

/// Where a paste begins: at the first marked cell where a block is marked, else at the cursor.
struct PastePlace {
    int line = 1;   ///< from 1
    int column = 0; ///< of the grid; before the first value: that one
};
PastePlace PlaceOfPaste(const Grid& grid, int lineCount, int firstValue);

/// Beeps when there is no line. Returned: whether there is one.
bool HasLines(int lineCount);

/// The menu of the main window whose entries press the buttons of a list, at the pointer.
void PopUpMenu(const Desktop& desktop, const char* menu);

/// A key in a box of the input line: the numeric ones pass; "+", but not behind an exponent's E,
/// takes the line over, Enter goes on.
void InputLineKey(const TextField& box, int& key, const Handler& takeOver, const Handler& goOn);
/// A key in a box for a number that stands alone.
void NumberKey(int& key);
/// A key in a comment, which is one line of its file.
void CommentKey(int& key);
/// A key in the list: copy, paste and Del are commands; in a column of values the decimal sign
/// becomes that of the system, and only numeric keys pass.
struct GridCommands {
    Handler copy, paste, erase;
};
void GridKey(int column, int firstValue, bool decimalComma, int& key, const GridCommands& commands);

/// The buttons of undo and redo name the step that they take back or make again.
template <class State>
void ShowHistory(const UndoHistory<State>& history, Button& undo, Button& redo) {
    const auto show = [](Button& button, const char* verb, const char* keys, const auto* step) {
        button.enabled = step != nullptr;
        button.text = step != nullptr ? verb + (" " + step->name) : verb;
        button.toolTip = button.text + keys;
        button.disabledTip = step != nullptr ? "" : "nothing to take back or to make again";
    };
    show(undo, "Undo", "  <Ctrl><Z>", history.ToUndo());
    show(redo, "Redo", "  <Ctrl><Shift><Z>", history.ToRedo());
}

} // namespace zorvant
