// The checks of the reactor dialogs before anything is calculated, as one table of rules.
#pragma once

#include "reactors/equilibrium.h"

#include <string>

namespace zorvant {

/// What a dialog holds beside the state.
struct ReactorInput {
    /// Which quantities are given: the option index of the dialog (BatchInput, InpSelect, CalcMode).
    int given = 0;
    double V = 0;     ///< m^3, volume of a tank
    double vRohr = 0; ///< m/TU
    double lRohr = 0; ///< m
};

struct InputCheck {
    std::string text;        ///< all failed rules; empty: the calculation may begin
    bool orderReset = false; ///< OrderN was not above 0 and is 1.5 now
};

/// Holds c0, k, OrderN, UA, tVerweil, VPunkt, NKask of the state and the dialog's own quantities
/// against the rules of the reactor.
InputCheck CheckInput(ProjectState& ps, Reactor reactor, const ReactorInput& input);

/// Whether a calculation can begin: constants of the model finite and not negative, concentrations
/// finite, for model 20 an order above 0.
bool IsSoundInput(const ProjectState& ps, int model, const SpeciesArray& c);

} // namespace zorvant
