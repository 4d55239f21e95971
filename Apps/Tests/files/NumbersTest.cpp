#include "Apps/files/Numbers.h"

#include <gtest/gtest.h>

namespace files {
namespace {

TEST(Numbers, OnlyFiniteDecimalNumbersAreRead) {
    EXPECT_EQ(ToNumber("0.25"), 0.25);
    EXPECT_EQ(ToNumber("+1"), 1);
    EXPECT_EQ(ToNumber("-2.5E-1"), -0.25);
    EXPECT_EQ(ToNumber("0,25", ','), 0.25);
    for (std::string_view const text : {"", "nan", "NaN", "inf", "-inf", "1e400", "0x1A", "1.2.3", "1 2",
                                        "1,2", "+-1", "++1", "#N/A", "12%", "\xEF\xBC\x91"}) {
        EXPECT_FALSE(ToNumber(text)) << text;
    }
    EXPECT_FALSE(ToNumber("1,234.5", ','));
    EXPECT_FALSE(ToNumber("1,2,3", ','));
    EXPECT_FALSE(ToNumber(std::string(65, '1'))) << "longer than any measured number";
}

}  // namespace
}  // namespace files
