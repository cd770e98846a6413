// Tables as people paste and import them: from spreadsheets and instruments, of any country.
//
// A layout says how a text is to be read; it is guessed from the text and may be corrected by the
// user before the text is read with it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorvant {

/// Text from the bytes of a file: UTF-16 with its mark, else as platform/files.h has it.
std::string DecodeTableText(std::string_view bytes);

/// Further columns are passed over: no table of measurements has as many.
inline constexpr std::size_t kMaxColumns = 256;

enum class DecimalSign : char { Point = '.', Comma = ',' };

struct TableLayout {
    char separator = '\t';             ///< tab, ';', ',' or ' ' (any number of blanks)
    int skipLines = 0;                 ///< heading lines
    std::vector<DecimalSign> decimals; ///< by column from 0; columns behind them: point
};

/// What can be read in two ways.
struct TableDoubt {
    int column = -1;       ///< from 0; -1: the comma of a single column might separate two
    std::string example{}; ///< a text of the table
    double reading = 0;    ///< what the layout makes of it
};

struct TableGuess {
    TableLayout layout;
    std::vector<TableDoubt> doubts; ///< empty: there is only one way
    std::vector<std::string> heads; ///< texts of the last heading line, by column; may be empty
};

/// Finds out how a text is to be read.
TableGuess GuessTableLayout(std::string_view text);

/// The first rows as texts, for a preview; heading lines and empty ones included.
std::vector<std::vector<std::string>> SplitTable(std::string_view text, char separator,
                                                 std::size_t rows);

/// One cell as a number: decimal sign as given, the other one or blanks between groups of three
/// digits; a sign that can't be one of groups is a decimal one all the same.
/// Returned: nothing when it is none.
std::optional<double> ParseCell(std::string_view cell, DecimalSign sign);

/// The numbers of a table, row by row; rows may differ in length.
struct TableNumbers {
    std::size_t Rows() const { return rowStart.size() - 1; }
    std::size_t Columns() const; ///< of the longest row
    bool AnyNumber() const;      ///< of a text that was read
    std::span<const double> Row(std::size_t row) const {
        return std::span(values).subspan(rowStart[row], rowStart[row + 1] - rowStart[row]);
    }
    std::vector<double> values;
    std::vector<std::uint32_t> rowStart{0};
    /// Whether the text held a number there, by cell; empty: all did. The others count as 0.
    std::vector<bool> filled;
    int badCells = 0;        ///< texts that are no numbers; they count as 0
    int firstBadLine = 0;    ///< row of the text, from 1; 0: none
    bool columnsCut = false; ///< a row had more than kMaxColumns
    bool operator==(const TableNumbers&) const = default;
};

/// Reads a text by a layout. Empty cells are 0, empty lines are passed over.
TableNumbers ReadTable(std::string_view text, const TableLayout& layout);

/// Tab-separated text with decimal points and CR LF that reads back unchanged (15 digits).
std::string WriteTable(const TableNumbers& table);

} // namespace zorvant
