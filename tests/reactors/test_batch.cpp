#include "engine/project_state.h"
#include "platform/number_text.h"
#include "reactors/batch.h"
#include "reactors/equilibrium.h"
#include "reactors/tubular.h"
#include "tests/reactors/support.h"

#include <cmath>
#include <limits>

namespace zorvant {
namespace {

SpeciesArray BatchAt(const ProjectState& ps, double t) {
    SpeciesArray c{};
    bool err = false;
    std::vector<MessageBox> messages;
    CalcBatchKessel(ps, ps.ModelId, t, c, err, messages);
    EXPECT_FALSE(err) << "model " << ps.ModelId << ", t = " << t;
    EXPECT_TRUE(messages.empty());
    return c;
}

/// The time that an integrated model's result belongs to: the last node not beyond one interval
/// after t, summed as the reactor does.
double LastNode(double t) {
    const double interval = t / 150 > 1 ? 0.4 : t / 150;
    double node = 0;
    for (double tau = 0; tau <= t + interval; tau += interval)
        node = tau;
    return node;
}

TEST(Batch, FollowsTheRateLawOfEveryModel) {
    for (const int model : AllModels())
        for (const double t : {0.5, 6.0, 40.0, 200.0}) {
            ProjectState ps = StateOfModel(model);
            if (model == 1) // ends when A is used up, which the rate law does not know
                ps.k[1] = 0.005;
            const SpeciesArray c = BatchAt(ps, t);
            const SpeciesArray expected =
                IntegrateRates(ps, model, ps.NumericModel ? LastNode(t) : t);
            const double tolerance = ps.NumericModel ? 1e-4 : 1e-9; // steps agree within 1 %
            for (int slot = 1; slot <= kSpecies; ++slot) {
                const auto s = static_cast<std::size_t>(slot);
                if (InMask(ps.SpeciesMask, slot)) {
                    EXPECT_NEAR(c[s], expected[s], tolerance)
                        << "model " << model << ", slot " << slot << ", t = " << t;
                }
            }
            ExpectConserved(model, ps.c0, c, 1e-11, "batch");
        }
}

TEST(Batch, RunsBackwardInNegativeTimeAndStandsStillAtZero) {
    for (const int model : {7, 9, 10, 13, 14, 15, 18, 20}) {
        ProjectState ps = StateOfModel(model);
        EXPECT_EQ(BatchAt(ps, 0), ps.c0) << model;
        const SpeciesArray before = BatchAt(ps, -1);
        const SpeciesArray expected = IntegrateRates(ps, model, -LastNode(1));
        for (std::size_t s = 1; s <= kSpecies; ++s)
            EXPECT_NEAR(before[s], expected[s], 1e-5) << "model " << model << ", slot " << s;
    }
}

TEST(Batch, ReportsAnArithmeticErrorOnce) {
    ProjectState ps = StateOfModel(9);
    ps.c0[1] = ps.c0[2] = 1e200; // the product overflows however small the steps
    SpeciesArray c = ps.c0;
    bool err = false;
    std::vector<MessageBox> messages;
    CalcBatchKessel(ps, 9, 1, c, err, messages);
    EXPECT_TRUE(err);
    EXPECT_EQ(c, ps.c0);
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].text, "error occured:\r\nOverflow\r\nCheck your input data\r\n\r\n"
                                "Advice: For your orientation set the default values.");
    EXPECT_EQ(messages[0].title, "Message from CalcBatchKessel");
}

double ConversionLimit(const ProjectState& ps) {
    const auto limit = FindEquilibriumLimit(ps, Reactor::Batch);
    return limit ? limit->Ue : 1;
}

TEST(TimeSearches, FindTheTimeOfAConversionForEveryModel) {
    // constants as in s and in other units: short and long times, beyond 150 the nodes stand fast
    for (const double unit : {1.0, 86400.0, 31536000.0, 1e-3})
        for (const int model : AllModels())
            for (const double share : {0.05, 0.4, 0.9}) {
                ProjectState ps = StateOfModel(model);
                if (unit == 1e-3 && ps.NumericModel && share != 0.4)
                    continue; // long times, many nodes
                for (double& k : ps.k)
                    k *= unit;
                if (model == 7) // of a pair of A the second needs the product of the first
                    ps.c0[2] = 3;
                // of the enzyme, part is never bound; A <=> C => P ends without A
                const double most = model == 10 ? 0.5 : ConversionLimit(ps);
                ps.UA = share * most;
                for (const bool tube : {false, true}) {
                    const TimeSearch found = tube ? SearchTubeTime(ps) : SearchBatchTime(ps);
                    ASSERT_FALSE(found.err) << "model " << model << ", U = " << ps.UA << ", unit "
                                            << unit << (tube ? ", tube" : ", batch");
                    EXPECT_TRUE(found.messages.empty());
                    EXPECT_EQ(ps.tVerweil, found.t);
                    EXPECT_GT(found.t, 0);
                    // the conversion at the time found, by the rate law for integrated models:
                    // their nodes are up to 1/150 or 0.4 away
                    if (!ps.NumericModel) {
                        const SpeciesArray c = BatchAt(ps, found.t);
                        EXPECT_NEAR((ps.c0[1] - c[1]) / ps.c0[1], ps.UA, 2e-6)
                            << "model " << model << ", unit " << unit;
                    } else { // the enzyme's conversion also falls again
                        const double node = found.t / 150 > 1 ? 0.4 : found.t / 150;
                        const auto U = [&](double t) {
                            return (ps.c0[1] - IntegrateRates(ps, model, t, 500)[1]) / ps.c0[1];
                        };
                        const double before = U(found.t - 2 * node);
                        const double after = U(found.t + 2 * node);
                        EXPECT_LE(std::fmin(before, after), ps.UA + 1e-4) << "model " << model;
                        EXPECT_GE(std::fmax(before, after), ps.UA - 1e-4) << "model " << model;
                    }
                }
            }
}

