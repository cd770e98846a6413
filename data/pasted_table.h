// Numbers from the clipboard, read as people mean them.
#pragma once

#include "data/formats/table_text.h"
#include "platform/host.h"

#include <optional>
#include <string>

namespace zorvant {

/// Reads pasted text. Where it can be read in two ways a box shows the reading and asks; cells that
/// are no numbers are told.
/// Returned: nothing when the user cancelled or the text has no numbers.
std::optional<TableNumbers> ReadPastedTable(const std::string& text);

/// Asks which of two readings is right: Yes the guessed one, No OtherReading, Cancel none.
/// Given: what: the sentence above the doubts
Answer AskWhichReading(const char* what, const TableGuess& guess, const char* title);

/// A box when the text had more columns than the list took; none when all found room.
void TellSurplusColumns(const TableNumbers& table, std::size_t taken);

/// A box: how many cells were no numbers; none when there are none.
void TellBadCells(const TableNumbers& table);

/// The layout that reads the doubtful columns the other way.
TableLayout OtherReading(const TableGuess& guess);

/// What is open about a text, a line for each doubt: the text, its reading and the other one.
std::string DoubtText(const TableGuess& guess);

} // namespace zorvant
