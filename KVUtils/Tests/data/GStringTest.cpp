#include "KVUtils/Tests/TestSupport.h"

#include <limits>

namespace kv::test {

constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(NumberText, RoundsHalfAwayFromZero) {
    for (auto const& [value, decimals, text] : Rows<double, int, char const*>{
             {0, 0, "0"},
             {0, 2, "0.00"},
             {-0.0, 2, "0.00"},
             {0.5, 0, "1"},
             {-0.5, 0, "-1"},
             {0.49, 0, "0"},
             {-0.004, 2, "-0.00"},  // the sign is decided before rounding
             {42.5, 0, "43"},
             {0.125, 2, "0.13"},
             {-0.125, 2, "-0.13"},
             {0.0625, 3, "0.063"},
             {99.99, 1, "100.0"},
             {1.005, 2, "1.01"},  // the double lies 1e-16 below the half that it stands for
             {10, 0, "10"},
             {1e6, 2, "1000000.00"},
             {1e-9, 9, "0.000000001"},
             {12.34, -1, "12"},
             {123456789.125, 2, "123456789.13"},
             {4294967296.0, 0, "4294967296"},
             {Infinity, 2, "inf"},
             {-Infinity, 0, "-inf"},
             {std::numeric_limits<double>::quiet_NaN(), 2, "nan"}}) {
        EXPECT_EQ(Text(fString(value, decimals)), text);
        EXPECT_EQ(Text(GString(value, decimals)), Localised(text));
        EXPECT_EQ(Text(GString(value, decimals, '.')), text);
    }
    for (int n = 0; n < 20000; ++n) {
        ASSERT_EQ(Text(fString(n + 0.5, 0)), std::to_string(n + 1));
        ASSERT_EQ(Text(fString(-n - 0.5, 0)), "-" + std::to_string(n + 1));
    }
}

TEST(NumberText, ExactToFourteenDigitsAndNeverLongerThan36) {
    Random random(14);
    for (int round = 0; round < 2000; ++round) {
        // Beyond 6e14 the tenths, each 6e-17 too large, add up to half a unit of the last digit.
        auto const number = static_cast<long long>(std::pow(10, random(0, 14)));
        ASSERT_EQ(Text(fString(static_cast<double>(number), 0)), std::to_string(number))
            << "seed 14, round " << round;
    }
    for (auto const& [decimals, length] : Rows<int, std::size_t>{{0, 36}, {2, 37}, {36, 37}, {40, 41}})
        EXPECT_EQ(Text(fString(1e300, decimals)).size(), length) << decimals;
    EXPECT_EQ(Text(fString(-std::numeric_limits<double>::max(), 0)).substr(0, 13), "-179769313486");
}

TEST(NumberText, WidthSignAndStripping) {
    constexpr uchar yes = 1, no = 0;
    for (auto const& [text, expected] :
         Rows<sv::String, char const*>{{fString(1.5, 6, 2), "  1.50"},
                                       {fString(-1234.5, 3, 1), "-1234.5"},
                                       {fString(1.5, 2, yes, no), "1.5"},
                                       {fString(2, 2, yes, yes), "+2"},
                                       {fString(0, 2, yes, yes), "+0"},
                                       {fString(-2, 2, yes, yes), "-2"},
                                       {fString(100, 0, yes, no), "100"},
                                       {fString(1.5, 7, 2, yes, yes), "   +1.5"},
                                       {GString(1.5, 6, 2, ';'), "  1;50"},
                                       {GString(2, 8, 3, yes, no), "       2"},
                                       {GString(7, 6), "     7"},
                                       {GString(1234567, 6), "1234567"}}) {
        EXPECT_EQ(Text(text), expected);
    }
    EXPECT_EQ(Text(GString(1.5, 6, 2)), Localised("  1.50"));
    EXPECT_EQ(Text(GString(1.25, 3, yes, yes)), Localised("+1.25"));
}

TEST(NumberText, ReadsBackUnderAnyLocale) {
    // The text; as fString reads it; as GString does, to which a comma is a point too.
    for (auto const& [text, file, people] :
         Rows<char const*, double, double>{{"1.5", 1.5, 1.5},
                                           {"1,5", 1, 1.5},
                                           {"-2.25", -2.25, -2.25},
                                           {"  \t+4e2x", 400, 400},
                                           {"", 0, 0},
                                           {"abc", 0, 0},
                                           {"-", 0, 0},
                                           {".5", 0.5, 0.5},
                                           {"5.", 5, 5},
                                           {"1e", 1, 1},
                                           {"1,5,7", 1, 1.5},
                                           {"--1", 0, 0},
                                           {"++1", 0, 0},
                                           {"-+1", 0, 0},
                                           {"+-1", 0, 0},
                                           {"1e999", Infinity, Infinity},
                                           {"-1e999", -Infinity, -Infinity},
                                           {"1e-999", 0, 0}}) {
        EXPECT_EQ(double(fString(sv::String(text))), file) << text;
        EXPECT_EQ(double(GString(sv::String(text))), people) << text;
    }
    GString changed{sv::String("1,5 and 2,5")};
    EXPECT_EQ(double(changed), 1.5);
    // Under a comma locale two commas go: that of the locale, and the first of the rest.
    EXPECT_EQ(Text(changed), sv::International::GetNumDecimalSep() == ',' ? "1.5 and 2.5" : "1.5 and 2,5");
    Random random(36);
    for (int round = 0; round < 20000; ++round) {
        int const decimals = round % 8;
        double const value = random(-1, 1) * std::pow(10, random(-3, 7));
        // Half of the last decimal, and up to fifteen tenths, each 6e-17 too large.
        double const tolerance = 0.5 * std::pow(10, -decimals) + std::fabs(value) * 1e-15;
        ASSERT_NEAR(double(fString(value, decimals)), value, tolerance) << "seed 36, round " << round;
        ASSERT_EQ(double(GString(value, decimals)), double(fString(value, decimals)))
            << "seed 36, round " << round;
    }
}

TEST(GString, MatchPattern) {
    for (auto const& [text, pattern, matches] : Rows<char const*, char const*, int>{{"Cyan 20", "", 1},
                                                                                    {"Cyan 20", "*", 1},
                                                                                    {"", "", 1},
                                                                                    {"", "a", 0},
                                                                                    {"Cyan 20", "yan", 1},
                                                                                    {"Cyan 20", "y*20", 1},
                                                                                    {"Cyan 20", "20*y", 0},
                                                                                    {"Cyan 20", "cyan", 0},
                                                                                    {"abab", "ab*ab", 1},
                                                                                    {"aba", "ab*ba", 0},
                                                                                    {"aba", "a**a", 1},
                                                                                    {"abc", "a?c", 0}}) {
        EXPECT_EQ(GString(sv::String(text)).MatchPattern(sv::String(pattern)), matches)
            << text << ": " << pattern;
    }
}

}  // namespace kv::test
