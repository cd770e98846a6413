#include "reactors/tubular.h"

#include "reactors/batch_search.h"

#include <cmath>

namespace zorvant {
namespace {

// Secant search for the time of a conversion.
constexpr double kFirstTime = 0.001; ///< TU
constexpr double kSecantPart = 500;  ///< the first secant's width: the first time through this
constexpr int kSecantPasses = 100;   ///< the last one of them counts as a failure
constexpr double kConverged = 1e-6;  ///< of t

constexpr double kVelocity = 1; ///< m/s, when the dialog opens for the first time
constexpr int kYears = 4;

} // namespace

TimeSearch SearchTubeTime(ProjectState& ps) {
    ConversionSearch search(ps);
    double t = kFirstTime;
    double h = kFirstTime / kSecantPart;
    for (int pass = 1; pass < kSecantPasses; ++pass) {
        const auto g = search.MissingAtBoth(t, t + h);
        if (!g || g->second - g->first == 0)
            break;
        const double d = -g->first * h / (g->second - g->first);
        h = d;
        t += d;
        if (std::abs(d / t) < kConverged)
            return search.Found(t);
    }
    return search.Bracket();
}

float DefaultVelocity(const ProjectState& ps) {
    if (ps.TimeUnitIdx < 0 || ps.TimeUnitIdx >= kYears)
        return 0;
    const auto unit = static_cast<std::size_t>(ps.TimeUnitIdx);
    return static_cast<float>(kVelocity * ps.TimeFactor[unit][0]);
}

} // namespace zorvant
