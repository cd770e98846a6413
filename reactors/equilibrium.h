// How far the reversible models can run, and what the reactor dialogs say about it.
#pragma once

#include "engine/project_state.h"
#include "platform/host.h"

#include <optional>

namespace zorvant {

enum class Reactor { Batch, Tubular, Cstr, Cascade };

/// The position of the equilibrium seen from the initial mixture, for the models 8, 12, 17 and 19.
struct EquilibriumLimit {
    double xe = 0; ///< mol/L, extent at equilibrium; negative: the reaction runs backward
    double Ue = 0; ///< conversion of A there
};

/// The limit for c0 and k of the state.
/// Returned: nothing for another model, without A at the start, or without a real root (bad input)
/// Formula:  K = k1/k2 = quotient of the law of mass action, solved for the extent. K is kept off 4
///           (model 12) and 1 (model 19), where the quadratic ends, by less than shows in a result.
std::optional<EquilibriumLimit> FindEquilibriumLimit(const ProjectState& ps, Reactor reactor);

/// What a dialog shows before it calculates.
struct EquilibriumCheck {
    std::optional<MessageBox> refusal; ///< nothing is calculated
    std::optional<MessageBox> note;    ///< the calculation goes on
};

/// The given conversion (UA of the state) against the limit, or, with another quantity given, a
/// note when the mixture is at equilibrium already. Nothing to say for models that are not one
/// equilibrium.
EquilibriumCheck CheckEquilibrium(const ProjectState& ps, Reactor reactor, bool conversionGiven);

} // namespace zorvant
