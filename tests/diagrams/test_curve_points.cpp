// The points of curves of every kind, the slots they stand in, and where half-lives are marked.
#include "diagrams/curve_slots.h"
#include "diagrams/marks.h"
#include "engine/closed_forms.h"
#include "evaluation/model_value.h"

#include "fixture.h"

namespace zorvant {
namespace {

struct Curves : DiagramRecord {
    CurveCalculation Calc(int kind) { return CalcCurve(ps, kind, 1, kCurveSteps, ps.CurveBuf); }
};

TEST_F(Curves, ShowEverySpeciesOfEveryModelInItsOrder) {
    constexpr const char* kOrder[] = {"",        "A P",     "A P",   "A P",     "A B P",    "A P",
                                      "A C P",   "A B C P", "A P",   "A B C P", "E S ES P", "A P Q",
                                      "A B P",   "A B C P", "A C P", "A C P",   "A P Q",    "A B P",
                                      "A B C P", "A B P Q", "A P"};
    for (int model = 1; model <= kModels; ++model)
        for (const bool rates : {false, true}) {
            Calculate(model, rates);
            std::stringstream names(kOrder[model]);
            DiagramTexts texts;
            DescribeDiagram(ps, model, texts, ps.CurvesToDraw);
            for (std::string name; names >> name; --ps.CurvesToDraw) {
                const CurveCalculation made = Calc(rates ? model + kRateKinds : model);
                EXPECT_EQ(made.label, (rates ? "r(" : "c(") + name + ") ") << model;
                EXPECT_FALSE(made.outside || made.failed);
                int species = 1;
                while (name != SpeciesName(model, species))
                    ++species;
                ASSERT_EQ(BufferCount(ps.CurveBuf), 201) << model;
                for (const std::size_t i : {0U, 1U, 77U, 200U}) {
                    const double y =
                        rates ? static_cast<double>(rSim(ps, species)[i]) : cSim(ps, species)[i];
                    EXPECT_EQ(ps.CurveBuf[i + 1].x, static_cast<float>(ps.tSim[i]));
                    EXPECT_EQ(ps.CurveBuf[i + 1].y, static_cast<float>(y)) << model << name;
                }
            }
            EXPECT_EQ(ps.CurvesToDraw, 0) << model;
        }
}

TEST_F(Curves, OfSaturationAreOneWithoutName) {
    ps.MMDiagram = true;
    ps.KM = 1;
    Calculate(10);
    ps.CurvesToDraw = 1;
    EXPECT_EQ(Calc(10).label, "");
    EXPECT_EQ(ps.CurveBuf[201].x, 20);
    EXPECT_NEAR(static_cast<double>(ps.CurveBuf[201].y), 20.0 / 21, 1e-7);
}

TEST_F(Curves, OfNonIsothermalFitsAreNamedByTheirTemperature) {
    ps.FitMode = kFitFirstOrderT;
    ps.Temperatures = {0, 298.15F, 1310};
    Calculate(2);
    ps.CurvesToDraw = 1;
    EXPECT_EQ(CalcCurve(ps, 2, 1, kCurveSteps, ps.CurveBuf).label, "T/K = 298.15");
    EXPECT_EQ(CalcCurve(ps, 2, 2, kCurveSteps, ps.CurveBuf).label, "T/K = 1310");
}

TEST_F(Curves, OfATracerRunFromZeroToAHundredPercent) {
    ps.TracerBuf = {4, 0.1F, 0.4F, 0.2F, 0.05F};
    EXPECT_FALSE(Calc(kKindTracer).outside);
    EXPECT_EQ(PointsOf(ps.CurveBuf).x, (std::vector<double>{25, 50, 75, 100}));
    // counts of one, none, more than there are, and no number at all
    for (const float count : {1.0F, 0.0F, 9.0F, NAN}) {
        ps.TracerBuf = {count, 0.5F};
        EXPECT_TRUE(Calc(kKindTracer).outside) << "one value is no signal";
    }
}

TEST_F(Curves, OfBloodAlcoholAreGivenPerMass) {
    ps.NPoints = 3;
    ps.tSim = {0, 1, 2, 3};
    ps.cSimA = {0, 1.055, 0.5275, 0.211};
    Calc(kKindBloodAlcohol);
    EXPECT_EQ(BufferCount(ps.CurveBuf), 4);
    EXPECT_EQ(ps.CurveBuf[2].y, 1);
    EXPECT_EQ(ps.CurveBuf[3].y, 0.5);
}

TEST_F(Curves, ThroughMeasuredPointsStartAtZeroWhateverTheFrame) {
    SetRows({{.t = 0, .cB = 0},
             {.t = 1, .cB = 3, .exclude = -1},
             {.t = 2, .cB = 4},
             {.t = 4, .cB = 2},
             {.t = 6, .cB = 1}});
    ps.SingleSpecies = 2;
    ps.Frame.xMin = 2;
    ps.Frame.xMax = 6;
    ASSERT_FALSE(Calc(kKindSingleSpecies).failed);
    const CurvePoints curve = PointsOf(ps.CurveBuf);
    EXPECT_EQ(curve.x.front(), 0);
    EXPECT_NEAR(static_cast<double>(curve.x.size()), 6 / (4.0 / 300 * 0.5) + 1, 1);
    // a step is 1/150: the knots are points of the curve, switched-off rows among them
    for (const auto& [t, c] : {std::pair(0, 0.0), std::pair(1, 3.0), std::pair(4, 2.0)})
        EXPECT_NEAR(curve.y[static_cast<std::size_t>(t * 150)], c, 1e-3) << t;
    // a frame far from 0 must not take for ever
    ps.Frame.xMin = 1e6F;
    ps.Frame.xMax = 1e6F + 1;
    Calc(kKindSingleSpecies);
    EXPECT_LE(BufferCount(ps.CurveBuf), kCurveBufferPoints + 1);
    SetRows({{.t = 1, .cB = 3}, {.t = 2, .cB = 4}});
    EXPECT_TRUE(Calc(kKindSingleSpecies).failed) << "too few for a spline";
}

TEST_F(Curves, ThatAreNotFiniteAreAnError) {
    Calculate(2);
    for (const double bad : {double{NAN}, double{INFINITY}, 1e300}) {
        ps.cSimA[100] = bad;
        ps.CurvesToDraw = 2;
        const CurveCalculation made = Calc(2);
        EXPECT_TRUE(made.failed);
        EXPECT_EQ(made.note, "Overflow\r\nMessage from CalcCurve");
        EXPECT_EQ(BufferCount(ps.CurveBuf), 100) << "as far as it came";
    }
}

TEST_F(Curves, CountNoMoreThanTheyHold) {
    const PointBuffer lies = {{9e9F, 0}, {1, 0.1F}, {5, 0.2F}};
    WriteCurve(surface, 2, lies);
    EXPECT_EQ(GetSeries(surface, kLines, 2).x, (std::vector<double>{1, 5}));
    EXPECT_EQ(WithoutPoint(GetSeries(surface, kLines, 2), 1).size(), 2U);
}

// --- marks

/// After the half-life that is marked half of the start concentration is left: of the simulated
/// course where there is one.
TEST_F(Curves, HaveTheirHalfLifeMarkedWhereHalfIsLeft) {
    struct Row {
        int model;
        bool rates;
        int slot;
    };
    for (const Row& row : {Row{1, false, 1}, Row{2, false, 1}, Row{2, true, 1}, Row{4, false, 2},
                           Row{7, false, 1}, Row{9, true, 2}, Row{13, false, 1}}) {
        const std::string what = std::to_string(row.model) + (row.rates ? " rates" : "");
        ps.c0 = {0, 1, 0.8, 0, 0, 0};
        ps.k = {0, 0.02, 0.01, 0.01};
        ps.tMax = 300;
        ps.NumericModel = !HasClosedForm(row.model);
        ps.DiagramKind = row.rates ? row.model + kRateKinds : row.model;
        Calculate(row.model, row.rates);
        const int series = row.slot == 1 ? kHalfLifeASeries : kHalfLifeBSeries;
        const auto note = MarkHalfLife(ps, surface, series);
        ASSERT_TRUE(note && GetPointCount(surface, kLines, series) == 2) << what;
        const double tau = GetX(surface, kLines, series, 1);
        EXPECT_EQ(GetX(surface, kLines, series, 2), tau) << what;
        SpeciesArray c{};
        bool err = false;
        FuModellWert(ps, row.model, tau, c, err);
        EXPECT_FALSE(err);
        const auto slot = static_cast<std::size_t>(row.slot);
        EXPECT_NEAR(c[slot], ps.c0[slot] / 2, 2e-4) << what;
    }
    ps.IsTubular = true;
    ps.vRohr = 0.1;
    ps.DiagramKind = 2;
    Calculate(2);
    EXPECT_EQ(MarkHalfLife(ps, surface, kHalfLifeASeries)->text, "Half-life tau(A) = 34.66 s");
    EXPECT_NEAR(GetX(surface, kLines, kHalfLifeASeries, 1), 0.1 * std::log(2) / 0.02, 1e-5)
        << "m from the inlet";
    RemoveMarks(surface);
    EXPECT_FALSE(AnyMarks(surface));
}

TEST_F(Curves, WithoutAHalfLifeInSightAreTold) {
    struct Row {
        int model, series;
        double a0, b0, tMax;
        const char* text;
    };
    for (const Row& row :
         {Row{7, kHalfLifeASeries, 1, 0.8, 1, // too short
              "value of half-life is not inside the diagram range or cannot be reached under these "
              "conditions"},
          Row{4, kHalfLifeASeries, 1, 0.3, 300, // B is used up before
              "half-life tau(A) cannot be reached under these conditions "},
          Row{4, kHalfLifeBSeries, 0.1, 0.3, 300,
              "half-life tau(B) cannot be reached under this conditions "}}) {
        ps.c0 = {0, row.a0, row.b0, 0, 0, 0};
        ps.tMax = row.tMax;
        ps.NumericModel = !HasClosedForm(row.model);
        ps.DiagramKind = row.model;
        Calculate(row.model);
        EXPECT_EQ(MarkHalfLife(ps, surface, row.series)->text, row.text);
    }
    EXPECT_FALSE(AnyMarks(surface));
}

} // namespace
} // namespace zorvant
