#include "KVUtils/Source/data/FlagSet.h"
#include "KVUtils/Source/messaging/MYMEMBLO.h"

#include <gtest/gtest.h>

#include <string>

namespace kv {
namespace {

std::string Text(FlagSet const& set) {
    std::string text;
    for (int i = 0; i < set.GetSize(); ++i) text += static_cast<char>('0' + (set & i));
    return text;
}

TEST(FlagSet, StartsWithOneFlagOrAllOrNone) {
    struct {
        int flag, size;
        char const* text;
    } const rows[] = {{-1, 4, "1111"}, {7, 4, "0000"}, {4, 4, "0000"}, {-2, 4, "0000"},
                      {0, 4, "1000"},  {3, 4, "0001"}, {-1, 0, ""},    {0, -3, ""}};
    for (auto const& row : rows) EXPECT_EQ(Text(FlagSet(row.flag, row.size)), row.text) << row.flag;
}

TEST(FlagSet, ChangesInPlace) {
    struct {
        int flag;
        char const *set, *cleared, *toggled;
    } const rows[] = {{-1, "1111", "0000", "1010"},
                      {0, "1101", "0101", "1101"},
                      {1, "0101", "0001", "0001"},
                      {4, "0101", "0101", "0101"},
                      {-2, "0101", "0101", "0101"}};
    for (auto const& row : rows) {
        FlagSet const start = FlagSet(1, 4) | 3;
        FlagSet set = start, cleared = start, toggled = start, joined = start;
        set.SetFlag(row.flag);
        cleared.LoescheFlag(row.flag);
        toggled.ToggleFlag(row.flag);
        EXPECT_EQ(&(joined | row.flag), &joined);
        EXPECT_EQ(Text(set), row.set);
        EXPECT_EQ(Text(joined), row.set);
        EXPECT_EQ(Text(cleared), row.cleared);
        EXPECT_EQ(Text(toggled), row.toggled);
    }
}

TEST(FlagSet, ComparesUpToTheSmallerSize) {
    FlagSet wide(5, 6);
    FlagSet narrow(0, 2);
    EXPECT_EQ(wide & narrow, 0);
    EXPECT_EQ(Text(FlagSet(narrow) | wide), "10");
    EXPECT_EQ(Text(FlagSet(wide) | narrow), "100001");
    wide | 0;
    EXPECT_EQ(wide & narrow, 1);
    EXPECT_EQ(narrow & wide, 1);
    EXPECT_EQ(narrow & -1, 0);
    EXPECT_EQ(FlagSet(-2, 2) == FlagSet(-2, 3), 0);
    EXPECT_EQ(narrow == FlagSet(0, 2), 1);
    EXPECT_EQ(narrow == FlagSet(1, 2), 0);
    narrow = wide;
    EXPECT_EQ(narrow == wide, 1);
}

TEST(FlagSet, TravelsAsItsSizeAndAByteAFlag) {
    MyMemoryBlock block;
    block << (FlagSet(0, 300) | 2);
    EXPECT_EQ(block.Len(), 302);
    EXPECT_EQ(std::string(block.GetDatenZeiger(), 5), std::string("\x2C\x01\x01\0\x01", 5));
    FlagSet found(-1, 7);
    block >> found;
    EXPECT_EQ(found == (FlagSet(0, 300) | 2), 1);
}

TEST(FlagSet, ReadsWhatIsThere) {
    struct {
        std::string bytes;
        char const* flags;
    } const rows[] = {{std::string("\x03\0\x01\0\x7F", 5), "101"},
                      {std::string("\x03\0\x01", 3), "100"},
                      {std::string("\xFF\xFF\x01", 3), ""},
                      {"\x03", ""},
                      {"", ""}};
    for (auto const& row : rows) {
        MyMemoryBlock block;
        block.Put(row.bytes.data(), static_cast<long>(row.bytes.size()));
        FlagSet found(-1, 7);
        block >> found;
        EXPECT_EQ(Text(found), row.flags);
    }
}

}  // namespace
}  // namespace kv
