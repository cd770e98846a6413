// What a user writes into a diagram and takes out of it: marks, texts, a curve as data.
#include "data/formats/xy.h"
#include "dialogs/diagram/curve_export.h"
#include "dialogs/diagram/diagram_curves.h"
#include "dialogs/diagram/diagram_marks.h"
#include "dialogs/diagram/diagram_texts.h"
#include "engine/closed_forms.h"
#include "evaluation/model_value.h"
#include "platform/files.h"
#include "tests/temp_folder.h"

#include "fixture.h"

namespace zorvant {
namespace {

using testing::StartsWith;

struct Notes : Diagram {
    Notes() {
        ps.c0 = {0, 1, 0.8, 0, 0, 0};
        ps.k = {0, 0.02, 0.01, 0.01};
        ps.tMax = 300;
        ps.PresetColor = 0x2040C0;
    }
    /// What the model dialog sets.
    void NumericModelOf(int model) { ps.NumericModel = !HasClosedForm(model); }
    double MarkAt(int series) const { return GetX(doc.surface, kLines, series, 1); }
};

// --- marks

/// After the half-life that is marked half of the start concentration is left: of the simulated
/// course where there is one.
TEST_F(Notes, MarksWhereHalfIsLeft) {
    struct Row {
        int model;
        bool rates;
        int slot;
    };
    for (const Row& row : {Row{1, false, 1}, Row{2, false, 1}, Row{2, true, 1}, Row{4, false, 2},
                           Row{7, false, 1}, Row{9, true, 2}, Row{13, false, 1}}) {
        const std::string what = std::to_string(row.model) + (row.rates ? " rates" : "");
        NumericModelOf(row.model);
        DrawModel(row.model, row.rates);
        Press(row.slot == 1 ? doc.mnuHalbA : doc.mnuHalbB);
        const int series = row.slot == 1 ? kHalfLifeASeries : kHalfLifeBSeries;
        ASSERT_EQ(GetPointCount(doc.surface, kLines, series), 2) << what;
        const double tau = MarkAt(series);
        EXPECT_EQ(GetX(doc.surface, kLines, series, 2), tau);
        const std::string text =
            std::string(row.slot == 1 ? "Half-life tau(A) = " : "Half-life tau(B) = ") +
            FormatNumber(tau, "#######0.00") + " s";
        EXPECT_EQ(doc.StatusBar2.text, text) << what;
        EXPECT_TRUE(doc.mnuDelTotal.enabled && doc.mnuDelHalbAB.enabled);
        EXPECT_EQ(GetSeries(doc.surface, kLines, series).line,
                  (LineStyle{LinePattern::Dashed, 1, ps.PresetColor}));

        SpeciesArray c{};
        bool err = false;
        FuModellWert(ps, row.model, tau, c, err);
        EXPECT_FALSE(err);
        const auto slot = static_cast<std::size_t>(row.slot);
        EXPECT_NEAR(c[slot], ps.c0[slot] / 2, 2e-4) << what;
    }
    Press(doc.mnuDelHalbAB);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, kHalfLifeBSeries), 0);
    EXPECT_FALSE(doc.mnuDelHalbAB.enabled);
}

TEST_F(Notes, NamesAHalfLifeThatIsNotReached) {
    NumericModelOf(7);
    ps.tMax = 1; // too short
    DrawModel(7);
    Press(doc.mnuHalbA);
    EXPECT_EQ(doc.StatusBar2.text,
              "value of half-life is not inside the diagram range or cannot be "
              "reached under these conditions");
    NumericModelOf(4);
    ps.c0[2] = 0.3; // B is used up before
    DrawModel(4);
    Press(doc.mnuHalbA);
    EXPECT_EQ(doc.StatusBar2.text, "half-life tau(A) cannot be reached under these conditions ");
    ps.c0[1] = 0.1;
    DrawModel(4);
    Press(doc.mnuHalbB);
    EXPECT_EQ(doc.StatusBar2.text, "half-life tau(B) cannot be reached under this conditions ");
    EXPECT_EQ(GetPointCount(doc.surface, kLines, kHalfLifeBSeries), 0);

    // Below 0: a box has told it; the line stays.
    ps.c0 = {0, 1, 0, 0, 0, 0};
    ps.k = {0, 0.001, 0.1, 0};
    NumericModelOf(8);
    DrawModel(8);
    doc.StatusBar2.text = "before";
    Press(doc.mnuHalbA);
    EXPECT_EQ(Messages().back(), "Execution not possible|c(A) = c(A,0)/2 cannot be reached");
    EXPECT_EQ(doc.StatusBar2.text, "before");
}

TEST_F(Notes, TakesDataOrTubeForTheMark) {
    SetRows({{.t = 0, .cA = 0.5}, {.t = 10, .cA = 0.25}, {.t = 20, .cA = 0.12}});
    Open(kKindSecondOrder); // the line gives k
    Press(doc.mnuHalbA);
    EXPECT_NEAR(MarkAt(kHalfLifeASeries), 1 / (2 * ps.k[1] * 0.5), 1e-4);

    ps.IsTubular = true;
    ps.vRohr = 0.1;
    ps.k[1] = 0.02;
    DrawModel(2);
    Press(doc.mnuHalbA);
    EXPECT_NEAR(MarkAt(kHalfLifeASeries), 0.1 * std::log(2) / 0.02, 1e-5) << "m from the inlet";
    EXPECT_THAT(doc.StatusBar2.text, StartsWith("Half-life tau(A) = 34.66 s"));
}

