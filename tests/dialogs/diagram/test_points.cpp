// The point sets of the window: pages, names, warnings, styles, deleting.
#include "dialogs/diagram/point_panel.h"

#include "fixture.h"

namespace zorvant {
namespace {

struct Points : DiagramTest {};

TEST_F(Points, OfASingleSpeciesStandInItsSet) {
    ps.SingleSpecies = 4;
    ps.WithExpPoints = true;
    ps.Memory.RngC = {0, 1};
    SetRows({{.t = 0, .cP = 0.1}, {.t = 1, .cP = 0.2}, {.t = 2, .cP = 0.4}});
    Open(kKindSingleSpecies);
    EXPECT_EQ(GetPointCount(doc.surface, kPoints, 4), 3);
    EXPECT_EQ(doc.tabPunkte.selected, 3);
    EXPECT_EQ(doc.txtLegendPoints(4).text, "c(P)");
    EXPECT_FALSE(doc.chkLegend.checked);
}

TEST_F(Points, HavePagesAndNamesByKind) {
    const auto pages = [&] {
        std::string shown;
        for (const TabPage& page : doc.tabPunkte.pages)
            if (page.visible)
                shown += page.text + ";";
        return shown;
    };
    SetRows({{.t = 0, .cA = 1, .cB = 2, .T = 300, .k = 1}, {.t = 1, .cA = 0.5, .cB = 1}});
    Open(kKindPoints);
    EXPECT_EQ(pages(), "c(A);c(B);");
    EXPECT_TRUE(doc.surface.legend.visible) << "the points of this kind have a legend";
    EXPECT_EQ(GetSeriesLabel(doc.surface, kPoints, 2), "c(B)");
    EXPECT_EQ(LegendLines(doc.surface).size(), 2U);

    Open(kKindFirstOrder);
    EXPECT_EQ(pages(), "Fu(c);");
    EXPECT_FALSE(doc.surface.legend.visible);
    Open(kKindKOfT);
    EXPECT_EQ(pages(), "") << "one k-T point is not offered for design";
    EXPECT_EQ(GetPointCount(doc.surface, kPoints, kPairSet), 2);
    ps.ModelId = 10;
    Open(kKindMichaelisMenten);
    EXPECT_EQ(pages(), "r-c(S);");
    EXPECT_EQ(doc.txtLegendPoints(6).text, "r-c(S)");
    Open(kKindPoints);
    EXPECT_EQ(pages(), "c(E);c(S);");

    SetRows({{.t = 1, .cB = 2}, {.t = 2, .cB = 1, .T = 300, .k = 1}, {.T = 310, .k = 2}});
    ps.ModelId = 2;
    Open(kKindArrhenius);
    EXPECT_EQ(pages(), "k-T;");
    Open(kKindSecondOrder);
    EXPECT_EQ(pages(), "") << "no c(A) in the data";
}

TEST_F(Points, OutsideTheFrameAreWarnedOf) {
    SetRows({{.t = 500, .cA = 1}});
    const std::string outside =
        "WARNING|all experimental points are outside the coordinate range of the diagram\r\n";
    ps.WithExpPoints = true;
    ps.c0[1] = 1;
    ps.k[1] = 0.1;
    ps.tMax = 10;
    DrawModel(2);
    EXPECT_THAT(Messages(), testing::ElementsAre(
                                outside + "Check if the experimental points fit to this diagram "
                                          "\r\nor increase the range of the diagram axes"));
    scripted.boxes.clear();
    Press(doc.mnuAddPunkte);
    EXPECT_THAT(Messages(), testing::ElementsAre(outside + "Enlarge the range of coordinates."));
    scripted.boxes.clear();

    ps.ModelId = 11;
    DrawModel(11);
    scripted.boxes.clear();
    SetRows({{.t = 1, .cB = 1}});
    Press(doc.mnuAddPunkte);
    EXPECT_THAT(Messages(),
                testing::ElementsAre("Execution not possible|For this diagram no c-t points are "
                                     "loaded.\r\nLoad concentration data from file or use the Data "
                                     "Editor for manual input."));
}

TEST_F(Points, FromTheEditorReplaceOthersOnlyWhenTheUserSaysSo) {
    ps.DiagramKind = kKindResidenceFirst;
    GrafZentrale(ps, doc);
    ps.ManualBuf = {{2, 0}, {1, 0.5F}, {2, 0.7F}};
    ps.PresetColor = kRed;
    Press(doc.cmdManuPoints);
    EXPECT_EQ(GetPointCount(doc.surface, kPoints, kManualSet), 2);
    EXPECT_EQ(GetSeriesLabel(doc.surface, kPoints, kManualSet), "manual");
    EXPECT_EQ(GetSymbol(doc.surface, kPoints, kManualSet).colour, kRed);
    EXPECT_TRUE(doc.mnuSubDelPoints(kManualSet).enabled);
    EXPECT_EQ(doc.tabPunkte.selected, 6);
    ps.ManualBuf[0].x = 1;
    scripted.answers = {Answer::No, Answer::Yes};
    Press(doc.cmdManuPoints);
    EXPECT_EQ(GetPointCount(doc.surface, kPoints, kManualSet), 2);
    EXPECT_EQ(scripted.boxes[0].text, "Overwright the loaded data set?");
    EXPECT_EQ(scripted.boxes[0].preset, Answer::No);
    Press(doc.cmdManuPoints);
    EXPECT_EQ(GetPointCount(doc.surface, kPoints, kManualSet), 1);
}

TEST_F(Points, TakeStylesFromThePanel) {
    SetRows({{.t = 0, .cA = 1}});
    Open(kKindPoints);
    Choose(doc.cmbPunktStil(1), 10);
    EXPECT_EQ(GetSymbol(doc.surface, kPoints, 1).shape, SymbolShape::Hidden);
    Move(doc.UpDown1_PointSize(1), 12);
    scripted.colours = {kRed};
    Press(doc.cmdPunktFarbe(1));
    EXPECT_EQ(GetSymbol(doc.surface, kPoints, 1), (SymbolStyle{SymbolShape::Hidden, 12, kRed}));
    mnuPunktDesign_Click(ps, doc);
    EXPECT_EQ(doc.cmdPunktFarbe(2).backColour, ps.PresetColor) << "an empty set shows the preset";
    EXPECT_EQ(doc.Label56(1).text, "12");
}

TEST_F(Points, AreDeletedSetBySetOrAll) {
    SetRows({{.t = 0, .cA = 1, .cB = 2}});
    Open(kKindPoints);
    doc.fraPunkte.visible = true;
    mnuDelete_Click(doc);
    EXPECT_TRUE(doc.mnuSubDelPoints(2).visible);
    EXPECT_FALSE(doc.mnuSubDelPoints(3).visible);
    Press(doc.mnuSubDelPoints(2));
    EXPECT_EQ(GetPointCount(doc.surface, kPoints, 2), 0);
    EXPECT_FALSE(doc.tabPunkte.pages[1].visible);
    EXPECT_FALSE(doc.mnuSubDelPoints(2).enabled);
    EXPECT_FALSE(doc.fraPunkte.visible);
    EXPECT_EQ(GetPointCount(doc.surface, kPoints, 1), 1);
    Press(doc.mnuAddPunkte);
    EXPECT_EQ(GetSeriesLabel(doc.surface, kPoints, 2), "c(B)") << "loaded again with its legend";
    Press(doc.mnuSubDelPoints(0));
    EXPECT_EQ(GetPointCount(doc.surface, kPoints, 1), 0);
    EXPECT_TRUE(LegendLines(doc.surface).empty());
}

} // namespace
} // namespace zorvant
