#include "data/exp_data.h"
#include "data/project_file.h"
#include "engine/time_units.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/paths.h"
#include "tests/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zorvant;

namespace {

constexpr const char* kDataFile = "c\r\nmin\r\nh\r\n2\r\n0,.9,0,0,0,0,0,0,0,0,0,0,0\r\n"
                                  "1,.5,0,0,0,0,0,0,0,0,0,0,0\r\n";

class ProjectFiles : public testing::Test {
protected:
    ~ProjectFiles() override {
        commentQuestion() = [](ProjectState&) {};
    }
    std::string Put(const std::string& name, const std::string& bytes) {
        std::filesystem::create_directories(DirectoryOf(folder / name));
        WriteFileAtomically(folder / name, bytes);
        return folder / name;
    }
    bool Load(const std::string& path) {
        bool ok = false;
        FuLoadProjectFile(ps, path, dataFile, ok);
        return ok;
    }

    TempFolder folder;
    ScriptedHost script;
    ProjectState ps;
    std::string dataFile;
};

TEST_F(ProjectFiles, BringEverythingBackThatTheyHold) {
    ps.ModelId = 9;
    ps.RcSMode = true; // says nothing for another model than the enzyme's
    ps.k = {0, 1.0 / 3, 2e-9, 4};
    ps.c0 = {0, 1, 2, 3, 4, 5e-7};
    ps.ScaleSpecies = 4;
    ps.ScaleOneSpecies = true;
    ps.tMax = 17.25;
    ps.tVerweil = 1e-3;
    ps.TimeUnitText = "a";
    ps.ProjectComment = "with, commas \"and\" quotes";
    ps.DataFilePath = "C:\\measured\\run 1.zi3";
    const std::string path = folder / "p.ZC3";
    ASSERT_TRUE(FuSaveProjectFile(ps, path));

    const ProjectState saved = ps;
    ps = ProjectState();
    ASSERT_TRUE(Load(path));
    EXPECT_EQ(dataFile, "run 1.zi3"); // without its folder
    EXPECT_FALSE(ps.RcSMode);
    EXPECT_NEAR(ps.k[1], saved.k[1], 1e-15);
    const auto rest = [](const ProjectState& s) {
        return std::tuple(s.ModelId, s.k[2], s.c0, s.ScaleSpecies, s.ScaleOneSpecies, s.tMax,
                          s.tVerweil, s.TimeUnitText, s.ProjectComment);
    };
    EXPECT_EQ(rest(ps), rest(saved));
    EXPECT_TRUE(script.boxes.empty());
}

TEST_F(ProjectFiles, ConvertTheRowsThatStayToTheirUnit) {
    InitProjectState(ps);
    const std::string inSeconds = folder / "s.ZC3";
    ASSERT_TRUE(FuSaveProjectFile(ps, inSeconds));
    ps.TimeUnitText = "min";
    ps.ExpData.resize(2);
    ps.ExpPointCount = 1;
    ps.ExpData[1].t = 1;
    ASSERT_TRUE(Load(inSeconds));
    EXPECT_EQ(ps.TimeUnitText, "s");
    EXPECT_EQ(ps.ExpData[1].t, 60);
    EXPECT_EQ(ps.k[1], 0.15); // of the project, in its unit
}

TEST_F(ProjectFiles, KeepTheKindOfEnzymeDataInTheModelNumber) {
    for (const bool couples : {true, false}) {
        ps.ModelId = 10;
        ps.RcSMode = couples;
        ASSERT_TRUE(FuSaveProjectFile(ps, folder / "e.ZC3", CalcTask::Fitting));
        EXPECT_THAT(
            ReadFile(folder / "e.ZC3"),
            testing::HasSubstr(couples ? "\r\n100\r\n0,0,0\r\n6\r\n" : "\r\n10\r\n0,0,0\r\n6\r\n"));
        ps.ModelId = 1;
        ps.RcSMode = !couples;
        ASSERT_TRUE(Load(folder / "e.ZC3"));
        EXPECT_EQ(ps.ModelId, 10);
        EXPECT_EQ(ps.RcSMode, couples);
    }
}

TEST_F(ProjectFiles, AskForTheirCommentUnlessTheyAreTheLastSession) {
    commentQuestion() = [&](ProjectState& state) { state.ProjectComment += "asked for"; };
    EXPECT_TRUE(FuSaveProjectFile(ps, folder / "zorlastsession.zc3"));
    EXPECT_EQ(ps.ProjectComment, "");
    EXPECT_TRUE(FuSaveProjectFile(ps, folder / "p.ZC3"));
    std::string date, comment, data;
    bool ok = false;
    FuViewProjectFile(folder / "p.ZC3", date, comment, data, ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(comment, "asked for");
    FuViewProjectFile(folder / "none", date, comment, data, ok);
    EXPECT_FALSE(ok);
}

TEST_F(ProjectFiles, OfTheLastSessionStandUntilAnotherOneHasContent) {
    const std::string path = folder / "ZorLastSession.ZC3";
    InitProjectState(ps);
    SelectionDefaultTimes(ps);
    SelectionDefaultConcentrations(ps);
    SelectionDefaultConstants(ps);
    const ProjectState untouched = ps;
    const auto save = [&](const ProjectState& state) {
        ps = state;
        EXPECT_TRUE(FuSaveProjectFile(ps, path));
        return ReadFile(path);
    };
    ProjectState first = untouched, second = untouched;
    first.ProjectComment = "first";
    second.k[1] = 7;
    save(untouched); // there is none yet
    const std::string work = save(first);
    EXPECT_EQ(save(untouched), work); // started and closed
    save(second);
    EXPECT_EQ(ReadFile(path + "~"), work);
    host().dateAndTime = [] { return std::string("a minute later"); };
    EXPECT_THAT(save(second), testing::StartsWith("a minute later"));
    EXPECT_EQ(ReadFile(path + "~"), work); // the same work again
}

TEST_F(ProjectFiles, TellWhenTheyCannotBeReadAndKeepWhatWasRead) {
    const ProjectState before = ps;
    for (const std::string& path : {folder / "none", folder.Path(), Put("empty", "")}) {
        script.boxes.clear();
        EXPECT_FALSE(Load(path));
        ASSERT_EQ(script.boxes.size(), 1U);
        EXPECT_EQ(script.boxes[0].title, "Execution not possible");
        EXPECT_EQ(ps.ModelId, before.ModelId);
        EXPECT_EQ(ps.k, before.k);
    }
    EXPECT_FALSE(Load(Put("cut", "d\r\nnew comment\r\na.ZI3\r\n7\r\n.25,word")));
    EXPECT_EQ(dataFile, "a.ZI3");
    EXPECT_EQ(ps.ProjectComment, "new comment");
    EXPECT_EQ(ps.ModelId, 7);
    EXPECT_EQ(ps.k[1], .25);
    EXPECT_EQ(ps.k[2], before.k[2]);
    EXPECT_EQ(ps.TimeUnitText, before.TimeUnitText);

    ps.DataFilePath = "data.txt"; // data of another type are no data
    ASSERT_TRUE(FuSaveProjectFile(ps, folder / "p.ZC3"));
    EXPECT_TRUE(Load(folder / "p.ZC3"));
    EXPECT_EQ(dataFile, "");
    EXPECT_EQ(script.boxes.back().text, "data file is not of the type *.ZI3 and cannot be loaded");
}

TEST_F(ProjectFiles, AreSavedUnderTheChosenNameOrNothingChanges) {
    ps.ProjectFile = "before";
    script.files = {std::nullopt, FileChoice{folder / "no/such.ZC3"},
                    FileChoice{folder / "ok.ZC3"}};
    for (const bool saved : {false, false, true}) {
        FuSaveProjectDialog(ps, CalcTask::None);
        EXPECT_EQ(ps.ProjectFile, saved ? folder / "ok.ZC3" : "before");
    }
    ASSERT_EQ(script.boxes.size(), 1U);
    EXPECT_THAT(script.boxes[0].text, testing::StartsWith("No such file or directory"));
    EXPECT_EQ(ps.ProjectTitle, "ok.ZC3");
    EXPECT_EQ(ps.ProjectDir, folder.Path());
}

TEST_F(ProjectFiles, FindTheirDataBesideThemAndNeverOutside) {
    const std::string project = folder / "projects/p.ZC3";
    const std::string beside = Put("projects/Run1.ZI3", kDataFile);
    Put("outside.ZI3", kDataFile);
    for (const char* name : {"Run1.ZI3", "RUN1.zi3", "C:\\somewhere\\Run1.ZI3"})
        EXPECT_EQ(FindDataFile(ps, project, name), beside); // case: from a system that knows none
    for (const char* name : {"../outside.ZI3", "..\\outside.ZI3", "/etc/outside.ZI3"})
        EXPECT_EQ(FindDataFile(ps, project, name), folder / "projects/outside.ZI3") << name;

    ps.ProgramDir = folder / "program";
    const std::string own = Put("program/own.ZI3", kDataFile);
    EXPECT_EQ(FindDataFile(ps, folder / "elsewhere/ZorLastSession.ZC3", "own.ZI3"), own);
    EXPECT_EQ(FindDataFile(ps, project, "own.ZI3"), folder / "projects/own.ZI3");
}

TEST_F(ProjectFiles, BringTheirMeasurementsAlong) {
    const std::string data = Put("a.ZI3", kDataFile);
    for (const char* project : {"p.ZC3", "ZORLastSession.ZC3"}) {
        EXPECT_TRUE(LoadDataOfProject(ps, folder / project, "a.ZI3"));
        EXPECT_EQ(ps.DataIsSession, *project == 'Z');
    }
    EXPECT_EQ(ps.nCtPoints, 2);
    EXPECT_EQ(ps.c0Data[1], .9F);
    EXPECT_EQ(ps.DataFilePath, data);
    EXPECT_FALSE(LoadDataOfProject(ps, folder / "p.ZC3", ""));
    EXPECT_TRUE(script.boxes.empty());

    script.answers = {Answer::No};
    EXPECT_FALSE(LoadDataOfProject(ps, folder / "p.ZC3", "lost.ZI3"));
    EXPECT_THAT(script.boxes.at(0).text, testing::HasSubstr("lost.ZI3\r\n\r\nLook for it"));
    EXPECT_EQ(ps.DataFilePath, "");
    EXPECT_EQ(ps.ExpPointCount, 2);
    script.files = {FileChoice{Put("elsewhere/lost.ZI3", kDataFile)}}; // the user knows where
    EXPECT_TRUE(LoadDataOfProject(ps, folder / "p.ZC3", "lost.ZI3"));
    EXPECT_EQ(ps.DataFilePath, folder / "elsewhere/lost.ZI3");
}

} // namespace
