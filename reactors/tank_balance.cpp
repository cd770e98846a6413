// Balances of the stirred tank. With c0 the inlet, x1 and x2 the extents and t the mean residence
// time, each balance reads x = t r(c). The quadratics are the balances of A with all else inserted,
// written for c(A) at the outlet: y^2 + p y + q = 0, whose coefficients are sums of terms of one
// sign where those for the extent cancel (k1 t large, k2 = 1e-10). The extents follow from c(A).
#include "reactors/tank_balance.h"

#include "engine/rate_laws.h"
#include "reactors/reactor_input.h"
#include "reactors/root_search.h"
#include "reactors/tank_search.h"

#include <array>
#include <cmath>

namespace zorvant {
namespace {

constexpr const char* kTooLittleB =
    "The initial concentration of B is not sufficient for the wanted conversion.";
constexpr const char* kTooLittleBTest =
    "The initial concentration of B is not sufficient for the wanted conversion.\r\n"
    "(Test it by specification of the residence time)";
constexpr const char* kOutOfReach =
    "The specificated conversion cannot be reached with these concentrations.\r\n"
    "(Test it by specification of the residence time)";

/// By this factor k2 of model 19 leaves k1, so that the balance stays a quadratic.
constexpr double kApart = 1.0000000001;

/// One balance to solve.
struct Tank {
    const ProjectState& ps;
    int model;
    const SpeciesArray& in;
    double k1, k2, k3;
    double t;      ///< residence time given
    double U;      ///< conversion given
    int passLimit; ///< of the search of model 20
};

/// Computes the extents. Returned: false when the calculation ends at once.
using Balance = bool (*)(const Tank&, TankResult&);

bool Stop(TankResult& result) {
    result.bNoSolution = true;
    return false;
}

/// x1 from c(A), a root of y^2 + p y + q = 0: the smaller one unless it is negative, that is the
/// larger extent unless it would use up more A than there is.
bool TakeExtent(const Tank& tank, double p, double q, double aPerExtent, TankResult& result) {
    const auto roots = SolveQuadratic(p, q);
    if (!roots)
        return Stop(result);
    const double cA = roots->smaller >= 0 ? roots->smaller : roots->larger;
    result.x1 = (tank.in[1] - cA) / aPerExtent;
    result.restA = cA;
    return true;
}

/// C => P after the first reaction, with P => C where k3 > 0: balance of P.
double SecondExtent(const Tank& tank, double k3, double t, double x1) {
    return (tank.k2 * (tank.in[3] + x1) - k3 * tank.in[4]) / (1 / t + tank.k2 + k3);
}

/// C => P by k3 after A (+ B) <=> C: balance of P.
double ProductExtent(const Tank& tank, double t, double x1) {
    return tank.k3 * t * (tank.in[3] + x1) / (1 + tank.k3 * t);
}

// --- residence time given

bool ZerothOrder(const Tank& tank, TankResult& result) {
    result.x1 = std::fmin(tank.k1 * tank.t, tank.in[1]);
    return true;
}
bool FirstOrder(const Tank& tank, TankResult& result) {
    result.x1 = tank.in[1] * tank.k1 / (1 / tank.t + tank.k1);
    return true;
}
bool SecondOrderSame(const Tank& tank, TankResult& result) {
    const double e = 1 / (2 * tank.k1 * tank.t);
    return TakeExtent(tank, e, -tank.in[1] * e, 2, result);
}
bool SecondOrder(const Tank& tank, TankResult& result) {
    const double e = 1 / (tank.k1 * tank.t);
    return TakeExtent(tank, tank.in[2] - tank.in[1] + e, -tank.in[1] * e, 1, result);
}
bool Autocatalysis(const Tank& tank, TankResult& result) {
    const double e = 1 / (tank.k1 * tank.t);
    return TakeExtent(tank, -(tank.in[1] + tank.in[4] + e), tank.in[1] * e, 1, result);
}
bool FirstOrderThenFirst(const Tank& tank, TankResult& result) {
    result.x1 = tank.t * tank.k1 * tank.in[1] / (tank.t * tank.k1 + 1);
    result.x2 = SecondExtent(tank, tank.model == 14 ? tank.k3 : 0, tank.t, result.x1);
    return true;
}
bool SecondOrderThenFirst(const Tank& tank, TankResult& result) {
    if (!SecondOrder(tank, result))
        return false;
    result.x2 = SecondExtent(tank, tank.model == 13 ? tank.k3 : 0, tank.t, result.x1);
    return true;
}
bool Reversible(const Tank& tank, TankResult& result) {
    result.x1 = (tank.t * tank.k1 * tank.in[1] - tank.t * tank.k2 * tank.in[4]) /
                (tank.t * tank.k1 + 1 + tank.t * tank.k2);
    return true;
}
bool UpstreamSecondOrder(const Tank& tank, TankResult& result) {
    const double forward = tank.k1 * (1 + tank.k3 * tank.t); // less what C => P carries on
    const double e = (1 / tank.t + tank.k2 + tank.k3) / forward;
    const double back = tank.k2 * tank.in[3] / forward;
    if (!TakeExtent(tank, tank.in[2] - tank.in[1] + e, -(tank.in[1] * e + back), 1, result))
        return false;
    result.x2 = ProductExtent(tank, tank.t, result.x1);
    return true;
}
bool UpstreamFirstOrder(const Tank& tank, TankResult& result) {
    const double t = tank.t;
    result.x1 = t * (tank.k1 * tank.in[1] * (1 + tank.k3 * t) - tank.k2 * tank.in[3]) /
                (1 + (tank.k1 + tank.k2 + tank.k3) * t + tank.k1 * t * tank.k3 * t);
    result.x2 = ProductExtent(tank, t, result.x1);
    return true;
}
bool Competing(const Tank& tank, TankResult& result) {
    const double both = (tank.k1 + tank.k2) * tank.t;
    const double ratio = tank.k2 / tank.k1;
    result.x1 = tank.in[1] / (1 / both + (ratio + 1) + ratio / both);
    result.x2 = result.x1 * ratio;
    return true;
}
bool ReversibleToTwoP(const Tank& tank, TankResult& result) {
    const double ratio = tank.k2 / tank.k1;
    const double e = 1 / (tank.t * tank.k1);
    const double allP = 2 * tank.in[1] + tank.in[4]; // if A became P entirely
    const double p = tank.in[2] - tank.in[1] + e + 4 * ratio * allP;
    const double q = -(ratio * allP * allP + tank.in[1] * e);
    const double f = 1 - 4 * tank.k2 / tank.k1;
    if (f == 0) { // linear
        result.x1 = tank.in[1] + q / p;
        return true;
    }
    return TakeExtent(tank, p / f, q / f, 1, result);
}
bool ReversibleToOneP(const Tank& tank, TankResult& result) {
    const double ratio = tank.k2 / tank.k1;
    const double e = 1 / (tank.t * tank.k1);
    return TakeExtent(tank, tank.in[2] - tank.in[1] + ratio + e,
                      -(ratio * (tank.in[1] + tank.in[4]) + tank.in[1] * e), 1, result);
}
bool ReversibleToPAndQ(const Tank& tank, TankResult& result) {
    const double f = tank.k2 - tank.k1; // never 0: see kApart
    const double p = -(tank.k2 * (tank.in[4] + tank.in[5] + 2 * tank.in[1]) +
                       tank.k1 * (tank.in[2] - tank.in[1]) + 1 / tank.t);
    const double q =
        tank.k2 * (tank.in[4] + tank.in[1]) * (tank.in[5] + tank.in[1]) + tank.in[1] / tank.t;
    return TakeExtent(tank, p / f, q / f, 1, result);
}
bool SearchConcurrent(const Tank& tank, TankResult& result) {
    const ConcurrentTank balance{tank.in[1], tank.in[2], tank.in[3], tank.k1, tank.k2};
    const ConcurrentSearch search = SearchConcurrentTank(balance, tank.t);
    result.x1 = search.x1;
    result.x2 = search.x2;
    result.U = search.U;
    return search.bNoSolution ? Stop(result) : true;
}
bool SearchOrder(const Tank& tank, TankResult& result) {
    const OrderTank balance{tank.in[1], tank.t, tank.k1, static_cast<double>(tank.ps.OrderN)};
    const OrderSearch search = SearchOrderTank(balance, tank.passLimit);
    result.x1 = search.x;
    result.restA = search.left;
    result.bNoSolution = search.bNoSolution; // the state is stored whatever the flag says
    return true;
}

// --- conversion given

/// Rate of A at the outlet, mol/(L TU).
double RateOfA(const Tank& tank, const SpeciesArray& c) {
    SpeciesArray r{};
    FuReactionRates(tank.ps, tank.model, r, {0, tank.k1, tank.k2, tank.k3}, c);
    return r[1];
}

bool GeneralConversion(const Tank& tank, TankResult& result) {
    const auto& nu = tank.ps.Stoich[1];
    const auto coefficient = [&](std::size_t slot) { return static_cast<double>(nu[slot]); };
    result.x1 = tank.in[1] * tank.U / -coefficient(1);
    result.c[1] = (1 - tank.U) * tank.in[1];
    result.c[2] = coefficient(2) * result.x1 + tank.in[2];
    if (result.c[2] < 0 && (tank.model == 4 || tank.model == 12 || tank.model == 19)) {
        result.refusal = kTooLittleB;
        result.bBTooLow = true;
        return false;
    }
    result.c[4] = coefficient(4) * result.x1 + tank.in[4];
    result.c[5] = coefficient(5) * result.x1 + tank.in[5];
    const double rateOfA = RateOfA(tank, result.c);
    if (rateOfA == 0)
        return Stop(result);
    result.t = (tank.in[1] - result.c[1]) / -rateOfA;
    return true;
}
bool FirstOrderConversion(const Tank& tank, TankResult& result) {
    result.x1 = tank.in[1] * tank.U;
    result.t = result.x1 / (tank.k1 * (tank.in[1] - result.x1));
    if (result.t == 0 && tank.model == 6)
        result.bNoSolution = true;
    result.x2 = SecondExtent(tank, tank.model == 14 ? tank.k3 : 0, result.t, result.x1);
    return true;
}
bool SecondOrderConversion(const Tank& tank, TankResult& result) {
    result.x1 = tank.in[1] * tank.U;
    result.t = result.x1 / (tank.k1 * (tank.in[1] - result.x1) * (tank.in[2] - result.x1));
    if (result.t == 0 && tank.model == 9)
        result.bNoSolution = true;
    result.x2 = SecondExtent(tank, tank.model == 13 ? tank.k3 : 0, result.t, result.x1);
    if (tank.in[2] - result.x1 < 0) {
        result.refusal = kTooLittleBTest;
        result.bBTooLow = true;
        return false;
    }
    return true;
}
bool ConcurrentConversion(const Tank& tank, TankResult& result) {
    const ConcurrentTank balance{tank.in[1], tank.in[2], tank.in[3], tank.k1, tank.k2};
    const auto state = StateAtConversion(balance, tank.U);
    if (!state)
        return Stop(result);
    result.x1 = state->x1;
    result.x2 = state->x2;
    if (state->cB < 0) {
        result.bBTooLow = true;
        return false;
    }
    result.t = state->t;
    return true;
}
/// C <=> reached by `forward` = k1 c(A) or k1 c(A) c(B), left by k2 and k3: the balances of A and C
/// give a quadratic in t.
bool UpstreamConversion(const Tank& tank, TankResult& result) {
    result.x1 = tank.in[1] * tank.U;
    double forward = tank.k1 * (tank.in[1] - result.x1);
    if (tank.model != 15)
        forward *= tank.in[2] - result.x1;
    const double e = forward * tank.k3;
    const auto roots =
        e == 0
            ? std::optional(QuadraticRoots{})
            : SolveQuadratic((forward - tank.k2 * tank.in[3] - (tank.k2 + tank.k3) * result.x1) / e,
                             -result.x1 / e);
    if (!roots)
        return Stop(result);
    if (e == 0 || roots->larger < 0) { // then the smaller one is negative too
        result.refusal = kOutOfReach;
        return false;
    }
    result.t = roots->larger > 0 ? roots->larger : roots->smaller;
    result.x2 = ProductExtent(tank, result.t, result.x1);
    return true;
}
bool CompetingConversion(const Tank& tank, TankResult& result) {
    const double ratio = tank.k2 / tank.k1;
    const double converted = tank.in[1] * tank.U;
    result.x1 = converted / (ratio + 1);
    result.x2 = result.x1 * ratio;
    result.t = converted / ((tank.k1 + tank.k2) * (tank.in[1] - result.x1 - result.x2));
    return true;
}

// --- the table

/// How much of a slot comes out for one mol/L of x1 and of x2.
struct Yield {
    double perX1 = 0;
    double perX2 = 0;
};
using Yields = std::array<Yield, 5>; // A, B, C, P, Q
constexpr Yield kNone{}, kUsed{-1, 0}, kMade{1, 0};
constexpr Yield kUsedTwice{-1, -1}, kBetween{1, -1}, kMadeSecond{0, 1};

constexpr Yields kAToP{kUsed, kNone, kNone, kMade, kNone};
constexpr Yields kTwoAToP{Yield{-2, 0}, kNone, kNone, kMade, kNone};
constexpr Yields kAToPAndQ{kUsed, kNone, kNone, kMade, kMade};
constexpr Yields kAToCToP{kUsed, kNone, kBetween, kMadeSecond, kNone};
constexpr Yields kAToPOrQ{kUsedTwice, kNone, kNone, kMade, kMadeSecond};
constexpr Yields kABToP{kUsed, kUsed, kNone, kMade, kNone};
constexpr Yields kABToTwoP{kUsed, kUsed, kNone, Yield{2, 0}, kNone};
constexpr Yields kABToPAndQ{kUsed, kUsed, kNone, kMade, kMade};
constexpr Yields kABToCToP{kUsed, kUsed, kBetween, kMadeSecond, kNone};
constexpr Yields kABToCToPAndQ{kUsed, kUsed, kBetween, kMadeSecond, kMadeSecond};
constexpr Yields kABToCAndACToP{kUsedTwice, kUsed, kBetween, kMadeSecond, kNone};

struct TankModel {
    Balance timeGiven = nullptr;
    Balance conversionGiven = nullptr;
    Yields yields{};
    bool testsA = false; ///< a negative c(A) is no solution
};

/// By model. The enzyme model (10) is balanced like model 18: E is not given back by ES => P + E.
constexpr auto kTankModels = [] {
    std::array<TankModel, kModels + 1> table{};
    table[1] = {ZerothOrder, GeneralConversion, kAToP};
    table[2] = {FirstOrder, GeneralConversion, kAToP};
    table[3] = {SecondOrderSame, GeneralConversion, kTwoAToP, true};
    table[4] = {SecondOrder, GeneralConversion, kABToP, true};
    table[5] = table[16] = {Autocatalysis, GeneralConversion, kAToPAndQ};
    table[6] = table[14] = {FirstOrderThenFirst, FirstOrderConversion, kAToCToP};
    table[7] = {SearchConcurrent, ConcurrentConversion, kABToCAndACToP};
    table[8] = {Reversible, GeneralConversion, kAToP};
    table[9] = table[13] = {SecondOrderThenFirst, SecondOrderConversion, kABToCToP};
    table[10] = table[18] = {UpstreamSecondOrder, UpstreamConversion, kABToCToPAndQ};
    table[11] = {Competing, CompetingConversion, kAToPOrQ};
    table[12] = {ReversibleToTwoP, GeneralConversion, kABToTwoP, true};
    table[15] = {UpstreamFirstOrder, UpstreamConversion, kAToCToP};
    table[17] = {ReversibleToOneP, GeneralConversion, kABToP};
    table[19] = {ReversibleToPAndQ, GeneralConversion, kABToPAndQ, true};
    table[20] = {SearchOrder, GeneralConversion, kAToP};
    return table;
}();

const TankModel& RowOf(int model) {
    return kTankModels[static_cast<std::size_t>(model)];
}

void FillOutlet(const TankModel& row, const SpeciesArray& in, TankResult& result) {
    for (std::size_t slot = 1; slot <= kSpecies; ++slot) {
        const Yield& yield = row.yields[slot - 1];
        if (yield.perX1 != 0 || yield.perX2 != 0)
            result.c[slot] = in[slot] + yield.perX1 * result.x1 + yield.perX2 * result.x2;
    }
    if (result.restA >= 0) // the difference would lose a small rest
        result.c[1] = result.restA;
}

bool AreFinite(const SpeciesArray& c) {
    for (std::size_t slot = 1; slot <= kSpecies; ++slot)
        if (!std::isfinite(c[slot]))
            return false;
    return true;
}

/// Nothing that is not a number leaves: the state before, the flag set.
TankResult NoSolution(const SpeciesArray& before) {
    TankResult result;
    result.c = before;
    result.bNoSolution = true;
    result.stopped = true;
    return result;
}

bool IsFiniteResult(const TankResult& result) {
    return AreFinite(result.c) && std::isfinite(result.x1) && std::isfinite(result.x2) &&
           std::isfinite(result.t) && std::isfinite(result.U);
}

} // namespace

TankResult SolveTankForState(ProjectState& ps, int model, const SpeciesArray& in, double t,
                             const SpeciesArray& before, int passLimit) {
    if (!IsSoundInput(ps, model, in) || !(t > 0) || !std::isfinite(t))
        return NoSolution(before);
    if (model == 19 && ps.k[2] == ps.k[1])
        ps.k[2] *= kApart;

    TankResult result;
    result.c = before;
    result.t = t;
    const Tank tank{ps, model, in, ps.k[1], ps.k[2], ps.k[3], t, 0, passLimit};
    const TankModel& row = RowOf(model);
    result.stopped = !row.timeGiven(tank, result);
    if (!result.stopped) {
        FillOutlet(row, in, result);
        if (row.testsA && result.c[1] < 0)
            result.bNoSolution = true;
        if (model != 7)
            result.U = (in[1] - result.c[1]) / in[1];
    }
    return IsFiniteResult(result) ? result : NoSolution(before);
}

TankResult SolveTankForTime(const ProjectState& ps, int model, const SpeciesArray& in, double U) {
    if (!IsSoundInput(ps, model, in) || !std::isfinite(U))
        return NoSolution({});
    TankResult result;
    result.U = U;
    const Tank tank{ps, model, in, ps.k[1], ps.k[2], ps.k[3], 0, U, 0};
    const TankModel& row = RowOf(model);
    result.stopped = !row.conversionGiven(tank, result);
    if (!result.stopped && row.conversionGiven != GeneralConversion)
        FillOutlet(row, in, result);
    return IsFiniteResult(result) ? result : NoSolution({});
}

} // namespace zorvant
