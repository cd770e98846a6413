#include "bench/reference/games.h"

namespace zorvant::reference {

namespace {

void Turn(MonteCarloGame& game, PlainHooks& hooks, std::size_t i, std::uint8_t to) {
    game.Teilchen[i] = to;
    game.NA += to == 1 ? 1 : -1;
    hooks.paint(static_cast<int>(i));
}

/// The every-second rule.
void TurnEverySecond(MonteCarloGame& game, PlainHooks& hooks, int& s, std::size_t i,
                     std::uint8_t to) {
    s = s + 1;
    if (s == 1)
        Turn(game, hooks, i, to);
    else
        s = 0;
}

void DrawOnce(MonteCarloGame& game, RandomGenerator& rnd, PlainHooks& hooks, int& s) {
    const std::size_t i = static_cast<std::size_t>(rnd.Rnd() * game.N0Spiel) + 1;
    ++game.Zuege;
    const bool isA = game.Teilchen[i] == 1;
    if (game.SpielArt == kFirstOrderGame) {
        if (isA)
            Turn(game, hooks, i, 0);
    } else if (isA) {
        if (game.KGleich == 0.5F)
            TurnEverySecond(game, hooks, s, i, 0);
        else
            Turn(game, hooks, i, 0);
    } else if (game.KGleich == 2.0F) {
        TurnEverySecond(game, hooks, s, i, 1);
    } else {
        Turn(game, hooks, i, 1);
    }
}

} // namespace

void PlayPlain(MonteCarloGame& game, RandomGenerator& rnd, PlainHooks& hooks, std::int64_t draws) {
    int s = 0;
    const std::int64_t end = game.Zuege + draws;
    do {
        for (int draw = 0; draw < game.BlockZuege; ++draw) {
            hooks.serviceEvents();
            if (hooks.bStop || game.Zuege >= end)
                return;
            DrawOnce(game, rnd, hooks, s);
        }
        hooks.plot(PresentPoint(game));
    } while (game.SpielArt == kEquilibriumGame ||
             (game.Zuege <= 10LL * game.tMaxZuege && game.NA >= 1));
}

} // namespace zorvant::reference
