// Design files in the window: what is loaded replaces the diagram, damaged ones change nothing.
#include "diagrams/design_file.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/diagram_curves.h"
#include "dialogs/diagram/diagram_design.h"
#include "platform/encoding.h"
#include "platform/files.h"
#include "tests/temp_folder.h"

#include "fixture.h"

namespace zorvant {
namespace {

using testing::HasSubstr;

struct Design : DiagramTest {
    Design() { ps.GraphDir = folder.Path(); }
    std::string Save(const std::string& name) {
        const std::string path = folder / name;
        scripted.files.push_back(FileChoice{path});
        mnuSaveOC2_Click(ps, doc);
        return path;
    }
    void Load(const std::string& path) {
        scripted.files.push_back(FileChoice{path});
        mnuLoadOC2_Click(ps, doc);
    }
    TempFolder folder;
};

TEST_F(Design, MakesTheDiagramAnew) {
    SetRows({{.t = 10, .cA = 0.8, .cB = 0.7}, {.t = 20, .cA = 0.6, .cB = 0.5}});
    ps.WithExpPoints = true;
    DrawModel(4);
    FuKurveLoeschen(ps, doc, 2);
    Press(doc.mnuHalbA);
    SetFooter(doc.surface, "note");
    Press(doc.mnuAddLegend);
    cmdXLog_Click(doc);
    Press(doc.optScaling, 1);
    SetText(doc.txtYGridValue, "0.125");
    const PlotContents before = doc.surface;
    const DiaKoord frame = ps.Frame;
    const std::string path = Save("one.oc2");
    EXPECT_EQ(scripted.fileRequests.back().extension, ".oc2");
    EXPECT_TRUE(scripted.fileRequests.back().overwritePrompt);

    DrawModel(7);
    ASSERT_EQ(ps.CurveCount, 4);
    const std::uint64_t repaints = doc.surface.revision;
    Load(path);
    EXPECT_EQ(doc.surface.revision, repaints + 1);
    EXPECT_TRUE(static_cast<const PlotContents&>(doc.surface) == before);
    EXPECT_EQ(ReadFile(Save("two.oc2")), ReadFile(path));
    EXPECT_EQ(ps.CurveCount, 2);
    EXPECT_TRUE(doc.CurveSlotFree[2] && !doc.CurveSlotFree[1] && !doc.CurveSlotFree[3]);
    EXPECT_TRUE(doc.tabKurven.pages[0].visible && !doc.tabKurven.pages[1].visible);
    EXPECT_TRUE(doc.tabPunkte.pages[0].visible && !doc.tabPunkte.pages[2].visible);
    EXPECT_EQ(doc.tabPunkte.selected, 1);
    EXPECT_TRUE(doc.mnuDelPoints.enabled && doc.mnuSubDelPoints(2).enabled &&
                !doc.mnuSubDelPoints(3).enabled && doc.mnuDelHalbAB.enabled);
    EXPECT_TRUE(doc.chkLegend.checked && doc.mnuDelLegend.enabled && !doc.mnuAddText.enabled);
    EXPECT_EQ(ps.Frame.xMax, frame.xMax);
    EXPECT_EQ(ps.Frame.yMax, frame.yMax);
    EXPECT_EQ(doc.txtYGridValue.text, " .125") << "a spacing set by hand stays";
    EXPECT_EQ(doc.optScaling.selected, 1);
    EXPECT_EQ(doc.scrShiftLab(1).maximum, GetPointCount(doc.surface, kLines, 1));
    EXPECT_TRUE(FuKurvePlatz(ps, doc));
    EXPECT_EQ(doc.CurveSlot, 2) << "the free slot is next";
}

TEST_F(Design, CountsTheCurvesOfADiagram) {
    DrawModel(2);
    PlotContents wide = doc.surface;
    wide.series[kLines].resize(31, wide.series[kLines][1]);
    for (std::size_t i = 1; i <= 30; ++i)
        wide.series[kLines][i] = wide.series[kLines][1];
    wide.labels[3].series = 30;
    WriteFileAtomically(folder / "wide.oc2", WriteDesign(wide));
    Load(folder / "wide.oc2");
    EXPECT_EQ(ps.CurveCount, 24);
    EXPECT_EQ(GetSeriesCount(doc.surface, kLines), kLineSeries);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, kFrameSeries), 2) << "the frame's own";
    EXPECT_FALSE(LabelPosition(doc.surface, 3));
}

TEST_F(Design, ChangesNothingByADamagedFile) {
    DrawModel(4);
    const PlotContents before = doc.surface;
    const std::string good = WriteDesign(before);
    const std::string path = folder / "damaged.oc2";
    WriteFileAtomically(path, std::string_view(good).substr(0, good.size() / 2));
    for (const std::string& file : {path, folder / "none.oc2"}) {
        Load(file);
        ASSERT_FALSE(scripted.boxes.empty());
        EXPECT_EQ(scripted.boxes.back().icon, Icon::Critical);
        EXPECT_TRUE(static_cast<const PlotContents&>(doc.surface) == before);
        EXPECT_EQ(ps.CurveCount, 3);
    }
    EXPECT_THAT(scripted.boxes.front().text, HasSubstr("line "));
    Save("none/folder.oc2");
    EXPECT_EQ(scripted.boxes.size(), 3U);
}

} // namespace
} // namespace zorvant
