#include "engine/closed_forms.h"
#include "engine/rate_laws.h"
#include "engine/reaction_catalogue.h"

#include <gtest/gtest.h>

using namespace zorvant;

namespace {

constexpr int kClosedModels[] = {1, 2, 3, 4, 5, 6, 8, 11, 12, 16, 17, 19};

/// The rate laws integrated in many small steps: what the closed forms solve.
SpeciesArray Integrated(const ProjectState& ps, int model, const ConstantArray& k, SpeciesArray c,
                        double t) {
    constexpr int kSteps = 4000;
    const double h = t / kSteps;
    SpeciesArray r1, r2, r3, r4, at;
    const auto shifted = [&](const SpeciesArray& r, double by) {
        for (std::size_t s = 1; s < c.size(); ++s)
            at[s] = c[s] + by * r[s];
        return at;
    };
    for (int i = 0; i < kSteps; ++i) {
        FuReactionRates(ps, model, r1, k, c);
        FuReactionRates(ps, model, r2, k, shifted(r1, h / 2));
        FuReactionRates(ps, model, r3, k, shifted(r2, h / 2));
        FuReactionRates(ps, model, r4, k, shifted(r3, h));
        for (std::size_t s = 1; s < c.size(); ++s)
            c[s] += h / 6 * (r1[s] + 2 * r2[s] + 2 * r3[s] + r4[s]);
    }
    return c;
}

} // namespace

TEST(ClosedForms, SolveTheRateLawsOfTheirModels) {
    const ProjectState ps;
    const ConstantArray constants[] = {
        {0, 0.15, 0.1, 0},
        {0, 0.4,  0.1, 0}, // 12: k1 = 4 k2
        {0, 0.2,  0.2, 0},
        {0, 0.3,  0,   0},
        {0, 0.01, 3,   0},
    };
    const SpeciesArray starts[] = {
        {0, 1,   1,   0,   0.002, 0  },
        {0, 1,   0.3, 0.2, 0.1,   0.4},
        {0, 0.3, 2,   0,   0.5,   0  },
        {0, 0.2, 0.1, 0,   3,     2  },
    };
    for (const int model : kClosedModels)
        for (const ConstantArray& k : constants)
            for (const SpeciesArray& c0 : starts)
                for (const double t : {0.01, 0.5, 3.0}) {
                    if (model == 1 && k[1] * t >= c0[1])
                        continue; // used up: the law has a corner there
                    SpeciesArray c = c0;
                    bool err = true;
                    ClosedForm(model, k, c0, err).At(t, c, err);
                    EXPECT_FALSE(err);
                    const SpeciesArray expected = Integrated(ps, model, k, c0, t);
                    for (std::size_t s = 1; s < c.size(); ++s)
                        EXPECT_NEAR(c[s], expected[s], 2e-11)
                            << "model " << model << " slot " << s << " k " << k[1] << ' ' << k[2]
                            << " c0 " << c0[1] << " t " << t;
                }
}
