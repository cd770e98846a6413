// The data group of the main window with its real dialogs: dropped files, and unsaved data from the
// question at the exit, or a crash, to the next start.
#include "data/project_file.h"
#include "dialogs/course/frm_zor_model.h"
#include "dialogs/data/frm_datedit.h"
#include "dialogs/data/frm_import_text.h"
#include "dialogs/data/frm_zxy_editor.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "platform/host.h"
#include "shell/dropped_files.h"
#include "shell/project_commands.h"
#include "shell/start_up.h"
#include "tests/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace zorvant {
namespace {

using testing::HasSubstr;

/// One run of the program.
struct Program {
    explicit Program(const std::string& folder) {
        host().programDirectory = folder;
        for (Form* each : std::initializer_list<Form*>{&window, &model, &data, &points, &import})
            ps.desktop.forms.push_back(each);
        ShowForm(ps.desktop, window);
        OfferLostData(window);
    }
    Workspace ps;
    DiagramDocument diagram{ps};
    MDIZOR window{ps};
    frmZorModel model{ps};
    frmDatedit data{ps, diagram};
    frmZXYEditor points{ps, diagram};
    frmImportText import{ps, data};
};

class LostData : public testing::Test {
protected:
    static void TypeALine(Program& program) {
        Press(program.window.Entry("mnuNeudat"));
        Type(program.data.y(0), "3");
        Type(program.data.y(1), "0.5");
        Press(program.data.OKinput);
        program.window.tmrRecovery.onTick();
    }
    /// A list with an inactive line and all digits of a Single.
    static void TypeAPair(Program& program) {
        Press(program.window.Entry("mnuEditXY"));
        SetText(program.points.txtComment, "my \xC2\xB5 list");
        program.points.XYData = ThePairs();
        program.ps.XYCount = 2;
        program.points.XYChanged = true;
        program.window.tmrRecovery.onTick();
    }
    static std::vector<XYPoint> ThePairs() {
        return {
            {.x = 2}, {.x = 0.1F / 3, .y = -1e-30F}, {.x = 16777217.0F, .y = 4, .inactive = -1}};
    }
    std::string Put(const std::string& name, const std::string& bytes) {
        WriteFileAtomically(folder / name, bytes);
        return folder / name;
    }

    ~LostData() override { fileCalls() = SystemFileCalls(); }

