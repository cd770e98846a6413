#include "simulations/monte_carlo.h"

#include "platform/number_text.h"

#include <algorithm>
#include <cmath>

namespace zorvant {

namespace {

/// Length of the time axis in N0 draws; a first-order game has decayed to 0.4 % there.
constexpr double kAxisDraws = 5.5;
/// A first-order game ends after so many time axes, even if a particle was never hit.
constexpr std::int64_t kLongestGame = 10;
/// Above it the flash is drawn larger, or it would not be seen.
constexpr int kTinyCells = 20000;
constexpr int kRetardationNotches = 5;
constexpr float kNotchesPerSecond = 12;
constexpr int kDefaultPointSize = 7;

/// What a hit on a particle does to it.
enum class Rule { FirstOrder, EveryHit, EverySecondA, EverySecondP };

Rule RuleOf(const MonteCarloGame& game) {
    if (game.SpielArt != kEquilibriumGame)
        return Rule::FirstOrder;
    if (game.KGleich == 0.5F)
        return Rule::EverySecondA;
    return game.KGleich == 2.0F ? Rule::EverySecondP : Rule::EveryHit;
}

/// The draws. Without a branch on the state of the particle, which chance would mispredict every
/// other time.
template <Rule rule, bool note>
int DrawRow(MonteCarloGame& game, RandomGenerator& source, int draws, std::int32_t* changed) {
    RandomGenerator rnd = source; // its state in registers
    std::uint8_t* const particles = game.Teilchen.data();
    const double N0 = game.N0Spiel;
    int NA = game.NA;
    int changes = 0;
    unsigned second = game.secondHit ? 1 : 0;
    for (int draw = 0; draw < draws; ++draw) {
        const int i = static_cast<int>(rnd.Rnd() * N0) + 1;
        const unsigned isA = particles[i];
        unsigned turns = 1;
        if constexpr (rule == Rule::FirstOrder)
            turns = isA;
        if constexpr (rule == Rule::EverySecondA || rule == Rule::EverySecondP) {
            const unsigned slow = rule == Rule::EverySecondA ? isA : 1U - isA;
            turns = 1U - (slow & second);
            second ^= slow;
        }
        particles[i] = static_cast<std::uint8_t>(isA ^ turns);
        // turns towards P take one A away, turns towards A bring one
        NA += static_cast<int>(turns) - 2 * static_cast<int>(turns & isA);
        if constexpr (note)
            changed[changes] = i;
        changes += static_cast<int>(turns);
    }
    source = rnd;
    game.NA = NA;
    game.secondHit = second != 0;
    return changes;
}

template <bool note>
int DrawByRule(MonteCarloGame& game, RandomGenerator& rnd, int draws, std::int32_t* changed) {
    switch (RuleOf(game)) {
    case Rule::EveryHit:
        return DrawRow<Rule::EveryHit, note>(game, rnd, draws, changed);
    case Rule::EverySecondA:
        return DrawRow<Rule::EverySecondA, note>(game, rnd, draws, changed);
    case Rule::EverySecondP:
        return DrawRow<Rule::EverySecondP, note>(game, rnd, draws, changed);
    case Rule::FirstOrder:
        break;
    }
    return DrawRow<Rule::FirstOrder, note>(game, rnd, draws, changed);
}

bool FieldFits(const MonteCarloGame& game) {
    return game.N0Spiel > 0 && game.Teilchen.size() == static_cast<std::size_t>(game.N0Spiel) + 1;
}

} // namespace

const GameTexts& TextsOfGame(int SpielArt) {
    static constexpr GameTexts kFirstOrder{"1st-order reaction A => P ",
                                           "Simulation of a 1st-order kinetics",
                                           "calculated N(A) = N0 exp(-k t) o :   simulated"};
    static constexpr GameTexts kEquilibrium{
        "Dynamic Reaction Equilibrium A <=> P", "Dynamic Reaction Equilibrium",
        "calc. N(A) = N0 - N(A),eq {1 - exp[-N0 t k1/N(A),eq]} o :   simulated"};
    return SpielArt == kEquilibriumGame ? kEquilibrium : kFirstOrder;
}

MonteCarloGame NewGame(int SpielArt, int sizeOption, int equilibriumOption) {
    MonteCarloGame game;
    game.SpielArt = SpielArt == kEquilibriumGame ? kEquilibriumGame : kFirstOrderGame;
    SetFieldSize(game, sizeOption);
    SetEquilibrium(game, equilibriumOption);
    return game;
}

void SetFieldSize(MonteCarloGame& game, int option) {
    const FieldSize& size = kFieldSizes.at(static_cast<std::size_t>(option));
    game.N0Spiel = size.N0();
    const double N0 = game.N0Spiel;
    game.BlockZuege = static_cast<int>(RoundHalfEven(N0 / size.blockDivisor));
    game.tMaxZuege = static_cast<int>(RoundHalfEven(kAxisDraws * N0));
    game.pause = size.pause;
    game.largeField = size.large;
    BeginRun(game, false);
}

void SetEquilibrium(MonteCarloGame& game, int option) {
    game.KGleich = kEquilibriumChoices.at(static_cast<std::size_t>(option)).K;
    BeginRun(game, false);
}

GamePoint PresentPoint(const MonteCarloGame& game) {
    return {static_cast<double>(game.Zuege), static_cast<double>(game.NA),
            static_cast<double>(game.N0Spiel - game.NA)};
}

void BeginRun(MonteCarloGame& game, bool bWeiter) {
    game.N0Spiel = std::max(game.N0Spiel, 0);
    if (!bWeiter || !FieldFits(game)) {
        game.Teilchen.assign(static_cast<std::size_t>(game.N0Spiel) + 1, 1);
        game.Zuege = 0;
        game.NA = game.N0Spiel;
    }
    game.drawsLeft = std::max(game.BlockZuege, 1);
    game.secondHit = false;
}

bool MayContinue(const MonteCarloGame& game) {
    return game.NA > 1;
}

DrawSlice Draw(MonteCarloGame& game, RandomGenerator& rnd, int maxDraws,
               std::span<std::int32_t> changed) {
    DrawSlice slice;
    if (!FieldFits(game))
        return slice;
    slice.draws = std::clamp(maxDraws, 0, std::max(game.drawsLeft, 0));
    if (changed.empty()) {
        slice.changes = DrawByRule<false>(game, rnd, slice.draws, nullptr);
    } else {
        if (changed.size() < static_cast<std::size_t>(slice.draws))
            slice.draws = static_cast<int>(changed.size());
        slice.changes = DrawByRule<true>(game, rnd, slice.draws, changed.data());
    }
    game.Zuege += slice.draws;
    game.drawsLeft -= slice.draws;
    slice.blockEnded = game.drawsLeft <= 0;
    return slice;
}

bool NextBlock(MonteCarloGame& game) {
    game.drawsLeft = std::max(game.BlockZuege, 1);
    if (game.SpielArt == kEquilibriumGame)
        return true;
    return game.NA >= 1 && game.Zuege <= kLongestGame * game.tMaxZuege;
}

bool IsPauseDue(const MonteCarloGame& game, const DrawSlice& draw) {
    return game.SpielArt == kEquilibriumGame || draw.changes > 0;
}

double PauseSeconds(const MonteCarloGame& game, float Verzoegerung) {
    return Verzoegerung + game.pause;
}

std::vector<GamePoint> CalculatedCurves(const MonteCarloGame& game) {
    const double N0 = game.N0Spiel;
    const double K = game.KGleich;
    if (N0 < 2 || !(K > 0) || !std::isfinite(K))
        return {};
    const bool equilibrium = game.SpielArt == kEquilibriumGame;
    double k = -std::log1p(-1 / N0);
    if (equilibrium && game.KGleich == 0.5F)
        k /= 2;
    const double Neq = equilibrium ? K * N0 / (K + 1) : N0;
    std::vector<GamePoint> curve;
    curve.reserve(kGameCurveSteps + 1);
    for (int j = 0; j <= kGameCurveSteps; ++j) {
        const double x = static_cast<double>(game.tMaxZuege) * j / kGameCurveSteps;
        const double left = std::exp(-x * N0 * k / Neq);
        const double NA = equilibrium ? N0 - Neq * (1 - left) : N0 * left;
        curve.push_back({x, NA, N0 - NA});
    }
    return curve;
}

GamePoint ToChart(const MonteCarloGame& game, const GamePoint& point) {
    if (game.tMaxZuege <= 0 || game.N0Spiel <= 0)
        return {};
    const double fx = game.tMaxZuege / 100.0;
    const double fy = game.N0Spiel / 100.0;
    return {point.Zuege / fx, point.NA / fy, point.NP / fy};
}

Cell CellOf(const MonteCarloGame& game, int i) {
    const int n = static_cast<int>(RoundHalfEven(std::sqrt(game.N0Spiel)));
    if (n < 1)
        return {1, 1};
    return {(i - 1) / n + 1, (i - 1) % n + 1};
}

double FlashRadius(const MonteCarloGame& game) {
    if (!game.largeField)
        return 1.5 * kDotRadius;
    return game.N0Spiel > kTinyCells ? 3 : 1.5;
}

int RetardationNotch(float Verzoegerung) {
    return static_cast<int>(std::clamp<std::int64_t>(
        RoundHalfEven(static_cast<double>(Verzoegerung * kNotchesPerSecond)), 0,
        kRetardationNotches));
}

float RetardationOfNotch(int notch) {
    return static_cast<float>(std::clamp(notch, 0, kRetardationNotches)) / kNotchesPerSecond;
}

int UsedPointSize(const ProjectState& ps) {
    return ps.MCPointSize == 0 ? kDefaultPointSize : ps.MCPointSize;
}

} // namespace zorvant
