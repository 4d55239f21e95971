#include "KVUtils/Source/data/FileHelpers.h"
#include "KVUtils/Source/data/FlagSet.h"
#include "KVUtils/Source/messaging/MYMEMBLO.h"
#include "KVUtils/Tests/data/TestFile.h"

#include <gtest/gtest.h>

#include <string>

namespace kv::test {
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

TEST(FlagSet, IsWrittenAsItsSizeAndAByteForEachFlag) {
    MyMemoryBlock block;
    block << (FlagSet(0, 300) | 2);
    EXPECT_EQ(block.Len(), 302);
    EXPECT_EQ(std::string(block.GetDatenZeiger(), 5), std::string("\x2C\x01\x01\0\x01", 5));
    FlagSet found(-1, 7);
    block >> found;
    EXPECT_EQ(found == (FlagSet(0, 300) | 2), 1);

    using namespace std::string_literals;
    for (auto const& [bytes, flags] : {std::pair("\x03\0\x01\0\x7F"s, "101"),
                                       {"\x03\0\x01"s, "100"},
                                       {"\xFF\xFF\x01"s, ""},
                                       {"\x03"s, ""},
                                       {""s, ""}}) {
        MyMemoryBlock damaged;
        damaged.Put(bytes.data(), static_cast<long>(bytes.size()));
        found = FlagSet(-1, 7);
        damaged >> found;
        EXPECT_EQ(Text(found), flags) << "missing flags are clear";
    }
}

using Modus = KVFileOpenModusTYPE;

class FileHelpersTest : public test::FileTest {
  protected:
    static std::string ReadAll(void* handle) {
        char bytes[20] = {};
        unsigned long count = sizeof bytes;
        EXPECT_TRUE(KVReadFromFile(handle, bytes, count));
        return {bytes, count};
    }
    static bool Put(void* handle, std::string const& text) {
        auto count = static_cast<unsigned long>(text.size());
        return KVWriteToFile(handle, text.data(), count) && count == text.size();
    }
};

TEST_F(FileHelpersTest, ModesCreateReadAndWrite) {
    struct {
        Modus modus;
        bool creates, reads, writes;
    } const rows[] = {{Modus::Read, false, true, false},
                      {Modus::Write, true, false, true},
                      {Modus::WriteExisting, false, false, true},
                      {Modus::ReadWrite, true, true, true},
                      {Modus::ReadWriteExisting, false, true, true}};
    for (auto const& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.modus));
        void* handle = this;
        EXPECT_EQ(KVOpenFile(handle, PathOf("gr\xFCn"), row.modus, 0, 0), row.creates);
        EXPECT_EQ(handle != nullptr, row.creates);
        EXPECT_EQ(KVCloseFile(handle), row.creates);
        EXPECT_EQ(KVDeleteFile(PathOf("gr\xFCn")), row.creates);

        ASSERT_TRUE(KVOpenFile(handle, Write("file", "content"), row.modus, 7, 7));
        EXPECT_EQ(Put(handle, "CON"), row.writes);
        char byte = 0;
        unsigned long count = 1;
        EXPECT_EQ(KVReadFromFile(handle, &byte, count) && count == 1, row.reads);
        EXPECT_TRUE(KVCloseFile(handle));
        EXPECT_EQ(Read(PathOf("file")), row.writes ? "CONtent" : "content");
    }
    void* handle = this;
    EXPECT_FALSE(KVOpenFile(handle, PathOf("file"), static_cast<Modus>(5), 0, 0));
    EXPECT_EQ(handle, nullptr);
}

TEST_F(FileHelpersTest, StartAndSize) {
    void* handle = nullptr;
    ASSERT_TRUE(KVOpenFile(handle, PathOf("file"), Modus::ReadWrite, 0, 0));
    EXPECT_TRUE(Put(handle, "hello"));
    EXPECT_EQ(ReadAll(handle), "");
    EXPECT_TRUE(KVResetFilePointer(handle));
    EXPECT_EQ(ReadAll(handle), "hello");
    EXPECT_TRUE(KVResetFileSize(handle));
    EXPECT_TRUE(Put(handle, "new"));
    EXPECT_TRUE(KVCloseFile(handle));
    EXPECT_EQ(Read(PathOf("file")), "new");
}

TEST_F(FileHelpersTest, FailuresReturnFalse) {
    unsigned long count = 5;
    char bytes[5];
    EXPECT_FALSE(KVReadFromFile(nullptr, bytes, count));
    EXPECT_EQ(count, 0U);
    EXPECT_FALSE(KVWriteToFile(nullptr, bytes, count));
    EXPECT_EQ(count, 0U);
    EXPECT_FALSE(KVResetFilePointer(nullptr) || KVResetFileSize(nullptr) || KVCloseFile(nullptr));
    EXPECT_FALSE(KVDeleteFile(PathOf("none")));
    EXPECT_FALSE(KVDeleteFile(directory_.string()));
    EXPECT_TRUE(std::filesystem::exists(directory_));
}

TEST_F(FileHelpersTest, PathsWithoutAnotherFormAreUnchanged) {
    for (char const* const path : {"", "file", "/a/b c\\gr\xFCn.txt", "Q:\\not\\there.txt", "Q:"}) {
        EXPECT_EQ(KVGetUncName(path, true), path);
        EXPECT_EQ(KVGetUncName(path, false), path);
        EXPECT_EQ(KVGetShortPath(path), path);
    }
}

}  // namespace
}  // namespace kv::test
