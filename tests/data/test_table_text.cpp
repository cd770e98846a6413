#include "data/formats/table_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zorvant;
using testing::ElementsAre;

namespace {

using Rows = std::vector<std::vector<double>>;

Rows RowsOf(const TableNumbers& table) {
    Rows rows;
    for (std::size_t i = 0; i < table.Rows(); ++i)
        rows.emplace_back(table.Row(i).begin(), table.Row(i).end());
    return rows;
}

/// The numbers of a text read as it is guessed.
Rows Read(std::string_view text) {
    return RowsOf(ReadTable(text, GuessTableLayout(text).layout));
}

TEST(PastedTable, IsReadFromSpreadsheetsOfAnyCountry) {
    const Rows two = {{0, 1.25}, {5, 0.875}};
    const struct {
        const char *why, *text;
        Rows rows;
    } cases[] = {
        {"tabs and points", "0\t1.25\r\n5\t0.875\r\n", two},
        {"tabs and commas", "0\t1,25\r\n5\t0,875\r\n", two},
        {"carriage returns alone", "0\t1.25\r5\t0.875", two},
        {"semicolons and commas", "0;1,25\n5;0,875\n", two},
        {"commas and points", "0,1.25\n5,0.875\n", two},
        {"commas, points, blanks", "0, 1.25\n5 , 0.875\n", two},
        {"blanks and points", "  0   1.25\n  5  0.875  \n", two},
        {"blanks and commas", "0,0 1,25\n5,0 0,875\n", two},
        {"quoted cells", "\"0\",\"1,25\"\n\"5\",\"0,875\"\n", two},
        {"headings", "run 7, Tuesday\n\nt/s;c, mol/L\n0;1,25\n5;0,875", two},
        {"heading with a line end", "t;\"c\n(A)\"\n0;1,25\n5;0,875", two},
        {"empty lines", "\n0\t1.25\n\n5\t0.875\n\n\n", two},
        {"empty cells", "0\t\t1\n\t5\t\n", {{0, 0, 1}, {0, 5, 0}}},
        {"one column", "1.5\n2.5\n3", {{1.5}, {2.5}, {3}}},
        {"one number", "1,5", {{1.5}}},
        {"a column of decimal commas", "0,5\n1,25\n", {{.5}, {1.25}}},
        {"couples under two heads", "t,c\n0,5\n1,25\n", {{0, 5}, {1, 25}}},
        {"three integers a line", "1,2,3\n4,5,6", {{1, 2, 3}, {4, 5, 6}}},
        {"thousands parted by points", "1.234,5;2\n12,5;3", {{1234.5, 2}, {12.5, 3}}},
        {"thousands parted by commas", "1,234.5;2\n12.5;3", {{1234.5, 2}, {12.5, 3}}},
        {"thousands parted by blanks",
         "1 234,5\t2\n1\xC2\xA0"
         "234\xE2\x80\xAF"
         "567\t3",
         {{1234.5, 2}, {1234567, 3}}},
        {"thousands parted by apostrophes", "1'234.5\t2", {{1234.5, 2}}},
        {"a true minus sign",
         "\xE2\x88\x92"
         "1,5\t2E-3",
         {{-1.5, .002}}},
        {"a name in each row", "first;1,5;2\nsecond;2,5;3", {{0, 1.5, 2}, {0, 2.5, 3}}},
        {"nothing", "", {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Read(c.text), c.rows) << c.why;
}

TEST(PastedTable, ShowsWhereThereAreTwoWaysToReadIt) {
    struct Doubt {
        int column;
        const char* example;
        double reading;
    };
    const struct {
        const char* text;
        std::vector<Doubt> doubts;
    } cases[] = {
        {"1.5\t2.25\n3.125\t4.75", {}},
        {"1,5\t2,25\n3\t4,75", {}},
        {"0.125\t1.234\n0.25\t5.678", {}}, // points alone
        {"0,125\t0,500", {}},              // no group begins with 0
        {"1,234\t2\n5,678\t3", {{0, "1,234", 1.234}}},
        {"1,234\t2\n12,5\t3", {}}, // the second row tells
        {"1,5\t1.234\n2,5\t2.345", {{1, "1.234", 1.234}}},
        {"1,5\n1.234", {{-1, "1,5", 1.5}, {0, "1.234", 1234}}},
        {"1.5\n1,234", {{-1, "1,234", 1234}, {0, "1,234", 1234}}},
        {"1,5\n2,75", {{-1, "1,5", 1.5}}},
        {"1,5\n2,75.5", {}},
        {"t,c\n1,5", {}},
        {"1.234.567\t1,5", {}},
    };
    for (const auto& c : cases) {
        const TableGuess guess = GuessTableLayout(c.text);
        ASSERT_EQ(guess.doubts.size(), c.doubts.size()) << c.text;
        for (std::size_t i = 0; i < c.doubts.size(); ++i) {
            EXPECT_EQ(guess.doubts[i].column, c.doubts[i].column) << c.text;
            EXPECT_EQ(guess.doubts[i].example, c.doubts[i].example) << c.text;
            EXPECT_EQ(guess.doubts[i].reading, c.doubts[i].reading) << c.text;
        }
    }
}

TEST(PastedTable, KnowsItsHeadingAndIsReadAsTheUserCorrectsIt) {
    const char* text =
        "exported by the spectrometer\n\"t/s\";\"A \"\"365\"\"\";note\n1,234;5;ok\n2;x;\n";
    TableGuess guess = GuessTableLayout(text);
    EXPECT_EQ(guess.layout.separator, ';');
    EXPECT_EQ(guess.layout.skipLines, 2);
    EXPECT_THAT(guess.heads, ElementsAre("t/s", "A \"365\"", "note"));
    const TableNumbers table = ReadTable(text, guess.layout);
    EXPECT_EQ(RowsOf(table), (Rows{{1.234, 5, 0}, {2, 0, 0}}));
    EXPECT_EQ(table.badCells, 2);
    EXPECT_EQ(table.firstBadLine, 3);
    guess.layout.decimals[0] = DecimalSign::Point;
    guess.layout.skipLines = 3;
    EXPECT_EQ(ReadTable(text, guess.layout).Row(0)[0], 2);
    guess.layout.skipLines = 2;
    EXPECT_EQ(ReadTable(text, guess.layout).Row(0)[0], 1234);
    EXPECT_THAT(SplitTable(text, ';', 2), ElementsAre(ElementsAre("exported by the spectrometer"),
                                                      ElementsAre("t/s", "A \"365\"", "note")));
}

TEST(PastedTable, TakesQuotesAsCharactersWhereTheyEncloseNothing) {
    EXPECT_THAT(SplitTable("5\";\"6\" or 7;\" 8 \" ;\"9", ';', 9),
                ElementsAre(ElementsAre("5\"", "\"6\" or 7", " 8 ", "\"9")));
    EXPECT_THAT(SplitTable("\"a;b\n\"\"c\"\"\";\"\"\n", ';', 9),
                ElementsAre(ElementsAre("a;b\n\"c\"", "")));
}

TEST(PastedTable, PassesOverColumnsBeyondAllMeasure) {
    std::string text = "5";
    for (std::size_t i = 1; i < kMaxColumns; ++i)
        text += ";1,5";
    const TableNumbers full = ReadTable(text, GuessTableLayout(text).layout);
    EXPECT_FALSE(full.columnsCut);
    const TableNumbers cut = ReadTable(text + ";7", GuessTableLayout(text).layout);
    EXPECT_EQ(RowsOf(cut), RowsOf(full));
    EXPECT_TRUE(cut.columnsCut);
}

TEST(PastedCell, IsANumberOrNothing) {
    const struct {
        const char* cell;
        DecimalSign sign;
        std::optional<double> number;
    } cases[] = {
        {"1.5", DecimalSign::Comma, 1.5}, // no group: decimal all the same
        {"1,5", DecimalSign::Point, 1.5},
        {"1.500", DecimalSign::Comma, 1500},
        {"1.500", DecimalSign::Point, 1.5},
        {"0.500", DecimalSign::Comma, .5},
        {"1,234,567", DecimalSign::Point, 1234567},
        {"1,234,567.89", DecimalSign::Comma, 1234567.89},
        {"-1.234E-2", DecimalSign::Point, -1.234e-2},
        {"1,5E-02", DecimalSign::Comma, .015},
        {".5", DecimalSign::Comma, .5},
        {",5", DecimalSign::Comma, .5},
        {"1.2.3", DecimalSign::Point, std::nullopt},
        {"1,2,3", DecimalSign::Comma, std::nullopt},
        {"1,23.4,5", DecimalSign::Comma, std::nullopt},
        {"12,34.5", DecimalSign::Point, std::nullopt},
        {"1 2", DecimalSign::Point, std::nullopt},
        {"1 2345", DecimalSign::Point, std::nullopt},
        {"5 %", DecimalSign::Point, std::nullopt},
        {"1e999", DecimalSign::Point, std::nullopt},
        {"NaN", DecimalSign::Point, std::nullopt},
        {"", DecimalSign::Point, std::nullopt},
        {"-", DecimalSign::Comma, std::nullopt},
        {",", DecimalSign::Comma, std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ParseCell(c.cell, c.sign), c.number) << c.cell;
}

TEST(ImportedText, IsDecodedByItsMark) {
    const std::string little("\xFF\xFE"
                             "1\0\t\0\xAC\x20"
                             "\x3D\xD8\x00\xDE"
                             "\x00\xD8",
                             14);
    EXPECT_EQ(DecodeTableText(little), "1\t\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD");
    EXPECT_EQ(DecodeTableText(std::string("\xFE\xFF\0"
                                          "1\0;",
                                          6)),
              "1;");
    EXPECT_EQ(DecodeTableText("\xEF\xBB\xBF"
                              "1"),
              "1");
    EXPECT_EQ(DecodeTableText("\xB5mol"), "\xC2\xB5mol");
    EXPECT_EQ(DecodeTableText("\xFF\xFE"), "");
}

TEST(CopiedTable, PastesBackUnchanged) {
    TableNumbers table;
    table.values = {0, 1.0 / 3, -1e-300, 5, 1.234, 1000};
    table.rowStart = {0, 3, 4, 6};
    const std::string text = WriteTable(table);
    const TableNumbers read = ReadTable(text, GuessTableLayout(text).layout);
    EXPECT_EQ(WriteTable(read), text);
    EXPECT_EQ(read.rowStart, table.rowStart);
    EXPECT_EQ(read.badCells, 0);
    EXPECT_NEAR(read.values[1], 1.0 / 3, 1e-15);
}

} // namespace
