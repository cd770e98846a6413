// What a user writes into a diagram and takes out of it: marks, texts, a curve as data.
#include "data/formats/xy.h"
#include "dialogs/diagram/curve_export.h"
#include "dialogs/diagram/curve_panel.h"
#include "dialogs/diagram/diagram_marks.h"
#include "dialogs/diagram/diagram_texts.h"
#include "platform/files.h"
#include "tests/temp_folder.h"

#include "fixture.h"

namespace zorvant {
namespace {

using testing::StartsWith;

struct Notes : DiagramTest {};

// --- marks

TEST_F(Notes, TellsTheHalfLifeInTheResultLine) {
    SetRows({{.t = 0, .cA = 0.5}, {.t = 10, .cA = 0.25}, {.t = 20, .cA = 0.12}});
    Open(kKindSecondOrder); // the line gives k
    Press(doc.mnuHalbA);
    EXPECT_NEAR(GetX(doc.surface, kLines, kHalfLifeASeries, 1), 1 / (2 * ps.k[1] * 0.5), 1e-4);
    EXPECT_THAT(doc.StatusBar2.text, StartsWith("Half-life tau(A) = "));
    EXPECT_TRUE(doc.mnuDelTotal.enabled && doc.mnuDelHalbAB.enabled);
    Press(doc.mnuDelHalbAB);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, kHalfLifeASeries), 0);
    EXPECT_FALSE(doc.mnuDelHalbAB.enabled);

    // Where a box has told that there is none, the line stays.
    ps.c0 = {0, 1, 0, 0, 0, 0};
    ps.k = {0, 0.001, 0.1, 0};
    ps.NumericModel = false;
    DrawModel(8);
    doc.StatusBar2.text = "before";
    Press(doc.mnuHalbA);
    EXPECT_EQ(Messages().back(), "Execution not possible|c(A) = c(A,0)/2 cannot be reached");
    EXPECT_EQ(doc.StatusBar2.text, "before");
}

TEST_F(Notes, MarksTheResidenceTime) {
    DrawModel(2);
    ps.tVerweil = 42;
    Press(doc.cmdMarkConti);
    EXPECT_EQ(GetLabel(doc.surface, kResidenceSeries).text, "          act. mean residence time");
    EXPECT_EQ(LabelPosition(doc.surface, kResidenceSeries)->x, 42);
    Press(doc.mnuDelMarkLabels);
    for (int i = 1; i <= kPlotLabels; ++i)
        EXPECT_FALSE(GetLabel(doc.surface, i).visible) << i;
    EXPECT_EQ(GetPointCount(doc.surface, kLines, kResidenceSeries), 2) << "its line stays";
}

// --- texts

TEST_F(Notes, EditsEachTextInItsPlace) {
    DrawModel(2);
    const PlotSurface& s = doc.surface;
    const std::string* const texts[] = {&s.header.text, &s.footer.text, &s.axes[0].title,
                                        &s.axes[1].title};
    for (int target = 1; target <= 4; ++target) {
        Press(doc.mnuTextDesign(target));
        const std::string& text = *texts[target - 1];
        EXPECT_EQ(doc.schrift.text, text);
        EXPECT_EQ(doc.HScroll1.visible, target <= 2) << "titles stand at their axes";
        const std::string before = text;
        Type(doc.schrift, "\rab\nc\r"); // Enter, a b, Ctrl+Enter, c, Enter
        EXPECT_EQ(text, before + "ab\nc") << "written through at once";
        EXPECT_EQ(doc.schrift.text, before + "ab\r\nc");
    }
    EXPECT_FALSE(doc.mnuAddText.enabled) << "there is one";
    Press(doc.mnuTextDesign(2));
    SetText(doc.schrift, "");
    EXPECT_TRUE(doc.mnuAddText.enabled);
}

TEST_F(Notes, ShapesTheTextOfTheTarget) {
    DrawModel(2);
    doc.surface.layout.picture = {0, 0, 400, 300};
    doc.surface.layout.header = {100, 6, 200, 20};
    Press(doc.mnuTextDesign(1));
    EXPECT_EQ(doc.HScroll1.value, 250);
    EXPECT_EQ(doc.VScroll1.value, 20);
    EXPECT_FALSE(doc.cmdTextPlaceAuto.enabled);
    Move(doc.HScroll1, 100);
    EXPECT_EQ(doc.surface.header.location, (Location{0.1, 0.02, false}));
    Press(doc.cmdTextPlaceAuto);
    EXPECT_TRUE(doc.surface.header.location.automatic);

    Press(doc.mnuTextDesign(4));
    const PlotAxis& y = GetAxis(doc.surface, AxisId::Y);
    const FontChoice numbers = y.font;
    host().chooseFont = [](const FontChoice&) { return FontChoice{"Times New Roman", 14}; };
    Press(doc.cmdFont);
    EXPECT_EQ(y.titleFont.size, 14);
    EXPECT_EQ(y.font, numbers);
}

// --- a curve as data

TEST_F(Notes, HandsACurveOutAsData) {
    TempFolder folder;
    ps.tMax = 300;
    DrawModel(4);
    mnuKurvenDesign_Click(ps, doc);
    Choose(doc.tabKurven, 1);
    const PlotSeries& curve = GetSeries(doc.surface, kLines, 2);
    Press(doc.cmdClipboard);
    ASSERT_TRUE(scripted.clipboard);
    EXPECT_THAT(*scripted.clipboard,
                StartsWith("0\t0.8\r\n1.5\t" + SingleText(curve.y[1]) + "\r\n"));
    EXPECT_EQ(std::ranges::count(*scripted.clipboard, '\n'), std::ssize(curve.x));

    for (int index = 0; index < 3; ++index) {
        Choose(doc.cmbSep, index);
        const std::string path = folder / "curve.XY";
        scripted.files.push_back(FileChoice{path});
        Press(doc.cmdSaveCurveAsXY);
        EXPECT_EQ(ps.XYFile, path);
        EXPECT_EQ(ps.XYDir + "/", folder.Path());
        const std::string bytes = ReadFile(path);
        const std::string separator =
            std::array{";", ",", "\t"}.at(static_cast<std::size_t>(index));
        EXPECT_THAT(
            bytes, StartsWith("\"Curve points\"\r\n.0000000E+00" + separator + ".8000000E+00\r\n"));
        const XYFile read = ParseXY(bytes);
        ASSERT_EQ(read.points.size(), curve.x.size());
        EXPECT_EQ(read.badLines, 0);
        for (std::size_t i = 0; i < read.points.size(); ++i)
            ASSERT_NEAR(static_cast<double>(read.points[i].y), curve.y[i], 1e-6);
    }
    EXPECT_EQ(scripted.fileRequests.back().title, "Save curve under ...");
    EXPECT_TRUE(scripted.fileRequests.back().overwritePrompt);

    scripted.files.push_back(FileChoice{folder / "none/curve.XY"});
    Press(doc.cmdSaveCurveAsXY);
    EXPECT_EQ(scripted.boxes.back().title, "Message from cmdSaveCurveAsXY");
    EXPECT_EQ(scripted.boxes.back().icon, Icon::Critical);
}

} // namespace
} // namespace zorvant
