// Fits beside their plain form, in ratios of one run. Exit status 1 when a ratio misses its bound.
#include "bench/ratio.h"
#include "bench/reference/fit_reference.h"
#include "evaluation/kinetic_fit.h"
#include "tests/evaluation/fit_states.h"

#include <cstdio>
#include <string>

using namespace zorvant;
using namespace zorvant::fit_states;

namespace {

/// A fit from starts that are off by a fifth or so.
struct Task {
    Task(int model, int mode, int m, bool all) : ps(Selected(model, mode)) {
        Measure(*ps, m);
        Tick(*ps, all);
        n = ParameterCount(*ps);
        start = {0, 1.3 * ps->k[1], mode == kFitOrder ? 1.7 : 0.8 * ps->k[2], 1.2 * ps->k[3]};
        name = "  model " + std::to_string(model) + ", n = " + std::to_string(n) +
               (mode == kFitOrder ? ", order fitted"
                : all             ? ", all species"
                                  : "");
    }
    FitRun Fast() {
        FitVector param = start, stdDev{};
        bool limit = false;
        return MarquardtNashFitting(*ps, n, ps->ExpPointCount, param, stdDev, limit);
    }
    FitRun Plain() {
        FitVector param = start, stdDev{};
        bool limit = false;
        return reference::MarquardtNashFitting(*ps, n, ps->ExpPointCount, param, stdDev, limit);
    }

    std::unique_ptr<ProjectState> ps;
    int n = 0;
    FitVector start{};
    std::string name;
};

bool Compare(Task task, double bound) {
    return bench::Report(task.name.c_str(),
                         bench::CompareTimes([&] { task.Fast(); }, [&] { task.Plain(); }), bound);
}

/// The plain form of a long fit from the cost of its parts: what one point's derivatives take, at
/// five points along the table, and what one sum of squares takes.
bool CompareEstimated(Task task, double bound) {
    const int m = task.ps->ExpPointCount;
    const FitRun run = task.Fast();
    FitVector b = task.start;
    const auto derivatives = [&] {
        for (int part = 1; part <= 5; ++part) {
            double res = 0;
            FitVector J{};
            reference::CalcAbleitungen(*task.ps, task.n, part * m / 5, b, res, J);
        }
    };
    const bench::Times times = bench::CompareTimes([&] { task.Fast(); }, derivatives);
    const auto sum = [&] {
        double F = 0;
        int ifn = 0;
        reference::calcFQS_Marquardt(*task.ps, m, b, F, ifn);
    };
    const double plain = times.plain / 5 * m * run.ig + bench::SecondsOf(sum, 3) * run.ifn;
    return bench::Report(task.name.c_str(), {times.fast, plain}, bound);
}

constexpr int kClosedForms[] = {1, 2, 3, 4, 5, 6, 8, 11, 12, 16, 17, 19};
constexpr int kNumeric[] = {7, 9, 10, 13, 14, 15, 18, 20};

} // namespace

int main() {
    bool kept = true;
    for (const bool all : {false, true}) {
        std::puts("closed forms, m = 100");
        for (const int model : kClosedForms)
            kept &= Compare({model, kFitConstants, 100, all}, 0.33);
        std::puts("numeric models, m = 20");
        for (const int model : kNumeric)
            kept &= Compare({model, kFitConstants, 20, all}, 0.015);
    }
    Compare({20, kFitOrder, 20, true}, 0.015);
    for (const auto& [m, bound] : {std::pair(1000, 5e-4), std::pair(10000, 1.5e-4)}) {
        std::printf("numeric models, m = %d, the plain form estimated\n", m);
        for (const int model : kNumeric)
            kept &= CompareEstimated({model, kFitConstants, m, false}, bound);
        CompareEstimated({20, kFitOrder, m, true}, bound);
    }
    return kept ? 0 : 1;
}
