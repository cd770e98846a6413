// Which rows of the data set become points of which kind.
#include "fixture.h"

namespace zorvant {
namespace {

struct Points : Diagram {
    /// x and y of a set, holes as nothing.
    std::vector<std::optional<std::pair<double, double>>> Set(int set) {
        std::vector<std::optional<std::pair<double, double>>> points;
        const PlotSeries& series = GetSeries(doc.surface, kPoints, set);
        for (std::size_t i = 0; i < series.x.size(); ++i)
            if (series.x[i] == kHole)
                points.push_back(std::nullopt);
            else
                points.emplace_back(std::pair(series.x[i], series.y[i]));
        return points;
    }
};

TEST_F(Points, OfEveryKindAreItsTransformedRows) {
    // row 4 is switched off, row 5 lacks what most kinds need
    const std::vector<ExpPoint> rows = {
        {.t = 0, .cA = 0.8, .cB = 0.5, .T = 300, .k = 0.1, .lambda = 2},
        {.t = 10, .cA = 0.4, .cB = 0.25, .T = 320, .k = 0.3, .lambda = 5},
        {.t = 0.3, .cA = 0.1, .cB = 0.7, .T = 0, .k = 0.5, .lambda = 8},
        {.t = 40, .cA = 0.1, .cB = 0.7, .T = 350, .k = 0.5, .lambda = 9, .exclude = -1},
        {.t = 50, .cA = 0, .cB = 0, .T = 360, .k = 0, .lambda = 0},
    };
    using Value = double (*)(const ExpPoint&);
    struct Row {
        int kind, set;
        std::vector<int> taken; // rows
        Value x, y;
        bool wideX; // plain values keep their double
    };
    constexpr Value t = [](const ExpPoint& p) { return p.t; };
    constexpr Value cB = [](const ExpPoint& p) { return p.cB; };
    constexpr Value inverseT = [](const ExpPoint& p) { return 1 / p.T; };
    ps.LambdaInf = 10;
    for (const Row& row : std::vector<Row>{
             {-15, 6, {1, 2, 3}, cB, t, true},
             {-14, 6, {2, 3}, [](const ExpPoint& p) { return p.t / p.cB; }, t, false},
             {-13, 6, {2, 3}, cB, [](const ExpPoint& p) { return p.cB / p.t; }, true},
             {-12,
              6,
              {2, 3},
              [](const ExpPoint& p) { return 1 / p.cB; },
              [](const ExpPoint& p) { return 1 / p.t; },
              false},
             {-11,
              1,
              {1, 2, 3},
              t,
              [](const ExpPoint& p) {
                  return 8 / (10 - static_cast<double>(p.lambda)) / static_cast<double>(0.8F);
              },
              false},
             {-10,
              1,
              {1, 2, 3},
              t,
              [](const ExpPoint& p) { return std::log((10 - static_cast<double>(p.lambda)) / 8); },
              false},
             {-8, 1, {1, 2, 3}, t, [](const ExpPoint& p) { return std::log(p.cA / p.cB); }, false},
             {-7,
              1,
              {2, 3, 5},
              t,
              [](const ExpPoint& p) {
                  return p.t * static_cast<double>(0.8F) / (static_cast<double>(0.8F) - p.cA);
              },
              false},
             {-6, 1, {1, 2, 3}, t, [](const ExpPoint& p) { return 1 / p.cA; }, false},
             {-5, 1, {1, 2, 3}, t, [](const ExpPoint& p) { return std::log(p.cA); }, false},
             {-4,
              6,
              {1, 2},
              inverseT,
              [](const ExpPoint& p) { return std::log(p.k / p.T); },
              false},
             {-3, 6, {1, 2}, inverseT, [](const ExpPoint& p) { return std::log(p.k); }, false},
             {-2,
              6,
              {1, 2, 5},
              [](const ExpPoint& p) { return p.T; },
              [](const ExpPoint& p) { return p.k; },
              true},
         }) {
        SetRows(rows);
        ps.ModelId = row.kind <= -12 ? 10 : 2;
        ps.LambdaMode = row.kind == -10 || row.kind == -11;
        FuMaskenSetzen(ps, row.kind);
        ps.DiagramKind = row.kind;
        bool anyInside = false;
        FuPunkteLaden(ps, doc, anyInside);
        const auto points = Set(row.set);
        ASSERT_EQ(points.size(), rows.size()) << row.kind;
        for (int i = 1; i <= 5; ++i) {
            const auto& point = points[static_cast<std::size_t>(i - 1)];
            const bool taken = std::ranges::find(row.taken, i) != row.taken.end();
            ASSERT_EQ(point.has_value(), taken) << row.kind << " row " << i;
            if (!taken)
                continue;
            const ExpPoint& source = rows[static_cast<std::size_t>(i - 1)];
            const double x = row.x(source), y = row.y(source);
            EXPECT_EQ(point->first, row.wideX ? x : static_cast<double>(static_cast<float>(x)))
                << row.kind << " row " << i;
            EXPECT_FLOAT_EQ(static_cast<float>(point->second), static_cast<float>(y))
                << row.kind << " row " << i;
        }
        for (int set = 1; set <= kPointSets; ++set)
            SetPointCount(doc.surface, kPoints, set, 0);
    }
}

TEST_F(Points, OfConcentrationsGoToTheSetsOfTheirSpecies) {
    SetRows({{.t = 0.1, .cA = 0.1, .cP = 0.3}, {.t = 0.2, .cP = 0.4}});
    const auto sizes = [&] {
        std::vector<int> counts;
        for (int set = 1; set <= kPointSets; ++set)
            counts.push_back(GetPointCount(doc.surface, kPoints, set));
        return counts;
    };
    Open(-1);
    EXPECT_EQ(sizes(), (std::vector<int>{2, 0, 0, 2, 0, 0, 0}));
    EXPECT_EQ(GetX(doc.surface, kPoints, 1, 1), static_cast<double>(0.1F)) << "t as Single";
    EXPECT_EQ(GetY(doc.surface, kPoints, 1, 1), 0.1) << "c in full";

    ps.ModelId = 2;
    Open(-9);
    EXPECT_EQ(ps.SpeciesMask, "10010") << "the fit shows what its model has";
    EXPECT_EQ(sizes(), (std::vector<int>{2, 0, 0, 2, 0, 0, 0}));

    ps.WithExpPoints = true;
    ps.FitMode = 0;
    ps.c0[1] = 1;
    ps.k[1] = 1;
    ps.tMax = 1;
    DrawModel(6);
    EXPECT_EQ(sizes(), (std::vector<int>{2, 0, 0, 2, 0, 0, 0}));
    DrawModel(6, true);
    EXPECT_EQ(sizes(), (std::vector<int>(7, 0))) << "rates have no measured points";

    ps.SingleSpecies = 4;
    ps.Memory.RngC = {0, 1};
    SetRows({{.t = 0, .cP = 0.1}, {.t = 1, .cP = 0.2}, {.t = 2, .cP = 0.4}});
    Open(100);
    EXPECT_EQ(sizes(), (std::vector<int>{0, 0, 0, 3, 0, 0, 0}));
    EXPECT_TRUE(doc.tabPunkte.pages[3].visible);
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
    Open(-1);
    EXPECT_EQ(pages(), "c(A);c(B);");
    EXPECT_TRUE(doc.surface.legend.visible) << "the points of this kind have a legend";
    EXPECT_EQ(GetSeriesLabel(doc.surface, kPoints, 2), "c(B)");
    EXPECT_EQ(LegendLines(doc.surface).size(), 2U);

    Open(-5);
    EXPECT_EQ(pages(), "Fu(c);");
    EXPECT_FALSE(doc.surface.legend.visible);
    Open(-2);
    EXPECT_EQ(pages(), "") << "one k-T point is not offered for design";
    EXPECT_EQ(GetPointCount(doc.surface, kPoints, kPairSet), 2);
    ps.ModelId = 10;
    Open(-15);
    EXPECT_EQ(pages(), "r-c(S);");
    EXPECT_EQ(doc.txtLegendPoints(6).text, "r-c(S)");
    Open(-1);
    EXPECT_EQ(pages(), "c(E);c(S);");

    SetRows({{.t = 1, .cB = 2}, {.t = 2, .cB = 1, .T = 300, .k = 1}, {.T = 310, .k = 2}});
    ps.ModelId = 2;
    Open(-3);
    EXPECT_EQ(pages(), "k-T;");
    Open(-6);
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
    ps.DiagramKind = 114;
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

TEST_F(Points, HaveSevenDifferentSymbolsAndTakeStyles) {
    SetRows({{.t = 0, .cA = 1}});
    Open(-1);
    for (int set = 1; set <= kPointSets; ++set) {
        EXPECT_EQ(GetSymbol(doc.surface, kPoints, set).shape, static_cast<SymbolShape>(set - 1));
        EXPECT_EQ(GetSymbol(doc.surface, kPoints, set).size, 8);
        EXPECT_EQ(GetLineStyle(doc.surface, kPoints, set).pattern, LinePattern::None);
    }
    Choose(doc.cmbPunktStil(1), 10);
    EXPECT_EQ(GetSymbol(doc.surface, kPoints, 1).shape, SymbolShape::Hidden);
    Move(doc.UpDown1_PointSize(1), 12);
    EXPECT_EQ(GetSymbol(doc.surface, kPoints, 1).size, 12);
    scripted.colours = {kRed};
    Press(doc.cmdPunktFarbe(1));
    mnuPunktDesign_Click(ps, doc);
    EXPECT_EQ(doc.cmdPunktFarbe(1).backColour, kRed);
    EXPECT_EQ(doc.cmdPunktFarbe(2).backColour, ps.PresetColor) << "an empty set shows the preset";
    EXPECT_EQ(doc.Label56(1).text, "12");
}

TEST_F(Points, AreDeletedSetBySetOrAll) {
    SetRows({{.t = 0, .cA = 1, .cB = 2}});
    Open(-1);
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
