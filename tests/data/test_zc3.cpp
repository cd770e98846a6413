#include "data/formats/zc3.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zorvant;

namespace {

const std::string kProject = "12.03.2003 14:05:00\r\n"
                             "hydrolysis\r\n"
                             "run 12.ZI3\r\n"
                             " 100 \r\n"
                             ".5,1E-03,2\r\n"
                             "3\r\n"
                             "5\r\n"
                             "1\r\n"
                             ".1\r\n"
                             "0\r\n"
                             "0\r\n"
                             "0\r\n"
                             "2\r\n"
                             "-1\r\n"
                             "0,0,0,0\r\n"
                             "60\r\n"
                             "12.5\r\n"
                             "0,0\r\n"
                             "min\r\n"
                             "\r\n";

/// The project with line 1..20 replaced.
std::string WithLine(int line, const std::string& text) {
    std::size_t start = 0;
    for (int i = 1; i < line; ++i)
        start = kProject.find('\n', start) + 1;
    return kProject.substr(0, start) + text + kProject.substr(kProject.find('\r', start));
}

TEST(ProjectFile, ReadsAllItsLines) {
    const Zc3Reading reading = ParseZc3(kProject);
    EXPECT_FALSE(reading.error);
    const Zc3File& file = reading.file;
    EXPECT_EQ(file.date, "12.03.2003 14:05:00");
    EXPECT_EQ(file.comment, "hydrolysis");
    EXPECT_EQ(file.dataFile, "run 12.ZI3");
    EXPECT_EQ(file.model, kEnzymeWithRcS);
    EXPECT_THAT(file.k, testing::ElementsAre(0.5, 0.001, 2));
    EXPECT_EQ(file.window, 0);
    EXPECT_THAT(file.c0, testing::ElementsAre(1, 0.1, 0, 0, 0));
    EXPECT_EQ(file.scaleSpecies, 2);
    EXPECT_EQ(file.scaleOneSpecies, true);
    EXPECT_EQ(file.tMax, 60);
    EXPECT_EQ(file.tVerweil, 12.5);
    EXPECT_EQ(file.timeUnit, "min");
}

TEST(ProjectFile, WritesWhatItReads) {
    Zc3File file = ParseZc3(kProject).file;
    file.window = 6;
    file.comment = "two\r\nlines, 25 \xC2\xB0";
    const std::string bytes = WriteZc3(file);
    EXPECT_THAT(bytes, testing::HasSubstr("\r\ntwo lines, 25 \xB0\r\nrun 12.ZI3\r\n100\r\n"
                                          ".5,.001,2\r\n6\r\n5\r\n1\r\n.1\r\n"));
    EXPECT_EQ(std::ranges::count(bytes, '\n'), 20);
    file.window = 0; // not read back
    file.comment = "two lines, 25 \xC2\xB0";
    const Zc3Reading again = ParseZc3(bytes);
    EXPECT_FALSE(again.error);
    EXPECT_EQ(again.file, file);
    EXPECT_FALSE(ParseZc3(WriteZc3({})).error);
}

TEST(ProjectFile, KeepsWhatWasReadBeforeItBreaksOff) {
    const Zc3File whole = ParseZc3(kProject).file;
    const std::size_t unitEnd = kProject.rfind("min") + 4; // behind the CR of the unit's line
    std::size_t fieldsBefore = 0;
    for (std::size_t length = 0; length < unitEnd; ++length) {
        const Zc3Reading reading = ParseZc3(kProject.substr(0, length));
        ASSERT_TRUE(reading.error) << length;
        EXPECT_THAT(*reading.error, testing::AnyOf(testing::HasSubstr("past end"),
                                                   testing::HasSubstr("not a number")));
        const Zc3File& file = reading.file;
        std::size_t fields = 0;
        for (const bool there :
             {file.date.has_value(), file.comment.has_value(), file.dataFile.has_value(),
              file.model.has_value(), file.k[0].has_value(), file.k[2].has_value(),
              file.c0[0].has_value(), file.c0[4].has_value(), file.scaleSpecies.has_value(),
              file.tMax.has_value(), file.tVerweil.has_value()})
            fields += there ? 1 : 0;
        EXPECT_GE(fields, fieldsBefore) << length; // what stands there is read, in order
        fieldsBefore = fields;
    }
    EXPECT_EQ(fieldsBefore, 11U);
    EXPECT_EQ(ParseZc3(kProject.substr(0, unitEnd)).file, whole);
}

TEST(ProjectFile, RefusesValuesThatLeadNowhere) {
    const struct {
        int line;
        const char *text, *error;
    } cases[] = {
        {4, "0", "there is no model 0"},
        {4, "21", "there is no model 21"},
        {4, "-2", "there is no model -2"},
        {4, "99999", "Overflow (model number)"},
        {4, "second", "\"second\" is not a number"},
        {5, "1,NaN,3", "\"NaN\" is not a number within the range (rate "},
        {5, "1,1e999,3", "\"1e999\" is not a number"},
        {6, "batch", "\"batch\" is not a number"},
        {7, "6", "the number of concentrations is 6"},
        {7, "-1", "the number of concentrations is -1"},
        {7, "99999", "Overflow"},
        {8, "\x01\x02\x03 bytes \xE2\x82\xAC \xE2\x82\xAC \xE2\x82\xAC \xE2\x82\xAC here",
         "\"??? bytes \xE2\x82\xAC \xE2\x82\xAC \xE2\x82\xAC \"... is not"},
        {13, "1e5", "Overflow"},
        {16, "--5", "\"--5\" is not a number"},
        {18, "a,b", "\"a\" is not a number"},
    };
    for (const auto& c : cases) {
        const Zc3Reading reading = ParseZc3(WithLine(c.line, c.text));
        EXPECT_THAT(reading.error.value_or("was read"), testing::StartsWith(c.error));
        EXPECT_EQ(reading.file.comment, "hydrolysis");
        EXPECT_EQ(reading.file.model.has_value(), c.line > 4) << c.text;
        EXPECT_EQ(reading.file.c0[4].has_value(), c.line > 12) << c.text;
    }
    EXPECT_EQ(ParseZc3(WithLine(5, "1,NaN,3")).file.k[0], 1);
    EXPECT_FALSE(ParseZc3(WithLine(5, "1,NaN,3")).file.k[1]);
}

TEST(ProjectFile, ReadsTheWaysInWhichItsLinesMayDiffer) {
    EXPECT_EQ(ParseZc3(WithLine(3, "\"run\" 12\".ZI3\"")).file.dataFile, "run 12.ZI3");
    EXPECT_EQ(ParseZc3(WithLine(3, "")).file.dataFile, "");
    EXPECT_EQ(ParseZc3(WithLine(13, "0")).file.scaleSpecies, 1); // there is no species 0
    EXPECT_EQ(ParseZc3(WithLine(14, "1")).file.scaleOneSpecies, false);
    EXPECT_EQ(ParseZc3(WithLine(19, "parsec")).file.timeUnit, "parsec");
    EXPECT_EQ(ParseZc3(WithLine(6, "99")).error, std::nullopt);
    const Zc3Reading three = ParseZc3(WithLine(7, "3\r\n1\r\n2\r\n3\r\n2\r\n-1\r\n0,0,0,0\r\n60\r\n"
                                                  "1\r\n0,0\r\ns\r\n"));
    EXPECT_FALSE(three.error);
    EXPECT_EQ(three.file.c0[2], 3);
    EXPECT_FALSE(three.file.c0[3]);
}

} // namespace
