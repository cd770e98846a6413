#include "platform/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace zorvant {
namespace {

/// Significant digits of a Single and of a Double that survive the way to text and back.
constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;
/// Beyond it 15 digits would round to a number that is out of range.
constexpr double kLargestInDigits = 1.79769313486231E+308;
/// Longest text of a number in scientific form with 15 digits: sign, point, E+308.
constexpr std::size_t kNumberLength = 32;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

/// A number found at the head of a text.
struct ScannedNumber {
    std::string digits; ///< as std::from_chars takes it: no plus, exponent with e
    std::size_t length = 0;
    long magnitude = 0; ///< power of ten of the first digit that is not 0, less 1; for overflow
    bool isZero = true;
};

/// Optional sign, digits with a point anywhere, optional exponent. length 0: none there.
ScannedNumber ScanNumber(std::string_view text) {
    ScannedNumber found;
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
        if (text[at] == '-')
            found.digits += '-';
        ++at;
    }
    bool anyDigit = false;
    bool point = false;
    for (; at < text.size() && (IsDigit(text[at]) || (text[at] == '.' && !point)); ++at) {
        const char c = text[at];
        found.digits += c;
        if (c == '.') {
            point = true;
            continue;
        }
        anyDigit = true;
        if (!found.isZero)
            found.magnitude += point ? 0 : 1;
        else if (c != '0')
            found.isZero = false, found.magnitude += point ? 0 : 1;
        else
            found.magnitude -= point ? 1 : 0;
    }
    if (!anyDigit)
        return {};
    found.length = at;
    constexpr std::string_view kExponentLetters = "EeDd";
    if (at < text.size() && kExponentLetters.find(text[at]) != std::string_view::npos) {
        std::size_t e = at + 1;
        std::string exponent = "e";
        if (e < text.size() && (text[e] == '+' || text[e] == '-'))
            exponent += text[e++];
        const std::size_t firstDigit = e;
        long power = 0;
        for (; e < text.size() && IsDigit(text[e]); ++e) {
            exponent += text[e];
            power = std::min(power * 10 + (text[e] - '0'), 1000000000L);
        }
        if (e > firstDigit) {
            found.digits += exponent;
            found.magnitude += exponent[1] == '-' ? -power : power;
            found.length = e;
        }
    }
    return found;
}

/// Returned: the number; an infinity when it is beyond the range, 0 when it is below it.
double NumberOf(const ScannedNumber& found) {
    if (found.isZero)
        return 0;
    double value = 0;
    const char* const end = found.digits.data() + found.digits.size();
    const auto [stop, error] = std::from_chars(found.digits.data(), end, value);
    if (error == std::errc::result_out_of_range) {
        const double huge = std::numeric_limits<double>::infinity();
        if (found.magnitude < 0)
            return 0;
        return found.digits.front() == '-' ? -huge : huge;
    }
    return value;
}

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Shortest of fixed and exponent notation with so many significant digits: fixed from 0.0001 up to
/// as many places before the point as there are digits.
std::string Digits(double value, int significant) {
    if (value == 0) // -0 too
        return "0";
    char buffer[kNumberLength];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value,
                                            std::chars_format::general, significant);
    std::string text(buffer, end);
    std::ranges::replace(text, 'e', 'E');
    return text;
}

/// Through Single where its range allows, else the double itself with as many digits.
std::string SingleDigits(double value) {
    const float single = static_cast<float>(value);
    return Digits(std::isfinite(single) ? static_cast<double>(single) : value, kSingleDigits);
}

std::string WithoutLeadingZero(std::string text) {
    const std::size_t at = !text.empty() && text.front() == '-' ? 1 : 0;
    if (text.size() > at + 1 && text[at] == '0' && text[at + 1] == '.')
        text.erase(at, 1);
    return text;
}

std::string WithSignPlace(std::string text) {
    return text.empty() || text.front() == '-' ? text : " " + text;
}

/// A picture of places taken apart.
struct Picture {
    std::string before, between, after; ///< what stands for itself
    int integerPlaces = 0;              ///< of both kinds
    int integerZeros = 0;               ///< places always shown
    int decimals = 0;
    int decimalZeros = 0; ///< decimals always shown
    bool exponent = false;
    bool exponentPlus = false; ///< a plus is shown
    int exponentZeros = 0;
};

bool IsPlace(char c) {
    return c == '0' || c == '#';
}

