// Half-lives of A and B: the time after which half of the start concentration is left.
#pragma once

#include "engine/project_state.h"
#include "platform/host.h"

#include <optional>

namespace zorvant {

/// A half-life and what is to be said about it.
struct HalfLife {
    /// TU; 0: no closed form for this kind of diagram, or B never halves; -1: half of the start
    /// concentration is not reached, or an error occurred.
    float value = 0;
    bool beep = false; ///< the system's beep goes with it
    std::optional<MessageBox> message;
};

/// Half-life of A or B.
/// Given:    kind of diagram (a model, a model + 50, or a data diagram's negative kind);
///           A0, B0, P0 mol/L; k1, k2 1/TU, L/(mol TU), mol/(L TU) by the model
/// Returned: as in HalfLife; models that are integrated have none here (tHalfA, tHalfB of the
///           state)
/// Formula:  docs/numerics.md, "Half-lives"
HalfLife HalfLifeOfA(int kind, double A0, double B0, double P0, double k1, double k2);
HalfLife HalfLifeOfB(int kind, double A0, double B0, double P0, double k1, double k2);

/// The same for the diagram of the state; shows the message and sounds the beep.
float FuHalbwertszeitA(const ProjectState& ps, double A0, double B0, double P0, double k1,
                       double k2);
float FuHalbwertszeitB(const ProjectState& ps, double A0, double B0, double P0, double k1,
                       double k2);

} // namespace zorvant
