// The cells of a table in text, and what a cell's text tells as a number.
#pragma once

#include "data/formats/table_text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvant {

/// Longer texts are no numbers that somebody wrote.
inline constexpr std::size_t kLongestNumber = 100;

struct Cell {
    std::string_view text; ///< within its quotes; doubled ones are still doubled
    bool quoted = false;
};

/// Goes through a table row by row.
class TableScanner {
public:
    TableScanner(std::string_view text, char separator) : rest_(text), separator_(separator) {}

    /// Returned: false at the end. A row has one cell at least, and at most kMaxColumns: further
    /// ones are passed over.
    bool NextRow(std::vector<Cell>& cells);

    /// Whether cells were passed over so far.
    bool Cut() const { return cut_; }

private:
    bool AtCellEnd(std::size_t at) const;
    void PassBlanks();
    std::size_t QuotedEnd() const;
    Cell NextCell();
    bool TakeSeparator();
    void TakeLineEnd();

    std::string_view rest_;
    char separator_;
    bool cut_ = false;
};

bool IsEmptyLine(const std::vector<Cell>& row);
/// The texts of a row, doubled quotes made single.
std::vector<std::string> TextsOf(const std::vector<Cell>& row);

/// Takes blanks and apostrophes that part thousands out, and makes a minus sign a hyphen.
std::string Simplify(std::string_view cell);

/// How a cell's decimal sign can be told from its text.
struct SignForms {
    std::size_t points = 0, commas = 0;
    /// The sign that is the decimal one for certain; nothing without one or with two ways open.
    std::optional<DecimalSign> certain;
    /// The sign that stands once and may part thousands or be the decimal one.
    std::optional<DecimalSign> open;
};

/// Given: a simplified text
SignForms FormsOf(std::string_view text);

} // namespace zorvant
