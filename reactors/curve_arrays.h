// The calculated arrays of the state as the stirred-tank diagrams fill them.
#pragma once

#include "engine/project_state.h"

#include <cassert>

namespace zorvant {

/// The arrays end here at the earliest, as those of every calculated course do.
inline constexpr int kLastCurveIndex = 450;

/// NPoints intervals and room for their points, cleared.
inline void ReserveCurves(ProjectState& ps, int intervals) {
    assert(intervals <= kLastCurveIndex);
    ps.NPoints = intervals;
    ps.tSim.assign(kLastCurveIndex + 1, 0);
    for (int slot = 1; slot <= kSpecies; ++slot) {
        cSim(ps, slot).assign(kLastCurveIndex + 1, 0);
        rSim(ps, slot).assign(kLastCurveIndex + 1, 0);
    }
}

inline void StorePoint(ProjectState& ps, int index, double x, const SpeciesArray& c) {
    const auto i = static_cast<std::size_t>(index);
    ps.tSim[i] = x;
    ps.cSimA[i] = c[1];
    ps.cSimB[i] = c[2];
    ps.cSimC[i] = c[3];
    ps.cSimP[i] = c[4];
    ps.cSimQ[i] = c[5];
}

} // namespace zorvant
