#include "SV/core/String.h"

#include <gtest/gtest.h>

#include <vector>

namespace sv::test {

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

TEST(String, PositionsPastTheEndAreHarmless) {
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

}  // namespace sv::test
