// How fast the window answers: start to the first painted window, the click on draw to the painted
// diagram, a key in a field to its painted effect. Prints times in ms, the median of several runs.
//
//     QT_QPA_PLATFORM=offscreen bench_window
#include "engine/frm_zor_model.h"
#include "platform/host.h"
#include "shell/qt/application.h"
#include "shell/qt/binder.h"

#include <QtWidgets>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

using namespace zorvant;
using Clock = std::chrono::steady_clock;

constexpr int kDraws = 9; ///< per model
constexpr int kKeys = 51;

double Milliseconds(Clock::time_point from) {
    return std::chrono::duration<double, std::milli>(Clock::now() - from).count();
}

double Median(std::vector<double> times) {
    std::ranges::sort(times);
    return times[times.size() / 2];
}

/// What is due is laid out and painted.
void Paint() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

template <class Widget> Widget& Child(const QWidget& root, const char* name) {
    return *root.findChild<Widget*>(QString::fromLatin1(name));
}

} // namespace

int main(int argc, char** argv) {
    const auto start = Clock::now();
    QApplication application(argc, argv);
    Application program;
    host().quit = [] {};
    program.Start("");
    Paint();
    std::printf("start to the first painted window: %.0f ms\n", Milliseconds(start));

    const auto widget = [&](const char* form) -> QWidget& {
        return *program.windows().WidgetOf(*FindForm(program.state().desktop, form));
    };
    Child<QAction>(program.window(), "mnuctGraph").trigger();
    Paint();
    double slowest = 0;
    for (int option = 0; option < 20; ++option) {
        Child<QRadioButton>(widget("frmZorModel"), ("optTyp_" + std::to_string(option)).c_str())
            .click();
        Paint();
        auto& draw = Child<QPushButton>(widget("frmPrepareTimeDiagram"), "cmdDrawctDiagram");
        std::vector<double> times;
        for (int i = 0; i < kDraws; ++i) {
            const auto click = Clock::now();
            draw.click();
            Paint();
            times.push_back(Milliseconds(click));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        const double median = Median(times);
        slowest = std::max(slowest, median);
        std::printf("draw, model %2d: %.1f ms\n", program.state().ModelId, median);
    }
    std::printf("slowest draw: %.1f ms\n", slowest);

    auto& field = Child<QLineEdit>(widget("frmPrepareTimeDiagram"), "Inp_0");
    field.setFocus();
    std::vector<double> keys;
    for (int i = 0; i < kKeys; ++i) {
        const auto press = Clock::now();
        QKeyEvent key(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, QStringLiteral("1"));
        QCoreApplication::sendEvent(&field, &key);
        Paint();
        keys.push_back(Milliseconds(press));
        if (i % 8 == 7)
            field.clear();
    }
    std::printf("a key in a field: %.2f ms\n", Median(keys));
    return 0;
}
