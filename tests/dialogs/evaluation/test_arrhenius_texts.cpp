#include "dialogs/evaluation/arrhenius_texts.h"

#include "engine/modes.h"
#include "evaluation/temperature.h"
#include "platform/number_text.h"

#include <gtest/gtest.h>

namespace zorvant {
namespace {

TEST(CalculatorFace, FollowsTheFunctionTheOrderAndTheTimeUnit) {
    ProjectState ps;
    ps.TimeUnitText = "min";
    ps.kTFunction = kEyring;
    ps.FitMode = kFitSecondOrderT;
    const CalculatorFace face = FaceOfCalculator(ps);
    EXPECT_EQ(face.caption, "EYRING Calculator");
    EXPECT_NEAR(Val(face.kBhText), 2.083644E+10, 1); // kB/h
    EXPECT_EQ(face.lblkEinheit, "L/(mol min)");
}

} // namespace
} // namespace zorvant
