// Names for the numbers by which tasks, diagrams and fits are told apart.
#pragma once

namespace zorvant {

/// What the open calculation dialog computes, in the order in which one is looked for.
enum class CalcTask {
    None = 0,
    TimeDiagram = 1,
    Cstr = 2,
    Batch = 3,
    Tubular = 4,
    Cascade = 5,
    Fitting = 6
};

// --- DiagramKind: a model 1..20, its rates, or one of these
inline constexpr int kKindMichaelisMenten = -15;
inline constexpr int kKindEadie = -14;
inline constexpr int kKindHanesWoolf = -13;
inline constexpr int kKindLineweaverBurk = -12;
inline constexpr int kKindLambdaSecondOrder = -11;
inline constexpr int kKindLambdaFirstOrder = -10;
inline constexpr int kKindFitPoints = -9;
inline constexpr int kKindMixedSecondOrder = -8;
inline constexpr int kKindWilkinson = -7;
inline constexpr int kKindSecondOrder = -6;
inline constexpr int kKindFirstOrder = -5;
inline constexpr int kKindEyring = -4;
inline constexpr int kKindArrhenius = -3;
inline constexpr int kKindKOfT = -2;
inline constexpr int kKindPoints = -1;
/// Rates of model m are kind m + 50.
inline constexpr int kRateKinds = 50;
inline constexpr int kKindSingleSpecies = 100;
inline constexpr int kKindTracer = 110;
inline constexpr int kKindResidenceFirst = 112;
inline constexpr int kKindResidenceLast = 115;
inline constexpr int kKindBloodAlcohol = 500;

// --- FitMode
inline constexpr int kNoFit = 0;
inline constexpr int kFitConstants = 1;    ///< rate constants of the selected model
inline constexpr int kFitOrder = 2;        ///< k and the order n, which k2 holds meanwhile
inline constexpr int kFitFirstOrderT = 6;  ///< k(T) of a first-order reaction
inline constexpr int kFitSecondOrderT = 7; ///< k(T) of a second-order reaction
/// From here on the fits are non-isothermal.
inline constexpr int kFirstTemperatureMode = kFitFirstOrderT;

} // namespace zorvant
