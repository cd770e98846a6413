#include "simulations/blood_alcohol.h"

#include "engine/arithmetic.h"
#include "engine/time_course.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zorvant {
namespace {

const float kNaN = std::nanf("");
constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// A man of 73 kg with the standard parameters and no drinks.
ProjectState StandardMan() {
    ProjectState ps;
    PrepareBacState(ps);
    SetGlassVolume(ps, 1, 0);
    return ps;
}
void AddDrink(ProjectState& ps, int i, double volume, double content, int time) {
    SetGlassVolume(ps, i, volume);
    SetAlcContent(ps, i, content);
    ps.DrinkTime[static_cast<std::size_t>(i)] = time;
}
float Bac(const ProjectState& ps, int t) {
    return ps.BacTable[static_cast<std::size_t>(t)];
}
float Uncorrected(const ProjectState& ps, int t) {
    return FuBacAtTime(t, ps.BodyMass, ps.AlcMass, ps.DrinkTime, ps.kAbs, ps.AbsDeficit,
                       ps.rWidmark, ps.beta60);
}

TEST(BloodAlcohol, OneGlassOfBeerFollowsTheHandCalculation) {
    ProjectState ps;
    EXPECT_EQ(PrepareBacState(ps), BacPerson::Men);
    EXPECT_FLOAT_EQ(ps.AlcMass[1], 19.725F);
    FuBacCurve(ps, 600);
    EXPECT_EQ(Bac(ps, 0), 0);
    EXPECT_NEAR(Bac(ps, 30), 0.20846, 5e-6);
    EXPECT_NEAR(Bac(ps, 60), 0.15673, 5e-6);
    EXPECT_NEAR(Bac(ps, 120), 0.00879, 5e-6);
    EXPECT_GT(Bac(ps, 123), 0);
    for (int t = 124; t <= 600; ++t)
        EXPECT_EQ(Bac(ps, t), 0);
}

TEST(BloodAlcohol, AfterFullAbsorptionItIsWidmarksFormula) {
    // Widmark: BAC = M (1 - AD)/(m r) - beta t, once nothing is left to absorb.
    struct {
        float mass, r;
        int deficit;
        double grams;
        int t;
    } const table[]{{73, 0.7F, 20, 80, 300}, {60, 0.6F, 10, 55, 240}, {95, 0.75F, 30, 160, 480}};
    for (const auto& row : table) {
        PerDrink<float> grams{};
        PerDrink<int> times;
        times.fill(-1);
        grams[4] = static_cast<float>(row.grams);
        times[4] = 0;
        const double widmark =
            row.grams * (1 - row.deficit / 100.0) / (static_cast<double>(row.mass) * row.r) -
            0.15 * row.t / 60;
        EXPECT_NEAR(FuBacAtTime(row.t, row.mass, grams, times, 20, row.deficit, row.r, 0.15F),
                    widmark, 1e-6);
    }
}

TEST(BloodAlcohol, DrinksAddUpAndCountFromTheirOwnTime) {
    ProjectState ps = StandardMan();
    AddDrink(ps, 1, 400, 5, 0);
    AddDrink(ps, 3, 40, 40, 45);
    ProjectState first = StandardMan();
    AddDrink(first, 1, 400, 5, 0);
    ProjectState second = StandardMan();
    AddDrink(second, 1, 40, 40, 0);
    for (const int t : {10, 45, 46, 100, 300}) {
        const double elimination = t * 0.15 / 60;
        const double later = t > 45 ? Uncorrected(second, t - 45) + (t - 45) * 0.15 / 60 : 0;
        EXPECT_NEAR(Uncorrected(ps, t), Uncorrected(first, t) + elimination + later - elimination,
                    1e-6);
    }
}

TEST(BloodAlcohol, ADrinkAfterSoberingUpRisesFromZeroAtItsOwnTime) {
    ProjectState ps = StandardMan();
    AddDrink(ps, 1, 500, 5, 0);
    AddDrink(ps, 2, 330, 5, 300);
    FuBacCurve(ps, 600);
    EXPECT_EQ(Bac(ps, 200), 0);
    EXPECT_EQ(Bac(ps, 300), 0);
    ProjectState fresh = StandardMan();
    AddDrink(fresh, 1, 330, 5, 0);
    FuBacCurve(fresh, 300);
    // What is left of the first glass after five hours of absorption is below 1e-11.
    for (int t = 1; t <= 300; ++t)
        EXPECT_NEAR(Bac(ps, 300 + t), Bac(fresh, t), 2e-6) << t;
}

TEST(BloodAlcohol, TheCurveIsNeverNegativeAndNeverBelowTheUncorrectedOne) {
    ProjectState ps = StandardMan();
    AddDrink(ps, 1, 200, 5, 0);
    AddDrink(ps, 2, 100, 5, 180);
    AddDrink(ps, 5, 20, 40, 181);
    AddDrink(ps, 6, 300, 5, 500);
    FuBacCurve(ps, 999);
    for (int t = 6; t <= 999; ++t) {
        ASSERT_GE(Bac(ps, t), 0) << t;
        ASSERT_GE(Bac(ps, t), Uncorrected(ps, t) - 1e-6F) << t;
    }
}

TEST(BloodAlcohol, WhatAnEarlierCurveLeftBehindTheAxisHasNoEffect) {
    ProjectState ps = StandardMan();
    AddDrink(ps, 1, 500, 5, 0);
    AddDrink(ps, 3, 330, 5, 300);
    FuBacCurve(ps, 600);
    const auto expected = ps.BacTable;
    AddDrink(ps, 2, 500, 5, 1000);
    FuBacCurve(ps, 999); // uncorrected, negative at its end
    AddDrink(ps, 2, 500, 5, 900);
    FuBacCurve(ps, 600);
    EXPECT_TRUE(std::equal(expected.begin(), expected.begin() + 601, ps.BacTable.begin()));
}

TEST(BloodAlcohol, ADrinkBeyondMinute999LeavesTheTableUncorrected) {
    ProjectState ps = StandardMan();
    AddDrink(ps, 1, 500, 5, 0);
    AddDrink(ps, 2, 500, 5, 1000);
    FuBacCurve(ps, 600);
    for (const int t : {100, 200, 600})
        EXPECT_EQ(Bac(ps, t), Uncorrected(ps, t));
    EXPECT_LT(Bac(ps, 600), 0);
}

TEST(BloodAlcohol, MassIsTheProductItselfAndNeverARoundedText) {
    ProjectState ps = StandardMan();
    AddDrink(ps, 2, 33, 4.9, 0);
    EXPECT_FLOAT_EQ(ps.AlcMass[2], 1.275813F);
    EXPECT_EQ(AlcMassText(ps.AlcMass[2]), "1.28");
    EXPECT_EQ(AlcMassText(0), "0.0");
    SetAlcContent(ps, 2, 100.5);
    EXPECT_EQ(ps.AlcContent[2], 0);
    EXPECT_EQ(ps.AlcMass[2], 0);
    SetGlassVolume(ps, 2, 0);
    EXPECT_EQ(ps.DrinkTime[2], -1) << "a row without volume is emptied";
    SetGlassVolume(ps, 1, 0);
    SetGlassVolume(ps, 1, 330);
    EXPECT_EQ(ps.DrinkTime[1], 0) << "the first drink is the begin";
    for (const double bad : {-5.0, std::nan(""), -std::numeric_limits<double>::infinity()})
        EXPECT_EQ(AlcMassOf(bad, 5) + AlcMassOf(500, bad), 0);
    EXPECT_TRUE(std::isfinite(AlcMassOf(1e300, 1e300)));
}

TEST(BloodAlcohol, ClockTimesCountFromTheFirstDrinkAndPastMidnight) {
    struct {
        const char *h, *m;
        int time;
        const char* text;
    } const table[]{{"22", "00", 0, " 0"},     {"23", "50", 110, " 110"},
                    {"00", "30", 150, " 150"}, {"24", "--", 120, " 120"},
                    {"--", "15", -1, ""},      {"21", "59", 1439, " 1439"},
                    {"", "", 120, " 120"},     {"1e9", "0", 32767, " 32767"}};
    ProjectState ps;
    DrinkClocks rows;
    for (int i = 1; i <= kDrinks; ++i) {
        const auto& row = table[i - 1];
        const std::size_t at = static_cast<std::size_t>(i);
        rows.txt_h[at] = row.h;
        rows.txt_m[at] = row.m;
        FuDrinkClock(ps, rows, i);
        EXPECT_EQ(ps.DrinkTime[at], row.time) << i;
        EXPECT_EQ(rows.txtStartZeit[at], row.text) << i;
    }
    EXPECT_EQ(rows.txt_m[4], "00");
    EXPECT_EQ(ps.DrinkMinute[4], "00");
    EXPECT_EQ(ps.DrinkHour[5], "");
    EXPECT_EQ(DrinkTimeOf(""), -1);
    EXPECT_EQ(DrinkTimeOf(" 12.5"), 12);
    EXPECT_THROW(FuDrinkClock(ps, rows, 0), std::out_of_range);
    EXPECT_THROW(SetGlassVolume(ps, 9, 5), std::out_of_range);
}

TEST(BloodAlcohol, ParametersOutsideTheirRangesGoBackToStandardOneAtATime) {
    struct {
        BacPerson person;
        float r;
        int deficit;
        float beta, k;
        BacQuantity found; ///< None: all good
    } const table[]{
        {BacPerson::Men, 0.68F, 10, 0.1F, 2, BacQuantity::None},
        {BacPerson::Men, 0.8F, 30, 0.2F, 20, BacQuantity::None},
        {BacPerson::Men, 0.6F, 20, 0.15F, 5, BacQuantity::Widmark},
        {BacPerson::Men, 0.81F, 0, 0, 0, BacQuantity::Widmark},
        {BacPerson::Women, 0.5F, 20, 0.15F, 5, BacQuantity::None},
        {BacPerson::Women, 0.7F, 20, 0.15F, 5, BacQuantity::Widmark},
        {BacPerson::Women, kNaN, 20, 0.15F, 5, BacQuantity::Widmark},
        {BacPerson::Men, 0.7F, 9, 0.15F, 5, BacQuantity::AbsDeficit},
        {BacPerson::Men, 0.7F, 31, 9, 5, BacQuantity::AbsDeficit},
        {BacPerson::Men, 0.7F, 20, 0.09F, 5, BacQuantity::Beta60},
        {BacPerson::Men, 0.7F, 20, kInfinity, 5, BacQuantity::Beta60},
        {BacPerson::Men, 0.7F, 20, 0.15F, 1.9F, BacQuantity::Absorption},
        {BacPerson::Men, 0.7F, 20, 0.15F, 20.1F, BacQuantity::Absorption},
    };
    for (const auto& row : table) {
        ProjectState ps = StandardMan();
        ps.rWidmark = row.r;
        ps.AbsDeficit = row.deficit;
        ps.beta60 = row.beta;
        ps.kAbs = row.k;
        BacFailure failure;
        EXPECT_EQ(FuCheckBacParameters(ps, row.person, failure), row.found == BacQuantity::None);
        EXPECT_EQ(failure.quantity, row.found);
        // Pressed again and again it ends with good parameters.
        for (int press = 0; press < 4; ++press)
            FuCheckBacParameters(ps, row.person, failure);
        EXPECT_TRUE(FuCheckBacParameters(ps, row.person, failure));
    }
}

TEST(BloodAlcohol, WithoutMassOrTimeAxisNothingIsDrawn) {
    ProjectState ps = StandardMan();
    EXPECT_FALSE(CheckBacDrawing(ps));
    for (const float mass : {0.0F, kNaN, kInfinity}) {
        ps.BodyMass = mass;
        ASSERT_TRUE(CheckBacDrawing(ps));
        EXPECT_EQ(CheckBacDrawing(ps)->quantity, BacQuantity::BodyMass);
        EXPECT_EQ(CheckBacDrawing(ps)->message.text, "no valid input");
    }
    ps.BodyMass = 73;
    SetBacTimeMax(ps, 0.4);
    EXPECT_EQ(CheckBacDrawing(ps)->quantity, BacQuantity::TimeMax);
    SetBacTimeMax(ps, 5000);
    EXPECT_EQ(ps.BacTimeMax, 999);
    SetBacTimeMax(ps, -20);
    EXPECT_EQ(ps.BacTimeMax, 0);
}

TEST(BloodAlcohol, ImpossibleParametersEndInAnArithmeticErrorAndKeepTheTable) {
    ProjectState ps = StandardMan();
    AddDrink(ps, 1, 500, 5, 0);
    FuBacCurve(ps, 300);
    const auto before = ps.BacTable;
    const auto refuses = [&](auto field, auto value) {
        ProjectState bad = ps;
        bad.*field = value;
        EXPECT_THROW(FuBacCurve(bad, 300), ArithmeticError) << value;
        EXPECT_EQ(bad.BacTable, before);
    };
    refuses(&ProjectState::BodyMass, 0.0F);
    refuses(&ProjectState::BodyMass, kNaN);
    refuses(&ProjectState::rWidmark, 0.0F);
    refuses(&ProjectState::kAbs, -1e6F);
    refuses(&ProjectState::kAbs, kNaN);
    refuses(&ProjectState::beta60, kInfinity);
    refuses(&ProjectState::beta60, kNaN);
    FuBacCurve(ps, -7);
    FuBacCurve(ps, 100000);
    EXPECT_EQ(Bac(ps, 999), 0);
}

} // namespace
} // namespace zorvant