Picture ReadPicture(std::string_view text) {
    Picture picture;
    std::size_t at = 0;
    // A picture without a point has its decimal sign as a comma, as in "####,##".
    const char pointSign = text.find('.') == std::string_view::npos ? ',' : '.';
    while (at < text.size() && !IsPlace(text[at]) && text[at] != pointSign)
        picture.before += text[at++];
    bool point = false;
    for (; at < text.size() && (IsPlace(text[at]) || (text[at] == pointSign && !point)); ++at) {
        if (text[at] == pointSign) {
            point = true;
        } else if (point) {
            ++picture.decimals;
            if (text[at] == '0')
                picture.decimalZeros = picture.decimals;
        } else {
            ++picture.integerPlaces;
            if (text[at] == '0' || picture.integerZeros > 0)
                ++picture.integerZeros;
        }
    }
    for (; at < text.size(); ++at) {
        const bool startsExponent =
            !picture.exponent && at + 2 < text.size() && (text[at] == 'E' || text[at] == 'e') &&
            (text[at + 1] == '+' || text[at + 1] == '-') && IsPlace(text[at + 2]);
        if (!startsExponent) {
            (picture.exponent ? picture.after : picture.between) += text[at];
            continue;
        }
        picture.exponent = true;
        picture.exponentPlus = text[at + 1] == '+';
        for (at += 2; at < text.size() && IsPlace(text[at]); ++at)
            picture.exponentZeros += text[at] == '0' ? 1 : 0;
        --at;
    }
    if (!picture.exponent)
        std::swap(picture.between, picture.after);
    return picture;
}

/// |value| = 0.digits * 10^power
struct Decimal {
    std::string digits;
    int power = 0;
};

/// The 15 digits that a double is good for.
Decimal DecimalOf(double value) {
    char buffer[kNumberLength];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, std::abs(value),
                                            std::chars_format::scientific, kDoubleDigits - 1);
    const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
    const std::size_t e = text.find('e');
    Decimal decimal;
    decimal.digits = text.substr(0, 1);
    decimal.digits += text.substr(2, e - 2);
    const bool plus = text[e + 1] == '+';
    std::from_chars(text.data() + e + (plus ? 2 : 1), end, decimal.power);
    ++decimal.power;
    return decimal;
}

/// Keeps so many digits, rounding half away from zero; fewer than 0 leave none.
void RoundTo(Decimal& decimal, int keep) {
    if (keep < 0) {
        decimal.digits.clear();
        return;
    }
    const auto count = static_cast<std::size_t>(keep);
    if (count >= decimal.digits.size())
        return;
    const bool up = decimal.digits[count] >= '5';
    decimal.digits.resize(count);
    if (!up)
        return;
    std::size_t at = count;
    while (at > 0 && decimal.digits[at - 1] == '9')
        decimal.digits[--at] = '0';
    if (at > 0) {
        ++decimal.digits[at - 1];
        return;
    }
    decimal.digits.insert(0, 1, '1');
    ++decimal.power;
}

/// Digit of the place 10^place, 0 where none is kept.
char DigitAt(const Decimal& decimal, int place) {
    const int index = decimal.power - 1 - place;
    return index >= 0 && index < static_cast<int>(decimal.digits.size())
               ? decimal.digits[static_cast<std::size_t>(index)]
               : '0';
}

std::string PlacesText(const Decimal& decimal, const Picture& picture) {
    std::string text;
    for (int place = std::max(decimal.power, picture.integerZeros) - 1; place >= 0; --place)
        text += DigitAt(decimal, place);
    if (picture.integerZeros == 0 && text.find_first_not_of('0') == std::string::npos)
        text.clear();
    std::string fraction;
    for (int place = 1; place <= picture.decimals; ++place)
        fraction += DigitAt(decimal, -place);
    while (fraction.size() > static_cast<std::size_t>(picture.decimalZeros) &&
           fraction.back() == '0')
        fraction.pop_back();
    if (!fraction.empty())
        text += "." + fraction;
    return text.empty() ? "0" : text;
}

std::string ExponentText(int power, const Picture& picture) {
    std::string digits = std::to_string(std::abs(power));
    while (static_cast<int>(digits.size()) < picture.exponentZeros)
        digits.insert(0, 1, '0');
    return std::string("E") + (power < 0 ? "-" : picture.exponentPlus ? "+" : "") + digits;
}

} // namespace

double Val(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    const ScannedNumber found = ScanNumber(text);
    const double largest = std::numeric_limits<double>::max();
    return found.length == 0 ? 0 : std::clamp(NumberOf(found), -largest, largest);
}

