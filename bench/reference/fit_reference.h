// The plain form of the least-squares fit: residual by residual, each from a course of its own, the
// Jacobian point by point and parameter by parameter. The measurements compare the fit's speed with
// it, the tests its digits.
#pragma once

#include "engine/project_state.h"
#include "evaluation/marquardt_nash.h"

namespace zorvant::reference {

/// As zorvant::MarquardtNashFitting; the report is the run alone.
FitRun MarquardtNashFitting(ProjectState& ps, int n, int m, FitVector& FitParam,
                            FitVector& FitStdDev, bool& LimitReached);

/// What the cost of a long fit is estimated from: the derivatives of one point at B.
void CalcAbleitungen(ProjectState& ps, int n, int i, FitVector& B, double& res, FitVector& J);
void calcFQS_Marquardt(ProjectState& ps, int m, const FitVector& B, double& F, int& ifn);

} // namespace zorvant::reference
