#include "engine/time_course.h"

#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

using namespace zorvant;

namespace {

/// A state with a model selected and everything at its defaults.
std::unique_ptr<ProjectState> Selected(int model) {
    auto ps = std::make_unique<ProjectState>();
    InitProjectState(*ps);
    ps->ModelId = model;
    FuMaskenSetzen(*ps, model);
    SetDefaultK(*ps);
    SelectionDefaultTimes(*ps);
    SelectionDefaultConcentrations(*ps);
    SelectionDefaultConstants(*ps);
    return ps;
}

} // namespace

TEST(TimeCourse, KeepsTheBalanceOfEveryModelAtItsDefaults) {
    for (int model = 1; model <= kModels; ++model) {
        const auto ps = Selected(model);
        bool err = true;
        calc_diagram_function(*ps, model, ps->tMax, err);
        ASSERT_FALSE(err);
        FillStoich(*ps);
        for (std::size_t i = 0; i <= 200; ++i) {
            double total = 0; // A counts once in A, in each C, P or Q that it went into
            switch (model) {
            case 3:
                total = ps->cSimA[i] + 2 * ps->cSimP[i];
                break;
            case 7:
                total = ps->cSimA[i] + ps->cSimC[i] + 2 * ps->cSimP[i];
                break;
            case 12:
                total = ps->cSimA[i] + ps->cSimP[i] / 2;
                break;
            case 10:
                total = ps->cSimA[i] + ps->cSimC[i];
                break;
            case 11:
                total = ps->cSimA[i] + ps->cSimP[i] + ps->cSimQ[i];
                break;
            default:
                total = ps->cSimA[i] + ps->cSimC[i] + ps->cSimP[i];
                break;
            }
            double start = ps->c0[1];
            if (model != 10)
                start += model == 12 ? ps->c0[4] / 2 : ps->c0[4];
            EXPECT_NEAR(total, start, 1e-12) << "model " << model << " node " << i;
        }
    }
}