TEST(TimeSearches, FollowAReversibleReactionBackward) {
    for (const int model : {8, 12, 17, 19}) {
        ProjectState ps = StateOfModel(model);
        ps.c0[4] = 2;
        ps.c0[5] = model == 19 ? 3 : 0;
        ps.k[2] = 0.5;
        const double limit = ConversionLimit(ps);
        ASSERT_LT(limit, 0) << model;
        ps.UA = 0.6 * limit;
        for (const bool tube : {false, true}) {
            const TimeSearch found = tube ? SearchTubeTime(ps) : SearchBatchTime(ps);
            EXPECT_FALSE(found.err) << model;
            ps.cEnd = BatchAt(ps, found.t);
            EXPECT_NEAR(ConversionOfA(ps), ps.UA, 1e-7) << model << (tube ? ", tube" : ", batch");
        }
    }
}

TEST(TimeSearches, FailWhereTheConversionIsOutOfReach) {
    for (const int model : {4, 8, 12, 17, 19, 9}) {
        ProjectState ps = StateOfModel(model);
        ps.c0[2] = 0.4; // A is left over
        ps.UA = 0.95;
        EXPECT_TRUE(SearchBatchTime(ps).err) << model;
        EXPECT_TRUE(SearchTubeTime(ps).err) << model;
    }
}

TEST(EquilibriumLimits, FulfilTheLawOfMassAction) {
    for (const int model : {8, 12, 17, 19})
        for (const Reactor reactor : {Reactor::Batch, Reactor::Tubular, Reactor::Cstr})
            for (const double K : {0.01, 1.0, 2.5, 4.0, 300.0})
                for (const double P0 : {0.0, 0.3, 4.0}) {
                    ProjectState ps = StateOfModel(model);
                    ps.c0 = {0, 2, 3, 0, P0, model == 19 ? P0 / 2 : 0};
                    ps.k = {0, 0.1, 0.1 / K, 0};
                    const auto limit = FindEquilibriumLimit(ps, reactor);
                    ASSERT_TRUE(limit);
                    const double x = limit->xe;
                    const double A = ps.c0[1] - x, B = ps.c0[2] - x, P = P0 + x;
                    double forward = A * B, backward = P;
                    if (model == 8)
                        forward = A;
                    if (model == 12)
                        backward = (P0 + 2 * x) * (P0 + 2 * x);
                    if (model == 19)
                        backward = P * (ps.c0[5] + x);
                    // a K that was kept off 4 or 1 shows in the ninth digit
                    EXPECT_NEAR(backward / forward / K, 1, 2e-8)
                        << "model " << model << ", K = " << K << ", P0 = " << P0;
                    EXPECT_GT(A, 0);
                    EXPECT_GE(P, 0);
                    EXPECT_EQ(limit->Ue, x / 2);
                }
}

TEST(Extents, GiveTheFinalStateThroughTheMatrix) {
    for (const int model : AllModels()) {
        ProjectState ps = StateOfModel(model);
        if (model == 7) // its extents are told by c(C) alone
            ps.c0[3] = 0;
        ps.cEnd = BatchAt(ps, 7);
        CalcKsi(ps, ps.Ksi);
        const double x1 = ps.Ksi[1], x2 = ps.Ksi[2];
        // the second extent counts the reaction that makes P (Q for the competing pair); reactions
        // between it and the first are the way back of the first
        for (int slot = 1; slot <= kSpecies; ++slot) {
            const auto s = static_cast<std::size_t>(slot);
            if (!InMask(ps.SpeciesMask, slot) || (model == 20 && slot == 1))
                continue;
            const bool upstream = model == 10 || model == 15 || model == 18;
            const double nu2 =
                ps.SingleReaction ? 0 : static_cast<double>(ps.Stoich[upstream ? 3 : 2][s]);
            double expected = ps.c0[s] + static_cast<double>(ps.Stoich[1][s]) * x1 + nu2 * x2;
            if (model == 10 && slot == 1) // E: x1 is what is missing of it
                expected = ps.c0[1] - x1;
            if (model == 10 && slot != 1)
                continue;
            if (model == 20)
                expected = ps.c0[4] + static_cast<double>(ps.OrderN) * x1;
            EXPECT_NEAR(ps.cEnd[s], expected, 1e-12) << "model " << model << ", slot " << slot;
        }
    }
}

} // namespace
} // namespace zorvant
