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

TEST(ReactionCatalogue, MasksNameTheSpeciesThatReactAndTheConstantsThatCount) {
    for (int model = 1; model <= kModels; ++model) {
        SCOPED_TRACE(model);
        const SpeciesArray r = Rates(model, kConstants, kMixture);
        for (int slot = 1; slot <= kSpecies; ++slot)
            EXPECT_EQ(InMask(Model(model).speciesMask, slot),
                      r[static_cast<std::size_t>(slot)] != 0);
        for (std::size_t i = 1; i <= 3; ++i) {
            ConstantArray other = kConstants;
            other[i] *= 2;
            EXPECT_EQ(InMask(Model(model).rateMask, static_cast<int>(i)),
                      Rates(model, other, kMixture) != r);
        }
    }
}

// Concentrations counted in another unit: the rates follow when each constant is converted by the
// unit that the catalogue gives it.
TEST(ReactionCatalogue, UnitsOfTheConstantsFitTheRateLaws) {
    for (int model = 1; model < kModels; ++model) {
        if (model == 5 || model == 16)
            continue; // shown in 1/TU though of second order
        constexpr double kScale = 8;
        SpeciesArray c = kMixture;
        for (double& value : c)
            value *= kScale;
        ConstantArray k = kConstants;
        for (std::size_t i = 1; i <= 3; ++i) {
            const ConstantUnit unit = Model(model).units[i];
            if (unit == ConstantUnit::PerTimeConc)
                k[i] /= kScale;
            if (unit == ConstantUnit::ConcPerTime)
                k[i] *= kScale;
        }
        const SpeciesArray r = Rates(model, kConstants, kMixture), scaled = Rates(model, k, c);
        for (std::size_t s = 1; s < r.size(); ++s)
            EXPECT_NEAR(scaled[s], kScale * r[s], 1e-14) << "model " << model << " slot " << s;
    }
}

TEST(ReactionCatalogue, OptionsReachEveryModelOnce) {
    std::set<int> reached;
    for (int option = 0; option < kModels; ++option) {
        const int model = ModelOfOption(option);
        EXPECT_EQ(Model(model).id, model);
        EXPECT_EQ(Model(model).option, option);
        reached.insert(model);
    }
    EXPECT_EQ(reached.size(), 20U);
    EXPECT_THROW((void)Model(0), std::out_of_range);
    EXPECT_THROW((void)Model(21), std::out_of_range);
}

TEST(ReactionCatalogue, NamesAModelWithItsOrder) {
    auto ps = Selected(20);
    EXPECT_EQ(ModelCaption(*ps), "kinetic model: A => P, n-th order  (n = 1.50)");
    ps->FitMode = 2;
    EXPECT_EQ(ModelCaption(*ps), "kinetic model: A => P, variable order of rct. (n = 1.50)");
    ps->ModelId = 10;
    EXPECT_EQ(ModelCaption(*ps), "kinetic model: E + S <=> ES => P + E");
    EXPECT_STREQ(SpeciesName(10, 3), "ES");
    EXPECT_STREQ(SpeciesName(9, 3), "C");
}

TEST(ReactionCatalogue, KindsOfDiagramsSetTheirMasks) {
    struct Case {
        int kind, fitMode;
        const char* species;
        const char* rates;
        bool ofRc, ofTk;
    };
    const Case cases[] = {
        {-16, 0, "00000", "000", false, false},
        {-15, 0, "0000",  "000", true,  false},
        {-12, 0, "0000",  "000", true,  false},
        {-11, 0, "10010", "000", false, false},
        {-9,  0, "11111", "000", false, false},
        {-8,  0, "00002", "000", false, false},
        {-5,  0, "00002", "000", false, false},
        {-4,  0, "00000", "000", false, true },
        {-2,  0, "00000", "000", false, true },
        {-1,  0, "11111", "000", false, false},
        {0,   0, "00000", "000", false, false},
        {21,  0, "00000", "000", false, false},
        {50,  0, "00000", "000", false, false},
        {71,  0, "00000", "000", false, false},
        {100, 0, "00000", "000", false, false},
        {500, 0, "00000", "000", false, false},
        {2,   6, "10000", "110", false, false},
        {52,  6, "10000", "110", false, false},
        {3,   6, "10010", "100", false, false},
        {3,   7, "10000", "110", false, false},
        {20,  2, "10010", "110", false, false},
        {20,  1, "10010", "100", false, false},
        {19,  0, "11011", "110", false, false},
        {70,  0, "10010", "100", false, false},
    };
    ProjectState ps;
    for (const Case& c : cases) {
        ps.FitMode = c.fitMode;
        FuMaskenSetzen(ps, c.kind);
        EXPECT_EQ(ps.SpeciesMask, c.species) << c.kind;
        EXPECT_EQ(ps.RateMask, c.rates) << c.kind;
        EXPECT_EQ(ps.DiagramOfRc, c.ofRc) << c.kind;
        EXPECT_EQ(ps.DiagramOfTk, c.ofTk) << c.kind;
    }
}
