#include "data/formats/table_text.h"

#include "platform/encoding.h"
#include "platform/number_text.h"

#include <algorithm>
#include <array>
#include <limits>

namespace zorvant {
namespace {

/// Where several separators serve, the first one.
constexpr std::array<char, 4> kSeparators = {'\t', ';', ',', ' '};
/// Lines by which the separator is told; headings are shorter than this.
constexpr int kGuessLines = 1000;
constexpr std::size_t kDigitsOfGroup = 3;
/// Longer texts are no numbers that somebody wrote.
constexpr std::size_t kLongestNumber = 100;
/// Blanks as numbers are grouped with: no-break, narrow no-break and thin ones, in UTF-8; and a
/// minus sign that is no hyphen.
constexpr std::string_view kNoBreakSpace = "\xC2\xA0";
constexpr std::string_view kNarrowSpace = "\xE2\x80\xAF";
constexpr std::string_view kThinSpace = "\xE2\x80\x89";
constexpr std::string_view kMinusSign = "\xE2\x88\x92";
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}

// --- bytes to text

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

// --- text to cells

struct Cell {
    std::string_view text; ///< within its quotes; doubled ones are still doubled
    bool quoted = false;
};

/// Goes through a table row by row.
class TableScanner {
public:
    TableScanner(std::string_view text, char separator) : rest_(text), separator_(separator) {}

    /// Returned: false at the end. A row has one cell at least, and at most kMaxColumns: further ones
    /// are passed over.
    bool NextRow(std::vector<Cell>& cells) {
        cells.clear();
        if (rest_.empty())
            return false;
        do {
            const Cell cell = NextCell();
            if (cells.size() < kMaxColumns)
                cells.push_back(cell);
            else
                cut_ = true;
        } while (TakeSeparator());
        TakeLineEnd();
        return true;
    }

    /// Whether cells were passed over so far.
    bool Cut() const { return cut_; }

private:
    bool AtCellEnd(std::size_t at) const {
        return at >= rest_.size() || rest_[at] == separator_ || IsLineEnd(rest_[at]);
    }

    void PassBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size())); }

    /// The end of a quoted cell that begins here, behind its closing quote; npos when the quote is
    /// not closed before a separator: then it is a character like others.
    std::size_t QuotedEnd() const {
        std::size_t at = 1;
        for (;;) {
            at = rest_.find('"', at);
            if (at == std::string_view::npos)
                return at;
            if (at + 1 >= rest_.size() || rest_[at + 1] != '"')
                break;
            at += 2;
        }
        std::size_t behind = at + 1;
        while (separator_ != ' ' && behind < rest_.size() && rest_[behind] == ' ')
            ++behind;
        return AtCellEnd(behind) ? at + 1 : std::string_view::npos;
    }

    Cell NextCell() {
        PassBlanks();
        Cell cell;
        std::size_t end = rest_.starts_with('"') ? QuotedEnd() : std::string_view::npos;
        if (end != std::string_view::npos) {
            cell = {rest_.substr(1, end - 2), true};
            rest_.remove_prefix(end);
            if (separator_ != ' ')
                PassBlanks();
            return cell;
        }
        end = 0;
        while (!AtCellEnd(end))
            ++end;
        cell.text = rest_.substr(0, end);
        rest_.remove_prefix(end);
        while (cell.text.ends_with(' '))
            cell.text.remove_suffix(1);
        return cell;
    }

    bool TakeSeparator() {
        if (!rest_.starts_with(separator_))
            return false;
        rest_.remove_prefix(1);
        if (separator_ != ' ')
            return true;
        PassBlanks(); // blanks at the end of a line separate nothing
        return !rest_.empty() && !IsLineEnd(rest_.front());
    }

    void TakeLineEnd() {
        if (!rest_.empty())
            rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
    }

    std::string_view rest_;
    char separator_;
    bool cut_ = false;
};

