// What every kind of diagram is called, shows and reads its frame from.
#include "fixture.h"

namespace zorvant {
namespace {

struct DiagramKindTest : DiagramRecord {};

/// One text of each context; what a kind is called where nothing changes it stands in the table of
/// kinds alone.
TEST_F(DiagramKindTest, IsCalledByItsContext) {
    ps.TimeUnitText = "min";
    ps.KM = 0.5;
    ps.SingleSpecies = 4;
    struct Row {
        int kind;
        const char* context;
        int curves;
        const char *header, *xTitle, *yTitle;
    };
    for (const Row& row :
         {Row{kKindLambdaSecondOrder, "model3", 1, "lambda evaluation 2nd order 2A => P", "t/ min",
              "lambda_inf / (lambda_inf-lambda)"},
          Row{kKindLambdaSecondOrder, "lambda0", 1,
              "lambda evaluation 2nd order A + B => P (c(A)0<>c(B)0)", "t/ min",
              "[(lambda_inf-lambda_0)/(lambda_inf-lambda)]/c(A)0"},
          Row{kKindLambdaFirstOrder, "lambda0", 1, "lambda evaluation 1st order A => P", "t/ min",
              "ln [(lambda_inf-lambda)/(lambda_inf-lambda_0)]"},
          Row{kKindFitPoints, "fit2", 1,
              "exper. points concentr. vs. time, fitting order of reaction", "t/ min",
              "c/ (mol/L)"},
          Row{kKindFitPoints, "fit6", 1,
              "exper. points concentr. vs. time, 1st-order, non-isothermal", "t/ min",
              "c(A)/c(A,0)"},
          Row{kKindFitPoints, "fit7", 1,
              "exper. points concentration vs. time, 2nd-order, non-isothermal", "t/ min",
              "c(A)/ (mol/L)"},
          Row{kKindSecondOrder, "equal", 1,
              "evaluation of exp. data according to 2nd-order reaction A + B => P (c(A,0) = "
              "c(B,0)) ",
              "t/ min", "1/(c(A)/ (mol/L))"},
          Row{2, "fit6", 2, "course of concentration for the 1st-order reaction A => P", "t/ min",
              "c(A)/c(A,0)"},
          Row{3, "fit7", 2, "course of concentration for the 2nd-order reaction 2A => P", "t/ min",
              "c(A)/ (mol/L)"},
          Row{7, "plain", 4,
              "course of concentration for the concurrent consecutive reaction  A + B => C;  A + C "
              "=> P",
              "t/ min", "c(A), c(B), c(C), c(P)/ (mol/L)"},
          Row{7, "tube", 4, "concentration profile in the tube", "length l / m",
              "c(A), c(B), c(C), c(P)/ (mol/L)"},
          Row{7, "cstr", 4,
              "CSTR; concurrent consecutive 2nd-order reaction A + B => C; A + C => P",
              "mean residence time in the CSTR t/min", "c(A), c(B), c(C), c(P)/ (mol/L)"},
          Row{7, "cascade", 4,
              "stirred tanks-in-series; concurrent consecutive 2nd-order reaction A + B => C; A + "
              "C => P",
              "stage of the stirred tanks-in-series", "c(A), c(B), c(C), c(P)/ (mol/L)"},
          Row{7, "cascadetime", 4,
              "stirred tanks-in-series; concurrent consecutive 2nd-order reaction A + B => C; A + "
              "C => P",
              "mean residence time in the stirred tanks-in-series t/min",
              "c(A), c(B), c(C), c(P)/ (mol/L)"},
          Row{kEnzymeModel, "mm", 1,
              "MICHAELIS-MENTEN mechanism (enzyme reaction) Michaelis constant KM/(mol/L) = "
              "(k<+k3)/k> =  .5",
              "c(S)/KM      (KM = Michaelis constant)", "r(P) / r(P)(max)"},
          Row{kEnzymeModel + kRateKinds, "mm", 1,
              "enzyme reaction Michaelis-Menten; Michaelis constant KM/(mol/L) = .5",
              "c(S)/KM      (KM = Michaelis constant)", "r(P) / r(P)(max)"},
          Row{7 + kRateKinds, "plain", 4,
              "reaction rates r(i) = (dc(i)/dt), competing consecutuve reaction A + B => C; A + C "
              "=> P",
              "t/ min", "r(A), r(B), r(C), r(P) / (mol/L/min)"},
          Row{kKindSingleSpecies, "plain", 1, "concentration c(P) vs. time", "t/ min",
              "c(P)/ (mol/L)"},
          Row{kKindLineweaverBurk, "plain", 1, "LINEWEAVER/BURK evaluation", "1/c(S) / (L/mol)",
              "1/r(P) / (L min/mol)"},
          Row{kKindBloodAlcohol, "plain", 1, "blood alcohol concentr. BAC = f(t) in the human body",
              "Time t / min", "BAC / (g/kg) = \"per mill\""}}) {
        const std::string context = row.context;
        ps.ModelId = IsModelKind(row.kind) ? ModelOfKind(row.kind) : context == "model3" ? 3 : 2;
        ps.IsTubular = context == "tube";
        ps.IsCSTR = context == "cstr";
        ps.IsCascade = context.starts_with("cascade");
        ps.CascadeTimeAxis = context == "cascadetime";
        ps.FitMode = context.starts_with("fit") ? context[3] - '0' : kNoFit;
        ps.LambdaZero = context == "lambda0" ? 0.25 : 0;
        ps.TwoSpeciesEqual = context == "equal";
        ps.MMDiagram = context.starts_with("mm");
        ps.MMNormalized = context == "mm";
        DiagramTexts texts;
        int curves = 0;
        EXPECT_TRUE(DescribeDiagram(ps, row.kind, texts, curves)) << row.kind << context;
        EXPECT_EQ(texts, (DiagramTexts{row.header, row.xTitle, row.yTitle})) << context;
        EXPECT_EQ(curves, row.curves) << row.kind << context;
    }
    DiagramTexts kept{"h", "x", "y"};
    int curves = 7;
    EXPECT_FALSE(DescribeDiagram(ps, 33, kept, curves)) << "no such kind";
    EXPECT_EQ(kept, (DiagramTexts{"h", "x", "y"}));
}

// --- ranges

struct NamedRange {
    const char* name;
    Range KoordMemory::*range;
};
constexpr NamedRange kRanges[] = {
    {"T", &KoordMemory::RngT},       {"C", &KoordMemory::RngC},
    {"R", &KoordMemory::RngR},       {"Temp", &KoordMemory::RngTemp},
    {"K", &KoordMemory::RngK},       {"InvT", &KoordMemory::RngInvT},
    {"LnK", &KoordMemory::RngLnK},   {"LnKT", &KoordMemory::RngLnKT},
    {"LnC", &KoordMemory::RngLnC},   {"InvC", &KoordMemory::RngInvC},
    {"Wilk", &KoordMemory::RngWilk}, {"LnAB", &KoordMemory::RngLnAB},
    {"Lam1", &KoordMemory::RngLam1}, {"Lam2", &KoordMemory::RngLam2},
    {"InvR", &KoordMemory::RngInvR}, {"CR", &KoordMemory::RngCR},
    {"RC", &KoordMemory::RngRC},
};

/// What a frame keeps, the next diagram of its kind reads again, and no other range is touched.
TEST_F(DiagramKindTest, ReadsAgainWhatItKept) {
    for (const DiagramKindRow& row : DiagramKinds()) {
        if (row.kind == kKindBloodAlcohol)
            continue;
        KoordMemory memory;
        DiaKoord frame;
        frame.xMin = 1, frame.xMax = 2, frame.yMin = 3, frame.yMax = 4;
        FuKoordMerken(ps, row.kind, memory, frame);
        int kept = 0;
        for (const NamedRange& named : kRanges)
            kept += memory.*named.range == Range{} ? 0 : 1;
        EXPECT_EQ(kept, row.x != nullptr ? 2 : 0) << row.kind;
        DiaKoord read;
        FuKoordLesen(ps, row.kind, memory, read);
        const std::array limits{read.xMin, read.xMax, read.yMin, read.yMax};
        const float widened = row.kind == kKindEyring ? 1 : 0;
        EXPECT_EQ(limits,
                  row.x != nullptr ? (std::array{1.0F, 2.0F, 3 - widened, 4 + widened}) : row.fixed)
            << row.kind;
    }
}

TEST_F(DiagramKindTest, OfASaturationCurveTakesTheFrameOfTheEnzyme) {
    ps.ModelId = 10;
    ps.MMDiagram = true;
    ps.Memory.RngT = {0, 7};
    ps.S0Max = 0.3F;
    for (const bool normalized : {true, false})
        for (const int kind : {10, 60}) {
            ps.MMNormalized = normalized;
            FuKoordLesen(ps, kind, ps.Memory, ps.Frame);
            EXPECT_EQ(ps.Frame.xMax, normalized ? 20.0F : 0.3F);
            EXPECT_EQ(ps.Frame.yMax, 1.0F);
            FuKoordMerken(ps, kind, ps.Memory, ps.Frame);
            EXPECT_EQ(ps.Memory.RngT.upper, 7.0F);
        }
}

TEST_F(DiagramKindTest, OfBloodAlcoholAndFitsHaveTheirOwnEnds) {
    ps.BacTimeMax = 600;
    ps.Memory.RngC = {0, 1.5F};
    FuKoordLesen(ps, 500, ps.Memory, ps.Frame);
    EXPECT_EQ(ps.Frame.xMax, 600.0F);
    EXPECT_EQ(ps.Frame.yMin, -0.01F);
    ps.Frame.yMax = 2;
    FuKoordMerken(ps, 500, ps.Memory, ps.Frame);
    EXPECT_EQ(ps.Memory.RngC, (Range{-0.01F, 2}));
    EXPECT_EQ(ps.Memory.RngT.upper, 600.0F);

    ps.c0Data[1] = 0.25F;
    for (const auto& [fitMode, upper] : {std::pair(6, 1.0F), std::pair(7, 0.25F)}) {
        ps.FitMode = fitMode;
        FuKoordMerken(ps, -9, ps.Memory, ps.Frame);
        EXPECT_EQ(ps.Memory.RngC.upper, upper);
    }
}

TEST_F(DiagramKindTest, TakesDataRangesWithTheirMargins) {
    SetRows({
        {.t = 0, .cA = 1, .cB = 0.5},
        {.t = 20, .cA = 0.25, .cB = 0.25, .T = 300, .k = 2},
        {.t = 40, .cA = 0.5, .T = 400, .k = 3, .exclude = -1},
    });
    ps.Memory.RngR = {9, 8};
    FuDatenBereiche(ps, -5);
    const KoordMemory& m = ps.Memory;
    const auto expectRange = [](const Range& range, double lower, double upper, const char* name) {
        EXPECT_NEAR(static_cast<double>(range.lower), lower, 1e-6 * std::abs(lower) + 1e-9) << name;
        EXPECT_NEAR(static_cast<double>(range.upper), upper, 1e-6 * std::abs(upper) + 1e-9) << name;
    };
    const auto widened = [&](const Range& range, double lower, double upper, const char* name) {
        const double margin = (upper - lower) / 20;
        expectRange(range, lower - margin, upper + margin, name);
    };
    expectRange(m.RngT, 0, 42, "switched-off rows count");
    expectRange(m.RngC, 0, 1.05, "c");
    expectRange(m.RngR, 0, 8.4, "the upper end is kept from before, then widened");
    widened(m.RngTemp, 300, 400, "T > 0 only");
    widened(m.RngK, 0, 3, "k");
    widened(m.RngInvT, 1.0 / 400, 1.0 / 300, "1/T");
    widened(m.RngLnK, std::log(2.0), std::log(3.0), "ln k");
    widened(m.RngLnKT, std::log(2.0 / 300), std::log(3.0 / 400), "ln(k/T)");
    widened(m.RngLnC, std::log(0.25), 0, "ln c");
    widened(m.RngInvC, 1, 4, "1/c");
    widened(m.RngLnAB, 0, std::log(2.0), "ln(cA/cB)");
    widened(m.RngWilk, 20 / 0.75, 40 / 0.5, "t = 0 has no effect");
}

TEST_F(DiagramKindTest, OfEnzymeRatesReadsTheRateFromTheTimeColumn) {
    ps.ModelId = 10;
    SetRows({{.t = 0.2, .cB = 0.5}, {.t = 0.4, .cB = 2}, {.t = 0, .cB = 4}});
    FuDatenBereiche(ps, -12);
    EXPECT_FLOAT_EQ(ps.Memory.RngR.upper, 0.42F);
    EXPECT_FLOAT_EQ(ps.Memory.RngInvC.upper, 2 + 1.75F / 20);
    EXPECT_FLOAT_EQ(ps.Memory.RngInvR.upper, 5.125F);
    EXPECT_FLOAT_EQ(ps.Memory.RngCR.upper, 5.25F);
    EXPECT_FLOAT_EQ(ps.Memory.RngRC.upper, 0.42F);
}

TEST_F(DiagramKindTest, OfDataKeepsItsRangesFiniteForAnyNumbers) {
    ps.ModelId = 10;
    SetRows({
        {.t = 1e300, .cA = 1e300, .cB = 1e-300, .T = 1e300, .k = 1e300},
        {.t = 1e-300, .cA = 1e-7, .cB = 1e300, .T = 1e-300, .k = 1e-300},
    });
    FuDatenBereiche(ps, -1);
    for (const NamedRange& named : kRanges) {
        EXPECT_TRUE(std::isfinite((ps.Memory.*named.range).lower)) << named.name;
        EXPECT_TRUE(std::isfinite((ps.Memory.*named.range).upper)) << named.name;
    }
    ps.Memory.RngT = {3, 4};
    FuDatenBereiche(ps, 2);
    EXPECT_EQ(ps.Memory.RngT, (Range{3, 4})) << "positive kinds take nothing from the data";
}

} // namespace
} // namespace zorvant
