// The function that the searches for the time of a conversion bring to zero, for the batch reactor
// and the tube alike.
#pragma once

#include "reactors/batch.h"

#include <optional>

namespace zorvant {

/// UA - U(t) of the state's model.
class ConversionSearch {
public:
    explicit ConversionSearch(ProjectState& ps) : ps_(ps) {}

    /// UA - (c(A,0) - c(A)(t))/c(A,0); t goes to tVerweil, the state to cEnd.
    /// Returned: nothing on an error
    std::optional<double> Missing(double t);
    /// Ends a search that has a result. A time that is none (not above 0) is bracketed.
    TimeSearch Found(double t);
    /// After a search without a result: the first time at which the conversion is passed.
    /// Given: start TU, where the looking begins
    TimeSearch Bracket(double start);

private:
    ProjectState& ps_;
    std::vector<MessageBox> messages_;
};

} // namespace zorvant
