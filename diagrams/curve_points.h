// The points of a curve: what a draw fetches for each kind of diagram.
#pragma once

#include "diagrams/plot_surface.h"
#include "diagrams/regression.h"
#include "engine/project_state.h"

#include <optional>
#include <string>

namespace zorvant {

/// How many points a buffer holds by its element 0, never more than there are elements.
int BufferCount(const PointBuffer& buffer);

/// The points of a buffer as those of a series.
struct CurvePoints {
    std::vector<double> x, y;
};
CurvePoints PointsOf(const PointBuffer& buffer);

/// What a calculation tells beside the points.
struct CurveCalculation {
    std::optional<std::string> label; ///< of the curve, where the kind has one of its own
    bool outside = true;              ///< no point lies in the y range of the frame
    bool failed = false;              ///< an arithmetic error; the points as far as it came
    std::string note;                 ///< its text
    // of the straight lines
    bool line = false; ///< the points of the data set belong beside it
    double a = 0, b = 0;
    float r2 = 0;
    std::optional<double> k; ///< goes into k(1) of the project
    std::string result;      ///< for the result line
    int leftOut = 0;         ///< rows that no logarithm or division takes
};

/// One curve of the kind into the buffer.
/// Given:    kind; slot taken for the curve; steps to the width of the frame; the shared arrays or
///           the data set; CurvesToDraw says which species is next
/// Returned: curve  element 0 the count, then the points; left as the caller filled it for kinds
///                  that have no curve of their own
CurveCalculation CalcCurve(ProjectState& ps, int kind, int slot, int steps, PointBuffer& curve);

/// Whether any point of a buffer lies in the y range of the frame.
bool SeenInFrame(const DiaKoord& frame, const PointBuffer& curve);

/// The straight line of a solved regression over the whole frame, 120 steps and one beyond it.
/// Given:    n parameters, the solved matrix, the frame
/// Returned: a, b; the line in the buffer; outside becomes false where y lies inside the frame
/// Errors:   ArithmeticError "Overflow"
/// Formula:  y = a + b x
void FuRegressGerade(const DiaKoord& frame, int n, const RegressionMatrix& matrix, double& a,
                     double& b, bool& outside, PointBuffer& curve);

/// The time axis of the batch calculation becomes the length of the tube.
/// Errors:   ArithmeticError "Overflow"
void StretchToTube(const ProjectState& ps, PointBuffer& curve);

/// The points of a series without one of them.
PointBuffer WithoutPoint(const PlotSeries& series, int point);

} // namespace zorvant
