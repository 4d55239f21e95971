// What only POSIX has: symbolic links and permission bits.
#include "Platform/Files.h"
#include "Platform/Tests/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace fs = std::filesystem;
using tests::Bytes;
using tests::PutBytes;
using tests::TemporaryDirectory;

namespace {

TEST(PosixFiles, ReplacesWhatALinkStandsFor) {
    TemporaryDirectory const directory;
    fs::create_directory(directory / "real");
    PutBytes(directory / "real/file", "old");
    fs::create_symlink("real/file", directory / "link");
    fs::create_symlink(directory / "link", directory / "second");
    ASSERT_TRUE(platform::ReplaceAtomically(directory / "second", "new"));
    EXPECT_EQ(Bytes(directory / "real/file"), "new");
    EXPECT_TRUE(fs::is_symlink(directory / "link"));
    EXPECT_TRUE(fs::is_symlink(directory / "second"));
    EXPECT_TRUE(fs::equivalent(platform::FollowLinks(directory / "second"), directory / "real/file"));

    fs::create_symlink("real/later", directory / "dangling");
    ASSERT_TRUE(platform::ReplaceAtomically(directory / "dangling", "made"));
    EXPECT_EQ(Bytes(directory / "real/later"), "made");

    fs::create_symlink("circle", directory / "circle");
    EXPECT_FALSE(platform::ReplaceAtomically(directory / "circle", "x"));
    EXPECT_TRUE(fs::is_symlink(directory / "circle"));
}

TEST(PosixFiles, KeepsPermissions) {
    TemporaryDirectory const directory;
    std::string const path = directory / "file";
    for (int const bits : {0600, 0644, 0660, 0755}) {
        PutBytes(path, "old");
        fs::permissions(path, fs::perms(bits));
        ASSERT_TRUE(platform::ReplaceAtomically(path, "new"));
        EXPECT_EQ(static_cast<int>(fs::status(path).permissions()), bits);
    }
}

TEST(PosixFiles, DoesNotFollowALinkLaidInItsWay) {
    TemporaryDirectory const directory;
    PutBytes(directory / "victim", "untouched");
    fs::create_symlink("victim", directory / "file.replacing");
    EXPECT_FALSE(platform::ReplaceAtomically(directory / "file", "x"));
    EXPECT_EQ(Bytes(directory / "victim"), "untouched");
}

TEST(PosixFiles, ReadsFilesThatDoNotKnowTheirSize) {
    auto const content = platform::ReadWhole("/proc/self/status");
    ASSERT_TRUE(content);
    EXPECT_NE(content->find("Name:"), std::string::npos);
}

}  // namespace
