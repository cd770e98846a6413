#include "data/pasted_table.h"

#include "data/formats/item_reader.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

/// Doubts named in one box.
constexpr std::size_t kNamedDoubts = 4;

DecimalSign Other(DecimalSign sign) {
    return sign == DecimalSign::Point ? DecimalSign::Comma : DecimalSign::Point;
}

std::string DoubtLine(const TableGuess& guess, const TableDoubt& doubt) {
    if (doubt.column < 0)
        return "    " + Quoted(doubt.example) + " as " + SingleText(doubt.reading) +
               ", not as two numbers";
    const auto column = static_cast<std::size_t>(doubt.column);
    const double other =
        ParseCell(doubt.example, Other(guess.layout.decimals.at(column))).value_or(0);
    return "    column " + std::to_string(doubt.column + 1) + ": " + Quoted(doubt.example) +
           " as " + SingleText(doubt.reading) + ", not as " + SingleText(other);
}

} // namespace

TableLayout OtherReading(const TableGuess& guess) {
    TableLayout other = guess.layout;
    for (const TableDoubt& doubt : guess.doubts) {
        if (doubt.column < 0) {
            other.separator = ',';
            other.decimals.clear();
            return other;
        }
        DecimalSign& sign = other.decimals.at(static_cast<std::size_t>(doubt.column));
        sign = Other(sign);
    }
    return other;
}

std::string DoubtText(const TableGuess& guess) {
    std::string text;
    const std::size_t named = std::min(guess.doubts.size(), kNamedDoubts);
    for (std::size_t i = 0; i < named; ++i)
        text += (i > 0 ? kCrLf : "") + DoubtLine(guess, guess.doubts[i]);
    if (guess.doubts.size() > named)
        text += std::string(kCrLf) + "    ... and " + std::to_string(guess.doubts.size() - named) +
                " more columns";
    return text;
}

Answer AskWhichReading(const char* what, const TableGuess& guess, const char* title) {
    return Ask(JoinLines({what, "", DoubtText(guess), "", "Is this right? (No: the other way)"}),
               title, Icon::Question, Buttons::YesNoCancel);
}

std::optional<TableNumbers> ReadPastedTable(const std::string& text) {
    const TableGuess guess = GuessTableLayout(text);
    TableLayout layout = guess.layout;
    if (!guess.doubts.empty()) {
        const Answer answer =
            AskWhichReading("The pasted text can be read in two ways. It will be read:", guess,
                            "Insert clipboard content");
        if (answer == Answer::Cancel)
            return std::nullopt;
        if (answer == Answer::No)
            layout = OtherReading(guess);
    }
    TableNumbers table = ReadTable(text, layout);
    if (!table.AnyNumber()) {
        ShowMessage("The clipboard holds no numbers.", "Execution not possible", Icon::Critical);
        return std::nullopt;
    }
    TellBadCells(table);
    return table;
}

void TellSurplusColumns(const TableNumbers& table, std::size_t taken) {
    const std::size_t columns = table.Columns();
    if (columns <= taken && !table.columnsCut)
        return;
    const std::string found = (table.columnsCut ? "more than " : "") + std::to_string(columns);
    ShowMessage("The text has " + found + " columns; from the cursor on the list has room for " +
                    std::to_string(taken) + "." + kCrLf + "The columns behind them were left out.",
                "Insert clipboard content", Icon::Information);
}

void TellBadCells(const TableNumbers& table) {
    if (table.badCells == 0)
        return;
    ShowMessage(std::to_string(table.badCells) +
                    (table.badCells > 1 ? " cells are no numbers and count as 0."
                                        : " cell is no number and counts as 0.") +
                    kCrLf + "The first one stands in line " + std::to_string(table.firstBadLine) +
                    " of the text.",
                "Not all could be read", Icon::Warning);
}

} // namespace zorvant
