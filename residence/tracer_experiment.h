// The tracer experiment: a pulse of dye in tank 1 of a row of ideal stirred tanks is washed out
// step by step while the concentration at the outlet is recorded.
#pragma once

#include "engine/project_state.h"
#include "platform/host.h"
#include "residence/tank_number.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace zorvant {

inline constexpr int kMaxTracerTanks = 6;
/// Notches of the slider of the pause.
inline constexpr int kMaxBremse = 5;

/// The row of tanks. Volume 1 and flow 0.01 a step, so that a tank's residence time is 100 steps.
struct TracerExperiment {
    int N = 1;                                        ///< tanks, 0..6; 0: nothing can flow
    std::array<float, kMaxTracerTanks + 1> cTracer{}; ///< tanks 1..N, relative to the start
    int m = 0;                                        ///< steps made
};

/// The typed number of tanks, 1..6.
TankNumber ReadNTracer(std::string_view text);

/// A row of N empty tanks (N is cut to 0..6).
void SizeTracer(TracerExperiment& row, int N);
/// Dye into tank 1, water into the others.
void FillTracer(TracerExperiment& row);
/// All tanks empty.
void ResetTracer(TracerExperiment& row);

/// Opens the record; the steps of any row fit into it without growing.
/// Returned: the message when there is no tank
std::optional<MessageBox> StartTracerFlow(TracerExperiment& row, std::vector<float>& record);

/// One step: the tanks work from 1 to N, each takes the outflow that the tank before has just
/// computed; the outlet goes into the record.
/// Given:    row, record as StartTracerFlow left them or an earlier step
/// Returned: whether the flow goes on: tank 1 or the outlet still holds 0.01 or more
/// Formula:  c(i) = c(i) + in(i) - 0.01 c(i),  in(i+1) = 0.01 c(i) with the new c(i);  Single
/// Balance:  0.99 sum(c(i)) + 0.01 sum(record) = 0.99 after every step
bool StepTracerFlow(TracerExperiment& row, std::vector<float>& record);

/// Closes the record (element 0 holds the count) and empties the tanks.
/// Returned: whether the record is long enough for a diagram: more than 2 values
bool EndTracerFlow(TracerExperiment& row, std::vector<float>& record);

/// Colour of a tank: white when empty, red at full tracer.
Colour TracerColour(float c);

/// Length of the pause between two steps, s, for notch 0..5 of the slider.
/// Formula:  ((1.2 Bremse)^10 - 1) rounds of 5 ns, none for Bremse = 0
double TracerPause(int Bremse);

} // namespace zorvant
