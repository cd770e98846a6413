// Numbers to text and back. The one place where that happens; the locale never matters.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace zorvant {

/// The number at the start of a text: leading blanks and tabs skipped, exponent with E, e, D or d
/// accepted, reading stops at the first character that can't belong to a number.
/// Returned: 0 for an empty text or none; never NaN; an overflow gives the largest double.
double Val(std::string_view text);

/// The whole text as one number (blanks around it allowed), as files hold it.
/// Returned: nothing when it is empty, has other characters, is NaN, infinite or out of range.
std::optional<double> ParseNumber(std::string_view text);
std::optional<long long> ParseInteger(std::string_view text);

/// General form through single precision, at most 7 significant digits, with the zero before the
/// point and a blank before values >= 0: " 0.5", "-3", " 1.5E-05". Fields and messages.
std::string GeneralText(double value);
/// The same without the zero before the point: " .5". Headers of diagrams, plain number form.
std::string PlainText(double value);
/// The same as GeneralText without the leading blank: "0.5". Tables.
std::string SingleText(double value);
/// At most 15 significant digits, no blank, no zero before the point: ".5". Files.
std::string FileText(double value);
/// At most 7 significant digits of the value as Single, else as FileText.
std::string FileTextSingle(double value);

/// A number by a picture of places: "0.00", "#####0.00", ".0000000E+00", "0.0 E+##", "##0.#".
/// 0 is a place always shown, # one shown where needed, E+00 or E+## the exponent, other characters
/// stand for themselves. Rounded half away from zero, as written.
std::string FormatNumber(double value, std::string_view picture);

/// To the nearest integer, halves to the even one.
/// Errors: ArithmeticError is the caller's to raise; out of range is clamped.
std::int64_t RoundHalfEven(double value);

/// Every comma a point: what is pasted into a numeric field.
std::string CommasToPoints(std::string text);

/// The key filter of all numeric fields: a comma becomes a point.
/// Returned: false for a key that no number can hold (digits, point, signs, E, e, backspace can).
bool FilterNumericKey(int& key);

/// Letters A..Z from a..z, others as they are; Latin-1 letters of UTF-8 text too.
std::string UpperCase(std::string_view text);
std::string Trim(std::string_view text);
bool EndsWith(std::string_view text, std::string_view end);

inline constexpr const char* kCrLf = "\r\n";
/// The lines with CR LF between them: texts of message boxes.
std::string JoinLines(std::initializer_list<std::string_view> lines);

} // namespace zorvant
