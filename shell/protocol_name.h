// Names of the running protocol's files.
#pragma once

#include <string>

namespace zorvant {

/// Today as YYMMDD.
std::string DateDigits();

/// The next free automatic name in a folder: YYMMDDnn.CSV with the lowest free nn from 01 on (three
/// digits from the hundredth of a day).
std::string NextProtocolName(const std::string& directory, const std::string& dateDigits);

} // namespace zorvant
