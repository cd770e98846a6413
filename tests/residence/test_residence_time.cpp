#include "residence/residence_time.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

namespace zorvant {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::nan("");

/// Simpson's rule.
double Integrate(const std::function<double(double)>& f, double end, int intervals) {
    const double h = end / intervals;
    double sum = f(0) + f(end);
    for (int i = 1; i < intervals; ++i)
        sum += f(i * h) * (i % 2 == 1 ? 4 : 2);
    return sum * h / 3;
}

double E(double t, int N, double tm) {
    bool err = true;
    const double value = EtKessel(t, N, tm, err);
    EXPECT_FALSE(err);
    return value;
}
double F(double t, int N, double tm) {
    bool err = true;
    const double value = FtKessel(t, N, tm, err);
    EXPECT_FALSE(err);
    return value;
}

TEST(ResidenceTime, AgreesWithFiftyDigitArithmetic) {
    struct {
        int N;
        double theta, ETheta, F;
    } const table[]{
        // mpmath, 50 digits: N y^(N-1) exp(-y)/(N-1)! and the regularised incomplete gamma function
        {1, 0.5, 0.60653065971263342, 0.39346934028736658},
        {2, 0.001, 0.0039920079946693323, 1.997335332267111e-6},
        {6, 1, 0.96373884628788015, 0.55432035863538876},
        {30, 0.25, 4.468383696883031e-8, 4.8971144557858469e-10},
        {30, 1.75, 0.0041185271509172335, 0.99970653420321384},
        {120, 0.5, 7.504098505297538e-10, 6.1554832193919505e-12},
        {120, 1, 4.3671599261626064, 0.51213997854948846},
        {120, 1.5, 3.4465930631242018e-5, 0.99999917667324026},
        {120, 6, 4.6079605238663114e-168, 1},
    };
    for (const auto& row : table) {
        const double tm = 12.5;
        bool err = true;
        EXPECT_NEAR(EThetaKessel(row.theta * tm, row.N, tm, err) / row.ETheta, 1, 1e-12);
        EXPECT_FALSE(err);
        EXPECT_NEAR(FThetaKessel(row.theta * tm, row.N, tm, err) / row.F, 1, 1e-12);
        EXPECT_FALSE(err);
        // The time of one tank is rounded to Single, which a steep flank shows N-fold.
        EXPECT_NEAR(E(row.theta * tm, row.N, tm) * tm / row.ETheta, 1, 6e-8 * 6 * row.N);
    }
}

TEST(ResidenceTime, EIsADensityWithMeanTmAndVarianceTmSquaredOverN) {
    const double tm = 7.5; // tm/N is exact in Single for these N
    for (const int N : {1, 2, 5, 12, 60, 120}) {
        const double end = N < 12 ? 45 * tm : 8 * tm;
        const auto moment = [&](int power) {
            return Integrate([&](double t) { return std::pow(t, power) * E(t, N, tm); }, end, 8000);
        };
        const double mean = moment(1);
        EXPECT_NEAR(moment(0), 1, 1e-8) << N;
        EXPECT_NEAR(mean, tm, 1e-8 * tm) << N;
        EXPECT_NEAR(moment(2) - mean * mean, tm * tm / N, 1e-8 * tm * tm) << N;
    }
}

TEST(ResidenceTime, FIsTheIntegralOfEAndClimbsFromZeroToOne) {
    const double tm = 7.5;
    for (const int N : {1, 3, 24, 120}) {
        for (const double t : {0.4 * tm, tm, 2.5 * tm})
            EXPECT_NEAR(F(t, N, tm), Integrate([&](double s) { return E(s, N, tm); }, t, 2000),
                        1e-7)
                << N << " " << t;
        double before = 0;
        for (double t = 0; t < 10 * tm; t += 0.01 * tm) {
            const double now = F(t, N, tm);
            EXPECT_GE(now, before);
            EXPECT_LE(now, 1);
            before = now;
        }
    }
}

TEST(ResidenceTime, OneTankIsAnExponentialAndManyTanksApproachPlugFlow) {
    EXPECT_DOUBLE_EQ(E(0, 1, 12.5), 1 / 12.5);
    EXPECT_EQ(F(0, 1, 12.5), 0);
    EXPECT_DOUBLE_EQ(E(20, 1, 12.5), std::exp(-20 / 12.5) / 12.5);
    EXPECT_DOUBLE_EQ(F(20, 1, 12.5), 1 - std::exp(-20 / 12.5));
    EXPECT_EQ(E(0, 2, 12.5), 0);
    // The distribution narrows as 1/sqrt(N): the normal distribution, with its skewness as the
    // rest.
    for (const int N : {1000, 100000, 100000000}) {
        const double sigma = 1 / std::sqrt(N);
        for (const double z : {-2.0, -0.5, 1.0}) {
            const double normal = 0.5 * std::erfc(-z / std::sqrt(2.0));
            EXPECT_NEAR(F(1 + z * sigma, N, 1), normal, 0.5 * sigma) << N << " " << z;
        }
    }
}

TEST(ResidenceTime, WhatHasNoValueSetsTheFlagAndGivesZero) {
    struct {
        double t;
        int N;
        double tm;
    } const table[]{{1, 1, 0},    {1, 1, -3},        {1, 1, kNaN},   {1, 1, kInfinity},
                    {kNaN, 1, 1}, {kInfinity, 2, 1}, {1, 0, 1},      {1, -4, 1},
                    {1, 0, 0},    {1e300, 1, 1e-30}, {1, 2, 1e-300}, {1e10, 1, 1e-305}};
    for (const auto& row : table)
        for (const auto function : {EtKessel, EThetaKessel, FtKessel, FThetaKessel}) {
            bool err = false;
            const double value = function(row.t, row.N, row.tm, err);
            EXPECT_TRUE(std::isfinite(value));
            // What only one of the forms cannot hold may have a value in another.
            if (row.tm >= 1e-300 && row.tm < 1e-20)
                continue;
            EXPECT_TRUE(err) << row.t << " " << row.N << " " << row.tm;
            EXPECT_EQ(value, 0);
        }
    bool err = true;
    EXPECT_EQ(EtKessel(-1, 3, 10, err) + FtKessel(-1, 3, 10, err), 0) << "before the pulse";
    EXPECT_FALSE(err);
}

TEST(ResidenceDialogData, NumberOfTanksIsBetween1And120) {
    struct {
        const char* text;
        int N;
        bool accepted;
    } const table[]{{"", 1, true},     {" 7", 7, true},    {"120", 120, true}, {"119.6", 120, true},
                    {"2.5", 2, true},  {"0", 1, false},    {"-2", 1, false},   {"120.4", 1, false},
                    {"0.4", 1, false}, {"1e99", 1, false}, {"abc", 1, false}};
    for (const auto& row : table) {
        const TankNumber read = ReadNVerweil(row.text);
        EXPECT_EQ(read.N, row.N) << row.text;
        EXPECT_EQ(read.accepted, row.accepted) << row.text;
        EXPECT_EQ(read.message.text, row.accepted ? "" : "N has to be between 1 and 120. ");
    }
}

TEST(ResidenceCurves, FillTheBufferOverTheAxisOfTheOpenDiagram) {
    ProjectState ps;
    VerweilInput input;
    VerweilCurve curve = Berechne_EtKurve(ps, input);
    ASSERT_EQ(ps.CurveBuf[0].x, 151);
    EXPECT_EQ(ps.CurveBuf[151].x, 75) << "six residence times";
    EXPECT_TRUE(curve.outside) << "a diagram without limits holds no point";

    ps.Frame = {0, -0.005F, 40, 0.11F, "", "", "", true};
    curve = Berechne_EtKurve(ps, input);
    EXPECT_TRUE(curve.messages.empty());
    EXPECT_EQ(ps.CurvesToDraw, 1);
    EXPECT_EQ(ps.CurveBuf[1].y, 0.08F);
    EXPECT_EQ(ps.CurveBuf[151].x, 40);

    input.xAchseZeit = false;
    ps.Frame.xMax = 4;
    EXPECT_EQ(EtDiagramKind(input), 113);
    EXPECT_EQ(FtDiagramKind(input), 115);
    Berechne_FtKurve(ps, input);
    EXPECT_EQ(ps.CurveBuf[0].x, 151);
    EXPECT_FLOAT_EQ(ps.CurveBuf[151].x, 4);
    EXPECT_FLOAT_EQ(ps.CurveBuf[151].y, 1 - std::exp(-4.0F));
}

TEST(ResidenceCurves, WithoutResidenceTimeTellAnOverflowAndDrawNothing) {
    ProjectState ps;
    ps.Frame = {0, 0, 40, 1, "", "", "", true};
    VerweilInput input;
    input.tmVerweil = 0;
    const VerweilCurve curveE = Berechne_EtKurve(ps, input);
    EXPECT_EQ(ps.CurveBuf[0].x, 0);
    ASSERT_EQ(curveE.messages.size(), 2U);
    EXPECT_EQ(curveE.messages[0].text,
              "Overflow\r\n\r\n... but the calculated parts of the curve will be drawn");
    EXPECT_EQ(curveE.messages[1].icon, Icon::Warning);
    const VerweilCurve curveF = Berechne_FtKurve(ps, input);
    ASSERT_EQ(curveF.messages.size(), 1U);
    EXPECT_EQ(curveF.messages[0].text,
              "Overflow\r\n\r\n(the calculated parts of the curve will be drawn)");
}

} // namespace
} // namespace zorvant
