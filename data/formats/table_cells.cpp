#include "data/formats/table_cells.h"

#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr std::size_t kDigitsOfGroup = 3;
/// Blanks as numbers are grouped with: no-break, narrow no-break and thin ones, in UTF-8; and a
/// minus sign that is no hyphen.
constexpr std::string_view kNoBreakSpace = "\xC2\xA0";
constexpr std::string_view kNarrowSpace = "\xE2\x80\xAF";
constexpr std::string_view kThinSpace = "\xE2\x80\x89";
constexpr std::string_view kMinusSign = "\xE2\x88\x92";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
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

} // namespace

// ---------------------------------------------------------------- text to cells

bool TableScanner::NextRow(std::vector<Cell>& cells) {
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

bool TableScanner::AtCellEnd(std::size_t at) const {
    return at >= rest_.size() || rest_[at] == separator_ || IsLineEnd(rest_[at]);
}

void TableScanner::PassBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
}

/// The end of a quoted cell that begins here, behind its closing quote; npos when the quote is
/// not closed before a separator: then it is a character like others.
std::size_t TableScanner::QuotedEnd() const {
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

Cell TableScanner::NextCell() {
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

bool TableScanner::TakeSeparator() {
    if (!rest_.starts_with(separator_))
        return false;
    rest_.remove_prefix(1);
    if (separator_ != ' ')
        return true;
    PassBlanks(); // blanks at the end of a line separate nothing
    return !rest_.empty() && !IsLineEnd(rest_.front());
}

void TableScanner::TakeLineEnd() {
    if (!rest_.empty())
        rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
}

bool IsEmptyLine(const std::vector<Cell>& row) {
    return row.size() == 1 && row[0].text.empty() && !row[0].quoted;
}

std::vector<std::string> TextsOf(const std::vector<Cell>& row) {
    std::vector<std::string> texts;
    for (const Cell& cell : row)
        texts.push_back(CellText(cell));
    return texts;
}

// ---------------------------------------------------------------- cells to numbers

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

} // namespace zorvant
