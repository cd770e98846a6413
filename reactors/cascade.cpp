#include "reactors/cascade.h"

#include "engine/arithmetic.h"
#include "platform/number_text.h"
#include "reactors/curve_arrays.h"
#include "reactors/reactor_input.h"
#include "reactors/tank_balance.h"

#include <algorithm>
#include <cmath>

namespace zorvant {
namespace {

constexpr double kFirstTime = 1e-8;      ///< TU, in place of t = 0
constexpr int kStaircaseIntervals = 280; ///< divided among the tanks
constexpr double kAbove = 1.02;          ///< the top of the diagram over the largest value
constexpr float kBelow = -0.02F;         ///< mol/L, the bottom, so that a line at 0 is seen
constexpr int kVolumeAndFlow = 2, kVolumeAndTime = 3, kFlowAndTime = 4;

/// The quantity that the mode does not give. Returned: false when there is none.
bool CompleteGiven(int mode, double& V, double& VPunkt, double& tau) {
    switch (mode) {
    case kVolumeAndFlow:
        tau = V / VPunkt;
        break;
    case kVolumeAndTime:
        VPunkt = V / tau;
        break;
    case kFlowAndTime:
        V = tau * VPunkt;
        break;
    default:
        return false;
    }
    return std::isfinite(V) && std::isfinite(VPunkt) && std::isfinite(tau) && tau > 0 && V >= 0 &&
           VPunkt >= 0;
}

/// The largest concentration of the feed.
double LargestOf(const SpeciesArray& c) {
    return *std::max_element(c.begin() + 1, c.end());
}

void StoreRanges(ProjectState& ps, double xEnd, double yMax) {
    ps.Memory.RngT = {0, NearestSingle(xEnd)};
    ps.Memory.RngC = {kBelow, NearestSingle(yMax * kAbove)};
}

} // namespace

void SizeSeries(TankSeries& series, int N) {
    series.N = std::max(N, 0);
    const auto tanks = static_cast<std::size_t>(series.N);
    series.cZulauf.assign(tanks + 2, {});
    series.cKask.assign(tanks + 2, {});
    series.UKask.assign(tanks + 1, 0);
}

void CalcCascade(ProjectState& ps, int j, int model, int mode, double c01,
                 const std::vector<SpeciesArray>& cZulauf, std::vector<double>& UKask, double& V,
                 double& VPunkt, double tau, std::vector<SpeciesArray>& cKask, bool& bBTooLow,
                 bool& bNoSolution) {
    bBTooLow = bNoSolution = false;
    ps.Ksi = {};
    const auto tank = static_cast<std::size_t>(j);
    if (j < 1 || tank >= cZulauf.size() || tank >= cKask.size() || tank >= UKask.size() ||
        !CompleteGiven(mode, V, VPunkt, tau)) {
        bNoSolution = true;
        return;
    }
    const SpeciesArray& in = cZulauf[tank];
    SpeciesArray& out = cKask[tank];
    if (model == 1 && in[1] == 0) { // used up in an earlier tank
        out[1] = 0;
        out[4] = in[4];
        ps.UA = 0;
        UKask[tank] = 1;
        return;
    }
    const TankResult result = SolveTankForState(ps, model, in, tau, out, kPassesSeriesTank);
    bBTooLow = result.bBTooLow;
    bNoSolution = result.bNoSolution;
    if (result.stopped)
        return;
    out = result.c;
    ps.Ksi = {0, result.x1, result.x2, 0};
    ps.UA = result.U;
    const double total = (c01 - out[1]) / c01;
    if (std::isfinite(total))
        UKask[tank] = total;
    else
        bNoSolution = true;
    if (model == 20 && ps.UA > 1)
        bNoSolution = true;
}

SeriesResult RunCascade(ProjectState& ps, TankSeries& series, int mode, double& V) {
    SeriesResult result;
    if (series.N < 1 || !IsSoundInput(ps, ps.ModelId, ps.c0)) {
        result.bNoSolution = true;
        return result;
    }
    const double tau = ps.tVerweil / series.N;
    series.cZulauf[1] = ps.c0;
    for (int j = 1; j <= series.N; ++j) {
        const auto tank = static_cast<std::size_t>(j);
        CalcCascade(ps, j, ps.ModelId, mode, ps.c0[1], series.cZulauf, series.UKask, V, ps.VPunkt,
                    tau, series.cKask, result.bBTooLow, result.bNoSolution);
        series.cZulauf[tank + 1] = series.cKask[tank];
    }
    if (mode == kVolumeAndFlow && ps.VPunkt > 0)
        ps.tVerweil = series.N * V / ps.VPunkt;
    result.U = series.UKask[static_cast<std::size_t>(series.N)];
    return result;
}

bool CascadeStaircase(ProjectState& ps, const TankSeries& series) {
    if (series.N < 1 || series.N > kStaircaseIntervals || !IsSoundInput(ps, ps.ModelId, ps.c0))
        return false;
    ReserveCurves(ps, kStaircaseIntervals);
    const auto perTank =
        static_cast<int>(RoundHalfEven(static_cast<double>(kStaircaseIntervals) / series.N));
    const double dx = static_cast<double>(series.N) / kStaircaseIntervals;
    double yMax = LargestOf(ps.c0);
    StorePoint(ps, 0, 0, ps.c0);
    StorePoint(ps, 1, dx, ps.c0);
    int index = 1;
    double x = dx;
    for (int j = 1; j <= series.N; ++j) {
        const SpeciesArray& c = series.cKask[static_cast<std::size_t>(j)];
        for (int i = 0; i < perTank && index < kLastCurveIndex; ++i)
            StorePoint(ps, ++index, x += dx, c);
        yMax = std::max(yMax, LargestOf(c));
    }
    StoreRanges(ps, series.N, yMax);
    return true;
}

bool CascadeTimeCurve(ProjectState& ps, int N) {
    const double end = 2 * ps.tVerweil;
    if (N < 1 || !(end > 0) || !std::isfinite(end) || !IsSoundInput(ps, ps.ModelId, ps.c0))
        return false;
    ReserveCurves(ps, kCurveIntervals);
    TankSeries series; // of its own: the results of the calculation stay
    SizeSeries(series, N);
    series.cZulauf[1] = ps.c0;
    const double dt = end / kCurveIntervals;
    double yMax = LargestOf(ps.c0);
    for (int point = 0; point <= kCurveIntervals; ++point) {
        const double t = point * dt + kFirstTime;
        const double tau = t / N;
        for (int j = 1; j <= N; ++j) {
            double V = 0, VPunkt = 0;
            bool bBTooLow = false, bNoSolution = false;
            const auto tank = static_cast<std::size_t>(j);
            CalcCascade(ps, j, ps.ModelId, kVolumeAndTime, ps.c0[1], series.cZulauf, series.UKask,
                        V, VPunkt, tau, series.cKask, bBTooLow, bNoSolution);
            series.cZulauf[tank + 1] = series.cKask[tank];
        }
        const SpeciesArray& product = series.cKask[static_cast<std::size_t>(N)];
        StorePoint(ps, point, t, product);
        yMax = std::max(yMax, LargestOf(product));
    }
    StoreRanges(ps, end, yMax);
    return true;
}

} // namespace zorvant
