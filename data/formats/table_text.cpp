// A table in text as numbers and back, by a layout.
#include "data/formats/table_text.h"

#include "data/formats/table_cells.h"
#include "platform/encoding.h"
#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// Halves of a pair that stand alone become the replacement character.
std::string FromUtf16(std::string_view bytes, bool bigEndian) {
    const auto unit = [&](std::size_t i) {
        const unsigned first = static_cast<unsigned char>(bytes[i]);
        const unsigned second = static_cast<unsigned char>(bytes[i + 1]);
        return bigEndian ? first << 8 | second : second << 8 | first;
    };
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const unsigned high = unit(i);
        if (high < 0xD800 || high > 0xDFFF) {
            AppendUtf8(text, high);
            continue;
        }
        const unsigned low = high < 0xDC00 && i + 3 < bytes.size() ? unit(i + 2) : 0;
        if (low >= 0xDC00 && low <= 0xDFFF) {
            AppendUtf8(text, 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00));
            i += 2;
        } else {
            text += kReplacement;
        }
    }
    return text;
}

} // namespace

std::string DecodeTableText(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE"))
        return FromUtf16(bytes.substr(2), false);
    if (bytes.starts_with("\xFE\xFF"))
        return FromUtf16(bytes.substr(2), true);
    return DecodeText(bytes);
}

std::vector<std::vector<std::string>> SplitTable(std::string_view text, char separator,
                                                 std::size_t rows) {
    std::vector<std::vector<std::string>> table;
    TableScanner scanner(text, separator);
    std::vector<Cell> cells;
    while (table.size() < rows && scanner.NextRow(cells))
        table.push_back(TextsOf(cells));
    return table;
}

std::size_t TableNumbers::Columns() const {
    std::size_t columns = 0;
    for (std::size_t row = 0; row < Rows(); ++row)
        columns = std::max(columns, Row(row).size());
    return columns;
}

bool TableNumbers::AnyNumber() const {
    return std::ranges::find(filled, true) != filled.end();
}

TableNumbers ReadTable(std::string_view text, const TableLayout& layout) {
    TableNumbers table;
    TableScanner scanner(text, layout.separator);
    std::vector<Cell> row;
    for (int line = 1; scanner.NextRow(row); ++line) {
        if (line <= layout.skipLines || IsEmptyLine(row))
            continue;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const DecimalSign sign =
                i < layout.decimals.size() ? layout.decimals[i] : DecimalSign::Point;
            const std::optional<double> number =
                row[i].text.empty() ? 0 : ParseCell(row[i].text, sign);
            table.values.push_back(number.value_or(0));
            table.filled.push_back(number && !row[i].text.empty());
            if (number)
                continue;
            ++table.badCells;
            if (table.firstBadLine == 0)
                table.firstBadLine = line;
        }
        table.rowStart.push_back(static_cast<std::uint32_t>(table.values.size()));
    }
    table.columnsCut = scanner.Cut();
    return table;
}

std::string WriteTable(const TableNumbers& table) {
    std::string text;
    for (std::size_t row = 0; row < table.Rows(); ++row) {
        const std::span<const double> numbers = table.Row(row);
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (i > 0)
                text += '\t';
            text += FileText(numbers[i]);
        }
        text += kCrLf;
    }
    return text;
}

} // namespace zorvant
