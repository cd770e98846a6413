// States for the tests of the reactors, and an integrator of their own that knows nothing but the
// rate laws.
#pragma once

#include "engine/project_state.h"
#include "engine/rate_laws.h"
#include "engine/reaction_catalogue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace zorvant {

/// A model as its selection leaves it, with constants and concentrations that no two species share.
inline ProjectState StateOfModel(int model) {
    ProjectState ps;
    ps.ModelId = model;
    ps.DiagramKind = model;
    const ReactionModel& row = Model(model);
    ps.SpeciesMask = row.speciesMask;
    ps.RateMask = row.rateMask;
    ps.SingleReaction = row.singleReaction;
    ps.ReversibleA = row.reversibleA;
    ps.EquilibriumModel = row.equilibrium;
    ps.NumericModel = row.numeric;
    FillStoich(ps);
    ps.k = {0, 0.15, 0.06, 0.04};
    const SpeciesArray feed{0, 1.2, 1.5, 0.1, 0.05, 0.02};
    for (int slot = 1; slot <= kSpecies; ++slot)
        if (InMask(ps.SpeciesMask, slot))
            ps.c0[static_cast<std::size_t>(slot)] = feed[static_cast<std::size_t>(slot)];
    return ps;
}

inline std::vector<int> AllModels() {
    std::vector<int> models;
    for (int model = 1; model <= kModels; ++model)
        models.push_back(model);
    return models;
}

/// The model by whose rate law the stirred tanks are balanced: in the enzyme model E is not given
/// back by ES => P + E, as in model 18.
inline int TankLaw(int model) {
    return model == 10 ? 18 : model;
}

/// The state after t by the rate law alone, in many small steps.
inline SpeciesArray IntegrateRates(const ProjectState& ps, int model, double t, int steps = 20000) {
    SpeciesArray c = ps.c0;
    const double h = t / steps;
    const auto shifted = [&](const SpeciesArray& r, double part) {
        SpeciesArray at = c;
        for (std::size_t s = 1; s <= kSpecies; ++s)
            at[s] += part * h * r[s];
        return at;
    };
    SpeciesArray r1{}, r2{}, r3{}, r4{};
    for (int step = 0; step < steps; ++step) {
        FuReactionRates(ps, model, r1, ps.k, c);
        FuReactionRates(ps, model, r2, ps.k, shifted(r1, 0.5));
        FuReactionRates(ps, model, r3, ps.k, shifted(r2, 0.5));
        FuReactionRates(ps, model, r4, ps.k, shifted(r3, 1));
        for (std::size_t s = 1; s <= kSpecies; ++s)
            c[s] += h * (r1[s] + 2 * r2[s] + 2 * r3[s] + r4[s]) / 6;
    }
    return c;
}

/// What a model keeps: sums of concentrations, weighted by the building blocks of each species.
struct Conserved {
    int model;
    std::array<double, 6> weights; ///< by slot
};
inline const std::vector<Conserved>& ConservedSums() {
    static const std::vector<Conserved> sums{
        {1, {0, 1, 0, 0, 1, 0}},  {2, {0, 1, 0, 0, 1, 0}},  {3, {0, 1, 0, 0, 2, 0}},
        {4, {0, 1, 0, 0, 1, 0}},  {4, {0, 0, 1, 0, 1, 0}},  {5, {0, 1, 0, 0, 1, 0}},
        {6, {0, 1, 0, 1, 1, 0}},  {7, {0, 1, 0, 1, 2, 0}},  {7, {0, 0, 1, 1, 1, 0}},
        {8, {0, 1, 0, 0, 1, 0}},  {9, {0, 1, 0, 1, 1, 0}},  {9, {0, 0, 1, 1, 1, 0}},
        {10, {0, 0, 1, 1, 1, 0}}, {11, {0, 1, 0, 0, 1, 1}}, {12, {0, 2, 0, 0, 1, 0}},
        {12, {0, 0, 2, 0, 1, 0}}, {13, {0, 1, 0, 1, 1, 0}}, {13, {0, 0, 1, 1, 1, 0}},
        {14, {0, 1, 0, 1, 1, 0}}, {15, {0, 1, 0, 1, 1, 0}}, {16, {0, 1, 0, 0, 1, 0}},
        {16, {0, 1, 0, 0, 0, 1}}, {17, {0, 1, 0, 0, 1, 0}}, {17, {0, 0, 1, 0, 1, 0}},
        {18, {0, 1, 0, 1, 1, 0}}, {18, {0, 0, 1, 1, 1, 0}}, {19, {0, 1, 0, 0, 1, 0}},
        {19, {0, 0, 1, 0, 0, 1}}, {20, {0, 1, 0, 0, 1, 0}},
    };
    return sums;
}

inline double Weighted(const Conserved& sum, const SpeciesArray& c) {
    double total = 0;
    for (std::size_t s = 1; s <= kSpecies; ++s)
        total += sum.weights[s] * c[s];
    return total;
}

/// Holds the state against every sum that the model keeps.
inline void ExpectConserved(int model, const SpeciesArray& c0, const SpeciesArray& c,
                            double tolerance, const std::string& where) {
    for (const Conserved& sum : ConservedSums())
        if (sum.model == model) {
            EXPECT_NEAR(Weighted(sum, c), Weighted(sum, c0), tolerance)
                << where << ", model " << model;
        }
}

} // namespace zorvant
