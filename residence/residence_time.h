// Residence-time distribution E and cumulative distribution F of N equal ideal stirred tanks in
// series, after an ideal pulse at t = 0.
// Source: O. Levenspiel, Chemical Reaction Engineering, 3rd ed., Wiley 1999, ch. 14.
#pragma once

#include "engine/project_state.h"
#include "platform/host.h"
#include "residence/tank_number.h"

#include <string>
#include <string_view>
#include <vector>

namespace zorvant {

inline constexpr int kMaxTanks = 120; ///< of the distributions

/// n! for n >= 0.
/// Returned: -1 when the product overflows (n > 170) and for n < 0
double Fakultaet(int n);

/// Residence-time distribution E(t), 1/TU.
/// Given:    t  TU  time since the pulse; before it (t < 0) E is 0
///           N      number of tanks, >= 1
///           tm TU  mean residence time of all tanks together
/// Returned: E; 0 when err
/// Errors:   err: the time of one tank ti is not above 0 or overflows, N < 1, t or the result is
///           not finite
/// Formula:  ti = tm/N, rounded to Single;  E = (t/ti)^(N-1) exp(-t/ti) / ((N-1)! ti)
double EtKessel(double t, int N, double tm, bool& err);

/// Dimensionless distribution E tm.
/// Given, Returned, Errors: as EtKessel; the error is tm <= 0
/// Formula:  theta = t/tm;  E tm = N (N theta)^(N-1) exp(-N theta) / (N-1)!
double EThetaKessel(double t, int N, double tm, bool& err);

/// Cumulative distribution F(t): the part of a pulse that has left after t, 0..1.
/// Given, Returned, Errors: as EThetaKessel
/// Formula:  y = N t/tm;  F = 1 - exp(-y) sum(y^i/i!, i = 0..N-1)
double FtKessel(double t, int N, double tm, bool& err);

/// F for a diagram over theta = t/tm; the value at the time t is that of FtKessel, as y = N theta.
double FThetaKessel(double t, int N, double tm, bool& err);

/// What the dialog of the distributions holds beside NVerweil.
struct VerweilInput {
    float VRVerweil = 0.05F;      ///< m^3, total volume
    float VPunktVerweil = 0.004F; ///< m^3/TU
    double tmVerweil = 12.5;      ///< TU
    bool xAchseZeit = true;       ///< x axis: t, else t/tm
};

/// What a changed volume or flow does to the field of tm.
enum class TmField { Shown, Emptied, Unchanged };
/// Takes a typed volume, m^3 / a typed flow, m^3/TU, and forms tm = V/V*.
/// Returned: Shown: tm is new; Emptied: no flow or no finite quotient, tm keeps its last value;
///           Unchanged: the other quantity is missing
TmField SetVRVerweil(VerweilInput& input, double volume);
TmField SetVPunktVerweil(VerweilInput& input, double flow);

/// The typed number of tanks of the distributions, 1..120.
TankNumber ReadNVerweil(std::string_view text);

/// Kind of the diagram: E 112 or 113, F 114 or 115, the even one over t.
int EtDiagramKind(const VerweilInput& input);
int FtDiagramKind(const VerweilInput& input);

/// What a drawing of a distribution has to tell.
struct VerweilCurve {
    bool overflow = false; ///< the curve ends before its end
    bool outside = false;  ///< no point inside the diagram (E only)
    std::vector<MessageBox> messages;
};
/// The curve of E (or E tm) over the x axis of the open diagram.
/// Given:    ps.NVerweil, ps.Frame (limits of the diagram, x maximum 0: not set yet), input
/// Returned: ps.CurveBuf with 151 points at most, ps.CurvesToDraw = 1
VerweilCurve Berechne_EtKurve(ProjectState& ps, const VerweilInput& input);
/// The same for F.
VerweilCurve Berechne_FtKurve(ProjectState& ps, const VerweilInput& input);

/// Empties the buffer of curves.
void ClearCurveBuf(ProjectState& ps);

} // namespace zorvant
