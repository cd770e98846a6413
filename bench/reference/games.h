// The random games in their plain form: one draw at a time, the event service and the flag of Stop
// before each, a branch for each rule, a call for each painted cell.
#pragma once

#include "simulations/monte_carlo.h"

#include <functional>

namespace zorvant::reference {

struct PlainHooks {
    std::function<void()> serviceEvents;
    std::function<void(int cell)> paint;
    std::function<void(const GamePoint&)> plot;
    bool bStop = false;
};

/// Plays until the game runs out, Stop is pressed or so many draws are made.
void PlayPlain(MonteCarloGame& game, RandomGenerator& rnd, PlainHooks& hooks, std::int64_t draws);

} // namespace zorvant::reference
