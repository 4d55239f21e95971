#include "SV/core/detail/Encoding.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

using namespace std::string_view_literals;
namespace detail = sv::detail;

namespace {

TEST(Encoding, EveryByteWithAMeaningGoesThereAndBack) {
    for (detail::CodePage const* page : {&detail::Windows1252, &detail::MacRoman}) {
        std::set<char32_t> points;
        for (int byte = 0; byte < 256; ++byte) {
            std::string const text(1, static_cast<char>(byte));
            std::u32string const point = detail::FromSingleByte(text, *page);
            ASSERT_EQ(point.size(), 1U);
            bool const hasMeaning = byte < 0x80 || (*page)[static_cast<std::size_t>(byte) - 0x80] != 0;
            EXPECT_EQ(detail::ToSingleByte(point, *page), hasMeaning ? text : "?") << byte;
            points.insert(point[0]);
        }
        // The five open bytes of Windows-1252 share the question mark.
        EXPECT_EQ(points.size(), page == &detail::Windows1252 ? 251U : 256U);
    }
}

TEST(Encoding, Utf8GoesThereAndBackAtTheEdgesOfEachLength) {
    constexpr char32_t Points[] = {0x0, 0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF};
    for (char32_t const point : Points) {
        std::u32string const text = {U'a', point, U'z'};
        EXPECT_EQ(detail::FromUtf8(detail::ToUtf8(text)), text) << static_cast<unsigned>(point);
    }
    EXPECT_EQ(detail::ToUtf8(U"\u20AC\U0001F3A8"), "\xE2\x82\xAC\xF0\x9F\x8E\xA8");
}

TEST(Encoding, MalformedUtf8BecomesQuestionMarks) {
    struct Row {
        std::string_view text;
        std::u32string_view points;
    };
    constexpr Row Rows[] = {
        {"a\xFFz", U"a?z"},             // no first byte
        {"a\x80z", U"a?z"},             // a further byte alone
        {"a\xC3", U"a?"},               // cut off
        {"a\xE2\x82z", U"a??z"},        // cut off by a letter
        {"\xC0\xAF", U"??"},            // a slash in two bytes
        {"\xE0\x80\xAF", U"???"},       // and in three
        {"\xED\xA0\x80", U"???"},       // half of a surrogate pair
        {"\xF4\x90\x80\x80", U"????"},  // past the last point
        {"\xC3\xC3\xBC", U"?\u00FC"},   // found again behind a fault
    };
    for (Row const& row : Rows) EXPECT_EQ(detail::FromUtf8(row.text), row.points) << row.text;
}

}  // namespace
