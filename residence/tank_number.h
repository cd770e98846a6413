// A typed number of tanks, as both residence-time dialogs read it.
#pragma once

#include "platform/host.h"

#include <string_view>

namespace zorvant {

struct TankNumber {
    int N = 1;
    bool accepted = true; ///< false: the box becomes "1"
    MessageBox message;   ///< of a refused number
};

/// Reads a number of tanks. An empty text is 1; a broken number is rounded to an integer, halves to
/// the even one.
/// Given:    limit    the largest number allowed
///           refusal  the text for a number outside 1..limit
/// Returned: N = 1 and the message for a refused number; one that rounds to 0 is refused too
TankNumber ReadTankNumber(std::string_view text, int limit, const char* refusal);

} // namespace zorvant
