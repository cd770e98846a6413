#include "diagrams/ranges.h"

#include "engine/arithmetic.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"

#include <algorithm>
#include <cmath>

namespace zorvant {
namespace {

/// Below this a measured T, k or c counts as not given.
constexpr double kNotGiven = 1e-8;
/// Share of a range's width that stays free on each side of the points.
constexpr float kMarginShare = 20; // one part in
/// The Eyring diagram is widened by this at both ends, ln units.
constexpr float kEyringMargin = 1;
/// End of the normalized saturation diagram's x axis, c(S)/KM.
constexpr float kSaturationEnd = 20;
/// Lower end of the blood-alcohol axis, so that its zero line can be seen, g/kg.
constexpr float kBloodAlcoholFloor = -0.01F;

void Raise(Range& range, double value) {
    range.upper = std::max(range.upper, NearestSingle(value));
}

void Lower(Range& range, double value) {
    range.lower = std::min(range.lower, NearestSingle(value));
}

void Take(Range& range, double value) {
    Lower(range, value);
    Raise(range, value);
}

struct StartOfRange {
    Range KoordMemory::*range;
    float lower, upper;
};
constexpr StartOfRange kStarts[] = {
    {&KoordMemory::RngT, 0, 0},
    {&KoordMemory::RngC, 0, 0},
    {&KoordMemory::RngK, 0, 0},
    {&KoordMemory::RngTemp, 10000, 0},
    {&KoordMemory::RngInvT, 100000, 0},
    {&KoordMemory::RngLnK, 100000, -100000},
    {&KoordMemory::RngLnKT, 1000000, -1e6F},
    {&KoordMemory::RngLnC, 100000, -100000},
    {&KoordMemory::RngInvC, 100000, 0},
    {&KoordMemory::RngLnAB, 100000, -100000},
    {&KoordMemory::RngWilk, 100000, 0},
    {&KoordMemory::RngInvR, 1e9F, 0},
    {&KoordMemory::RngCR, 0, 0},
    {&KoordMemory::RngRC, 0, 0},
};

void TakePoint(const ProjectState& ps, KoordMemory& m, const ExpPoint& p) {
    Raise(m.RngT, p.t);
    for (int slot = 1; slot <= kSpecies; ++slot)
        Raise(m.RngC, p.c(slot));
    if (ps.FitMode == kFitFirstOrderT)
        m.RngC.upper = 1;
    if (ps.FitMode == kFitSecondOrderT)
        m.RngC.upper = ps.c0Data[1];
    Raise(m.RngTemp, p.T);
    if (p.T > 0)
        Lower(m.RngTemp, p.T);
    Raise(m.RngK, p.k);
    if (p.T > kNotGiven)
        Take(m.RngInvT, 1 / p.T);
    if (p.k > kNotGiven) {
        Take(m.RngLnK, std::log(p.k));
        if (p.T > kNotGiven)
            Take(m.RngLnKT, std::log(p.k / p.T));
    }
    if (p.cA > kNotGiven) {
        Take(m.RngLnC, std::log(p.cA));
        Take(m.RngInvC, 1 / p.cA);
        const double c0 = static_cast<double>(ps.c0Data[1]);
        const double conversion = c0 > 0 ? (c0 - p.cA) / c0 : 0;
        if (p.t > kNotGiven && conversion != 0)
            Take(m.RngWilk, p.t / conversion);
        if (p.cB > kNotGiven)
            Take(m.RngLnAB, std::log(p.cA / p.cB));
    }
    if (!IsEnzymeModel(ps.ModelId))
        return;
    const double r = p.t;
    Raise(m.RngR, r);
    if (p.cB > 0) {
        Take(m.RngInvC, 1 / p.cB);
        Take(m.RngRC, r / p.cB);
    }
    if (r > 0) {
        Take(m.RngInvR, 1 / r);
        Take(m.RngCR, p.cB / r);
    }
}

void AddMargin(Range& range, bool atLowerEnd) {
    const float margin = (range.upper - range.lower) / kMarginShare;
    range.upper = NearestSingle(static_cast<double>(range.upper + margin));
    if (atLowerEnd)
        range.lower = NearestSingle(static_cast<double>(range.lower - margin));
}

void AddMargins(KoordMemory& m) {
    for (Range KoordMemory::*upward : {&KoordMemory::RngT, &KoordMemory::RngC, &KoordMemory::RngR})
        AddMargin(m.*upward, false);
    for (Range KoordMemory::*both :
         {&KoordMemory::RngTemp, &KoordMemory::RngK, &KoordMemory::RngInvT, &KoordMemory::RngLnK,
          &KoordMemory::RngLnKT, &KoordMemory::RngLnC, &KoordMemory::RngInvC, &KoordMemory::RngLnAB,
          &KoordMemory::RngInvR, &KoordMemory::RngCR, &KoordMemory::RngRC})
        AddMargin(m.*both, true);
    m.RngInvT.lower = std::max(m.RngInvT.lower, 0.0F);
    if (m.RngWilk.upper == m.RngWilk.lower) {
        const float margin = m.RngWilk.upper / kMarginShare;
        m.RngWilk = {m.RngWilk.lower - margin, m.RngWilk.upper + margin};
    } else {
        AddMargin(m.RngWilk, true);
    }
}

/// Concentrations against time: their y range is fixed in the non-isothermal fits.
bool ShowsConcentrations(const DiagramKindRow& row) {
    return row.x == &KoordMemory::RngT && row.y == &KoordMemory::RngC;
}

/// The diagrams whose frame the saturation curve of the enzyme model replaces.
bool GivesWayToSaturation(const ProjectState& ps, const DiagramKindRow& row) {
    const bool rates = row.x == &KoordMemory::RngT && row.y == &KoordMemory::RngR;
    return IsMichaelisMentenCurve(ps) && (ShowsConcentrations(row) || rates);
}

} // namespace

void FuKoordLesen(const ProjectState& ps, int kind, const KoordMemory& memory, DiaKoord& frame) {
    const auto put = [&frame](Range x, Range y) {
        frame.xMin = x.lower;
        frame.xMax = x.upper;
        frame.yMin = y.lower;
        frame.yMax = y.upper;
    };
    const DiagramKindRow* row = FindDiagramKind(kind);
    if (row == nullptr)
        return;
    if (GivesWayToSaturation(ps, *row))
        put({0, ps.MMNormalized ? kSaturationEnd : ps.S0Max}, {0, 1});
    else if (kind == kKindBloodAlcohol)
        put({0, ps.BacTimeMax}, {kBloodAlcoholFloor, memory.RngC.upper});
    else if (row->x == nullptr)
        put({row->fixed[0], row->fixed[1]}, {row->fixed[2], row->fixed[3]});
    else
        put(memory.*row->x, memory.*row->y);
    if (kind == kKindEyring) {
        frame.yMin -= kEyringMargin;
        frame.yMax += kEyringMargin;
    }
}

void FuKoordMerken(const ProjectState& ps, int kind, KoordMemory& memory, const DiaKoord& frame) {
    const DiagramKindRow* row = FindDiagramKind(kind);
    if (row == nullptr)
        return;
    if (kind == kKindBloodAlcohol) {
        memory.RngC = {frame.yMin, frame.yMax};
        memory.RngT.upper = frame.xMax;
        return;
    }
    // The saturation curve has ranges of its own, which nothing reads back.
    if (row->x == nullptr || GivesWayToSaturation(ps, *row))
        return;
    memory.*row->x = {frame.xMin, frame.xMax};
    memory.*row->y = {frame.yMin, frame.yMax};
    if (ShowsConcentrations(*row) && ps.FitMode == kFitFirstOrderT)
        memory.RngC.upper = 1;
    if (ShowsConcentrations(*row) && ps.FitMode == kFitSecondOrderT)
        memory.RngC.upper = ps.c0Data[1];
}

void FuDatenBereiche(ProjectState& ps, int kind) {
    if (kind >= 0)
        return;
    KoordMemory& m = ps.Memory;
    for (const StartOfRange& start : kStarts)
        m.*start.range = {start.lower, start.upper};
    m.RngR.lower = 0;
    for (int i = 1; i <= ps.ExpPointCount; ++i)
        TakePoint(ps, m, ps.ExpData.at(static_cast<std::size_t>(i)));
    AddMargins(m);
}

void FuKoordSetzen(const DiaKoord& frame, PlotSurface& surface) {
    const auto xMin = static_cast<double>(frame.xMin);
    const auto xMax = static_cast<double>(frame.xMax);
    const auto yMin = static_cast<double>(frame.yMin);
    const auto yMax = static_cast<double>(frame.yMax);
    const PlotBatch batch(surface);
    SetAxis(surface, AxisId::X, xMin, xMax, xMin, xMax);
    SetAxis(surface, AxisId::Y, yMin, yMax, yMin, yMax);
    SetAxis(surface, AxisId::Y2, yMin, yMax, yMin, yMax);
    SetPoints(surface, kLines, kFrameSeries, {xMin, xMax}, {yMin, yMax});
}

bool InsideFrame(const DiaKoord& frame, double x, double y) {
    return x >= static_cast<double>(frame.xMin) && x <= static_cast<double>(frame.xMax) &&
           y >= static_cast<double>(frame.yMin) && y <= static_cast<double>(frame.yMax);
}

} // namespace zorvant
