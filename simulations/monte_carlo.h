// Reaction kinetics as a game of chance: random draws hit the particles of a square field one by
// one, and a rate law comes out of nothing but counting.
#pragma once

#include "engine/project_state.h"
#include "simulations/random_generator.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace zorvant {

inline constexpr int kFirstOrderGame = 1;  ///< A => P
inline constexpr int kEquilibriumGame = 2; ///< A <=> P
/// Intervals of a calculated curve of a game.
inline constexpr int kGameCurveSteps = 100;

/// A choice of the number of particles. The field is a square, so that the round figure of the
/// caption stands for the square nearby.
struct FieldSize {
    const char* caption;
    int n;            ///< cells along an edge
    int blockDivisor; ///< N0 / blockDivisor draws between two points of the chart
    bool large;       ///< drawn as one area with squares, not as dots
    double pause;     ///< s, so that a game with few particles stays visible

    int N0() const { return n * n; }
};
inline constexpr std::array<FieldSize, 6> kFieldSizes{{{"100", 10, 15, false, 0.06},
                                                       {"500", 23, 12, false, 0.00005},
                                                       {"1000", 32, 10, false, 1e-8},
                                                       {"5000", 70, 10, false, 1e-8},
                                                       {"10000", 95, 10, true, 0},
                                                       {"100000", 300, 10, true, 0}}};

/// A choice of the equilibrium constant K = N(P)/N(A).
struct EquilibriumChoice {
    const char* caption;
    float K;
};
inline constexpr std::array<EquilibriumChoice, 3> kEquilibriumChoices{
    {{"K = 0.5", 0.5F}, {"K = 1", 1.0F}, {"K = 2", 2.0F}}};

/// The texts of a game.
struct GameTexts {
    const char* menuCaption;
    const char* head;
    const char* chartHeader; ///< the law of the calculated curve
};
const GameTexts& TextsOfGame(int SpielArt);

/// A game as it stands between two draws. NewGame makes one.
struct MonteCarloGame {
    int SpielArt = kFirstOrderGame;
    int N0Spiel = 0;
    float KGleich = 0;
    int BlockZuege = 0; ///< draws between two points of the chart
    int tMaxZuege = 0;  ///< draws that stand for 100 % on the time axis
    double pause = 0;   ///< s, the part that depends on the number of particles
    bool largeField = false;
    std::vector<std::uint8_t> Teilchen; ///< from index 1: 1 in state A, 0 in state P
    int NA = 0;                         ///< particles in state A
    /// Draws made so far. 64 bits: an equilibrium game has no end.
    std::int64_t Zuege = 0;
    int drawsLeft = 0;      ///< of the present block
    bool secondHit = false; ///< the next hit on a particle of the slow direction does nothing
};

/// The options that a game starts with: 1024 particles, K = 0.5.
inline constexpr int kFirstFieldSize = 2;
inline constexpr int kFirstEquilibrium = 0;
/// A game in its initial state. SpielArt other than 2 is the first-order game.
/// Errors: std::out_of_range for an option that does not exist
MonteCarloGame NewGame(int SpielArt, int sizeOption = kFirstFieldSize,
                       int equilibriumOption = kFirstEquilibrium);
/// Takes a number of particles / an equilibrium constant by the index of its option and goes back
/// to the initial state.
/// Errors: std::out_of_range
void SetFieldSize(MonteCarloGame& game, int option);
void SetEquilibrium(MonteCarloGame& game, int option);

/// A point of the chart: the counts after so many draws.
struct GamePoint {
    double Zuege = 0;
    double NA = 0; ///< particles in state A
    double NP = 0; ///< particles in state P
};
GamePoint PresentPoint(const MonteCarloGame& game);

/// Begins a run: a new game with all particles in state A, or with bWeiter the kept state (a fresh
/// block, the every-second rule at its start). A kept state that does not fit the field starts
/// anew.
void BeginRun(MonteCarloGame& game, bool bWeiter);
/// Whether Continue has something to go on with: more than one particle in state A.
bool MayContinue(const MonteCarloGame& game);

/// What a row of draws has done.
struct DrawSlice {
    int draws = 0;
    int changes = 0;         ///< particles that changed their state
    bool blockEnded = false; ///< a point is due; then NextBlock
};

/// Draws until the block ends or maxDraws are made.
/// Given:    game after BeginRun or NextBlock; rnd, the source of chance
///           changed: room for the numbers of the particles that change, in order (a particle may
///           come twice); no more draws than it has room for are made; empty: they are not noted
/// Returned: the draws made; none in a field without particles
/// Rules:    i = Int(Rnd N0) + 1. First order: A turns to P. Equilibrium: A turns to P, P to A;
///           with K = 0.5 only every second hit on an A, with K = 2 on a P, does something.
DrawSlice Draw(MonteCarloGame& game, RandomGenerator& rnd, int maxDraws,
               std::span<std::int32_t> changed = {});

/// Begins the next block.
/// Returned: false when the game has run out: first order, no A left or 10 tMaxZuege draws passed
bool NextBlock(MonteCarloGame& game);

/// Whether a draw is followed by the pause: in game 1 a draw that changed a particle, in game 2
/// every draw.
bool IsPauseDue(const MonteCarloGame& game, const DrawSlice& draw);
/// Length of the pause, s: the retardation and the part of the number of particles.
double PauseSeconds(const MonteCarloGame& game, float Verzoegerung);

/// The calculated curves: kGameCurveSteps + 1 points from 0 to tMaxZuege draws.
/// Returned: empty for fewer than 2 particles or K not above 0
/// Formula:  k = ln(N0) - ln(N0 - 1) per draw
///           first order: N(A) = N0 exp(-k x)
///           equilibrium: N(P) = Neq (1 - exp(-x N0 k/Neq)), Neq = K N0/(K + 1); with K = 0.5 k/2
std::vector<GamePoint> CalculatedCurves(const MonteCarloGame& game);

/// A point in the scale of the chart: percent of tMaxZuege, percent of N0.
GamePoint ToChart(const MonteCarloGame& game, const GamePoint& point);

/// Row and column (from 1) of cell 1..N0 of the field.
struct Cell {
    int row;
    int column;
};
Cell CellOf(const MonteCarloGame& game, int i);
/// Radii in cells: of a particle's dot, of the flash when it changes.
inline constexpr double kDotRadius = 1 / 2.3;
double FlashRadius(const MonteCarloGame& game);

/// Notches of the slider of the retardation, 0..5.
int RetardationNotch(float Verzoegerung);
/// s
float RetardationOfNotch(int notch);
/// The size of the chart's points; the default where none is set.
int UsedPointSize(const ProjectState& ps);

} // namespace zorvant
