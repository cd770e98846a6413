// Bytes of text files: UTF-8 and Windows-1252.
#pragma once

#include <string>
#include <string_view>

namespace zorvant {

/// Text from bytes: UTF-8 where the bytes are valid UTF-8, else Windows-1252. A mark at the start is
/// dropped.
std::string DecodeText(std::string_view bytes);
/// Windows-1252 where every character fits, else UTF-8.
std::string EncodeText(std::string_view utf8);
/// Whether the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
bool IsUtf8(std::string_view bytes);
/// Appends a character by its number in Unicode.
void AppendUtf8(std::string& text, unsigned codePoint);

} // namespace zorvant
