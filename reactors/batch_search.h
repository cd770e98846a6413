// The function that the searches for the time of a conversion bring to zero, for the batch reactor
// and the tube alike.
#pragma once

#include "reactors/batch.h"

#include <optional>

namespace zorvant {

/// CalcBatchKessel that may take so many sub-steps of integration; they are counted off. More are an
/// overflow.
void CalcBatchKesselWithin(const ProjectState& ps, int model, double t, SpeciesArray& cOut,
                           bool& err, std::vector<MessageBox>& messages, long long& work);

/// UA - U(t) of the state's model.
class ConversionSearch {
public:
    explicit ConversionSearch(ProjectState& ps);

    /// UA - (c(A,0) - c(A)(t))/c(A,0); t goes to tVerweil, the state to cEnd.
    /// Returned: nothing on an error
    std::optional<double> Missing(double t);
    /// Ends a search that has a result. A time that is none (not above 0) is bracketed.
    TimeSearch Found(double t);
    /// After a search without a result: a time at which the conversion is passed.
    TimeSearch Bracket();

private:
    /// The time to the conversion if the reaction went on as it begins, TU. Bracketing starts there,
    /// so that it takes as long in any time unit.
    double TimeAtFirstRate() const;

    ProjectState& ps_;
    double latest_;  ///< TU
    long long work_; ///< sub-steps left
    std::vector<MessageBox> messages_;
};

} // namespace zorvant
