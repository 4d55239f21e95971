// The operations of sv::String that read its bytes as text: numbers, case and character sets.
#include "Platform/Locale.h"
#include "SV/core/String.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using sv::String;

namespace {

constexpr int MacRoman = 2;
constexpr int FileSystem = 3;
constexpr int Suite = 9;

TEST(StringText, ReadsNumbers) {
    struct Row {
        char const* text;
        bool isNumeric;
        long value;
    };
    constexpr long Max = std::numeric_limits<long>::max();
    constexpr long Min = std::numeric_limits<long>::min();
    constexpr Row Rows[] = {
        {"", false, 0},
        {"0", true, 0},
        {"007", true, 7},
        {"1234567890", true, 1234567890},
        {"99999999999999999999", true, Max},
        {"-99999999999999999999x", false, Min},
        {" \t\n-12 ", false, -12},
        {"+12", false, 12},
        {"+-12", false, 0},
        {"- 12", false, 0},
        {"12a", false, 12},
        {"a12", false, 0},
        {"3.9", false, 3},
        {"1,5", false, 1},
        {"\xB2", false, 0},
    };
    for (Row const& row : Rows) {
        EXPECT_EQ(String(row.text).IsNumeric(), row.isNumeric) << row.text;
        EXPECT_EQ(String(row.text).ToLong(), row.value) << row.text;
    }
    EXPECT_EQ(String(Min).ToLong(), Min);
    EXPECT_EQ(String(Max).ToLong(), Max);
}

TEST(StringText, CaseIsThatOfAsciiInEveryLocale) {
    EXPECT_EQ(String("Gr\xFC\xDF i@[`{z").Upper(), "GR\xFC\xDF I@[`{Z");
    EXPECT_EQ(String("GR\xDC\xDF I@[`{Z").Lower(), "gr\xDC\xDF i@[`{z");
    EXPECT_TRUE(String("Path").EqualsIgnoreCase("pATH"));
    EXPECT_TRUE(String("").EqualsIgnoreCase(""));
    EXPECT_FALSE(String("Path").EqualsIgnoreCase("Paths"));
    EXPECT_FALSE(String("@[").EqualsIgnoreCase("`{"));
    EXPECT_FALSE(String("\xFC").EqualsIgnoreCase("\xDC"));
}

TEST(StringText, ConvertsCharacterSets) {
    struct Row {
        char const* about;
        char const* mac;
        char const* suite;
    };
    // Characters that both sets have.
    constexpr Row Rows[] = {
        {"ASCII", "plain ~\t", "plain ~\t"},
        {"umlauts", "\x80\x85\x86\x8A\x9A\x9F\xA7", "\xC4\xD6\xDC\xE4\xF6\xFC\xDF"},
        {"Espa\xF1ol, Fran\xE7"
         "ais",
         "\x96\x8D\x8E", "\xF1\xE7\xE9"},
        {"signs", "\xA9\xAE\xB5\xA1\xD0\xDB", "\xA9\xC6\xB5\xB0\x96\x80"},
    };
    for (Row const& row : Rows) {
        EXPECT_EQ(String(row.mac).Convert(MacRoman, Suite), row.suite) << row.about;
        EXPECT_EQ(String(row.suite).Convert(Suite, MacRoman), row.mac) << row.about;
    }
    EXPECT_EQ(String("a\xB7z").Convert(MacRoman, Suite), "a?z") << "a sum sign is no character of the suite";
    EXPECT_EQ(String("a\xBCz").Convert(Suite, MacRoman), "a?z") << "a quarter is no character of the Mac";
    EXPECT_EQ(String("a\x81z").Convert(Suite, MacRoman), "a?z") << "a byte that means nothing";
}

TEST(StringText, ConvertsToTheFileSystemsSet) {
    std::string const system = platform::ToSystemText("M\xC3\xBCller \xE2\x82\xAC");
    EXPECT_EQ(String("M\xFCller \x80").Convert(Suite, FileSystem), String(system));
    EXPECT_EQ(String(system).Convert(FileSystem, Suite), "M\xFCller \x80");
    EXPECT_EQ(String(system).Convert(FileSystem, MacRoman), "M\x9Fller \xDB");
    EXPECT_EQ(String("a\x81z").Convert(Suite, FileSystem), "a?z");
}

TEST(StringText, LeavesTextAloneWithoutAKnownSet) {
    for (auto const& [from, to] : {std::pair{0, Suite}, {Suite, 4}, {Suite, -1}, {MacRoman, 10}}) {
        EXPECT_EQ(String("M\xFCller").Convert(from, to), "M\xFCller") << from << ' ' << to;
    }
    EXPECT_EQ(String("a\x81z").Convert(Suite, Suite), "a\x81z");
}

}  // namespace
