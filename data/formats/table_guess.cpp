// How a table is to be read, told from its text.
#include "data/formats/table_cells.h"

#include <algorithm>
#include <array>

namespace zorvant {
namespace {

/// Where several separators serve, the first one.
constexpr std::array<char, 4> kSeparators = {'\t', ';', ',', ' '};
/// Lines by which the separator is told; headings are shorter than this.
constexpr int kGuessLines = 1000;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

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

} // namespace zorvant
