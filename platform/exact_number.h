// Numbers in files of our own that must read back as the very same double.
#pragma once

#include <string>

namespace zorvant {

/// The shortest text that reads back as the same double, with a point and without blanks.
/// Given: a finite number
std::string ExactText(double value);

} // namespace zorvant
