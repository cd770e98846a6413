#include "shell/export.h"

#include "data/project_file.h"
#include "dialogs/course/frm_prepare_time_diagram.h"
#include "dialogs/course/frm_sim_tabelle.h"
#include "dialogs/course/frm_zor_model.h"
#include "dialogs/diagram/diagram_document.h"
#include "engine/reaction_catalogue.h"
#include "platform/encoding.h"
#include "platform/files.h"
#include "platform/host.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <utility>
#include <vector>

namespace zorvant {
namespace {

/// What lies on the desk while a course is drawn.
struct CourseDesk {
    Workspace ps;
    DiagramDocument diagram{ps};
    frmZorModel model{ps};
    frmPrepareTimeDiagram course{ps, diagram};
    frmSimTabelle table{ps};
};

/// Notes whether a box told of a failure, or warned of anything, while it is in scope.
class FailureWatch {
public:
    FailureWatch() : shown_(host().messageBox) {
        host().messageBox = [this](const MessageBox& box) {
            failed_ = failed_ || box.icon == Icon::Critical;
            warned_ = warned_ || box.icon == Icon::Warning;
            return shown_(box);
        };
    }
    ~FailureWatch() { host().messageBox = shown_; }
    FailureWatch(const FailureWatch&) = delete;
    FailureWatch& operator=(const FailureWatch&) = delete;
    bool Failed() const { return failed_; }
    bool Warned() const { return warned_; }

private:
    decltype(Host::messageBox) shown_;
    bool failed_ = false, warned_ = false;
};

/// Whether two names stand for one file, whatever links lead there; none of them need exist.
bool IsSameFile(const std::string& one, const std::string& other) {
    namespace fs = std::filesystem;
    std::error_code error;
    if (fs::equivalent(one, other, error))
        return true;
    const fs::path here = fs::weakly_canonical(fs::absolute(one), error);
    return !error && here == fs::weakly_canonical(fs::absolute(other), error) && !error;
}

/// An output must not take the place of an input or of the other output.
void CheckOutputs(const CommandLine& line, const std::string& dataFile) {
    const std::array<std::string, 4> files{line.picture, line.table, line.project, dataFile};
    for (std::size_t output = 0; output < 2; ++output)
        for (std::size_t other = output + 1; other < files.size(); ++other)
            if (!files[output].empty() && !files[other].empty() &&
                IsSameFile(files[output], files[other]))
                throw FileError("\"" + files[output] + "\" would be written over \"" +
                                files[other] + "\": they are the same file");
}

/// Columns of r(P)-c(S) pairs are no course in time.
bool HasTimePoints(const Workspace& ps) {
    return ps.nCtPoints > 0 && !(IsEnzymeModel(ps.ModelId) && ps.RcSMode);
}

void OpenProject(CourseDesk& desk, const CommandLine& line) {
    Workspace& ps = desk.ps;
    InitProjectState(ps);
    ps.RateDiagram = line.rates;
    std::string dataFile;
    bool ok = false;
    FuLoadProjectFile(ps, line.project, dataFile, ok);
    if (!ok)
        return;
    LoadDataOfProject(ps, line.project, dataFile, false);
    for (Form* form : std::initializer_list<Form*>{&desk.model, &desk.table, &desk.diagram})
        ps.desktop.forms.push_back(form);
    // The model dialog opens last: as it loads it fills the open calculation dialog.
    ShowForm(ps.desktop, desk.course);
    ShowForm(ps.desktop, desk.model);
    if (HasTimePoints(ps))
        Press(desk.course.chkMitPunkten, true);
}

int Fail(const std::string& why) {
    std::fprintf(stderr, "zorvant: %s\n", TerminalText(why).c_str());
    return kFailure;
}

int Export(const CommandLine& line, const DrawPicture& draw) {
    constexpr const char* kNoSolution = "the course has no solution with these values";
    const FailureWatch watch;
    CourseDesk desk;
    OpenProject(desk, line);
    if (watch.Failed() || watch.Warned()) // without its data it would be another picture
        return kFailure;
    if (line.michaelis && !IsEnzymeModel(desk.ps.ModelId))
        return Fail("--michaelis is for projects of the enzyme model");
    CheckOutputs(line, desk.ps.DataFilePath);
    std::vector<PreparedFile> ready;
    if (!line.table.empty()) {
        Press(line.michaelis ? desk.course.cmdMichaelisListe : desk.course.cmdListe);
        if (watch.Failed())
            return kFailure;
        if (!desk.table.loaded)
            return Fail(kNoSolution);
        ready.emplace_back(line.table, EncodeText(desk.table.txtSimTabelle.text));
    }
    if (!line.picture.empty()) {
        Press(line.michaelis ? desk.course.cmdMMdiagram : desk.course.cmdDrawctDiagram);
        if (watch.Failed())
            return kFailure;
        if (!desk.diagram.loaded)
            return Fail(kNoSolution);
        ready.emplace_back(line.picture, draw(desk.diagram.surface, line));
    }
    for (PreparedFile& file : ready)
        file.Commit();
    return kSuccess;
}

} // namespace

int RunExport(const CommandLine& line, const DrawPicture& draw) {
    try {
        return Export(line, draw);
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}

} // namespace zorvant