TEST_F(Notes, MarksTheResidenceTime) {
    DrawModel(2);
    ps.tVerweil = 42;
    Press(doc.cmdMarkConti);
    EXPECT_EQ(MarkAt(kResidenceSeries), 42);
    const PlotLabel& label = GetLabel(doc.surface, kResidenceSeries);
    EXPECT_EQ(label.text, "          act. mean residence time");
    EXPECT_EQ(LabelPosition(doc.surface, kResidenceSeries)->x, 42);
    EXPECT_EQ(label.colours.fore, kBlack);
    EXPECT_TRUE(doc.mnuDelHalbAB.enabled);
    doc.mnuDelete.onOpen();
    Press(doc.mnuDelMarkLabels);
    for (int i = 1; i <= kPlotLabels; ++i)
        EXPECT_FALSE(GetLabel(doc.surface, i).visible) << i;
    EXPECT_FALSE(doc.chkEinzelLabelSichtbar(1).checked);
    doc.mnuDelete.onOpen();
    EXPECT_FALSE(doc.mnuDelMarkLabels.enabled);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, kResidenceSeries), 2) << "its line stays";
}

// --- texts

TEST_F(Notes, EditsEachTextInItsPlace) {
    DrawModel(2);
    struct Row {
        int target;
        const char* caption;
        bool placed, turned;
        std::function<std::string()> text;
    };
    const PlotSurface& s = doc.surface;
    for (const Row& row :
         {Row{1, "Design Header text", true, false, [&] { return s.header.text; }},
          Row{2, "Design Additional text", true, false, [&] { return s.footer.text; }},
          Row{3, "Design X-Axis label", false, false, [&] { return s.axes[0].title; }},
          Row{4, "Design Y-Axis label", false, true, [&] { return s.axes[1].title; }}}) {
        doc.fraTabs.visible = true;
        Press(doc.mnuTextDesign(row.target));
        EXPECT_TRUE(doc.fraSchrift.visible && !doc.fraTabs.visible);
        EXPECT_EQ(doc.fraSchrift.text, row.caption);
        EXPECT_EQ(doc.schrift.text, row.text());
        EXPECT_EQ(doc.HScroll1.visible && doc.VScroll1.visible, row.placed);
        EXPECT_EQ(doc.fraYText.visible && doc.fraYZiff.visible, row.turned);
        const std::string before = row.text();
        Type(doc.schrift, "\rab\nc\r"); // Enter, a b, Ctrl+Enter, c, Enter
        EXPECT_EQ(row.text(), before + "ab\nc") << "written through at once";
        EXPECT_EQ(doc.schrift.text, before + "ab\r\nc");
        Press(doc.cmdSchriftFertig);
        EXPECT_FALSE(doc.fraSchrift.visible);
    }
    EXPECT_FALSE(doc.mnuAddText.enabled) << "there is one";
    Press(doc.mnuTextDesign(2));
    SetText(doc.schrift, "");
    EXPECT_TRUE(doc.mnuAddText.enabled);
    Press(doc.mnuAddText);
    EXPECT_EQ(doc.TextTarget, DiagramText::Additional);
    Press(doc.mnuTextDesign(kCurveTexts));
    EXPECT_TRUE(doc.fraKurven.visible && !doc.fraSchrift.visible);
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
    Press(doc.chkTextFrame, true);
    EXPECT_EQ(doc.surface.header.border.type, BorderType::Plain);
    scripted.colours = {std::nullopt, 0xFFEECC};
    Press(doc.cmdSchriftHFarbe);
    EXPECT_EQ(doc.surface.header.colours.back, kWhite) << "cancelled";
    Press(doc.cmdSchriftHFarbe);
    EXPECT_EQ(doc.surface.header.colours.back, 0xFFEECCU);
    EXPECT_EQ(doc.cmdSchriftHFarbe.backColour, 0xFFEECCU);

    Press(doc.mnuTextDesign(4));
    Press(doc.optOrientYAxText, 0);
    Press(doc.optOrientYAxZiff, 1);
    const PlotAxis& y = GetAxis(doc.surface, AxisId::Y);
    EXPECT_EQ(y.titleRotation, TextRotation::Horizontal);
    EXPECT_EQ(y.annotationRotation, TextRotation::Vertical);
    const FontChoice numbers = y.font;
    host().chooseFont = [](const FontChoice&) { return FontChoice{"Times New Roman", 14}; };
    Press(doc.cmdFont);
    EXPECT_EQ(y.titleFont.size, 14);
    EXPECT_EQ(y.font, numbers);
}

// --- a curve as data

TEST_F(Notes, HandsACurveOutAsData) {
    TempFolder folder;
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
