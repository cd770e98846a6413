// What the residence-time dialogs, the random games, the blood-alcohol calculator and the log of
// reactor results keep in the project state between two openings. None of it goes into a file.
#pragma once

#include "platform/colour.h"

#include <array>
#include <string>
#include <vector>

namespace zorvant {

/// Numbers of tanks of the residence-time dialogs.
struct ResidenceState {
    int NVerweil = 1; ///< tanks of the distribution, 1..120
    int NTracer = 1;  ///< tanks of the tracer experiment, 1..6
};

/// Settings of the random games.
struct GameState {
    int SpielArt = 1;       ///< 1 first-order reaction, 2 equilibrium
    float Verzoegerung = 0; ///< retardation, s
    int MCPointSize = 7;    ///< size of the simulated points
    bool MCSolidPoints = false;
    Colour MCColorA = 0xFF0000;
    Colour MCColorP = 0x0000FF;
};

inline constexpr int kDrinks = 8;
/// The last minute that the table of blood alcohol holds.
inline constexpr int kBacMinutes = 999;

/// Drinks are counted 1..8; index 0 is unused.
template <class T> using PerDrink = std::array<T, kDrinks + 1>;

/// The person and the drinks of the blood-alcohol calculator. 0 in a parameter: the dialog was not
/// opened yet. The end of the time axis, BacTimeMax, stands with the diagrams.
struct BloodAlcoholState {
    std::array<float, kBacMinutes + 1> BacTable{};               ///< g/L, one entry a minute
    float BodyMass = 0;                                          ///< kg
    float rWidmark = 0;                                          ///< L/kg
    float kAbs = 0;                                              ///< 1/h
    int AbsDeficit = 0;                                          ///< percent
    float beta60 = 0;                                            ///< g/(L h)
    PerDrink<float> GlassVolume{};                               ///< mL
    PerDrink<float> AlcContent{};                                ///< percent by volume
    PerDrink<float> AlcMass{};                                   ///< g
    PerDrink<int> DrinkTime{-1, -1, -1, -1, -1, -1, -1, -1, -1}; ///< min; -1: no time
    PerDrink<std::string> DrinkHour, DrinkMinute;                ///< clock time as typed
    bool TimeInMinutes = true;
};

inline constexpr int kProtocolColumns = 22;
using ProtocolRow = std::array<float, kProtocolColumns>;

/// The log of reactor results. Columns: 0 number of the tank, 1..5 initial and 6..10 final
/// concentrations, 11..13 k1..k3, 14 conversion, 15 time, 16 length, 17 volume, 18 volume flow,
/// 19 velocity, 20 and 21 extents of reaction.
struct ProtocolState {
    std::vector<ProtocolRow> ProtokollDaten;   ///< the latest result: row j for tank j + 1
    std::vector<ProtocolRow> ProtokollTabelle; ///< the rows collected: ProtokollRows, from index 0
    int ProtokollRows = 0;
};

} // namespace zorvant
