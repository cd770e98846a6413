#include "engine/time_course.h"

#include "engine/akima_rows.h"
#include "engine/akima_spline.h"
#include "engine/closed_forms.h"
#include "engine/rate_laws.h"
#include "engine/reaction_catalogue.h"
#include "engine/step_doubling.h"
#include "platform/number_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

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

std::size_t At(int i) {
    return static_cast<std::size_t>(i);
}

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

/// Rows of the spline tables for the nodes of a course: the even grid has one node beyond its end,
/// rounding may add another.
constexpr int kSplineNodes = kCurveIntervals + 3;

/// The time at which half of the start concentration is passed between two nodes.
class PassedHalf {
public:
    explicit PassedHalf(double c0) : half_(c0 / 2) {}
    ZORVANT_INLINE void Look(double c, double t, double cBefore, double tBefore) {
        if (found_ || !(half_ > c))
            return;
        found_ = true;
        time_ = Interpolate(half_, t, c, tBefore, cBefore);
    }
    float Time() const { return time_; }

private:
    double half_;
    bool found_ = false;
    float time_ = 0;
};

/// What is kept of the nodes of an integrated course: the tables of the state, their splines, and
/// the half-lives that are passed.
template <class Law> class NodeTables {
public:
    ZORVANT_INLINE explicit NodeTables(ProjectState& ps)
        : ps_(ps), halfA_(ps.c0[1]), halfB_(ps.c0[2]), first_(ps, {Slot(0), Slot(1)}),
          second_(ps, {Slot(2), Slot(3)}) {
        ZORVANT_UNROLL
        for (int i = 0; i < n; ++i) {
            c_[At(i)] = cSim(ps, Law::kSlots[At(i)]).data();
            r_[At(i)] = rSim(ps, Law::kSlots[At(i)]).data();
        }
    }

    /// The next node, whose rates are those of the law.
    ZORVANT_INLINE void Add(double t, const StateOf<Law>& y, const StateOf<Law>& rate) {
        const std::size_t j = nodes_++;
        ps_.tSim[j] = t;
        ps_.SplineX[j + 1] = t;
        SpeciesArray& row = ps_.SplineY[j + 1];
        row = ps_.SplineA[j + 1] = ps_.SplineB[j + 1] = ps_.SplineC[j + 1] =
            ps_.SplineD[j + 1] = {};
        ZORVANT_UNROLL
        for (std::size_t i = 0; i < n; ++i) {
            c_[i][j] = y[i];
            row[Slot(i)] = y[i];
            r_[i][j] = static_cast<float>(rate[i]);
            spoilt_ += static_cast<double>(r_[i][j] - r_[i][j]);
        }
        if (j > 0) {
            halfA_.Look(y[0], t, c_[0][j - 1], ps_.tSim[j - 1]);
            if constexpr (n == 4)
                halfB_.Look(y[1], t, c_[1][j - 1], ps_.tSim[j - 1]);
        }
        first_.Add(t, Pair{y[0], y[1]});
        if constexpr (n > 2)
            second_.Add(t, Pair{y[2], y.back()});
    }

    /// There are no more nodes.
    /// Errors: ArithmeticError "Overflow" when a rate or a coefficient is beyond its range
    ZORVANT_INLINE void Finish() {
        ps_.SplineX[0] = static_cast<double>(nodes_);
        first_.Finish();
        if constexpr (n > 2)
            second_.Finish();
        ps_.cEnd = ps_.SplineY[nodes_];
        ps_.tHalfA = halfA_.Time();
        ps_.tHalfB = halfB_.Time();
        if (spoilt_ != 0)
            ThrowArithmetic(kOverflow);
    }

private:
    static constexpr int n = kSizeOf<Law>;
    /// The species at place i; of three the last one stands twice.
    static constexpr std::size_t Slot(std::size_t i) {
        return static_cast<std::size_t>(Law::kSlots[std::min(i, Law::kSlots.size() - 1)]);
    }

    ProjectState& ps_;
    std::size_t nodes_ = 0;
    std::array<double*, n> c_;
    std::array<float*, n> r_;
    double spoilt_ = 0; ///< stays 0 while every rate fits into a Single
    PassedHalf halfA_, halfB_;
    AkimaRows<TwoSlots> first_, second_; ///< the splines, formed two at a time
};

