// Saving of data files: what stood in the file before is kept beside it.
#pragma once

#include <string>
#include <string_view>

namespace zorvant {

/// Replaces a file by these bytes; the version before stays as `name~`, with the permissions that
/// it had; a link of that name is replaced, not followed. A file that already holds these bytes
/// keeps the older version that stands beside it, and so does one that can't be written.
/// Errors: FileError: the old version could not be kept or the new one not be written; the file
///         then is as it was
void WriteKeepingPrevious(const std::string& path, std::string_view bytes);

} // namespace zorvant
