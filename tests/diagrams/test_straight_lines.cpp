// Regression against certified sets, evaluations against published measurements and exact laws.
#include "fixture.h"

namespace zorvant {
namespace {

// --- certified straight lines

struct CertifiedLine {
    std::vector<double> coefficients;
    double residualSd = 0;
    double r2 = 0; // 0: about zero, not the quantity computed here
    std::vector<double> x{0}, y{0};
};

/// A set of tests/diagrams/certified_lines.txt.
CertifiedLine ReadCertified(const std::string& name) {
    std::ifstream file(std::string(SOURCE_DIR) + "/tests/diagrams/certified_lines.txt");
    CertifiedLine set;
    bool inside = false, points = false;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with(" "))
            inside = line.starts_with(name + " ");
        if (!inside)
            continue;
        std::stringstream words(line);
        if (line.starts_with("  b")) {
            std::string ignored;
            double value = 0;
            words >> ignored >> ignored >> value;
            set.coefficients.push_back(value);
        } else if (line.starts_with("  residual")) {
            std::string a, b, c, d;
            words >> a >> b >> c >> set.residualSd >> d >> set.r2;
            if (line.find("about zero") != std::string::npos)
                set.r2 = 0;
        } else if (line == "  x y") {
            points = true;
        } else if (points && line.starts_with("  ")) {
            double x = 0, y = 0;
            words >> x >> y;
            set.x.push_back(x);
            set.y.push_back(y);
        }
    }
    return set;
}

double AgreeingDigits(double value, double certified) {
    const double error = std::abs(value - certified) / std::abs(certified);
    return error == 0 ? 16 : -std::log10(error);
}

/// The fewest agreeing digits of coefficients, residual standard deviation and R^2.
template <class T> double WorstDigits(const CertifiedLine& set) {
    const std::vector<T> x(set.x.begin(), set.x.end()), y(set.y.begin(), set.y.end());
    const std::vector<T> w(x.size(), 1);
    const int n = static_cast<int>(set.coefficients.size());
    RegressionMatrix matrix;
    T sd = 0, relsd = 0, r2 = 0;
    bool singular = true;
    FuRegression(x, y, w, n, 2, n == 1 ? 1 : 0, matrix, sd, relsd, r2, singular);
    EXPECT_FALSE(singular);
    double worst = AgreeingDigits(static_cast<double>(sd), set.residualSd);
    for (std::size_t j = 1; j <= set.coefficients.size(); ++j)
        worst = std::min(
            worst, AgreeingDigits(matrix[j][set.coefficients.size() + 1], set.coefficients[j - 1]));
    if (set.r2 != 0)
        worst = std::min(worst, AgreeingDigits(static_cast<double>(r2), set.r2));
    return worst;
}

class CertifiedLines : public testing::TestWithParam<const char*> {};

TEST_P(CertifiedLines, AgreeToNineDigitsAndToFiveThroughSingleLists) {
    const CertifiedLine set = ReadCertified(GetParam());
    ASSERT_FALSE(set.coefficients.empty());
    ASSERT_GE(set.x.size(), 4U);
    const double inDouble = WorstDigits<double>(set);
    const double inSingle = WorstDigits<float>(set);
    EXPECT_GE(inDouble, 9);
    EXPECT_GE(inSingle, 5);
    RecordProperty("DigitsDouble", std::to_string(inDouble));
    RecordProperty("DigitsSingle", std::to_string(inSingle));
}
INSTANTIATE_TEST_SUITE_P(Sets, CertifiedLines, testing::Values("Norris", "NoInt1", "NoInt2"));

TEST(Regression, FitsPolynomialsOfEveryTypeAndIgnoresWeightZero) {
    for (int type = 2; type <= 5; ++type) {
        std::vector<double> x{0}, y{0}, w{0};
        for (int i = -6; i <= 6; ++i) {
            double value = 0;
            for (int power = 0; power < type; ++power)
                value += (power + 1) * std::pow(i / 3.0, power);
            x.push_back(i / 3.0);
            y.push_back(value);
            w.push_back(1 + (i & 1));
        }
        x.push_back(0.1);
        y.push_back(1e6);
        w.push_back(0);
        RegressionMatrix a;
        double sd = 0, relsd = 0, r2 = 0;
        bool singular = true;
        FuRegression(x, y, w, type, type, 0, a, sd, relsd, r2, singular);
        EXPECT_FALSE(singular);
        for (int j = 1; j <= type; ++j)
            EXPECT_NEAR(a[static_cast<std::size_t>(j)][static_cast<std::size_t>(type) + 1], j, 1e-9)
                << type;
        EXPECT_NEAR(r2, 1, 1e-12);
        EXPECT_NEAR(sd, 0, 1e-9);
    }
}

