#include "engine/project_state.h"
#include "platform/host.h"
#include "reactors/batch.h"
#include "reactors/half_life.h"
#include "tests/reactors/support.h"

#include <cmath>

namespace zorvant {
namespace {

constexpr double kSingle = 2e-6; ///< relative, results are Single and searches end at 1e-6

TEST(HalfLives, LeaveHalfOfTheStartConcentration) {
    struct Case {
        int model;
        double A0, B0, P0, k1, k2;
        bool bHalves;
    };
    // 4 with nearly equal concentrations: the logarithm of nearly 1; 12 and 17 above 1 mol/L: the
    // root between 0 and 1 is the wrong one; 12 with k1 = 4 k2, where the quadratic ends
    const Case cases[]{
        {1, 1.2, 0, 0, 0.15, 0, false},      {2, 1.2, 0, 0, 0.15, 0, false},
        {3, 1.2, 0, 0, 0.15, 0, false},      {4, 1, 1, 0, 0.15, 0, true},
        {4, 1, 0.6, 0, 0.15, 0, true},       {4, 1, 2.5, 0, 0.15, 0, false},
        {4, 1, 1 + 1e-9, 0, 0.15, 0, true},  {5, 1, 0, 0.002, 0.15, 0, false},
        {6, 1, 0, 0, 0.15, 0.1, false},      {8, 1, 0, 0.1, 0.5, 0.1, false},
        {11, 1, 0, 0, 0.15, 0.05, false},    {12, 0.5, 0.5, 0, 0.15, 0.01, true},
        {12, 3, 4, 0.5, 0.15, 0.01, true},   {12, 3, 4, 0, 0.4, 0.1, false},
        {12, 3, 4, 0, 0.1, 0.02, false},     {16, 1, 0, 0.002, 0.15, 0, false},
        {17, 0.5, 0.5, 0, 0.15, 0.01, true}, {17, 5, 6, 0.5, 0.15, 0.01, true},
    };
    // constants as in s, min, h, d, a, and slow ones
    for (const double unit : {1.0, 60.0, 3600.0, 86400.0, 31536000.0, 1e-9})
        for (const Case& x : cases) {
            ProjectState ps = StateOfModel(x.model);
            ps.c0 = {0, x.A0, x.B0, 0, x.P0, 0};
            ps.k = {0, x.k1 * unit, x.k2 * unit, 0};
            const auto remaining = [&](int slot, const HalfLife& half) {
                EXPECT_GT(half.value, 0) << x.model << " in unit " << unit;
                EXPECT_FALSE(half.message);
                bool err = false;
                std::vector<MessageBox> messages;
                CalcBatchKessel(ps, x.model, static_cast<double>(half.value), ps.cEnd, err,
                                messages);
                EXPECT_FALSE(err);
                return ps.cEnd[static_cast<std::size_t>(slot)];
            };
            const HalfLife ofA = HalfLifeOfA(x.model, x.A0, x.B0, x.P0, ps.k[1], ps.k[2]);
            EXPECT_NEAR(remaining(1, ofA), x.A0 / 2, kSingle * x.A0)
                << x.model << ", k1 = " << x.k1 << " in unit " << unit;
            // a diagram of rates has the same half-life
            EXPECT_EQ(HalfLifeOfA(x.model + 50, x.A0, x.B0, x.P0, ps.k[1], ps.k[2]).value,
                      ofA.value);
            if (x.bHalves) {
                const HalfLife ofB = HalfLifeOfB(x.model, x.A0, x.B0, x.P0, ps.k[1], ps.k[2]);
                EXPECT_NEAR(remaining(2, ofB), x.B0 / 2, kSingle * x.B0)
                    << x.model << ", k1 = " << x.k1 << " in unit " << unit;
            }
        }
}

// S. S. Zumdahl, Chemistry: the N2O5 course halves every 100 s (0.1, 0.05, 0.025, 0.0125 mol/L at
// 0, 100, 200, 300 s, k = 6.93E-3 1/s); butadiene at 0.01 mol/L has a half-life of 1.63E3 s with
// 0.0614 L/(mol s) as slope of 1/c, which is twice the k1 of 2A => P.
TEST(HalfLives, AgreeWithPublishedOnes) {
    EXPECT_NEAR(HalfLifeOfA(2, 0.1, 0, 0, 6.93e-3, 0).value, 100, 0.05);
    EXPECT_NEAR(HalfLifeOfA(-5, 0.1, 0, 0, 6.93e-3, 0).value, 100, 0.05);
    EXPECT_NEAR(HalfLifeOfA(3, 0.01, 0, 0, 0.0614 / 2, 0).value, 1.63e3, 5);
    EXPECT_NEAR(HalfLifeOfA(-6, 0.01, 0, 0, 0.0614 / 2, 0).value, 1.63e3, 5);
}

TEST(HalfLives, SayWhyThereIsNone) {
    struct Case {
        bool ofA;
        int kind;
        double A0, B0, P0, k1, k2;
        float value;
        bool beep;
        const char* text;
    };
    const char* notReached = "c(A) = c(A,0)/2 cannot be reached";
    const Case cases[]{
        {true, 4, 1, 0.5, 0, 0.1, 0, 0, true, nullptr},
        {false, 4, 0.5, 1, 0, 0.1, 0, 0, true, nullptr},
        {true, 8, 1, 0, 0, 0.1, 0.5, -1, false, notReached},
        {true, 12, 1, 1, 0, 0.1, 1, -1, false, notReached},
        {true, 17, 1, 0.2, 0, 0.1, 1, -1, false, notReached},
        {false, 12, 0.2, 1, 0, 1, 0.1, -1, false, notReached},
        {false, 17, 0.2, 1, 0, 1, 0.1, -1, false, notReached},
        {true, 2, -1, 0, 0, -1, 0, -1, false, notReached},
        {true, 5, 1, 0, 0, 0.1, 0, -1, false, "Division by zero"},
        {true, 2, 1, 0, 0, 0, 0, -1, false, "Division by zero"},
        {true, 12, 1, 1, 0, 0.1, 0, -1, false, "Division by zero"},
        {true, 3, 1e-300, 0, 0, 1e-10, 0, -1, false, "Overflow"},
        {true, 7, 1, 1, 0, 1, 1, 0, false, nullptr},
        {true, 20, 1, 1, 0, 1, 1, 0, false, nullptr},
        {true, -1, 1, 1, 0, 1, 1, 0, false, nullptr},
        {true, 500, 1, 1, 0, 1, 1, 0, false, nullptr},
        {false, 19, 1, 1, 0, 1, 1, 0, false, nullptr},
        {false, 69, 1, 1, 0, 1, 1, 0, false, nullptr},
        {false, 2, 1, 1, 0, 1, 1, 0, true, nullptr},
    };
    for (const Case& x : cases) {
        const auto halfLife = x.ofA ? HalfLifeOfA : HalfLifeOfB;
        const HalfLife half = halfLife(x.kind, x.A0, x.B0, x.P0, x.k1, x.k2);
        EXPECT_EQ(half.value, x.value) << x.kind;
        EXPECT_EQ(half.beep, x.beep) << x.kind;
        ASSERT_EQ(half.message.has_value(), x.text != nullptr) << x.kind;
        if (half.message) {
            EXPECT_EQ(half.message->text, x.text) << x.kind;
        }
    }
}

} // namespace
} // namespace zorvant