    TempFolder folder;
    ScriptedHost script;
};

TEST_F(LostData, SurviveAKilledProgramAndAreShownInTheirEditors) {
    const pid_t child = fork();
    if (child == 0) {
        Program program(folder.Path());
        TypeALine(program);
        TypeAPair(program);
        kill(getpid(), SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));

    script.answers = {Answer::Yes, Answer::Yes};
    Program next(folder.Path());
    ASSERT_EQ(script.boxes.size(), 2U);
    EXPECT_THAT(script.boxes[0].text, HasSubstr("1 measuring points"));
    EXPECT_EQ(next.ps.ExpData[1].cA, 0.5);
    EXPECT_TRUE(next.data.loaded);
    EXPECT_EQ(next.data.Grid.cells[0][3], "0.5");
    EXPECT_TRUE(next.window.Entry("mnuEditDat").enabled);
    EXPECT_THAT(script.boxes[1].text, HasSubstr("comment: my \xC2\xB5 list"));
    EXPECT_EQ(next.points.XYData, ThePairs());
    EXPECT_EQ(next.points.txtComment.text, "my \xC2\xB5 list");
    EXPECT_TRUE(next.points.XYChanged); // both still have to be saved
    EXPECT_TRUE(next.ps.ExpDataChanged);
    EXPECT_LE(next.window.tmrRecovery.interval, 5000);
    EXPECT_GT(next.window.tmrRecovery.interval, 0);
    EXPECT_EQ(folder.Names().size(), 2U); // kept by this process from now on
}

TEST_F(LostData, CancelAtTheExitKeepsThemTheOtherAnswersDoNot) {
    for (const Answer answer : {Answer::Cancel, Answer::No}) {
        script.answers.clear();
        script.boxes.clear();
        std::filesystem::remove_all(folder.Path());
        std::filesystem::create_directory(folder.Path());
        {
            Program program(folder.Path());
            TypeALine(program);
            TypeAPair(program);
            EXPECT_EQ(folder.Names().size(), 2U);
            script.answers = {answer, answer};
            Press(program.window.Entry("mnuExit"));
            EXPECT_TRUE(script.quitted);
        }
        EXPECT_EQ(folder.Names().size(), answer == Answer::Cancel ? 3U : 1U);
        script.answers = {Answer::Yes, Answer::Yes};
        Program next(folder.Path());
        EXPECT_EQ(next.ps.ExpPointCount, answer == Answer::Cancel ? 1 : 0);
        EXPECT_EQ(next.ps.XYCount, answer == Answer::Cancel ? 2 : 0);
    }
}

TEST_F(LostData, AreKeptInTheUsersFolderWhereTheProgramsCanNotBeWritten) {
    setenv("XDG_DATA_HOME", folder.Path().c_str(), 1);
    const std::string locked = folder / "no such folder";
    {
        Program program(locked);
        TypeALine(program);
        script.answers = {Answer::Cancel};
        Press(program.window.Entry("mnuExit"));
    }
    EXPECT_TRUE(FileExists(folder / "zorvant/ZorLastSession.ZC3"));
    script.answers = {Answer::Yes};
    Program next(locked);
    EXPECT_EQ(next.ps.ExpPointCount, 1);
    unsetenv("XDG_DATA_HOME");
}

TEST_F(LostData, TheStatusLineTellsWhileTheyCannotBeKept) {
    Program program(folder.Path());
    const auto status = [&] {
        program.window.tmrRecovery.onTick();
        program.window.onRefresh();
        return program.window.lblStatus.text;
    };
    const std::string safe = status();
    fileCalls().write = [](int, const void*, std::size_t) -> ssize_t {
        errno = ENOSPC;
        return -1;
    };
    TypeALine(program);
    EXPECT_THAT(status(), HasSubstr("not secured against a crash (No space left on device"));
    EXPECT_TRUE(script.boxes.empty()); // nothing interrupts the work
    fileCalls() = SystemFileCalls();
    EXPECT_THAT(status(), testing::Not(HasSubstr("crash")));
}

TEST_F(LostData, WhatACommandReplacesCanBeTakenBack) {
    Program program(folder.Path());
    TypeALine(program);
    const ExpPoint typed = program.ps.ExpData[1];
    Put("p.ZI3", "run\r\nmin\r\nh\r\n1\r\n5,.5,0,0,0,0,0,0,0,0,0,0,0\r\n");
    program.ps.DataFilePath = "p.ZI3";
    program.ps.TimeUnitText = "min";
    ASSERT_TRUE(FuSaveProjectFile(program.ps, folder / "p.ZC3"));
    program.ps.TimeUnitText = "s";
    OpenProject(program.window, folder / "p.ZC3");
    EXPECT_EQ(program.ps.ExpData[1].t, 5);
    EXPECT_EQ(program.ps.TimeUnitText, "min");
    Press(program.data.cmdUndo);
    EXPECT_EQ(program.ps.ExpData[1].t, typed.t / 60); // 3 s, in the project's unit
    EXPECT_EQ(program.ps.TimeUnitText, "min");
    Press(program.model.optZeit, 0); // a unit change elsewhere is a step as well
    EXPECT_NEAR(program.ps.ExpData[1].t, 3, 1e-14);
    Press(program.data.cmdUndo);
    EXPECT_EQ(program.ps.TimeUnitText, "min");
    script.answers = {Answer::Yes};
    Press(program.window.Entry("mnuNeudat"));
    EXPECT_EQ(program.ps.ExpPointCount, 0);
    program.window.Entry("mnuEdit1").onOpen(); // the menu names the step as the button does
    EXPECT_EQ(program.window.Entry("mnuUndo1").text, "Undo new data");
    Press(program.window.Entry("mnuUndo1"));
    EXPECT_EQ(program.ps.ExpPointCount, 1);
    EXPECT_TRUE(program.ps.ExpDataChanged);
}

TEST_F(LostData, DroppedFilesOpenInTheDialogOfTheirKind) {
    Program program(folder.Path());
    OpenDropped(program.window, Put("a.zi3", "run\r\nmin\r\nh\r\n1\r\n"
                                             "5,.5,0,0,0,0,0,0,0,0,0,0,0\r\n"));
    EXPECT_EQ(program.ps.ExpPointCount, 1);
    EXPECT_EQ(program.ps.TimeUnitText, "min");
    EXPECT_EQ(program.data.caption, "Editing öf Experimental Data  (a.zi3)");
    EXPECT_FALSE(program.ps.ExpDataChanged);

    OpenDropped(program.window, Put("b.XY", "c\r\n1;2\r\n"));
    EXPECT_EQ(program.ps.XYCount, 1);
    EXPECT_EQ(program.points.caption, "Loaded: b.XY");

    OpenDropped(program.window, Put("c.csv", "t;c(A)\n1;2,5\n"));
    EXPECT_TRUE(program.import.loaded);
    Press(program.import.cmdOK);
    EXPECT_EQ(program.ps.ExpData[1].cA, 2.5);
    Press(program.data.cmdUndo); // what the drop replaced is not lost
    EXPECT_EQ(program.ps.ExpData[1].t, 5);
    EXPECT_EQ(program.ps.DataFileTitle, "a.zi3");

    EXPECT_FALSE(CanOpenDropped(Put("d.png", "")));
    OpenDropped(program.window, folder / "d.png");
    EXPECT_TRUE(script.boxes.empty());
}

} // namespace
} // namespace zorvant
