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

#include <cstdio>
#include <utility>

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

/// Notes whether a box told of a failure while it is in scope.
class FailureWatch {
public:
    FailureWatch() : shown_(host().messageBox) {
        host().messageBox = [this](const MessageBox& box) {
            failed_ = failed_ || box.icon == Icon::Critical;
            return shown_(box);
        };
    }
    ~FailureWatch() { host().messageBox = shown_; }
    FailureWatch(const FailureWatch&) = delete;
    FailureWatch& operator=(const FailureWatch&) = delete;
    bool Failed() const { return failed_; }

private:
    decltype(Host::messageBox) shown_;
    bool failed_ = false;
};

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
    std::fprintf(stderr, "zorvant: %s\n", why.c_str());
    return kFailure;
}

int Export(const CommandLine& line, const DrawPicture& draw) {
    const FailureWatch watch;
    CourseDesk desk;
    OpenProject(desk, line);
    if (watch.Failed())
        return kFailure;
    if (line.michaelis && !IsEnzymeModel(desk.ps.ModelId))
        return Fail("--michaelis is for projects of the enzyme model");
    if (!line.table.empty()) {
        Press(line.michaelis ? desk.course.cmdMichaelisListe : desk.course.cmdListe);
        if (watch.Failed())
            return kFailure;
        if (!desk.table.loaded)
            return Fail("the course has no solution with these values");
    }
    if (!line.picture.empty()) {
        Press(line.michaelis ? desk.course.cmdMMdiagram : desk.course.cmdDrawctDiagram);
        if (watch.Failed())
            return kFailure;
        if (!desk.diagram.loaded)
            return Fail("the course has no solution with these values");
        draw(desk.diagram.surface, line);
    }
    if (!line.table.empty())
        WriteFileAtomically(line.table, EncodeText(desk.table.txtSimTabelle.text));
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
