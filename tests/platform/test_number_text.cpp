#include "platform/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

using namespace zorvant;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

TEST(NumberReader, TakesTheNumberAtTheHeadOfAText) {
    const struct {
        const char* text;
        double value;
    } cases[] = {
        {"\t  12.5 mol/L", 12.5},
        {"+.5", 0.5},
        {"-.5", -0.5},
        {"5.", 5},
        {"1.2.3", 1.2},
        {"1,5", 1},
        {"1E", 1},
        {"1E+", 1},
        {"2e-3x", 0.002},
        {"3d2", 300},
        {"4D+01", 40},
        {"1e999", kLargest},
        {"-1e999", -kLargest},
        {"0.0000001e308", 1e301},
        {"1e99999999999999999999999999", kLargest},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Val(c.text), c.value) << c.text;
    for (const char* text : {"", "abc", "-", ".", "- 5", "--5", "0x10", "nan", "inf", "1e-999",
                             "-0", "0e99999999999999999999999999", "\xC2\xA0 5"}) {
        EXPECT_EQ(Val(text), 0) << text;
        EXPECT_FALSE(std::signbit(Val(text))) << text;
    }
}

TEST(NumberReader, TellsAWholeNumberFromATextThatIsNone) {
    for (const char* text : {"", " ", "1 2", "1,5", "1e999", "-1e999", "nan", "inf", "1e", "12a",
                             ".", "e5", "1\n", "0x1"})
        EXPECT_FALSE(ParseNumber(text)) << text;
    EXPECT_EQ(ParseNumber(" .85\t"), 0.85);
    EXPECT_EQ(ParseNumber("+1.5E-05"), 1.5e-5);
    EXPECT_EQ(ParseNumber("1e-400"), 0);
    std::string many(100000, '0');
    many += '7';
    EXPECT_EQ(ParseNumber(many), 7);

    for (const char* text : {"", "1.0", "1e3", "99999999999999999999", "+-5", "5 5", "--5"})
        EXPECT_FALSE(ParseInteger(text)) << text;
    EXPECT_EQ(ParseInteger(" -32768 "), -32768);
    EXPECT_EQ(ParseInteger("+7"), 7);
}