TEST(Regression, SaysWhenThereIsNoUniqueLine) {
    RegressionMatrix a;
    float sd = 7, relsd = 7, r2 = 7;
    bool singular = false;
    FuRegression({0, 2, 2, 2}, {0, 1, 2, 3}, {0, 1, 1, 1}, 2, 2, 0, a, sd, relsd, r2, singular);
    EXPECT_TRUE(singular) << "all x equal";
    EXPECT_EQ(r2, 7.0F);
    FuRegression({0, 1, 2}, {0, 1, 2}, {0, 0, 0}, 2, 2, 0, a, sd, relsd, r2, singular);
    EXPECT_TRUE(singular) << "all weights 0";
    FuRegression({0, 1, 2}, {0, 5, 7}, {0, 1, 1}, 2, 2, 0, a, sd, relsd, r2, singular);
    EXPECT_FALSE(singular);
    EXPECT_EQ(r2, 0.0F) << "nothing is left to estimate a deviation from";
    FuRegression({0, 1, 2, 3}, {0, 5, 5, 5}, {0, 1, 1, 1}, 2, 2, 0, a, sd, relsd, r2, singular);
    EXPECT_EQ(r2, 0.0F) << "y does not vary";
}

// --- published measurements

struct Evaluation : DiagramRecord {
    CurveCalculation made;

    /// Calculates the line of an evaluation as its diagram does.
    void Evaluate(int kind, int model) {
        ps.ModelId = model;
        ps.DiagramKind = kind;
        FuDatenBereiche(ps, kind);
        FuKoordLesen(ps, kind, ps.Memory, ps.Frame);
        made = CalcCurve(ps, kind, 1, kCurveSteps, ps.CurveBuf);
        if (made.k)
            ps.k[1] = *made.k;
    }
    void ExpectResult(const std::string& start, const std::string& end = "") {
        EXPECT_TRUE(made.result.starts_with(start)) << made.result;
        EXPECT_NE(made.result.find(end), std::string::npos) << made.result;
    }
};

std::vector<ExpPoint> Concentrations(std::initializer_list<std::pair<double, double>> list) {
    std::vector<ExpPoint> rows;
    for (const auto& [t, c] : list)
        rows.push_back({.t = t, .cA = c});
    return rows;
}
std::vector<ExpPoint> RateConstants(std::initializer_list<std::pair<double, double>> list) {
    std::vector<ExpPoint> rows;
    for (const auto& [T, k] : list)
        rows.push_back({.T = T, .k = k});
    return rows;
}

TEST_F(Evaluation, GivesThePublishedConstantsOfMeasuredCourses) {
    // N2O5 at 318 K, S. S. Zumdahl, Chemistry: k = 6.93E-3 1/s
    SetRows(Concentrations(
        {{0, 0.1}, {50, 0.0707}, {100, 0.05}, {200, 0.025}, {300, 0.0125}, {400, 0.00625}}));
    Evaluate(kKindFirstOrder, 2);
    EXPECT_NEAR(ps.k[1], 6.93e-3, 0.005e-3);
    ExpectResult("Result:   k =  0.00693", "  1/s Coefficient of determination R^2 = 1.00000");

    // NO2 at 573 K, T. L. Brown, H. E. LeMay, Chemistry: slope of 1/c 0.543, 2A => P has half of it
    SetRows(
        Concentrations({{0, 0.01}, {50, 0.00787}, {100, 0.00649}, {200, 0.00481}, {300, 0.0038}}));
    Evaluate(kKindSecondOrder, 3);
    EXPECT_NEAR(ps.k[1], 0.543 / 2, 0.001);
    ExpectResult("Result:  k =  0.271", "  L/(s mol) Coefficient");

    // Butadiene, S. S. Zumdahl, Chemistry: slope of 1/c 0.0614 L/(mol s)
    SetRows(Concentrations({{0, 0.01},
                            {1000, 0.00625},
                            {1800, 0.00476},
                            {2800, 0.0037},
                            {3600, 0.00313},
                            {4400, 0.0027},
                            {5200, 0.00241},
                            {6200, 0.00208}}));
    ps.TwoSpeciesEqual = true;
    Evaluate(kKindSecondOrder, 4);
    EXPECT_NEAR(ps.k[1], 0.0614, 0.0002);
}

TEST_F(Evaluation, ExtrapolatesTheStartOfATitration) {
    // Methyl acetate in 1 M HCl, F. Daniels, R. A. Alberty, Physical Chemistry: k = 1.26E-4 1/s,
    // from a graph; least squares over the same four points give 1.23E-4
    SetRows({{.t = 339, .lambda = 26.34F},
             {.t = 1242, .lambda = 27.8F},
             {.t = 2745, .lambda = 29.7F},
             {.t = 4546, .lambda = 31.81F}});
    ps.LambdaInf = 39.81;
    FuCheckExpData(ps);
    ps.LambdaMode = true;
    Evaluate(kKindLambdaFirstOrder, 2);
    EXPECT_NEAR(ps.k[1], 1.26e-4, 0.03 * 1.26e-4);
    ExpectResult("Result:   k =  0.00012299", ", lambda(0), extrapol. =  25.76");
    ps.LambdaZero = 25.8;
    Evaluate(kKindLambdaFirstOrder, 2);
    EXPECT_EQ(made.result.find("extrapol"), std::string::npos);
}

