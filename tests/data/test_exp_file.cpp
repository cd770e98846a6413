#include "data/exp_data.h"
#include "data/exp_file.h"
#include "platform/files.h"
#include "platform/host.h"
#include "tests/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zorvant;

namespace {

class ExpFile : public testing::Test {
protected:
    ExpFile() {
        ps.DataDir = folder.Path();
        ps.LastSessionFile = folder / "ZorLastSession.ZC3";
    }
    std::string Put(const std::string& name, const std::string& bytes) {
        WriteFileAtomically(folder / name, bytes);
        return folder / name;
    }
    std::string PutRows(const std::string& name, const std::string& unit, int count) {
        std::string bytes = name + "\r\n" + unit + "\r\nh\r\n" + std::to_string(count) + "\r\n";
        for (int i = 0; i < count; ++i)
            bytes += std::to_string(i) + ",1,0,0,0,0,0,0,0,0,0,0,0\r\n";
        return Put(name, bytes);
    }
    bool Load(const std::string& path, bool append = false) {
        bool ok = false;
        LoadExpFile(ps, path, append, ok);
        return ok;
    }

    TempFolder folder;
    ScriptedHost script;
    ProjectState ps;
};

TEST_F(ExpFile, ReplacesTheTableOrGrowsItAsAsked) {
    InitProjectState(ps); // in s
    ps.LambdaInf = 7;
    ps.k[1] = 0.5;
    EXPECT_TRUE(Load(PutRows("two", "min", 2)));
    EXPECT_EQ(ps.k[1], 30);
    EXPECT_EQ(ps.ExpPointCount, 2);
    EXPECT_EQ(ps.ExpComment, "two");
    EXPECT_EQ(ps.TimeUnitText, "min");
    EXPECT_EQ(ps.TimeUnitOldIdx, 1);
    EXPECT_EQ(ps.LambdaInf, 7); // a file without one leaves it
    EXPECT_FALSE(ps.ExpDataChanged);

    EXPECT_TRUE(Load(PutRows("three", "h", 3), true));
    EXPECT_EQ(ps.ExpPointCount, 5);
    EXPECT_EQ(ps.ExpData.size(), 6U);
    EXPECT_EQ(ps.ExpData[2].t, 1);
    EXPECT_EQ(ps.ExpData[4].t, 60); // 1 h among minutes
    EXPECT_EQ(ps.ExpComment, "two");
    EXPECT_EQ(ps.TimeUnitText, "min");
    EXPECT_EQ(ps.UnitNotice, "appended data converted from h to min");
    EXPECT_TRUE(ps.ExpDataChanged); // no file holds this table

    EXPECT_TRUE(Load(PutRows("none", "fortnight", 0)));
    EXPECT_EQ(ps.ExpPointCount, 0);
    EXPECT_GE(ps.ExpData.size(), 2U);
    EXPECT_EQ(ps.ExpComment, "none");
    EXPECT_EQ(ps.TimeUnitText, "fortnight");
    EXPECT_EQ(ps.TimeUnitOldIdx, 0);
    EXPECT_TRUE(script.boxes.empty());
}

TEST_F(ExpFile, ChangesNothingWhenItCannotBeLoaded) {
    ASSERT_TRUE(Load(PutRows("good", "min", 2)));
    PutRows("many", "s", kMaxExpPoints - 1);
    Put("short", "c\r\ns\r\nh\r\n3\r\n0,1,0,0,0,0,0,0,0,9,0,0,0\r\n");
    Put("binary", std::string("\x7F"
                              "ELF\0\0\n\0\n\0\n",
                              11));
    Put("empty", "");
    const struct {
        const char *name, *reason;
        bool append;
    } cases[] = {
        {"none", "No such file or directory: ", false},
        {"", "Is a directory: ", false},
        {"empty", "Input past end of file (comment)", false},
        {"short", "Input past end of file (row 2 of 3, t)", true},
        {"binary", "Input past end of file (number of measuring", false},
        {"many", "Overflow", true}, // 32768 rows
    };
    const std::vector<ExpPoint> table = ps.ExpData;
    for (const auto& c : cases) {
        script.boxes.clear();
        EXPECT_FALSE(Load(folder / c.name, c.append)) << c.name;
        ASSERT_EQ(script.boxes.size(), 1U);
        EXPECT_THAT(script.boxes[0].text, testing::StartsWith(c.reason));
        EXPECT_EQ(script.boxes[0].title, "message from Sub LoadExpFile");
        EXPECT_EQ(script.boxes[0].icon, Icon::Critical);
        EXPECT_EQ(ps.ExpData, table);
        EXPECT_EQ(ps.ExpPointCount, 2);
        EXPECT_EQ(ps.ExpComment, "good");
        EXPECT_EQ(ps.TimeUnitText, "min");
        EXPECT_EQ(ps.LambdaInf, 0);
    }
    EXPECT_TRUE(Load(folder / "many"));
    EXPECT_TRUE(Load(PutRows("one", "s", 1), true));
    EXPECT_EQ(ps.ExpPointCount, 32767);
}

TEST_F(ExpFile, IsChosenLoadedAndCountedByTheCommand) {
    ps.DataFilePath = folder / "before.ZI3";
    PutRows("a.ZI3", "min", 3);
    bool ok = true, cancelled = false;
    LoadExpDialog(ps, false, ok, cancelled);
    EXPECT_TRUE(cancelled);
    EXPECT_FALSE(ok);
    EXPECT_EQ(ps.DataFilePath, folder / "before.ZI3");
    EXPECT_EQ(script.fileRequests[0].title, "Loading experimental data");

    script.files = {FileChoice{folder / "a.ZI3"}, FileChoice{folder / "a.ZI3"}};
    LoadExpDialog(ps, false, ok, cancelled);
    EXPECT_TRUE(ok);
    EXPECT_FALSE(cancelled);
    EXPECT_EQ(ps.DataFilePath, folder / "a.ZI3");
    EXPECT_EQ(ps.DataFileTitle, "a.ZI3");
    EXPECT_EQ(ps.DataDir, folder.Path());
    EXPECT_EQ(ps.nCtPoints, 3); // counted
    EXPECT_FALSE(ps.DataIsSession);
    LoadExpDialog(ps, true, ok, cancelled);
    EXPECT_EQ(script.fileRequests.back().title, "Append data from selected file");
    EXPECT_EQ(ps.ExpPointCount, 6);
    EXPECT_EQ(ps.nCtPoints, 6);

    script.files = {FileChoice{Put("bad.ZI3", "x")}, FileChoice{folder / "bad.ZI3"}};
    LoadExpDialog(ps, true, ok, cancelled);
    EXPECT_FALSE(ok);
    EXPECT_EQ(ps.ExpPointCount, 6);
    EXPECT_EQ(ps.DataFilePath, folder / "a.ZI3");
    LoadExpDialog(ps, false, ok, cancelled);
    EXPECT_FALSE(ok);
    EXPECT_EQ(ps.ExpPointCount, 0); // cleared for the new data
    EXPECT_EQ(ps.DataFilePath, "");
}

TEST_F(ExpFile, IsSavedUnderTheChosenNameOrNothingChanges) {
    ASSERT_TRUE(Load(PutRows("a.ZI3", "s", 2)));
    ps.ExpDataChanged = true;
    ps.DataFilePath = "old.ZI3";
    std::string file;
    bool cancelled = false;
    SaveExpDialog(ps, file, cancelled);
    EXPECT_TRUE(cancelled);
    const FileRequest& request = script.fileRequests.at(0);
    EXPECT_TRUE(request.save && request.overwritePrompt);
    EXPECT_EQ(request.title, "Exp. data file save as ...");

    script.files = {FileChoice{folder / "no/such/b.ZI3"}};
    SaveExpDialog(ps, file, cancelled);
    EXPECT_TRUE(cancelled);
    EXPECT_EQ(script.boxes.at(0).title, "message from WriteDataFile");
    EXPECT_TRUE(ps.ExpDataChanged);
    EXPECT_EQ(ps.DataFilePath, "old.ZI3");

    script.files = {FileChoice{folder / "b.ZI3"}};
    SaveExpDialog(ps, file, cancelled);
    EXPECT_FALSE(cancelled);
    EXPECT_EQ(file, folder / "b.ZI3");
    EXPECT_EQ(ps.DataFilePath, folder / "b.ZI3");
    EXPECT_EQ(ps.DataFileTitle, "b.ZI3");
    EXPECT_EQ(ps.DataDir, folder.Path());
    EXPECT_FALSE(ps.ExpDataChanged);
    EXPECT_TRUE(FileExists(folder / "b.ZI3"));
}

TEST_F(ExpFile, IsOfferedForSavingOnLeaving) {
    const struct {
        Answer answer;
        std::optional<FileChoice> choice;
        bool cancelled, saved;
    } cases[] = {
        {Answer::No, std::nullopt, false, false},
        {Answer::Cancel, std::nullopt, true, false},
        {Answer::Yes, std::nullopt, true, false},
        {Answer::Yes, FileChoice{folder / "kept.ZI3"}, false, true},
    };
    for (const auto& c : cases) {
        script.answers = {c.answer};
        script.files = {c.choice};
        std::string file;
        bool cancelled = !c.cancelled;
        AskSaveExpData(ps, file, cancelled);
        EXPECT_EQ(cancelled, c.cancelled);
        EXPECT_EQ(FileExists(folder / "kept.ZI3"), c.saved);
    }
    EXPECT_EQ(script.boxes[0].text, "The experimental data were changed.\r\nSave now?");
    EXPECT_EQ(script.boxes[0].title, "WARNING");
    EXPECT_EQ(script.boxes[0].icon, Icon::Warning);
    EXPECT_EQ(script.boxes[0].buttons, Buttons::YesNoCancel);
}

} // namespace
