// A project state with a model selected and everything else at its defaults.
#pragma once

#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"

#include <memory>

namespace zorvant {

inline void Select(ProjectState& ps, int model) {
    ps.ModelId = model;
    FuMaskenSetzen(ps, model);
    FillStoich(ps);
    SetDefaultK(ps);
    SelectionDefaultTimes(ps);
    SelectionDefaultConcentrations(ps);
    SelectionDefaultConstants(ps);
}

inline std::unique_ptr<ProjectState> Selected(int model) {
    auto ps = std::make_unique<ProjectState>();
    InitProjectState(*ps);
    Select(*ps, model);
    return ps;
}

} // namespace zorvant
