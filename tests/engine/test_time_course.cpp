#include "engine/time_course.h"

#include "bench/reference/course_reference.h"
#include "engine/arithmetic.h"
#include "engine/numeric_models.h"
#include "engine/rate_laws.h"
#include "tests/engine/selected_state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <string>

using namespace zorvant;

namespace {

void Calc(ProjectState& ps) {
    bool err = true;
    calc_diagram_function(ps, ps.ModelId, ps.tMax, err);
    ASSERT_FALSE(err);
}

template <class Value> bool SameBits(const Value& a, const Value& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

/// Holds every number of a fast course against the plain form of it, bit for bit.
void ExpectBitIdentical(ProjectState& fast, ProjectState& plain, const std::string& what) {
    SCOPED_TRACE(what);
    Calc(fast);
    bool err = true;
    reference::calc_diagram_function(plain, plain.ModelId, plain.tMax, err);
    ASSERT_FALSE(err);
    ASSERT_EQ(fast.SplineX[0], plain.SplineX[0]);
    const auto nodes = static_cast<std::size_t>(plain.SplineX[0]);
    int differences = 0;
    const auto compare = [&](const auto& a, const auto& b, const char* name, std::size_t i) {
        if (!SameBits(a, b) && ++differences < 5)
            ADD_FAILURE() << name << " at " << i << ": " << a << " and " << b;
    };
    for (std::size_t i = 0; i < nodes; ++i)
        compare(fast.tSim[i], plain.tSim[i], "t", i);
    for (int slot = 1; slot <= kSpecies; ++slot) {
        if (!InMask(fast.SpeciesMask, slot))
            continue;
        const auto s = static_cast<std::size_t>(slot);
        for (std::size_t i = 0; i < nodes; ++i) {
            compare(cSim(fast, slot)[i], cSim(plain, slot)[i], "c", i);
            compare(rSim(fast, slot)[i], rSim(plain, slot)[i], "r", i);
            compare(fast.SplineY[i + 1][s], plain.SplineY[i + 1][s], "Y", i + 1);
            compare(fast.SplineA[i + 1][s], plain.SplineA[i + 1][s], "A", i + 1);
            compare(fast.SplineB[i + 1][s], plain.SplineB[i + 1][s], "B", i + 1);
            if (i + 1 == nodes)
                continue; // the plain form leaves no meaning in the last interval
            compare(fast.SplineC[i + 1][s], plain.SplineC[i + 1][s], "C", i + 1);
            compare(fast.SplineD[i + 1][s], plain.SplineD[i + 1][s], "D", i + 1);
        }
        compare(fast.cEnd[s], plain.cEnd[s], "cEnd", s);
    }
    compare(fast.tHalfA, plain.tHalfA, "tHalfA", 0);
    compare(fast.tHalfB, plain.tHalfB, "tHalfB", 0);
    EXPECT_EQ(fast.Memory.RngT, plain.Memory.RngT);
    EXPECT_EQ(fast.Memory.RngC, plain.Memory.RngC);
    EXPECT_EQ(fast.Memory.RngR, plain.Memory.RngR);
    EXPECT_EQ(differences, 0);
}

} // namespace

TEST(TimeCourse, GivesTheBitsOfThePlainFormForTheNumericModels) {
    struct Case {
        int model;
        float n;
        ConstantArray k; ///< k1 = 0: the defaults
        double tMax;
    };
    const Case cases[] = {
        {7,  1.5F, {},                  100 },
        {9,  1.5F, {},                  100 },
        {10, 1.5F, {},                  100 },
        {13, 1.5F, {},                  100 },
        {14, 1.5F, {},                  100 },
        {15, 1.5F, {},                  100 },
        {18, 1.5F, {},                  100 },
        {20, 0.5F, {},                  100 },
        {20, 1.0F, {},                  100 },
        {20, 1.5F, {},                  100 },
        {20, 2.0F, {},                  100 },
        {20, 3.0F, {},                  100 },
        {20, 4.0F, {},                  100 },
        {20, 0.7F, {},                  100 },
        {20, 2.5F, {},                  100 },
 // stiff
        {7,  1.5F, {0, 40, 900, 0},     100 },
        {9,  1.5F, {0, 0.15, 2000, 0},  100 },
        {10, 1.5F, {0, 300, 20, 0.01},  100 },
        {13, 1.5F, {0, 5, 3000, 40},    10  },
        {14, 1.5F, {0, 0.1, 5000, 700}, 10  },
        {15, 1.5F, {0, 3000, 400, 2},   10  },
        {18, 1.5F, {0, 900, 100, 3},    10  },
        {20, 1.5F, {0, 9, 0, 0},        100 },
        {20, 2.0F, {0, 3000, 0, 0},     100 },
        {20, 0.5F, {0, 3000, 0, 0},     100 },
 // decays that end below the smallest numbers
        {9,  1.5F, {0, 3, 0.5, 0},      4000},
        {14, 1.5F, {0, 20, 3, 0.5},     400 },
        {20, 1.0F, {0, 20, 0, 0},       400 },
    };
    for (const Case& c : cases) {
        const auto fast = Selected(c.model), plain = Selected(c.model);
        for (ProjectState* ps : {fast.get(), plain.get()}) {
            ps->OrderN = c.n;
            ps->tMax = c.tMax;
            if (c.k[1] != 0)
                ps->k = c.k;
            if (c.model == 9 && c.tMax == 4000)
                ps->c0[2] = 1.5;
        }
        ExpectBitIdentical(*fast, *plain,
                           "model " + std::to_string(c.model) + " n " + std::to_string(c.n) +
                               " k1 " + std::to_string(fast->k[1]));
    }
}

// The edge of what 32000 sub-steps can follow, and one interval of it.
TEST(TimeCourse, GivesTheBitsOfThePlainFormAtTheMostSubSteps) {
    for (const double k2 : {3e4, 1.2e5}) {
        const auto fast = Selected(9), plain = Selected(9);
        for (ProjectState* ps : {fast.get(), plain.get()}) {
            ps->k = {0, 0.15, k2, 0};
            ps->tMax = 100;
        }
        ExpectBitIdentical(*fast, *plain, "k2 " + std::to_string(k2));
    }
}
