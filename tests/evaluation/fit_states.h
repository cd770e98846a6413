// Project states for the tests of fits: a model with its defaults and a table of measured values.
#pragma once

#include "engine/project_state.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"
#include "engine/time_units.h"
#include "evaluation/kinetic_problem.h"
#include "evaluation/model_value.h"
#include "evaluation/temperature.h"

#include <cmath>
#include <memory>
#include <vector>

namespace zorvant::fit_states {

/// A model as its selection leaves it, while a fit runs.
inline std::unique_ptr<ProjectState> Selected(int model, int fitMode = kFitConstants) {
    auto ps = std::make_unique<ProjectState>();
    InitProjectState(*ps);
    ps->ModelId = model;
    ps->FitMode = fitMode;
    FuMaskenSetzen(*ps, model);
    SetDefaultK(*ps);
    SelectionDefaultConcentrations(*ps);
    SelectionDefaultConstants(*ps);
    ps->NumericModel = Model(model).numeric;
    ps->tMax = 40;
    return ps;
}

inline int ParameterCount(const ProjectState& ps) {
    int n = 0;
    for (const char digit : ps.RateMask)
        n += digit == '1';
    return n;
}

/// m rows from the model itself, each value off by up to 1 %, the same way in every run.
inline void Measure(ProjectState& ps, int m) {
    bool err = false;
    calc_diagram_function(ps, ps.ModelId, ps.tMax, err);
    ps.ExpPointCount = m;
    ps.ExpData.assign(static_cast<std::size_t>(m) + 1, {});
    unsigned seed = 12345;
    for (int i = 1; i <= m; ++i) {
        ExpPoint& row = ps.ExpData[static_cast<std::size_t>(i)];
        row.t = 0.95 * ps.tMax * i / m;
        SpeciesArray c{};
        FuModellWert(ps, ps.ModelId, row.t, c, err);
        for (int slot = 1; slot <= kSpecies; ++slot) {
            if (!InMask(ps.SpeciesMask, slot))
                continue;
            seed = seed * 1664525U + 1013904223U;
            row.c(slot) = c[static_cast<std::size_t>(slot)] * (0.99 + 0.02 * (seed >> 8) / 0x1p24);
        }
    }
}

/// Fills the table with pairs of t and the concentration of one slot, which alone counts.
inline void Measure(ProjectState& ps, int slot, const std::vector<double>& t,
                    const std::vector<double>& c) {
    ps.ExpPointCount = static_cast<int>(t.size());
    ps.ExpData.assign(t.size() + 1, {});
    for (std::size_t i = 0; i < t.size(); ++i) {
        ps.ExpData[i + 1].t = t[i];
        ps.ExpData[i + 1].c(slot) = c[i];
    }
    ps.FitSpecies = {};
    ps.FitSpecies[static_cast<std::size_t>(slot)] = true;
}

/// All species of the mask count, or the first alone.
inline void Tick(ProjectState& ps, bool all) {
    ps.FitSpecies = {};
    for (int slot = 1; slot <= kSpecies; ++slot) {
        if (InMask(ps.SpeciesMask, slot)) {
            ps.FitSpecies[static_cast<std::size_t>(slot)] = true;
            if (!all)
                return;
        }
    }
}

/// Rows of c(A) along a ramp of temperature, from k(T) = factor (T) exp(-energy/(R T)).
inline void MeasureAlongTemperature(ProjectState& ps, double factor, double energy) {
    ps.c0Data[1] = 0.5F;
    ps.ExpPointCount = 30;
    ps.ExpData.assign(31, {});
    for (int i = 1; i <= 30; ++i) {
        ExpPoint& row = ps.ExpData[static_cast<std::size_t>(i)];
        row.t = 0.003 * (1 + (i - 1) % 10);
        row.T = 290 + 20 * ((i - 1) / 10);
        const double k = RateConstantAt(ps.kTFunction, factor, energy, row.T);
        row.cA = ps.FitMode == 6 ? std::exp(-k * row.t) : 1 / (1 / 0.5 + 2 * k * row.t);
    }
}

} // namespace zorvant::fit_states
