// The fit against its plain form, bit for bit.
#include "bench/reference/fit_reference.h"
#include "evaluation/kinetic_fit.h"
#include "tests/evaluation/fit_states.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace zorvant;
using namespace zorvant::fit_states;

TEST(FitDigits, AreThoseOfThePlainForm) {
    struct Case {
        int model, mode;
        bool all;
        FitFlags fixed;
    };
    std::vector<Case> cases;
    for (int model = 1; model <= kModels; ++model) {
        cases.push_back({model, kFitConstants, false, {}});
        cases.push_back({model, kFitConstants, true, {0, 0, 1, 0}});
    }
    cases.push_back({20, kFitOrder, true, {}});
    for (const Case& c : cases) {
        SCOPED_TRACE("model " + std::to_string(c.model) + " mode " + std::to_string(c.mode));
        const auto ps = Selected(c.model, c.mode);
        Measure(*ps, 12);
        Tick(*ps, c.all);
        ps->ExpData[5].exclude = -1;
        ps->ExpData[7].t = 1.3 * ps->tMax; // beyond the course: its straight continuation
        ps->FitFixed = c.fixed;
        const FitVector start{0, 1.3 * ps->k[1], c.mode == kFitOrder ? 1.7 : 0.8 * ps->k[2],
                              1.2 * ps->k[3]};
        FitVector param = start, stdDev{}, plainParam = start, plainStdDev{};
        bool limit = false, plainLimit = false;
        const int n = ParameterCount(*ps);
        const FitReport run = MarquardtNashFitting(*ps, n, 12, param, stdDev, limit);
        const FitRun plain =
            reference::MarquardtNashFitting(*ps, n, 12, plainParam, plainStdDev, plainLimit);
        EXPECT_EQ(run.error, plain.error);
        EXPECT_EQ(param, plainParam);
        EXPECT_EQ(stdDev, plainStdDev);
        EXPECT_EQ(limit, plainLimit);
        EXPECT_EQ(run.ifn, plain.ifn);
        EXPECT_EQ(run.ig, plain.ig);
    }
}

TEST(FitDigits, AreThoseOfThePlainFormAlongTemperatures) {
    for (const int mode : {6, 7}) {
        for (const int function : {kArrhenius, kEyring}) {
            const auto ps = Selected(mode == 6 ? 2 : 3, mode);
            ps->kTFunction = function;
            MeasureAlongTemperature(*ps, function == kArrhenius ? 2E7 : 6E4, 3E4);
            ps->ExpData[3].T = 0;
            ps->ExpData[4].exclude = -1;
            ps->ExpData[9].cA *= 1.01;
            FitVector param{0, 1, 10, 0}, stdDev{}, plainParam = param, plainStdDev{};
            bool limit = false, plainLimit = false;
            MarquardtNashFitting(*ps, 2, 30, param, stdDev, limit);
            reference::MarquardtNashFitting(*ps, 2, 30, plainParam, plainStdDev, plainLimit);
            EXPECT_EQ(param, plainParam);
            EXPECT_EQ(stdDev, plainStdDev);
            EXPECT_EQ(limit, plainLimit);
        }
    }
}
