#include "reactors/batch.h"

#include "engine/arithmetic.h"
#include "engine/closed_forms.h"
#include "engine/numeric_models.h"
#include "engine/reaction_catalogue.h"
#include "reactors/batch_search.h"
#include "reactors/half_life.h"
#include "reactors/reactor_input.h"

#include <algorithm>
#include <cmath>

namespace zorvant {
namespace {

// Integration over the reaction time.
constexpr double kIntervals = 150;     ///< in t: the result lies up to one interval beyond t
constexpr double kLongestInterval = 1; ///< TU; longer ones become
constexpr double kSetInterval = 0.4;   ///< TU
constexpr double kMostIntervals = 1e5; ///< beyond, intervals grow: a press must come to its end
// Step doubling within an interval, beside what the engine says of it.
constexpr int kMostDoublings = 32767; ///< sub-steps; a doubling beyond is the overflow
constexpr int kFirstRunsPart = 5;     ///< the first run covers a fifth of the interval
/// Sub-steps of one call, about a minute. More would look like a program that hangs.
constexpr long long kMostWork = 2'000'000'000;

// Secant search for the time of a conversion.
constexpr double kFirstTime = 0.001; ///< TU, but for autocatalysis
constexpr double kSecantPart = 1000; ///< the secant's width: the first time through this
constexpr int kSecantPasses = 1000;
constexpr double kConverged = 1e-11; ///< of t

/// One interval with step doubling. The first of the first two runs covers a fifth of the interval
/// only, so the first comparison is strict. `work` loses the sub-steps.
template <class Law>
StateOf<Law> Interval(const Law& law, const StateOf<Law>& start, double length, int& m,
                      long long& work) {
    const auto doubled = [&] {
        m = 2 * m;
        if (m > kMostDoublings)
            ThrowArithmetic(kOverflow);
        work -= m;
        return length / m;
    };
    const int first = m;
    const double hFirst = length / m / kFirstRunsPart;
    const double hSecond = doubled();
    auto [coarse, fine] = RunTwoRK4(law, start, first, hFirst, hSecond);
    while (!RunsAgree(coarse, fine)) {
        coarse = fine;
        const double h = doubled();
        fine = RunRK4(law, start, m, h);
    }
    return fine;
}

/// The state at the last node not beyond one interval after t.
template <class Law>
StateOf<Law> Integrate(const Law& law, StateOf<Law> y, double t, long long& work) {
    double interval = t / kIntervals;
    if (interval > kLongestInterval)
        interval = std::fmax(kSetInterval, t / kMostIntervals);
    if (interval == 0)
        return y;
    const double end = t + interval;
    StateOf<Law> now = y;
    int m = 1;
    for (double tau = 0; interval > 0 ? tau <= end : tau >= end; tau += interval) {
        now = y;
        const int mBefore = m;
        y = Interval(law, now, interval, m, work);
        if (work < 0)
            ThrowArithmetic(kOverflow);
        m = std::max(m / 4, 1);
        if (y == now && m == mBefore) // every further interval would be the same
            break;
    }
    return now;
}

/// State at t. Errors: ArithmeticError; err.
void BatchState(const ProjectState& ps, int model, double t, SpeciesArray& c, bool& err,
                long long& work) {
    if (HasClosedForm(model)) {
        ClosedForm(model, ps.k, ps.c0, err).At(t, c, err);
        return;
    }
    WithNumericModel(model, ps.k, static_cast<double>(ps.OrderN), [&]<class Law>(const Law& law) {
        StateOf<Law> y;
        for (std::size_t i = 0; i < y.size(); ++i)
            y[i] = ps.c0[static_cast<std::size_t>(Law::kSlots[i])];
        y = Integrate(law, y, t, work);
        for (std::size_t i = 0; i < y.size(); ++i)
            c[static_cast<std::size_t>(Law::kSlots[i])] = y[i];
    });
}

MessageBox ArithmeticBox(const ArithmeticError& error) {
    return {std::string("error occured:\r\n") + error.what() +
                "\r\nCheck your input data\r\n\r\n"
                "Advice: For your orientation set the default values.",
            "Message from CalcBatchKessel", Icon::Critical};
}

} // namespace

void CalcBatchKesselWithin(const ProjectState& ps, int model, double t, SpeciesArray& cOut,
                           bool& err, std::vector<MessageBox>& messages, long long& work) {
    err = false;
    if (!IsSoundInput(ps, model, ps.c0) || !std::isfinite(t)) {
        err = true;
        return;
    }
    try {
        SpeciesArray c = cOut;
        BatchState(ps, model, t, c, err, work);
        for (std::size_t slot = 1; slot <= kSpecies; ++slot)
            if (Model(model).speciesMask[slot - 1] == '1')
                Finite(c[slot]);
        if (model == 8 && ps.c0[1] + ps.c0[4] < c[1])
            err = true;
        if (!err)
            cOut = c;
    } catch (const ArithmeticError& error) {
        err = true;
        messages.push_back(ArithmeticBox(error));
    }
}

void CalcBatchKessel(const ProjectState& ps, int model, double t, SpeciesArray& cOut, bool& err,
                     std::vector<MessageBox>& messages) {
    long long work = kMostWork;
    CalcBatchKesselWithin(ps, model, t, cOut, err, messages, work);
}

double ConversionOfA(const ProjectState& ps) {
    const double U = (ps.c0[1] - ps.cEnd[1]) / ps.c0[1];
    return std::isfinite(U) ? U : 0;
}

TimeSearch SearchBatchTime(ProjectState& ps) {
    ConversionSearch search(ps);
    double t = kFirstTime;
    if (ps.ModelId == 5 || ps.ModelId == 16) {
        const HalfLife half =
            HalfLifeOfA(ps.ModelId, ps.c0[1], ps.c0[2], ps.c0[4], ps.k[1], ps.k[2]);
        if (half.value > 0)
            t = static_cast<double>(half.value);
    }
    const double dt = t / kSecantPart;
    for (int pass = 1; pass <= kSecantPasses; ++pass) {
        const auto f1 = search.Missing(t);
        const auto f2 = f1 ? search.Missing(t + dt) : std::nullopt;
        if (!f2 || *f2 - *f1 == 0)
            break;
        const double delta = -*f1 * dt / (*f2 - *f1);
        t += delta;
        if (t < 0)
            t = -t + dt;
        if (std::abs(delta / t) < kConverged)
            return search.Found(t);
    }
    return search.Bracket();
}

void CalcKsi(const ProjectState& ps, std::array<double, 4>& Ksi) {
    const SpeciesArray &c0 = ps.c0, &c = ps.cEnd;
    Ksi[1] = Ksi[2] = 0;
    switch (ps.ModelId) {
    case 7:
        Ksi[1] = c0[2] - c[2];
        Ksi[2] = Ksi[1] - c[3];
        break;
    case 11:
        Ksi[1] = c[4] - c0[4];
        Ksi[2] = c[5] - c0[5];
        break;
    case 6:
    case 9:
    case 10:
    case 13:
    case 14:
    case 15:
    case 18:
        Ksi[2] = c[4] - c0[4];
        [[fallthrough]];
    default:
        if (ps.ModelId >= 1 && ps.ModelId <= kModels)
            Ksi[1] = (c0[1] - c[1]) / -static_cast<double>(ps.Stoich[1][1]);
        break;
    }
    for (double& ksi : Ksi)
        if (!std::isfinite(ksi)) // no matrix, or no sound state
            ksi = 0;
}

} // namespace zorvant
