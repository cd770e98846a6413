#include "evaluation/kinetic_fit.h"

#include "engine/arithmetic.h"
#include "evaluation/kinetic_problem.h"
#include "evaluation/temperature.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace zorvant {

namespace {

/// Evaluations of the sum of squares for each parameter, builds of the Jacobian: larger ones only
/// delay the message when a start leads nowhere.
constexpr int kSumsPerParameter = 100, kJacobians = 125;
/// The parameters of k(T) lie further from their starts.
constexpr int kSumsPerParameterT = 200, kJacobiansT = 250;
/// Bounds; a lower bound of 0 would make constants vanish from the model.
constexpr double kLower = 1E-7;
constexpr double kUpper1 = 1E5, kUpper1T = 1E18, kUpper2 = 2E5, kUpper3 = 1E5;

/// Start of the parameters of k(T), and the largest that leads anywhere.
constexpr double kStartT = 100, kLargestStartT = 10000;
/// What a parameter of 0 becomes: relative moves would never leave 0.
constexpr double kInsteadOfZero = 1E-8;

constexpr const char* kErrorTitle = "message from Sub MarquardtNashFitting";

} // namespace

FitLimits LimitsOfFit(int fitMode, int n) {
    const bool ofT = fitMode >= kFirstTemperatureMode;
    return {(ofT ? kSumsPerParameterT : kSumsPerParameter) * n,
            ofT ? kJacobiansT : kJacobians,
            {0, kLower, kLower, kLower},
            {0, ofT ? kUpper1T : kUpper1, kUpper2, kUpper3}};
}

FitReport MarquardtNashFitting(ProjectState& ps, int n, int m, FitVector& FitParam,
                               FitVector& FitStdDev, bool& LimitReached) {
    LimitReached = false;
    const auto problem = MakeKineticProblem(ps, m);
    FitReport report{MinimiseSquares(n, m, LimitsOfFit(ps.FitMode, n), ps.FitFixed, *problem,
                                     FitParam, FitStdDev),
                     {}};
    LimitReached = report.LimitReached;
    const FitVector& last = problem->LastVector();
    for (std::size_t i = 1; i < last.size(); ++i) {
        if (std::isfinite(last[i])) // those beyond n are the caller's own
            ps.k[i] = last[i];
    }
    if (ps.FitMode == kFitOrder)
        ps.OrderN = static_cast<float>(last[2]);
    if (!report.error.empty())
        report.message = MessageBox{"an error occured:\r\n" + report.error, kErrorTitle,
                                    Icon::Critical, Buttons::Ok, Answer::Ok};
    return report;
}

AutoFit RunAutoFit(ProjectState& ps) {
    AutoFit fit;
    if (ps.FitMode >= kFirstTemperatureMode) {
        for (std::size_t i = 1; i <= 2; ++i) {
            if (!(ps.FitParam[i] > 0 && ps.FitParam[i] <= kLargestStartT))
                ps.FitParam[i] = kStartT;
        }
    }
    const int n = static_cast<int>(std::ranges::count(ps.RateMask, '1'));
    const int m = ps.ExpPointCount;
    if (n == 0)
        return fit;
    if (m <= n) {
        fit.messages.push_back({"The number of the measuring points has to be greater than the "
                                "number of the parameters!\r\n"
                                "Complete the data in the Editor for experimental data. ",
                                "Execution not possible", Icon::Critical, Buttons::Ok, Answer::Ok});
        return fit;
    }
    fit.ran = true;
    fit.report = MarquardtNashFitting(ps, n, m, ps.FitParam, ps.FitStdDev, ps.LimitReached);
    if (fit.report.message)
        fit.messages.push_back(*fit.report.message);
    if (ps.LimitReached)
        fit.messages.push_back(
            {"Max. number of iterations is reached!\r\n\r\n"
             "- Repeat the fitting procedure and/or improve the starting\r\n"
             "  values by approximating the curve(s) to the measuring points.\r\n"
             "- Select a different kinetic model.\r\n",
             "Parameter Fitting", Icon::Warning, Buttons::Ok, Answer::Ok});
    if (ps.FitMode >= kFirstTemperatureMode) {
        TakeTemperatureParameters(ps);
    } else if (ps.FitMode == kFitOrder) {
        ps.k[1] = ps.FitParam[1];
        ps.OrderN = static_cast<float>(ps.FitParam[2]);
    } else {
        ps.k = {0, ps.FitParam[1], ps.FitParam[2], ps.FitParam[3]};
    }
    return fit;
}

void StartFitParameters(ProjectState& ps) {
    if (ps.FitMode >= kFirstTemperatureMode)
        ps.FitParam = {0, ps.ArrA, ps.ArrEA, ps.FitParam[3]};
    else if (ps.FitMode == kFitOrder)
        ps.FitParam = {0, ps.k[1], static_cast<double>(ps.OrderN), ps.FitParam[3]};
    else
        ps.FitParam = {0, ps.k[1], ps.k[2], ps.k[3]};
}

bool SetFitParameter(ProjectState& ps, int i, double value) {
    const auto index = static_cast<std::size_t>(i);
    ps.FitParam.at(index) = value == 0 || !std::isfinite(value) ? kInsteadOfZero : value;
    if (i < 3 && ps.FitMode >= kFirstTemperatureMode)
        return TakeTemperatureParameters(ps);
    if (i == 2 && ps.FitMode == kFitOrder)
        ps.OrderN = static_cast<float>(ps.FitParam[2]);
    else
        ps.k.at(index) = ps.FitParam.at(index);
    return true;
}

bool MoveFitParameter(ProjectState& ps, int i, int position, bool fine) {
    const double p = ps.FitParam.at(static_cast<std::size_t>(i));
    return SetFitParameter(ps, i, p + position * p / (fine ? 1000 : 100));
}

} // namespace zorvant
