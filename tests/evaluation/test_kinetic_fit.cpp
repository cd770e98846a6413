#include "evaluation/kinetic_fit.h"

#include "engine/arithmetic.h"
#include "evaluation/temperature.h"
#include "tests/evaluation/certified_courses.h"
#include "tests/evaluation/fit_states.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <string>

using namespace zorvant;
using namespace zorvant::fit_states;

namespace {

FitReport Fit(ProjectState& ps) {
    return MarquardtNashFitting(ps, ParameterCount(ps), ps.ExpPointCount, ps.FitParam, ps.FitStdDev,
                                ps.LimitReached);
}

} // namespace

TEST(KineticFit, FindsPublishedRateConstants) {
    struct Case {
        const char* source;
        int model;
        std::vector<double> t, c; ///< s, mol/L
        double k;                 ///< published, as the model defines it
        double within;            ///< share: published from a straight line, not by least squares
    };
    const Case cases[] = {
        {"S. S. Zumdahl, Chemistry: 2 N2O5 => 4 NO2 + O2 at 318 K",
         2,
         {0, 50, 100, 200, 300, 400},
         {0.1, 0.0707, 0.05, 0.025, 0.0125, 0.00625},
         6.93E-3,
         0.001},
        {"T. L. Brown, H. E. LeMay, Chemistry: 2 NO2 => 2 NO + O2 at 573 K",
         3,
         {0, 50, 100, 200, 300},
         {0.01, 0.00787, 0.00649, 0.00481, 0.0038},
         0.543 / 2,
         0.005},
        {"S. S. Zumdahl, Chemistry: dimerisation of butadiene",
         3,
         {0, 1000, 1800, 2800, 3600, 4400, 5200, 6200},
         {0.01, 0.00625, 0.00476, 0.0037, 0.00313, 0.0027, 0.00241, 0.00208},
         0.0614 / 2,
         0.02},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.source);
        const auto ps = Selected(c.model);
        Measure(*ps, 1, c.t, c.c);
        ps->c0[1] = c.c[0];
        ps->FitParam = {0, 0.01, 0, 0};
        EXPECT_EQ(Fit(*ps).error, "");
        EXPECT_FALSE(ps->LimitReached);
        EXPECT_NEAR(ps->FitParam[1] / c.k, 1, c.within) << ps->FitParam[1];
        EXPECT_LT(ps->FitStdDev[1] / c.k, 0.02);
    }
}

TEST(KineticFit, FindsCertifiedParametersThroughTheCatalogue) {
    for (const certified::Course& course : certified::kCourses) {
        SCOPED_TRACE(std::string(course.set) + " through model " + std::to_string(course.model));
        EXPECT_GE(certified::FitThroughCatalogue(course), 6.9);
    }
}

TEST(KineticFit, FindsOrderAndConstantTogether) {
    // c = (1 + (n - 1) k t)^(-1/(n - 1)) from c(A,0) = 1.
    constexpr double n = 1.7000000123, k = 0.23;
    std::vector<double> t, c;
    for (int i = 1; i <= 15; ++i) {
        t.push_back(2.0 * i);
        c.push_back(std::pow(1 + (n - 1) * k * t.back(), -1 / (n - 1)));
    }
    const auto ps = Selected(20, kFitOrder);
    Measure(*ps, 1, t, c);
    ps->tMax = 31;
    ps->c0 = {0, 1, 0, 0, 0, 0};
    ps->k[1] = 0.15;
    StartFitParameters(*ps);
    EXPECT_EQ(Fit(*ps).error, "");
    EXPECT_NEAR(ps->FitParam[1], k, 1E-6);
    EXPECT_NEAR(ps->FitParam[2], n, 1E-5);
    EXPECT_NE(ps->FitParam[2], static_cast<double>(static_cast<float>(ps->FitParam[2])))
        << "the order went through single precision";
    EXPECT_NEAR(ps->OrderN, n, 1E-5);
}

