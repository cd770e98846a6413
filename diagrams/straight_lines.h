// The straight-line evaluations as one table: which rows of the data set each kind takes, how they
// are transformed, and what intercept and slope mean.
#pragma once

#include "diagrams/diagram_kinds.h"
#include "engine/project_state.h"

#include <optional>
#include <string>
#include <vector>

namespace zorvant {

using RowTest = bool (*)(const ProjectState&, const ExpPoint&);
/// Errors: ArithmeticError for a row that a logarithm or division can't take.
using RowValue = double (*)(const ProjectState&, const ExpPoint&);

/// Intercept a, slope b and what else the results need.
struct FittedLine {
    double a = 0;
    double b = 0;
    float r2 = 0;   ///< coefficient of determination, not shown unless above 0
    double cA0 = 0; ///< mol/L at t = 0, from the data rows (kind -8)
    double cB0 = 0;
};

/// What a line says. Only the quantities of its kind are set.
struct LineResult {
    double KM = 0;                    ///< mol/L
    double rMax = 0;                  ///< r(P)max, mol/(L TU)
    double k = 0;                     ///< 1/TU or L/(mol TU)
    double n = 0;                     ///< order of reaction
    double enthalpy = 0;              ///< h#, kJ/mol
    double entropy = 0;               ///< s#, J/(mol K)
    double EA = 0;                    ///< kJ/mol
    double A = 0;                     ///< pre-exponential factor, unit of k
    std::optional<double> lambdaZero; ///< extrapolated to t = 0
    bool storesK = false;             ///< k goes into k(1) of the project
    std::string text;                 ///< for the result line
};

/// One kind whose points are a transformation of the data rows.
struct EvaluationKind {
    int kind;
    int pointSet;   ///< of the diagram
    RowTest drawn;  ///< the row is a point of the diagram
    RowTest fitted; ///< the row enters the line; null: the kind has no line
    RowValue x;
    RowValue y;
    bool fullWidthX; ///< x is a plain concentration or measured value, not rounded to Single
    bool fullWidthY;
    /// Errors: ArithmeticError.
    LineResult (*result)(const ProjectState&, const FittedLine&);
};

/// Null for a kind without transformed points.
const EvaluationKind* FindEvaluation(int kind);
bool IsStraightLineKind(int kind);

/// The points of a regression, from index 1.
struct RegressionPoints {
    std::vector<float> RegressX{0}, RegressY{0}, RegressW{0};
    int leftOut = 0; ///< active rows that met the condition but no logarithm or division takes
    double cA0 = 0, cB0 = 0; ///< of the last row with t = 0
};

/// All rows that enter the line of a kind, switched-off ones with weight 0.
RegressionPoints CollectRegressionPoints(const ProjectState& ps, int kind);

/// Results and result text of a line; nothing for a kind without one.
/// Errors:  ArithmeticError: a result that can't be computed (no difference of the start
///          concentrations, intercept 0, overflow)
LineResult EvaluateLine(const ProjectState& ps, int kind, const FittedLine& line);

} // namespace zorvant
