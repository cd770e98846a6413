#include "platform/encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>

namespace zorvant {
namespace {

// Windows-1252 0x80..0x9F; the five places that it leaves open stand for the control characters of
// the same numbers, so that any bytes come back unchanged.
constexpr std::array<std::uint16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

struct CodePoint {
    unsigned code = 0;
    std::size_t length = 0; ///< bytes; 0: not well formed
};

/// The character at the head of a text that is not empty.
CodePoint HeadOf(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(0);
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return {};
    unsigned code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return {};
        code = code << 6 | (byte(i) & 0x3FU);
    }
    constexpr std::array<unsigned, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < kSmallest[length] || code > 0x10FFFF || surrogate ? CodePoint{}
                                                                    : CodePoint{code, length};
}

/// Returned: nothing where a character does not fit.
std::optional<std::string> Windows1252Of(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!utf8.empty()) {
        const CodePoint head = HeadOf(utf8);
        utf8.remove_prefix(head.length);
        if (head.code < 0x80 || (head.code >= 0xA0 && head.code <= 0xFF)) {
            bytes += static_cast<char>(head.code);
            continue;
        }
        const auto place = std::ranges::find(kWindows1252, head.code);
        if (place == kWindows1252.end())
            return std::nullopt;
        bytes += static_cast<char>(0x80 + (place - kWindows1252.begin()));
    }
    return bytes;
}

bool IsAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

void AppendUtf8(std::string& text, unsigned codePoint) {
    if (codePoint < 0x80) {
        text += static_cast<char>(codePoint);
        return;
    }
    const unsigned following = codePoint < 0x800 ? 1 : codePoint < 0x10000 ? 2 : 3;
    constexpr std::array<unsigned, 4> kLead = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(kLead[following] | codePoint >> 6 * following);
    for (unsigned i = following; i-- > 0;)
        text += static_cast<char>(0x80 | (codePoint >> 6 * i & 0x3F));
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const CodePoint head = HeadOf(bytes);
        if (head.length == 0)
            return false;
        bytes.remove_prefix(head.length);
    }
    return true;
}

std::string DecodeText(std::string_view bytes) {
    if (IsUtf8(bytes)) {
        if (bytes.starts_with(kUtf8Mark))
            bytes.remove_prefix(kUtf8Mark.size());
        return std::string(bytes);
    }
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const unsigned byte = static_cast<unsigned char>(c);
        AppendUtf8(text, byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : byte);
    }
    return text;
}

std::string EncodeText(std::string_view utf8) {
    if (!IsUtf8(utf8) || IsAscii(utf8))
        return std::string(utf8);
    // Few texts in Windows-1252 happen to be valid UTF-8 as well and would be read as that.
    const std::optional<std::string> bytes = Windows1252Of(utf8);
    if (bytes && !IsUtf8(*bytes))
        return *bytes;
    // A text that itself begins with a mark gets one more, since reading drops one.
    return (utf8.starts_with(kUtf8Mark) ? std::string(kUtf8Mark) : std::string()) +
           std::string(utf8);
}

std::string TerminalText(std::string_view text) {
    std::string shown;
    const auto escape = [&shown](const char* form, unsigned code) {
        char number[16];
        std::snprintf(number, sizeof number, form, code);
        shown += number;
    };
    while (!text.empty()) {
        const CodePoint head = HeadOf(text);
        const unsigned code = head.code;
        if (head.length == 0)
            escape("\\x%02X", static_cast<unsigned char>(text[0]));
        else if (text.starts_with("\r\n"))
            ; // the line feed alone does it
        else if ((code < 0x20 && code != '\n') || (code >= 0x7F && code < 0xA0))
            escape("\\x%02X", code);
        else if (code == 0x200E || code == 0x200F || (code >= 0x2028 && code <= 0x202E) ||
                 (code >= 0x2066 && code <= 0x2069))
            escape("\\u%04X", code);
        else
            shown += text.substr(0, head.length);
        text.remove_prefix(std::max<std::size_t>(head.length, 1));
    }
    return shown;
}

std::size_t CountCharacters(std::string_view utf8) {
    std::size_t count = 0;
    for (; !utf8.empty(); ++count)
        utf8.remove_prefix(std::max<std::size_t>(HeadOf(utf8).length, 1));
    return count;
}

std::string Shortened(std::string_view utf8, std::size_t characters) {
    std::string_view rest = utf8;
    for (std::size_t count = 0; count < characters && !rest.empty(); ++count)
        rest.remove_prefix(std::max<std::size_t>(HeadOf(rest).length, 1));
    std::string kept(utf8.substr(0, utf8.size() - rest.size()));
    return rest.empty() ? kept : kept + "\u2026";
}

} // namespace zorvant