TEST(KineticFit, FindsTheParametersOfTheTemperatureDependence) {
    for (const int mode : {6, 7}) {
        for (const int function : {kArrhenius, kEyring}) {
            SCOPED_TRACE(std::to_string(mode) + " " + std::to_string(function));
            const auto ps = Selected(mode == 6 ? 2 : 3, mode);
            ps->kTFunction = function;
            const double factor = function == kArrhenius ? 2E7 : 6E4, energy = 3E4;
            MeasureAlongTemperature(*ps, factor, energy);
            ps->FitParam = {0, 1, 1, 0};
            if (function == kArrhenius) // out of range: the workbench starts from 100 and 100
                ps->FitParam = {0, 0, 5E7, 0};
            const AutoFit fit = RunAutoFit(*ps);
            EXPECT_TRUE(fit.ran);
            EXPECT_EQ(fit.report.error, "");
            EXPECT_NEAR(ps->FitParam[1] / factor, 1, 1E-5);
            EXPECT_NEAR(ps->FitParam[2] / energy, 1, 1E-6);
            EXPECT_EQ(function == kArrhenius ? ps->ArrEA : ps->EyrH, ps->FitParam[2]);
        }
    }
}

TEST(KineticFit, LeavesOutDeactivatedRowsAndUntickedSpecies) {
    const auto ps = Selected(2);
    Measure(*ps, 10);
    Tick(*ps, false);
    ps->FitParam = {0, 0.2, 0, 0};
    Fit(*ps);
    const double k = ps->FitParam[1];
    ps->ExpPointCount = 11;
    ps->ExpData.push_back({});
    ps->ExpData[11].t = 5;
    ps->ExpData[11].cA = 100;
    ps->ExpData[11].exclude = -1;
    ps->ExpData[3].cP = 100; // P does not count
    ps->FitParam = {0, 0.2, 0, 0};
    Fit(*ps);
    EXPECT_EQ(ps->FitParam[1], k);
}

TEST(KineticFit, EndsBadInputWithAFlagOrAnError) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInf = std::numeric_limits<double>::infinity();
    using Spoil = std::function<void(ProjectState&)>;
    const std::pair<const char*, Spoil> spoils[] = {
        {"no rows", [](ProjectState& ps) { ps.ExpPointCount = 0; }},
        {"all rows excluded",
         [](ProjectState& ps) {
             for (ExpPoint& row : ps.ExpData)
                 row.exclude = -1;
         }},
        {"nothing ticked", [](ProjectState& ps) { ps.FitSpecies = {}; }},
        {"t NaN", [](ProjectState& ps) { ps.ExpData[2].t = kNaN; }},
        {"t infinite", [](ProjectState& ps) { ps.ExpData[2].t = kInf; }},
        {"t enormous", [](ProjectState& ps) { ps.ExpData[2].t = 1E300; }},
        {"c NaN", [](ProjectState& ps) { ps.ExpData[2].cA = kNaN; }},
        {"T NaN", [](ProjectState& ps) { ps.ExpData[2].T = kNaN; }},
        {"start NaN",
         [](ProjectState& ps) {
             ps.FitParam = {0, kNaN, kNaN, kNaN};
         }},
        {"start negative",
         [](ProjectState& ps) {
             ps.FitParam = {0, -1, -1, -1};
         }},
        {"c0 NaN", [](ProjectState& ps) { ps.c0[1] = kNaN; }},
        {"c0 negative", [](ProjectState& ps) { ps.c0 = {0, -1, -2, -3, -4, -5}; }},
        {"axis of length 0", [](ProjectState& ps) { ps.tMax = 0; }},
        {"order NaN", [](ProjectState& ps) { ps.OrderN = std::nanf(""); }},
    };
    struct Task {
        int model, mode, function;
    };
    std::vector<Task> tasks{{20, 2, 1}, {2, 6, 1}, {2, 6, 2}, {3, 7, 1}, {3, 7, 2}};
    for (int model = 1; model <= kModels; ++model)
        tasks.push_back({model, 1, 1});
    for (const auto& [what, spoil] : spoils) {
        for (const Task& task : tasks) {
            SCOPED_TRACE(std::string(what) + ", model " + std::to_string(task.model) + " mode " +
                         std::to_string(task.mode));
            const auto ps = Selected(task.model, task.mode);
            ps->kTFunction = task.function;
            if (task.mode >= kFirstTemperatureMode) {
                MeasureAlongTemperature(*ps, task.function == kArrhenius ? 2E7 : 6E4, 3E4);
                ps->FitParam = {0, 1, 10, 0};
            } else {
                ps->tMax = 0.02; // short, so that the stiffest constants take no minutes
                Measure(*ps, 6);
                Tick(*ps, true);
                StartFitParameters(*ps);
            }
            spoil(*ps);
            const FitReport report = Fit(*ps);
            const int n = ParameterCount(*ps);
            for (std::size_t i = 1; i <= static_cast<std::size_t>(n); ++i) {
                EXPECT_TRUE(std::isfinite(ps->FitParam[i])) << ps->FitParam[i];
                EXPECT_TRUE(std::isfinite(ps->FitStdDev[i]));
            }
            EXPECT_EQ(report.message.has_value(), !report.error.empty());
            EXPECT_TRUE(std::isfinite(report.sumSquares));
            try {
                EXPECT_TRUE(std::isfinite(RootMeanSquare(*ps)));
            } catch (const ArithmeticError&) { // what overflows has no quality
            }
        }
    }
    const auto ps = Selected(2);
    EXPECT_THROW(MarquardtNashFitting(*ps, 1, 5, ps->FitParam, ps->FitStdDev, ps->LimitReached),
                 std::invalid_argument);
}

