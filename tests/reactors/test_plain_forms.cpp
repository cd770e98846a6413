// The fast forms against the plain ones: the same digits; and no memory asked for on the way.
#include "bench/reference/reactors_reference.h"
#include "engine/project_state.h"
#include "reactors/batch.h"
#include "reactors/cascade.h"
#include "reactors/cstr.h"
#include "reactors/tank_search.h"
#include "reactors/tubular.h"
#include "tests/reactors/support.h"

#include <random>

namespace zorvant {
namespace {

TEST(FastForms, GiveTheDigitsOfThePlainBatchReactor) {
    for (const int model : {7, 9, 10, 13, 14, 15, 18, 20})
        for (const float n : {1.5F, 0.5F, 2.7F}) {
            if (model != 20 && n != 1.5F)
                continue;
            ProjectState ps = StateOfModel(model);
            ps.OrderN = n;
            for (const double stiffness : {1.0, 300.0})
                for (const double t : {0.03, 4.0, 149.0, 333.0}) {
                    ps.k[2] = 0.06 * stiffness;
                    SpeciesArray fast = ps.c0, plain = ps.c0;
                    bool err = false, plainErr = false;
                    std::vector<MessageBox> messages;
                    CalcBatchKessel(ps, model, t, fast, err, messages);
                    reference::CalcBatchKessel(ps, t, plain, plainErr);
                    EXPECT_EQ(fast, plain) << "model " << model << ", t = " << t;
                    EXPECT_EQ(err, plainErr);
                }
            ps.k[2] = 0.06;
            for (const double U : {0.1, 0.6}) {
                ProjectState plain = ps;
                ps.UA = plain.UA = U;
                bool err = false;
                reference::SearchBatchTime(plain, err);
                const TimeSearch fast = SearchBatchTime(ps);
                if (err)
                    continue; // no result by secants
                EXPECT_EQ(fast.t, plain.tVerweil) << "model " << model << ", U = " << U;
                EXPECT_EQ(ps.cEnd, plain.cEnd) << "model " << model << ", U = " << U;
            }
        }
}

TEST(FastForms, TakeTheStepsOfThePlainSearchForAnOrder) {
    std::mt19937 random(20);
    const auto uniform = [&](double low, double high) {
        return low + (high - low) * static_cast<double>(random()) / 4294967295.0;
    };
    int compared = 0;
    for (int i = 0; i < 20000; ++i) {
        const double cA = std::pow(10, uniform(-7.5, 2));
        const double t = std::pow(10, uniform(-6, 6));
        const double n = i % 3 == 0 ? 0.5 * (1 + i % 7) : uniform(0.01, 9);
        bool noSolution = false;
        const double plain = reference::SearchOrderTank(cA, t, 0.15, n, 1000, noSolution);
        if (noSolution)
            continue;
        ++compared;
        ASSERT_EQ(SearchOrderTank({cA, t, 0.15, n}, 1000).x, plain)
            << "c(A) = " << cA << ", t = " << t << ", n = " << n;
    }
    EXPECT_GT(compared, 5000);
}

TEST(FastForms, DrawTheCurvesOfThePlainTanks) {
    for (const float n : {0.5F, 1.0F, 1.5F, 2.0F, 3.3F}) {
        ProjectState ps = StateOfModel(20);
        ps.OrderN = n;
        ps.tVerweil = 60;
        ProjectState plain = ps;
        CascadeTimeCurve(ps, 7);
        reference::CascadeTimeCurve(plain, 7);
        EXPECT_EQ(ps.cSimA, plain.cSimA) << n;
        EXPECT_EQ(ps.cSimP, plain.cSimP) << n;
        CalcTankCurve(ps);
        reference::CalcTankCurve(plain);
        EXPECT_EQ(ps.cSimA, plain.cSimA) << n;
        EXPECT_EQ(ps.cSimP, plain.cSimP) << n;
    }
}

} // namespace
} // namespace zorvant
