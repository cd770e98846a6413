#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"
#include "tests/dialogs/workbench.h"

namespace zorvant {
namespace {

TEST(ModelDialog, OpensOnTheSelectedModelAndUnit) {
    Workbench bench;
    bench.ps.ModelId = 20;
    bench.ps.TimeUnitText = "h";
    bench.Show(bench.model);
    EXPECT_EQ(bench.model.optTyp.selected, 0);
    EXPECT_TRUE(bench.model.optTyp(0).bold);
    EXPECT_EQ(bench.model.optZeit.selected, 2);
    EXPECT_EQ(bench.model.txtOrdnung.text, " 1.5");
    EXPECT_TRUE(bench.model.txtOrdnung.enabled);
}

TEST(ModelDialog, ASelectionKeepsWhatTheUserHasSet) {
    Workbench bench;
    bench.Show(bench.model);
    bench.ps.k = {0, 7, 8, 9};
    bench.ps.c0 = {0, 0.3, 0.4, 0, 0, 0};
    bench.ps.tMax = 12;
    Press(bench.model.optTyp, 13);
    EXPECT_EQ(bench.ps.k, (ConstantArray{0, 7, 8, 9}));
    EXPECT_EQ(bench.ps.c0[1], 0.3);
    EXPECT_EQ(bench.ps.tMax, 12);
}

TEST(ModelDialog, TheSeedOfAnAutocatalysisComesAndGoesWithTheModel) {
    Workbench bench;
    bench.OpenTimeDiagram();
    Press(bench.model.optTyp, 5);
    EXPECT_EQ(bench.ps.c0[4], 0.002);
    EXPECT_EQ(bench.time.Inp(3).text, " 0.002");
    Press(bench.model.optTyp, 2);
    EXPECT_EQ(bench.ps.c0[4], 0);
}

TEST(ModelDialog, AnotherTimeUnitConvertsTimesAndConstantsOfTheOpenDialog) {
    Workbench bench;
    bench.OpenTimeDiagram();
    Press(bench.model.optZeit, 1);
    EXPECT_DOUBLE_EQ(bench.ps.k[1], 9);
    EXPECT_EQ(bench.time.kCombo(1).text, " 9");
    EXPECT_EQ(bench.time.kCombo(0).text, " 1.666667");
    EXPECT_EQ(bench.time.unit1.text, "/(1/min)");
    EXPECT_EQ(bench.time.unit4.text, "min");
    Press(bench.model.optZeit, 0);
    EXPECT_NEAR(bench.ps.k[1], 0.15, 1e-15);
    EXPECT_NEAR(bench.ps.tMax, 100, 1e-12);
}

TEST(ModelDialog, TheOrderIsTakenAsItIsTyped) {
    Workbench bench;
    bench.OpenTimeDiagram();
    Press(bench.model.optTyp, 0);
    bench.Retype(bench.model.txtOrdnung, "2x,5");
    EXPECT_EQ(bench.model.txtOrdnung.text, "2.5");
    EXPECT_EQ(bench.ps.OrderN, 2.5F);
    EXPECT_EQ(bench.time.Label7.text, "kinetic model: A => P, n-th order  (n = 2.50)");
    EXPECT_EQ(bench.ps.Stoich[1][1], -2.5F);
}

TEST(ModelDialog, TheMatrixFollowsTheModel) {
    Workbench bench;
    bench.Show(bench.model);
    Press(bench.model.optTyp, 12);
    Press(bench.model.cmdShowMatrix);
    EXPECT_EQ(bench.matrix.lblModel.text, "A + B <=> 2P");
    EXPECT_EQ(bench.matrix.lblCell(10).text, "2"); // P
    EXPECT_EQ(bench.matrix.lblCell(11).text, "-2");
    EXPECT_FALSE(bench.matrix.lblC.visible); // the model has no C
    EXPECT_FALSE(bench.matrix.lblCell(7).visible);
    Press(bench.model.optTyp, 10);
    EXPECT_TRUE(bench.matrix.loaded);
    EXPECT_EQ(bench.matrix.lblC.text, "ES");
    EXPECT_EQ(bench.matrix.lblCell(9).text, "-1");
    Press(bench.matrix.cmdClose);
    EXPECT_FALSE(bench.matrix.loaded);
}

} // namespace
} // namespace zorvant
