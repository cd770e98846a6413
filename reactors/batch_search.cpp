#include "reactors/batch_search.h"

#include "engine/closed_forms.h"
#include "engine/rate_laws.h"
#include "reactors/reactor_input.h"
#include "reactors/root_search.h"

#include <cmath>
#include <limits>
#include <utility>

namespace zorvant {
namespace {

constexpr double kBracketTolerance = 1e-14; ///< of t
/// An integrated model is followed by secants up to so many times the time at the first rate, and by
/// so many sub-steps. A secant may jump to times where a stiff set takes minutes though all is over;
/// what is looked for is then bracketed.
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

std::optional<double> ConversionSearch::Missing(double t) {
    ps_.tVerweil = t;
    if (std::abs(t) > latest_)
        return std::nullopt;
    bool err = false;
    CalcBatchKesselWithin(ps_, ps_.ModelId, t, ps_.cEnd, err, messages_, work_);
    if (err)
        return std::nullopt;
    const double missing = ps_.UA - (ps_.c0[1] - ps_.cEnd[1]) / ps_.c0[1];
    return std::isfinite(missing) ? std::optional(missing) : std::nullopt;
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
