#include "evaluation/evaluation_checks.h"

#include "engine/reaction_catalogue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace zorvant {

namespace {

constexpr const char* kNotPossible = "Execution not possible";

/// Least active points of the lines through c-t data; Wilkinson's needs a curvature to tell n.
constexpr int kPointsOfLine = 2, kPointsOfWilkinson = 4;
constexpr int kPointsOfFit = 2;

MessageBox Refusal(std::string text, std::string title = kNotPossible) {
    return {std::move(text), std::move(title), Icon::Critical, Buttons::Ok, Answer::Ok};
}
MessageBox Question(std::string text, std::string title = kNotPossible) {
    return {std::move(text), std::move(title), Icon::Critical, Buttons::YesNo, Answer::Ok};
}
MessageBox Note(std::string text, std::string title) {
    return {std::move(text), std::move(title), Icon::Warning, Buttons::Ok, Answer::Ok};
}

void Refuse(CommandCheck& check, MessageBox box) {
    check.passed = false;
    check.messages.push_back(std::move(box));
}
void RefuseAndAsk(CommandCheck& check, MessageBox box) {
    Refuse(check, std::move(box));
    check.asksForEditor = true;
}

/// The question that data shortage leads to.
MessageBox DataShortage(const ProjectState& ps, std::string text,
                        const char* removal = "or remove the deactivation of data points.\r\n",
                        const char* title = kNotPossible) {
    if (ps.nExcluded > 0)
        text += removal;
    return Question(std::move(text) + "\r\n\r\nNow to the data editor?", title);
}

/// The record of a check that passes unless something refuses.
CommandCheck Passing(int model, int kind) {
    CommandCheck check;
    check.passed = true;
    check.ModelId = model;
    check.DiagramKind = kind;
    return check;
}

/// The same for an evaluation by a straight line, which ends any fit.
CommandCheck PassingLine(int model, int kind) {
    CommandCheck check = Passing(model, kind);
    check.FitMode = kNoFit;
    return check;
}

/// A range that grows over the ordinates of the lambda evaluations.
class LambdaRange {
public:
    explicit LambdaRange(ProjectState& ps) : ps_(ps) {}

    /// Takes a row; an ordinate that does not exist is left out.
    void Take(double t, double y) {
        const auto single = static_cast<float>(y);
        if (std::isfinite(static_cast<float>(t)))
            xMax_ = std::max(xMax_, static_cast<float>(t));
        if (!std::isfinite(single))
            return;
        y_ = any_ ? Range{std::min(y_.lower, single), std::max(y_.upper, single)}
                  : Range{std::min(kLowerStart, single), std::max(kUpperStart, single)};
        any_ = true;
    }
    void Store(Range& ordinate) {
        Range x{0, xMax_};
        x.upper += (x.upper - x.lower) / 20;
        Range y = y_;
        const float margin = (y.upper - y.lower) / 5;
        y.upper += margin;
        y.lower -= 0.3F * margin;
        if (!any_ || !std::isfinite(y.upper) || !std::isfinite(y.lower))
            y = {0, 1};
        if (std::isfinite(x.upper))
            ps_.Memory.RngT = x;
        ordinate = y;
    }

private:
    static constexpr float kLowerStart = 10000, kUpperStart = -10000;
    ProjectState& ps_;
    float xMax_ = 0;
    Range y_;
    bool any_ = false;
};

const ExpPoint& Row(const ProjectState& ps, int i) {
    return ps.ExpData.at(static_cast<std::size_t>(i));
}

} // namespace

void TakeOver(ProjectState& ps, const CommandCheck& check) {
    ps.FitMode = check.FitMode.value_or(ps.FitMode);
    ps.TwoSpeciesEqual = check.TwoSpeciesEqual.value_or(ps.TwoSpeciesEqual);
    ps.LambdaMode = check.LambdaMode.value_or(ps.LambdaMode);
    if (!check.passed)
        return;
    ps.ModelId = check.ModelId;
    ps.DiagramKind = check.DiagramKind;
}

