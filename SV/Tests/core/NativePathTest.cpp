#include "SV/core/NativePath.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

TEST(NativePath, DecodesTheCodePageAndTurnsBothSeparators) {
    std::string const separator(1, sv::PathSeparator);
    EXPECT_EQ(sv::NativePath("C:\\M\xFCller/\x80.ini"),
              "C:" + separator + "M\xC3\xBCller" + separator + "\xE2\x82\xAC.ini");
    EXPECT_EQ(sv::FromNativePath("M\xC3\xBCller/\xE2\x82\xAC.ini"), "M\xFCller/\x80.ini");
    EXPECT_EQ(sv::FromNativePath("\xD0\x96"), "?");
}

TEST(NativePath, DifferentNamesStayDifferent) {
    std::set<std::string> names;
    for (int byte = 1; byte < 256; ++byte) {
        sv::String const name(static_cast<char>(byte));
        if (name == "\\" || name == "/") continue;
        EXPECT_EQ(sv::FromNativePath(sv::NativePath(name)), name) << byte;
        names.insert(sv::NativePath(name));
    }
    EXPECT_EQ(names.size(), 253U);
}

}  // namespace
