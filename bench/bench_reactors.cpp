// Searches and curves of the reactors beside their plain forms, in ratios of one run. Exit status 1
// when a ratio misses its bound.
#include "bench/ratio.h"
#include "bench/reference/reactors_reference.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"
#include "reactors/batch.h"
#include "reactors/cascade.h"
#include "reactors/cstr.h"

#include <memory>
#include <string>

using namespace zorvant;

namespace {

constexpr double kSearchBound = 0.38;
constexpr double kSeriesBound = 0.35;

std::unique_ptr<ProjectState> Selected(int model) {
    auto ps = std::make_unique<ProjectState>();
    InitProjectState(*ps);
    ps->ModelId = model;
    FuMaskenSetzen(*ps, model);
    FillStoich(*ps);
    SetDefaultK(*ps);
    SelectionDefaultTimes(*ps);
    SelectionDefaultConcentrations(*ps);
    SelectionDefaultConstants(*ps);
    return ps;
}

} // namespace

int main() {
    bool kept = true;
    std::puts("batch reactor, search for the time of a conversion");
    for (const int model : {7, 9, 10, 13, 14, 15, 18, 20})
        for (const double U : {0.3, 0.8}) {
            const auto ps = Selected(model);
            ps->UA = U;
            bool err = false;
            const auto fast = [&] { err |= SearchBatchTime(*ps).err; };
            const auto plain = [&] { reference::SearchBatchTime(*ps, err); };
            plain();
            const double t = ps->tVerweil;
            if (err) // no result by secants: nothing to compare
                continue;
            fast();
            if (ps->tVerweil != t) {
                std::printf("  model %d, U = %.1f: t = %.17g, plain %.17g  DIFFERS\n", model, U,
                            ps->tVerweil, t);
                kept = false;
            }
            const std::string name =
                "  model " + std::to_string(model) + ", U = " + std::to_string(U).substr(0, 3);
            kept &= bench::Report(name.c_str(), bench::CompareTimes(fast, plain), kSearchBound);
        }
    std::puts("c(t) of seven tanks, 201 points, model 20");
    for (const float n : {0.5F, 1.0F, 1.5F, 2.0F, 2.7F}) {
        const auto ps = Selected(20);
        ps->OrderN = n;
        const auto fast = [&] { CascadeTimeCurve(*ps, kMostTanks); };
        const auto plain = [&] { reference::CascadeTimeCurve(*ps, kMostTanks); };
        const std::string name = "  n = " + std::to_string(n).substr(0, 3);
        kept &= bench::Report(name.c_str(), bench::CompareTimes(fast, plain), kSeriesBound);
    }
    std::puts("stirred-tank curve, 201 points; series of seven tanks, 201 points");
    for (int model = 1; model <= kModels; ++model) {
        const auto ps = Selected(model);
        auto tank = [&] { CalcTankCurve(*ps); };
        auto series = [&] { CascadeTimeCurve(*ps, kMostTanks); };
        constexpr int kCalls = 50;
        double fastTank = 1e9, fastSeries = 1e9;
        for (int round = 0; round < 31; ++round) {
            fastTank = std::min(fastTank, bench::SecondsOf(tank, kCalls));
            fastSeries = std::min(fastSeries, bench::SecondsOf(series, kCalls));
        }
        std::printf("  model %-2d %10.1f us %10.1f us\n", model, fastTank * 1e6, fastSeries * 1e6);
    }
    return kept ? 0 : 1;
}