CommandCheck CheckAnyData(const ProjectState& ps) {
    CommandCheck check = Passing(ps.ModelId, ps.DiagramKind);
    if (ps.ExpPointCount == 0)
        RefuseAndAsk(check, Question("no experimental data available\r\n"
                                     "Enter exper. data in the Data Editor (=> NEW)\r\n"
                                     "(Finish data entry with OK button)\r\n\r\n"
                                     "to Data entry NEW?"));
    return check;
}

CommandCheck CheckCtEvaluation(const ProjectState& ps, int index) {
    constexpr int kFirst = 1, kSecond = 2, kTwoSpecies = 3, kWilkinson = 4;
    CommandCheck check = PassingLine(ps.ModelId, 0);
    const int least = index == kWilkinson ? kPointsOfWilkinson : kPointsOfLine;
    if (ps.nCtPoints - ps.nExcluded < least) {
        std::string text = "There must be at least ";
        text += std::to_string(least);
        text += "(active) experimental c-t data sets\r\nAdd the data in the Data Editor\r\n";
        RefuseAndAsk(check, DataShortage(ps, std::move(text)));
        return check;
    }
    check.TwoSpeciesEqual = false;
    const bool givenA = ps.c0Data[1] >= kGiven;
    const bool givenB = ps.c0Data[2] >= kGiven;
    if ((index == kSecond || index == kWilkinson) && !givenA) {
        Refuse(check, Refusal("no initial concentration c(A,0) found"));
        return check;
    }
    if (index == kTwoSpecies) {
        if (!givenA || !givenB) {
            Refuse(check, Refusal("Both initial concentrations c(A,0) and c(B,0) are required."));
            return check;
        }
        check.TwoSpeciesEqual = ps.c0Data[1] == ps.c0Data[2];
    }
    switch (index) {
    case kFirst:
        check.ModelId = 2;
        check.DiagramKind = kKindFirstOrder;
        break;
    case kSecond:
        check.ModelId = 3;
        check.DiagramKind = kKindSecondOrder;
        break;
    case kTwoSpecies:
        check.ModelId = 4;
        check.DiagramKind = *check.TwoSpeciesEqual ? kKindSecondOrder : kKindMixedSecondOrder;
        break;
    default:
        check.DiagramKind = kKindWilkinson;
    }
    return check;
}

CommandCheck CheckMichaelisEvaluation(const ProjectState& ps, int index) {
    CommandCheck check = PassingLine(kEnzymeModel, kKindLineweaverBurk - index);
    if (!IsEnzymeModel(ps.ModelId) || !ps.RcSMode) {
        Refuse(check,
               Note("This evaluation method is only useful if the kinetic model \r\n"
                    "\"enzyme kinetics\" is set with the option \"r(P)-c(S) evaluation\".\r\n"
                    "\r\n"
                    "Make shure that r(P)-c(S) data is loaded",
                    "WARNING"));
        return check;
    }
    if (ps.nRcSPoints - ps.nExcluded < kPointsOfLine)
        RefuseAndAsk(check,
                     DataShortage(ps,
                                  "At least two (active) r(P)-c(S) couples are required! \r\n"
                                  "Complete the data in the Data Editor\r\n",
                                  "or remove the deactivation of data sets.\r\n", ""));
    return check;
}

