// The program: a window, or without one a picture and a table of a project.
#include "platform/encoding.h"
#include "platform/files.h"
#include "platform/host.h"
#include "shell/export.h"
#include "shell/qt/application.h"
#include "shell/qt/plot_picture.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <array>
#include <csignal>
#include <cstdio>
#include <filesystem>

namespace {

using namespace zorvant;

std::string ProgramDirectory() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? "." : program.parent_path().string();
}

/// Whether letters differ: without any font each of them is a box.
bool HasLetters() {
    std::array<QImage, 2> drawn;
    for (std::size_t i = 0; i < drawn.size(); ++i) {
        drawn[i] = QImage(32, 32, QImage::Format_RGB32);
        drawn[i].fill(Qt::white);
        QPainter(&drawn[i]).drawText(8, 24, QString(QChar(u'A' + static_cast<int>(i))));
    }
    return drawn[0] != drawn[1];
}

/// Works where no display is, and without remarks of the toolkit on its surroundings.
std::string Draw(char* programName, PlotSurface& surface, const CommandLine& line) {
    qputenv("QT_QPA_PLATFORM", "offscreen"); // others may have no fonts, or no picture at all
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", TerminalText(text.toStdString()).c_str());
    });
    int argc = 1;
    char* argv[] = {programName, nullptr};
    const QApplication application(argc, argv);
    if (!HasLetters())
        throw FileError("no font is installed that a picture could be lettered with");
    return PictureBytes(surface, line.picture, {line.width, line.height}, line.scale);
}

} // namespace

int main(int argc, char** argv) {
    host().programDirectory = ProgramDirectory();
    CommandLine line;
    try {
        line = ParseCommandLine({argv + 1, argv + argc});
    } catch (const UsageError& error) {
        std::fprintf(stderr, "zorvant: %s\nzorvant --help tells what it can do.\n",
                     TerminalText(error.what()).c_str());
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
        std::signal(SIGPIPE, SIG_IGN); // a table into a pipe that closes is an error like others
        return RunExport(line, [&](PlotSurface& surface, const CommandLine& wanted) {
            return Draw(argv[0], surface, wanted);
        });
    case Task::Window:
        break;
    }
    // The window takes the project alone; whatever else is in the name is no option of the toolkit.
    std::string project = line.project;
    char* arguments[] = {argv[0], project.data(), nullptr};
    return RunWindow(project.empty() ? 1 : 2, arguments);
}
