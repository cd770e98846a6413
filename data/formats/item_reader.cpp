#include "data/formats/item_reader.h"

#include "platform/encoding.h"
#include "platform/number_text.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace zorvant {
namespace {

constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kBlanks = " \t";
/// Characters of a foreign text that a message shows.
constexpr std::size_t kQuotedLength = 24;
/// It stands in every caption and heading with a unit.
constexpr std::size_t kLongestUnit = 40;

} // namespace

void ItemReader::Fail(const char* what, const std::string& why) const {
    std::string where = what;
    if (row_ > 0)
        where = "row " + std::to_string(row_) + " of " + std::to_string(rows_) + ", " + where;
    throw FormatError(why + " (" + where + ")");
}

void ItemReader::PassLineEnd() {
    if (rest_.empty())
        return;
    const bool pair = rest_.starts_with("\r\n");
    rest_.remove_prefix(pair ? 2 : 1);
}

std::string_view ItemReader::TakeLine() {
    const std::string_view line = rest_.substr(0, rest_.find_first_of(kLineEnds));
    rest_.remove_prefix(line.size());
    afterComma_ = false;
    return line;
}

std::string ItemReader::Line(const char* what) {
    if (rest_.empty())
        Fail(what, kPastEnd);
    std::string line(TakeLine());
    PassLineEnd();
    return line;
}

std::string ItemReader::Word(const char* what) {
    const std::string_view line = TakeLine();
    if (rest_.empty())
        Fail(what, kPastEnd);
    PassLineEnd();
    std::string word(line.substr(0, line.find(',')));
    std::erase(word, '"');
    return Trim(word);
}

std::string ItemReader::TimeUnit() {
    std::string unit = Word("time unit");
    if (CountCharacters(unit) > kLongestUnit)
        Fail("time unit", "longer than " + std::to_string(kLongestUnit) + " characters");
    return unit;
}

std::string_view ItemReader::Item(const char* what) {
    // An empty item stands only behind a comma; elsewhere the line is an empty one.
    for (;;) {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
        if (rest_.empty())
            Fail(what, kPastEnd);
        if (afterComma_ || kLineEnds.find(rest_.front()) == std::string_view::npos)
            break;
        PassLineEnd();
    }
    const std::string_view item = rest_.substr(0, rest_.find_first_of(",\r\n"));
    rest_.remove_prefix(item.size());
    afterComma_ = rest_.starts_with(',');
    PassLineEnd(); // or the comma
    return item;
}

double ItemReader::Number(const char* what) {
    const std::string_view item = Item(what);
    if (item.find_first_not_of(kBlanks) == std::string_view::npos)
        return 0;
    const std::optional<double> number = ParseNumber(item);
    if (!number)
        Fail(what, Quoted(item) + " is not a number within the range");
    return *number;
}

float ItemReader::Single(const char* what) {
    const double number = Number(what);
    if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max()))
        Fail(what, kOverflowText);
    return static_cast<float>(number);
}

int ItemReader::Integer(const char* what) {
    const std::int64_t number = RoundHalfEven(Number(what));
    if (number < std::numeric_limits<std::int16_t>::min() ||
        number > std::numeric_limits<std::int16_t>::max())
        Fail(what, kOverflowText);
    return static_cast<int>(number);
}

void ItemReader::EndRow() {
    if (!afterComma_) // the last item ended with its line
        return;
    const std::size_t next = rest_.find_first_not_of(", \t");
    if (next != std::string_view::npos && kLineEnds.find(rest_[next]) == std::string_view::npos)
        return;
    TakeLine();
    PassLineEnd();
}

std::string OneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && text.substr(i).starts_with("\r\n"))
            continue;
        line += kLineEnds.find(text[i]) == std::string_view::npos ? text[i] : ' ';
    }
    return line;
}

std::string Quoted(std::string_view text) {
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    std::string shown(text.substr(0, kQuotedLength));
    const bool cut = shown.size() < text.size();
    if (cut && continues(text[shown.size()])) { // within a character
        while (continues(shown.back()))
            shown.pop_back();
        shown.pop_back();
    }
    for (char& c : shown)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            c = '?';
    return "\"" + shown + (cut ? "\"..." : "\"");
}

} // namespace zorvant
