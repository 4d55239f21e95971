#include "Platform/Locale.h"
#include "SV/core/String.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace sv {
namespace {

constexpr int MacRoman = 2;
constexpr int FileSystem = 3;
constexpr int Suite = 9;

TEST(String, FromTextBytesAndNumbers) {
    for (auto const& [string, expected] : std::vector<std::pair<String, std::string_view>>{
             {String(static_cast<char const*>(nullptr)), ""},
             {String("a\0b"), "a"},
             {String(std::string_view("a\0b", 3)), std::string_view("a\0b", 3)},
             {String('x'), "x"},
             {String(static_cast<unsigned char>(200)), "200"},
             {String("D") + String(short{-65}) + '.', "D-65."}}) {
        EXPECT_EQ(string.View(), expected);
    }
}

TEST(String, TokensKeepEmptyParts) {
    for (auto const& [characters, tokens] : std::vector<std::pair<char const*, std::vector<std::string>>>{
             {"", {}}, {"a", {"a"}}, {";", {"", ""}}, {"a;;b;", {"a", "", "b", ""}}}) {
        String const text(characters);
        ASSERT_EQ(text.GetTokenCount(';'), tokens.size()) << characters;
        for (std::size_t i = 0; i < tokens.size(); ++i) EXPECT_EQ(text.GetToken(i, ';').View(), tokens[i]);
        EXPECT_TRUE(text.GetToken(tokens.size(), ';').IsEmpty()) << characters;
    }
}

TEST(String, AcceptsPositionsPastTheEnd) {
    String text("Cyan");
    EXPECT_EQ(text.Search("an"), 2U);
    EXPECT_EQ(text.Search('C', 1), String::NotFound);
    EXPECT_EQ(text.Search("an", 99), String::NotFound);
    EXPECT_EQ(text.Copy(1, 2), "ya");
    EXPECT_EQ(text.Copy(99), "");
    EXPECT_EQ(text.Erase(4), "Cyan");
    EXPECT_EQ(text.Erase(1, 2), "Cn");
    EXPECT_EQ(text.Insert("ya", 1), "Cyan");
    EXPECT_EQ(text.Insert("!", 99), "Cyan!");
    EXPECT_EQ(text.PadLeft(7), "  Cyan!");
    EXPECT_EQ(text.PadLeft(3), "  Cyan!");
}

TEST(String, ReadsNumbers) {
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
        {" \t\n-12 ", false, -12},
        {"+12", false, 12},
        {"+-12", false, 0},
        {"- 12", false, 0},
        {"12a", false, 12},
        {"a12", false, 0},
        {"3.9", false, 3},
        {"1,5", false, 1},
        {"\xB2", false, 0},
        {"99999999999999999999", true, Max},
        {"-99999999999999999999x", false, Min},
    };
    for (Row const& row : Rows) {
        EXPECT_EQ(String(row.text).IsNumeric(), row.isNumeric) << row.text;
        EXPECT_EQ(String(row.text).ToLong(), row.value) << row.text;
    }
    EXPECT_EQ(String(Min).ToLong(), Min);
    EXPECT_EQ(String(Max).ToLong(), Max);
}

TEST(String, ConvertsTheCaseOfAsciiInEveryLocale) {
    EXPECT_EQ(String("Gr\xFC\xDF i@[`{z").Upper(), "GR\xFC\xDF I@[`{Z");
    EXPECT_EQ(String("GR\xDC\xDF I@[`{Z").Lower(), "gr\xDC\xDF i@[`{z");
    EXPECT_TRUE(String("Path").EqualsIgnoreCase("pATH"));
    for (auto const& [a, b] : {std::pair("Path", "Paths"), {"@[", "`{"}, {"\xFC", "\xDC"}})
        EXPECT_FALSE(String(a).EqualsIgnoreCase(b)) << a;
}

TEST(String, ConvertsCharacterSets) {
    struct Row {
        char const* mac;
        char const* suite;
    };
    // Characters that both sets have.
    constexpr Row Rows[] = {
        {"plain ~\t", "plain ~\t"},
        {"\x80\x85\x86\x8A\x9A\x9F\xA7", "\xC4\xD6\xDC\xE4\xF6\xFC\xDF"},
        {"\x96\x8D\x8E\xA9\xAE\xB5\xA1\xD0\xDB", "\xF1\xE7\xE9\xA9\xC6\xB5\xB0\x96\x80"},
    };
    for (Row const& row : Rows) {
        EXPECT_EQ(String(row.mac).Convert(MacRoman, Suite), row.suite);
        EXPECT_EQ(String(row.suite).Convert(Suite, MacRoman), row.mac);
    }
    EXPECT_EQ(String("a\xB7z").Convert(MacRoman, Suite), "a?z") << "the suite lacks the sum sign";
    EXPECT_EQ(String("a\xBCz").Convert(Suite, MacRoman), "a?z") << "Mac Roman lacks the quarter";

    std::string const system = platform::ToSystemText("M\xC3\xBCller \xE2\x82\xAC");
    EXPECT_EQ(String("M\xFCller \x80").Convert(Suite, FileSystem), String(system));
    EXPECT_EQ(String(system).Convert(FileSystem, Suite), "M\xFCller \x80");
    EXPECT_EQ(String(system).Convert(FileSystem, MacRoman), "M\x9Fller \xDB");
    for (int const to : {FileSystem, MacRoman}) EXPECT_EQ(String("a\x81z").Convert(Suite, to), "a?z");

    for (auto const& [from, to] :
         {std::pair{0, Suite}, {Suite, 4}, {Suite, -1}, {MacRoman, 10}, {Suite, Suite}})
        EXPECT_EQ(String("M\xFCller\x81").Convert(from, to), "M\xFCller\x81") << from << ' ' << to;
}

}  // namespace
}  // namespace sv
