// From the call that opens a diagram to its painted picture: 1200x800 pixels, four curves of 201
// points, 50 measured points. One frame of a screen is 16.7 ms.
#include "data/exp_data.h"
#include "diagrams/dispatcher.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"
#include "shell/qt/plot_picture.h"
#include "shell/qt/plot_view.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace {

using namespace zorvant;

constexpr int kModel = 7; ///< A, B, C and P
constexpr QSize kPicture(1200, 800);

void SetUp(ProjectState& ps) {
    InitProjectState(ps);
    ps.ModelId = ps.DiagramKind = kModel;
    FuMaskenSetzen(ps, kModel);
    ps.k = {0, 0.15, 0.05, 0};
    ps.c0 = {0, 2, 1, 0, 0, 0};
    ps.tMax = 100;
    bool err = false;
    calc_diagram_function(ps, kModel, ps.tMax, err);
    ps.WithExpPoints = true;
    ps.ExpPointCount = 50;
    ps.ExpData.assign(51, {});
    for (std::size_t i = 1; i <= 50; ++i) {
        ps.ExpData[i].t = 2.0 * static_cast<double>(i);
        ps.ExpData[i].cA = cSim(ps, 1)[4 * i];
    }
    FuCheckExpData(ps);
}

void OpenDiagram(benchmark::State& state) {
    ProjectState ps;
    SetUp(ps);
    DiagramDocument diagram(ps);
    PlotView view;
    view.resize(kPicture);
    view.show();
    QApplication::processEvents();
    diagram.surface.onRepaint = [&] { view.Show(diagram.surface); };
    const int before = view.Repaints();
    for (auto _ : state) {
        state.PauseTiming();
        UnloadForm(ps.desktop, diagram);
        state.ResumeTiming();
        GrafZentrale(ps, diagram);
        view.repaint();
    }
    state.counters["repaints"] =
        benchmark::Counter(view.Repaints() - before, benchmark::Counter::kAvgIterations);
    state.counters["curves"] = ps.CurveCount;
    state.counters["points"] = GetPointCount(diagram.surface, kPoints, 1);
}
BENCHMARK(OpenDiagram)->Unit(benchmark::kMillisecond);

/// One change of the open diagram: a colour.
void ChangeDiagram(benchmark::State& state) {
    ProjectState ps;
    SetUp(ps);
    DiagramDocument diagram(ps);
    PlotView view;
    view.resize(kPicture);
    view.show();
    GrafZentrale(ps, diagram);
    view.Show(diagram.surface);
    Colour colour = 0;
    for (auto _ : state) {
        SetLineColour(diagram.surface, kLines, 1, colour ^= 0xFF);
        view.Show(diagram.surface);
        view.repaint();
    }
}
BENCHMARK(ChangeDiagram)->Unit(benchmark::kMillisecond);

void WritePicture(benchmark::State& state, const char* ending) {
    ProjectState ps;
    SetUp(ps);
    DiagramDocument diagram(ps);
    GrafZentrale(ps, diagram);
    for (auto _ : state)
        benchmark::DoNotOptimize(PictureBytes(diagram.surface, ending, kPicture));
}
BENCHMARK_CAPTURE(WritePicture, Png, ".png")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WritePicture, Svg, ".svg")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WritePicture, Pdf, ".pdf")->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
