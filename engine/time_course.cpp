#include "engine/time_course.h"

#include "engine/akima_spline.h"
#include "engine/closed_forms.h"
#include "engine/numeric_models.h"
#include "engine/rate_laws.h"
#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdint>

namespace zorvant {
namespace {

/// Entries of the course tables, 0..450: room for the nodes of any axis.
constexpr std::size_t kCourseSize = 451;
/// Entries of the concentration tables under the blood-alcohol curve.
constexpr std::size_t kBacSize = 1000;
/// End of the normalized axis c(S)/KM of the enzyme curve.
constexpr double kNormalizedEnd = 20;
/// Free room at each end of an axis, as a share of its length.
constexpr double kMargin = 0.02;

void ClearCourse(ProjectState& ps, std::size_t timeSize, std::size_t size) {
    ps.tSim.assign(timeSize, 0);
    for (int slot = 1; slot <= kSpecies; ++slot) {
        cSim(ps, slot).assign(size, 0);
        rSim(ps, slot).assign(size, 0);
    }
}

void StoreState(ProjectState& ps, std::size_t i, const SpeciesArray& c) {
    ps.cSimA[i] = c[1];
    ps.cSimB[i] = c[2];
    ps.cSimC[i] = c[3];
    ps.cSimP[i] = c[4];
    ps.cSimQ[i] = c[5];
}

/// Rates at a node, as Single.
void StoreRates(ProjectState& ps, std::size_t i, const SpeciesArray& r) {
    ps.rSimA[i] = ToSingle(r[1]);
    ps.rSimB[i] = ToSingle(r[2]);
    ps.rSimC[i] = ToSingle(r[3]);
    ps.rSimP[i] = ToSingle(r[4]);
    ps.rSimQ[i] = ToSingle(r[5]);
}

void CalcClosedForm(ProjectState& ps, int model, double dt, bool& err) {
    const ClosedForm closed(model, ps.k, ps.c0, err);
    if (err)
        return;
    SpeciesArray r{}, c{};
    for (std::size_t i = 0; i <= kCurveIntervals; ++i) {
        const double t = static_cast<double>(i) * dt;
        ps.tSim[i] = t;
        closed.At(t, c, err);
        if (err)
            return;
        StoreState(ps, i, c);
        FuReactionRates(ps, model, r, ps.k, c);
        StoreRates(ps, i, r);
    }
    for (int slot = 1; slot <= kSpecies; ++slot)
        if (InMask(Model(model).speciesMask, slot))
            ps.cEnd[static_cast<std::size_t>(slot)] = c[static_cast<std::size_t>(slot)];
}

/// r(P)/r(P),max over c(S)/KM or c(S).
void CalcEnzymeCurve(ProjectState& ps) {
    const double dx =
        (ps.MMNormalized ? kNormalizedEnd : static_cast<double>(ps.S0Max)) / ps.NPoints;
    for (std::size_t i = 0; i <= kCurveIntervals; ++i) {
        double x = static_cast<double>(i) * dx;
        ps.tSim[i] = x;
        if (!ps.MMNormalized && ps.KM > 0)
            x /= ps.KM;
        ps.rSimP[i] = ToSingle(x / (x + 1));
    }
}

template <class Law>
void CalcNumeric(ProjectState& ps, int model, const Law& law, double tEnd, double dt) {
    if (!(dt > 0))
        ThrowArithmetic(kInvalidCall);
    constexpr int n = kSizeOf<Law>;
    constexpr bool hasB = n == 4;
    StateOf<Law> y;
    for (std::size_t i = 0; i < y.size(); ++i)
        y[i] = ps.c0[static_cast<std::size_t>(Law::kSlots[i])];

    int m = 1;
    std::size_t j = 0;
    bool foundA = false, foundB = false;
    SpeciesArray c{}, r{};
    for (double t = 0; t <= tEnd + dt && j < kCourseSize; t += dt) {
        ps.tSim[j] = t;
        for (std::size_t i = 0; i < y.size(); ++i)
            c[static_cast<std::size_t>(Law::kSlots[i])] = y[i];
        StoreState(ps, j, c);
        const auto halfLife = [&](double half, const std::vector<double>& course) {
            return Interpolate(half, ps.tSim[j], course[j], ps.tSim[j - 1], course[j - 1]);
        };
        if (!foundA && j > 0 && ps.c0[1] / 2 > c[1]) {
            foundA = true;
            ps.tHalfA = halfLife(ps.c0[1] / 2, ps.cSimA);
        }
        if (hasB && !foundB && j > 0 && ps.c0[2] / 2 > c[2]) {
            foundB = true;
            ps.tHalfB = halfLife(ps.c0[2] / 2, ps.cSimB);
        }
        IntegrateInterval(law, y, dt, m);
        m = std::max(m / 4, 1);
        ++j;
    }

    const int nodes = static_cast<int>(j);
    ReserveAkima(ps, nodes);
    for (std::size_t i = 0; i < j; ++i) {
        ps.SplineX[i + 1] = ps.tSim[i];
        for (int slot = 1; slot <= kSpecies; ++slot)
            c[static_cast<std::size_t>(slot)] = cSim(ps, slot)[i];
        ps.SplineY[i + 1] = c;
        FuReactionRates(ps, model, r, ps.k, c);
        StoreRates(ps, i, r);
    }
    ps.cEnd = c;
    for (const int slot : Law::kSlots)
        if (InMask(ps.SpeciesMask, slot))
            AkimaKoeffizienten(ps, slot, nodes, 0);
}

void CalcBloodAlcohol(ProjectState& ps) {
    const auto end = std::max<std::int64_t>(0, RoundHalfEven(static_cast<double>(ps.BacTimeMax)));
    const auto points = static_cast<std::size_t>(end);
    ClearCourse(ps, kCourseSize, std::max(kBacSize, points + 1));
    ps.NPoints = static_cast<int>(end);
    ps.tSim.assign(points + 1, 0);
    ps.cSimA.assign(points + 1, 0);
    if (!ps.BacCurve)
        return;
    const std::vector<float> curve = ps.BacCurve(ps.NPoints);
    for (std::size_t i = 1; i <= points && i < curve.size(); ++i) {
        ps.tSim[i] = static_cast<double>(i);
        ps.cSimA[i] = static_cast<double>(curve[i]);
    }
}

} // namespace

void IntegrateInterval(const ProjectState& ps, int n, std::array<double, 5>& y, double step,
                       int& m) {
    WithNumericModel(ps.ModelId, ps.k, static_cast<double>(ps.OrderN),
                     [&]<class Law>(const Law& law) {
                         assert(n == kSizeOf<Law>);
                         StateOf<Law> state;
                         std::copy_n(y.begin() + 1, state.size(), state.begin());
                         IntegrateInterval(law, state, step, m);
                         std::ranges::copy(state, y.begin() + 1);
                     });
}

float Interpolate(double x, double ya, double xa, double yb, double xb) {
    if (!(std::abs(xb - xa) > 0))
        return 0;
    return ToSingle((x - xa) * (yb - ya) / (xb - xa) + ya);
}

void CourseExtents(ProjectState& ps, double tEnd) {
    ps.Memory.RngT = {0, ToSingle(tEnd)};
    const auto nodes = static_cast<std::size_t>(ps.NPoints) + 1;
    const int first = ps.ScaleOneSpecies ? ps.ScaleSpecies : 1;
    const int last = ps.ScaleOneSpecies ? ps.ScaleSpecies : kSpecies;
    float yMin = ps.ScaleOneSpecies ? 10000.0F : 0.0F;
    float yMax = -10000, y2Min = 10000, y2Max = -10000;
    for (int slot = std::max(first, 1); slot <= std::min(last, kSpecies); ++slot) {
        const std::vector<double>& c = cSim(ps, slot);
        const std::vector<float>& r = rSim(ps, slot);
        for (std::size_t i = 0; i < std::min(nodes, c.size()); ++i) {
            yMax = std::max(yMax, static_cast<float>(c[i]));
            if (ps.ScaleOneSpecies)
                yMin = std::min(yMin, static_cast<float>(c[i]));
        }
        for (std::size_t i = 0; i < std::min(nodes, r.size()); ++i) {
            y2Max = std::max(y2Max, r[i]);
            y2Min = std::min(y2Min, r[i]);
        }
    }

    const auto margin = [](float upper, float lower) {
        return std::abs((static_cast<double>(upper) - static_cast<double>(lower)) * kMargin);
    };
    const auto widen = [&](float& lower, float& upper) {
        upper = ToSingle(static_cast<double>(upper) + margin(upper, lower));
        lower = ToSingle(static_cast<double>(lower) - margin(upper, lower));
    };
    widen(yMin, yMax);
    widen(y2Min, y2Max);
    if (yMax <= yMin) {
        if (yMax == 0) {
            yMax = 1;
            yMin = 0;
        } else {
            yMax = ToSingle(static_cast<double>(yMax) * 1.01);
            yMin = ToSingle(static_cast<double>(yMin) - std::abs(static_cast<double>(yMax) * 0.01));
        }
    }
    ps.Memory.RngC = {yMin, yMax};
    ps.Memory.RngR = {y2Min, y2Max};
}

void calc_diagram_function(ProjectState& ps, int model, double tEnd, bool& err) {
    err = false;
    ps.tHalfA = ps.tHalfB = 0;
    if (model == kBloodAlcohol) {
        CalcBloodAlcohol(ps);
    } else {
        ClearCourse(ps, kCourseSize, kCourseSize);
        ps.NPoints = kCurveIntervals;
        const double dt = tEnd / kCurveIntervals;
        for (int slot = 1; slot <= kSpecies; ++slot)
            if (InMask(ps.SpeciesMask, slot))
                cSim(ps, slot)[0] = ps.c0[static_cast<std::size_t>(slot)];
        if (model == 10 && ps.MMDiagram)
            CalcEnzymeCurve(ps);
        else if (HasClosedForm(model))
            CalcClosedForm(ps, model, dt, err);
        else
            WithNumericModel(model, ps.k, static_cast<double>(ps.OrderN),
                             [&](const auto& law) { CalcNumeric(ps, model, law, tEnd, dt); });
        if (err)
            return;
    }
    if (ps.FitMode == 0)
        CourseExtents(ps, tEnd);
}

} // namespace zorvant
