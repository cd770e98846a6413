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
#include <vector>

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
        {7, 1.5F, {}, 100},
        {9, 1.5F, {}, 100},
        {10, 1.5F, {}, 100},
        {13, 1.5F, {}, 100},
        {14, 1.5F, {}, 100},
        {15, 1.5F, {}, 100},
        {18, 1.5F, {}, 100},
        {20, 0.5F, {}, 100},
        {20, 1.0F, {}, 100},
        {20, 1.5F, {}, 100},
        {20, 2.0F, {}, 100},
        {20, 3.0F, {}, 100},
        {20, 4.0F, {}, 100},
        {20, 0.7F, {}, 100},
        {20, 2.5F, {}, 100},
        // stiff
        {7, 1.5F, {0, 40, 900, 0}, 100},
        {9, 1.5F, {0, 0.15, 2000, 0}, 100},
        {10, 1.5F, {0, 300, 20, 0.01}, 100},
        {13, 1.5F, {0, 5, 3000, 40}, 10},
        {14, 1.5F, {0, 0.1, 5000, 700}, 10},
        {15, 1.5F, {0, 3000, 400, 2}, 10},
        {18, 1.5F, {0, 900, 100, 3}, 10},
        {20, 1.5F, {0, 9, 0, 0}, 100},
        {20, 2.0F, {0, 3000, 0, 0}, 100},
        {20, 0.5F, {0, 3000, 0, 0}, 100},
        // the edge of what 32000 sub-steps can follow
        {9, 1.5F, {0, 0.15, 3e4, 0}, 100},
        {9, 1.5F, {0, 0.15, 1.2e5, 0}, 100},
        // decays that end below the smallest numbers
        {9, 1.5F, {0, 3, 0.5, 0}, 4000},
        {14, 1.5F, {0, 20, 3, 0.5}, 400},
        {20, 1.0F, {0, 20, 0, 0}, 400},
    };
    for (const Case& c : cases) {
        const auto fast = Selected(c.model), plain = Selected(c.model);
        for (ProjectState* ps : {fast.get(), plain.get()}) {
            ps->OrderN = c.n;
            ps->tMax = c.tMax;
            ps->ScaleOneSpecies = c.tMax == 10; // the extents of one species alone
            ps->ScaleSpecies = 4;
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

TEST(TimeCourse, FindsHalfLivesOfWhatTheModelHas) {
    const auto half = [](int model, float n) {
        auto ps = Selected(model);
        ps->OrderN = n;
        ps->tMax = 20;
        Calc(*ps);
        return ps;
    };
    EXPECT_NEAR(half(20, 1)->tHalfA, std::numbers::ln2 / 0.15, 1e-3);
    EXPECT_NEAR(half(20, 2)->tHalfA, 1 / 0.15, 1e-3);
    EXPECT_NEAR(half(20, 0.5F)->tHalfA, 2 * (1 - std::sqrt(0.5)) / 0.15, 1e-3);
    EXPECT_EQ(half(20, 2)->tHalfB, 0);

    auto ps = Selected(9);
    Calc(*ps);
    EXPECT_NEAR(ps->tHalfB, 1 / 0.15, 1e-2); // c(A,0) = c(B,0)
    Select(*ps, 14);                         // no B: what was found before does not stay
    Calc(*ps);
    EXPECT_EQ(ps->tHalfB, 0);
    EXPECT_GT(ps->tHalfA, 0);
    ps->tMax = 0.5 * ps->tHalfA;
    Calc(*ps);
    EXPECT_EQ(ps->tHalfA, 0); // not reached
    Select(*ps, 2);
    Calc(*ps);
    EXPECT_EQ(ps->tHalfA, 0); // closed forms have their own search
}

TEST(TimeCourse, DrawsTheEnzymeCurve) {
    const auto ps = Selected(10);
    ps->MMDiagram = true;
    ps->KM = 0.01;
    Calc(*ps);
    EXPECT_EQ(ps->tSim[200], 20);
    EXPECT_NEAR(ps->rSimP[10], 0.5, 1e-7);
    EXPECT_EQ(ps->cSimA[5], 0);
    ps->MMNormalized = false;
    Calc(*ps);
    EXPECT_NEAR(ps->tSim[200], 0.15, 1e-8);
    EXPECT_NEAR(ps->rSimP[200], 0.15 / 0.16, 1e-7);
    ps->KM = 0; // not known: x as it is
    Calc(*ps);
    EXPECT_NEAR(ps->rSimP[200], 0.15 / 1.15, 1e-7);
}

TEST(TimeCourse, StopsWithTheErrorWhereNumbersEnd) {
    const auto fails = [](int model, const auto& spoil) {
        const auto ps = Selected(model);
        spoil(*ps);
        bool err = false;
        EXPECT_THROW(calc_diagram_function(*ps, model, ps->tMax, err), ArithmeticError)
            << "model " << model;
    };
    for (int model = 1; model <= kModels; ++model) {
        fails(model, [](ProjectState& ps) { ps.k[1] = std::numeric_limits<double>::quiet_NaN(); });
        fails(model, [](ProjectState& ps) { ps.tMax = std::numeric_limits<double>::infinity(); });
    }
    for (const int model : {7, 9, 10, 13, 14, 15, 18, 20}) {
        fails(model, [](ProjectState& ps) { ps.tMax = 0; });
        fails(model, [](ProjectState& ps) { ps.tMax = -3; });
        fails(model, [](ProjectState& ps) { ps.tMax = 1e-323; });
        fails(model, [](ProjectState& ps) { ps.c0[1] = 1e300; });
        if (model != 20) // there every run is finite: nothing reacts below 0
            fails(model, [](ProjectState& ps) { ps.k = {0, 1e12, 1e12, 1e12}; });
    }
    const auto ps = Selected(19);
    ps->c0 = {0, 1, 1, 0, 0.5, 0.5};
    ps->k = {0, 1, -0.5, 0};
    bool err = false;
    calc_diagram_function(*ps, 19, 100, err);
    EXPECT_TRUE(err);
    calc_diagram_function(*ps, 21, 100, err); // no such model: nothing happens
    EXPECT_FALSE(err);
}
