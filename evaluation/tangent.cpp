#include "evaluation/tangent.h"

#include "engine/akima_spline.h"
#include "engine/arithmetic.h"
#include "platform/number_text.h"

#include <algorithm>
#include <cmath>

namespace zorvant {

void FuExtentsTangent(ProjectState& ps, int i) {
    double tLargest = 0;
    double cLargest = 0;
    for (int row = 1; row <= ps.ExpPointCount; ++row) {
        const ExpPoint& point = ps.ExpData.at(static_cast<std::size_t>(row));
        tLargest = std::max(tLargest, point.t);
        cLargest = std::max(cLargest, point.c(i));
    }
    const auto grown = [](double largest) {
        const auto upper = static_cast<float>(largest);
        return Range{0, upper + (upper - 0) / 20};
    };
    const Range t = grown(tLargest);
    const Range c = grown(cLargest);
    if (!std::isfinite(t.upper) || !std::isfinite(c.upper))
        return;
    ps.Memory.RngT = t;
    ps.Memory.RngC = c;
}

TangentResult CalcTangent(const ProjectState& ps, double t) {
    TangentResult result;
    result.outside = !(t >= 0) || static_cast<float>(t) > ps.Frame.xMax;
    if (result.outside)
        return result;
    const int n = ps.ExpPointCount;
    try {
        // The spline must have been laid through this very table.
        if (n < 3 || ps.SplineX.size() <= static_cast<std::size_t>(n) ||
            ps.SplineA.size() <= static_cast<std::size_t>(n))
            ThrowArithmetic(kInvalidCall);
        result.c = Finite(AkimaWert(ps, AkimaMode::Value, ps.SingleSpecies, t, n));
        result.r = Finite(AkimaWert(ps, AkimaMode::Slope, ps.SingleSpecies, t, n));
        result.cText = PlainText(ToSingle(result.c));
        result.rText = PlainText(ToSingle(result.r));
    } catch (const ArithmeticError&) {
        result = {};
        result.failed = true;
    }
    return result;
}

float SmoothingExponent(int position) {
    return static_cast<float>(std::clamp(position, 0, kSmoothingSteps)) / 200;
}

} // namespace zorvant
