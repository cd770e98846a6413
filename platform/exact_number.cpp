#include "platform/exact_number.h"

#include <array>
#include <charconv>

namespace zorvant {

std::string ExactText(double value) {
    std::array<char, 32> text{}; // the longest is 24 characters
    // -0 is written as 0: that is how files are read.
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value + 0.0).ptr;
    return {text.data(), end};
}

} // namespace zorvant
