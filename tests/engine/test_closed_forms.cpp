#include "bench/reference/course_reference.h"
#include "engine/arithmetic.h"
#include "engine/closed_forms.h"
#include "engine/rate_laws.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"
#include "tests/engine/selected_state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>

using namespace zorvant;

namespace {

constexpr int kClosedModels[] = {1, 2, 3, 4, 5, 6, 8, 11, 12, 16, 17, 19};

SpeciesArray StateAt(int model, const ConstantArray& k, const SpeciesArray& c0, double t) {
    SpeciesArray c = c0;
    bool err = true;
    ClosedForm(model, k, c0, err).At(t, c, err);
    EXPECT_FALSE(err);
    return c;
}

} // namespace

// Equal and nearly equal constants and concentrations, double roots, tiny and huge constants, times
// up to 1e300: every species, however little is left of it.
TEST(ClosedForms, KeepTenDigitsAtEveryCorner) {
    std::ifstream table(SOURCE_DIR "/tests/engine/closed_form_reference.txt");
    ASSERT_TRUE(table);
    std::string line;
    int compared = 0;
    double worst = 0;
    while (std::getline(table, line)) {
        if (line.starts_with('#'))
            continue;
        std::istringstream in(line);
        int model = 0;
        double t = 0;
        ConstantArray k{};
        SpeciesArray c0{};
        const auto number = [&] {
            std::string word;
            in >> word;
            return std::strtod(word.c_str(), nullptr); // tiny ones may underflow
        };
        in >> model;
        k[1] = number();
        k[2] = number();
        for (std::size_t s = 1; s < c0.size(); ++s)
            c0[s] = number();
        t = number(); // its colon ends the reading of the word
        ASSERT_TRUE(in) << line;
        const SpeciesArray c = StateAt(model, k, c0, t);
        const std::string mask = Model(model).speciesMask;
        for (int slot = 1; slot <= kSpecies; ++slot) {
            if (!InMask(mask, slot))
                continue;
            const double expected = number();
            const double value = c[static_cast<std::size_t>(slot)];
            ++compared;
            if (std::abs(expected) < 1e-290) {
                EXPECT_LT(std::abs(value), 1e-280) << line;
                continue;
            }
            const double off = std::abs(value / expected - 1);
            worst = std::max(worst, off);
            EXPECT_LT(off, 1e-10) << line << "\n slot " << slot << ": " << value;
        }
    }
    EXPECT_GT(compared, 3000);
    RecordProperty("worst", std::to_string(worst));
}

TEST(ClosedForms, StayWhereTheyAreInEquilibriumAndAtTimeZero) {
    for (const int model : kClosedModels) {
        const SpeciesArray c0{0, 0.7, 0.45, 0.3, 0.2, 0.15};
        EXPECT_EQ(StateAt(model, {0, 0.31, 0.17, 0}, c0, 0), c0) << "model " << model;
    }
    const SpeciesArray even{0, 0.5, 0.5, 0, 0.5, 0.5};
    for (const double t : {1e-3, 1.0, 1e9}) {
        EXPECT_EQ(StateAt(8, {0, 0.2, 0.2, 0}, even, t), even);
        EXPECT_EQ(StateAt(12, {0, 0.2, 0.2, 0}, even, t), even);
        EXPECT_EQ(StateAt(17, {0, 0.2, 0.1, 0}, even, t), even);
        EXPECT_EQ(StateAt(19, {0, 0.2, 0.2, 0}, even, t), even);
    }
    // an autocatalysis without its catalyst does not start
    const SpeciesArray noCatalyst{0, 1, 0, 0, 0, 0};
    EXPECT_EQ(StateAt(5, {0, 0.2, 0, 0}, noCatalyst, 1e6), noCatalyst);
}

TEST(ClosedForms, ReportWhatHasNoSolution) {
    bool err = false;
    const SpeciesArray c0{0, 1, 1, 0, 1, 1};
    const ClosedForm none(19, {0, 1, -0.5, 0}, {0, 1, 1, 0, 0.5, 0.5}, err);
    EXPECT_TRUE(err);
    EXPECT_THROW(ClosedForm(12, {0, 1, -0.1, 0}, c0, err), ArithmeticError);
    EXPECT_THROW(ClosedForm(17, {0, 1, -3, 0}, c0, err), ArithmeticError);
    SpeciesArray c{};
    const ClosedForm overflows(2, {0, 1, 0, 0}, {0, 1.7e308, 0, 0, 1.7e308, 0}, err);
    EXPECT_THROW(overflows.At(5, c, err), ArithmeticError);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const int model : kClosedModels)
        EXPECT_THROW(
            {
                const ClosedForm spoilt(model, {0, nan, nan, 0}, c0, err);
                spoilt.At(1, c, err);
            },
            ArithmeticError)
            << "model " << model;
}
