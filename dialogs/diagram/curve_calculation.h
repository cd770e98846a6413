// What a draw fetches: one curve of any kind of diagram into a buffer.
#pragma once

#include "diagrams/regression.h"
#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// One curve of the kind into the buffer.
/// Given:    kind; slot taken for the curve; the shared arrays or the data set; CurvesToDraw says
///           which species is next
/// Returned: curve  element 0 the count, then the points; left as the caller filled it for kinds
///                  that have no curve of their own
///           a, b, r2  line of the evaluation kinds
///           outside   false as soon as a point lies in the y range of the frame
///           failed, note  an arithmetic error and its text
///           the result line, k(1), the label of the slot
void CalcCurve(Workspace& ps, DiagramDocument& doc, int kind, int& slot, PointBuffer& curve,
               double& a, double& b, float& r2, std::string& note, bool& outside, bool& failed);

/// Whether any point of a buffer lies in the y range of the frame.
bool SeenInFrame(const DiaKoord& frame, const PointBuffer& curve);

/// The straight line of a solved regression over the whole frame, 120 steps and one beyond it.
/// Given:    n parameters, the solved matrix, the frame
/// Returned: a, b; the line in the buffer; outside becomes false where y lies inside the frame
/// Errors:   ArithmeticError "Overflow"
/// Formula:  y = a + b x
void FuRegressGerade(const DiaKoord& frame, int n, const RegressionMatrix& matrix, double& a,
                     double& b, bool& outside, PointBuffer& curve);

} // namespace zorvant
