#include "engine/experimental_data.h"

#include <stdexcept>

namespace zorvant {

double& ExpPoint::c(int slot) {
    switch (slot) {
    case 1:
        return cA;
    case 2:
        return cB;
    case 3:
        return cC;
    case 4:
        return cP;
    case 5:
        return cQ;
    default:
        throw std::out_of_range("species slot " + std::to_string(slot));
    }
}

double ExpPoint::c(int slot) const {
    return const_cast<ExpPoint*>(this)->c(slot);
}

} // namespace zorvant
