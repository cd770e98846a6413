// The batch reactor, isothermal and of constant volume: its state at a time, the time at which it
// reaches a conversion, and the extents of reaction.
#pragma once

#include "engine/project_state.h"
#include "platform/host.h"

#include <vector>

namespace zorvant {

/// The state of a batch reactor.
/// Given:    model 1..20; t TU (negative: back in time); c0, k, OrderN of the state
/// Returned: cOut [1..5] mol/L, only the model's slots are written; of an integrated model the
///           state at the last node not beyond one interval after t
/// Errors:   err; an arithmetic error adds the box to `messages`. cOut is then as it was.
/// Formula:  docs/numerics.md, "Batch and tubular reactors"
void CalcBatchKessel(const ProjectState& ps, int model, double t, SpeciesArray& cOut, bool& err,
                     std::vector<MessageBox>& messages);

/// What a search for the time of a conversion ended with.
struct TimeSearch {
    double t = 0;                     ///< TU
    bool err = false;                 ///< there is no result
    std::vector<MessageBox> messages; ///< to be shown in any case
};

/// The time at which the batch reactor reaches the conversion UA of the state.
/// Returned: also in tVerweil, the state of the reactor in cEnd
/// Errors:   err
/// Formula:  secants of UA - (c(A,0) - c(A))/c(A,0); where they end without a result, the same
///           function is bracketed (Brent)
TimeSearch SearchBatchTime(ProjectState& ps);

/// The conversion of A, from c0 and cEnd. Returned: 0 without A at the start.
double ConversionOfA(const ProjectState& ps);

/// Extents of reaction from c0, cEnd and the matrix of the state.
/// Returned: Ksi [1..2] mol/L, Ksi [3] as it was
void CalcKsi(const ProjectState& ps, std::array<double, 4>& Ksi);

} // namespace zorvant
