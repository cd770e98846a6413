#include "data/formats/zc3.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zorvant;

namespace {

const std::string kProject = "12.03.2003 14:05:00\r\nhydrolysis\r\nrun 12.ZI3\r\n 100 \r\n"
                             ".5,1E-03,2\r\n3\r\n5\r\n1\r\n.1\r\n0\r\n0\r\n0\r\n2\r\n-1\r\n"
                             "0,0,0,0\r\n60\r\n12.5\r\n0,0\r\nmin\r\n\r\n";

/// The project with line 1..20 replaced.
std::string WithLine(int line, const std::string& text) {
    std::size_t start = 0;
    for (int i = 1; i < line; ++i)
        start = kProject.find('\n', start) + 1;
    return kProject.substr(0, start) + text + kProject.substr(kProject.find('\r', start));
}

TEST(ProjectFile, WritesWhatItReads) {
    const Zc3File whole{.date = "12.03.2003 14:05:00",
                        .comment = "hydrolysis",
                        .dataFile = "run 12.ZI3",
                        .model = kEnzymeWithRcS,
                        .k = {0.5, 0.001, 2},
                        .c0 = {1, 0.1, 0, 0, 0},
                        .scaleSpecies = 2,
                        .scaleOneSpecies = true,
                        .tMax = 60,
                        .tVerweil = 12.5,
                        .timeUnit = "min"};
    Zc3File file = ParseZc3(kProject).file;
    EXPECT_EQ(file, whole);
    file.window = 6; // not read back
    file.comment = "two\r\nlines, 25 \xC2\xB0";
    const std::string bytes = WriteZc3(file);
    EXPECT_THAT(bytes, testing::HasSubstr("\r\ntwo lines, 25 \xB0\r\nrun 12.ZI3\r\n100\r\n"
                                          ".5,.001,2\r\n6\r\n5\r\n1\r\n.1\r\n"));
    EXPECT_EQ(std::ranges::count(bytes, '\n'), 20);
    file.window = 0;
    file.comment = "two lines, 25 \xC2\xB0";
    EXPECT_EQ(ParseZc3(bytes).file, file);
    EXPECT_FALSE(ParseZc3(bytes).error);
    EXPECT_FALSE(ParseZc3(WriteZc3({})).error);
}

TEST(ProjectFile, KeepsWhatWasReadBeforeItBreaksOff) {
    const std::size_t unitEnd = kProject.rfind("min") + 4; // behind the CR of the unit's line
    int fieldsBefore = 0;
    for (std::size_t length = 0; length < unitEnd; ++length) {
        const Zc3Reading reading = ParseZc3(kProject.substr(0, length));
        ASSERT_TRUE(reading.error) << length;
        const Zc3File& file = reading.file;
        const int fields = file.date.has_value() + file.comment.has_value() +
                           file.dataFile.has_value() + file.model.has_value() +
                           file.k[0].has_value() + file.k[2].has_value() + file.c0[0].has_value() +
                           file.c0[4].has_value() + file.scaleSpecies.has_value() +
                           file.tMax.has_value() + file.tVerweil.has_value();
        EXPECT_GE(fields, fieldsBefore) << length; // what stands there is read, in order
        fieldsBefore = fields;
    }
    EXPECT_EQ(fieldsBefore, 11);
    EXPECT_EQ(ParseZc3(kProject.substr(0, unitEnd)).file, ParseZc3(kProject).file);
}

TEST(ProjectFile, RefusesValuesThatLeadNowhere) {
    const struct {
        int line;
        std::string text;
        const char* error;
    } cases[] = {
        {3, std::string("a\0.ZI3", 6),
         "the name of the data file has control characters: \"a?.ZI3"},
        {3, "a\x1B[2J.ZI3", "the name of the data file has control"},
        {19, std::string(41, 's'), "longer than 40 characters (time unit)"},
        {4, "0", "there is no model 0"},
        {4, "21", "there is no model 21"},
        {4, "99999", "Overflow (model number)"},
        {4, "second", "\"second\" is not a number"},
        {5, "1,NaN,3", "\"NaN\" is not a number within the range (rate "},
        {5, "1,1e999,3", "\"1e999\" is not a number"},
        {7, "6", "the number of concentrations is 6"},
        {7, "-1", "the number of concentrations is -1"},
        {8, "\x01\x02\x03 bytes \xE2\x82\xAC \xE2\x82\xAC \xE2\x82\xAC \xE2\x82\xAC here",
         "\"??? bytes \xE2\x82\xAC \xE2\x82\xAC \xE2\x82\xAC \"... is not"},
        {13, "1e5", "Overflow"},
        {18, "a,b", "\"a\" is not a number"},
    };
    for (const auto& c : cases) {
        const Zc3Reading reading = ParseZc3(WithLine(c.line, c.text));
        EXPECT_THAT(reading.error.value_or("was read"), testing::StartsWith(c.error));
        EXPECT_EQ(reading.file.comment, "hydrolysis");
        EXPECT_EQ(reading.file.model.has_value(), c.line > 4) << c.text;
        EXPECT_EQ(reading.file.k[0].has_value(), c.line > 4) << c.text;
        EXPECT_EQ(reading.file.k[1].has_value(), c.line > 5) << c.text;
        EXPECT_EQ(reading.file.c0[4].has_value(), c.line > 12) << c.text;
    }
}

TEST(ProjectFile, ReadsTheWaysInWhichItsLinesMayDiffer) {
    EXPECT_EQ(ParseZc3(WithLine(3, "\"run\" 12\".ZI3\"")).file.dataFile, "run 12.ZI3");
    EXPECT_EQ(ParseZc3(WithLine(13, "0")).file.scaleSpecies, 1); // there is no species 0
    EXPECT_EQ(ParseZc3(WithLine(14, "1")).file.scaleOneSpecies, false);
    EXPECT_EQ(ParseZc3(WithLine(19, "parsec")).file.timeUnit, "parsec");
    const Zc3Reading three = ParseZc3(WithLine(7, "3\r\n1\r\n2\r\n3\r\n2\r\n-1\r\n0,0,0,0\r\n60\r\n"
                                                  "1\r\n0,0\r\ns\r\n"));
    EXPECT_FALSE(three.error);
    EXPECT_EQ(three.file.c0[2], 3);
    EXPECT_FALSE(three.file.c0[3]);
}

} // namespace