TEST_F(Evaluation, GivesThePublishedActivationEnergies) {
    // N2O5: F. Daniels, E. H. Johnston, J. Am. Chem. Soc. 43 (1921) 53: about 103 kJ/mol
    SetRows(RateConstants({{273.15, 7.87e-07},
                           {298.15, 3.46e-05},
                           {308.15, 0.000135},
                           {318.15, 0.000498},
                           {328.15, 0.0015},
                           {338.15, 0.00487}}));
    const auto energy = [&](int kind) {
        Evaluate(kind, 2);
        const FittedLine line{.a = made.a, .b = made.b};
        const LineResult result = EvaluateLine(ps, kind, line);
        return kind == kKindArrhenius ? result.EA : result.enthalpy;
    };
    const double arrhenius = energy(kKindArrhenius);
    EXPECT_NEAR(arrhenius, 103, 0.7);
    ExpectResult("Result: EA/(kJ/mol) = 103.", ",  coeff. of det. R^2= 0.99");
    // h# = EA - R T at the mean temperature
    EXPECT_NEAR(energy(kKindEyring), arrhenius - 8.3145e-3 * 308, 0.2);

    // HI: M. Bodenstein, Z. phys. Chem. 29 (1899) 295: about 184 kJ/mol
    SetRows(RateConstants({{556, 3.52e-07},
                           {575, 1.22e-06},
                           {629, 3.02e-05},
                           {647, 8.59e-05},
                           {666, 0.00022},
                           {683, 0.000512},
                           {700, 0.00116},
                           {716, 0.0025},
                           {781, 0.0395}}));
    EXPECT_NEAR(energy(kKindArrhenius), 184, 2.5);
}

// --- exact laws

TEST_F(Evaluation, FindsTheConstantsThatMadeTheData) {
    constexpr double kK = 0.03, kA0 = 1, kB0 = 0.4, kRMax = 0.8, kKM = 0.25;
    const auto expectK = [&](int kind, int model) {
        Evaluate(kind, model);
        EXPECT_NEAR(ps.k[1], kK, 2e-5 * kK) << kind;
    };
    std::vector<ExpPoint> mixed, wilkinson, saturation, lambda;
    for (int i = 0; i <= 10; ++i) {
        const double t = 5.0 * i;
        const double u = std::exp((kA0 - kB0) * kK * t);
        const double x = kA0 * kB0 * (1 - u) / (kB0 - u * kA0);
        mixed.push_back({.t = t, .cA = kA0 - x, .cB = kB0 - x});
        const double second = kA0 / (1 + kK * kA0 * t);
        lambda.push_back({.t = t, .lambda = static_cast<float>(10 - 8 * second)});
        const double s = 0.05 * (i + 1);
        saturation.push_back({.t = kRMax * s / (kKM + s), .cB = s});
        // t/U = 1/(k c0^(n-1)) + (n/2) t, which is exact for n = 2
        wilkinson.push_back({.t = t, .cA = second});
    }
    mixed.insert(mixed.begin(), {.cA = 9, .cB = 1, .exclude = -1});
    SetRows(mixed); // the last row with t = 0 gives the start
    expectK(kKindMixedSecondOrder, 4);

    SetRows(lambda);
    ps.LambdaInf = 10;
    ps.c0Data[1] = 1;
    FuCheckExpData(ps);
    ps.LambdaMode = true;
    EXPECT_EQ(ps.LambdaZero, 2);
    expectK(kKindLambdaSecondOrder, 4);
    ps.LambdaZero = 0;
    Evaluate(kKindLambdaSecondOrder, 3);
    EXPECT_NEAR(ps.k[1], kK / 2, 1e-5 * kK) << "without the start value, 2A => P";
    ps.LambdaMode = false;

    SetRows(wilkinson);
    Evaluate(kKindWilkinson, 3);
    ExpectResult("Result: n = 2.0;  k =  0.03");

    SetRows(saturation);
    for (const int kind : {kKindEadie, kKindHanesWoolf, kKindLineweaverBurk}) {
        Evaluate(kind, 10);
        const LineResult result = EvaluateLine(ps, kind, {.a = made.a, .b = made.b});
        EXPECT_NEAR(result.KM, kKM, 1e-5) << kind;
        EXPECT_NEAR(result.rMax, kRMax, 1e-5) << kind;
        ExpectResult("Result: KM =  0.2", " mol/(L s),   Coefficient of determination R^2 = ");
        EXPECT_FALSE(made.failed);
    }
}