std::optional<double> ParseNumber(std::string_view text) {
    const std::string_view trimmed = TrimBlanks(text);
    // Most texts are as from_chars takes them; files of many rows are read through here.
    double value = 0;
    const char* const end = trimmed.data() + trimmed.size();
    const auto [stop, error] = std::from_chars(trimmed.data(), end, value);
    if (error == std::errc() && stop == end && std::isfinite(value))
        return value + 0.0; // 0 for -0
    const ScannedNumber found = ScanNumber(trimmed);
    if (found.length == 0 || found.length != trimmed.size())
        return std::nullopt;
    value = NumberOf(found);
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<long long> ParseInteger(std::string_view text) {
    std::string_view trimmed = TrimBlanks(text);
    if (trimmed.size() > 1 && trimmed[0] == '+' && IsDigit(trimmed[1]))
        trimmed.remove_prefix(1);
    long long value = 0;
    const char* const end = trimmed.data() + trimmed.size();
    const auto [stop, error] = std::from_chars(trimmed.data(), end, value);
    return error == std::errc() && stop == end && !trimmed.empty() ? std::optional(value)
                                                                   : std::nullopt;
}

std::string GeneralText(double value) {
    return std::isfinite(value) ? WithSignPlace(SingleDigits(value)) : std::string();
}

std::string PlainText(double value) {
    return std::isfinite(value) ? WithSignPlace(WithoutLeadingZero(SingleDigits(value)))
                                : std::string();
}

std::string SingleText(double value) {
    return std::isfinite(value) ? SingleDigits(value) : std::string();
}

std::string FileText(double value) {
    if (!std::isfinite(value))
        return "0";
    const double bounded = std::clamp(value, -kLargestInDigits, kLargestInDigits);
    return WithoutLeadingZero(Digits(bounded, kDoubleDigits));
}

std::string FileTextSingle(double value) {
    return std::isfinite(value) ? WithoutLeadingZero(SingleDigits(value)) : "0";
}

std::string FormatNumber(double value, std::string_view pictureText) {
    if (!std::isfinite(value))
        return {};
    const Picture picture = ReadPicture(pictureText);
    Decimal decimal = DecimalOf(value);
    std::string tail;
    if (picture.exponent) {
        RoundTo(decimal, picture.integerPlaces + picture.decimals);
        int power = 0;
        if (value != 0) {
            power = decimal.power - picture.integerPlaces;
            decimal.power = picture.integerPlaces;
        }
        tail = ExponentText(power, picture);
    } else {
        RoundTo(decimal, decimal.power + picture.decimals);
    }
    const bool negative = value < 0 && decimal.digits.find_first_not_of('0') != std::string::npos;
    return picture.before + (negative ? "-" : "") + PlacesText(decimal, picture) + picture.between +
           tail + picture.after;
}

std::int64_t RoundHalfEven(double value) {
    if (std::isnan(value))
        return 0;
    constexpr double kBeyond = 9223372036854775808.0; // 2^63
    if (value >= kBeyond)
        return std::numeric_limits<std::int64_t>::max();
    if (value < -kBeyond)
        return std::numeric_limits<std::int64_t>::min();
    const double below = std::floor(value);
    const double rest = value - below;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0);
    return static_cast<std::int64_t>(up ? below + 1 : below);
}

std::string CommasToPoints(std::string text) {
    std::ranges::replace(text, ',', '.');
    return text;
}

bool FilterNumericKey(int& key) {
    constexpr int kBackspace = 8;
    if (key == ',')
        key = '.';
    return (key >= '0' && key <= '9') || key == '.' || key == '+' || key == '-' || key == 'E' ||
           key == 'e' || key == kBackspace;
}

std::string UpperCase(std::string_view text) {
    // Letters U+00E0..U+00FE but U+00F7 (the division sign) are 0xC3 0xA0..0xBE in UTF-8; their
    // capitals lie 0x20 lower.
    std::string upper(text);
    bool latin = false;
    for (char& c : upper) {
        const auto byte = static_cast<unsigned char>(c);
        if ((c >= 'a' && c <= 'z') || (latin && byte >= 0xA0 && byte <= 0xBE && byte != 0xB7))
            c = static_cast<char>(byte - 0x20);
        latin = byte == 0xC3;
    }
    return upper;
}

std::string Trim(std::string_view text) {
    constexpr std::string_view kSpace = " \t\r\n\v\f";
    const std::size_t first = text.find_first_not_of(kSpace);
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(kSpace) - first + 1));
}

bool EndsWith(std::string_view text, std::string_view end) {
    return text.ends_with(end);
}

std::string JoinLines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (auto line = lines.begin(); line != lines.end(); ++line) {
        if (line != lines.begin())
            text += kCrLf;
        text += *line;
    }
    return text;
}

} // namespace zorvant
