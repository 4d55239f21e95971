#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "Platform/Tests/TestSystem.h"
#include "SV/core/Config.h"

#include <gtest/gtest.h>

#include <filesystem>

using platform::Process;

namespace {

TEST(Process, PassesArgumentsUnchanged) {
    tests::TemporaryDirectory const directory;
    std::string const path = directory / "with blanks.ini";
    for (char const* const value : {"plain", "two words", "\"quoted\"", "C:\\dir\\",
                                    "back\\\\slashes\\\" and quote", "$HOME %PATH% *", "a;b&c|d", "\\\\"}) {
        auto const writer = Process::Start(KV_CONFIG_WRITER, {"write", path, "group", "key", value});
        ASSERT_TRUE(writer);
        EXPECT_EQ(writer->Wait(), 0);
        sv::Config config(path);
        config.SetGroup("group");
        EXPECT_EQ(config.ReadKey("key"), value);
    }
}

TEST(Process, ReportsItsEnd) {
    EXPECT_FALSE(Process::Start("/no/such/program"));
    auto const refused = Process::Start(KV_CONFIG_WRITER, {"nonsense"});
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->Wait(), 2);
    refused->Kill();
    EXPECT_EQ(refused->Wait(), 2) << "the code of a program that has ended is kept";

    tests::TemporaryDirectory const directory;
    auto const killed = Process::Start(KV_CONFIG_WRITER, {"rounds", directory / "file.ini", "g", "k"});
    ASSERT_TRUE(killed);
    EXPECT_TRUE(tests::WaitUntil([&] { return std::filesystem::exists(directory / "file.ini"); }));
    EXPECT_TRUE(killed->IsRunning());
    killed->Kill();
    EXPECT_EQ(killed->Wait(), Process::Killed);
    EXPECT_FALSE(killed->IsRunning());
}

}  // namespace
