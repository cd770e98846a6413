// The main window's commands on records: which dialogs go and come, what is enabled, start and
// exit.
#include "data/project_file.h"
#include "dialogs/common/calc_dialog.h"
#include "dialogs/course/frm_zor_model.h"
#include "engine/modes.h"
#include "platform/files.h"
#include "platform/host.h"
#include "shell/dropped_files.h"
#include "shell/project_commands.h"
#include "shell/project_status.h"
#include "shell/start_up.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace zorvant {
namespace {

using testing::HasSubstr;

/// A dialog that writes down when it opens and closes.
struct Recorder : Form {
    Recorder(const std::string& formName, std::vector<std::string>& log) : Form(formName) {
        onLoad = [this, &log] { log.push_back("+" + name); };
        onUnload = [this, &log] { log.push_back("-" + name); };
        Declare();
    }
};
struct CalcRecorder : CalcDialog {
    CalcRecorder(Workspace& state, const std::string& formName, CalcTask dialog,
                 std::vector<std::string>& log)
        : CalcDialog(state, formName, formName, dialog) {
        onLoad = [this, &log] { log.push_back("+" + name); };
        onUnload = [this, &log] { log.push_back("-" + name); };
        onInit = [this, &log] { log.push_back("init " + name); };
        Declare();
    }
};

class CommandsTest : public testing::Test {
protected:
    CommandsTest() {
        folder_ = std::filesystem::temp_directory_path() /
                  ("zorvant_shell_" + std::to_string(::getpid()));
        std::filesystem::create_directories(folder_);
        host().programDirectory = folder_.string();
        ps.desktop.forms.push_back(&form);
        Add(std::make_unique<frmZorModel>(ps));
    }
    ~CommandsTest() override { std::filesystem::remove_all(folder_); }

    Form& Add(std::unique_ptr<Form> dialog) {
        dialogs_.push_back(std::move(dialog));
        ps.desktop.forms.push_back(dialogs_.back().get());
        return *dialogs_.back();
    }
    void AddAllDialogs() {
        const std::pair<const char*, CalcTask> calculations[] = {
            {"frmPrepareTimeDiagram", CalcTask::TimeDiagram},
            {"frmRKconti", CalcTask::Cstr},
            {"frmBatch", CalcTask::Batch},
            {"frmRohrreaktor", CalcTask::Tubular},
            {"frmKaskade", CalcTask::Cascade},
            {"frmZFitting", CalcTask::Fitting},
        };
        for (const auto& [name, task] : calculations)
            Add(std::make_unique<CalcRecorder>(ps, name, task, log));
        for (const char* other : {"frmBlutalkohol", "frmVerweilzeit", "frmVerweilCalc",
                                  "frmDatedit", "frmZXYEditor", "frmArrheniusRechner"})
            Add(std::make_unique<Recorder>(other, log));
    }
    void Start(const std::string& commandLine = {}) {
        ShowForm(ps.desktop, form);
        OpenCommandLine(form, commandLine);
    }
    std::string Write(const std::string& file, const std::string& text) {
        const std::string path = (folder_ / file).string();
        WriteFileAtomically(path, text);
        return path;
    }
    /// A project of model 6 in minutes.
    std::string Project(const std::string& file, const std::string& dataFile) {
        return Write(file, "today\r\nmy comment\r\n" + dataFile +
                               "\r\n6\r\n.5,.25,0\r\n0\r\n5\r\n1\r\n0\r\n0\r\n0\r\n0\r\n1\r\n0\r\n"
                               "0,0,0,0\r\n20\r\n10\r\n0,0\r\nmin\r\n\r\n");
    }
    std::string Data(const std::string& file) {
        return Write(file, "run 1\r\nmin\r\nhead\r\n2\r\n0,1.5,0,0,0,0,0,0,0,0,0,0,0\r\n"
                           "5,1,0,0,0,0,0,0,0,0,0,0,0\r\n");
    }
    bool Has(const char* dialog) { return IsFormLoaded(ps.desktop, dialog); }

