#include "Platform/Tests/TemporaryDirectory.h"
#include "SV/core/DirEntry.h"
#include "SV/core/NativePath.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace sv {
namespace {

TEST(DirEntry, SplitsAName) {
    struct Parts {
        char const *full, *device, *path, *name, *extension;
    };
    constexpr Parts Names[] = {
        {"", "", "", "", ""},
        {"name", "", "", "name", ""},
        {"name.tar.gz", "", "", "name.tar.gz", "gz"},
        {"name.", "", "", "name.", ""},
        {".hidden", "", "", ".hidden", "hidden"},
        {"dir.d/name", "", "dir.d", "name", ""},
        {"dir\\sub/name", "", "dir\\sub", "name", ""},
        {"dir//name", "", "dir", "name", ""},
        {"dir/", "", "dir", "", ""},
        {"/", "", "/", "", ""},
        {"/name", "", "/", "name", ""},
        {"C:", "C:", "C:", "", ""},
        {"C:name.x", "C:", "C:", "name.x", "x"},
        {"C:\\", "C:", "C:\\", "", ""},
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
        char const *before, *cut, *otherName, *otherExtension;
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
    struct Row {
        char const *directory, *below;
        String joined;
    };
    String const separator(PathSeparator);
    Row const rows[] = {
        {"dir", "LNG", String("dir") + separator + "LNG"},
        {"C:\\Windows", "\\win.ini", String("C:\\Windows") + separator + "win.ini"},
        {"dir\\", "a", "dir\\a"},
        {"/", "a", "/a"},
        {"C:", "a", "C:a"},
        {"", "a/b", "a/b"},
        {"dir", "", "dir"},
        {"dir", "D:\\a", "D:\\a"},
    };
    for (Row const& row : rows) EXPECT_EQ((DirEntry(row.directory) + row.below).GetFull(), row.joined);
}

TEST(DirEntry, ReadsTheDisk) {
    tests::TemporaryDirectory const directory;
    tests::PutBytes(directory.Path() / u8"gr\u00FCn.txt", "12345");
    DirEntry const folder(FromNativePath(directory.Path().string()));
    struct Row {
        DirEntry entry;
        bool exists, isFile, isDirectory;
        unsigned long long size;
    };
    for (Row const& row : {Row{folder, true, false, true, 0},
                           {folder + "gr\xFCn.txt", true, true, false, 5},
                           {folder + "blau.txt", false, false, false, 0},
                           {DirEntry(), false, false, false, 0}}) {
        FileStat const stat(row.entry);
        EXPECT_EQ(row.entry.Exists(), row.exists);
        EXPECT_TRUE(stat.IsFile() == row.isFile && stat.IsDirectory() == row.isDirectory);
        EXPECT_EQ(stat.GetSize(), row.size);
    }
}

TEST(NativePath, DecodesTheCodePageAndTurnsBothSeparators) {
    std::string const separator(1, PathSeparator);
    EXPECT_EQ(NativePath("C:\\M\xFCller/\x80.ini"),
              "C:" + separator + "M\xC3\xBCller" + separator + "\xE2\x82\xAC.ini");
    EXPECT_EQ(FromNativePath("M\xC3\xBCller/\xE2\x82\xAC.ini"), "M\xFCller/\x80.ini");
    EXPECT_EQ(FromNativePath("\xD0\x96"), "?");
}

TEST(NativePath, DifferentNamesStayDifferent) {
    std::set<std::string> names;
    for (int byte = 1; byte < 256; ++byte) {
        String const name(static_cast<char>(byte));
        if (name == "\\" || name == "/") continue;
        EXPECT_EQ(FromNativePath(NativePath(name)), name) << byte;
        names.insert(NativePath(name));
    }
    EXPECT_EQ(names.size(), 253U);
}

}  // namespace
}  // namespace sv
