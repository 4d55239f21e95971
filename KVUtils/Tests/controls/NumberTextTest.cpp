#include "KVUtils/Source/controls/detail/NumberText.h"
#include "KVUtils/Tests/TestSupport.h"

#include <limits>

namespace kv::test {
namespace {

using namespace detail;

constexpr double Infinity = std::numeric_limits<double>::infinity();
using Read = std::optional<double>;
constexpr Read None;

TEST(FieldText, ReadsTheWholeTextOrNothing) {
    // The text; as read where the separator is a point, and where it is a comma.
    for (auto const& [text, point, comma] : Rows<char const*, Read, Read>{{"1.5", 1.5, 1.5},
                                                                          {"1,5", None, 1.5},
                                                                          {"1,5,6", None, None},
                                                                          {"1,5.6", None, None},
                                                                          {"", 0, 0},
                                                                          {" ", None, None},
                                                                          {"-", None, None},
                                                                          {"abc", None, None},
                                                                          {" +2", 2, 2},
                                                                          {"2 ", None, None},
                                                                          {"--2", None, None},
                                                                          {"1e3", 1000, 1000},
                                                                          {"1e", None, None},
                                                                          {"-1e999", -Infinity, -Infinity},
                                                                          {"1e-999", 0, 0},
                                                                          {"nan", None, None},
                                                                          {"0x1F", 31, 31},
                                                                          {"-0x1,8p1", None, -3},
                                                                          {"00x1", None, None},
                                                                          {"0x", None, None},
                                                                          {"0x-1", None, None},
                                                                          {"x1", None, None}}) {
        EXPECT_EQ(ReadNumber(text, '.'), point) << text;
        EXPECT_EQ(ReadNumber(text, ','), comma) << text;
    }
    EXPECT_EQ(ReadNumber(sv::String(Localised("2.5"))), 2.5);
}

TEST(FieldText, WhatAFieldMakesOfIt) {
    // The number read; while it is typed, and when the field is left, in the range of 0 to 100.
    for (auto const& [read, typed, left] : Rows<Read, Read, double>{
             {50, 50, 50}, {0, 0, 0}, {100, 100, 100}, {1000, None, 100}, {-1, None, 0}, {None, None, -7}}) {
        EXPECT_EQ(TypedNumber(read, 0, 100), typed);
        EXPECT_EQ(LeftNumber(read, 0, 100, -7), left);
    }
}

TEST(FieldText, Shown) {
    for (auto const& [value, resolution, text] : Rows<double, int, char const*>{{2.5, 3, "2,5"},
                                                                                {2, 3, "2"},
                                                                                {100, 3, "100"},
                                                                                {0.0004, 3, "0"},
                                                                                {0.0005, 3, "0,001"},
                                                                                {100, 0, "1"},
                                                                                {0, 0, ""},
                                                                                {-1.25, 1, "-1,3"}}) {
        EXPECT_EQ(Text(ShownNumber(value, resolution, ',')), text) << value;
    }
    EXPECT_EQ(Text(ShownNumber(2.5, 3)), Localised("2.5"));
}

}  // namespace
}  // namespace kv::test
