// Loading, counting and saving of the largest table.
#include "data/exp_data.h"
#include "data/exp_file.h"
#include "data/formats/table_text.h"
#include "platform/number_text.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

using namespace zorvant;

namespace {

/// The largest table that there can be, its values as measured ones are.
ProjectState LargestTable() {
    ProjectState ps;
    ps.ExpPointCount = kMaxExpPoints;
    ps.ExpData.resize(kMaxExpPoints + 1);
    for (int i = 1; i <= kMaxExpPoints; ++i) {
        ExpPoint& p = ps.ExpData[static_cast<std::size_t>(i)];
        p.t = 0.37 * i;
        p.cA = std::exp(-1e-4 * i);
        p.cP = 1 - p.cA;
        p.T = 290 + i % 24;
        p.k = 1.234e-5 * i;
    }
    return ps;
}

std::string TemporaryPath() {
    return std::filesystem::temp_directory_path() / "zorvant_bench.ZI3";
}

void CountRows(benchmark::State& state) {
    state.counters["rows/s"] = benchmark::Counter(static_cast<double>(kMaxExpPoints) *
                                                      static_cast<double>(state.iterations()),
                                                  benchmark::Counter::kIsRate);
}

void BM_SaveLargestTable(benchmark::State& state) {
    const ProjectState ps = LargestTable();
    bool ok = false;
    for (auto _ : state)
        WriteDataFile(ps, TemporaryPath(), ok);
    CountRows(state);
}
BENCHMARK(BM_SaveLargestTable)->Unit(benchmark::kMillisecond);

void BM_LoadLargestTable(benchmark::State& state) {
    ProjectState ps = LargestTable();
    bool ok = false;
    WriteDataFile(ps, TemporaryPath(), ok);
    for (auto _ : state)
        LoadExpFile(ps, TemporaryPath(), false, ok);
    CountRows(state);
    std::filesystem::remove(TemporaryPath());
}
BENCHMARK(BM_LoadLargestTable)->Unit(benchmark::kMillisecond);

void BM_CountLargestTable(benchmark::State& state) {
    ProjectState ps = LargestTable();
    for (auto _ : state)
        FuCheckExpData(ps);
    CountRows(state);
}
BENCHMARK(BM_CountLargestTable)->Unit(benchmark::kMillisecond);

/// What a spreadsheet of a country with decimal commas puts on the clipboard.
void BM_PasteTenThousandRows(benchmark::State& state) {
    std::string text = "t/s\tc(A)\tc(P)\tT/K\r\n";
    for (int i = 0; i < 10000; ++i) {
        std::string row = FormatNumber(0.37 * i, "0.00") + "\t" +
                          FormatNumber(std::exp(-1e-4 * i), "0.000000") + "\t" +
                          FormatNumber(1 - std::exp(-1e-4 * i), "0.000000") + "\t298.15\r\n";
        std::ranges::replace(row, '.', ',');
        text += row;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadTable(text, GuessTableLayout(text).layout));
}
BENCHMARK(BM_PasteTenThousandRows)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
