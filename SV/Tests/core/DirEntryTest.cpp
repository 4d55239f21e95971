#include "Platform/Tests/TemporaryDirectory.h"
#include "SV/core/DirEntry.h"
#include "SV/core/NativePath.h"

#include <gtest/gtest.h>

using sv::DirEntry;
using sv::FileStat;
using sv::String;

namespace {

TEST(DirEntry, TakesANameApart) {
    struct Parts {
        char const *full, *device, *path, *name, *extension;
    };
    constexpr Parts Names[] = {
        {"", "", "", "", ""},
        {"name", "", "", "name", ""},
        {"name.ini", "", "", "name.ini", "ini"},
        {"name.tar.gz", "", "", "name.tar.gz", "gz"},
        {"name.", "", "", "name.", ""},
        {".hidden", "", "", ".hidden", "hidden"},
        {"dir.d/name", "", "dir.d", "name", ""},
        {"dir/sub/name.lng", "", "dir/sub", "name.lng", "lng"},
        {"dir\\sub\\name.lng", "", "dir\\sub", "name.lng", "lng"},
        {"dir\\sub/name", "", "dir\\sub", "name", ""},
        {"dir//name", "", "dir", "name", ""},
        {"dir/", "", "dir", "", ""},
        {"/", "", "/", "", ""},
        {"/name", "", "/", "name", ""},
        {"C:", "C:", "C:", "", ""},
        {"C:name.x", "C:", "C:", "name.x", "x"},
        {"C:\\", "C:", "C:\\", "", ""},
        {"C:\\name", "C:", "C:\\", "name", ""},
        {"C:\\Suite\\BIN\\Desk.exe", "C:", "C:\\Suite\\BIN", "Desk.exe", "exe"},
        {"\\\\server\\share\\name", "", "\\\\server\\share", "name", ""},
        {"1:name", "", "", "1:name", ""},
    };
    for (Parts const& parts : Names) {
        DirEntry const entry(parts.full);
        EXPECT_EQ(entry.GetFull(), parts.full);
        EXPECT_EQ(entry.GetDevice().GetFull(), parts.device) << parts.full;
        EXPECT_EQ(entry.GetPath().GetFull(), parts.path) << parts.full;
        EXPECT_EQ(entry.GetName(), parts.name) << parts.full;
        EXPECT_EQ(entry.GetExtension(), parts.extension) << parts.full;
        if (entry.GetName().IsEmpty()) continue;
        DirEntry const again = entry.GetPath() + entry.GetName();
        EXPECT_EQ(again.GetName(), entry.GetName()) << parts.full;
        EXPECT_EQ(again.GetPath(), entry.GetPath()) << parts.full;
    }
}

TEST(DirEntry, ChangesNameAndExtension) {
    struct Change {
        char const* before;
        char const* cut;
        char const* otherName;
        char const* otherExtension;
    };
    constexpr Change Changes[] = {
        {"dir/a.lng", "dir/a", "dir/b49", "dir/a.txt"},     {"C:a.lng", "C:a", "C:b49", "C:a.txt"},
        {"dir.d/a", "dir.d/a", "dir.d/b49", "dir.d/a.txt"}, {"a.b.c", "a.b", "b49", "a.b.txt"},
        {"dir\\a.", "dir\\a", "dir\\b49", "dir\\a.txt"},
    };
    for (Change const& change : Changes) {
        DirEntry cut(change.before);
        EXPECT_EQ(cut.CutExtension(), DirEntry(change.before).GetExtension());
        EXPECT_EQ(cut.GetFull(), change.cut);
        DirEntry named(change.before);
        named.ChangeName("b49");
        EXPECT_EQ(named.GetFull(), change.otherName);
        DirEntry extended(change.before);
        extended.ChangeExtension("txt");
        EXPECT_EQ(extended.GetFull(), change.otherExtension);
        extended.ChangeExtension("");
        EXPECT_EQ(extended.GetFull(), change.cut);
    }
}

TEST(DirEntry, JoinsWithTheSystemsSeparator) {
    String const separator(sv::PathSeparator);
    EXPECT_EQ((DirEntry("dir") + "LNG").GetFull(), String("dir") + separator + "LNG");
    EXPECT_EQ((DirEntry("C:\\Windows") + "\\win.ini").GetFull(),
              String("C:\\Windows") + separator + "win.ini");
    EXPECT_EQ((DirEntry("dir\\") + "a").GetFull(), "dir\\a");
    EXPECT_EQ((DirEntry("/") + "a").GetFull(), "/a");
    EXPECT_EQ((DirEntry("C:") + "a").GetFull(), "C:a");
    EXPECT_EQ((DirEntry() + "a/b").GetFull(), "a/b");
    EXPECT_EQ((DirEntry("dir") + "").GetFull(), "dir");
    EXPECT_EQ((DirEntry("dir") + DirEntry("D:\\a")).GetFull(), "D:\\a");
}

TEST(DirEntry, AsksTheDisk) {
    tests::TemporaryDirectory const directory;
    tests::PutBytes(directory.Path() / u8"gr\u00FCn.txt", "12345");
    DirEntry const there(sv::FromNativePath(directory.Path().string()));
    DirEntry const file = there + "gr\xFCn.txt";
    EXPECT_TRUE(there.Exists());
    EXPECT_TRUE(file.Exists());
    EXPECT_FALSE((there + "blau.txt").Exists());
    EXPECT_FALSE(DirEntry().Exists());
    EXPECT_TRUE(FileStat(file).IsFile());
    EXPECT_EQ(FileStat(file).GetSize(), 5U);
    EXPECT_TRUE(FileStat(there).IsDirectory());
    EXPECT_FALSE(FileStat(there).IsFile());
    EXPECT_EQ(FileStat(there).GetSize(), 0U);
    FileStat const missing(there + "blau.txt");
    EXPECT_FALSE(missing.IsFile() || missing.IsDirectory());
    EXPECT_EQ(missing.GetSize(), 0U);
}

}  // namespace
