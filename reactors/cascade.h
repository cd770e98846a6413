// A series of equal ideal stirred tanks in steady state: one tank, the whole series, and the two
// diagrams drawn of it.
#pragma once

#include "engine/project_state.h"

#include <vector>

namespace zorvant {

inline constexpr int kMostTanks = 7;

/// What a series holds. Concentrations by tank, then by species slot: cKask[j][i] is slot i at the
/// outlet of tank j = 1..N.
struct TankSeries {
    int N = 0;
    std::vector<SpeciesArray>
        cZulauf;                     ///< mol/L, inlet of tank j; [1] the feed, [N + 1] the product
    std::vector<SpeciesArray> cKask; ///< mol/L, outlet of tank j
    std::vector<double> UKask;       ///< conversion up to tank j, related to the feed
};

/// Sizes the tables for N tanks and clears them.
void SizeSeries(TankSeries& series, int N);

/// One tank of a series.
/// Given:    j 1..N; model 1..20; mode 2: V, VPunkt; 3: V, tau; 4: VPunkt, tau; c01 mol/L, A in the
///           feed; cZulauf[j]; V m^3 of one tank; VPunkt m^3/TU; tau TU, residence time of one
///           tank; k, OrderN of the state
/// Returned: cKask[j] in the slots that the model writes, the others as they were; UKask[j]; the
///           quantity not given; UA (related to the inlet of this tank) and Ksi of the state
/// Errors:   bNoSolution; cKask[j] and UKask[j] are then as they were where nothing was found
/// Formula:  the balances of the single tank
void CalcCascade(ProjectState& ps, int j, int model, int mode, double c01,
                 const std::vector<SpeciesArray>& cZulauf, std::vector<double>& UKask, double& V,
                 double& VPunkt, double tau, std::vector<SpeciesArray>& cKask, bool& bBTooLow,
                 bool& bNoSolution);

/// What a run through the series ended with. The flags are those of the last tank.
struct SeriesResult {
    bool bBTooLow = false;
    bool bNoSolution = false;
    double U = 0; ///< total conversion
};

/// All tanks of a series, each fed by the one before.
/// Given:    series of N >= 1 tanks; c0, tVerweil (mode 3, 4), VPunkt (mode 2, 4), ModelId of the
///           state; V m^3 of one tank (mode 2, 3)
/// Returned: the tables; the quantities not given (tVerweil in mode 2)
SeriesResult RunCascade(ProjectState& ps, TankSeries& series, int mode, double& V);

/// The staircase c(N) of a series that was run: the feed at 0, tank j's outlet up to j.
/// Returned: tSim, cSim*, NPoints, RngT, RngC of the state. False without tanks or with bad input.
bool CascadeStaircase(ProjectState& ps, const TankSeries& series);

/// The product of N tanks over the total mean residence time, 0 to twice tVerweil in 201 points.
/// Returned: tSim, cSim*, NPoints, RngT, RngC, UA and Ksi of the state; a point without a solution
///           repeats what the tanks held before. False, nothing changed, when tVerweil or N is not
///           above 0 or the input is bad.
bool CascadeTimeCurve(ProjectState& ps, int N);

} // namespace zorvant
