// The residuals of the kinetic fits: how far a model with trial parameters lies from the table of
// measured values.
#pragma once

#include "engine/modes.h"
#include "engine/project_state.h"
#include "evaluation/marquardt_nash.h"

#include <memory>

namespace zorvant {

/// Keeps the vector whose residuals were asked for last.
class KineticProblem : public LeastSquaresProblem {
public:
    const FitVector& LastVector() const { return last_; }

protected:
    FitVector last_{};
};

/// The residuals of rows 1..m by FitMode, ModelId and kTFunction of the state. The state is read
/// here and not touched afterwards; nothing is allocated once the problem is made.
/// Given:    FitMode below 6: b = k1, k2, k3, with FitMode 2: k1, n; c0, OrderN and tMax of the
///           state, FitSpecies: which species count. FitMode 6, 7: b = A or B, energy; c0Data(1)
/// Returned: a residual for each active row, mol/L: the sum of the absolute deviations of the
///           selected species, 0 where the model has no value; with FitMode 6, 7 the signed
///           deviation of c(A) for the rows with T > 0
/// Errors:   std::invalid_argument: the table has no m rows. CalcResiduals: ArithmeticError
std::unique_ptr<KineticProblem> MakeKineticProblem(const ProjectState& ps, int m);

} // namespace zorvant
