#include "residence/tank_number.h"

#include "platform/number_text.h"

namespace zorvant {

TankNumber ReadTankNumber(std::string_view text, int limit, const char* refusal) {
    if (Trim(text).empty())
        return {};
    const double value = Val(text);
    TankNumber read;
    read.accepted = value > 0 && value <= limit && RoundHalfEven(value) >= 1;
    if (read.accepted)
        read.N = static_cast<int>(RoundHalfEven(value));
    else
        read.message = {refusal, "Execution not possible", Icon::Critical};
    return read;
}

} // namespace zorvant
