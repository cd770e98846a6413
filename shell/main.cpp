// The program: a window, or without one a picture and a table of a project.
#include "platform/host.h"
#include "shell/export.h"
#include "shell/qt/application.h"
#include "shell/qt/plot_picture.h"

#include <QApplication>

#include <cstdio>
#include <filesystem>

namespace {

using namespace zorvant;

std::string ProgramDirectory() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? "." : program.parent_path().string();
}

/// Works where no display is, and without remarks of the toolkit on its surroundings.
void Draw(char* programName, PlotSurface& surface, const CommandLine& line) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", text.toUtf8().constData());
    });
    int argc = 1;
    char* argv[] = {programName, nullptr};
    const QApplication application(argc, argv);
    RenderPicture(surface, line.picture, {line.width, line.height}, line.scale);
}

} // namespace

int main(int argc, char** argv) {
    host().programDirectory = ProgramDirectory();
    CommandLine line;
    try {
        line = ParseCommandLine({argv + 1, argv + argc});
    } catch (const UsageError& error) {
        std::fprintf(stderr, "zorvant: %s\nzorvant --help tells what it can do.\n", error.what());
        return kFailure;
    }
    switch (line.task) {
    case Task::Help:
        std::fputs(HelpText().c_str(), stdout);
        return kSuccess;
    case Task::Version:
        std::puts("ZORVANT " ZORVANT_VERSION);
        return kSuccess;
    case Task::Export:
        return RunExport(line, [&](PlotSurface& surface, const CommandLine& wanted) {
            Draw(argv[0], surface, wanted);
        });
    case Task::Window:
        break;
    }
    // The window takes the project alone; whatever else is in the name is no option of the toolkit.
    std::string project = line.project;
    char* arguments[] = {argv[0], project.data(), nullptr};
    return RunWindow(project.empty() ? 1 : 2, arguments);
}
