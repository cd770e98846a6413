#include "simulations/monte_carlo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace zorvant {
namespace {

constexpr int kAllDraws = 1 << 30;

/// The rules as they are told, one draw at a time.
struct ToldGame {
    std::vector<int> particles;
    int NA;
    int s = 0;
    std::vector<std::int32_t> changed;

    explicit ToldGame(int N0) : particles(static_cast<std::size_t>(N0) + 1, 1), NA(N0) {}

    void Turn(int i, int to) {
        particles[static_cast<std::size_t>(i)] = to;
        NA += to == 1 ? 1 : -1;
        changed.push_back(i);
    }
    void TurnEverySecond(int i, int to) {
        s = s + 1;
        if (s == 1)
            Turn(i, to);
        else
            s = 0;
    }
    void Play(const MonteCarloGame& game, RandomGenerator& rnd) {
        const int i = static_cast<int>(rnd.Rnd() * game.N0Spiel) + 1;
        const bool isA = particles[static_cast<std::size_t>(i)] == 1;
        if (game.SpielArt == kFirstOrderGame) {
            if (isA)
                Turn(i, 0);
        } else if (isA) {
            game.KGleich == 0.5F ? TurnEverySecond(i, 0) : Turn(i, 0);
        } else {
            game.KGleich == 2.0F ? TurnEverySecond(i, 1) : Turn(i, 1);
        }
    }
};

struct Choice {
    int SpielArt;
    int equilibrium;
};
constexpr Choice kAllRules[]{
    {kFirstOrderGame, 0}, {kEquilibriumGame, 0}, {kEquilibriumGame, 1}, {kEquilibriumGame, 2}};

TEST(RandomGenerator, GivesThePublishedSequence) {
    // The authors' C code with the state 1, 2, 3, 4.
    RandomGenerator rnd(std::array<std::uint64_t, 4>{1, 2, 3, 4});
    constexpr std::uint64_t kPublished[]{41943041U,
                                         58720359U,
                                         3588806011781223U,
                                         3591011842654386U,
                                         9228616714210784205U,
                                         9973669472204895162U,
                                         14011001112246962877U,
                                         12406186145184390807U};
    for (const std::uint64_t expected : kPublished)
        EXPECT_EQ(rnd.Next(), expected);
}

TEST(MonteCarloGames, PlayTheToldRulesDrawByDraw) {
    for (const Choice& choice : kAllRules) {
        MonteCarloGame game = NewGame(choice.SpielArt, 1, choice.equilibrium);
        ToldGame told(game.N0Spiel);
        RandomGenerator rnd(2024);
        RandomGenerator sameRnd(2024);
        std::array<std::int32_t, 7> room{};
        std::vector<std::int32_t> changed;
        for (int round = 0; round < 2000; ++round) {
            const DrawSlice slice = Draw(game, rnd, 1 + round % 11, room);
            changed.insert(changed.end(), room.begin(), room.begin() + slice.changes);
            for (int draw = 0; draw < slice.draws; ++draw)
                told.Play(game, sameRnd);
            ASSERT_EQ(game.NA, told.NA);
            if (slice.blockEnded)
                NextBlock(game);
        }
        EXPECT_EQ(changed, told.changed);
        EXPECT_TRUE(std::equal(game.Teilchen.begin(), game.Teilchen.end(), told.particles.begin()));
    }
}

TEST(MonteCarloGames, FirstOrderDecayLiesWithinItsStatisticalBounds) {
    // The number of particles never hit in x draws has this mean and variance (urns left empty).
    constexpr int kGames = 400;
    MonteCarloGame game = NewGame(kFirstOrderGame, 1);
    const std::vector<GamePoint> curve = CalculatedCurves(game);
    const double N0 = game.N0Spiel;
    game.BlockZuege = kAllDraws;
    RandomGenerator rnd(11);
    for (const std::size_t j : {10U, 30U, 60U}) {
        const int x = static_cast<int>(std::lround(curve[j].Zuege));
        double sum = 0;
        for (int i = 0; i < kGames; ++i) {
            BeginRun(game, false);
            Draw(game, rnd, x);
            sum += game.NA;
        }
        const double mean = N0 * std::pow(1 - 1 / N0, x);
        const double variance = mean + N0 * (N0 - 1) * std::pow(1 - 2 / N0, x) - mean * mean;
        EXPECT_NEAR(sum / kGames, mean, 4 * std::sqrt(variance / kGames)) << x;
        // The curve is drawn at a broken number of draws.
        EXPECT_NEAR(curve[j].NA, mean, 0.51 * mean / N0);
    }
}

TEST(MonteCarloGames, EquilibriumIsApproachedAlongTheCalculatedCurve) {
    constexpr int kGames = 400;
    for (int option = 0; option < 3; ++option) {
        MonteCarloGame game = NewGame(kEquilibriumGame, 1, option);
        const std::vector<GamePoint> curve = CalculatedCurves(game);
        game.BlockZuege = kAllDraws;
        RandomGenerator rnd(static_cast<std::uint64_t>(option));
        for (const std::size_t j : {5U, 12U, 25U}) {
            double sum = 0;
            for (int i = 0; i < kGames; ++i) {
                BeginRun(game, false);
                Draw(game, rnd, static_cast<int>(std::lround(curve[j].Zuege)));
                sum += game.NA;
            }
            const double sigma = std::sqrt(game.N0Spiel / 4.0 / kGames); // at most
            EXPECT_NEAR(sum / kGames, curve[j].NA, 4 * sigma + 0.6) << option << " " << j;
        }
    }
}

TEST(MonteCarloGames, ContinueKeepsTheStateAndStartsAFreshBlock) {
    MonteCarloGame game = NewGame(kEquilibriumGame, 2, 0);
    RandomGenerator rnd(8);
    Draw(game, rnd, 51);
    const auto particles = game.Teilchen;
    game.secondHit = true;
    EXPECT_TRUE(MayContinue(game));
    BeginRun(game, true);
    EXPECT_EQ(game.Teilchen, particles);
    EXPECT_EQ(game.Zuege, 51);
    EXPECT_EQ(game.drawsLeft, 102);
    EXPECT_FALSE(game.secondHit);
    BeginRun(game, false);
    EXPECT_EQ(game.NA, 1024);
    EXPECT_EQ(game.Zuege, 0);
}

TEST(MonteCarloGames, BadInputDrawsNothingAndGivesNoCurve) {
    RandomGenerator rnd(1);
    MonteCarloGame empty;
    EXPECT_EQ(Draw(empty, rnd, 100).draws, 0);
    BeginRun(empty, true);
    EXPECT_EQ(Draw(empty, rnd, 100).draws, 0);
    empty.N0Spiel = -5;
    BeginRun(empty, false);
    EXPECT_EQ(Draw(empty, rnd, 100).draws, 0);
    EXPECT_TRUE(CalculatedCurves(empty).empty());
    EXPECT_EQ(ToChart(empty, {5, 5, 5}).NA, 0);
    EXPECT_EQ(CellOf(empty, 5).row, 1);

    MonteCarloGame game = NewGame(kEquilibriumGame);
    EXPECT_EQ(Draw(game, rnd, -3).draws, 0);
    game.N0Spiel = 4900; // without a new field
    EXPECT_EQ(Draw(game, rnd, 100).draws, 0);
    for (const float K : {0.0F, -1.0F, std::nanf(""), HUGE_VALF}) {
        game.KGleich = K;
        EXPECT_TRUE(CalculatedCurves(game).empty());
    }
    EXPECT_THROW(SetFieldSize(game, 6), std::out_of_range);
    EXPECT_THROW(SetEquilibrium(game, -1), std::out_of_range);
}

} // namespace
} // namespace zorvant
