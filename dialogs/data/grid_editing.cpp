#include "dialogs/data/grid_editing.h"

#include "dialogs/common/names.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr int kCopy = 3, kLineFeed = 10, kEnter = 13, kPaste = 22, kCut = 24, kEscape = 27,
              kDelete = 127;

} // namespace

std::string MarkedLines::Text() const {
    return first == last ? "line " + std::to_string(first)
                         : "lines " + std::to_string(first) + " to " + std::to_string(last);
}

MarkedLines Marked(const Grid& grid, int lineCount) {
    if (grid.selection.lastRow < 0 || lineCount == 0)
        return {};
    return {grid.selection.firstRow + 1, std::min(grid.selection.lastRow + 1, lineCount)};
}

PastePlace PlaceOfPaste(const Grid& grid, int lineCount, int firstValue) {
    const GridRange& marked = grid.selection;
    const bool block = marked.lastRow > marked.firstRow || marked.lastColumn > marked.firstColumn;
    const int row = lineCount == 0 ? 0 : block ? marked.firstRow : grid.row;
    return {std::max(row, 0) + 1, std::max(block ? marked.firstColumn : grid.column, firstValue)};
}

bool HasLines(int lineCount) {
    if (lineCount == 0)
        host().beep();
    return lineCount > 0;
}

void PopUpMenu(const Desktop& desktop, const char* menu) {
    Form* const main = FindForm(desktop, name::kMainWindow);
    Control* const entry = main == nullptr ? nullptr : main->Find(menu);
    if (entry != nullptr && entry->kind == Kind::MenuEntry)
        host().popupMenu(static_cast<MenuEntry&>(*entry));
}

void InputLineKey(const TextField& box, int& key, const Handler& takeOver, const Handler& goOn) {
    if (key == kCopy || key == kPaste || key == kCut)
        return;
    const bool behindE = !box.text.empty() && (box.text.back() | 0x20) == 'e';
    if (key == kEnter || (key == '+' && !behindE)) {
        (key == kEnter ? goOn : takeOver)();
        key = 0;
    } else if (!FilterNumericKey(key)) {
        key = 0;
    }
}

void NumberKey(int& key) {
    if (key >= ' ' && !FilterNumericKey(key))
        key = 0;
}

void CommentKey(int& key) {
    if (key == kEnter || key == kLineFeed)
        key = 0;
}

void GridKey(int column, int firstValue, bool decimalComma, int& key,
             const GridCommands& commands) {
    if (key == kEnter || key == kEscape)
        return;
    const Handler* const command = key == kCopy     ? &commands.copy
                                   : key == kPaste  ? &commands.paste
                                   : key == kDelete ? &commands.erase
                                                    : nullptr;
    if (command != nullptr) {
        (*command)();
        key = 0;
    } else if (column >= firstValue && (key == '.' || key == ',')) {
        key = decimalComma ? ',' : '.';
    } else if (column >= firstValue && !FilterNumericKey(key)) {
        key = 0;
    }
}

} // namespace zorvant
