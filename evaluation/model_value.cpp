#include "evaluation/model_value.h"

#include "engine/akima_spline.h"
#include "engine/arithmetic.h"
#include "engine/closed_forms.h"
#include "engine/reaction_catalogue.h"
#include "evaluation/kinetic_problem.h"
#include "platform/number_text.h"

#include <cmath>
#include <vector>

namespace zorvant {

namespace {

/// Below this the workbench shows the root of the value.
constexpr float kSmallRms = 0.1F;

double EnzymeCurve(const ProjectState& ps, double t) {
    const double x = !ps.MMNormalized && ps.KM > 0 ? t / ps.KM : t;
    return Divide(x, x + 1);
}

void SplineValues(const ProjectState& ps, double t, SpeciesArray& c) {
    const int n = ps.SplineX.empty() ? 0 : static_cast<int>(ps.SplineX[0]);
    if (n < 1)
        ThrowArithmetic(kInvalidCall);
    const int interval = AkimaInterval(ps, t, n, 0);
    for (int slot = 1; slot <= kSpecies; ++slot) {
        if (InMask(ps.SpeciesMask, slot))
            c[static_cast<std::size_t>(slot)] =
                Finite(AkimaWertIn(ps, AkimaMode::Value, slot, t, n, interval));
    }
}

/// Squares of the single deviations, species by species.
double SumOfDeviations(const ProjectState& ps) {
    double sum = 0;
    for (int slot = 1; slot <= kSpecies; ++slot) {
        if (!ps.FitSpecies[static_cast<std::size_t>(slot)])
            continue;
        for (int i = 1; i <= ps.ExpPointCount; ++i) {
            const ExpPoint& row = ps.ExpData.at(static_cast<std::size_t>(i));
            SpeciesArray c{};
            bool err = row.exclude != 0;
            if (!err)
                FuModellWert(ps, ps.ModelId, row.t, c, err);
            if (err)
                continue;
            const double deviation = c[static_cast<std::size_t>(slot)] - row.c(slot);
            sum += deviation * deviation;
        }
    }
    return Finite(sum);
}

} // namespace

void FuModellWert(const ProjectState& ps, int model, double t, SpeciesArray& c, bool& err) {
    err = false;
    SpeciesArray value = c;
    try {
        Finite(t);
        if (IsEnzymeModel(model) && ps.MMDiagram) {
            value[1] = EnzymeCurve(ps, t);
        } else if (HasClosedForm(model)) {
            const ClosedForm form(model, ps.k, ps.c0, err);
            if (!err)
                form.At(t, value, err);
        } else {
            SplineValues(ps, t, value);
        }
    } catch (const ArithmeticError&) {
        err = true;
    }
    if (!err)
        c = value;
}

double FuSumSquares(const ProjectState& ps) {
    if (ps.FitMode < kFirstTemperatureMode)
        return SumOfDeviations(ps);
    const auto problem = MakeKineticProblem(ps, ps.ExpPointCount);
    std::vector<double> residuals(static_cast<std::size_t>(problem->Count()));
    problem->CalcResiduals(ps.FitParam, residuals.data());
    double sum = 0;
    for (const double res : residuals)
        sum += res * res;
    return Finite(sum);
}

float RootMeanSquare(const ProjectState& ps) {
    return ps.ExpPointCount > 1 ? ToSingle(std::sqrt(FuSumSquares(ps) / ps.ExpPointCount)) : 0;
}

std::string RootMeanSquareText(float rms) {
    return rms < kSmallRms ? FormatNumber(static_cast<double>(std::sqrt(rms)), "0.0000 E+##")
                           : FormatNumber(static_cast<double>(rms), "0.0000");
}

} // namespace zorvant
