#include "engine/sim_table.h"

#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"
#include "platform/number_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

using namespace zorvant;
using testing::ElementsAre;

namespace {

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t end = text.find("\r\n", from);
        lines.push_back(text.substr(from, end - from));
        from = end + 2;
    }
    return lines;
}

/// The cells of a line, without the blanks behind their texts.
std::vector<std::string> Cells(const std::string& line) {
    EXPECT_EQ(line.substr(0, 6), "      ");
    std::vector<std::string> cells;
    std::istringstream rest(line.substr(6));
    for (std::string cell; std::getline(rest, cell, '\t');) {
        EXPECT_GE(cell.size(), 14U);
        cells.push_back(cell.substr(0, cell.find_last_not_of(' ') + 1));
    }
    return cells;
}

void Calculate(ProjectState& ps, int model) {
    ps.ModelId = model;
    FuMaskenSetzen(ps, model);
    ps.k = {0, 0.15, 0.05, 0.02};
    ps.c0 = {0, 1, 0.8, 0.1, 0.02, 0.3};
    ps.tMax = 40;
    bool err = true;
    calc_diagram_function(ps, model, ps.tMax, err);
    ASSERT_FALSE(err);
}

} // namespace

TEST(SimTable, ShowsTheCourseLineByLine) {
    ProjectState ps;
    InitProjectState(ps);
    Calculate(ps, 19);
    ps.TimeUnitText = "min";
    const std::vector<std::string> lines = Lines(SimTableText(ps));
    ASSERT_EQ(lines.size(), 203U);
    EXPECT_THAT(Cells(lines[0]),
                ElementsAre(" t/min", "cA/(mol/L)", "cB/(mol/L)", "cP/(mol/L)", "cQ/(mol/L)"));
    EXPECT_EQ(lines[1], "");
    EXPECT_THAT(Cells(lines[2]), ElementsAre("0.00", "1", "0.8", "0.02", "0.3"));
    EXPECT_EQ(lines[2].size(), 6U + 5 * 14 + 4);
    // half way, held against the balances of A + B <=> P + Q
    const std::vector<std::string> middle = Cells(lines[102]);
    EXPECT_EQ(middle[0], "20.00");
    const double reacted = 1 - Val(middle[1]);
    EXPECT_GT(reacted, 0.1);
    EXPECT_NEAR(Val(middle[2]), 0.8 - reacted, 1e-6);
    EXPECT_NEAR(Val(middle[3]), 0.02 + reacted, 1e-6);
    EXPECT_NEAR(Val(middle[4]), 0.3 + reacted, 1e-6);
}
