// The steady state of one ideal stirred tank for each model of the catalogue: the balance
// in - out + t r = 0, solved on paper. A single tank and each tank of a series use it alike.
#pragma once

#include "engine/project_state.h"

namespace zorvant {

/// What a balance yields. Where `stopped` is set the calculation ended at once, and only the flags
/// and what is told at them count.
struct TankResult {
    SpeciesArray c{};         ///< mol/L, outlet by slot; slots that the model lacks stay as given
    double x1 = 0, x2 = 0;    ///< mol/L, extents of reaction 1 and 2
    double restA = -1;        ///< mol/L, c(A) where the balance gave it directly; else below 0
    double t = 0;             ///< TU, mean residence time
    double U = 0;             ///< conversion of slot 1, as a fraction
    bool bBTooLow = false;    ///< the feed of B does not suffice
    bool bNoSolution = false; ///< no admissible steady state
    bool stopped = false;     ///< ended at once
    const char* refusal = nullptr; ///< text of the message, if there is one
};

/// Passes of the stepping search of model 20 in a single tank and in a tank of a series.
inline constexpr int kPassesSingleTank = 1000;
inline constexpr int kPassesSeriesTank = 10000;

/// The state of a tank whose mean residence time is known.
/// Given:    model 1..20; in [1..5] mol/L the inlet; t TU; before [1..5] what the outlet held, kept
///           in slots that the model does not write; k, OrderN of the state
/// Returned: c, x1, x2, U; model 19 with k1 = k2 leaves k2 of the state larger by 1e-10 of its
///           value
/// Errors:   bNoSolution; bad input (not finite, negative constants, t <= 0,
///           nothing of A in the inlet) is bNoSolution
/// Formula:  docs/numerics.md, "Stirred tanks"
TankResult SolveTankForState(ProjectState& ps, int model, const SpeciesArray& in, double t,
                             const SpeciesArray& before, int passLimit);

/// The mean residence time at which a tank reaches a conversion, and its state there.
/// Given:    model 1..20; in [1..5] mol/L; U a fraction; k, OrderN, Stoich of the state
/// Returned: t, c, x1, x2
/// Errors:   bNoSolution; bBTooLow with `refusal`; models 10, 15 and 18: t = 0 with `refusal` and
///           no flag where the conversion is out of reach
TankResult SolveTankForTime(const ProjectState& ps, int model, const SpeciesArray& in, double U);

} // namespace zorvant
