#include "reactors/reactor_input.h"

#include "engine/reaction_catalogue.h"

#include <algorithm>
#include <cmath>

namespace zorvant {

bool IsSoundInput(const ProjectState& ps, int model, const SpeciesArray& c) {
    if (model < 1 || model > kModels ||
        !std::all_of(c.begin() + 1, c.end(), [](double x) { return std::isfinite(x); }))
        return false;
    const char* mask = Model(model).rateMask;
    for (std::size_t j = 1; j <= 3; ++j)
        if (mask[j - 1] == '1' && !(std::isfinite(ps.k[j]) && ps.k[j] >= 0))
            return false;
    return !HasOrder(model) || (std::isfinite(ps.OrderN) && ps.OrderN > 0);
}

} // namespace zorvant
