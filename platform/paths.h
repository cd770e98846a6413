// Names of files and folders. Both separators are understood on reading; "/" is used here.
#pragma once

#include <string>
#include <string_view>

namespace zorvant {

std::string FileName(std::string_view path);    ///< behind the last separator
std::string DirectoryOf(std::string_view path); ///< with the separator at its end; "" without one
std::string JoinPath(std::string_view directory, std::string_view name);
bool HasFolder(std::string_view path); ///< whether it is more than a name

} // namespace zorvant
