// The certified sets whose functions are courses of the catalogue's models.
#pragma once

#include "evaluation/kinetic_fit.h"
#include "tests/evaluation/certified_sets.h"
#include "tests/evaluation/fit_states.h"

#include <algorithm>
#include <cmath>

namespace zorvant::certified {

/// A certified set whose function is the course of c(P). The final concentration b1 is held at its
/// certified value; the constant that is left has its minimum where the set has it.
struct Course {
    const char* set;
    int model;
    float order;
    double unit; ///< of the concentrations, so that the constant lies inside its bounds
};

inline constexpr Course kCourses[] = {
    {"Misra1a", 2, 1, 1},                           // first order
    {"BoxBOD", 2, 1, 1},      {"Misra1d", 4, 2, 1}, // second order: A + B with equal concentrations
    {"Misra1d", 3, 2, 1},                           // and 2A
    {"Misra1b", 20, 1.5F, 1},                       // n-th order, integrated
    {"Misra1c", 20, 3, 100},  {"Rat42", 5, 2, 1},   // autocatalysis: the logistic curve
};

/// What a set's parameters mean in its model.
struct CourseParameters {
    double A0, P0, k;
};
inline CourseParameters Meaning(const Course& course, const FitVector& b) {
    const double final = b[1] / course.unit;
    switch (course.model) {
    case 2:
        return {final, 0, b[2]};
    case 3: // b1 (1 - 1/(1 + b2 x)) = A0/2 (1 - 1/(1 + 2 k A0 t))
        return {2 * final, 0, b[2] / (4 * final)};
    case 4:
        return {final, 0, b[2] / final};
    case 5: // (A0 + P0) / (1 + A0/P0 exp(-(A0 + P0) k t))
        return {final / (1 + std::exp(-b[2])), final / (1 + std::exp(b[2])), b[3] / final};
    default: // A0 (1 - (1 + (n - 1) A0^(n-1) k t)^(-1/(n-1)))
        return {final, 0, b[2] / std::pow(final, static_cast<double>(course.order) - 1)};
    }
}

/// Fits the constant of a set's model from one and a half times its value.
/// Returned: the digits that agree with the certified ones
inline double FitThroughCatalogue(const Course& course) {
    Set set = Load(course.set);
    const CourseParameters right = Meaning(course, set.value);
    for (double& y : set.y)
        y /= course.unit;
    const auto ps = fit_states::Selected(course.model);
    fit_states::Measure(*ps, 4, set.x, set.y);
    ps->c0 = {0, right.A0, right.A0, 0, right.P0, 0};
    ps->OrderN = course.order;
    ps->tMax = 1.05 * *std::ranges::max_element(set.x);
    ps->FitParam = {0, 1.5 * right.k, 0, 0};
    const FitReport report = MarquardtNashFitting(*ps, 1, ps->ExpPointCount, ps->FitParam,
                                                  ps->FitStdDev, ps->LimitReached);
    return report.error.empty() ? AgreeingDigits(ps->FitParam[1], right.k) : 0;
}

} // namespace zorvant::certified
