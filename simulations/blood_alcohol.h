// Blood alcohol after Widmark: drinks are absorbed by a first-order law and eliminated by one of
// zeroth order.
// Source: E. M. P. Widmark, Die theoretischen Grundlagen und die praktische Verwendbarkeit der
//         gerichtlich-medizinischen Alkoholbestimmung, Urban & Schwarzenberg 1932.
#pragma once

#include "engine/project_state.h"
#include "platform/host.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorvant {

/// Blood alcohol concentration at a whole minute, not corrected below zero.
/// Given:    t min since the start of drinking; BodyMass kg; AlcMass [1..8] g and DrinkTime [1..8]
///           min of the drinks (rows without mass or time take no part); kAbs 1/h; AbsDeficit
///           percent; rWidmark L/kg; beta60 g/(L h)
/// Returned: g/L; below 0 where more could have been eliminated than was absorbed
/// Errors:   ArithmeticError: "Division by zero" for m r = 0, "Overflow"
/// Formula:  BAC = (100 - AD)/100 sum(M(i)/(m r) (1 - exp(-k dt(i)/60))) - t beta60/60
float FuBacAtTime(int t, float BodyMass, const PerDrink<float>& AlcMass,
                  const PerDrink<int>& DrinkTime, float kAbs, int AbsDeficit, float rWidmark,
                  float beta60);

/// The table of blood alcohol from minute 0 to N, corrected so that it never falls below zero and
/// every drink rises from what is left then.
/// Given:    N min, cut to 0..999; the person and the drinks of the state
/// Returned: ps.BacTable; uncorrected when a drink lies beyond minute 999
/// Errors:   ArithmeticError, as FuBacAtTime; the table stays as it was
void FuBacCurve(ProjectState& ps, int N);

/// Lets calc_diagram_function draw its blood-alcohol curve through FuBacCurve.
/// Given:    the project state, which stays where it is as long as it is used
void ConnectBloodAlcohol(ProjectState& ps);

/// Mass of alcohol in a drink, g.
/// Given:    volume mL, content percent by volume
/// Returned: 0 for what is not a positive finite number
/// Formula:  volume content 0.789 g/mL / 100
float AlcMassOf(double volume, double content);

// Functions that take the number of a drink throw std::out_of_range outside 1..8.

/// Takes a typed volume, mL / content, percent (above 100: 0), of drink i, and forms its mass. A
/// volume of 0 empties the row: no content, no time. Row 1 is the begin of drinking: with a volume
/// it stands at minute 0 again.
void SetGlassVolume(ProjectState& ps, int i, double volume);
void SetAlcContent(ProjectState& ps, int i, double content);
/// The mass as the table of drinks shows it.
std::string AlcMassText(float mass);

/// The time fields of the rows 1..8 as the dialog shows them.
struct DrinkClocks {
    PerDrink<std::string> txt_h, txt_m, txtStartZeit;
    PerDrink<std::int32_t> clock{}; ///< clock time in minutes
};
/// An empty clock field.
inline constexpr const char* kNoClock = "--";

/// Turns the clock time of row i into minutes since the first drink (past midnight: of the next
/// day). Rows have to be confirmed from the first on.
/// Returned: rows.clock, rows.txtStartZeit and, where they are filled in, rows.txt_m of row i;
///           ps.DrinkTime(i) (-1 without an hour), ps.DrinkHour(i), ps.DrinkMinute(i)
void FuDrinkClock(ProjectState& ps, DrinkClocks& rows, int i);
/// Minutes of a typed time, -1 for an empty text.
int DrinkTimeOf(std::string_view text);
/// Takes the typed absorption deficit, rounded to whole percent.
void SetAbsDeficit(ProjectState& ps, double percent);
/// Takes the typed end of the time axis, rounded to whole minutes, at most 999.
void SetBacTimeMax(ProjectState& ps, double minutes);

/// Whose Widmark factor is meant, by the index of its option.
enum class BacPerson { Men = 0, Women = 1 };

/// A quantity of the person or the drawing.
enum class BacQuantity { None, Widmark, AbsDeficit, Beta60, Absorption, BodyMass, TimeMax };

/// What a check found: the message, and what it is about.
struct BacFailure {
    MessageBox message;
    BacQuantity quantity = BacQuantity::None;
    const char* standard = ""; ///< what it was set to, as text; "": it stays as it is
};
/// Checks r, AD, beta60 and k(abs), in this order, against their ranges in single precision.
/// Returned: True when all are good, else failure holds the first that is not, and its parameter
///           has gone back to its standard value
bool FuCheckBacParameters(ProjectState& ps, BacPerson person, BacFailure& failure);
/// What else a drawing needs: a body mass and a time axis.
/// Returned: nothing when both are above 0
std::optional<BacFailure> CheckBacDrawing(const ProjectState& ps);

/// Standard values of all parameters but the body mass.
void SetBAKStandard(ProjectState& ps, BacPerson person);
/// L/kg
float StandardWidmark(BacPerson person);
/// Fills what was never set when the dialog opens: parameters, time axis, a first drink of 500 mL
/// at 5 percent. The factor goes back to the standard value of its group.
/// Returned: the group that the factor left over belongs to
BacPerson PrepareBacState(ProjectState& ps);

/// A drinking session to try out: mL, percent by volume and clock time.
struct ExampleDrink {
    int volume;
    int content;
    const char* hour;
    const char* minute;
};
inline constexpr std::array<ExampleDrink, 6> kExampleSession{{{400, 5, "19", "00"},
                                                              {400, 5, "19", "30"},
                                                              {400, 5, "20", "10"},
                                                              {400, 5, "20", "50"},
                                                              {400, 5, "21", "30"},
                                                              {40, 40, "22", "15"}}};
inline constexpr int kExampleTimeMax = 600; ///< min

/// The note that the results are no evidence.
MessageBox BacLegalNote();

} // namespace zorvant