    ScriptedHost desk;
    std::filesystem::path folder_;
    Workspace ps;
    MDIZOR form{ps};
    std::vector<std::unique_ptr<Form>> dialogs_;
    std::vector<std::string> log;
};

TEST_F(CommandsTest, ACommandIsAvailableExactlyWhenItsDialogExists) {
    Start();
    EXPECT_EQ(form.Entry("mnuBatchR").disabledTip, "not yet available");
    EXPECT_TRUE(form.Entry("mnuReaktor").available) << "a menu can always be opened";
    Press(form.Entry("mnuBatchR"));
    EXPECT_TRUE(log.empty());
    for (const bool exist : {false, true}) {
        EXPECT_EQ(form.Entry("mnuBatchR").available, exist);
        EXPECT_EQ(form.Tool(29).available, exist);
        AddAllDialogs();
        UpdateAvailability(form);
    }
    EXPECT_FALSE(form.Tool(16).enabled) << "available, but there are no data";
}

TEST_F(CommandsTest, ADialogSetClosesTheOthersAndOpensItsDialogInFront) {
    AddAllDialogs();
    Start();
    for (const DialogSet& set : DialogSets()) {
        for (const auto& dialog : dialogs_) // everything is open
            if (!dialog->loaded)
                ShowForm(ps.desktop, *dialog);
        ps.ModelId = 2;
        log.clear();
        Press(form.Entry(set.command));
        for (const char* closed : set.closes)
            EXPECT_TRUE(closed == nullptr || std::string_view(closed) == set.opens || !Has(closed))
                << closed << " after " << set.command;
        EXPECT_TRUE(Has(set.opens)) << set.command;
        EXPECT_EQ(ps.desktop.order.back()->name, set.opens) << "in front: " << set.command;
        if (dynamic_cast<CalcDialog*>(FindForm(ps.desktop, set.opens)) != nullptr) {
            EXPECT_EQ(log.back(), "init " + std::string(set.opens));
        }
    }
}

TEST_F(CommandsTest, TanksAreRefusedForTheEnzymeModel) {
    AddAllDialogs();
    Start();
    ps.ModelId = 10;
    for (const char* command : {"mnuKontRK", "mnuKaskade"}) {
        Press(form.Entry(command));
        EXPECT_EQ(desk.boxes.back().text, "Sorry, under construction");
        EXPECT_EQ(desk.boxes.back().title, "Execution not possible");
    }
    EXPECT_FALSE(Has("frmRKconti") || Has("frmKaskade"));
}

TEST_F(CommandsTest, StartsWithoutAProject) {
    AddAllDialogs();
    Start();
    EXPECT_EQ(ps.ModelId, 2);
    EXPECT_EQ(ps.TimeUnitText, "s");
    EXPECT_TRUE(Has("frmZorModel"));
    EXPECT_FALSE(form.Entry("mnuEditDat").enabled || form.Tool(8).enabled || form.Tool(16).enabled);
    EXPECT_TRUE(form.Tool(14).enabled);
    EXPECT_TRUE(ps.ProtocolFile.ends_with("01.CSV"));
    EXPECT_EQ(FindForm(ps.desktop, "frmPrepareTimeDiagram")->left, 60);
    EXPECT_TRUE(desk.boxes.empty());
}

TEST_F(CommandsTest, StartsWithAProjectWhoseNameIsQuoted) {
    Data("points.ZI3");
    const std::string path = Project("my project.ZC3", "points.ZI3");
    Start("\"" + path + "\"");
    EXPECT_EQ(ps.ProjectFile, path);
    EXPECT_EQ(ps.ProjectTitle, "my project.ZC3");
    EXPECT_EQ(static_cast<frmZorModel&>(*FindForm(ps.desktop, "frmZorModel")).optTyp.selected, 6);
    EXPECT_EQ(ps.TimeUnitIdx, 1) << "follows from the unit's text as the model dialog opens";
    EXPECT_EQ(ps.ExpPointCount, 2);
    EXPECT_TRUE(form.Entry("mnuEditDat").enabled && form.Tool(8).enabled && form.Tool(16).enabled);
    ASSERT_EQ(desk.boxes.size(), 1U);
    EXPECT_EQ(desk.boxes[0].title, "Status of the project");
    EXPECT_THAT(desk.boxes[0].text, HasSubstr("with 2 measuring point\r\n"));
}

TEST_F(CommandsTest, AProjectThatCanNotBeReadLeavesTheStartValues) {
    Start((folder_ / "missing.ZC3").string());
    ASSERT_EQ(desk.boxes.size(), 1U);
    EXPECT_EQ(desk.boxes[0].icon, Icon::Critical);
    EXPECT_EQ(ps.ModelId, 2);
    EXPECT_EQ(ps.ProjectFile, "");
    EXPECT_FALSE(form.Tool(8).enabled);
}

TEST_F(CommandsTest, AProjectWhoseDataCanNotBeReadCountsAsLoaded) {
    Start(Project("wrong.ZC3", "points.TXT"));
    EXPECT_EQ(ps.ModelId, 6);
    EXPECT_EQ(ps.DataFilePath, "");
    ASSERT_FALSE(desk.boxes.empty());
    EXPECT_EQ(desk.boxes[0].text, "data file is not of the type *.ZI3 and cannot be loaded");
    EXPECT_TRUE(form.Tool(8).enabled) << "a project is loaded and can be saved";

    const std::string path = Project("lonely.ZC3", "gone.ZI3");
    OpenDropped(form, path);
    EXPECT_EQ(ps.ProjectFile, path);
    EXPECT_THAT(desk.boxes.back().text, HasSubstr("no data file *.ZI3 loaded"));
    EXPECT_THAT(desk.boxes.back().text, HasSubstr("Project file  " + path));
}

TEST_F(CommandsTest, TheLastSessionComesBackWithItsData) {
    AddAllDialogs();
    Start();
    Data("points.ZI3");
    OpenDropped(form, Project("p.ZC3", "points.ZI3"));
    ps.k[1] = 0.125;
    Press(form.Entry("mnuExit"));
    EXPECT_TRUE(desk.quitted);
    { // started and closed meanwhile
        Workspace idle;
        MDIZOR window(idle);
        frmZorModel model(idle);
        idle.desktop.forms = {&window, &model};
        ShowForm(idle.desktop, window);
        Press(window.Entry("mnuExit"));
    }

    Workspace later;
    MDIZOR again(later);
    frmZorModel model(later);
    later.desktop.forms = {&again, &model};
    ShowForm(later.desktop, again);
    Press(again.Tool(4));
    EXPECT_EQ(later.ModelId, 6);
    EXPECT_EQ(later.k[1], 0.125);
    EXPECT_EQ(later.TimeUnitText, "min");
    EXPECT_EQ(later.ExpPointCount, 2);
    EXPECT_TRUE(later.DataIsSession);
    EXPECT_THAT(desk.boxes.back().text, HasSubstr("Project\r\n    last session  \r\n"));
    EXPECT_TRUE(again.Tool(8).enabled);
}

TEST_F(CommandsTest, AProjectIsSavedUnderItsNameWithoutAQuestion) {
    Start(Project("p.ZC3", ""));
    ps.k[1] = 0.625;
    desk.boxes.clear();
    SaveUnderKnownName(form);
    EXPECT_TRUE(desk.boxes.empty());
    EXPECT_THAT(ReadFile((folder_ / "p.ZC3").string()), HasSubstr("\r\n.625,"));
    form.onRefresh();
    EXPECT_THAT(form.lblStatus.text, HasSubstr("saved: p.ZC3"));
}

TEST_F(CommandsTest, BloodAlcoholIsNoModelOfASession) {
    Start();
    ps.ModelId = kKindBloodAlcohol;
    form.onRefresh();
    EXPECT_THAT(form.lblStatus.text, HasSubstr("blood alcohol"));
    mnuExit_Click(form);
    Workspace later;
    std::string dataFile;
    bool ok = false;
    FuLoadProjectFile(later, ps.LastSessionFile, dataFile, ok);
    EXPECT_TRUE(ok);
}

TEST_F(CommandsTest, WithoutALastSessionTheCommandTellsAndChangesNothing) {
    Start();
    Press(form.Entry("mnuLoadLastSession"));
    ASSERT_EQ(desk.boxes.size(), 1U);
    EXPECT_EQ(desk.boxes[0].icon, Icon::Information);
    EXPECT_FALSE(form.Tool(8).enabled);
}

TEST_F(CommandsTest, ExitAsksSavesTidiesClosesAndEndsInThisOrder) {
    AddAllDialogs();
    Start();
    ShowForm(ps.desktop, *FindForm(ps.desktop, "frmBatch"));
    Write(ps.ProtocolFile, ""); // an empty one goes
    ps.ExpData.resize(2);
    ps.ExpPointCount = 1;
    ps.ExpDataChanged = true;
    desk.answers = {Answer::Cancel}; // the exit goes on whatever the answer
    const std::string protocol = (folder_ / ps.ProtocolFile).string();
    bool savedBefore = false, helpBefore = false;
    FindForm(ps.desktop, "frmBatch")->onUnload = [&] {
        savedBefore = FileExists(ps.LastSessionFile) && !FileExists(protocol);
        log.push_back("unload");
    };
    host().closeHelp = [&] { helpBefore = !desk.quitted && log.back() == "unload"; };
    Press(form.Entry("mnuExit"));
    ASSERT_EQ(desk.boxes.size(), 1U);
    EXPECT_EQ(desk.boxes[0].text, "The experimental data were changed.\r\nSave now?");
    EXPECT_TRUE(savedBefore) << "the session is saved while the dialogs are open";
    EXPECT_TRUE(helpBefore);
    EXPECT_TRUE(desk.quitted);
    EXPECT_FALSE(Has("frmZorModel"));

    desk.quitted = false;
    mnuExit_Click(form);
    EXPECT_FALSE(desk.quitted) << "once is enough";
}

TEST_F(CommandsTest, ExitGoesOnWhereTheSessionCanNotBeWritten) {
    Start();
    ps.LastSessionFile = (folder_ / "no such folder" / "ZorLastSession.ZC3").string();
    mnuExit_Click(form);
    EXPECT_THAT(desk.boxes.at(0).title, HasSubstr("Error while saving the session file"));
    EXPECT_TRUE(desk.quitted);
}

TEST_F(CommandsTest, NewDataAsksBeforeASetIsDeleted) {
    AddAllDialogs();
    Start();
    ps.ExpData.resize(3);
    ps.ExpPointCount = 2;
    ps.LambdaInf = 7;
    ps.DataFilePath = "old.ZI3";
    desk.answers = {Answer::No};
    Press(form.Entry("mnuNeudat"));
    EXPECT_EQ(ps.ExpPointCount, 2);
    EXPECT_EQ(desk.boxes.back().text,
              "New data input is expected;\r\nan existing set of data will be deleted.\r\n\r\n"
              "Would you like that?");
    EXPECT_EQ(desk.boxes.back().preset, Answer::No);
    desk.answers = {Answer::Yes};
    Press(form.Tool(14));
    EXPECT_EQ(ps.ExpPointCount, 0);
    EXPECT_EQ(ps.LambdaInf, 0);
    EXPECT_EQ(ps.DataFilePath, "");
    EXPECT_TRUE(Has("frmDatedit"));
}

TEST_F(CommandsTest, TheStatusTellsProjectDataAndComment) {
    Start();
    EXPECT_THAT(ProjectStatusText(ps, ""), AllOf(HasSubstr("    (project still unnamed)\r\n"),
                                                 HasSubstr("    no data file *.ZI3 loaded\r\n"
                                                           "    no set of exper. data available\r\n"
                                                           "project comment:\r\n   (none)\r\n")));
    ps.ExpPointCount = 3;
    ps.ProjectComment = "good";
    ps.ProjectFile = "/home/somebody/a folder with a rather long name/kinetics/first run.ZC3";
    EXPECT_THAT(ProjectStatusText(ps, "/no/such.ZI3"),
                AllOf(HasSubstr("    a set of data with 3 measuring points available\r\n"),
                      HasSubstr("project comment:\r\n    good\r\n"),
                      HasSubstr("    /HO.../KINETICS/FIRST RUN.ZC3\r\n")));
    EXPECT_THAT(ProjectStatusText(ps, Data("points.ZI3")),
                HasSubstr("    with 2 measuring point\r\n    time unit: min\r\n"
                          "    comment: run 1\r\n\r\nThe table"));
}

} // namespace
} // namespace zorvant
