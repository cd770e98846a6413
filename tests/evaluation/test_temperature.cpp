#include "evaluation/temperature.h"

#include "engine/time_units.h"
#include "platform/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace zorvant;

namespace {

ProjectState InUnit(int index) {
    ProjectState ps;
    FillTimeFactor(ps);
    ps.TimeUnitIdx = index;
    ps.TimeUnitText = kTimeUnits.at(static_cast<std::size_t>(index));
    return ps;
}

struct Measured {
    double T, k;
};
/// F. Daniels, E. H. Johnston, J. Am. Chem. Soc. 43 (1921) 53: decomposition of N2O5, k in 1/s.
const std::vector<Measured> kN2O5{{273.15, 7.87E-7}, {298.15, 3.46E-5}, {308.15, 1.35E-4},
                                  {318.15, 4.98E-4}, {328.15, 1.50E-3}, {338.15, 4.87E-3}};
/// M. Bodenstein, Z. phys. Chem. 29 (1899) 295: decomposition of HI, k in L/(mol s).
const std::vector<Measured> kHI{{556, 3.52E-7}, {575, 1.22E-6}, {629, 3.02E-5},
                                {647, 8.59E-5}, {666, 2.20E-4}, {683, 5.12E-4},
                                {700, 1.16E-3}, {716, 2.50E-3}, {781, 3.95E-2}};

/// Intercept and slope of the least-squares line of ln(k T^-power) against 1/T.
std::pair<double, double> LineOf(const std::vector<Measured>& table, double power) {
    double n = 0, sx = 0, sy = 0, sxx = 0, sxy = 0;
    for (const Measured& m : table) {
        const double x = 1 / m.T, y = std::log(m.k) - power * std::log(m.T);
        n += 1;
        sx += x;
        sy += y;
        sxx += x * x;
        sxy += x * y;
    }
    const double slope = (n * sxy - sx * sy) / (n * sxx - sx * sx);
    return {(sy - slope * sx) / n, slope};
}

} // namespace

TEST(Temperature, TheCalculatorsGiveThePublishedConstantsBack) {
    struct Case {
        const std::vector<Measured>& table;
        double EA; ///< kJ/mol, as published
    };
    // The published activation energies are rounded to 1 kJ/mol and "about".
    for (const Case& c : {Case{kN2O5, 103}, Case{kHI, 184}}) {
        const ProjectState ps = InUnit(0);
        const auto [lnA, slope] = LineOf(c.table, 0);
        const double EA = -slope * kGasConstant;
        EXPECT_NEAR(EA / 1000, c.EA, 2);
        const auto [eyringIntercept, eyringSlope] = LineOf(c.table, 1);
        const double h = -eyringSlope * kGasConstant;
        const double s = (eyringIntercept - std::log(kBoltzmann / kPlanck)) * kGasConstant;
        for (const Measured& m : c.table) {
            const KtResult arrhenius = CalcArrhenius(ps, std::exp(lnA), EA, m.T);
            const KtResult eyring = CalcEyring(ps, s, h, m.T);
            EXPECT_FALSE(arrhenius.err || eyring.err);
            // The tables scatter about their lines by up to 16 %; both lines nearly coincide.
            EXPECT_NEAR(arrhenius.k / m.k, 1, 0.16) << m.T;
            EXPECT_NEAR(eyring.k / arrhenius.k, 1, 0.02) << m.T;
        }
    }
}

TEST(Temperature, TheFactorOfTheFitAndTheEntropyOfTheCalculatorAreTheSameConstant) {
    for (int unit = 0; unit < 5; ++unit) {
        ProjectState ps = InUnit(unit);
        ps.kTFunction = kEyring;
        ps.FitParam = {0, 2.5E7, 84000, 0};
        ASSERT_TRUE(TakeTemperatureParameters(ps));
        const KtResult calculated = CalcEyring(ps, ps.EyrS, ps.EyrH, 310);
        EXPECT_NEAR(RateConstantAt(ps, 310) / calculated.k, 1, 1E-12) << ps.TimeUnitText;
        EXPECT_NEAR(calculated.k / calculated.kSec *
                        ps.TimeFactor[0].at(static_cast<std::size_t>(unit)),
                    1, 1E-14);
        ps.kTFunction = kArrhenius;
        ASSERT_TRUE(TakeTemperatureParameters(ps));
        EXPECT_EQ(ps.ArrA, 2.5E7);
        EXPECT_EQ(RateConstantAt(ps, 310), CalcArrhenius(ps, 2.5E7, 84000, 310).k);
    }
}

TEST(Temperature, TheCalculatorShowsSingleTextsAndConvertsTheUnit) {
    ProjectState ps = InUnit(1);
    const KtResult perMinute = CalcArrhenius(ps, 1, 0, 300);
    EXPECT_EQ(perMinute.kText, PlainText(1));
    EXPECT_NEAR(perMinute.kSec, 1.0 / 60, 1E-16);
    EXPECT_EQ(CalcArrhenius(ps, 0, 0, 298.15).kText, PlainText(0));
    ps.TimeUnitText = " h ";
    EXPECT_EQ(SelectedTimeUnit(ps), 2);
    ps.TimeUnitText = "fortnight";
    EXPECT_EQ(SelectedTimeUnit(ps), 1);
}

TEST(Temperature, BadInputShowsErr) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInf = std::numeric_limits<double>::infinity();
    const ProjectState ps = InUnit(0);
    struct Case {
        double first, energy, T;
    };
    const Case cases[] = {
        {1, 1E4, 0},    {1, -1E7, 1},       {kNaN, 1E4, 300}, {1, kInf, 300},
        {1, 1E4, kNaN}, {1E308, -1E4, 300}, {1E40, 0, 300}, // no Single any more
    };
    for (const Case& c : cases) {
        const KtResult arrhenius = CalcArrhenius(ps, c.first, c.energy, c.T);
        const KtResult eyring = CalcEyring(ps, c.first, c.energy, c.T);
        for (const KtResult& result : {arrhenius, eyring}) {
            if (&result == &eyring && c.first == 1 && c.energy == kInf)
                continue;
            EXPECT_TRUE(std::isfinite(result.k) && std::isfinite(result.kSec));
        }
        EXPECT_TRUE(arrhenius.err) << c.first << ' ' << c.energy << ' ' << c.T;
        EXPECT_EQ(arrhenius.kText, "Err");
    }
    ProjectState eyring = InUnit(0);
    eyring.kTFunction = kEyring;
    eyring.EyrS = 7;
    eyring.FitParam = {0, -1, 1E4, 0};
    EXPECT_FALSE(TakeTemperatureParameters(eyring));
    EXPECT_EQ(eyring.EyrS, 7);
}
