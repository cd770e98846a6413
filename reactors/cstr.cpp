#include "reactors/cstr.h"

#include "engine/arithmetic.h"
#include "reactors/curve_arrays.h"
#include "reactors/reactor_input.h"
#include "reactors/tank_balance.h"

#include <algorithm>
#include <cmath>

namespace zorvant {
namespace {

constexpr double kFirstTime = 1e-6; ///< TU, in place of t = 0, where no balance has a solution
constexpr double kMargin = 0.02;    ///< of the range of concentrations

enum CalcModes {
    kConversionAndVolume,
    kConversionAndFlow,
    kVolumeAndFlow,
    kVolumeAndTime,
    kFlowAndTime
};

bool IsPositive(double x) {
    return x > 0 && std::isfinite(x);
}

/// The third of V, Vdot, t from the two that are given. Returned: false when there is none.
bool CompleteGiven(int mode, double& V, double& Vdot, double& t) {
    switch (mode) {
    case kVolumeAndFlow:
        if (!IsPositive(V) || !IsPositive(Vdot))
            return false;
        t = V / Vdot;
        return IsPositive(t);
    case kVolumeAndTime:
        if (!IsPositive(V) || !IsPositive(t))
            return false;
        Vdot = V / t;
        return std::isfinite(Vdot);
    default:
        if (!IsPositive(Vdot) || !IsPositive(t))
            return false;
        V = Vdot * t;
        return std::isfinite(V);
    }
}

/// V or Vdot from the other one and the time found. Returned: false when there is none.
bool CompleteFound(int mode, double& V, double& Vdot, double t) {
    if (mode == kConversionAndVolume) {
        if (t == 0 || !std::isfinite(V / t))
            return false;
        Vdot = V / t;
    } else {
        if (!std::isfinite(Vdot * t))
            return false;
        V = Vdot * t;
    }
    return true;
}

/// The range of concentrations of the curve.
Range ConcentrationRange(const ProjectState& ps) {
    double yMin = ps.ScaleOneSpecies ? 10000 : 0;
    double yMax = -10000;
    for (int slot = 1; slot <= kSpecies; ++slot) {
        if (ps.ScaleOneSpecies && slot != ps.ScaleSpecies)
            continue;
        const auto& curve = cSim(ps, slot);
        for (int j = 0; j <= ps.NPoints; ++j) {
            const double c = curve[static_cast<std::size_t>(j)];
            yMax = std::max(yMax, c);
            if (ps.ScaleOneSpecies)
                yMin = std::min(yMin, c);
        }
    }
    if (ps.c0[1] + ps.c0[2] + ps.c0[4] < yMax)
        yMax = std::max(ps.c0[1], ps.c0[2]);
    yMin = std::max(yMin, 0.0);
    yMax += std::abs(yMax - yMin) * kMargin;
    yMin -= std::abs(yMax - yMin) * kMargin;
    const Range range{NearestSingle(yMin), NearestSingle(yMax)};
    return range.lower < range.upper ? range : Range{0, 1}; // nothing but zeros
}

} // namespace

void CalcRuehrkessel(ProjectState& ps, int model, int mode, const SpeciesArray& feed, double& U,
                     double& V, double& Vdot, double& t, SpeciesArray& c,
                     std::array<double, 4>& extents, bool& bBTooLow, bool& bNoSolution,
                     std::vector<MessageBox>& messages) {
    bBTooLow = bNoSolution = false;
    const SpeciesArray in = feed; // c may be the feed's own record
    c = {};
    extents = {};
    const bool conversionGiven = mode == kConversionAndVolume || mode == kConversionAndFlow;
    if (mode < kConversionAndVolume || mode > kFlowAndTime || model < 1 || model > kModels)
        return;

    TankResult result;
    if (conversionGiven) {
        if (!IsPositive(mode == kConversionAndVolume ? V : Vdot)) {
            bNoSolution = true;
            return;
        }
        result = SolveTankForTime(ps, model, in, U);
        t = result.t;
    } else {
        if (!CompleteGiven(mode, V, Vdot, t)) {
            bNoSolution = true;
            return;
        }
        result = SolveTankForState(ps, model, in, t, c, kPassesSingleTank);
        if (!result.stopped)
            U = result.U;
    }
    c = result.c;
    extents = {0, result.x1, result.x2, 0};
    bBTooLow = result.bBTooLow;
    bNoSolution = result.bNoSolution;
    if (result.refusal != nullptr)
        messages.push_back({result.refusal, "Execution not possible", Icon::Critical});
    if (conversionGiven && !result.stopped && !CompleteFound(mode, V, Vdot, t))
        bNoSolution = true;
}

bool CalcTankCurve(ProjectState& ps) {
    const double end = 2 * ps.tVerweil;
    if (!IsPositive(end) || !IsSoundInput(ps, ps.ModelId, ps.c0))
        return false;
    ReserveCurves(ps, kCurveIntervals);
    const double dt = end / kCurveIntervals;
    std::vector<MessageBox> messages; // none with the time given
    for (int j = 0; j <= kCurveIntervals; ++j) {
        const double t = j * dt + kFirstTime;
        double volume = t; // so that the flow is 1
        double time = t;
        bool bBTooLow = false, bNoSolution = false;
        CalcRuehrkessel(ps, ps.ModelId, kVolumeAndTime, ps.c0, ps.UA, volume, ps.VPunkt, time,
                        ps.cEnd, ps.Ksi, bBTooLow, bNoSolution, messages);
        StorePoint(ps, j, t, ps.cEnd);
    }
    ps.Memory.RngT = {0, NearestSingle(end)};
    ps.Memory.RngC = ConcentrationRange(ps);
    return true;
}

} // namespace zorvant
