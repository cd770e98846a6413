#include "engine/rate_laws.h"
#include "engine/side_by_side.h"
#include "tests/engine/selected_state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace zorvant;

namespace {

constexpr int kNumericModels[] = {7, 9, 10, 13, 14, 15, 18, 20};

} // namespace

TEST(RateLaws, TakeTheirValuesFromTheElementarySteps) {
    ProjectState ps;
    const auto rates = [&](int model, const SpeciesArray& c) {
        SpeciesArray r;
        r.fill(7);
        FuReactionRates(ps, model, r, {0, 1, 1, 1}, c);
        return r;
    };
    EXPECT_EQ(rates(3, {0, 1, 0, 0, 0, 0}), (SpeciesArray{7, -2, 0, 0, 1, 0}));
    EXPECT_EQ(rates(12, {0, 1, 1, 0, 1, 0}), (SpeciesArray{7, 0, 0, 0, 0, 0}));
    EXPECT_EQ(rates(1, {}), (SpeciesArray{7, -1, 0, 0, 1, 0})); // also when A is used up
    EXPECT_EQ(rates(20, {}), (SpeciesArray{7, 0, 0, 0, 0, 0}));
    EXPECT_EQ(rates(20, {0, -1, 0, 0, 0, 0}), (SpeciesArray{7, 0, 0, 0, 0, 0}));
    for (const int none : {-1, 0, 21})
        EXPECT_EQ(rates(none, {0, 1, 1, 1, 1, 1}), (SpeciesArray{7, 0, 0, 0, 0, 0}));
}

TEST(RateLaws, RaiseAnyOrderToItsPower) {
    for (const double n : {0.5, 0.75, 1.0, 1.5, 2.0, 2.5, 3.0, 4.0, 7.0, 32.0, 33.0, 41.5, 0.01})
        for (const double c : {1e-7, 0.3, 1.0, 17.0})
            EXPECT_NEAR(OrderRate(0.15, c, n) / (0.15 * std::pow(c, n)), 1, 1e-14) << n << ' ' << c;
}

TEST(RateLaws, IntegrateInFourthOrder) {
    for (const int model : kNumericModels)
        WithNumericModel(model, {0, 0.6, 0.3, 0.2}, 1.5, [&]<class Law>(const Law& law) {
            const StateOf<Law> start = Packed<Law>({0, 1, 1.5, 0.1, 0.1, 0});
            const auto run = [&](int n) { return IntegrateRK4(law, start, n, 4.0 / n)[0]; };
            const double exact = run(4096);
            const double order = std::log2(std::abs(run(16) - exact) / std::abs(run(32) - exact));
            EXPECT_NEAR(order, 4, 0.25) << "model " << model;
        });
}

// Soft and stiff constants, alike and far apart, from starts above and below 0.
TEST(RateLaws, CoursesSideBySideHaveTheDigitsOfEach) {
    int kept = 0, givenUp = 0, handedOver = 0;
    for (const int model : kNumericModels)
        for (const double n : {0.5, 1.5, 2.7, 5.0})
            for (const double scale : {1.0, 60.0, 2e6})
                for (const double ratio : {1 + 1e-7, 3.0, 300.0})
                    for (const double c : {1.1, -1e-4}) {
                        const std::array<Pair, 4> k{
                            {{}, {scale, ratio * scale}, {0.4, 0.5}, {0.2, 0.2 * ratio}}};
                        WithNumericModel(
                            model, k, KindOfPower(n), Pair{n, n}, [&]<class Law>(const Law& law) {
                                StatesOf<Law> y;
                                y.fill(Pair{0.2, 0.2});
                                y[0] = Pair{c, c};
                                std::array one{LaneOf<Law>(y, 0), LaneOf<Law>(y, 1)};
                                int m = 1, ms[2] = {1, 1};
                                bool both = true;
                                for (int step = 0; step < 10; ++step) {
                                    if (!IntegrateSideBySide(law, y, 0.2, m, both)) {
                                        EXPECT_EQ(LaneOf<Law>(y, 0), one[0]);
                                        ++handedOver;
                                        return;
                                    }
                                    for (const int lane : {0, 1}) {
                                        if (lane == 1 && !both)
                                            break;
                                        const auto i = static_cast<std::size_t>(lane);
                                        WithNumericModel(
                                            model, {0, k[1][lane], k[2][lane], k[3][lane]}, n,
                                            [&]<class Alone>(const Alone& alone) {
                                                if constexpr (kSizeOf<Alone> == kSizeOf<Law>)
                                                    IntegrateInterval(alone, one[i], 0.2, ms[i]);
                                            });
                                        EXPECT_EQ(LaneOf<Law>(y, lane), one[i]);
                                        EXPECT_EQ(m, ms[i]);
                                        ms[i] = std::max(ms[i] / 4, 1);
                                    }
                                    m = std::max(m / 4, 1);
                                }
                                ++(both ? kept : givenUp);
                            });
                    }
    EXPECT_GT(kept, 100);
    EXPECT_GT(givenUp, 50);
    EXPECT_GT(handedOver, 20);
}

// At k1 = 9 and n = 1.5 few sub-steps run below 0 or away; what is not finite agrees with nothing.
TEST(RateLaws, StepDoublingGoesOnUntilTheRunsAreSound) {
    std::array<double, 2> a{1, 0};
    int count = 1;
    IntegrateInterval(OrderN<PowerKind::OneAndHalf>{9, 1.5}, a, 0.5, count);
    EXPECT_NEAR(a[0], std::pow(1 + 9 * 0.5 * 0.5, -2), 1e-4);
    EXPECT_GT(count, 2);
    const Consecutive<> stiff{1, 4e4, 0};
    for (int m = 1; m <= 32000; m = m * 3 + 1) { // wherever the doubling begins
        std::array<double, 4> y{1, 1, 0, 0};
        int subSteps = m;
        IntegrateInterval(stiff, y, 0.5, subSteps);
        EXPECT_NEAR(y[0] + y[2] + y[3], 1, 1e-12);
        EXPECT_NEAR(y[0], 1 / 1.5, 1e-9);
        EXPECT_LE(subSteps, 32000);
    }
    const Consecutive<> tooStiff{1, 1e9, 0};
    std::array<double, 4> y{1, 1, 0, 0};
    int m = 1;
    EXPECT_THROW(IntegrateInterval(tooStiff, y, 0.5, m), ArithmeticError);
    y = {1, std::numeric_limits<double>::quiet_NaN(), 0, 0};
    EXPECT_THROW(IntegrateInterval(stiff, y, 0.5, m = 1), ArithmeticError);
}

TEST(RateLaws, AComponentBelowZeroIsTheLastOneTaken) {
    // C decays within the interval; A has overshot and keeps the others where they were
    std::array<double, 3> y{-1e-9, 0.25, 0.5};
    int m = 1;
    IntegrateInterval(FirstOrderDownstream{1, 1, 0}, y, 0.5, m);
    EXPECT_LT(y[0], 0);
    EXPECT_EQ(y[1], 0.25);
    EXPECT_EQ(y[2], 0.5);
}
