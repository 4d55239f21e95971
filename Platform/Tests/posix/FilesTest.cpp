// Symbolic links, permissions and special files, which only POSIX has.
#include "Platform/Files.h"
#include "Platform/Tests/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using platform::ReplaceAtomically;
using tests::Bytes;
using tests::PutBytes;

namespace {

TEST(PosixFiles, ReplacesTheTargetOfALink) {
    tests::TemporaryDirectory const directory;
    fs::create_directory(directory / "real");
    PutBytes(directory / "real/file", "old");
    PutBytes(directory / "victim", "untouched");
    for (auto const& [target, link] :
         {std::pair{"real/file", "link"}, std::pair{"link", "second"}, std::pair{"real/later", "dangling"},
          std::pair{"circle", "circle"}, std::pair{"victim", "file.replacing"}})
        fs::create_symlink(target, directory / link);
    ASSERT_TRUE(ReplaceAtomically(directory / "second", "new"));
    EXPECT_EQ(Bytes(directory / "real/file"), "new");
    EXPECT_TRUE(fs::equivalent(platform::FollowLinks(directory / "second"), directory / "real/file"));
    ASSERT_TRUE(ReplaceAtomically(directory / "dangling", "made"));
    EXPECT_EQ(Bytes(directory / "real/later"), "made");
    EXPECT_FALSE(ReplaceAtomically(directory / "circle", "x"));
    for (char const* const link : {"link", "second", "dangling", "circle"})
        EXPECT_TRUE(fs::is_symlink(directory / link)) << link;
    EXPECT_FALSE(ReplaceAtomically(directory / "file", "x")) << "a link that has the name of the new content";
    EXPECT_EQ(Bytes(directory / "victim"), "untouched");
}

TEST(PosixFiles, KeepsPermissionsAndOwner) {
    tests::TemporaryDirectory const directory;
    for (int const bits : {0600, 0644, 0660, 0755}) {
        PutBytes(directory / "file", "old");
        fs::permissions(directory / "file", fs::perms(bits));
        ASSERT_TRUE(ReplaceAtomically(directory / "file", "new"));
        EXPECT_EQ(static_cast<int>(fs::status(directory / "file").permissions()), bits);
    }
    constexpr uid_t Stranger = 12345;
    std::string const path = directory / "file";
    if (::chown(path.c_str(), Stranger, Stranger) != 0) GTEST_SKIP() << "only root can give files away";
    ASSERT_TRUE(ReplaceAtomically(path, "newer"));
    struct stat status = {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, Stranger);
}

TEST(PosixFiles, ReadsFilesOfUnknownSize) {
    EXPECT_NE(platform::ReadWhole("/proc/self/status").value_or("").find("Name:"), std::string::npos);
}

}  // namespace
