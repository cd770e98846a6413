#include "engine/input_rules.h"

#include "engine/modes.h"
#include "engine/reaction_catalogue.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace zorvant {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
const std::string kNoA = "- not yet a valid input of an initial conc. c(A,0)\r\n";
const std::string kNoB = "- not yet a valid input of an initial conc. c(B,0)\r\n";
const std::string kNoS = "- not yet a valid input of an initial conc. c(S,0)\r\n";
const std::string kNoK1 = "- the rate constant has to be k1 > 0\r\n";
const std::string kNoK2 = "- the rate constant has to be k2 > 0\r\n";
const std::string kSmallK2 = "  (you can input a very small value, e. g. k2 = 1e-10)\r\n";
const std::string kNoK3 = "- the rate constant has to be k3 > 0\r\n";

/// Nothing but zeros is typed; what a case gives is written over it.
struct Case {
    int model;
    InputTask task;
    SpeciesArray c0;
    ConstantArray k;
    double t; ///< time axis and reaction time
    std::string text;
};
constexpr SpeciesArray kAllC{0, 1, 1, 1, 1, 1};
constexpr ConstantArray kAllK{0, 1, 1, 1};

ProjectState StateOf(const Case& c) {
    ProjectState ps;
    ps.ModelId = c.model;
    ps.c0 = c.c0;
    ps.k = c.k;
    ps.tMax = ps.tVerweil = c.t;
    ps.FitMode = c.task == InputTask::FittedCurve ? kFitConstants : kNoFit;
    FuMaskenSetzen(ps, kKindPoints); // as a diagram of data leaves them
    return ps;
}

TEST(InputRules, TellWhatEachTaskMissesWhateverDiagramWasDrawnLast) {
    using enum InputTask;
    const Case cases[] = {
        {2, CourseDiagram, {}, kAllK, 1, kNoA},
        {4, CourseDiagram, {}, kAllK, 1, kNoA + kNoB},
        {10, CourseDiagram, {0, 1}, kAllK, 1, kNoS},
        {8,
         CourseDiagram,
         {},
         kAllK,
         1,
         "- not yet a valid input of an initial conc. c(A,0) or c(P,0)\r\n"},
        {17, CourseDiagram, {0, 0, 0, 0, 1}, kAllK, 1, ""},
        {19,
         CourseDiagram,
         {0, 1},
         kAllK,
         1,
         kNoB + "- specify initial concentration of substance B or P and Q\r\n"},
        {5,
         CourseDiagram,
         {0, 1},
         kAllK,
         1,
         "- for auto catalysis, a (low) c(P,0) must be present, otherwise the reaction will not "
         "start\r\n"},
        {2,
         CourseDiagram,
         kAllC,
         {0, kNaN, 0, 0},
         kNaN,
         "- specification of time is not in order!\r\n" + kNoK1},
        {6, CourseDiagram, kAllC, {0, 1, 0, 0}, 1, ""},
        {6, CourseTable, kAllC, {0, 1, 0, 0}, 1, kNoK2 + kSmallK2},
        {17, CourseTable, {0, 0, 0, 0, 1}, kAllK, 1, kNoA + kNoB},
        {13,
         CourseTable,
         {},
         {},
         0,
         kNoA + kNoB + "- specification of time is not in order\r\n" + kNoK1 + kNoK2 + kSmallK2 +
             kNoK3},
        {10, FittedCurve, {}, {0, 1, -1, 0}, 1, kNoS + kNoK2 + kNoK3},
        {10, FittedCurve, {0, 0, 1}, {0, kNaN, 1, 1}, 1, kNoK1},
        {10,
         Batch,
         {},
         {},
         1,
         "- not yet a valid input of the conversion (U(A) <> 0, U(A) < 1)\r\n\r\n(Note: In the "
         "case of a reversible reaction negative values of the conversion are possible.)"
         "The specificated conc. has to be greater then B =  0, to achieve the desired "
         "conversion." +
             kNoA + kNoS + kNoK1 + kNoK2 + kSmallK2 + kNoK3},
        {10,
         Series,
         {},
         {},
         0,
         "- number of stages N has to be between 2 and 7. \r\n" + kNoA + kNoB + kNoK1 + kNoK2 +
             "  (but you can enter an extremely small value, e. g. k2 = 1e-10)\r\n" + kNoK3 +
             "- the specificated flow of volume has to be V* > 0\r\n"},
        // products alone can react, but the conversion is one of A
        {12,
         Tube,
         {0, 0, 0, 0, 1},
         kAllK,
         1,
         "- not yet a valid input of flow rate\r\n- not yet a valid input of the tube length\r\n" +
             kNoA},
        {12,
         Tank,
         {0, 0, 0, 0, 1},
         kAllK,
         1,
         "- the specificated flow of volume has to be V* > 0\r\n"},
    };
    for (const Case& c : cases) {
        ProjectState ps = StateOf(c);
        ps.UA = c.task == Tank ? 0.5 : 1;
        GivenInput input = InputShownFor(ps);
        input.given = 1;
        const InputCheck check = CheckInput(ps, c.task, input);
        EXPECT_EQ(check.text, c.text) << c.model << ' ' << static_cast<int>(c.task);
        EXPECT_EQ(check.first.has_value(), !c.text.empty());
    }
}

TEST(InputRules, RefuseAnOrderThatIsNone) {
    using enum InputTask;
    for (const InputTask task : {CourseDiagram, Batch, Tube, Tank, Series}) {
        ProjectState ps = StateOf({20, task, kAllC, kAllK, 1, ""});
        ps.OrderN = std::numeric_limits<float>::quiet_NaN();
        const InputCheck check = CheckInput(ps, task, InputShownFor(ps));
        EXPECT_TRUE(check.orderFailed);
        EXPECT_NE(check.text.find("- input value of the reaction order has to be "),
                  std::string::npos);
        ps.OrderN = kDefaultOrder;
        EXPECT_FALSE(CheckInput(ps, task, InputShownFor(ps)).orderFailed);
    }
    ProjectState ps = StateOf({20, CourseTable, kAllC, kAllK, 1, ""});
    ps.OrderN = -1;
    EXPECT_EQ(CheckInput(ps, CourseTable, InputShownFor(ps)).text, "- allowed only n > 0\r\n");
}

} // namespace
} // namespace zorvant
