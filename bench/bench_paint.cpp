// From the call that opens a diagram to its painted picture: 1200x800 pixels, four curves of 201
// points, 50 measured points; and a full diagram of 24 curves of 301 points, seven point sets of
// 100, legend and labels. One frame of a screen is 16.7 ms.
#include "data/exp_data.h"
#include "dialogs/diagram/dispatcher.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"
#include "shell/qt/plot_picture.h"
#include "shell/qt/plot_view.h"

#include <QApplication>
#include <QFrame>

#include <benchmark/benchmark.h>

namespace {

using namespace zorvant;

constexpr int kModel = 7; ///< A, B, C and P
constexpr QSize kPicture(1200, 800);

void SetUp(Workspace& ps) {
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
    Workspace ps;
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
    Workspace ps;
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

/// All curves, point sets, labels and legend lines that a diagram can have.
void Fill(PlotSurface& surface) {
    constexpr int kCurvePoints = 301, kSetPoints = 100;
    const PlotBatch batch(surface);
    SetAxis(surface, AxisId::X, 0, 100, 0, 100);
    SetAxis(surface, AxisId::Y, 0, 1, 0, 1);
    const auto decay = [](double t, int series) { return std::exp(-t * series * 0.006); };
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        std::vector<double> t, c;
        for (int i = 0; i < kCurvePoints; ++i) {
            t.push_back(100.0 * i / (kCurvePoints - 1));
            c.push_back(decay(t.back(), slot));
        }
        SetPoints(surface, kLines, slot, t, c);
        SetLineStyle(surface, kLines, slot, {.pattern = LinePattern::Solid, .width = 1});
        SetSeriesLabel(surface, kLines, slot, "curve " + std::to_string(slot));
        AttachLabelToPoint(surface, slot, kLines, slot, 10 * slot);
        SetLabelVisible(surface, slot, true);
    }
    for (int set = 1; set <= kPointSets; ++set) {
        std::vector<double> t, c;
        for (int i = 0; i < kSetPoints; ++i) {
            t.push_back(i);
            c.push_back(0.9 * decay(t.back(), 3 * set));
        }
        SetPoints(surface, kPoints, set, t, c);
        SetSeriesLabel(surface, kPoints, set, "measured " + std::to_string(set));
    }
    SetLegendVisible(surface, true);
}

/// The full diagram, open in a window.
struct FullDiagram {
    FullDiagram() : diagram((SetUp(ps), ps)) {
        view.resize(kPicture);
        view.show();
        GrafZentrale(ps, diagram);
        Fill(diagram.surface);
        view.Show(diagram.surface);
        view.repaint();
        QApplication::processEvents();
    }
    Workspace ps;
    DiagramDocument diagram;
    PlotView view;
};

/// A change of its data: everything is laid out and painted anew.
void RepaintFullDiagram(benchmark::State& state) {
    FullDiagram full;
    PlotSurface& surface = full.diagram.surface;
    double top = 1;
    for (auto _ : state) {
        top = 2.1 - top;
        SetAxis(surface, AxisId::Y, 0, top, 0, top);
        full.view.Show(surface);
        full.view.repaint();
    }
}
BENCHMARK(RepaintFullDiagram)->Unit(benchmark::kMillisecond);

/// A colour: everything stays where it is.
void RecolourFullDiagram(benchmark::State& state) {
    FullDiagram full;
    Colour colour = 0;
    for (auto _ : state) {
        SetLineColour(full.diagram.surface, kLines, 1, colour ^= 0xFF);
        full.view.Show(full.diagram.surface);
        full.view.repaint();
    }
}
BENCHMARK(RecolourFullDiagram)->Unit(benchmark::kMillisecond);

/// One step of the rectangle that the mouse draws.
void DragZoomRectangle(benchmark::State& state) {
    FullDiagram full;
    PlotSurface& surface = full.diagram.surface;
    StartRubberZoom(surface);
    RubberDown(surface, 300, 200);
    double x = 400;
    for (auto _ : state) {
        RubberMove(surface, x = 900 - x, 500);
        full.view.Show(surface);
        full.view.repaint();
    }
}
BENCHMARK(DragZoomRectangle)->Unit(benchmark::kMillisecond);

/// One step of a panel that is dragged over the chart.
void DragPanel(benchmark::State& state) {
    FullDiagram full;
    QFrame panel(&full.view);
    panel.setAutoFillBackground(true);
    panel.resize(350, 260);
    panel.show();
    QApplication::processEvents();
    const int before = full.view.Repaints();
    int x = 100;
    for (auto _ : state) {
        panel.move(x = 220 - x, 120);
        full.view.repaint();
    }
    state.counters["diagrams painted"] = full.view.Repaints() - before;
}
BENCHMARK(DragPanel)->Unit(benchmark::kMillisecond);

void WriteLargePng(benchmark::State& state) {
    FullDiagram full;
    const PictureMeasure measure = MeasureByScale({1000, 750}, 4);
    std::size_t bytes = 0;
    for (auto _ : state)
        bytes = PictureBytes(full.diagram.surface, PictureFormat::Png, measure).size();
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(WriteLargePng)->Unit(benchmark::kMillisecond);

void WritePicture(benchmark::State& state, const char* ending) {
    Workspace ps;
    SetUp(ps);
    DiagramDocument diagram(ps);
    GrafZentrale(ps, diagram);
    for (auto _ : state)
        benchmark::DoNotOptimize(PictureBytes(diagram.surface, ending, kPicture));
}
BENCHMARK_CAPTURE(WritePicture, Png, ".png")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WritePicture, Svg, ".svg")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WritePicture, Pdf, ".pdf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WritePicture, Emf, ".emf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WritePicture, Wmf, ".wmf")->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
