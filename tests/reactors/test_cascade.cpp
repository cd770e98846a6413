#include "engine/project_state.h"
#include "reactors/cascade.h"
#include "reactors/cstr.h"
#include "tests/reactors/support.h"

#include <cmath>
#include <limits>

namespace zorvant {
namespace {

SeriesResult RunSeries(ProjectState& ps, TankSeries& series, int N, double t) {
    SizeSeries(series, N);
    ps.tVerweil = t;
    double V = 0.1;
    return RunCascade(ps, series, 3, V);
}

TEST(Series, OfOneTankIsTheSingleTank) {
    for (const int model : AllModels())
        for (const double t : {0.2, 6.0, 90.0}) {
            ProjectState ps = StateOfModel(model);
            TankSeries series;
            const SeriesResult result = RunSeries(ps, series, 1, t);
            double V = 0.1, time = t;
            bool bBTooLow = false, bNoSolution = false;
            std::vector<MessageBox> messages;
            double U = 0;
            CalcRuehrkessel(ps, model, 3, ps.c0, U, V, ps.VPunkt, time, ps.cEnd, ps.Ksi, bBTooLow,
                            bNoSolution, messages);
            EXPECT_EQ(series.cKask[1], ps.cEnd) << model;
            EXPECT_EQ(result.U, (ps.c0[1] - ps.cEnd[1]) / ps.c0[1]) << model;
            EXPECT_EQ(result.bNoSolution, bNoSolution);
            EXPECT_FALSE(bNoSolution);
        }
}

TEST(Series, ApproachesTheTubeAsTanksBecomeMany) {
    for (const int model : AllModels()) {
        ProjectState ps = StateOfModel(model);
        if (model == 1)
            ps.k[1] = 0.05;
        const double t = 12;
        const SpeciesArray tube = IntegrateRates(ps, TankLaw(model), t);
        const auto distance = [&](int N) {
            TankSeries series;
            EXPECT_FALSE(RunSeries(ps, series, N, t).bNoSolution) << model;
            ExpectConserved(TankLaw(model), ps.c0, series.cKask.at(static_cast<std::size_t>(N)),
                            1e-12, "series");
            double largest = 0;
            for (int slot = 1; slot <= kSpecies; ++slot) {
                const auto s = static_cast<std::size_t>(slot);
                if (InMask(ps.SpeciesMask, slot))
                    largest = std::fmax(
                        largest, std::abs(series.cKask[static_cast<std::size_t>(N)][s] - tube[s]));
            }
            return largest;
        };
        if (model == 1) { // of order 0 the mixing changes nothing
            EXPECT_LT(distance(7), 1e-12);
            continue;
        }
        const double few = distance(40), more = distance(80), many = distance(160);
        EXPECT_LT(many, 0.01) << model;
        // the error falls as 1/N
        EXPECT_NEAR(few / more, 2, 0.15) << model;
        EXPECT_NEAR(more / many, 2, 0.1) << model;
    }
}

TEST(Series, FeedsEachTankFromTheOneBefore) {
    for (const int model : AllModels()) {
        ProjectState ps = StateOfModel(model);
        if (model == 1)
            ps.k[1] = 0.02;
        TankSeries series;
        RunSeries(ps, series, 5, 10);
        double before = 0;
        for (std::size_t j = 1; j <= 5; ++j) {
            EXPECT_EQ(series.cZulauf[j], j == 1 ? ps.c0 : series.cKask[j - 1]);
            SpeciesArray r{};
            FuReactionRates(ps, TankLaw(model), r, ps.k, series.cKask[j]);
            EXPECT_NEAR(series.cZulauf[j][1] - series.cKask[j][1] + 2 * r[1], 0, 1e-7) << model;
            EXPECT_NEAR(series.UKask[j], 1 - series.cKask[j][1] / ps.c0[1], 1e-14);
            EXPECT_GT(series.UKask[j], before) << model;
            before = series.UKask[j];
        }
        // what the state keeps is of the last tank
        EXPECT_NEAR(ps.UA, 1 - series.cKask[5][1] / series.cKask[4][1], 1e-12) << model;
    }
}

TEST(Series, CarriesTheProductOnWhenAIsUsedUp) {
    ProjectState ps = StateOfModel(1);
    TankSeries series;
    EXPECT_EQ(RunSeries(ps, series, 4, 60).U, 1); // k1 t/N = 2.25, above c(A,0)
    for (std::size_t j = 1; j <= 4; ++j) {
        EXPECT_EQ(series.UKask[j], 1);
        EXPECT_EQ(series.cKask[j][1], 0);
        EXPECT_NEAR(series.cKask[j][4], ps.c0[1] + ps.c0[4], 1e-15);
    }
    EXPECT_EQ(ps.UA, 0);
}

TEST(SeriesDiagrams, ShowTheStaircaseOfTheTanks) {
    for (int N = 2; N <= kMostTanks; ++N) {
        ProjectState ps = StateOfModel(6);
        TankSeries series;
        RunSeries(ps, series, N, 20);
        ASSERT_TRUE(CascadeStaircase(ps, series));
        EXPECT_EQ(ps.NPoints, 280);
        EXPECT_EQ(ps.cSimA[0], ps.c0[1]);
        for (int j = 1; j <= N; ++j) { // in the middle of a step
            const auto point = static_cast<std::size_t>(280 * (2 * j - 1) / (2 * N));
            EXPECT_EQ(ps.cSimA[point], series.cKask[static_cast<std::size_t>(j)][1]) << N;
            EXPECT_NEAR(ps.tSim[point], j - 0.5, 0.02);
        }
        EXPECT_NEAR(ps.tSim[280], N, 0.02);
        EXPECT_EQ(ps.Memory.RngT, (Range{0, static_cast<float>(N)}));
        EXPECT_EQ(ps.Memory.RngC.lower, -0.02F);
        EXPECT_GE(ps.Memory.RngC.upper, 1.2F);
    }
}

} // namespace
} // namespace zorvant