bool IsEmptyLine(const std::vector<Cell>& row) {
    return row.size() == 1 && row[0].text.empty() && !row[0].quoted;
}

std::string CellText(const Cell& cell) {
    if (!cell.quoted)
        return std::string(cell.text);
    std::string text;
    for (std::size_t i = 0; i < cell.text.size(); ++i) {
        text += cell.text[i];
        if (cell.text.substr(i).starts_with("\"\""))
            ++i;
    }
    return text;
}

std::vector<std::string> TextsOf(const std::vector<Cell>& row) {
    std::vector<std::string> texts;
    for (const Cell& cell : row)
        texts.push_back(CellText(cell));
    return texts;
}

// --- cells to numbers

/// Whether exactly three digits stand at the head of a text.
bool StartsWithGroup(std::string_view text) {
    return text.size() >= kDigitsOfGroup &&
           std::ranges::all_of(text.substr(0, kDigitsOfGroup), IsDigit) &&
           (text.size() == kDigitsOfGroup || !IsDigit(text[kDigitsOfGroup]));
}

/// The length of a blank or an apostrophe at the head of a text, 0: none.
std::size_t BlankLength(std::string_view text) {
    for (const std::string_view blank :
         {std::string_view(" "), std::string_view("'"), kNoBreakSpace, kNarrowSpace, kThinSpace})
        if (text.starts_with(blank))
            return blank.size();
    return 0;
}

/// Takes blanks and apostrophes that part thousands out, and makes a minus sign a hyphen.
std::string Simplify(std::string_view cell) {
    std::string text;
    while (!cell.empty()) {
        const std::size_t blank = BlankLength(cell);
        const std::size_t minus = cell.starts_with(kMinusSign) ? kMinusSign.size() : 0;
        const std::string_view behind = cell.substr(std::max<std::size_t>(blank + minus, 1));
        if (minus > 0)
            text += '-';
        else if (blank == 0)
            text += cell[0];
        else if (!text.empty() && !behind.empty() && !StartsWithGroup(behind))
            text += ' '; // within a number it makes none
        cell = behind;
    }
    return text;
}

/// Whether a sign stands between groups of three digits, behind one to three that do not begin with
/// 0: then it may be one that parts thousands. What stands behind the last group does not count.
bool PartsThousands(std::string_view text, char sign) {
    std::size_t at = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    const auto digits = [&] {
        const std::size_t start = at;
        while (at < text.size() && IsDigit(text[at]))
            ++at;
        return at - start;
    };
    if (at < text.size() && text[at] == '0')
        return false;
    const std::size_t lead = digits();
    if (lead == 0 || lead > kDigitsOfGroup)
        return false;
    for (; at < text.size() && text[at] == sign;) {
        ++at;
        if (digits() != kDigitsOfGroup)
            return false;
    }
    return text.find(sign, at) == std::string_view::npos;
}

/// How a cell's decimal sign can be told from its text.
struct SignForms {
    std::size_t points = 0, commas = 0;
    /// The sign that is the decimal one for certain; nothing when there is none or two ways are open.
    std::optional<DecimalSign> certain;
    /// The sign that stands once and may part thousands or be the decimal one.
    std::optional<DecimalSign> open;
};

SignForms FormsOf(std::string_view text) {
    SignForms forms;
    forms.points = static_cast<std::size_t>(std::ranges::count(text, '.'));
    forms.commas = static_cast<std::size_t>(std::ranges::count(text, ','));
    if (forms.points > 0 && forms.commas > 0) {
        forms.certain = text.rfind(',') > text.rfind('.') ? DecimalSign::Comma : DecimalSign::Point;
    } else if (forms.points + forms.commas > 1) { // such as 1.234.567
        forms.certain = forms.points > 0 ? DecimalSign::Comma : DecimalSign::Point;
    } else if (forms.points + forms.commas == 1) {
        const DecimalSign sign = forms.points > 0 ? DecimalSign::Point : DecimalSign::Comma;
        (PartsThousands(text, static_cast<char>(sign)) ? forms.open : forms.certain) = sign;
    }
    return forms;
}

} // namespace

