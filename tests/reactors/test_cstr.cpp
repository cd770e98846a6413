#include "engine/project_state.h"
#include "reactors/cstr.h"
#include "tests/reactors/support.h"

#include <algorithm>
#include <cmath>

namespace zorvant {
namespace {

/// What one call leaves behind.
struct Tank {
    double U = 0, V = 0, Vdot = 0, t = 0;
    SpeciesArray c{};
    std::array<double, 4> Ksi{};
    bool bBTooLow = false, bNoSolution = false;
    std::vector<MessageBox> messages = {};
};

Tank RunTank(ProjectState& ps, int mode, Tank given) {
    CalcRuehrkessel(ps, ps.ModelId, mode, ps.c0, given.U, given.V, given.Vdot, given.t, given.c,
                    given.Ksi, given.bBTooLow, given.bNoSolution, given.messages);
    return given;
}

/// in - out + t r, largest over the species, as a share of the feed.
double Residual(const ProjectState& ps, const Tank& tank) {
    SpeciesArray r{};
    FuReactionRates(ps, TankLaw(ps.ModelId), r, ps.k, tank.c);
    double largest = 0, feed = 0;
    for (int slot = 1; slot <= kSpecies; ++slot) {
        const auto s = static_cast<std::size_t>(slot);
        feed += ps.c0[s];
        if (InMask(ps.SpeciesMask, slot))
            largest = std::max(largest, std::abs(ps.c0[s] - tank.c[s] + tank.t * r[s]));
    }
    return largest / feed;
}

/// Models 7 and 20 are searched in steps that are at most ten times the last one, 1e-8.
constexpr double kSteps = 1e-7;

/// c(A) at the outlet of models 7 and 20 by bisection of the balance of A, which falls with c(A).
double BisectedA(const ProjectState& ps, double t) {
    const double k1t = ps.k[1] * t, k2t = ps.k[2] * t;
    const double n = static_cast<double>(ps.OrderN);
    const auto surplus = [&](double a) {
        if (ps.ModelId == 20)
            return ps.c0[1] - a - k1t * std::pow(a, n);
        const double b = ps.c0[2] / (1 + k1t * a);
        const double c = (ps.c0[3] + k1t * a * b) / (1 + k2t * a);
        return ps.c0[1] - a - k1t * a * b - k2t * a * c;
    };
    double low = 0, high = ps.c0[1];
    for (int i = 0; i < 200; ++i) {
        const double middle = (low + high) / 2;
        (surplus(middle) > 0 ? low : high) = middle;
    }
    return low;
}

TEST(StirredTank, IsInSteadyStateForEveryModel) {
    struct Constants {
        double k1, k2, k3;
    };
    const Constants sets[]{
        {0.15, 0.06, 0.04},               // ordinary
        {0.15, 1e-10, 0.04},              // the smallest k2 that the dialog recommends
        {0.02, 3, 1e-10},    {40, 10, 5}, // k1 = 4 k2: model 12 is linear
        {0.3, 0.15, 0.2},                 // k1 = 2 k2: model 7 is linear
        {0.2, 0.2, 0.2},                  // k1 = k2: model 19 is kept apart from it
        {200, 40, 6},
    };
    const SpeciesArray feeds[]{
        {0, 1.2, 1.5, 0.1, 0.05, 0.02},
        {0, 2, 2, 0, 1e-3, 0},
        {0, 3, 0.4, 0, 0.5, 0.5}, // little B
        {0, 1e-4, 3e-4, 0, 1e-6, 0},
    };
    for (const int model : AllModels())
        for (const Constants& k : sets)
            for (const SpeciesArray& feed : feeds)
                for (const double t : {1e-3, 1.0, 20.0, 3000.0}) {
                    ProjectState ps = StateOfModel(model);
                    ps.c0 = feed;
                    ps.k = {0, k.k1, k.k2, k.k3};
                    const std::string where =
                        "model " + std::to_string(model) + ", k1 = " + std::to_string(k.k1) +
                        ", A0 = " + std::to_string(feed[1]) + ", t = " + std::to_string(t);
                    const Tank tank = RunTank(ps, 3, {.V = 2, .t = t});
                    ASSERT_FALSE(tank.bNoSolution || tank.bBTooLow) << where;
                    EXPECT_EQ(tank.Vdot, 2 / t);
                    for (std::size_t s = 1; s <= kSpecies; ++s)
                        EXPECT_GE(tank.c[s], -1e-12) << where << ", slot " << s;
                    const bool usedUp = model == 1 && tank.c[1] == 0; // no rate law below it
                    if (model == 7) {
                        EXPECT_NEAR(tank.c[1], BisectedA(ps, t), kSteps * feed[1]) << where;
                    } else if (model == 20) {
                        EXPECT_NEAR(tank.c[1], BisectedA(ps, t), kSteps) << where;
                    } else if (!usedUp) {
                        EXPECT_LT(Residual(ps, tank), 1e-9) << where;
                    }
                    ExpectConserved(TankLaw(model), ps.c0, tank.c, 1e-12, where);
                    EXPECT_NEAR(tank.U, (feed[1] - tank.c[1]) / feed[1], 1e-12) << where;
                    // the same tank by the other two pairs of quantities
                    EXPECT_EQ(RunTank(ps, 2, {.V = 2, .Vdot = 2 / t}).c,
                              RunTank(ps, 3, {.V = 2, .t = 2 / (2 / t)}).c);
                    EXPECT_EQ(RunTank(ps, 4, {.Vdot = 5, .t = t}).V, 5 * t);
                }
}

TEST(StirredTank, FindsTheTimeOfItsOwnConversion) {
    for (const int model : AllModels())
        for (const double t : {0.3, 4.0, 15.0}) {
            ProjectState ps = StateOfModel(model);
            if (model == 1)
                ps.k[1] = 0.01;
            const Tank byTime = RunTank(ps, 3, {.V = 1, .t = t});
            for (const int mode : {0, 1}) {
                const Tank byU = RunTank(ps, mode, {.U = byTime.U, .V = 7, .Vdot = 7});
                ASSERT_FALSE(byU.bNoSolution || byU.bBTooLow) << "model " << model;
                EXPECT_TRUE(byU.messages.empty());
                EXPECT_NEAR(byU.t / t, 1, model == 7 || model == 20 ? 1e-6 : 1e-9)
                    << "model " << model;
                EXPECT_EQ(mode == 0 ? byU.Vdot : byU.V, mode == 0 ? 7 / byU.t : 7 * byU.t);
                for (std::size_t s = 1; s <= kSpecies; ++s) {
                    // P of model 20 follows its matrix, in which n of A make one P
                    const bool byMatrix = model == 20 && s == 4;
                    if (InMask(ps.SpeciesMask, static_cast<int>(s)) && !byMatrix) {
                        EXPECT_NEAR(byU.c[s], byTime.c[s], 1e-7)
                            << "model " << model << ", slot " << s;
                    }
                }
            }
        }
}

TEST(StirredTank, SolvesTheNthOrderAsTheClosedFormsDo) {
    // x = k1 t (c - x)^n for n = 1, 2, 1/2 in closed form
    for (const double a : {1e-6, 1e-3, 0.2, 5.0, 400.0, 1e9})
        for (const double c0 : {1.0, 0.03, 40.0, 5e-8}) {
            ProjectState ps = StateOfModel(20);
            ps.c0 = {0, c0, 0, 0, 0, 0};
            ps.k[1] = a;
            const auto rest = [&](float n) {
                ps.OrderN = n;
                const Tank tank = RunTank(ps, 3, {.V = 1, .t = 1});
                EXPECT_FALSE(tank.bNoSolution) << "n = " << n << ", a = " << a << ", c0 = " << c0;
                return tank.c[1];
            };
            // below the first step there is none: solved to the last digit
            const double tolerance = c0 == 5e-8 ? 1e-15 * c0 : kSteps;
            EXPECT_NEAR(rest(1), c0 / (1 + a), tolerance) << a << ", " << c0;
            EXPECT_NEAR(rest(2), 2 * c0 / (1 + std::sqrt(1 + 4 * a * c0)), tolerance)
                << a << ", " << c0;
            const double root = 2 * c0 / (a + std::sqrt(a * a + 4 * c0));
            EXPECT_NEAR(rest(0.5F), root * root, tolerance) << a << ", " << c0;
        }
}

TEST(StirredTank, TakesTheRootThatLeavesB) {
    // k1 far above k2 and more A than B: the larger root of the balance is below c(A,0) too
    ProjectState ps = StateOfModel(7);
    ps.c0 = {0, 2, 1, 0, 0, 0};
    ps.k = {0, 0.15, 1e-4, 0};
    const Tank tank = RunTank(ps, 0, {.U = 0.25, .V = 1});
    EXPECT_FALSE(tank.bBTooLow);
    EXPECT_GT(tank.t, 0);
    EXPECT_LT(Residual(ps, tank), 1e-9);
}

TEST(StirredTank, SaysWhatIsMissing) {
    struct Case {
        int model;
        bool bBTooLow, bNoSolution;
        const char* text; ///< its beginning
    };
    const char* tooLittle =
        "The initial concentration of B is not sufficient for the wanted conversion.";
    const char* test = "The initial concentration of B is not sufficient for the wanted conversion."
                       "\r\n(Test it by specification of the residence time)";
    const char* reach = "The specificated conversion cannot be reached with these concentrations."
                        "\r\n(Test it by specification of the residence time)";
    const Case cases[]{
        {4, true, false, tooLittle}, {12, true, false, tooLittle}, {19, true, false, tooLittle},
        {9, true, false, test},      {13, true, false, test},      {7, true, false, nullptr},
        {17, false, false, nullptr}, // passes with a negative c(B)
        {10, false, false, reach},   {18, false, false, reach},
    };
    for (const Case& x : cases) {
        ProjectState ps = StateOfModel(x.model);
        ps.c0 = {0, 1, 0.2, 0, 0, 0};
        const Tank tank = RunTank(ps, 0, {.U = 0.9, .V = 1});
        EXPECT_EQ(tank.bBTooLow, x.bBTooLow) << x.model;
        EXPECT_EQ(tank.bNoSolution, x.bNoSolution) << x.model;
        ASSERT_EQ(tank.messages.size(), x.text != nullptr ? 1U : 0U) << x.model;
        if (x.text != nullptr) {
            EXPECT_EQ(tank.messages[0].text, x.text);
            EXPECT_EQ(tank.messages[0].title, "Execution not possible");
        }
    }
    // without a way from C to P the upstream equilibrium alone can't carry A away
    ProjectState ps = StateOfModel(15);
    ps.k[3] = 0;
    EXPECT_EQ(RunTank(ps, 0, {.U = 0.5, .V = 1}).messages.size(), 1U);
}

} // namespace
} // namespace zorvant
