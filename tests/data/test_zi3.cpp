#include "data/formats/zi3.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

using namespace zorvant;

namespace {

const std::string kThreeRows =
    "run 12, 25 degrees\r\n"
    "min\r\n"
    "t, cA, cB, cC, cP, cQ, k, T, lambda, lambda_inf, res3, res4, exclude(0|-1)\r\n"
    "3\r\n"
    "0,1.2,0,0,0,0,0,0,0,0,0,0,0\r\n"
    "5,.85,0,0,0,0,0,0,0,0,0,0,0\r\n"
    "10,.6,0,0,0,0,0,0,0,0,0,0,-1\r\n";

std::string File(const std::string& count, const std::string& rows) {
    return "comment\r\ns\r\nheads\r\n" + count + "\r\n" + rows;
}

TEST(DataFile, ReadsAndWritesTheSameBytes) {
    const Zi3File file = ParseZi3(kThreeRows);
    EXPECT_EQ(file.head, (Zi3Head{"run 12, 25 degrees", "min", 3}));
    ASSERT_EQ(file.rows.size(), 3U);
    EXPECT_EQ(file.rows[1], (ExpPoint{.t = 5, .cA = 0.85}));
    EXPECT_EQ(file.rows[2].exclude, -1);
    EXPECT_EQ(WriteZi3(file.head, file.rows, file.lambdaInf), kThreeRows);
    for (const char* comment :
         {"25 \xC2\xB0 \xCE\x94H \xE2\x82\xAC", "  \"q\", and , more ", "\x1A\x7F"})
        EXPECT_EQ(ParseZi3Head(WriteZi3({comment, "s", 0}, {}, 0)).comment, comment);
    EXPECT_EQ(ParseZi3Head(WriteZi3({"a\r\nb\nc\rd", "s", 0}, {}, 0)).comment, "a b c d");
    const ExpPoint row{1.5, 1, 2, 3, 4, 5, 298.15, .00123, .25F, 7, -8, -1};
    const std::string bytes = WriteZi3({"", "s", 1}, std::span(&row, 1), 9.5);
    EXPECT_THAT(bytes, testing::EndsWith("1.5,1,2,3,4,5,.00123,298.15,.25,9.5,7,-8,-1\r\n"));
    EXPECT_EQ(ParseZi3(bytes).rows.at(0), row);
    EXPECT_EQ(ParseZi3(bytes).lambdaInf, 9.5);
}

TEST(DataFile, RoundsOnceAndThenNeverAgain) {
    std::mt19937_64 random(11);
    std::lognormal_distribution<double> size(0, 20);
    std::vector<ExpPoint> rows(2000);
    for (ExpPoint& row : rows) {
        for (double* value : {&row.t, &row.cA, &row.cB, &row.cC, &row.cP, &row.cQ, &row.T, &row.k})
            *value = size(random) * (random() % 2 == 0 ? 1 : -1);
        row.lambda = static_cast<float>(size(random));
    }
    const std::string once = WriteZi3({"", "s", 0}, rows, 1.0 / 3);
    const Zi3File read = ParseZi3(once);
    EXPECT_EQ(WriteZi3(read.head, read.rows, read.lambdaInf),
              WriteZi3(read.head, rows, static_cast<double>(1.0F / 3)));
    EXPECT_NEAR(read.rows[7].t / rows[7].t, 1, 1e-6);
    EXPECT_NEAR(read.rows[7].cQ / rows[7].cQ, 1, 1e-14);
}

TEST(DataFile, TakesWhatPeopleAndOtherProgramsMakeOfIt) {
    const struct {
        const char* why;
        std::string bytes;
        std::vector<double> times;
    } cases[] = {
        {"LF", "c\ns\nh\n1\n5,1,0,0,0,0,0,0,0,0,0,0,0\n", {5}},
        {"CR", "c\rs\rh\r1\r5,1,0,0,0,0,0,0,0,0,0,0,0\r", {5}},
        {"a line for each item", File("1", "5\n1\n0\n0\n0\n0\n0\n0\n0\n0\n0\n0\n-1\n"), {5}},
        {"rows behind each other",
         File("2", "5,1,0,0,0,0,0,0,0,0,0,0,0,6,1,0,0,0,0,0,0,0,0,0,0,0"),
         {5, 6}},
        {"blanks and tabs", File(" 1 ", " 5 ,\t1, 0,0,0,0,0,0,0,0,0,0, 0 \n"), {5}},
        {"empty items", File("1", "5,,,,,,,,,,,,\n"), {5}},
        {"empty lines",
         File("2", "\n5,1,0,0,0,0,0,0,0,0,0,0,0\n\n \n6,1,0,0,0,0,0,0,0,0,0,0,0\n"),
         {5, 6}},
        {"signs and exponents", File("+1", "+5.0E+00,1D-3,.5,5.,0,0,0,0,0,0,0,0,0\n"), {5}},
        {"more rows than counted", File("1", "5,1,0,0,0,0,0,0,0,0,0,0,0\n6,1,0,0,0,0,0,0\n"), {5}},
        {"no rows", File("0", ""), {}},
    };
    for (const auto& c : cases) {
        std::vector<double> times;
        for (const ExpPoint& row : ParseZi3(c.bytes).rows)
            times.push_back(row.t);
        EXPECT_EQ(times, c.times) << c.why;
    }
    EXPECT_EQ(ParseZi3("c\n \"min\" , x\nh\n0").head.timeUnit, "min");
    EXPECT_EQ(ParseZi3("c\n\nh\n0").head.timeUnit, "");
}

TEST(DataFile, RefusesWhatIsNoneAndSaysWhere) {
    const std::string row = "1,1,0,0,0,0,0,0,0,0,0,0,0\n";
    const struct {
        std::string bytes;
        const char* reason;
    } cases[] = {
        {"", "Input past end of file (comment)"},
        {"c\ns\nh\n", "Input past end of file (number of"},
        {File("2", row), "Input past end of file (row 2 of 2, t)"},
        {File("1", "1,2,3"), "Input past end of file (row 1 of 1, cC)"},
        {File("-1", row), "the number of measuring points is -1"},
        {File("99999", row), "Overflow (number of measuring points)"},
        {File("1e999", row), "\"1e999\" is not a number within the range"},
        {File("1", "1,one,0,0,0,0,0,0,0,0,0,0,0"),
         "\"one\" is not a number within the range (row 1 of 1, cA)"},
        {File("1", "NaN,1,0,0,0,0,0,0,0,0,0,0,0"), "\"NaN\" is not"},
        {File("1", "1,1,0,0,0,0,0,-inf,0,0,0,0,0"), "\"-inf\" is not"},
        {File("1", "1;1;0;0;0;0;0;0;0;0;0;0;0"), "\"1;1;0;0;0;0;0;0;0;0;0;0;\"... is"},
        {File("1", "1,1,0,0,0,0,0,0,1e39,0,0,0,0"), "Overflow (row 1 of 1, lambda)"},
        {std::string(3000, '\0'), "Input past end of file (time unit)"},
        {"\x89PNG\r\n\x1A\n\r\n\xFF\x01\r\nIHDR", "\"\xC3\xBF?\" is not a number"},
    };
    for (const auto& c : cases) {
        std::string reason = "was read";
        try {
            (void)ParseZi3(c.bytes);
        } catch (const FormatError& error) {
            reason = error.what();
        }
        EXPECT_THAT(reason, testing::StartsWith(c.reason)) << c.bytes;
    }
}

TEST(DataFile, IsRefusedWhereverItBreaksOffUntilOnlyItsLastEndIsMissing) {
    for (std::size_t length = 0; length + 3 < kThreeRows.size(); ++length)
        EXPECT_THROW((void)ParseZi3(kThreeRows.substr(0, length)), FormatError) << length;
    EXPECT_EQ(ParseZi3(kThreeRows.substr(0, kThreeRows.size() - 2)), ParseZi3(kThreeRows));
}

TEST(DataFile, TakesTheLambdaLimitThroughSinglePrecisionFromTheLastRowThatHasOne) {
    for (const auto& [first, second, limit] : {std::tuple{"2", "3", 3.0},
                                               {"2", "0", 2.0},
                                               {"0", "-1", 0.0},
                                               {"0", ".1", static_cast<double>(0.1F)},
                                               {"1e300", "0", 1e300}})
        EXPECT_EQ(ParseZi3(File("2", std::string("1,0,0,0,0,0,0,0,0,") + first +
                                         ",0,0,0\n2,0,0,0,0,0,0,0,0," + second + ",0,0,0\n"))
                      .lambdaInf,
                  limit);
}

} // namespace
