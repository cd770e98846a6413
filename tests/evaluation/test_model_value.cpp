#include "evaluation/model_value.h"

#include "engine/akima_spline.h"
#include "evaluation/tangent.h"
#include "tests/evaluation/fit_states.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace zorvant;
using namespace zorvant::fit_states;

TEST(ModelValue, LiesOnTheCourseOfEveryModel) {
    for (int model = 1; model <= kModels; ++model) {
        const auto ps = Selected(model);
        bool err = false;
        calc_diagram_function(*ps, model, ps->tMax, err);
        ASSERT_FALSE(err);
        for (std::size_t i = 0; i <= 200; i += 25) {
            SpeciesArray c{};
            FuModellWert(*ps, model, ps->tSim[i], c, err);
            EXPECT_FALSE(err);
            for (int slot = 1; slot <= kSpecies; ++slot) {
                if (InMask(ps->SpeciesMask, slot)) {
                    EXPECT_EQ(c[static_cast<std::size_t>(slot)], cSim(*ps, slot)[i])
                        << "model " << model << " slot " << slot << " t " << ps->tSim[i];
                }
            }
        }
    }
}

TEST(ModelValue, MarksWhatHasNoValueAndLeavesTheArrayAlone) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInf = std::numeric_limits<double>::infinity();
    for (int model = 1; model <= kModels; ++model) {
        for (const double t : {kNaN, kInf, -kInf}) {
            const auto ps = Selected(model);
            SpeciesArray c{1, 2, 3, 4, 5, 6};
            bool err = false;
            FuModellWert(*ps, model, t, c, err);
            EXPECT_TRUE(err) << model << ' ' << t;
            EXPECT_EQ(c, (SpeciesArray{1, 2, 3, 4, 5, 6}));
        }
    }
    const auto ps = Selected(9); // no course yet
    SpeciesArray c{};
    bool err = false;
    FuModellWert(*ps, 9, 1, c, err);
    EXPECT_TRUE(err);
}

TEST(SumOfSquares, SquaresEveryDeviationByItself) {
    const auto ps = Selected(2);
    ps->k[1] = std::log(2) / 10;
    ps->c0 = {0, 1, 0, 0, 0, 0};
    Measure(*ps, 1, {0, 10, 20}, {1, 0.5, 0.25});
    Tick(*ps, true); // A is met exactly; P deviates by 0, 0.5, 0.75
    EXPECT_NEAR(FuSumSquares(*ps), 0.25 + 0.5625, 1E-15);
    EXPECT_FLOAT_EQ(RootMeanSquare(*ps), std::sqrt(0.8125F / 3));
    ps->ExpData[3].exclude = -1;
    EXPECT_NEAR(FuSumSquares(*ps), 0.25, 1E-15);
    EXPECT_EQ(RootMeanSquareText(0.0225F), "1.5000 E-1");
    EXPECT_EQ(RootMeanSquareText(0.25F), "0.2500");
    ps->ExpPointCount = 1;
    EXPECT_EQ(RootMeanSquare(*ps), 0);
}

namespace {

/// The spline through c(t) = 2 exp(-t/4) as the diagram lays it.
std::unique_ptr<ProjectState> Decay() {
    auto ps = Selected(2);
    std::vector<double> t, c;
    for (int i = 1; i <= 60; ++i) {
        t.push_back(0.25 * i);
        c.push_back(2 * std::exp(-t.back() / 4));
    }
    Measure(*ps, 1, t, c);
    ps->SingleSpecies = 1;
    ReserveAkima(*ps, ps->ExpPointCount);
    for (std::size_t i = 1; i <= t.size(); ++i) {
        ps->SplineX[i] = t[i - 1];
        ps->SplineY[i][1] = c[i - 1];
    }
    AkimaKoeffizienten(*ps, 1, ps->ExpPointCount, 0);
    FuExtentsTangent(*ps, 1);
    ps->Frame.xMax = ps->Memory.RngT.upper;
    return ps;
}

} // namespace

TEST(Tangent, ReadsValueAndRateOffTheSpline) {
    const auto ps = Decay();
    for (const double t : {0.5, 3.1, 7.77, 14.9}) {
        const TangentResult result = CalcTangent(*ps, t);
        EXPECT_NEAR(result.c, 2 * std::exp(-t / 4), 1E-4);
        EXPECT_NEAR(result.r, -0.5 * std::exp(-t / 4), 2E-3);
    }
    // Left of the first and right of the last point: straight on, with the slope of the end.
    const TangentResult first = CalcTangent(*ps, 0.25), left = CalcTangent(*ps, 0);
    EXPECT_EQ(left.r, first.r);
    EXPECT_NEAR(left.c, first.c - 0.25 * first.r, 1E-14);
    const TangentResult last = CalcTangent(*ps, 15), right = CalcTangent(*ps, 15.5);
    EXPECT_EQ(right.r, last.r);
    EXPECT_FALSE(right.outside);
}

TEST(Tangent, RefusesTimesOffTheAxisAndTablesWithoutASpline) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    auto ps = Decay();
    for (const double t : {-1E-9, 15.76, kNaN, 1E300})
        EXPECT_TRUE(CalcTangent(*ps, t).outside) << t;
    EXPECT_FALSE(CalcTangent(*ps, ps->Frame.xMax).outside);
    ps->ExpData.resize(70);
    ps->ExpPointCount = 69; // more rows than knots
    EXPECT_TRUE(CalcTangent(*ps, 3).failed);
    ps->ExpPointCount = 0;
    EXPECT_TRUE(CalcTangent(*ps, 3).failed);
    ps = Decay();
    ps->SplineB[10][1] = kNaN;
    EXPECT_TRUE(CalcTangent(*ps, 2.6).failed);
}
