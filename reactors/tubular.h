// The ideal tubular flow reactor, isothermal: a plug that has travelled the length l at velocity v
// is a batch of the age l/v.
#pragma once

#include "reactors/batch.h"

namespace zorvant {

/// The time at which a plug reaches the conversion UA of the state.
/// Returned: also in tVerweil, the state of the plug in cEnd (at the last t + h of the search)
/// Errors:   err
/// Formula:  secants of UA - (c(A,0) - c(A))/c(A,0), each as wide as the last correction; where
///           they end without a result, the same function is bracketed (Brent)
TimeSearch SearchTubeTime(ProjectState& ps);

/// The velocity the dialog begins with: 1 m/s in the unit of the state; 0 for years.
float DefaultVelocity(const ProjectState& ps);

} // namespace zorvant
