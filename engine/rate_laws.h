// Rate laws of the catalogue.
#pragma once

#include "engine/project_state.h"

namespace zorvant {

/// The rates of change of all species.
/// Given:    model 1..20; kArr [1..3] 1/TU, L/(mol TU) and so on; c [1..5] mol/L;
///           OrderN of the state for model 20
/// Returned: r [1..5] mol/(L TU), dc/dt, negative for what is consumed; all 0 for another model
/// Formula:  mass action by elementary step; Michaelis-Menten as E + S <=> ES => P + E
void FuReactionRates(const ProjectState& ps, int model, SpeciesArray& r, const ConstantArray& kArr,
                     const SpeciesArray& c);

} // namespace zorvant
