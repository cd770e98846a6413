#include "shell/command_line.h"

#include <gtest/gtest.h>

using namespace zorvant;

TEST(CommandLine, TakesWhatHasNoDashesAsTheProject) {
    using Row = std::pair<std::vector<std::string>, std::string>;
    for (const auto& [arguments, project] :
         std::vector<Row>{{{}, ""},
                          {{"a.ZC3"}, "a.ZC3"},
                          {{"\"my run.ZC3\""}, "my run.ZC3"}, // quotes are taken out
                          {{"my", "run.ZC3"}, "my run.ZC3"},  // an unquoted name with a blank
                          {{"-a.ZC3"}, "-a.ZC3"},
                          {{"/tmp/\303\204pfel.ZC3"}, "/tmp/\303\204pfel.ZC3"}}) {
        const CommandLine line = ParseCommandLine(arguments);
        EXPECT_EQ(line.project, project);
        EXPECT_EQ(line.task, Task::Window);
    }
}

TEST(CommandLine, ReadsAnExportInAnyOrder) {
    const CommandLine line =
        ParseCommandLine({"--size", "1200x800", "run.ZC3", "--rates", "--export", "a.b/picture.Png",
                          "--table", "t.TXT", "--scale", "2"});
    EXPECT_EQ(line.task, Task::Export);
    EXPECT_EQ(line.project, "run.ZC3");
    EXPECT_EQ(line.picture, "a.b/picture.Png");
    EXPECT_EQ(line.table, "t.TXT");
    EXPECT_TRUE(line.rates);
    EXPECT_EQ(line.width, 1200);
    EXPECT_EQ(line.height, 800);
    EXPECT_EQ(line.scale, 2);
    EXPECT_EQ(ParseCommandLine({"--table", "t.TXT", "run.ZC3"}).task, Task::Export);
    // help and version ask for nothing else
    EXPECT_EQ(ParseCommandLine({"--help"}).task, Task::Help);
    EXPECT_EQ(ParseCommandLine({"--export", "a.svg", "--version"}).task, Task::Version);
}

TEST(CommandLine, RefusesWhatItCannotDo) {
    using Row = std::pair<std::vector<std::string>, const char*>;
    for (const auto& [arguments, says] : std::vector<Row>{
             {{"--unknown"}, "--unknown"},
             {{"--export=a.png", "a.ZC3"}, "--export=a.png"},
             {{"a.ZC3", "--export"}, "FILE"},
             {{"--export", "", "a.ZC3"}, "--export"},
             {{"--export", "a.gif", "a.ZC3"}, "a.gif"},
             {{"--export", "dir/.png", "a.ZC3"}, ".svg"},
             {{"--export", "a.png"}, "project"},
             {{"--table", "a.TXT"}, "project"},
             {{"--export", "a.png", "--size", "1200", "a.ZC3"}, "WIDTHxHEIGHT"},
             {{"--export", "a.png", "--size", "199x800", "a.ZC3"}, "200x150"},
             {{"--export", "a.png", "--size", "1e3x800", "a.ZC3"}, "WIDTHxHEIGHT"},
             {{"--export", "a.png", "--size", "99999x99999", "a.ZC3"}, "16384"},
             {{"--export", "a.png", "--scale", "nan", "a.ZC3"}, "--scale"},
             {{"--export", "a.png", "--size", "9999x150", "--scale", "2", "a.ZC3"}, "larger"},
             {{"--export", "a.bmp", "--size", "9000x9000", "--scale", "1.5", "a.ZC3"},
              "million"}}) {
        try {
            ParseCommandLine(arguments);
            ADD_FAILURE() << says;
        } catch (const UsageError& error) {
            EXPECT_NE(std::string(error.what()).find(says), std::string::npos) << error.what();
        }
    }
}
