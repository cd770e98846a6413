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
    std::string PutRows(const std::string& name, const std::string& unit, int count) {
        std::string bytes = name + "\r\n" + unit + "\r\nh\r\n" + std::to_string(count) + "\r\n";
        for (int i = 0; i < count; ++i)
            bytes += std::to_string(i) + ",1,0,0,0,0,0,0,0,0,0,0,0\r\n";
        WriteFileAtomically(folder / name, bytes);
        return folder / name;
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
    WriteFileAtomically(folder / "short", "c\r\ns\r\nh\r\n3\r\n0,1,0,0,0,0,0,0,0,9,0,0,0\r\n");
    WriteFileAtomically(folder / "empty", "");
    const struct {
        const char *name, *reason;
        bool append;
    } cases[] = {
        {"none", "No such file or directory: ", false},
        {"", "Is a directory: ", false},
        {"empty", "Input past end of file (comment)", false},
        {"short", "Input past end of file (row 2 of 3, t)", true},
        {"many", "Overflow", true}, // 32768 rows
    };
    const std::vector<ExpPoint> table = ps.ExpData;
    for (const auto& c : cases) {
        script.boxes.clear();
        EXPECT_FALSE(Load(folder / c.name, c.append)) << c.name;
        ASSERT_EQ(script.boxes.size(), 1U);
        EXPECT_THAT(script.boxes[0].text, testing::StartsWith(c.reason));
        EXPECT_EQ(script.boxes[0].title, "message from Sub LoadExpFile");
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
    PutRows("a.ZI3", "min", 3);
    WriteFileAtomically(folder / "bad.ZI3", "x");
    const struct {
        const char* file; ///< empty: none is chosen
        bool append, ok;
        int count;
        std::string path; ///< of the data file afterwards
    } steps[] = {{"", false, false, 0, ""},
                 {"a.ZI3", false, true, 3, folder / "a.ZI3"},
                 {"a.ZI3", true, true, 6, folder / "a.ZI3"},
                 {"bad.ZI3", true, false, 6, folder / "a.ZI3"},
                 {"bad.ZI3", false, false, 6, folder / "a.ZI3"}}; // the table stays
    for (const auto& step : steps) {
        if (*step.file != 0)
            script.files = {FileChoice{folder / step.file}};
        bool ok = !step.ok, cancelled = *step.file != 0;
        LoadExpDialog(ps, step.append, ok, cancelled);
        EXPECT_EQ(ok, step.ok);
        EXPECT_EQ(cancelled, *step.file == 0);
        EXPECT_EQ(ps.ExpPointCount, step.count);
        EXPECT_EQ(ps.DataFilePath, step.path);
        if (step.ok) {
            EXPECT_EQ(ps.nCtPoints, step.count);
            EXPECT_EQ(ps.DataDir, folder.Path());
        }
    }
}

TEST_F(ExpFile, IsSavedUnderTheChosenNameOrNothingChanges) {
    ASSERT_TRUE(Load(PutRows("a.ZI3", "s", 2)));
    ps.ExpDataChanged = true;
    script.files = {FileChoice{folder / "no/such/b.ZI3"}, FileChoice{folder / "b.ZI3"}};
    std::string file;
    bool cancelled = false;
    for (const bool saved : {false, true}) {
        SaveExpDialog(ps, file, cancelled);
        EXPECT_EQ(cancelled, !saved);
        EXPECT_EQ(ps.ExpDataChanged, !saved);
        EXPECT_EQ(ps.DataFilePath, saved ? folder / "b.ZI3" : "");
    }
    EXPECT_EQ(script.boxes.at(0).title, "message from WriteDataFile");
}

} // namespace