template <class Law> void CalcNumeric(ProjectState& ps, const Law& law, double tEnd, double dt) {
    if (!(dt > 0))
        ThrowArithmetic(kInvalidCall);
    if (ps.SplineX.size() != ps.SplineD.size() || ps.SplineX.size() != kSplineNodes + 6)
        ReserveAkima(ps, kSplineNodes);
    NodeTables<Law> tables(ps);
    StateOf<Law> y = Packed<Law>(ps.c0);
    int m = 1;
    int nodes = 0;
    for (double t = 0; t <= tEnd + dt && nodes < kSplineNodes; t += dt, ++nodes) {
        tables.Add(t, y, NodeRates(law, y));
        IntegrateInterval(law, y, dt, m);
        m = SubStepsAfter(m);
    }
    tables.Finish();
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

struct Extent {
    double lower, upper;
};

/// Widens an extent to the first values of a course, some at a time.
template <class Lanes, class Value>
void Widen(Extent& extent, const std::vector<Value>& values, std::size_t count) {
    constexpr std::size_t kLanes = sizeof(Lanes) / sizeof(Value);
    count = std::min(count, values.size());
    auto lower = static_cast<Value>(extent.lower), upper = static_cast<Value>(extent.upper);
    std::size_t i = 0;
    if (count >= 2 * kLanes) {
        const auto load = [&](std::size_t at) {
            Lanes lanes;
            std::memcpy(&lanes, values.data() + at, sizeof lanes);
            return lanes;
        };
        Lanes low1 = load(0), low2 = low1, high1 = low1, high2 = low1;
        for (; i + 2 * kLanes <= count; i += 2 * kLanes) {
            const Lanes first = load(i), second = load(i + kLanes);
            low1 = Smaller(low1, first), low2 = Smaller(low2, second);
            high1 = Larger(high1, first), high2 = Larger(high2, second);
        }
        low1 = Smaller(low1, low2), high1 = Larger(high1, high2);
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            lower = std::min(lower, low1[lane]);
            upper = std::max(upper, high1[lane]);
        }
    }
    for (; i < count; ++i) {
        lower = std::min(lower, values[i]);
        upper = std::max(upper, values[i]);
    }
    extent = {static_cast<double>(lower), static_cast<double>(upper)};
}

} // namespace

float Interpolate(double x, double ya, double xa, double yb, double xb) {
    if (!(std::abs(xb - xa) > 0))
        return 0;
    return ToSingle((x - xa) * (yb - ya) / (xb - xa) + ya);
}

void CourseExtents(ProjectState& ps, double tEnd) {
    ps.Memory.RngT = {0, ToSingle(tEnd)};
    const auto nodes = static_cast<std::size_t>(ps.NPoints) + 1;
    const int one = std::clamp(ps.ScaleSpecies, 1, kSpecies);
    const int first = ps.ScaleOneSpecies ? one : 1;
    const int last = ps.ScaleOneSpecies ? one : kSpecies;
    Extent concentrations{10000, -10000}, rates{10000, -10000};
    for (int slot = first; slot <= last; ++slot) {
        Widen<Pair>(concentrations, cSim(ps, slot), nodes);
        Widen<Quad>(rates, rSim(ps, slot), nodes);
    }
    if (!ps.ScaleOneSpecies)
        concentrations.lower = 0;
    float yMin = static_cast<float>(concentrations.lower);
    float yMax = static_cast<float>(concentrations.upper);
    float y2Min = static_cast<float>(rates.lower), y2Max = static_cast<float>(rates.upper);

    const auto margin = [](float upper, float lower) {
        return std::abs((static_cast<double>(upper) - static_cast<double>(lower)) * kMargin);
    };
    const auto leaveRoom = [&](float& lower, float& upper) {
        upper = ToSingle(static_cast<double>(upper) + margin(upper, lower));
        lower = ToSingle(static_cast<double>(lower) - margin(upper, lower));
    };
    leaveRoom(yMin, yMax);
    leaveRoom(y2Min, y2Max);
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
                             [&](const auto& law) { CalcNumeric(ps, law, tEnd, dt); });
        if (err)
            return;
    }
    if (ps.FitMode == 0)
        CourseExtents(ps, tEnd);
}

} // namespace zorvant