std::string DecodeTableText(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE"))
        return FromUtf16(bytes.substr(2), false);
    if (bytes.starts_with("\xFE\xFF"))
        return FromUtf16(bytes.substr(2), true);
    return DecodeText(bytes);
}

std::optional<double> ParseCell(std::string_view cell, DecimalSign sign) {
    if (cell.size() > kLongestNumber)
        return std::nullopt;
    const bool plain = cell.find(',') == std::string_view::npos;
    if (plain && sign == DecimalSign::Point)
        if (const std::optional<double> number = ParseNumber(cell))
            return number;
    std::string text = Simplify(cell);
    const SignForms forms = FormsOf(text);
    const DecimalSign decimal = forms.certain.value_or(forms.open ? sign : DecimalSign::Point);
    const char grouping = decimal == DecimalSign::Comma ? '.' : ',';
    if (text.find(grouping) != std::string::npos) {
        if (!PartsThousands(text, grouping))
            return std::nullopt;
        std::erase(text, grouping);
    }
    std::ranges::replace(text, ',', '.');
    return ParseNumber(text);
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

namespace {

/// What makes a row one of numbers: nothing but numbers, or one among texts.
enum class RowTest { AllNumbers, AnyNumber };

bool IsNumeric(const std::vector<Cell>& row, RowTest test) {
    bool any = false;
    for (const Cell& cell : row) {
        if (cell.text.empty())
            continue;
        const bool number = ParseCell(cell.text, DecimalSign::Point).has_value();
        if (!number && test == RowTest::AllNumbers)
            return false;
        any = any || number;
    }
    return any;
}

/// How many of the first lines are rows of numbers in so many columns or more.
int CountNumericRows(std::string_view text, char separator, RowTest test, std::size_t columns) {
    TableScanner scanner(text, separator);
    std::vector<Cell> row;
    int count = 0;
    for (int line = 0; line < kGuessLines && scanner.NextRow(row); ++line)
        count += row.size() >= columns && IsNumeric(row, test) ? 1 : 0;
    return count;
}

/// Returned: a tab for a single column.
char GuessSeparator(std::string_view text, RowTest& test) {
    for (const RowTest tried : {RowTest::AllNumbers, RowTest::AnyNumber}) {
        test = tried;
        char best = 0;
        int most = 0;
        for (const char separator : kSeparators) {
            if (text.find(separator) == std::string_view::npos)
                continue;
            const int rows = CountNumericRows(text, separator, test, 2);
            if (rows > most) {
                most = rows;
                best = separator;
            }
        }
        if (best != 0)
            return best;
        if (CountNumericRows(text, '\t', test, 1) > 0) // a single column
            break;
    }
    return '\t';
}

/// What a column's cells tell of its decimal sign.
struct ColumnSigns {
    int certainPoints = 0, certainCommas = 0;
    std::string openPoint, openComma, anyComma; ///< an example of each, empty: none

    void Take(std::string_view cell) {
        if (cell.size() > kLongestNumber)
            return;
        const std::string text = Simplify(cell);
        const SignForms forms = FormsOf(text);
        if (anyComma.empty() && forms.commas > 0)
            anyComma = std::string(cell);
        if (forms.certain)
            ++(*forms.certain == DecimalSign::Comma ? certainCommas : certainPoints);
        if (forms.open) {
            std::string& example = *forms.open == DecimalSign::Comma ? openComma : openPoint;
            if (example.empty())
                example = std::string(cell);
        }
    }
    DecimalSign Sign() const {
        const int commas = certainCommas, points = certainPoints;
        const bool onlyOpenCommas = commas + points == 0 && openPoint.empty() && !openComma.empty();
        return commas > points || onlyOpenCommas ? DecimalSign::Comma : DecimalSign::Point;
    }
    /// A text that can be read in two ways; with points alone only where commas occur elsewhere.
    std::string Doubtful(bool commasElsewhere) const {
        if (Sign() == DecimalSign::Comma)
            return certainCommas > 0 ? openPoint : openComma;
        if (!openComma.empty())
            return openComma;
        return certainPoints == 0 && commasElsewhere ? openPoint : std::string();
    }
};

/// Whether the comma between the two cells of a row may as well be the decimal sign of a single
/// column: "1,5".
bool MayBeOneNumber(const std::vector<Cell>& row) {
    if (row.size() == 1)
        return true;
    if (row.size() != 2 || row[0].quoted || row[1].quoted || row[0].text.empty() ||
        row[1].text.empty())
        return false;
    const char* const start = row[0].text.data(); // the cells lie in one text
    const std::string_view whole(start, static_cast<std::size_t>(row[1].text.data() - start) +
                                            row[1].text.size());
    return whole.find(' ') == std::string_view::npos && IsDigit(row[0].text.back()) &&
           IsDigit(row[1].text.front()) && ParseCell(whole, DecimalSign::Comma);
}

/// What one walk through a table tells.
struct TableSurvey {
    int skipLines = 0;
    std::vector<std::string> heads;
    std::vector<ColumnSigns> columns;
    bool mayBeOneColumn = true; ///< every row may be one number with a decimal comma
};

TableSurvey SurveyTable(std::string_view text, char separator, RowTest test) {
    TableSurvey survey;
    TableScanner scanner(text, separator);
    std::vector<Cell> row;
    bool heading = true;
    for (int line = 0; scanner.NextRow(row); ++line) {
        if (IsEmptyLine(row))
            continue;
        if (heading && !IsNumeric(row, test)) {
            if (line >= kGuessLines)
                break;
            survey.heads = TextsOf(row);
            continue;
        }
        if (heading)
            survey.skipLines = line;
        heading = false;
        survey.columns.resize(std::max(survey.columns.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            survey.columns[i].Take(row[i].text);
        survey.mayBeOneColumn = survey.mayBeOneColumn && MayBeOneNumber(row);
    }
    if (heading)
        survey.heads.clear();
    return survey;
}

} // namespace

TableGuess GuessTableLayout(std::string_view text) {
    TableGuess guess;
    RowTest test = RowTest::AllNumbers;
    guess.layout.separator = GuessSeparator(text, test);
    TableSurvey survey = SurveyTable(text, guess.layout.separator, test);
    // One comma a line, without a heading of two columns: rather numbers than couples of integers.
    if (guess.layout.separator == ',' && survey.mayBeOneColumn && survey.heads.size() != 2) {
        const TableSurvey single = SurveyTable(text, '\t', test);
        if (single.columns.size() == 1 && !single.columns[0].anyComma.empty()) {
            guess.layout.separator = '\t';
            survey = single;
            guess.doubts.push_back({.column = -1, .example = single.columns[0].anyComma});
        }
    }
    guess.layout.skipLines = survey.skipLines;
    guess.heads = survey.heads;
    const bool commas = std::ranges::any_of(
        survey.columns, [](const ColumnSigns& column) { return !column.anyComma.empty(); });
    for (std::size_t i = 0; i < survey.columns.size(); ++i) {
        const DecimalSign sign = survey.columns[i].Sign();
        guess.layout.decimals.push_back(sign);
        const std::string example = survey.columns[i].Doubtful(commas);
        if (!example.empty())
            guess.doubts.push_back({.column = static_cast<int>(i), .example = example});
    }
    for (TableDoubt& doubt : guess.doubts) {
        const auto column = static_cast<std::size_t>(std::max(doubt.column, 0));
        doubt.reading = ParseCell(doubt.example, guess.layout.decimals[column]).value_or(0);
    }
    return guess;
}

std::size_t TableNumbers::Columns() const {
    std::size_t columns = 0;
    for (std::size_t row = 0; row < Rows(); ++row)
        columns = std::max(columns, Row(row).size());
    return columns;
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
