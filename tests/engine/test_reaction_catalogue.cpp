#include "engine/rate_laws.h"
#include "engine/reaction_catalogue.h"
#include "tests/engine/selected_state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

using namespace zorvant;

namespace {

constexpr SpeciesArray kMixture{0, 0.7, 0.45, 0.3, 0.2, 0.15};
constexpr ConstantArray kConstants{0, 0.31, 0.17, 0.09};

SpeciesArray Rates(int model, const ConstantArray& k, const SpeciesArray& c) {
    ProjectState ps;
    SpeciesArray r{};
    FuReactionRates(ps, model, r, k, c);
    return r;
}

/// What is left of a vector when its parts along the others are taken away.
double DistanceFromSpan(SpeciesArray vector, std::vector<SpeciesArray> others) {
    const auto dot = [](const SpeciesArray& a, const SpeciesArray& b) {
        double sum = 0;
        for (std::size_t s = 1; s < a.size(); ++s)
            sum += a[s] * b[s];
        return sum;
    };
    std::vector<SpeciesArray> basis;
    others.push_back(vector);
    for (std::size_t row = 0; row < others.size(); ++row) {
        SpeciesArray rest = others[row];
        for (const SpeciesArray& b : basis) {
            const double along = dot(rest, b);
            for (std::size_t s = 1; s < rest.size(); ++s)
                rest[s] -= along * b[s];
        }
        const double length = std::sqrt(dot(rest, rest));
        if (row + 1 == others.size())
            return length;
        if (length < 1e-12)
            continue; // a reverse reaction
        for (double& value : rest)
            value /= length;
        basis.push_back(rest);
    }
    return 0;
}

} // namespace

TEST(ReactionCatalogue, RatesAreMadeOfTheReactionsOfTheMatrix) {
    for (int model = 1; model < kModels; ++model) { // the order n of model 20 is no coefficient
        const auto ps = Selected(model);
        std::vector<SpeciesArray> reactions;
        for (std::size_t reaction = 1; reaction <= 3; ++reaction) {
            SpeciesArray row{};
            for (std::size_t s = 1; s < row.size(); ++s)
                row[s] = static_cast<double>(ps->Stoich[reaction][s]);
            reactions.push_back(row);
        }
        EXPECT_LT(DistanceFromSpan(Rates(model, kConstants, kMixture), reactions), 1e-15)
            << "model " << model;
        // and not of fewer
        if (!Model(model).singleReaction) {
            reactions.resize(1);
            EXPECT_GT(DistanceFromSpan(Rates(model, kConstants, kMixture), reactions), 1e-3)
                << "model " << model;
        }
    }
    auto ps = Selected(20);
    ps->OrderN = 2.25F;
    FillStoich(*ps);
    EXPECT_EQ(ps->Stoich[1][1], -2.25F);
    EXPECT_EQ(ps->Stoich[1][4], 1.0F);
}