CommandCheck CheckLambdaEvaluation(const ProjectState& ps, int index) {
    constexpr int kFirst = 1, kSecond = 2;
    CommandCheck check =
        PassingLine(index == kFirst    ? 2
                    : index == kSecond ? 3
                                       : 4,
                    index == kFirst ? kKindLambdaFirstOrder : kKindLambdaSecondOrder);
    if (!ps.HasLambdaData) {
        std::string text =
            ps.SumLambda == 0 ? "no lambda data found!" : "not enough (active) experimental data!";
        text += "\r\nComplete the data in the Data Editor\r\n";
        RefuseAndAsk(check, DataShortage(ps, std::move(text)));
        return check;
    }
    if (ps.ExpPointCount < kPointsOfLine) {
        std::string text = "No (or not enough) experimental lambda-t data\r\n";
        text += index == kFirst ? "Enter" : "Entry";
        text += " data (=> Editor exper. data NEW)";
        Refuse(check, Refusal(std::move(text)));
        return check;
    }
    if (index == kFirst) {
        check.TwoSpeciesEqual = false;
    } else if (index == kSecond) {
        if (ps.c0Data[1] == 0) {
            Refuse(check,
                   Refusal("For a lambda evaluation according to 2nd order\r\n"
                           "an initial concentration for A has to be given.\r\n\r\n"
                           "Note: The initial concentration can also be given as p(A,0)/kPa;\r\n"
                           "in this case the rate constant receives the unit [k] = 1/(kPa s)."));
            return check;
        }
    } else {
        if (ps.c0Data[1] == 0 || ps.c0Data[2] == 0) {
            Refuse(check, Refusal("For a lambda evaluation the initial concentrations\r\n"
                                  "c(A,0) and c(B,0) have to be given in that case."));
            return check;
        }
        check.TwoSpeciesEqual = ps.c0Data[1] == ps.c0Data[2];
        if (!*check.TwoSpeciesEqual) {
            Refuse(check, Refusal("At the moment only the variant c(A,0) = c(B,0) is supported."));
            return check;
        }
    }
    if (!(ps.LambdaInf >= kGiven)) {
        Refuse(check, Refusal(index == kFirst ? "No value lambda(t = infin.) was found."
                                              : "No value lambda(t = infin) was found"));
        return check;
    }
    if (ps.LambdaZero == 0) {
        check.messages.push_back(
            index == kFirst
                ? Note("No initial value lambda(0) (lambda at t = 0) was found.\r\n"
                       "Therefore, the evaluation is performed without this value\r\n"
                       "by means of the expression ln (lamba(infin.) - lambda).\r\n"
                       "The value of lambda(0) calculated by extrapolation will be displayed.\r\n"
                       "The initial concentration c(A,0) is not needed in this case.",
                       "Notes on the evaluation of lambda-data, 1st-order")
                : Note("No value lambda(0) (lambda at t = 0) was found\r\n"
                       "Therefore, the evaluation is performed without this value\r\n"
                       "by means of the expression (lamba(inf)/(lambda(inf) - lambda)).\r\n"
                       "\r\n"
                       "Note:\r\n"
                       "Also in this case the initial concetration c(A,0) is required.",
                       "Notes for the evaluation of lambda-data, 2nd-order"));
    }
    check.LambdaMode = true;
    return check;
}

CommandCheck CheckKtEvaluation(const ProjectState& ps, int index) {
    CommandCheck check = PassingLine(ps.ModelId, index == 1 ? kKindArrhenius : kKindEyring);
    const std::string required =
        "At least two different (active) couples of k - t are required!\r\n";
    if (ps.nkTPoints < kPointsOfLine)
        RefuseAndAsk(check,
                     DataShortage(ps, required + "Complete the data in the Data Editor\r\n"));
    else if (DistinctKtCouples(ps) < kPointsOfLine)
        RefuseAndAsk(check, Question(required + "\r\nnow to the Data Editor?"));
    return check;
}

CommandCheck CheckCtFitting(const ProjectState& ps) {
    CommandCheck check = Passing(ps.ModelId, kKindFitPoints);
    if (IsEnzymeModel(ps.ModelId) && ps.RcSMode)
        Refuse(check, Note("This evaluation method is only useful if concentration-time\r\n"
                           "data are provided for the kinetic model \"enzyme kinetics\".\r\n"
                           "(Option \"c-t evaluation\")\r\n\r\n"
                           "Make sure that c-t data are loaded.",
                           "WARNING"));
    else if (ps.nCtPoints < kPointsOfFit)
        RefuseAndAsk(check, Question("not enough exper. c-t data!\r\n"
                                     "Complete the data in the Data Editor.\r\n\r\n"
                                     "Now to the data editor?"));
    if (check.passed)
        check.FitMode = kFitConstants;
    return check;
}

