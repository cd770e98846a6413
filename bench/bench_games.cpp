// Draws of the random games with 90000 particles, without painting: the fast form, the same with
// the changed cells noted for the painter, and the plain form.
#include "bench/reference/games.h"
#include "simulations/monte_carlo.h"

#include <benchmark/benchmark.h>

namespace zorvant {
namespace {

constexpr int kLargestField = 5;
constexpr int kBlocksARound = 50; ///< one time axis is 55 blocks

MonteCarloGame GameOf(const benchmark::State& state) {
    const int rule = static_cast<int>(state.range(0));
    return NewGame(rule == 0 ? kFirstOrderGame : kEquilibriumGame, kLargestField,
                   rule == 0 ? 0 : rule - 1);
}

void Report(benchmark::State& state, const MonteCarloGame& game) {
    static constexpr const char* kLabels[]{"first order", "K = 0.5", "K = 1", "K = 2"};
    state.SetLabel(kLabels[state.range(0)]);
    state.SetItemsProcessed(state.iterations() * kBlocksARound * game.BlockZuege);
}

void FastGame(benchmark::State& state, bool noted) {
    MonteCarloGame game = GameOf(state);
    std::vector<std::int32_t> room(noted ? static_cast<std::size_t>(game.BlockZuege) : 0);
    RandomGenerator rnd(1);
    for (auto _ : state) {
        BeginRun(game, false);
        for (int block = 0; block < kBlocksARound; ++block, NextBlock(game))
            benchmark::DoNotOptimize(Draw(game, rnd, game.BlockZuege, room).changes);
    }
    Report(state, game);
}
void Fast(benchmark::State& state) {
    FastGame(state, false);
}
void FastWithChangesNoted(benchmark::State& state) {
    FastGame(state, true);
}

void Plain(benchmark::State& state) {
    MonteCarloGame game = GameOf(state);
    RandomGenerator rnd(1);
    std::int64_t services = 0;
    std::int64_t painted = 0;
    reference::PlainHooks hooks;
    hooks.serviceEvents = [&services] { ++services; };
    hooks.paint = [&painted](int) { ++painted; };
    hooks.plot = [](const GamePoint& point) { benchmark::DoNotOptimize(point.NA); };
    for (auto _ : state) {
        BeginRun(game, false);
        reference::PlayPlain(game, rnd, hooks, std::int64_t{kBlocksARound} * game.BlockZuege);
        benchmark::DoNotOptimize(painted);
    }
    Report(state, game);

    MonteCarloGame fast = GameOf(state);
    MonteCarloGame plain = fast;
    RandomGenerator rndFast(7);
    RandomGenerator rndPlain(7);
    for (int block = 0; block < kBlocksARound; ++block, NextBlock(fast))
        Draw(fast, rndFast, fast.BlockZuege);
    reference::PlayPlain(plain, rndPlain, hooks, fast.Zuege);
    if (fast.Teilchen != plain.Teilchen || fast.NA != plain.NA)
        state.SkipWithError("the two forms play different games");
}

BENCHMARK(Fast)->DenseRange(0, 3);
BENCHMARK(FastWithChangesNoted)->DenseRange(0, 3);
BENCHMARK(Plain)->DenseRange(0, 3);

} // namespace
} // namespace zorvant

BENCHMARK_MAIN();