TEST_F(Evaluation, WritesItsResultLine) {
    ps.TimeUnitText = "min";
    ps.ModelId = 3;
    ps.c0Data[1] = 2;
    const auto text = [&](int kind, FittedLine line) {
        line.r2 = 0.987664F;
        return EvaluateLine(ps, kind, line).text;
    };
    const std::string r = " Coefficient of determination R^2 = 0.98766";
    EXPECT_EQ(text(kKindHanesWoolf, {.a = 0.5, .b = 0}),
              "Result: KM =  0 mol/L,  r(P)max =  0 mol/(L min),  " + r);
    EXPECT_EQ(text(kKindLambdaFirstOrder, {.a = 1, .b = -0.5}), "Result:   k =  0.5  1/min" + r);
    EXPECT_EQ(text(kKindMixedSecondOrder, {.a = 1, .b = -0.5, .cA0 = 1, .cB0 = 2}),
              "Result:  k =  0.5  L/(min mol)" + r);
    EXPECT_EQ(text(kKindWilkinson, {.a = 4, .b = 0.75}), "Result: n = 1.5;  k =  0.1767767" + r);
    EXPECT_EQ(text(kKindEyring, {.a = 23.76, .b = -12000}),
              "Result: h#/(kJ/mol) = 99.77;  s#/(J/mol*K) = 0.0, "
              "ATTENTION: s# is only correct if [t] = s applies to k, coeff. of det. R^2= 0.98766");
    EXPECT_EQ(text(kKindArrhenius, {.a = std::log(2e13), .b = -12000}),
              "Result: EA/(kJ/mol) = 99.77;  A =  2E+13,  coeff. of det. R^2= 0.98766");
    EXPECT_EQ(EvaluateLine(ps, kKindArrhenius, {.a = 1}).text.find("R^2"), std::string::npos);
}

// --- rows that no formula takes

TEST_F(Evaluation, LeavesOutAndCountsRowsThatNoFormulaTakes) {
    // the first three rows lie on ln k = -5000/T + 20
    std::vector<ExpPoint> rows;
    for (const double T : {300.0, 320.0, 350.0})
        rows.push_back({.T = T, .k = std::exp(20 - 5000 / T)});
    rows.push_back({.T = 310, .k = 0});
    rows.push_back({.T = 330, .k = 0, .exclude = -1});
    SetRows(rows);
    Evaluate(kKindArrhenius, 2);
    EXPECT_EQ(made.leftOut, 1) << "a switched-off row is not missed";
    EXPECT_NEAR(made.b, -5000, 0.1);

    SetRows(Concentrations({{0, 1}, {10, 1}, {20, 0.6}, {30, 0.5}, {40, 0.4}}));
    Evaluate(kKindWilkinson, 2);
    EXPECT_EQ(made.leftOut, 1) << "no conversion, U = 0";

    SetRows({{.t = 10, .lambda = 9},
             {.t = 20, .lambda = 10},
             {.t = 30, .lambda = 12},
             {.t = 5, .lambda = 8}});
    ps.LambdaInf = 10;
    FuCheckExpData(ps);
    ps.LambdaMode = true;
    Evaluate(kKindLambdaFirstOrder, 2);
    EXPECT_EQ(made.leftOut, 2);
    EXPECT_FALSE(made.failed);
}

TEST_F(Evaluation, TellsAnErrorOfTheArithmetic) {
    SetRows({{.t = 1, .cA = 1, .cB = 0.5}, {.t = 2, .cA = 0.8, .cB = 0.3}});
    ps.k[1] = 0.125;
    Evaluate(kKindMixedSecondOrder, 4);
    EXPECT_TRUE(made.failed);
    EXPECT_EQ(made.note, "Division by zero\r\nMessage from CalcCurve") << "no row at t = 0";
    EXPECT_EQ(ps.k[1], 0.125);
}

TEST_F(Evaluation, DrawsTheLineOverTheWholeFrameAndOneStepBeyond) {
    SetRows(Concentrations({{0, 1}, {10, 0.5}, {20, 0.25}}));
    Evaluate(kKindFirstOrder, 2);
    const CurvePoints line = PointsOf(ps.CurveBuf);
    EXPECT_EQ(line.x.front(), static_cast<double>(ps.Frame.xMin));
    EXPECT_GT(line.x.back(), static_cast<double>(ps.Frame.xMax));
    EXPECT_NEAR(static_cast<double>(line.x.size()), 122, 1);
    for (std::size_t i = 0; i < line.x.size(); ++i)
        EXPECT_NEAR(line.y[i], made.a + made.b * line.x[i], 1e-6);
}

} // namespace
} // namespace zorvant