CommandCheck CheckOrderFitting(const ProjectState& ps) {
    CommandCheck check = Passing(20, kKindFitPoints);
    if (ps.nCtPoints < kPointsOfFit)
        RefuseAndAsk(check, Question("not enough experimental data!\r\n"
                                     "Complete the data in the Data Editor. \r\n\r\n"
                                     "Now to the data editor?"));
    else if (!(ps.c0Data[1] >= kGiven))
        Refuse(check, Refusal("no initial concentration c(A,0) found", ""));
    if (check.passed)
        check.FitMode = kFitOrder;
    return check;
}

CommandCheck CheckNonIsothermalFitting(const ProjectState& ps, int index) {
    CommandCheck check = Passing(index == 1 ? 2 : 3, kKindFitPoints);
    if (ps.nTemperatures == 1)
        check.messages.push_back(
            Note("A data set with only one temperature cannot lead to a \r\n"
                 "meaningful result regarding ARRHENIUS or EYRING parameters here.",
                 "WARNING"));
    if (!ps.HasCtTData)
        RefuseAndAsk(check, DataShortage(ps, "Not enough experimental T-t-c data!\r\n"
                                             "Complete the data in the Data Editor\r\n"));
    else if (index != 1 && ps.c0Data[1] == 0)
        Refuse(check, Refusal("For this case the initial concentration c(A,0) has to be given."));
    if (check.passed)
        check.FitMode = index == 1 ? kFitFirstOrderT : kFitSecondOrderT;
    return check;
}

int DistinctKtCouples(const ProjectState& ps) {
    int couples = 0;
    std::vector<std::pair<double, double>> atTemperature;
    for (int i = 1; i <= ps.ExpPointCount; ++i) {
        const ExpPoint& row = Row(ps, i);
        if (!(row.T > 0) || std::isnan(row.k))
            continue;
        if (row.k > 0)
            ++couples;
        atTemperature.emplace_back(row.T, row.k);
    }
    const auto rows = atTemperature.size();
    std::sort(atTemperature.begin(), atTemperature.end());
    const auto last = std::unique(atTemperature.begin(), atTemperature.end());
    return couples -
           static_cast<int>(rows - static_cast<std::size_t>(last - atTemperature.begin()));
}

void FuExtentsLambda1(ProjectState& ps) {
    LambdaRange range(ps);
    const double whole = ps.LambdaZero == 0 ? 1 : ps.LambdaInf - ps.LambdaZero;
    for (int i = 1; i <= ps.ExpPointCount; ++i) {
        const ExpPoint& row = Row(ps, i);
        const double left = (ps.LambdaInf - static_cast<double>(row.lambda)) / whole;
        range.Take(row.t, left > 0 ? std::log(left) : std::numeric_limits<double>::quiet_NaN());
    }
    range.Store(ps.Memory.RngLam1);
}

void FuExtentsLambda2(ProjectState& ps) {
    LambdaRange range(ps);
    const bool reduced = ps.c0Data[1] > 0 && ps.LambdaZero != 0;
    for (int i = 1; i <= ps.ExpPointCount; ++i) {
        const ExpPoint& row = Row(ps, i);
        const double left = ps.LambdaInf - static_cast<double>(row.lambda);
        const double y =
            reduced ? (ps.LambdaInf - ps.LambdaZero) / left / static_cast<double>(ps.c0Data[1])
                    : ps.LambdaInf / left;
        range.Take(row.t, y);
    }
    range.Store(ps.Memory.RngLam2);
}

} // namespace zorvant
