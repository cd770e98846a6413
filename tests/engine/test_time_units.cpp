#include "engine/time_units.h"
#include "tests/engine/selected_state.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace zorvant;

TEST(TimeUnits, ConvertEveryTimeAndConstant) {
    auto ps = Selected(6);
    ps->k = {0, 0.15, 0.3, 0.6};
    ps->tMax = 100;
    ps->tVerweil = 30;
    ps->ExpData.resize(3);
    ps->ExpPointCount = 1;
    ps->ExpData[1].t = 120;
    ps->ExpData[2].t = 7; // behind the last row
    ConvertTimeUnit(*ps, 1, 0);
    EXPECT_EQ(ps->TimeUnitText, "min");
    EXPECT_EQ(ps->TimeUnitIdx, 1);
    EXPECT_DOUBLE_EQ(ps->k[1], 9);
    EXPECT_DOUBLE_EQ(ps->k[2], 18);
    EXPECT_DOUBLE_EQ(ps->k[3], 36);
    EXPECT_DOUBLE_EQ(ps->tMax, 100.0 / 60);
    EXPECT_DOUBLE_EQ(ps->tVerweil, 0.5);
    EXPECT_DOUBLE_EQ(ps->ExpData[1].t, 2);
    EXPECT_EQ(ps->ExpData[2].t, 7);
    for (const int unit : {4, 2, 3, 0})
        ConvertTimeUnit(*ps, unit, ps->TimeUnitIdx); // round and back
    EXPECT_NEAR(ps->k[1], 0.15, 1e-15);
    EXPECT_NEAR(ps->tMax, 100, 1e-12);
    EXPECT_NEAR(ps->ExpData[1].t, 120, 1e-12);
    const double before = ps->tMax;
    ConvertTimeUnit(*ps, 0, 0);
    EXPECT_EQ(ps->tMax, before);
}

TEST(TimeUnits, ConvertRatesAsRatesAndNoOrder) {
    auto ps = Selected(10); // r(P)-c(S) data: the time column holds mol/(L TU)
    ps->ExpData.resize(2);
    ps->ExpPointCount = 1;
    ps->ExpData[1].t = 0.5;
    ConvertTimeUnit(*ps, 1, 0);
    EXPECT_DOUBLE_EQ(ps->ExpData[1].t, 30);
    ps->RcSMode = false;
    ConvertTimeUnit(*ps, 0, 1);
    EXPECT_DOUBLE_EQ(ps->ExpData[1].t, 1800);

    auto order = Selected(20);
    order->FitMode = 2;
    order->k[2] = 1.5; // the order that the fit varies
    ConvertTimeUnit(*order, 2, 0);
    EXPECT_EQ(order->k[2], 1.5);
    EXPECT_DOUBLE_EQ(order->k[1], 0.15 * 3600);
}

TEST(TimeUnits, HaveExactFactors) {
    auto ps = Selected(2);
    EXPECT_EQ(ps->TimeFactor[3][4], 1.0 / 365);
    EXPECT_EQ(ps->TimeFactor[4][3], 365);
    EXPECT_EQ(ps->TimeFactor[0][4], 1.0 / 31536000);
    EXPECT_EQ(TimeUnitIndex("d"), 3);
    EXPECT_EQ(TimeUnitIndex("D"), 0);
    ConvertTimeUnit(*ps, 99, 0);
    EXPECT_EQ(ps->TimeUnitText, "a");
}

TEST(TimeUnits, DefaultConstantsFollowTheUnit) {
    struct Case {
        int model;
        ConstantArray k; ///< 0: left as it is
    };
    const Case cases[] = {
        {2, {0, 0.15, 0, 0}}, {10, {0, 1.5, 0.01, 0.005}}, {11, {0, 0.15, 0.05, 0}}};
    for (const Case& c : cases) {
        auto ps = Selected(c.model);
        ConvertTimeUnit(*ps, 2, 0);
        ps->k = {0, 7, 8, 9};
        SetDefaultK(*ps);
        for (std::size_t i = 1; i <= 3; ++i) {
            const double kept = 6 + static_cast<double>(i);
            EXPECT_DOUBLE_EQ(ps->k[i], c.k[i] == 0 ? kept : c.k[i] * 3600) << c.model << " k" << i;
        }
    }
    auto enzyme = std::make_unique<ProjectState>();
    InitProjectState(*enzyme);
    enzyme->ModelId = 10;
    SetDefaultK(*enzyme);
    EXPECT_EQ(enzyme->c0[1], 0.5);
    EXPECT_EQ(enzyme->c0[2], 5.0);
}

TEST(TimeUnits, SelectingAModelFillsOnlyWhatIsZero) {
    ProjectState ps;
    InitProjectState(ps);
    ps.ModelId = 18;
    ps.c0[2] = 0.25;
    ps.k = {0, 0.7, 0, 0.9};
    SelectionDefaultTimes(ps);
    SelectionDefaultConcentrations(ps);
    SelectionDefaultConstants(ps);
    EXPECT_EQ(ps.c0, (SpeciesArray{0, 1, 0.25, 0, 0, 0}));
    EXPECT_EQ(ps.k, (ConstantArray{0, 0.7, 0.1, 0.9}));
    EXPECT_EQ(ps.tMax, 100);
    EXPECT_EQ(ps.tVerweil, 60);

    ps.c0 = {0, 0, 0, 0, 0.1, 0}; // an equilibrium may start from its product
    ps.ModelId = 17;
    SelectionDefaultConcentrations(ps);
    EXPECT_EQ(ps.c0, (SpeciesArray{0, 0, 0, 0, 0.1, 0}));
    ps.c0 = {};
    SelectionDefaultConcentrations(ps);
    EXPECT_EQ(ps.c0, (SpeciesArray{0, 0.5, 0.5, 0, 0, 0}));
}

TEST(TimeUnits, AreShownBehindEveryConstant) {
    struct Case {
        int model, constant;
        const char* caption;
    };
    const Case cases[] = {{1, 1, "/(mol/(min*l))"},  {4, 1, "/(L/(min*mol))"}, {4, 2, "/(1/min)"},
                          {12, 2, "/(L/(min*mol))"}, {17, 2, "/(1/min)"},      {20, 1, ""}};
    auto ps = Selected(1);
    ps->TimeUnitText = "min ";
    for (const Case& c : cases) {
        ps->ModelId = c.model;
        EXPECT_EQ(ConstantUnitText(*ps, c.constant), c.caption) << c.model << " k" << c.constant;
    }
}
