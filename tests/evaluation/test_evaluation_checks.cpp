#include "evaluation/evaluation_checks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

using namespace zorvant;

namespace {

/// A table that lets every evaluation run.
ProjectState Complete() {
    ProjectState ps;
    ps.ExpPointCount = 5;
    ps.ExpData.assign(6, {});
    for (int i = 1; i <= 5; ++i) {
        ExpPoint& row = ps.ExpData[static_cast<std::size_t>(i)];
        row.t = i;
        row.cA = 1.0 / i;
        row.T = 290 + i;
        row.k = i;
        row.lambda = static_cast<float>(i);
    }
    ps.nCtPoints = ps.nRcSPoints = ps.nkTPoints = 5;
    ps.nTemperatures = 5;
    ps.HasCtTData = ps.HasLambdaData = true;
    ps.SumLambda = 15;
    ps.LambdaInf = 8;
    ps.LambdaZero = 0.5;
    ps.c0Data[1] = ps.c0Data[2] = 1;
    ps.ModelId = 10;
    ps.RcSMode = true;
    return ps;
}

using Check = std::function<CommandCheck(const ProjectState&)>;
using Spoil = std::function<void(ProjectState&)>;

/// A check of several commands, for one of them.
Check Of(CommandCheck (*check)(const ProjectState&, int), int index) {
    return [=](const ProjectState& ps) { return check(ps, index); };
}
Check Ct(int index) {
    return Of(CheckCtEvaluation, index);
}
Check Lambda(int index) {
    return Of(CheckLambdaEvaluation, index);
}
Check Michaelis(int index) {
    return Of(CheckMichaelisEvaluation, index);
}
Check Kt(int index) {
    return Of(CheckKtEvaluation, index);
}
Check NonIsothermal(int index) {
    return Of(CheckNonIsothermalFitting, index);
}

} // namespace

TEST(EvaluationChecks, PassWithModelAndKindOnCompleteData) {
    struct Case {
        Check check;
        int model, kind, fitMode;
        Spoil change;
    };
    const Spoil same = [](ProjectState&) {};
    const Case cases[] = {
        {Ct(1), 2, -5, 0, same},
        {Ct(2), 3, -6, 0, same},
        {Ct(3), 4, -6, 0, same},
        {Ct(3), 4, -8, 0, [](ProjectState& ps) { ps.c0Data[2] = 2; }},
        {Ct(4), 10, -7, 0, same},
        {Lambda(1), 2, -10, 0, same},
        {Lambda(3), 4, -11, 0, same},
        {Michaelis(0), 10, -12, 0, same},
        {Michaelis(2), 10, -14, 0, same},
        {Kt(1), 10, -3, 0, same},
        {Kt(2), 10, -4, 0, same},
        {CheckCtFitting, 10, -9, 1, [](ProjectState& ps) { ps.RcSMode = false; }},
        {CheckOrderFitting, 20, -9, 2, same},
        {NonIsothermal(1), 2, -9, 6, same},
        {NonIsothermal(2), 3, -9, 7, same},
        // Three active and two deactivated rows: a line, but no Wilkinson evaluation (below).
        {Ct(1), 2, -5, 0, [](ProjectState& ps) { ps.nExcluded = 2; }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.model) + " " + std::to_string(c.kind));
        ProjectState ps = Complete();
        ps.FitMode = 5;
        c.change(ps);
        const CommandCheck check = c.check(ps);
        EXPECT_TRUE(check.passed);
        EXPECT_TRUE(check.messages.empty());
        TakeOver(ps, check);
        EXPECT_EQ(ps.ModelId, c.model);
        EXPECT_EQ(ps.DiagramKind, c.kind);
        EXPECT_EQ(ps.FitMode, c.fitMode);
    }
}

