#include "data/formats/xy.h"

#include "platform/encoding.h"
#include "platform/number_text.h"

#include <cmath>

namespace zorvant {
namespace {

constexpr const char* kNumberPicture = ".0000000E+00";
/// In the order in which they are looked for; a later one found replaces an earlier one.
constexpr std::string_view kDelimiters = " ,;\t";

struct Pair {
    std::string_view x, y;
};

/// The texts before and behind the first delimiter; a third column is cut off. Blanks at the start
/// and in a row are one delimiter where they are it.
Pair SplitLine(std::string_view line, char delimiter) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    const std::size_t first = line.find(delimiter);
    if (first == std::string_view::npos)
        return {line, {}};
    std::string_view rest = line.substr(first + 1);
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    return {line.substr(0, first), rest.substr(0, rest.find(delimiter))};
}

std::optional<float> ReadWhole(std::string_view text) {
    const std::optional<double> number = ParseNumber(CommasToPoints(std::string(text)));
    if (!number || !std::isfinite(static_cast<float>(*number)))
        return std::nullopt;
    return static_cast<float>(*number);
}

bool GivesTwoNumbers(std::string_view line, char delimiter) {
    const Pair pair = SplitLine(line, delimiter);
    // A comma at the end of a text is no decimal sign.
    const auto number = [](std::string_view text) {
        return !text.ends_with(',') && ReadWhole(text);
    };
    return number(pair.x) && number(pair.y);
}

/// Returned: 0 when there is none.
char FindDelimiter(std::string_view line) {
    char found = 0;
    for (const char delimiter : kDelimiters)
        if (line.find(delimiter) != std::string_view::npos)
            found = delimiter;
    // "1,5 2,5": decimal commas between blanks.
    if (found == ',' && !GivesTwoNumbers(line, ',') && GivesTwoNumbers(line, ' '))
        found = ' ';
    return found;
}

/// A number of the list: the whole text, or what stands at its head; too large a one is 0.
float ReadNumber(std::string_view text, bool& bad) {
    if (const std::optional<float> whole = ReadWhole(text))
        return *whole;
    bad = true;
    const float head = static_cast<float>(Val(CommasToPoints(std::string(text))));
    return std::isfinite(head) ? head : 0;
}

} // namespace

XYFile ParseXY(std::string_view bytes) {
    const std::string text = DecodeText(bytes);
    ItemReader reader(text);
    XYFile file;
    file.comment = reader.Line("comment");
    char delimiter = 0;
    for (int number = 2; !reader.AtEnd(); ++number) {
        const std::string line = reader.Line("point");
        if (Trim(line).empty())
            continue;
        if (delimiter == 0)
            delimiter = FindDelimiter(Trim(line));
        if (delimiter == 0)
            throw FormatError("line " + std::to_string(number) + ": " + Quoted(line) +
                              " has no delimiter between x and y");
        const Pair pair = SplitLine(line, delimiter);
        bool bad = false;
        file.points.push_back({.x = ReadNumber(pair.x, bad), .y = ReadNumber(pair.y, bad)});
        file.badLines += bad ? 1 : 0;
        if (bad && file.firstBadLine == 0)
            file.firstBadLine = number;
    }
    return file;
}

std::string WriteXY(std::string_view comment, std::span<const XYPoint> points,
                    std::string_view delimiter) {
    std::string text = OneLine(comment) + kCrLf;
    for (const XYPoint& point : points) {
        if (point.inactive != 0)
            continue;
        text += FormatNumber(static_cast<double>(point.x), kNumberPicture);
        text += delimiter;
        text += FormatNumber(static_cast<double>(point.y), kNumberPicture);
        text += kCrLf;
    }
    return EncodeText(text);
}

} // namespace zorvant
