#include "data/formats/xy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

using namespace zorvant;

namespace {

std::vector<XYPoint> Points(std::initializer_list<std::pair<float, float>> pairs) {
    std::vector<XYPoint> points;
    for (const auto& [x, y] : pairs)
        points.push_back({.x = x, .y = y});
    return points;
}

TEST(PointList, WritesItsActivePointsInExponentForm) {
    std::vector<XYPoint> points = Points({{1.5F, -0.002F}, {9, 9}, {0, 1e10F}});
    points[1].inactive = -1;
    EXPECT_EQ(WriteXY("note\nof two lines", points, ";"), "note of two lines\r\n"
                                                          ".1500000E+01;-.2000000E-02\r\n"
                                                          ".0000000E+00;.1000000E+11\r\n");
}

TEST(PointList, FindsItsDelimiterInTheFirstLineOfPoints) {
    const struct {
        const char *why, *lines;
        std::vector<XYPoint> points;
    } cases[] = {
        {"blank", "1 2\n3 4", Points({{1, 2}, {3, 4}})},
        {"blanks in front and in a row", "  1   2  \n 3  4", Points({{1, 2}, {3, 4}})},
        {"comma", "1.5,2.5", Points({{1.5F, 2.5F}})},
        {"comma and blank", "1.5, 2.5", Points({{1.5F, 2.5F}})},
        {"semicolon with commas", "1,5;2,5", Points({{1.5F, 2.5F}})},
        {"tab before all others", "1,5 \t 2.5;3", Points({{1.5F, 2.5F}})},
        {"decimal commas and blanks", "1,5 2,5\n3 4", Points({{1.5F, 2.5F}, {3, 4}})},
        {"three columns", "1;2;3\n4;5;x", Points({{1, 2}, {4, 5}})},
        {"empty lines", "\n1;2\n\n \n3;4\n\n", Points({{1, 2}, {3, 4}})},
        {"plus and exponents", "+1E+01;.5D-1", Points({{10, .05F}})},
    };
    for (const auto& c : cases) {
        const XYFile file = ParseXY(std::string("a comment\n") + c.lines);
        EXPECT_EQ(file.points, c.points) << c.why;
        EXPECT_EQ(file.comment, "a comment");
    }
    EXPECT_TRUE(ParseXY("only a comment").points.empty());
    EXPECT_THROW((void)ParseXY(""), FormatError);
    try {
        (void)ParseXY("c\n\n15\n");
        ADD_FAILURE();
    } catch (const FormatError& error) {
        EXPECT_STREQ(error.what(), "line 3: \"15\" has no delimiter between x and y");
    }
}

TEST(PointList, CountsTheLinesThatAreNoNumbers) {
    const XYFile file = ParseXY("c\n1;2\nx;5\n3mm;4\n7\n1e999;nan\n8;9");
    EXPECT_EQ(file.points, Points({{1, 2}, {0, 5}, {3, 4}, {7, 0}, {0, 0}, {8, 9}}));
    EXPECT_EQ(file.badLines, 4);
    EXPECT_EQ(file.firstBadLine, 3);
}

TEST(PointList, ComesBackWithSevenDigitsWhateverTheDelimiter) {
    std::mt19937_64 random(3);
    std::lognormal_distribution<float> size(0, 10);
    std::vector<XYPoint> points(500);
    for (XYPoint& point : points)
        point = {.x = size(random), .y = -size(random)};
    for (const char* delimiter : {";", ",", "\t"}) {
        const std::string once = WriteXY("c", points, delimiter);
        const XYFile read = ParseXY(once);
        EXPECT_EQ(read.badLines, 0);
        ASSERT_EQ(read.points.size(), points.size());
        EXPECT_EQ(WriteXY("c", read.points, delimiter), once);
        for (std::size_t i = 0; i < points.size(); ++i)
            EXPECT_NEAR(read.points[i].y / points[i].y, 1, 5e-7);
    }
}

} // namespace
