// Bytes of text files: UTF-8 and Windows-1252.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zorvant {

/// Characters of a comment that a box or a preview shows; the whole stands in its editor.
inline constexpr std::size_t kShownComment = 500;

/// Text from bytes: UTF-8 where the bytes are valid UTF-8, else Windows-1252. A mark at the start
/// is dropped.
std::string DecodeText(std::string_view bytes);
/// Windows-1252 where every character fits, else UTF-8.
std::string EncodeText(std::string_view utf8);
/// Whether the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
bool IsUtf8(std::string_view bytes);
/// Foreign text for a terminal: control characters, and those that turn the direction of writing,
/// as escapes; line ends stay, what is no UTF-8 is shown byte by byte.
std::string TerminalText(std::string_view text);
/// At most so many characters of a text, with an ellipsis where more follow.
std::string Shortened(std::string_view utf8, std::size_t characters);
/// Characters of a text; a byte that is not of UTF-8 counts as one.
std::size_t CountCharacters(std::string_view utf8);
/// Appends a character by its number in Unicode.
void AppendUtf8(std::string& text, unsigned codePoint);

} // namespace zorvant
