// What the calculations of the reactors need in order to begin; what users are told stands in
// engine/input_rules.
#pragma once

#include "engine/project_state.h"

namespace zorvant {

/// Whether a calculation can begin: constants of the model finite and not negative, concentrations
/// finite, where the model has an order one above 0.
bool IsSoundInput(const ProjectState& ps, int model, const SpeciesArray& c);

} // namespace zorvant