TEST(EvaluationChecks, SayWhatIsMissingAndWhetherTheEditorHelps) {
    struct Case {
        Check check;
        Spoil spoil;
        bool asks;
        const char* part; ///< of the message
    };
    const Spoil noC0 = [](ProjectState& ps) { ps.c0Data[1] = 0; };
    const Case cases[] = {
        {CheckAnyData, [](ProjectState& ps) { ps.ExpPointCount = 0; }, true, "to Data entry NEW?"},
        {Ct(4), [](ProjectState& ps) { ps.nExcluded = 2; }, true,
         "There must be at least 4(active) experimental c-t data sets\r\nAdd the data in the Data "
         "Editor\r\nor remove the deactivation of data points.\r\n\r\n\r\nNow to the"},
        {Ct(1), [](ProjectState& ps) { ps.nCtPoints = 1; }, true, "at least 2(active)"},
        {Ct(2), noC0, false, "no initial concentration c(A,0) found"},
        {Ct(3), [](ProjectState& ps) { ps.c0Data[2] = 9E-9F; }, false, "Both initial"},
        {Michaelis(0), [](ProjectState& ps) { ps.RcSMode = false; }, false, "is only useful if"},
        {Michaelis(0), [](ProjectState& ps) { ps.nExcluded = 4; }, true,
         "deactivation of data sets"},
        {Lambda(1), [](ProjectState& ps) { ps.HasLambdaData = false; }, true,
         "not enough (active)"},
        {Lambda(2), [](ProjectState& ps) { ps.ExpPointCount = 1; }, false, "Entry data (=> Editor"},
        {Lambda(2), noC0, false, "[k] = 1/(kPa s)."},
        {Lambda(3), [](ProjectState& ps) { ps.c0Data[1] = 2; }, false, "At the moment only"},
        {Lambda(1), [](ProjectState& ps) { ps.LambdaInf = 9E-9; }, false, "lambda(t = infin.)"},
        {Kt(1), [](ProjectState& ps) { ps.nkTPoints = 1; }, true, "At least two different"},
        {Kt(1),
         [](ProjectState& ps) {
             for (ExpPoint& row : ps.ExpData)
                 row = ps.ExpData[1];
         },
         true, "now to the Data Editor?"},
        {CheckCtFitting, [](ProjectState&) {}, false, "Make sure that c-t data are loaded."},
        {CheckOrderFitting, noC0, false, "no initial concentration"},
        {NonIsothermal(1), [](ProjectState& ps) { ps.HasCtTData = false; }, true, "T-t-c data!"},
        {NonIsothermal(2), noC0, false, "has to be given."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.part);
        ProjectState ps = Complete();
        c.spoil(ps);
        const CommandCheck check = c.check(ps);
        EXPECT_FALSE(check.passed);
        EXPECT_EQ(check.asksForEditor, c.asks);
        ASSERT_EQ(check.messages.size(), 1U);
        EXPECT_NE(check.messages[0].text.find(c.part), std::string::npos);
        EXPECT_EQ(check.messages[0].buttons, c.asks ? Buttons::YesNo : Buttons::Ok);
    }
}

TEST(EvaluationChecks, GoOnAfterANote) {
    ProjectState ps = Complete();
    ps.LambdaZero = 0;
    CommandCheck check = CheckLambdaEvaluation(ps, 1);
    EXPECT_TRUE(check.passed);
    EXPECT_TRUE(check.LambdaMode.value());
    ASSERT_EQ(check.messages.size(), 1U);
    EXPECT_EQ(check.messages[0].title, "Notes on the evaluation of lambda-data, 1st-order");
    ps.nTemperatures = 1;
    check = CheckNonIsothermalFitting(ps, 1);
    EXPECT_TRUE(check.passed);
    EXPECT_EQ(check.messages.size(), 1U);
}

TEST(EvaluationChecks, CountCouplesOfTemperatureAndConstantOnce) {
    ProjectState ps = Complete();
    EXPECT_EQ(DistinctKtCouples(ps), 5);
    ps.ExpData[5] = ps.ExpData[4] = ps.ExpData[1];
    EXPECT_EQ(DistinctKtCouples(ps), 3);
    ps.ExpData[2].k = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(DistinctKtCouples(ps), 2);
    ps.ExpPointCount = 0;
    EXPECT_EQ(DistinctKtCouples(ps), 0);
}

TEST(LambdaExtents, FrameTheOrdinatesThatExist) {
    ProjectState ps = Complete(); // lambda 1..5, lambda(inf) 8, lambda(0) 0.5, t up to 5
    FuExtentsLambda1(ps);
    EXPECT_FLOAT_EQ(ps.Memory.RngT.upper, 5.25F);
    const double top = std::log(7 / 7.5), bottom = std::log(3 / 7.5), margin = (top - bottom) / 5;
    EXPECT_NEAR(ps.Memory.RngLam1.upper, top + margin, 1E-6);
    EXPECT_NEAR(ps.Memory.RngLam1.lower, bottom - 0.3 * margin, 1E-6);
    ps.ExpData[5].lambda = 8; // as large as lambda(inf): no logarithm, no quotient
    ps.LambdaZero = 0;
    FuExtentsLambda2(ps);
    EXPECT_NEAR(ps.Memory.RngLam2.upper, 2 + (2 - 8.0 / 7) / 5, 1E-6);
    EXPECT_NEAR(ps.Memory.RngLam2.lower, 8.0 / 7 - 0.3 * (2 - 8.0 / 7) / 5, 1E-6);
    for (const double inf : {std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(), -1.0}) {
        ps.LambdaInf = inf;
        FuExtentsLambda1(ps);
        EXPECT_EQ(ps.Memory.RngLam1, (Range{0, 1})) << inf;
        FuExtentsLambda2(ps);
        EXPECT_TRUE(std::isfinite(ps.Memory.RngLam2.upper)) << inf;
    }
}
