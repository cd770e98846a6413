#include "reactors/batch_search.h"

#include "engine/closed_forms.h"
#include "engine/rate_laws.h"
#include "reactors/reactor_input.h"
#include "reactors/root_search.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace zorvant {
namespace {

constexpr double kBracketTolerance = 1e-14; ///< of t
/// An integrated model is followed by secants up to so many times the time at the first rate, and
/// by so many sub-steps. A secant may jump to times where a stiff set takes minutes though all is
/// over; what is looked for is then bracketed.
constexpr double kFarAway = 1e5;
constexpr long long kSecantWork = 4'000'000;
constexpr double kFallbackStart = 0.001;    ///< TU, where A does not react at first
constexpr double kLatestTime = 1e300;       ///< TU, where doubling ends
constexpr double kLatestIntegration = 1e12; ///< TU, the same for integrated models
/// Sub-steps of integration, about a second: enough for the longest time at the finest nodes.
constexpr long long kBracketWork = 30'000'000;

} // namespace

ConversionSearch::ConversionSearch(ProjectState& ps) : ps_(ps), work_(kSecantWork) {
    latest_ = HasClosedForm(ps.ModelId) ? kLatestTime : kFarAway * TimeAtFirstRate();
}

bool ConversionSearch::CalcStates(std::span<const double> times, std::span<SpeciesArray> states) {
    for (const double t : times)
        if (std::abs(t) > latest_)
            return false;
    bool err = false;
    std::fill(states.begin(), states.end(), ps_.cEnd);
    CalcBatchStates(ps_, ps_.ModelId, times, states, err, messages_, work_);
    if (err)
        return false;
    ps_.tVerweil = times.back();
    ps_.cEnd = states.back();
    return true;
}

double ConversionSearch::MissingIn(const SpeciesArray& c) const {
    return ps_.UA - (ps_.c0[1] - c[1]) / ps_.c0[1];
}

std::optional<double> ConversionSearch::Missing(double t) {
    SpeciesArray c;
    if (!CalcStates({&t, 1}, {&c, 1}) || !std::isfinite(MissingIn(c)))
        return std::nullopt;
    return MissingIn(c);
}

std::optional<std::pair<double, double>> ConversionSearch::MissingAtBoth(double t1, double t2) {
    const std::array<double, 2> times{t1, t2};
    std::array<SpeciesArray, 2> states;
    if (!CalcStates(times, states))
        return std::nullopt;
    const std::pair missing(MissingIn(states[0]), MissingIn(states[1]));
    if (!std::isfinite(missing.first) || !std::isfinite(missing.second))
        return std::nullopt;
    return missing;
}

TimeSearch ConversionSearch::Found(double t) {
    if (!(t > 0) || !std::isfinite(t))
        return Bracket();
    ps_.tVerweil = t;
    return {t, false, {}};
}

double ConversionSearch::TimeAtFirstRate() const {
    SpeciesArray r{};
    FuReactionRates(ps_, ps_.ModelId, r, ps_.k, ps_.c0);
    const double t = std::abs(ps_.UA * ps_.c0[1] / r[1]);
    return t > 0 && std::isfinite(t) ? t : kFallbackStart;
}

TimeSearch ConversionSearch::Bracket() {
    TimeSearch result;
    result.messages = std::exchange(messages_, {}); // what the search before ended with
    result.err = true;
    if (!IsSoundInput(ps_, ps_.ModelId, ps_.c0) || !(ps_.UA != 0) || !std::isfinite(ps_.UA))
        return result;
    work_ = kBracketWork;
    latest_ = HasClosedForm(ps_.ModelId) ? kLatestTime : kLatestIntegration;
    const auto f = [&](double t) {
        return Missing(t).value_or(std::numeric_limits<double>::quiet_NaN());
    };
    const auto t = FindPositiveRoot(f, TimeAtFirstRate() / 2, ps_.UA, latest_, kBracketTolerance);
    if (!t || !Missing(*t))
        return result;
    return {*t, false, {}};
}

} // namespace zorvant
