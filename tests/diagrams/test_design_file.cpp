// Design files: every part of a diagram comes back, damaged ones are refused.
#include "diagrams/design_file.h"
#include "platform/encoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

using testing::HasSubstr;

constexpr double kThird = 1.0 / 3;

/// A diagram in which nothing is as at the start.
PlotContents Decorated() {
    PlotContents d;
    const FontChoice font{.family = "Times New Roman", .size = 12.5, .bold = true, .italic = true};
    const Colours colours{.back = 0x102030, .fore = kStyleColour, .transparent = true};
    const Border border{.type = BorderType::Etched, .width = 3};
    const Location location{.x = kThird, .y = 0.9, .automatic = false};
    PlotSeries series{
        .x = {0, 0.1, kHole, -5e-324},
        .y = {kHole, 1e300, 2, kThird},
        .display = SeriesDisplay::Excluded,
        .label = "c(\xC3\xA4) \"quoted\" \\ \n\tand a second line",
        .line = {.pattern = LinePattern::DashDot, .width = 4, .colour = 0xABCDEF},
        .symbol = {.shape = SymbolShape::HorizontalLine, .size = 9, .colour = 0xFF0000}};
    d.series[kLines] = {{}, series, {}};
    d.series[kPoints] = {{}, {}, series};
    d.labels = {{},
                {.text = "1",
                 .visible = true,
                 .attachment = Attachment::Point,
                 .group = kPoints,
                 .series = 2,
                 .point = 3,
                 .x = 1e-7,
                 .y = 2e7,
                 .offset = -3,
                 .anchor = LabelAnchor::SouthWest,
                 .font = font,
                 .colours = colours,
                 .border = border},
                {.text = "free",
                 .attachment = Attachment::Coord,
                 .x = kThird,
                 .font = {},
                 .colours = {},
                 .border = {}}};
    d.header = {"two\nlines", location, font, colours, border};
    d.footer = {"additional", location, font, colours, border};
    d.legend = {true, Orientation::Horizontal, border, font, colours, location};
    PlotAxis axis;
    axis.min = 1e-3;
    axis.max = 1e5;
    axis.dataMin = -7;
    axis.dataMax = kThird;
    axis.log = true;
    axis.visible = false;
    axis.title = "t/ s";
    axis.titleRotation = axis.annotationRotation = TextRotation::Vertical;
    axis.font = axis.titleFont = font;
    axis.colour = 0x00FF00;
    axis.lineWidth = 2;
    axis.annotation = Placement::Max;
    axis.origin = Placement::AtZero;
    axis.grid = {kThird, false};
    axis.tick = {0.25, false};
    axis.number = {2, false};
    axis.gridPattern = LinePattern::Dashed;
    axis.gridColour = 0x010203;
    d.axes = {axis, axis, axis};
    d.axes[1].max = 3;
    d.chart = d.chartArea = d.plotArea = colours;
    d.chartBorder = border;
    d.chartAreaBox = {0.1, 0.2, 0.7, kThird, false};
    d.plotAreaFrame = false;
    d.plotAreaFrameWidth = 5;
    d.margins = {{10, false}, {20, false}, {30, false}, {40, false}};
    return d;
}

TEST(DesignFile, KeepsEverything) {
    const std::string written = WriteDesign(Decorated());
    EXPECT_TRUE(IsUtf8(written));
    const PlotContents read = ParseDesign(written);
    EXPECT_TRUE(read == Decorated());
    EXPECT_EQ(WriteDesign(read), written);
    std::string unixLines = written;
    std::erase(unixLines, '\r');
    EXPECT_TRUE(ParseDesign(unixLines) == Decorated());
}

TEST(DesignFile, SaysInWhichLineItIsDamaged) {
    const std::string good = WriteDesign(Decorated());
    struct Row {
        const char* from;
        const char* to;
        const char* says;
    };
    for (const Row& row :
         {Row{"version 1", "version 2", "line 1: the file is no diagram design"},
          Row{"picture", "pictures", "line 2: \"picture\" is expected, not \"pictures\""},
          Row{"#102030", "#10203", "\"#10203\" is not a colour"},
          Row{"etched", "edged", "\"edged\" is none of none, 3D, plain, etched"},
          Row{" points 4", " points 5", "is not a finite number"},
          Row{" points 4", " points 3", "\"series\" is expected"},
          Row{" points 4", " points 2000000000", "not an integer from 0 to 10000000"},
          Row{"1e+300", "1e+999", "\"1e+999\" is not a finite number"},
          Row{"1e+300", "nan", "\"nan\" is not a finite number"},
          Row{"1e+300", "1e+300 4", "\"4\" is too much"},
          Row{"series excluded \"", "series excluded ", "a text in double quotes is expected"},
          Row{"\\\"quoted", "\\quoted", "a backslash stands before"},
          Row{"two\\nlines\"", "two", "the closing quote of a text is missing"},
          Row{"\"two", "\"\xFFtwo", "the text is not in UTF-8"},
          Row{" at point 2 2", " at point 2 3", "label 1 is attached to series 3"},
          Row{" at point 2 2", " at point 3 2", "\"3\" is not an integer from 1 to 2"},
          Row{"0.001 1e+05", "0.001 1e+39", "out of the range"},
          Row{"\r\nend\r\n", "\r\n", "ends before the design is complete"},
          Row{"\r\nend\r\n", "\r\nend\r\nend", "behind the end"}}) {
        std::string damaged = good;
        const std::size_t at = damaged.find(row.from);
        ASSERT_NE(at, std::string::npos) << row.from;
        damaged.replace(at, std::string_view(row.from).size(), row.to);
        try {
            ParseDesign(damaged);
            ADD_FAILURE() << row.to;
        } catch (const FormatError& error) {
            EXPECT_THAT(error.what(), HasSubstr(row.says)) << row.to;
            EXPECT_THAT(error.what(), testing::StartsWith("line "));
        }
    }
}

} // namespace
} // namespace zorvant
