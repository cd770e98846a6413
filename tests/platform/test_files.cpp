#include "platform/encoding.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "tests/failing_calls.h"
#include "tests/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>

using namespace zorvant;
namespace fs = std::filesystem;

namespace {

class Files : public testing::Test {
protected:
    ~Files() override { fileCalls() = SystemFileCalls(); }
    std::vector<std::string> Names() const { return temporary.Names(); }

    TempFolder temporary;
    const std::string folder = temporary.Path();
    std::string path = folder + "data.ZI3";
};

constexpr const char* kOld = "the old content";
const std::string kNew(100000, 'n');

TEST_F(Files, AreReplacedWholeAndKeepTheirPermissions) {
    path = folder + std::string(255, 'x'); // the longest name
    WriteFileAtomically(path, kOld);
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    WriteFileAtomically(path, kNew);
    EXPECT_EQ(ReadFile(path), kNew);
    struct stat info {};
    ASSERT_EQ(stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777U, 0640U);
    EXPECT_EQ(Names().size(), 1U);
}

TEST_F(Files, BehindLinksAreReplacedAndTheLinksStay) {
    fs::create_directory(folder + "far");
    fs::create_symlink("far/real.ZI3", folder + "first");
    fs::create_symlink(folder + "first", path);
    for (const char* text : {"made through a link that led nowhere", "replaced"}) {
        WriteFileAtomically(path, text);
        EXPECT_TRUE(fs::is_symlink(path));
        EXPECT_EQ(ReadFile(folder + "far/real.ZI3"), text);
    }
    fs::create_symlink("circle", folder + "circle");
    EXPECT_THROW(WriteFileAtomically(folder + "circle", kNew), FileError);
}

TEST_F(Files, ThatCannotBeThereAreRefusedWithTheirName) {
    const auto refusal = [&](const std::string& name, auto&& action) {
        try {
            action(name);
        } catch (const FileError& error) {
            return std::string(error.what());
        }
        return std::string("no error");
    };
    const auto read = [](const std::string& name) { (void)ReadFile(name); };
    const auto write = [](const std::string& name) { WriteFileAtomically(name, kNew); };
    EXPECT_EQ(refusal(folder + "none", read), "No such file or directory: " + folder + "none");
    EXPECT_EQ(refusal(folder, read), "Is a directory: " + folder);
    // neither waits for somebody at the other end
    const std::string pipe = folder + "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(refusal(pipe, read), "Not a regular file: " + pipe);
    EXPECT_EQ(refusal(pipe, write), "No such device or address: " + pipe);
    fs::remove(pipe);
    EXPECT_EQ(refusal("/dev/zero", read), "Not a regular file: /dev/zero");
    EXPECT_EQ(refusal(folder, write), "Is a directory: " + folder);
    EXPECT_EQ(refusal("", write), "No such file or directory: ");
    WriteFileAtomically("/dev/null", kNew); // a device is written through, not replaced
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_THAT(Names(), testing::IsEmpty());
}

TEST_F(Files, ThatKilledSavingsLeftAreRemovedByTheNextOne) {
    const pid_t dead = fork();
    if (dead == 0)
        _exit(0);
    waitpid(dead, nullptr, 0);
    const auto hour = fs::file_time_type::clock::now() - std::chrono::hours(1);
    const auto leave = [&](pid_t process, fs::file_time_type time) {
        const std::string name = ".zorvant-" + std::to_string(process) + "-1";
        std::ofstream(folder + name).close();
        fs::last_write_time(folder + name, time);
        return name;
    };
    leave(dead, hour);
    const std::string running = leave(getppid(), hour);
    WriteFileAtomically(path, kNew);
    EXPECT_THAT(Names(), testing::UnorderedElementsAre(running, "data.ZI3"));
    // of another machine, which may be at it
    const std::string young = leave(dead, fs::file_time_type::clock::now());
    WriteFileAtomically(path, kNew);
    EXPECT_THAT(Names(), testing::Contains(young));
}

TEST_F(Files, StandOldOrNewWhenAnyCallOfSavingFails) {
    for (const bool existing : {true, false}) {
        int failures = 0;
        bool struck = true;
        for (int failing = 1; struck; ++failing) {
            fs::remove(path);
            if (existing)
                WriteFileAtomically(path, kOld);
            bool refused = false;
            {
                const Saboteur saboteur(failing, false);
                try {
                    WriteFileAtomically(path, kNew);
                } catch (const FileError& error) {
                    refused = true;
                    EXPECT_THAT(error.what(), testing::StartsWith("Input/output error"));
                }
                struck = saboteur.Struck();
            }
            const std::string left = FileExists(path) ? ReadFile(path) : "";
            EXPECT_EQ(left, !refused ? kNew : existing ? kOld : "") << failing;
            EXPECT_EQ(Names().size(), existing || !refused ? 1 : 0)
                << failing; // nothing else stays
            failures += refused ? 1 : 0;
        }
        EXPECT_GE(failures, existing ? 9 : 8); // open, fchmod, 4 writes, fsync, close, rename
    }
}

TEST_F(Files, StandOldOnAFullDiskAndWithoutPermission) {
    WriteFileAtomically(path, kOld);
    fileCalls().write = [](int file, const void* bytes, std::size_t count) -> ssize_t {
        static std::size_t room = 40000;
        const std::size_t part = std::min(count, room);
        room -= part;
        if (part > 0)
            return ::write(file, bytes, part);
        errno = ENOSPC;
        return -1;
    };
    EXPECT_THROW(WriteFileAtomically(path, kNew), FileError);
    fileCalls() = SystemFileCalls();
    fileCalls().open = [](const char*, int, mode_t) {
        errno = EACCES;
        return -1;
    };
    EXPECT_THROW(WriteFileAtomically(path, kNew), FileError);
    EXPECT_EQ(ReadFile(path), kOld);
    EXPECT_THAT(Names(), testing::ElementsAre("data.ZI3"));
    EXPECT_THROW(WriteFileAtomically("/dev/full", kNew), FileError);
}

TEST(TextBytes, AreReadAsUtf8OrWindows1252AndWrittenSoThatTheSameTextIsReadAgain) {
    const struct {
        const char *bytes, *text;
        bool same; ///< whether the text is written as these bytes
    } cases[] = {
        {"\xEF\xBB\xBFx", "x", false},
        {"25 \xB0K, \x80 5", "25 \xC2\xB0K, \xE2\x82\xAC 5", true},
        {"k = 5 \xC2\xB5mol", "k = 5 \xC2\xB5mol", false},
        {"\xCE\x94H", "\xCE\x94H", true},               // a Greek letter does not fit
        {"\xC3\x83\xC2\xA4", "\xC3\x83\xC2\xA4", true}, // else it would read as one letter
        {"\xEF\xBB\xBF\xEF\xBB\xBFx", "\xEF\xBB\xBFx", true},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(DecodeText(c.bytes), c.text);
        EXPECT_EQ(EncodeText(c.text) == c.bytes, c.same) << c.text;
        EXPECT_EQ(DecodeText(EncodeText(c.text)), c.text);
    }
    std::string every;
    for (int byte = 0; byte < 256; ++byte)
        every += static_cast<char>(byte);
    EXPECT_EQ(EncodeText(DecodeText(every)), every);
    for (const char* bad : {"\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xC3",
                            "\xF0\x82\x82\xAC", "\x80", "\xFF", "\xE2\x82"})
        EXPECT_FALSE(IsUtf8(bad)) << bad;
    EXPECT_TRUE(IsUtf8("\xF4\x8F\xBF\xBF\xEE\x80\x80\xC2\x80"));
}

TEST(TextBytes, AreShownOnATerminalWithoutObeyingThem) {
    for (const auto& [text, shown] : {std::pair{"a\r\nb\tc", "a\nb\\x09c"},
                                      {"\x1B[2J\x7F", "\\x1B[2J\\x7F"},
                                      {"\xC2\x9Bm \xFF", "\\x9Bm \\xFF"},
                                      {"\xE2\x80\xAE"
                                       "fig \xC2\xB5",
                                       "\\u202Efig \xC2\xB5"}})
        EXPECT_EQ(TerminalText(text), shown);
    EXPECT_EQ(Shortened("\xC2\xB5mol", 4), "\xC2\xB5mol");
    EXPECT_EQ(Shortened("\xC2\xB5mol/L", 4), "\xC2\xB5mol\xE2\x80\xA6");
}

TEST(Paths, UnderstandBothSeparators) {
    for (const auto& [path, folder, name] : {std::tuple{"C:\\data/a b.ZI3", "C:\\data/", "a b.ZI3"},
                                             {"x/y\\z", "x/y\\", "z"},
                                             {"z", "", "z"}}) {
        EXPECT_EQ(FileName(path), name);
        EXPECT_EQ(DirectoryOf(path), folder);
        EXPECT_EQ(JoinPath(folder, name), path);
        EXPECT_EQ(HasFolder(path), *folder != 0);
    }
    EXPECT_EQ(JoinPath("x", "z"), "x/z");
}

} // namespace
