// What survives when the program does not: killed processes leave their data, and saved files are
// old or new but whole, whatever call of the system fails.
#include "data/previous_version.h"
#include "data/recovery.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "platform/host.h"
#include "tests/failing_calls.h"
#include "tests/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace zorvant {
namespace {

using testing::HasSubstr;

class Recovery : public testing::Test {
protected:
    Recovery() { ps.LastSessionFile = folder / "ZorLastSession.ZC3"; }
    ~Recovery() override { fileCalls() = SystemFileCalls(); }

    static void Fill(ProjectState& state, int rows) {
        state.ExpData.assign(1, {});
        for (int i = 0; i < rows; ++i)
            state.ExpData.push_back({.t = static_cast<double>(i), .cA = 0.5});
        state.ExpPointCount = rows;
        state.ExpDataChanged = true;
    }
    TempFolder folder;
    ScriptedHost script;
    ProjectState ps;
    RecoveryKeeper keeper{ps, DataRecovery(ps)};
};

TEST_F(Recovery, DataOfAKilledProcessAreOfferedUntilTheyAreTaken) {
    const pid_t child = fork();
    if (child == 0) {
        Fill(ps, 3);
        ps.TimeUnitText = "min";
        ps.DataFilePath = "/data/run.ZI3";
        keeper.Keep();
        ps.ExpData[2].cA = 0.25; // a change after the first writing
        keeper.Keep();
        kill(getpid(), SIGKILL);
    }
    waitpid(child, nullptr, 0);
    script.answers = {Answer::Cancel, Answer::Yes};
    EXPECT_FALSE(OfferRecovery(ps, keeper)); // asked again at the next start
    EXPECT_TRUE(OfferRecovery(ps, keeper));
    EXPECT_THAT(script.boxes[1].text, HasSubstr("/data/run.ZI3"));
    EXPECT_EQ(ps.ExpData[2].cA, 0.25);
    EXPECT_EQ(ps.TimeUnitText, "min");
    EXPECT_EQ(ps.DataFileTitle, "run.ZI3");
    EXPECT_TRUE(ps.ExpDataChanged); // it still has to be saved
    // From now on this process keeps them; another crash loses nothing.
    EXPECT_EQ(keeper.Path(), folder / folder.Names().at(0));
    EXPECT_EQ(folder.Names().size(), 1U);
}

TEST_F(Recovery, FilesOfProgramsThatRunAreLeftAloneWhateverTheirNumber) {
    int toChild[2], toParent[2];
    ASSERT_EQ(pipe(toChild) + pipe(toParent), 0);
    const pid_t child = fork();
    if (child == 0) {
        Fill(ps, 2);
        keeper.Keep();
        ps.ExpComment = "written again, as a new file";
        keeper.Keep();
        char byte = 0;
        (void)!write(toParent[1], "x", 1);
        (void)!read(toChild[0], &byte, 1);
        kill(getpid(), SIGKILL);
    }
    char byte = 0;
    ASSERT_EQ(read(toParent[0], &byte, 1), 1);
    ASSERT_EQ(folder.Names().size(), 1U);
    EXPECT_TRUE(FindRecoveries(ps, ".ZI3").empty());
    ASSERT_EQ(write(toChild[1], "x", 1), 1);
    waitpid(child, nullptr, 0);
    // The number may be that of a running program by now, even of this one.
    const std::string reused = folder / ("ZorRecovery-" + std::to_string(getpid()) + ".ZI3");
    std::filesystem::rename(folder / folder.Names()[0], reused);
    EXPECT_THAT(FindRecoveries(ps, ".ZI3"), testing::ElementsAre(reused));
    Fill(ps, 1);
    keeper.Keep(); // own work beside it, not over it
    EXPECT_NE(keeper.Path(), reused);
    std::filesystem::remove(keeper.Path());
    keeper.Keep(); // nothing has changed, but the file is gone
    EXPECT_TRUE(FileExists(keeper.Path()));
    script.answers = {Answer::No}; // not wanted: gone
    EXPECT_FALSE(OfferRecovery(ps, keeper));
    EXPECT_EQ(folder.Names().size(), 1U);
    for (int file : {toChild[0], toChild[1], toParent[0], toParent[1]})
        close(file);
}

TEST_F(Recovery, TheFileStandsOnlyWhileSomethingIsUnsaved) {
    keeper.Keep();
    EXPECT_TRUE(folder.Names().empty());
    Fill(ps, 2);
    keeper.Keep();
    EXPECT_TRUE(FileExists(keeper.Path()));
    int writes = 0;
    fileCalls().rename = [&](const char* from, const char* to) {
        ++writes;
        return SystemFileCalls().rename(from, to);
    };
    keeper.Keep();
    EXPECT_EQ(writes, 0); // nothing has changed since
    ps.ExpComment = "new";
    keeper.Keep();
    EXPECT_EQ(writes, 1);
    ps.ExpDataChanged = false; // saved
    keeper.Keep();
    EXPECT_TRUE(folder.Names().empty());
}

// ---------------------------------------------------------------- the version before

TEST_F(Recovery, ASaveThatFailsAtAnyCallLeavesOldOrNewWholeAndKeepsTheVersionBefore) {
    const std::string path = folder / "data.ZI3";
    const std::string oldest = "oldest", old(50000, 'o'), fresh(70000, 'n');
    for (const bool kills : {false, true})
        for (int n = 1;; ++n) {
            SCOPED_TRACE((kills ? "killed at call " : "failing call ") + std::to_string(n));
            std::filesystem::remove_all(folder.Path());
            std::filesystem::create_directory(folder.Path());
            WriteFileAtomically(path, old);
            WriteFileAtomically(path + "~", oldest);
            bool struck = true, refused = false;
            const auto save = [&] {
                const Saboteur saboteur(n, kills);
                try {
                    WriteKeepingPrevious(path, fresh);
                } catch (const FileError&) {
                    refused = true;
                }
                return saboteur.Struck();
            };
            if (kills) {
                const pid_t child = fork();
                if (child == 0)
                    _exit(save() ? 2 : 0);
                int status = 0;
                waitpid(child, &status, 0);
                struck = WIFSIGNALED(status) || WEXITSTATUS(status) == 2;
            } else {
                struck = save();
            }
            const std::string now = ReadFile(path), before = ReadFile(path + "~");
            EXPECT_TRUE(now == old || now == fresh);
            EXPECT_TRUE(before == oldest || before == old);
            if (now == fresh) {
                EXPECT_EQ(before, old); // never without the version before
            }
            if (!kills) {
                EXPECT_EQ(now, refused ? old : fresh);
            }
            if (!struck) {
                EXPECT_EQ(now, fresh);
                EXPECT_GT(n, 8); // both files were written through these calls
                break;
            }
        }
}

TEST_F(Recovery, TheVersionBeforeReplacesALinkOfItsNameAndCostsNothingOnAFullDisk) {
    const std::string path = folder / "run.ZI3", secret = folder / "secret";
    WriteFileAtomically(path, "measured");
    WriteFileAtomically(secret, "alias ls=ls");
    std::filesystem::create_symlink("secret", path + "~");
    ASSERT_EQ(chmod(path.c_str(), 0600), 0);
    for (const bool links : {true, false}) { // not every file system has second names
        if (!links)
            fileCalls().link = [](const char*, const char*) { return errno = EPERM, -1; };
        const std::string before = ReadFile(path);
        for (int twice = 0; twice < 2; ++twice) // saving the same again keeps the older one
            WriteKeepingPrevious(path, links ? "new" : "newer");
        EXPECT_EQ(ReadFile(path + "~"), before);
        EXPECT_FALSE(std::filesystem::is_symlink(path + "~"));
        EXPECT_EQ(ReadFile(secret), "alias ls=ls");
        for (const std::string& each : {path, path + "~"})
            EXPECT_EQ(std::filesystem::status(each).permissions(), std::filesystem::perms(0600));
    }
    for (const bool full : {true, false}) {
        if (full)
            fileCalls().write = [](int, const void*, std::size_t) -> ssize_t {
                return errno = ENOSPC, -1;
            };
        else
            fileCalls().open = [](const char*, int, mode_t) { return errno = EACCES, -1; };
        EXPECT_THROW(WriteKeepingPrevious(path, "lost"), FileError);
        fileCalls() = SystemFileCalls();
        EXPECT_EQ(ReadFile(path), "newer");
        EXPECT_EQ(ReadFile(path + "~"), "new");
        EXPECT_EQ(folder.Names().size(), 3U);
    }
}

} // namespace
} // namespace zorvant
