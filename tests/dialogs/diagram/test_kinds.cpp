// What every kind of diagram is called, shows and reads its frame from.
#include "fixture.h"

namespace zorvant {
namespace {

struct DiagramKindTest : Diagram {};

std::vector<std::string> Split(const std::string& line, char mark) {
    std::vector<std::string> parts;
    std::stringstream stream(line);
    for (std::string part; std::getline(stream, part, mark);)
        parts.push_back(part);
    return parts;
}

void SetContext(Workspace& ps, const std::string& context) {
    ps.IsTubular = context == "tube";
    ps.IsCSTR = context == "cstr";
    ps.IsCascade = context.starts_with("cascade");
    ps.CascadeTimeAxis = context == "cascadetime";
    ps.FitMode = context.starts_with("fit") ? context[3] - '0' : 0;
    ps.LambdaZero = context == "lambda0" ? 0.25 : 0;
    ps.TwoSpeciesEqual = context == "equal";
    ps.MMDiagram = context.starts_with("mm");
    ps.MMNormalized = context == "mm";
    if (context == "model3")
        ps.ModelId = 3;
}

TEST_F(DiagramKindTest, HasItsTextsInEveryContext) {
    ps.TimeUnitText = "min";
    ps.KM = 0.5;
    ps.SingleSpecies = 4;
    std::ifstream table(std::string(SOURCE_DIR) + "/tests/diagrams/diagram_texts.txt");
    int rows = 0;
    for (std::string line; std::getline(table, line);) {
        if (line.starts_with("#"))
            continue;
        const std::vector<std::string> cells = Split(line, '\t');
        ASSERT_EQ(cells.size(), 7U) << line;
        const int kind = std::stoi(cells[0]);
        ps.ModelId = IsModelKind(kind) ? ModelOfKind(kind) : 2;
        SetContext(ps, cells[1]);
        DiagramTexts texts;
        int curves = 0;
        EXPECT_TRUE(DescribeDiagram(ps, kind, texts, curves)) << line;
        EXPECT_EQ(texts, (DiagramTexts{cells[3], cells[4], cells[5]})) << line;
        EXPECT_EQ(curves, std::stoi(cells[2])) << line;
        ++rows;
    }
    EXPECT_EQ(rows, 175);
}

TEST_F(DiagramKindTest, UnknownKeepsTheTextsOfTheLastDiagram) {
    ps.DiagramKind = 112;
    GrafZentrale(ps, doc);
    ps.DiagramKind = 33;
    GrafZentrale(ps, doc);
    EXPECT_EQ(ps.Frame.Header, "Residence-Time Distribution E = f(t)");
    EXPECT_FALSE(ps.Frame.SideWindow);
    EXPECT_TRUE(scripted.boxes.empty());
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

Range KoordMemory::*RangeOf(const std::string& name) {
    for (const NamedRange& named : kRanges)
        if (name == named.name)
            return named.range;
    throw std::out_of_range(name);
}

struct KindRanges {
    int first, last;
    const char *x, *y;
};
constexpr KindRanges kKindRanges[] = {
    {-15, -15, "C", "R"},       {-14, -14, "RC", "R"},   {-13, -13, "C", "CR"},
    {-12, -12, "InvC", "InvR"}, {-11, -11, "T", "Lam2"}, {-10, -10, "T", "Lam1"},
    {-9, -9, "T", "C"},         {-8, -8, "T", "LnAB"},   {-7, -7, "T", "Wilk"},
    {-6, -6, "T", "InvC"},      {-5, -5, "T", "LnC"},    {-4, -4, "InvT", "LnKT"},
    {-3, -3, "InvT", "LnK"},    {-2, -2, "Temp", "K"},   {-1, -1, "T", "C"},
    {1, 20, "T", "C"},          {51, 70, "T", "R"},      {100, 100, "T", "C"},
};

TEST_F(DiagramKindTest, ReadsAndKeepsItsOwnRanges) {
    for (const KindRanges& row : kKindRanges)
        for (int kind = row.first; kind <= row.last; ++kind) {
            KoordMemory memory;
            memory.*RangeOf(row.x) = {1, 2};
            memory.*RangeOf(row.y) = {3, 4};
            const float widened = kind == -4 ? 1 : 0;
            DiaKoord frame;
            FuKoordLesen(ps, kind, memory, frame);
            EXPECT_EQ((std::array{frame.xMin, frame.xMax, frame.yMin, frame.yMax}),
                      (std::array{1.0F, 2.0F, 3 - widened, 4 + widened}))
                << kind;
            KoordMemory kept;
            FuKoordMerken(ps, kind, kept, frame);
            EXPECT_EQ(kept.*RangeOf(row.x), (Range{1, 2})) << kind;
            EXPECT_EQ(kept.*RangeOf(row.y), (Range{3 - widened, 4 + widened})) << kind;
        }
}

TEST_F(DiagramKindTest, WithFixedLimitsRemembersNothing) {
    struct Fixed {
        int kind;
        std::array<float, 4> limits;
    };
    for (const Fixed& row : {Fixed{110, {0, 100, 0, 1}}, Fixed{112, {0, 40, -0.005F, 0.11F}},
                             Fixed{113, {0, 4, -0.01F, 0.11F}}, Fixed{114, {0, 40, -0.01F, 1.05F}},
                             Fixed{115, {0, 4, -0.01F, 1.05F}}}) {
        DiaKoord frame;
        KoordMemory memory;
        FuKoordLesen(ps, row.kind, memory, frame);
        EXPECT_EQ((std::array{frame.xMin, frame.xMax, frame.yMin, frame.yMax}), row.limits);
        FuKoordMerken(ps, row.kind, memory, frame);
        for (const NamedRange& named : kRanges)
            EXPECT_EQ(memory.*named.range, Range{}) << row.kind << named.name;
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

TEST_F(DiagramKindTest, NeverReachesANegativeInverseTemperature) {
    SetRows({{.T = 10, .k = 1}, {.T = 1000, .k = 2}});
    FuDatenBereiche(ps, -3);
    EXPECT_EQ(ps.Memory.RngInvT.lower, 0.0F);
    EXPECT_FLOAT_EQ(ps.Memory.RngInvT.upper, 0.1F + 0.099F / 20);
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
