#include "KVUtils/Tests/TestSupport.h"
#include "KVUtils/Tests/data/CaseTable.h"

#include <charconv>
#include <limits>

namespace kv::test {

TEST(NumberText, RoundsHalfAwayFromZero) {
    for (auto const& [number, count, text] : CaseTable<3>("data/numbers.tsv")) {
        double const value = Number(number);
        int const decimals = static_cast<int>(Number(count));
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
        // Beyond 6e14 the error of 0.1, 6e-17 each time, adds up to half a unit of the last digit.
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
    for (auto const& [text, file, user] : CaseTable<3>("data/number-texts.tsv")) {
        EXPECT_EQ(double(fString(sv::String(text))), Number(file)) << text;
        EXPECT_EQ(double(GString(sv::String(text))), Number(user)) << text;
    }
    GString changed{sv::String("1,5 and 2,5")};
    EXPECT_EQ(double(changed), 1.5);
    // In a comma locale two commas are replaced: its separator, and the first comma after it.
    EXPECT_EQ(Text(changed), sv::International::GetNumDecimalSep() == ',' ? "1.5 and 2.5" : "1.5 and 2,5");
    Random random(36);
    for (int round = 0; round < 20000; ++round) {
        int const decimals = round % 8;
        double const value = random(-1, 1) * std::pow(10, random(-3, 7));
        // Half of the last decimal, and up to 15 multiplications by 0.1, each 6e-17 too large.
        double const tolerance = 0.5 * std::pow(10, -decimals) + std::fabs(value) * 1e-15;
        ASSERT_NEAR(double(fString(value, decimals)), value, tolerance) << "seed 36, round " << round;
        ASSERT_EQ(double(GString(value, decimals)), double(fString(value, decimals)))
            << "seed 36, round " << round;
    }
}

template <class Number>
void ExpectConversions() {
    Number const number = sv::String("1.5");
    Number changed = number;
    double const value = changed;
    EXPECT_EQ(value, 1.5);
    EXPECT_EQ(2 * changed, 3.0);
    EXPECT_EQ(std::max<double>(changed, 1), 1.5);
    // Two texts stay texts.
    EXPECT_EQ(Text(number + " (" + sv::String("a") + number + ')'), "1.5 (a1.5)");
    EXPECT_EQ(Text("[" + changed + changed), "[1.51.5");
    EXPECT_TRUE(changed == "1.5" && changed == number && changed < sv::String("1.50"));
}

TEST(NumberText, ConvertsFromTextAndToANumber) {
    ExpectConversions<GString>();
    ExpectConversions<fString>();
}

TEST(GString, MatchPattern) {
    for (auto const& [text, patterns, isMatch] :
         Rows<char const*, std::vector<char const*>, int>{{"Cyan 20", {"", "*", "yan", "y*20"}, 1},
                                                          {"Cyan 20", {"20*y", "cyan", "C?an"}, 0},
                                                          {"", {""}, 1},
                                                          {"", {"a"}, 0},
                                                          {"abab", {"ab*ab"}, 1},
                                                          {"aba", {"a**a"}, 1},
                                                          {"aba", {"ab*ba"}, 0}}) {
        for (char const* const pattern : patterns)
            EXPECT_EQ(GString(sv::String(text)).MatchPattern(sv::String(pattern)), isMatch)
                << text << pattern;
    }
}

}  // namespace kv::test
