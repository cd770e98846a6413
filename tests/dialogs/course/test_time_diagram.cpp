#include "diagrams/diagram_kinds.h"
#include "dialogs/diagram/dispatcher.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "platform/files.h"
#include "tests/dialogs/workbench.h"

#include <cmath>
#include <filesystem>

namespace zorvant {
namespace {

TEST(TimeDiagramDialog, DrawsTheCourseOfTheFieldsAndRemembersThem) {
    Workbench bench;
    bench.OpenTimeDiagram();
    bench.Retype(bench.time.Inp(0), "2");
    bench.Retype(bench.time.kCombo(1), "0,05");
    bench.Retype(bench.time.kCombo(0), "40");
    Press(bench.time.cmdDrawctDiagram);
    ASSERT_EQ(bench.LastBox(), "");
    EXPECT_EQ(bench.ps.CurveCount, 2);
    EXPECT_NEAR(bench.ps.cSimA[100], 2 * std::exp(-0.05 * 20), 1e-12);
    EXPECT_EQ(bench.time.kCombo(1).items, std::vector<std::string>{"0.05"});
    for (int i = 0; i < 9; ++i) {
        bench.Retype(bench.time.kCombo(1), "0.0" + std::to_string(1 + i % 8));
        Press(bench.time.cmdDrawctDiagram);
    }
    EXPECT_EQ(bench.time.kCombo(1).items, // without the oldest, each once, the present one marked
              (std::vector<std::string>{"0.03", "0.04", "0.05", "0.06", "0.07", "0.08", "0.01"}));
    EXPECT_EQ(bench.time.kCombo(1).index, 6);
    EXPECT_EQ(bench.ps.CurveCount, 2); // each press draws a new diagram
}

TEST(TimeDiagramDialog, DrawsAfterAnyOtherDiagramAndRefusesByWhatItShows) {
    for (const int kind : {kKindPoints, kKindFitPoints, kKindFirstOrder, kKindLineweaverBurk,
                           kKindArrhenius, kKindSingleSpecies, kKindResidenceFirst}) {
        Workbench bench;
        bench.OpenTimeDiagram();
        Press(bench.model.optTyp, 4); // A + B => P
        bench.ps.DiagramKind = kind;
        FuMaskenSetzen(bench.ps, kind);
        GrafZentrale(bench.ps, bench.diagram);
        bench.host.boxes.clear(); // of a diagram without data
        Press(bench.time.cmdDrawctDiagram);
        EXPECT_EQ(bench.LastBox(), "") << kind;
        EXPECT_EQ(bench.ps.CurveCount, 3) << kind;
        EXPECT_EQ(bench.ps.Frame.Header, FindDiagramKind(4)->header) << kind;
        FuMaskenSetzen(bench.ps, kind);
        bench.Retype(bench.time.Inp(1), "0");
        Press(bench.time.cmdDrawctDiagram);
        EXPECT_EQ(bench.LastBox(), "- not yet a valid input of an initial conc. c(B,0)\r\n");
        EXPECT_EQ(bench.host.boxes.back().title, "Execution not possible");
        EXPECT_EQ(bench.time.setFocus, &bench.time.Inp(1));
    }
}

TEST(TimeDiagramDialog, AnOrderOfZeroIsRefusedAndSetBack) {
    Workbench bench;
    bench.OpenTimeDiagram();
    Press(bench.model.optTyp, 0);
    bench.Retype(bench.model.txtOrdnung, "0");
    Press(bench.time.cmdDrawctDiagram);
    EXPECT_EQ(bench.LastBox(), "- input value of the reaction order has to be > 0\r\n");
    EXPECT_EQ(bench.ps.OrderN, 1.5F);
    EXPECT_EQ(bench.model.txtOrdnung.text, " 1.5");
}

TEST(TimeDiagramDialog, TheTableAsksForASecondConstantThatTheDiagramDoesWithout) {
    Workbench bench;
    bench.OpenTimeDiagram();
    Press(bench.model.optTyp, 6);
    bench.Retype(bench.time.kCombo(2), "0");
    Press(bench.time.cmdDrawctDiagram);
    EXPECT_EQ(bench.LastBox(), "");
    Press(bench.time.cmdListe);
    EXPECT_EQ(bench.LastBox(), "- the rate constant has to be k2 > 0\r\n  (you can input a very "
                               "small value, e. g. k2 = 1e-10)\r\n");
    EXPECT_FALSE(bench.table.loaded);
}

TEST(TimeDiagramDialog, AddingCurvesKeepsTheDiagramAndItsFrame) {
    Workbench bench;
    bench.OpenTimeDiagram();
    Press(bench.time.cmdDrawctDiagram);
    bench.Show(bench.time);
    EXPECT_TRUE(bench.time.chkDelDiagram.enabled);
    Press(bench.time.chkDelDiagram, true);
    EXPECT_FALSE(bench.time.chkSpecialScaling.enabled);
    bench.Retype(bench.time.kCombo(1), "0.3");
    const float frameEnd = bench.ps.Frame.yMax;
    Press(bench.time.cmdDrawctDiagram);
    EXPECT_EQ(bench.ps.CurveCount, 4);
    EXPECT_EQ(bench.ps.Frame.yMax, frameEnd);
    UnloadForm(bench.ps.desktop, bench.diagram);
    bench.Show(bench.time);
    EXPECT_FALSE(bench.ps.AddCurves); // no curve left to add to
    EXPECT_FALSE(bench.time.chkDelDiagram.enabled);
}

TEST(TimeDiagramDialog, TheMichaelisMentenCurveEndsWithTheNextActivation) {
    Workbench bench;
    bench.OpenTimeDiagram();
    Press(bench.model.optTyp, 10);
    EXPECT_TRUE(bench.time.fraMichaelis.visible);
    bench.Retype(bench.time.kCombo(1), "2");
    bench.Retype(bench.time.kCombo(2), "0.3");
    bench.Retype(bench.time.kCombo(3), "0.1");
    EXPECT_DOUBLE_EQ(bench.ps.KM, 0.2);
    EXPECT_EQ(bench.time.lblMichaelisK1.text,
              "Michaelis constant KM/(mol/L) = (k< + k3) / k> =  0.2");
    Press(bench.time.cmdMMdiagram);
    EXPECT_EQ(bench.ps.CurveCount, 1);
    EXPECT_EQ(bench.ps.Frame.xMax, 20);
    EXPECT_TRUE(bench.ps.MMDiagram);
    Press(bench.time.chkNormiert, false);
    EXPECT_TRUE(bench.time.txtS0max.visible);
    bench.Show(bench.time);
    EXPECT_FALSE(bench.ps.MMDiagram);
}

TEST(TableDialog, CopiesSavesAndPrintsTheWholeText) {
    Workbench bench;
    bench.OpenTimeDiagram();
    Press(bench.time.cmdListe);
    ASSERT_TRUE(bench.table.loaded);
    const std::string text = bench.table.txtSimTabelle.text;
    EXPECT_NE(text.find(" t/s"), std::string::npos);
    Press(bench.table.cmdClipboard);
    EXPECT_EQ(bench.host.clipboard, text);
    Press(bench.table.cmdPrint);
    EXPECT_EQ(bench.host.printed.at(0), text);

    const auto folder = std::filesystem::path(testing::TempDir()) / "zorvant_table";
    std::filesystem::create_directories(folder);
    const std::string path = (folder / "course.TXT").string();
    bench.host.files = {FileChoice{.path = path}};
    Press(bench.table.cmdSaveTable);
    EXPECT_EQ(ReadFile(path), "\"" + text + "\"\r\n");
    EXPECT_EQ(bench.ps.TableDir, folder.string());
    EXPECT_EQ(bench.host.fileRequests.at(0).title, "Save table as ...");
    Press(bench.table.cmdCloseSimTab);
    EXPECT_FALSE(bench.table.loaded);
}

TEST(TableDialog, AMichaelisMentenTableStaysWhatItWasAskedFor) {
    Workbench bench;
    bench.OpenTimeDiagram();
    Press(bench.model.optTyp, 10);
    Press(bench.time.cmdMichaelisListe);
    ASSERT_TRUE(bench.table.loaded);
    EXPECT_NE(bench.table.txtSimTabelle.text.find("c(S))/KM (norm.)"), std::string::npos);
    EXPECT_FALSE(bench.ps.MMDiagram);
}

} // namespace
} // namespace zorvant
