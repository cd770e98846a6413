#include "data/exp_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

using namespace zorvant;

namespace {

ProjectState StateWith(const std::vector<ExpPoint>& rows) {
    ProjectState ps;
    ps.ExpData.resize(1);
    ps.ExpData.insert(ps.ExpData.end(), rows.begin(), rows.end());
    ps.ExpPointCount = static_cast<int>(rows.size());
    return ps;
}

TEST(DataStatistics, CountEachKindOfMeasurementByItsColumns) {
    const ExpPoint ct{.t = 0, .cA = 1.2, .cB = 2};
    const ExpPoint ctOff{.t = 5, .cQ = .1, .exclude = -1};
    const ExpPoint rcS{.t = .02, .cB = .5}; // counts as a c-t point too
    const ExpPoint kT{.T = 300, .k = .01};
    const ExpPoint none{.t = -3, .T = 310};
    const ExpPoint ctTAndLambda{.t = 10, .cA = .5, .T = 300, .lambda = .25F};
    ProjectState ps = StateWith({ct, ctOff, rcS, kT, none, ctTAndLambda});
    ps.LambdaInf = 1;
    FuCheckExpData(ps);
    EXPECT_EQ(ps.nCtPoints, 4);
    EXPECT_EQ(ps.nRcSPoints, 1);
    EXPECT_EQ(ps.nkTPoints, 1);
    EXPECT_EQ(ps.nExcluded, 1);
    EXPECT_EQ(ps.tMinData, -3);
    EXPECT_EQ(ps.tMaxData, 10);
    EXPECT_EQ(ps.cA0Data, 1.2F);
    EXPECT_EQ(ps.cB0Data, 2);
    EXPECT_EQ(ps.SumLambda, .25);
    EXPECT_TRUE(ps.HasLambdaData);
    EXPECT_FALSE(ps.HasCtTData);
    EXPECT_THAT(ps.ColumnHasData, testing::ElementsAre(false, true, true, false, false, true));
    EXPECT_THAT(ps.Temperatures, testing::ElementsAre(0, 300, 310));
    ps.ExpPointCount = 0;
    FuCheckExpData(ps); // starts anew
    EXPECT_EQ(ps.nCtPoints + ps.nkTPoints + ps.nRcSPoints + ps.nExcluded + ps.nTemperatures, 0);
    EXPECT_EQ(ps.LambdaZero + ps.SumLambda + static_cast<double>(ps.cA0Data), 0);
    EXPECT_FALSE(ps.HasLambdaData);
    EXPECT_THAT(ps.ColumnHasData, testing::Each(false));
}

TEST(DataStatistics, TakeTheLastRowAtTimeZero) {
    std::vector<ExpPoint> rows(5);
    rows[0].cA = 1, rows[0].lambda = 5;
    rows[1].cA = 2, rows[1].lambda = 6;
    rows[2].cA = 3, rows[2].lambda = 7, rows[2].exclude = -1;
    rows[3].cB = .125;
    rows[4].t = 4, rows[4].cA = 9, rows[4].lambda = 8;
    ProjectState ps = StateWith(rows);
    FuCheckExpData(ps);
    EXPECT_EQ(ps.cA0Data, 3);    // a deactivated row counts here
    EXPECT_EQ(ps.LambdaZero, 0); // the last active row at t = 0 has no lambda
    EXPECT_EQ(ps.cB0Data, .125F);
    EXPECT_EQ(ps.tMinData, 0); // never above 0
}

TEST(DataStatistics, WantThreeActiveRowsAndTimesForNonIsothermalData) {
    std::vector<ExpPoint> rows(4, {.t = 1, .cA = 1, .T = 300});
    rows[0].exclude = -1;
    ProjectState ps = StateWith(rows);
    FuCheckExpData(ps);
    EXPECT_TRUE(ps.HasCtTData);
    ps.ExpData[1] = {.exclude = -1}; // a deactivated row of another kind is taken off all the same
    FuCheckExpData(ps);
    EXPECT_FALSE(ps.HasCtTData);
    for (ExpPoint& p : rows)
        p.t = p.exclude = 0;
    ps = StateWith(rows);
    FuCheckExpData(ps);
    EXPECT_FALSE(ps.HasCtTData);
}

TEST(DataStatistics, SumTheTimesInSinglePrecision) {
    // 1E8 + 1 - 1E8 is 0 in single precision: each row is added to what a Single keeps.
    std::vector<ExpPoint> rows(3, {.cA = 1, .T = 300});
    rows[0].t = 1e8;
    rows[1].t = 1;
    rows[2].t = -1e8;
    ProjectState ps = StateWith(rows);
    FuCheckExpData(ps);
    EXPECT_FALSE(ps.HasCtTData);
    std::swap(ps.ExpData[2], ps.ExpData[3]);
    FuCheckExpData(ps);
    EXPECT_TRUE(ps.HasCtTData);
}

TEST(DataStatistics, TellTemperaturesApartByTheirNeighbours) {
    const struct {
        std::vector<double> all;
        std::vector<float> different;
    } cases[] = {
        {{300.02, 300, 300.009, 300.005}, {0, 300, 300.02F}},
        {{300, 300.009, 300.018, 300.027, 300.036}, {0, 300}}, // a chain of neighbours
        {{0, 0, 300, 300}, {0, 300}},
        {{-5, 0, 0}, {0}},
        {{310, 290, 300, 290}, {0, 290, 300, 310}},
    };
    for (const auto& c : cases) {
        std::vector<ExpPoint> rows;
        for (const double T : c.all)
            rows.push_back({.T = T});
        ProjectState ps = StateWith(rows);
        FuCheckExpData(ps);
        EXPECT_EQ(ps.Temperatures, c.different);
        EXPECT_EQ(ps.nTemperatures, static_cast<int>(c.different.size()) - 1);
    }
    std::vector<ExpPoint> rows(30);
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i].T = 400.0 - static_cast<double>(i);
    ProjectState ps = StateWith(rows);
    FuCheckExpData(ps);
    EXPECT_EQ(ps.nTemperatures, 24);
    EXPECT_EQ(ps.Temperatures.size(), 31U);
    EXPECT_EQ(ps.Temperatures[1], 371);
}

TEST(DataStatistics, StayFiniteForHugeValues) {
    const ExpPoint before{.t = -1e300, .cA = 1e300};
    const ExpPoint start{.t = 0, .cA = 1e300, .cB = 1e300, .T = 1e300};
    ProjectState ps = StateWith({before, start});
    FuCheckExpData(ps);
    FuInitialValuesFromData(ps);
    const float largest = std::numeric_limits<float>::max();
    EXPECT_EQ(ps.cA0Data, largest);
    EXPECT_EQ(ps.tMinData, -largest);
    EXPECT_EQ(ps.Temperatures.at(1), largest);
    EXPECT_EQ(ps.c0Data[1], largest);
}

TEST(InitialConcentrations, AreThoseOfTheFirstRowAtTheStart) {
    const ExpPoint late{.t = 1e-8, .cA = 9};
    const ExpPoint first{.t = 9e-9, .cA = .7, .cP = .1};
    const ExpPoint second{.t = 0, .cA = 5, .cQ = 5};
    ProjectState ps = StateWith({late, first, second});
    FuInitialValuesFromData(ps);
    EXPECT_THAT(ps.c0Data, testing::ElementsAre(0, .7F, 0, 0, .1F, 0));
    ps.ExpPointCount = 1;
    FuInitialValuesFromData(ps);
    EXPECT_THAT(ps.c0Data, testing::Each(0));
}

} // namespace