TEST(NumberWriter, GivesEachGeneralFormItsOwnLook) {
    const struct {
        double value;
        const char *general, *plain, *single, *file, *fileSingle;
    } cases[] = {
        {0, " 0", " 0", "0", "0", "0"},
        {-0.0, " 0", " 0", "0", "0", "0"},
        {0.5, " 0.5", " .5", "0.5", ".5", ".5"},
        {-0.5, "-0.5", "-.5", "-0.5", "-.5", "-.5"},
        {1.0 / 3, " 0.3333333", " .3333333", "0.3333333", ".333333333333333", ".3333333"},
        {0.000015, " 1.5E-05", " 1.5E-05", "1.5E-05", "1.5E-05", "1.5E-05"},
        {1234567, " 1234567", " 1234567", "1234567", "1234567", "1234567"},
        {12345678, " 1.234568E+07", " 1.234568E+07", "1.234568E+07", "12345678", "1.234568E+07"},
        {123456789012345., " 1.234568E+14", " 1.234568E+14", "1.234568E+14", "123456789012345",
         "1.234568E+14"},
        {1e15, " 1E+15", " 1E+15", "1E+15", "1E+15", "1E+15"},
        {1e-300, " 0", " 0", "0", "1E-300", "0"},
        {kNaN, "", "", "", "0", "0"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(GeneralText(c.value), c.general) << c.value;
        EXPECT_EQ(PlainText(c.value), c.plain) << c.value;
        EXPECT_EQ(SingleText(c.value), c.single) << c.value;
        EXPECT_EQ(FileText(c.value), c.file) << c.value;
        EXPECT_EQ(FileTextSingle(c.value), c.fileSingle) << c.value;
    }
}

TEST(NumberWriter, WritesTheSameTextAgainAfterItWasReadForAnyNumber) {
    EXPECT_EQ(ParseNumber(FileText(-kLargest)), -1.79769313486231E+308);
    std::mt19937_64 random(7);
    for (int i = 0; i < 200000; ++i) {
        const double value = std::bit_cast<double>(random());
        const double narrow =
            static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
        if (!std::isfinite(value) || !std::isfinite(narrow))
            continue;
        const std::string text = FileText(value), single = FileTextSingle(narrow);
        ASSERT_TRUE(ParseNumber(text)) << text;
        ASSERT_EQ(FileText(*ParseNumber(text)), text);
        ASSERT_NEAR(*ParseNumber(text) / value, 1, 1e-14);
        ASSERT_EQ(FileTextSingle(ParseNumber(single).value()), single);
        ASSERT_EQ(Val(single), ParseNumber(single).value());
    }
}

TEST(NumberWriter, FillsThePlacesOfAPicture) {
    const struct {
        double value;
        const char *picture, *text;
    } cases[] = {
        {2.675, "0.00", "2.68"}, // as it is written, not as it is stored
        {0.005, "0.00", "0.01"},
        {-0.005, "0.00", "-0.01"},
        {-0.004, "0.00", "0.00"},
        {999.999, "0.00", "1000.00"},
        {1234567.8, "#####0.00", "1234567.80"},
        {52.449, "####0.0", "52.4"},
        {0.9999951, "0.00000", "1.00000"},
        {0.25, ".0", ".3"},
        {-0.5, ".0", "-.5"},
        {-45.25, "###.0", "-45.3"},
        {0, "###.0", ".0"},
        {12, "##0.0#", "12.0"},
        {0.126, "##0.0#", "0.13"},
        {300, "####,##", "300"},
        {313.1, "####,##", "313.1"},
        {298.154999, "####,##", "298.15"},
        {-0.00123, ".0000000E+00", "-.1230000E-02"},
        {0, ".0000000E+00", ".0000000E+00"},
        {0.99999999, ".0000000E+00", ".1000000E+01"},
        {1e300, ".0000000E+00", ".1000000E+301"},
        {5e-6, "0.000000E+00", "5.000000E-06"},
        {0.0123, "0.0 E+##", "1.2 E-2"},
        {9.96, "0.0 E+##", "1.0 E+1"},
        {0, "0.0 E+##", "0.0 E+0"},
        {1e22, "0", "10000000000000000000000"},
        {0.5, "0", "1"},
        {0.05, "#", "0"},
        {42, "n = 0.0 mol", "n = 42.0 mol"},
        {kNaN, "0.00", ""},
        {-kInfinity, "0.00", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FormatNumber(c.value, c.picture), c.text) << c.value << " as " << c.picture;
}

TEST(Rounding, TakesHalvesToTheEvenInteger) {
    const std::pair<double, std::int64_t> cases[] = {
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {kNaN, 0},
        {1e300, INT64_MAX},
        {-1e300, INT64_MIN},
        {2.4999999999, 2},
        {0.49999999999999994, 0},
    };
    for (const auto& [value, rounded] : cases)
        EXPECT_EQ(RoundHalfEven(value), rounded) << value;
}

TEST(NumericKeys, LetOnlyWhatANumberCanHoldPassAndMakeCommasPoints) {
    int comma = ',';
    EXPECT_TRUE(FilterNumericKey(comma));
    EXPECT_EQ(comma, '.');
    for (int key : std::initializer_list<int>{'0', '9', '.', '+', '-', 'E', 'e', 8})
        EXPECT_TRUE(FilterNumericKey(key)) << key;
    for (int key : std::initializer_list<int>{'d', 'x', ' ', 13, 22, 3, '/', ':', 0x20AC})
        EXPECT_FALSE(FilterNumericKey(key)) << key;
}

TEST(Letters, BecomeCapitalsInAsciiAndLatin) {
    EXPECT_EQ(UpperCase("zor\xC3\xA4\xC3\xB7\xC3\xBE.zi3"), "ZOR\xC3\x84\xC3\xB7\xC3\x9E.ZI3");
    EXPECT_EQ(Trim(" \t a b \r\n"), "a b");
}

} // namespace
