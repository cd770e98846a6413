#include "reactors/batch.h"

#include "engine/arithmetic.h"
#include "engine/closed_forms.h"
#include "engine/reaction_catalogue.h"
#include "reactors/batch_march.h"
#include "reactors/batch_search.h"
#include "reactors/half_life.h"
#include "reactors/reactor_input.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace zorvant {
namespace {

/// Sub-steps of one call, about a minute. More would look like a program that hangs.
constexpr long long kMostWork = 2'000'000'000;

// Secant search for the time of a conversion.
constexpr double kFirstTime = 0.001; ///< TU, but for autocatalysis
constexpr double kSecantPart = 1000; ///< the secant's width: the first time through this
constexpr int kSecantPasses = 1000;
constexpr double kConverged = 1e-11; ///< of t

/// A of model 8 may exceed A + P of the start by this share: that is no error.
constexpr double kRounding = 1e-12;

/// States at one or two times. Errors: ArithmeticError; err.
void BatchStates(const ProjectState& ps, int model, std::span<const double> times,
                 std::span<SpeciesArray> states, bool& err, long long& work) {
    using namespace batch_march;
    if (HasClosedForm(model)) {
        const ClosedForm form(model, ps.k, ps.c0, err);
        for (std::size_t i = 0; i < times.size() && !err; ++i)
            form.At(times[i], states[i], err);
        return;
    }
    WithNumericModel(model, ps.k, static_cast<double>(ps.OrderN), [&]<class Law>(const Law& law) {
        const StateOf<Law> start = Packed<Law>(ps.c0);
        if (times.size() == 1) {
            Unpack<Law>(Integrate(law, start, times[0], work), states[0]);
        } else {
            const auto both = IntegrateBoth(law, start, times[0], times[1], work);
            Unpack<Law>(both.first, states[0]);
            Unpack<Law>(both.second, states[1]);
        }
    });
}

MessageBox ArithmeticBox(const ArithmeticError& error) {
    return {std::string("error occured:\r\n") + error.what() +
                "\r\nCheck your input data\r\n\r\n"
                "Advice: For your orientation set the default values.",
            "Message from CalcBatchKessel", Icon::Critical};
}

} // namespace

void CalcBatchStates(const ProjectState& ps, int model, std::span<const double> times,
                     std::span<SpeciesArray> states, bool& err, std::vector<MessageBox>& messages,
                     long long& work) {
    err = !IsSoundInput(ps, model, ps.c0) ||
          !std::all_of(times.begin(), times.end(), [](double t) { return std::isfinite(t); });
    if (err)
        return;
    try {
        BatchStates(ps, model, times, states, err, work);
        for (const SpeciesArray& c : states) {
            for (std::size_t slot = 1; slot <= kSpecies; ++slot)
                if (Model(model).speciesMask[slot - 1] == '1')
                    Finite(c[slot]);
            if (model == 8 && (ps.c0[1] + ps.c0[4]) * (1 + kRounding) < c[1])
                err = true;
        }
    } catch (const ArithmeticError& error) {
        err = true;
        messages.push_back(ArithmeticBox(error));
    }
}

void CalcBatchKessel(const ProjectState& ps, int model, double t, SpeciesArray& cOut, bool& err,
                     std::vector<MessageBox>& messages) {
    long long work = kMostWork;
    SpeciesArray c = cOut;
    CalcBatchStates(ps, model, {&t, 1}, {&c, 1}, err, messages, work);
    if (!err)
        cOut = c;
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
        const auto f = search.MissingAtBoth(t, t + dt);
        if (!f || f->second - f->first == 0)
            break;
        const double delta = -f->first * dt / (f->second - f->first);
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
