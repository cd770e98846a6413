#include "diagrams/straight_lines.h"

#include "engine/arithmetic.h"
#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

#include <cmath>

namespace zorvant {
namespace {

constexpr double kGasConstant = 8.3145; // J/(mol K)
// Boltzmann's over Planck's constant, 1/(K s): the Eyring equation needs t in s.
constexpr double kBoltzmann = 1.38066e-23; // J/K
constexpr double kPlanck = 6.62618e-34;    // J s
/// Up to this t Wilkinson's t/U is not defined.
constexpr double kFirstTime = 1e-8;

double StartA(const ProjectState& ps) {
    return static_cast<double>(ps.c0Data[1]);
}

// --- transformed values

double Time(const ProjectState&, const ExpPoint& row) {
    return row.t;
}
double Substrate(const ProjectState&, const ExpPoint& row) {
    return row.cB;
}
double RateByC(const ProjectState&, const ExpPoint& row) {
    return Divide(row.t, row.cB);
}
double CByRate(const ProjectState&, const ExpPoint& row) {
    return Divide(row.cB, row.t);
}
double InverseC(const ProjectState&, const ExpPoint& row) {
    return Divide(1, row.cB);
}
double InverseRate(const ProjectState&, const ExpPoint& row) {
    return Divide(1, row.t);
}
double Temperature(const ProjectState&, const ExpPoint& row) {
    return row.T;
}
double RateConstant(const ProjectState&, const ExpPoint& row) {
    return row.k;
}
double InverseT(const ProjectState&, const ExpPoint& row) {
    return Divide(1, row.T);
}
double LnK(const ProjectState&, const ExpPoint& row) {
    return CheckedLn(row.k);
}
double LnKByT(const ProjectState&, const ExpPoint& row) {
    return CheckedLn(Divide(row.k, row.T));
}
double LnA(const ProjectState&, const ExpPoint& row) {
    return CheckedLn(row.cA);
}
double InverseA(const ProjectState&, const ExpPoint& row) {
    return Divide(1, row.cA);
}
double LnAByB(const ProjectState&, const ExpPoint& row) {
    return CheckedLn(Divide(row.cA, row.cB));
}
double Wilkinson(const ProjectState& ps, const ExpPoint& row) {
    const double conversion = Divide(StartA(ps) - row.cA, StartA(ps));
    return Divide(row.t, conversion);
}
double LnLambda(const ProjectState& ps, const ExpPoint& row) {
    const double left = ps.LambdaInf - static_cast<double>(row.lambda);
    return CheckedLn(ps.LambdaZero == 0 ? left : Divide(left, ps.LambdaInf - ps.LambdaZero));
}
double InverseLambda(const ProjectState& ps, const ExpPoint& row) {
    const double left = ps.LambdaInf - static_cast<double>(row.lambda);
    if (ps.LambdaZero == 0)
        return Divide(ps.LambdaInf, left);
    return Divide(Divide(ps.LambdaInf - ps.LambdaZero, left), StartA(ps));
}

// --- conditions

bool HasSubstrate(const ProjectState&, const ExpPoint& row) {
    return row.cB > 0;
}
bool HasRateAndSubstrate(const ProjectState&, const ExpPoint& row) {
    return row.t > 0 && row.cB > 0;
}
bool HasLambda(const ProjectState&, const ExpPoint& row) {
    return row.lambda > 0;
}
bool HasA(const ProjectState&, const ExpPoint& row) {
    return row.cA > 0;
}
bool DrawsA(const ProjectState& ps, const ExpPoint& row) {
    return row.cA > 0 && ps.ColumnHasData[1];
}
bool HasAAndB(const ProjectState&, const ExpPoint& row) {
    return row.cA > 0 && row.cB > 0;
}
bool DrawsAAndB(const ProjectState& ps, const ExpPoint& row) {
    return HasAAndB(ps, row) && ps.ColumnHasData[1];
}
bool HasTime(const ProjectState&, const ExpPoint& row) {
    return row.t > kFirstTime;
}
bool DrawsTime(const ProjectState& ps, const ExpPoint& row) {
    return StartA(ps) > 0 && HasTime(ps, row) && ps.ColumnHasData[1];
}
bool HasT(const ProjectState&, const ExpPoint& row) {
    return row.T > 0;
}
bool HasTAndK(const ProjectState&, const ExpPoint& row) {
    return row.T > 0 && row.k > 0;
}

// --- results

/// The end of a result text; empty unless r2 is above 0.
std::string Determination(const FittedLine& line, const char* lead) {
    return line.r2 > 0 ? lead + FormatNumber(static_cast<double>(line.r2), "0.00000")
                       : std::string();
}
std::string LongDetermination(const FittedLine& line) {
    return Determination(line, " Coefficient of determination R^2 = ");
}
std::string ShortDetermination(const FittedLine& line) {
    return Determination(line, "coeff. of det. R^2= ");
}

LineResult Enzyme(const ProjectState& ps, const FittedLine& line, double km, double rMax) {
    LineResult result;
    result.KM = Finite(km);
    result.rMax = Finite(rMax);
    result.text = "Result: KM = " + GeneralText(result.KM) +
                  " mol/L,  r(P)max = " + GeneralText(result.rMax) + " mol/(L " + ps.TimeUnitText +
                  "),  " + LongDetermination(line);
    return result;
}
LineResult Eadie(const ProjectState& ps, const FittedLine& line) {
    return Enzyme(ps, line, 0 - line.b, line.a);
}
LineResult HanesWoolf(const ProjectState& ps, const FittedLine& line) {
    const double rMax = line.b != 0 ? Divide(1, line.b) : 0;
    return Enzyme(ps, line, rMax * line.a, rMax);
}
LineResult LineweaverBurk(const ProjectState& ps, const FittedLine& line) {
    const double rMax = line.a != 0 ? Divide(1, line.a) : 0;
    return Enzyme(ps, line, rMax * line.b, rMax);
}

LineResult SecondOrderText(const ProjectState& ps, const FittedLine& line, double k,
                           const char* lead, const char* gap) {
    LineResult result;
    result.k = Finite(k);
    result.storesK = true;
    result.text = lead + GeneralText(result.k) + "  L/(" + ps.TimeUnitText + " mol)" + gap +
                  LongDetermination(line);
    return result;
}
LineResult LambdaSecondOrder(const ProjectState& ps, const FittedLine& line) {
    const double k = ps.LambdaZero == 0 ? Divide(line.b, StartA(ps) * line.a) : line.b;
    return SecondOrderText(ps, line, IsSecondOrderInA(ps.ModelId) ? k / 2 : k,
                           "Result:   k = ", ",  ");
}
LineResult MixedSecondOrder(const ProjectState& ps, const FittedLine& line) {
    return SecondOrderText(ps, line, Divide(line.b, line.cA0 - line.cB0), "Result:  k = ", "");
}
LineResult SecondOrder(const ProjectState& ps, const FittedLine& line) {
    return SecondOrderText(ps, line, ps.TwoSpeciesEqual ? line.b : line.b / 2, "Result:  k = ", "");
}

LineResult FirstOrder(const ProjectState& ps, const FittedLine& line) {
    LineResult result;
    result.k = Finite(0 - line.b);
    result.storesK = true;
    std::string note;
    if (ps.LambdaMode && ps.LambdaZero == 0) {
        result.lambdaZero = Finite(ps.LambdaInf - CheckedExp(line.a));
        note = ", lambda(0), extrapol. = " + PlainText(*result.lambdaZero);
    }
    result.text = "Result:   k = " + GeneralText(result.k) + "  1/" + ps.TimeUnitText + note +
                  LongDetermination(line);
    return result;
}

LineResult WilkinsonOrder(const ProjectState& ps, const FittedLine& line) {
    LineResult result;
    result.n = Finite(2 * line.b);
    result.k = Divide(Divide(1, line.a), CheckedPow(StartA(ps), result.n - 1));
    result.text = "Result: n = " + FormatNumber(result.n, ".0") +
                  ";  k = " + GeneralText(result.k) + LongDetermination(line);
    return result;
}

/// kJ/mol of a slope against 1/T.
double EnergyOfSlope(double slope) {
    return Finite(-slope * kGasConstant / 1000) + 0.0;
}

LineResult Eyring(const ProjectState&, const FittedLine& line) {
    LineResult result;
    result.enthalpy = EnergyOfSlope(line.b);
    result.entropy = Finite((line.a - std::log(kBoltzmann / kPlanck)) * kGasConstant);
    result.text = "Result: h#/(kJ/mol) = " + FormatNumber(result.enthalpy, "####0.00") +
                  ";  s#/(J/mol*K) = " + FormatNumber(result.entropy, "####0.0") +
                  ", ATTENTION: s# is only correct if [t] = s applies to k, " +
                  ShortDetermination(line);
    return result;
}
LineResult Arrhenius(const ProjectState&, const FittedLine& line) {
    LineResult result;
    result.EA = EnergyOfSlope(line.b);
    result.A = CheckedExp(line.a);
    result.text = "Result: EA/(kJ/mol) = " + FormatNumber(result.EA, "####0.00") +
                  ";  A = " + GeneralText(result.A) + ",  " + ShortDetermination(line);
    return result;
}

constexpr EvaluationKind kEvaluations[] = {
    // kind, set, drawn, fitted, x, y, full width of x and y, result
    {kKindMichaelisMenten, 6, HasSubstrate, nullptr, Substrate, Time, true, false, nullptr},
    {kKindEadie, 6, HasRateAndSubstrate, HasRateAndSubstrate, RateByC, Time, false, false, Eadie},
    {kKindHanesWoolf, 6, HasRateAndSubstrate, HasRateAndSubstrate, Substrate, CByRate, true, false,
     HanesWoolf},
    {kKindLineweaverBurk, 6, HasRateAndSubstrate, HasRateAndSubstrate, InverseC, InverseRate, false,
     false, LineweaverBurk},
    {kKindLambdaSecondOrder, 1, HasLambda, HasLambda, Time, InverseLambda, false, false,
     LambdaSecondOrder},
    {kKindLambdaFirstOrder, 1, HasLambda, HasLambda, Time, LnLambda, false, false, FirstOrder},
    {kKindMixedSecondOrder, 1, DrawsAAndB, HasAAndB, Time, LnAByB, false, false, MixedSecondOrder},
    {kKindWilkinson, 1, DrawsTime, HasTime, Time, Wilkinson, false, false, WilkinsonOrder},
    {kKindSecondOrder, 1, DrawsA, HasA, Time, InverseA, false, false, SecondOrder},
    {kKindFirstOrder, 1, DrawsA, HasA, Time, LnA, false, false, FirstOrder},
    {kKindEyring, 6, HasTAndK, HasT, InverseT, LnKByT, false, false, Eyring},
    {kKindArrhenius, 6, HasTAndK, HasT, InverseT, LnK, false, false, Arrhenius},
    {kKindKOfT, 6, HasT, nullptr, Temperature, RateConstant, true, true, nullptr},
};

} // namespace

const EvaluationKind* FindEvaluation(int kind) {
    for (const EvaluationKind& row : kEvaluations)
        if (row.kind == kind)
            return &row;
    return nullptr;
}

bool IsStraightLineKind(int kind) {
    const EvaluationKind* row = FindEvaluation(kind);
    return row != nullptr && row->fitted != nullptr;
}

RegressionPoints CollectRegressionPoints(const ProjectState& ps, int kind) {
    RegressionPoints points;
    // First order takes c(A) or lambda, whichever the command has chosen.
    if (kind == kKindFirstOrder || kind == kKindLambdaFirstOrder)
        kind = ps.LambdaMode ? kKindLambdaFirstOrder : kKindFirstOrder;
    const EvaluationKind* evaluation = FindEvaluation(kind);
    if (evaluation == nullptr || evaluation->fitted == nullptr)
        return points;
    for (int i = 1; i <= ps.ExpPointCount; ++i) {
        const ExpPoint& row = ps.ExpData.at(static_cast<std::size_t>(i));
        if (row.t == 0) {
            points.cA0 = row.cA;
            points.cB0 = row.cB;
        }
        if (!evaluation->fitted(ps, row))
            continue;
        try {
            const float x = ToSingle(evaluation->x(ps, row));
            const float y = ToSingle(evaluation->y(ps, row));
            points.RegressX.push_back(x);
            points.RegressY.push_back(y);
            points.RegressW.push_back(row.exclude == -1 ? 0.0F : 1.0F);
        } catch (const ArithmeticError&) {
            if (row.exclude != -1)
                ++points.leftOut;
        }
    }
    return points;
}

LineResult EvaluateLine(const ProjectState& ps, int kind, const FittedLine& line) {
    const EvaluationKind* evaluation = FindEvaluation(kind);
    if (evaluation == nullptr || evaluation->result == nullptr)
        return {};
    return evaluation->result(ps, line);
}

} // namespace zorvant
