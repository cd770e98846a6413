#include "engine/akima_spline.h"

#include "bench/reference/course_reference.h"
#include "engine/arithmetic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

using namespace zorvant;

namespace {

AkimaTables Table(const std::vector<double>& x, const std::vector<double>& y, int slot = 1) {
    AkimaTables tables;
    ReserveAkima(tables, static_cast<int>(x.size()));
    for (std::size_t i = 0; i < x.size(); ++i) {
        tables.SplineX[i + 1] = x[i];
        tables.SplineY[i + 1][static_cast<std::size_t>(slot)] = y[i];
    }
    return tables;
}

double Value(const AkimaTables& tables, double x, int n) {
    return AkimaWert(tables, AkimaMode::Value, 1, x, n);
}
double Slope(const AkimaTables& tables, double x, int n) {
    return AkimaWert(tables, AkimaMode::Slope, 1, x, n);
}

} // namespace

TEST(AkimaSpline, KeepsAStraightLineStraight) {
    AkimaTables tables = Table({0, 1, 3, 4.5, 7}, {2, 1.5, 0.5, -0.25, -1.5});
    AkimaKoeffizienten(tables, 1, 5, 0);
    for (const double x : {-3.0, 0.0, 0.7, 3.0, 6.99, 7.0, 40.0}) {
        EXPECT_NEAR(Value(tables, x, 5), 2 - 0.5 * x, 1e-14);
        EXPECT_NEAR(Slope(tables, x, 5), -0.5, 1e-14);
    }
}

// Akima's own example (J. ACM 17 (1970) 589): a flat run, then a steep rise.
TEST(AkimaSpline, StaysFlatWhereThePointsAre) {
    const std::vector<double> x{0, 2, 3, 5, 6, 8, 9, 11, 12, 14, 15};
    const std::vector<double> y{10, 10, 10, 10, 10, 10, 10.5, 15, 50, 60, 85};
    AkimaTables tables = Table(x, y);
    AkimaKoeffizienten(tables, 1, 11, 0);
    for (double at = 0; at <= 6; at += 0.25)
        EXPECT_EQ(Value(tables, at, 11), 10);
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_EQ(Value(tables, x[i], 11), y[i]);
    for (double at = 6; at < 11; at += 0.01) // no wiggle on the way up
        EXPECT_LE(Value(tables, at, 11), Value(tables, at + 0.01, 11) + 1e-9);
}

// A parabola is kept: the chord slopes change evenly, beyond the ends too.
TEST(AkimaSpline, KeepsAParabolaOnAnEvenGrid) {
    AkimaTables tables = Table({0, 1, 2, 3, 4, 5}, {0, 1, 4, 9, 16, 25});
    AkimaKoeffizienten(tables, 1, 6, 0);
    for (double x = 0; x < 5; x += 0.1) {
        EXPECT_NEAR(Value(tables, x, 6), x * x, 1e-12);
        EXPECT_NEAR(Slope(tables, x, 6), 2 * x, 1e-12);
    }
    EXPECT_NEAR(Slope(tables, 9, 6), 10, 1e-12); // beyond the end its slope, not its value
    EXPECT_NEAR(Value(tables, 9, 6), 25 + 4 * 10, 1e-12);
    EXPECT_NEAR(Slope(tables, -2, 6), 0, 1e-12);
}

TEST(AkimaSpline, GivesTheBitsOfThePlainFormForAnyTable) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> step(0.01, 1), height(-1, 1);
    for (const int n : {3, 4, 5, 40, 397, 1200}) {
        std::vector<double> x, y;
        double at = height(random);
        for (int i = 0; i < n; ++i) {
            x.push_back(at += step(random));
            y.push_back(i % 7 < 3 ? 0.5 : height(random));
        }
        AkimaTables tables = Table(x, y, 4), plain = tables;
        AkimaKoeffizienten(tables, 4, n, 0);
        reference::AkimaKoeffizienten(plain, 4, n, 0);
        int interval = 0;
        for (double where = x.front() - 1; where < x.back() + 1; where += 0.013) {
            interval = AkimaInterval(tables, where, n, interval);
            for (const AkimaMode mode : {AkimaMode::Value, AkimaMode::Slope}) {
                const double value = AkimaWert(tables, mode, 4, where, n);
                EXPECT_EQ(value, AkimaWertIn(tables, mode, 4, where, n, interval));
                const bool inside = where >= x.front() && where < x.back();
                if (inside || mode == AkimaMode::Value) {
                    ASSERT_EQ(value, reference::AkimaWert(plain, mode, 4, where, n)) << where;
                }
            }
        }
    }
}

TEST(AkimaSpline, SmoothingFollowsItsExponent) {
    // by hand: weights 1 - 1/3, 1 - 2/3, 0 at exponent 1 and spacing 1
    AkimaTables spike = Table({0, 1, 2, 3, 4, 5, 6, 7, 8}, {0, 0, 0, 0, 1, 0, 0, 0, 0});
    AkimaKoeffizienten(spike, 1, 9, 1);
    EXPECT_NEAR(spike.SplineY[5][1], 1.0 / 3, 1e-14);
    EXPECT_NEAR(spike.SplineY[4][1], 2.0 / 9, 1e-14);
    EXPECT_NEAR(spike.SplineY[3][1], 1.0 / 9, 1e-14);
    EXPECT_NEAR(spike.SplineY[2][1], 0, 1e-14);
}

TEST(AkimaSpline, RefusesWhatItCannotDo) {
    AkimaTables two = Table({0, 1}, {0, 1});
    EXPECT_THROW(AkimaKoeffizienten(two, 1, 2, 0), std::invalid_argument);
    EXPECT_THROW(AkimaKoeffizienten(two, 1, 0, 0), std::invalid_argument);
    for (const float smoothing : {0.0F, 0.5F}) {
        AkimaTables equal = Table({0, 1, 1, 2}, {0, 1, 2, 3});
        try {
            AkimaKoeffizienten(equal, 1, 4, smoothing);
            ADD_FAILURE();
        } catch (const ArithmeticError& error) {
            EXPECT_STREQ(error.what(), "Division by zero");
        }
    }
    AkimaTables huge = Table({0, 1e-300, 2e-300}, {0, 1e300, -1e300});
    EXPECT_THROW(AkimaKoeffizienten(huge, 1, 3, 0), ArithmeticError);
}
