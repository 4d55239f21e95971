#include "SV/core/Mnemonic.h"
#include "SV/core/String.h"
#include "SV/core/Utf8.h"
#include "SV/core/detail/Encoding.h"
#include "SV/core/detail/TextPage.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace sv {
namespace {

TEST(Encoding, ConvertsEveryByteWithAMeaningThereAndBack) {
    for (detail::CodePage const* page : {&detail::Windows1252, &detail::MacRoman}) {
        int open = 0;
        for (int byte = 0; byte < 256; ++byte) {
            std::string const text(1, static_cast<char>(byte));
            std::string const back = detail::ToSingleByte(detail::FromSingleByte(text, *page), *page);
            if (back == text) continue;
            EXPECT_EQ(back, "?") << byte;
            ++open;
        }
        EXPECT_EQ(open, page == &detail::Windows1252 ? 5 : 0);
    }
}

TEST(Encoding, ConvertsStringsToAndFromUtf8) {
    EXPECT_EQ(String::FromUtf8("M\xC3\xBCller \xE2\x82\xAC"), "M\xFCller \x80");
    EXPECT_EQ(String("M\xFCller \x80").ToUtf8(), "M\xC3\xBCller \xE2\x82\xAC");
    EXPECT_EQ(String::FromUtf8("\xD0\x96|\xFF"), "?|?") << "a letter that the code page lacks, no UTF-8";
    EXPECT_EQ(String("a\x81z").ToUtf8(), "a?z") << "a byte without a meaning";
}

TEST(Encoding, DecodesUtf8) {
    struct Row {
        std::string_view text;
        std::u32string_view points;
    };
    constexpr Row WellFormed[] = {
        {"~\x7F", U"~\x7F"},
        {"\xC2\x80\xDF\xBF", U"\x80\u07FF"},
        {"\xE0\xA0\x80\xED\x9F\xBF", U"\u0800\uD7FF"},
        {"\xEE\x80\x80\xEF\xBF\xBF", U"\uE000\uFFFF"},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", U"\U00010000\U0010FFFF"},
    };
    for (Row const& row : WellFormed) {
        EXPECT_EQ(detail::FromUtf8(row.text), row.points) << row.text;
        EXPECT_EQ(detail::ToUtf8(row.points), row.text);
        EXPECT_TRUE(IsUtf8(row.text)) << row.text;
    }
    constexpr Row Malformed[] = {
        {"a\xFFz", U"a?z"},             // no first byte
        {"a\x80z", U"a?z"},             // a continuation alone
        {"a\xC3", U"a?"},               // cut off by the end
        {"a\xE2\x82z", U"a??z"},        // cut off by a letter
        {"\xC0\xAF", U"??"},            // overlong, in two bytes
        {"\xE0\x80\xAF", U"???"},       // and in three
        {"\xF0\x8F\xBF\xBF", U"????"},  // and in four
        {"\xED\xA0\x80", U"???"},       // a surrogate
        {"\xF4\x90\x80\x80", U"????"},  // above the last code point
        {"\xC3\xC3\xBC", U"?\u00FC"},   // resumes after a fault
    };
    for (Row const& row : Malformed) {
        EXPECT_EQ(detail::FromUtf8(row.text), row.points) << row.text;
        EXPECT_FALSE(IsUtf8(row.text)) << row.text;
    }
    Utf8Character const fault = DecodeUtf8("\xE2\x82z");
    EXPECT_TRUE(fault.point == 0xFFFD && fault.length == 1 && !fault.isWellFormed);
}

TEST(Mnemonic, IsTheFirstMarkThatIsACharacter) {
    struct Row {
        TextPage page;
        char const* text;
        std::size_t place;
        char const* shown;
    };
    static constexpr Row rows[] = {
        {TextPage::Western, "Save ~as", 5, "Save as"},
        {TextPage::Western, "~~", 0, "~"},
        {TextPage::Western, "plain", String::NotFound, "plain"},
        {TextPage::Western, "\x83~", 1, "\x83"},
        {TextPage::Japanese, "\x83~(~O)", 3, "\x83~(O)"},  // a letter whose second byte is the mark's
        {TextPage::Japanese, "\xB1~O", 1, "\xB1O"},        // of one byte
        {TextPage::Chinese, "\xB1~~O", 2, "\xB1~O"},
        {TextPage::Chinese, "\xB1", String::NotFound, "\xB1"},
    };
    for (Row const& row : rows) {
        ChangeTextPage(row.page);
        EXPECT_EQ(FindMnemonic(row.text), row.place) << row.text;
        EXPECT_EQ(WithoutMnemonic(row.text), row.shown);
    }
    ChangeTextPage(TextPage::Western);
}

}  // namespace
}  // namespace sv
