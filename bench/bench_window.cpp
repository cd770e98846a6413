// How fast the window answers: start to the first painted window, the click on draw to the painted
// diagram, a key in a field to its painted effect, rows pasted into the painted list of the data
// editor and a key in a list of the largest length. Prints times in ms, the median of several runs.
//
//     QT_QPA_PLATFORM=offscreen bench_window
#include "dialogs/course/frm_zor_model.h"
#include "dialogs/data/frm_datedit.h"
#include "platform/host.h"
#include "shell/qt/application.h"
#include "shell/qt/binder.h"

#include <QtWidgets>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>

namespace {

using namespace zorvant;
using Clock = std::chrono::steady_clock;

constexpr int kDraws = 9; ///< per model
constexpr int kKeys = 51;
constexpr int kPastedRows = 10000, kPastes = 9;

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

void PressKey(QWidget& widget, int code, const QString& text, Qt::KeyboardModifiers with = {}) {
    QKeyEvent key(QEvent::KeyPress, code, with, text);
    QCoreApplication::sendEvent(&widget, &key);
}

template <class Widget> Widget& Child(const QWidget& root, const char* name) {
    return *root.findChild<Widget*>(QString::fromLatin1(name));
}

/// Times of one action by the clock and of the processor, which other programs do not lengthen.
class Times {
public:
    void Start() {
        start_ = Clock::now();
        used_ = std::clock();
    }
    void Stop() {
        clock_.push_back(Milliseconds(start_));
        processor_.push_back(static_cast<double>(std::clock() - used_) * 1e3 / CLOCKS_PER_SEC);
    }
    void Print(const char* what, int rows) const {
        std::printf("%s, %d rows: %.1f ms, of the processor %.1f ms, the slowest %.1f ms\n", what,
                    rows, Median(clock_), Median(processor_), std::ranges::max(processor_));
    }

private:
    Clock::time_point start_;
    std::clock_t used_ = 0;
    std::vector<double> clock_, processor_;
};

/// The data editor: a paste of many rows, and keys in the longest list that there is.
void MeasureEditor(Application& program) {
    Workspace& ps = program.state();
    auto& editor = dynamic_cast<frmDatedit&>(*FindForm(ps.desktop, "frmDatedit"));
    host().messageBox = [](const MessageBox&) { return Answer::Yes; };
    ShowForm(ps.desktop, editor);
    Binder::PushAll();
    Paint();
    auto& table = Child<QTableView>(*program.windows().WidgetOf(editor), "Grid");
    table.setFocus();

    QString rows;
    for (int i = 0; i < kPastedRows; ++i)
        rows += QStringLiteral("%1,25\t0,%2\t0,%3\t298,15\r\n").arg(i).arg(99999 - i).arg(i + 1);
    QGuiApplication::clipboard()->setText(rows);
    Times pastes;
    for (int i = 0; i < kPastes; ++i) {
        Binder::Run(nullptr, [&] {
            if (ps.ExpPointCount > 0)
                Press(editor.cmdUndo);
        });
        Paint();
        table.setCurrentIndex(table.model()->index(0, 2));
        pastes.Start();
        PressKey(table, Qt::Key_V, QStringLiteral("\x16"), Qt::ControlModifier);
        Paint();
        pastes.Stop();
    }
    pastes.Print("paste into the painted list", ps.ExpPointCount);

    Binder::Run(nullptr, [&] {
        ps.ExpData.resize(kMaxExpPoints + 1, {.t = 1, .cA = 0.5, .T = 300});
        ps.ExpPointCount = kMaxExpPoints;
        editor.onActivate(); // shows what was changed elsewhere
    });
    Paint();
    struct Pressed {
        const char* what;
        int code;
        const char* text;
    };
    // Digits go into the cell's editor, Enter into the table.
    for (const Pressed& each : {Pressed{"the cursor down", Qt::Key_Down, ""},
                                Pressed{"a digit in a cell", Qt::Key_7, "7"},
                                Pressed{"Enter in a cell", Qt::Key_Return, "\r"}}) {
        Times times;
        for (int i = 0; i < kKeys; ++i) {
            const QModelIndex cell = table.model()->index(100 + i, 3);
            const bool enters = each.code == Qt::Key_Return;
            if (each.code != Qt::Key_Down) {
                table.setCurrentIndex(cell);
                if (enters)
                    PressKey(table, Qt::Key_7, QStringLiteral("7"));
                Paint();
            }
            QWidget* const inCell = QApplication::focusWidget();
            times.Start();
            PressKey(enters && inCell != nullptr ? *inCell : table, each.code,
                     QString::fromLatin1(each.text));
            Paint();
            times.Stop();
            if (each.code == Qt::Key_7 && QApplication::focusWidget() != nullptr)
                PressKey(*QApplication::focusWidget(), Qt::Key_Escape, {});
            Paint();
        }
        times.Print(each.what, ps.ExpPointCount);
    }
}

} // namespace

int main(int argc, char** argv) {
    const auto start = Clock::now();
    QApplication application(argc, argv);
    Application program;
    host().quit = [] {};
    const QTemporaryDir folder; // what it leaves unsaved is nobody's
    host().programDirectory = folder.path().toStdString();
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
    MeasureEditor(program);
    return 0;
}
