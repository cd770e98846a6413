// Courses and the spline beside their plain forms, in ratios of one run. Exit status 1 when a ratio
// misses its bound.
#include "bench/ratio.h"
#include "bench/reference/course_reference.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"
#include "engine/time_units.h"

#include <cmath>
#include <memory>
#include <string>

using namespace zorvant;

namespace {

std::unique_ptr<ProjectState> Selected(int model) {
    auto ps = std::make_unique<ProjectState>();
    InitProjectState(*ps);
    ps->ModelId = model;
    FuMaskenSetzen(*ps, model);
    SetDefaultK(*ps);
    SelectionDefaultTimes(*ps);
    SelectionDefaultConcentrations(*ps);
    SelectionDefaultConstants(*ps);
    return ps;
}

bool CompareCourses(const std::string& name, ProjectState& ps, double bound) {
    bool err = false;
    const auto fast = [&] { calc_diagram_function(ps, ps.ModelId, ps.tMax, err); };
    const auto plain = [&] { reference::calc_diagram_function(ps, ps.ModelId, ps.tMax, err); };
    return bench::Report(name.c_str(), bench::CompareTimes(fast, plain), bound);
}

/// Sets at the edge of what the most sub-steps of an interval can follow: the fastest process
/// passes in 1/128000 of the time unit, an interval lasts half a unit.
struct StiffSet {
    int model;
    float n;
    ConstantArray k;
};
constexpr StiffSet kStiffest[] = {
    {7, 1.5F, {0, 1e5, 1e5, 0}},        {9, 1.5F, {0, 0.15, 1.28e5, 0}},
    {10, 1.5F, {0, 3e4, 1e3, 1e-3}},    {13, 1.5F, {0, 0.15, 1.28e5, 5e2}},
    {14, 1.5F, {0, 0.15, 1.28e5, 5e2}}, {15, 1.5F, {0, 1.2e5, 8e3, 0.15}},
    {18, 1.5F, {0, 0.15, 1.28e5, 5e2}}, {20, 1.0F, {0, 1.28e5, 0, 0}},
};

} // namespace

int main() {
    bool kept = true;
    std::puts("numeric courses at defaults");
    for (const int model : {7, 9, 10, 13, 14, 15, 18}) {
        const auto ps = Selected(model);
        kept &= CompareCourses("  model " + std::to_string(model), *ps, 0.36);
    }
    for (const float n : {0.5F, 1.0F, 1.5F, 2.0F, 3.0F}) {
        const auto ps = Selected(20);
        ps->OrderN = n;
        kept &= CompareCourses("  model 20, n = " + std::to_string(n), *ps, 0.30);
    }
    for (const float n : {0.7F, 1.25F, 2.5F}) {
        const auto ps = Selected(20);
        ps->OrderN = n;
        kept &= CompareCourses("  model 20, n = " + std::to_string(n), *ps, 0.85);
    }
    std::puts("stiffest sets");
    for (const StiffSet& set : kStiffest) {
        const auto ps = Selected(set.model);
        ps->k = set.k;
        ps->OrderN = set.n;
        kept &= CompareCourses("  model " + std::to_string(set.model), *ps, 0.31);
    }
    std::puts("closed-form courses of 201 points");
    for (const int model : {1, 2, 3, 4, 5, 6, 8, 11, 12, 16, 17, 19}) {
        const auto ps = Selected(model);
        kept &= CompareCourses("  model " + std::to_string(model), *ps, 0.8);
    }

    std::puts("spline in ascending order of x");
    const auto ps = Selected(9);
    bool err = false;
    calc_diagram_function(*ps, 9, ps->tMax, err);
    const int n = static_cast<int>(ps->SplineX[0]);
    constexpr int kReadings = 1000;
    const double step = ps->tMax / kReadings;
    volatile double sink = 0;
    const auto plain = [&] {
        double sum = 0;
        for (int i = 0; i < kReadings; ++i)
            sum += reference::AkimaWert(*ps, AkimaMode::Value, 1, i * step, n);
        sink = sum;
    };
    const auto fast = [&] {
        double sum = 0;
        int interval = 1;
        for (int i = 0; i < kReadings; ++i) {
            interval = AkimaInterval(*ps, i * step, n, interval);
            sum += AkimaWertIn(*ps, AkimaMode::Value, 1, i * step, n, interval);
        }
        sink = sum;
    };
    kept &= bench::Report("  1000 readings", bench::CompareTimes(fast, plain), 0.1);
    return kept ? 0 : 1;
}
