// The function that the searches for the time of a conversion bring to zero, for the batch reactor
// and the tube alike.
#pragma once

#include "reactors/batch.h"

#include <optional>
#include <span>
#include <utility>

namespace zorvant {

/// CalcBatchKessel at one or two times, with a bound on the sub-steps of integration, which are
/// counted off; more are an overflow. Slots that the model lacks stay as they are in `states`; with
/// err the states are not to be used.
void CalcBatchStates(const ProjectState& ps, int model, std::span<const double> times,
                     std::span<SpeciesArray> states, bool& err, std::vector<MessageBox>& messages,
                     long long& work);

/// UA - U(t) of the state's model.
class ConversionSearch {
public:
    explicit ConversionSearch(ProjectState& ps);

    /// UA - (c(A,0) - c(A)(t))/c(A,0); t goes to tVerweil, the state to cEnd.
    /// Returned: nothing on an error
    std::optional<double> Missing(double t);
    /// The same at two times; the second one's state goes to cEnd.
    std::optional<std::pair<double, double>> MissingAtBoth(double t1, double t2);
    /// Ends a search that has a result. A time that is none (not above 0) is bracketed.
    TimeSearch Found(double t);
    /// After a search without a result: a time at which the conversion is passed.
    TimeSearch Bracket();

private:
    /// The time to the conversion if the reaction went on as it begins, TU. Bracketing starts
    /// there, so that it takes as long in any time unit.
    double TimeAtFirstRate() const;

    bool CalcStates(std::span<const double> times, std::span<SpeciesArray> states);
    /// UA less the conversion of a state.
    double MissingIn(const SpeciesArray& c) const;

    ProjectState& ps_;
    double latest_;  ///< TU
    long long work_; ///< sub-steps left
    std::vector<MessageBox> messages_;
};

} // namespace zorvant