TEST(AutoFit, RefusesTooFewRowsAndTellsOfALimit) {
    const auto ps = Selected(6); // two parameters
    Measure(*ps, 2);
    Tick(*ps, true);
    StartFitParameters(*ps);
    AutoFit fit = RunAutoFit(*ps);
    EXPECT_FALSE(fit.ran);
    ASSERT_EQ(fit.messages.size(), 1U);
    EXPECT_TRUE(fit.messages[0].text.starts_with("The number of the measuring points"));
    Measure(*ps, 3);
    fit = RunAutoFit(*ps);
    EXPECT_TRUE(fit.ran);
    EXPECT_TRUE(fit.messages.empty());
    EXPECT_EQ(ps->k[2], ps->FitParam[2]);
    // c(A) does not depend on k2, and the noise of k1 is far above the rounding of the sum: no
    // message, but a deviation that says so.
    Tick(*ps, false);
    Measure(*ps, 6);
    ps->ExpData[2].cA = std::numeric_limits<double>::quiet_NaN();
    fit = RunAutoFit(*ps);
    ASSERT_EQ(fit.messages.size(), 1U);
    EXPECT_EQ(fit.messages[0].text, "an error occured:\r\nOverflow");
    EXPECT_EQ(fit.messages[0].title, "message from Sub MarquardtNashFitting");
    EXPECT_EQ(ps->FitStdDev[1], kNoStdDev);
}

TEST(FitParameters, GoWhereTheTaskKeepsThem) {
    const auto ps = Selected(20, kFitOrder);
    EXPECT_TRUE(SetFitParameter(*ps, 2, 1.25));
    EXPECT_EQ(ps->OrderN, 1.25F);
    EXPECT_TRUE(SetFitParameter(*ps, 1, 0));
    EXPECT_EQ(ps->k[1], 1E-8);
    SetFitParameter(*ps, 1, 2);
    MoveFitParameter(*ps, 1, -50, false);
    EXPECT_DOUBLE_EQ(ps->k[1], 1);
    MoveFitParameter(*ps, 1, 100, true);
    EXPECT_DOUBLE_EQ(ps->k[1], 1.1);
    ps->FitMode = 6;
    ps->kTFunction = kEyring;
    EXPECT_TRUE(SetFitParameter(*ps, 1, 50));
    EXPECT_EQ(ps->EyrB, 50);
    EXPECT_FALSE(SetFitParameter(*ps, 1, -50));
}
