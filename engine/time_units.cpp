#include "engine/time_units.h"

#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

#include <algorithm>
#include <optional>

namespace zorvant {
namespace {

constexpr int kLastUnit = static_cast<int>(kTimeUnits.size()) - 1;
/// Reaction time and end of the time axis when none is given, s.
constexpr double kDefaultReactionTime = 60;
constexpr double kDefaultRateAxis = 60;
constexpr double kDefaultConcAxis = 100;

std::size_t Index(int unit) {
    return static_cast<std::size_t>(std::clamp(unit, 0, kLastUnit));
}

/// Length of a second in the selected unit.
double SecondInUnit(const ProjectState& ps) {
    return ps.TimeFactor[0][Index(ps.TimeUnitIdx)];
}

struct UnitChange {
    int to, from;
};
/// From the present unit to the one of a word; nothing when they are the same or one is unknown.
std::optional<UnitChange> ChangeTo(ProjectState& ps, std::string_view word) {
    ps.UnitNotice.clear();
    const bool known = std::ranges::find(kTimeUnits, word) != kTimeUnits.end() &&
                       std::ranges::find(kTimeUnits, ps.TimeUnitText) != kTimeUnits.end();
    if (!known || word == ps.TimeUnitText)
        return std::nullopt;
    return UnitChange{TimeUnitIndex(word), TimeUnitIndex(ps.TimeUnitText)};
}

void ConvertRows(ProjectState& ps, int newIdx, int oldIdx) {
    for (int i = 1; i <= ps.ExpPointCount; ++i) {
        double& t = ps.ExpData[static_cast<std::size_t>(i)].t;
        t = TimeColumnIn(ps, t, newIdx, oldIdx);
    }
}

void ConvertConstants(ProjectState& ps, double factor) {
    ps.tMax *= factor;
    ps.tVerweil *= factor;
    ps.k[1] /= factor;
    if (!(ps.FitMode == kFitOrder && HasOrder(ps.ModelId)))
        ps.k[2] /= factor;
    ps.k[3] /= factor;
}

/// The time column holds rates r(P) while the enzyme model evaluates r(P)-c(S) data.
bool TimeColumnIsRate(const ProjectState& ps) {
    return ps.RcSMode && IsEnzymeModel(ps.ModelId);
}

} // namespace

int TimeUnitIndex(std::string_view word) {
    const auto found = std::ranges::find(kTimeUnits, word);
    return found == kTimeUnits.end() ? 0 : static_cast<int>(found - kTimeUnits.begin());
}

void FillTimeFactor(ProjectState& ps) {
    for (std::size_t i = 0; i < kTimeUnits.size(); ++i)
        for (std::size_t j = 0; j < kTimeUnits.size(); ++j)
            ps.TimeFactor[i][j] = kTimeUnitSeconds[i] / kTimeUnitSeconds[j];
}

double TimeColumnIn(const ProjectState& ps, double value, int newIdx, int oldIdx) {
    const double factor = ps.TimeFactor[Index(oldIdx)][Index(newIdx)];
    return TimeColumnIsRate(ps) ? value / factor : value * factor;
}

double ConvertTimeUnit(ProjectState& ps, int newIdx, int oldIdx) {
    const std::size_t to = Index(newIdx), from = Index(oldIdx);
    ps.TimeUnitText = kTimeUnits[to];
    ps.TimeUnitIdx = static_cast<int>(to);
    ps.TimeUnitOldIdx = static_cast<int>(from);
    if (to == from)
        return 1;
    ps.UnitNotice.clear();
    ConvertRows(ps, newIdx, oldIdx);
    const double factor = ps.TimeFactor[from][to];
    ConvertConstants(ps, factor);
    return factor;
}

void TakeUnitOfRows(ProjectState& ps, const std::string& word) {
    if (const auto change = ChangeTo(ps, word)) {
        ConvertConstants(ps, ps.TimeFactor[Index(change->from)][Index(change->to)]);
        ps.UnitNotice =
            "rate constants and times converted from " + ps.TimeUnitText + " to " + word;
    }
    ps.TimeUnitText = word;
    ps.TimeUnitOldIdx = TimeUnitIndex(word);
}

void TakeUnitOfConstants(ProjectState& ps, const std::string& word) {
    if (const auto change = ChangeTo(ps, word); change && ps.ExpPointCount > 0) {
        ConvertRows(ps, change->to, change->from);
        ps.UnitNotice = "data converted from " + ps.TimeUnitText + " to " + word;
    }
    ps.TimeUnitText = word;
}

std::string ConstantUnitText(const ProjectState& ps, int constant) {
    const std::string unit = Trim(ps.TimeUnitText);
    switch (Model(ps.ModelId).units.at(static_cast<std::size_t>(constant))) {
    case ConstantUnit::PerTime:
        return "/(1/" + unit + ")";
    case ConstantUnit::PerTimeConc:
        return "/(L/(" + unit + "*mol))";
    case ConstantUnit::ConcPerTime:
        return "/(mol/(" + unit + "*l))";
    case ConstantUnit::None:
        break;
    }
    return {};
}

void SetDefaultK(ProjectState& ps) {
    const double second = SecondInUnit(ps);
    const ReactionModel& model = Model(ps.ModelId);
    for (std::size_t i = 1; i <= 3; ++i)
        if (model.resetK[i] != 0)
            ps.k[i] = model.resetK[i] / second;
    if (IsEnzymeModel(ps.ModelId)) { // more substrate than enzyme
        if (ps.c0[1] == 0)
            ps.c0[1] = 0.5;
        if (ps.c0[2] == 0)
            ps.c0[2] = 5.0;
    }
}

double DefaultTimeAxis(const ProjectState& ps) {
    return kDefaultConcAxis * SecondInUnit(ps);
}

void SelectionDefaultTimes(ProjectState& ps) {
    const double second = SecondInUnit(ps);
    if (ps.tVerweil == 0)
        ps.tVerweil = kDefaultReactionTime * second;
    if (ps.FitMode == kNoFit && ps.tMax == 0)
        ps.tMax = (ps.RateDiagram ? kDefaultRateAxis : kDefaultConcAxis) * second;
}

void SelectionDefaultConcentrations(ProjectState& ps) {
    const bool hasProduct = ps.c0[4] != 0;
    for (const ConcentrationDefault& row : Model(ps.ModelId).selectionC) {
        if (row.slot == 0 || (row.unlessP && hasProduct))
            continue;
        double& c = ps.c0[static_cast<std::size_t>(row.slot)];
        if (c == 0)
            c = row.value;
    }
}

void SelectionDefaultConstants(ProjectState& ps) {
    const ReactionModel& model = Model(ps.ModelId);
    for (std::size_t i = 1; i <= 3; ++i)
        if (ps.k[i] == 0 && model.selectionK[i] != 0)
            ps.k[i] = model.selectionK[i];
}

} // namespace zorvant
