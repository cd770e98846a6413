// The concentrations of a model at one time, and how far they lie from the measured ones.
#pragma once

#include "engine/project_state.h"

#include <string>

namespace zorvant {

/// The concentrations of a model at one time.
/// Given:    model 1..20; t TU; closed forms: k and c0 of the state; numeric models: the spline
///           tables of the latest course; model 10 with MMDiagram: KM and MMNormalized, t is
///           c(S)/KM or c(S)
/// Returned: c [1..5] mol/L of the species in SpeciesMask (closed forms: of the model's species),
///           the other slots keep their values; with MMDiagram c(1) = r(P)/r(P),max
/// Errors:   err: an arithmetic error, a time that is not finite, no course, no real solution; c is
///           unchanged then
void FuModellWert(const ProjectState& ps, int model, double t, SpeciesArray& c, bool& err);

/// The sum of squares by which the quality of a fit is shown.
/// Given:    FitMode below 6: FitSpecies says which species count; every deviation of an active row
///           is squared by itself. FitMode 6, 7: the squares of the residuals at k(T) in FitParam
/// Returned: (mol/L)^2; rows where the model has no value are left out
/// Errors:   ArithmeticError
double FuSumSquares(const ProjectState& ps);

/// sqrt(FuSumSquares / ExpPointCount) as Single; 0 for fewer than two rows.
/// Errors:   ArithmeticError
float RootMeanSquare(const ProjectState& ps);
/// As the workbench shows it: below 0.1 the root of the value.
std::string RootMeanSquareText(float rms);

} // namespace zorvant
