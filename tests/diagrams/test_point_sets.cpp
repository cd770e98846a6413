// Which rows of the data set become points of which kind.
#include "diagrams/point_sets.h"

#include "fixture.h"

namespace zorvant {
namespace {

struct PointSets : DiagramRecord {
    std::vector<int> Load(int kind, int model) {
        ps.DiagramKind = kind;
        ps.ModelId = model;
        FuMaskenSetzen(ps, kind);
        bool anyInside = false;
        FuPunkteLaden(ps, surface, anyInside);
        std::vector<int> counts;
        for (int set = 1; set <= kPointSets; ++set)
            counts.push_back(GetPointCount(surface, kPoints, set));
        return counts;
    }
};

TEST_F(PointSets, OfEvaluationsTakeTheRowsThatTheirFormulaNeeds) {
    // row 4 is switched off, row 5 lacks what most kinds need
    const std::vector<ExpPoint> rows = {
        {.t = 0, .cA = 0.8, .cB = 0.5, .T = 300, .k = 0.1, .lambda = 2},
        {.t = 10, .cA = 0.4, .cB = 0.25, .T = 320, .k = 0.3, .lambda = 5},
        {.t = 0.3, .cA = 0.1, .cB = 0.7, .T = 0, .k = 0.5, .lambda = 8},
        {.t = 40, .cA = 0.1, .cB = 0.7, .T = 350, .k = 0.5, .lambda = 9, .exclude = -1},
        {.t = 50, .cA = 0, .cB = 0, .T = 360, .k = 0, .lambda = 0},
    };
    struct Row {
        int kind, set;
        const char* taken; // rows
        double x2, y2;     // of row 2; x as Single where it is computed
    };
    ps.LambdaInf = 10;
    constexpr auto single = [](double x) { return static_cast<double>(static_cast<float>(x)); };
    for (const Row& row :
         {Row{kKindMichaelisMenten, 6, "123", 0.25, 10}, Row{kKindEadie, 6, "23", 40, 10},
          Row{kKindHanesWoolf, 6, "23", 0.25, 0.025}, Row{kKindLineweaverBurk, 6, "23", 4, 0.1},
          Row{kKindLambdaSecondOrder, 1, "123", 10, 2},
          Row{kKindLambdaFirstOrder, 1, "123", 10, std::log(5.0 / 8)},
          Row{kKindMixedSecondOrder, 1, "123", 10, std::log(0.4 / 0.25)},
          Row{kKindWilkinson, 1, "235", 10, 20}, Row{kKindSecondOrder, 1, "123", 10, 2.5},
          Row{kKindFirstOrder, 1, "123", 10, std::log(0.4)},
          Row{kKindEyring, 6, "12", single(1.0 / 320), std::log(0.3 / 320)},
          Row{kKindArrhenius, 6, "12", single(1.0 / 320), std::log(0.3)},
          Row{kKindKOfT, 6, "125", 320, 0.3}}) {
        SetRows(rows);
        ps.LambdaMode = row.kind == kKindLambdaFirstOrder || row.kind == kKindLambdaSecondOrder;
        Load(row.kind, row.kind <= kKindLineweaverBurk ? 10 : 2);
        const PlotSeries& set = GetSeries(surface, kPoints, row.set);
        ASSERT_EQ(set.x.size(), rows.size()) << row.kind;
        std::string taken;
        for (int i = 1; i <= 5; ++i)
            if (!IsHole(set, i))
                taken += std::to_string(i);
        EXPECT_EQ(taken, row.taken) << row.kind;
        EXPECT_EQ(set.x[1], row.x2) << row.kind;
        EXPECT_NEAR(set.y[1], row.y2, 2e-7 * std::abs(row.y2)) << row.kind;
        for (int number = 1; number <= kPointSets; ++number)
            EmptyPointSet(surface, number);
    }
}

TEST_F(PointSets, OfConcentrationsGoToTheSetsOfTheirSpecies) {
    SetRows({{.t = 0.1, .cA = 0.1, .cP = 0.3}, {.t = 0.2, .cP = 0.4}});
    const std::vector<int> both{2, 0, 0, 2, 0, 0, 0};
    EXPECT_EQ(Load(kKindPoints, 2), both);
    EXPECT_EQ(GetX(surface, kPoints, 1, 1), static_cast<double>(0.1F)) << "t as Single";
    EXPECT_EQ(GetY(surface, kPoints, 1, 1), 0.1) << "c in full";
    EXPECT_EQ(Load(kKindFitPoints, 2), both);
    EXPECT_EQ(ps.SpeciesMask, "10010") << "the fit shows what its model has";
    EXPECT_EQ(Load(6, 6), both);
    for (int set = 1; set <= kPointSets; ++set)
        EmptyPointSet(surface, set);
    EXPECT_EQ(Load(6 + kRateKinds, 6), std::vector<int>(7, 0)) << "rates have no measured points";
    ps.SingleSpecies = 4;
    EXPECT_EQ(Load(kKindSingleSpecies, 6), (std::vector<int>{0, 0, 0, 2, 0, 0, 0}));
}

} // namespace
} // namespace zorvant
