#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "SV/core/Config.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

using platform::Process;

namespace {

TEST(Process, PassesArgumentsAsTheyAre) {
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
    EXPECT_EQ(refused->Wait(), 2) << "the code is kept";
    EXPECT_FALSE(refused->IsRunning());
    refused->Kill();
    EXPECT_EQ(refused->Wait(), 2) << "what has ended cannot be killed";
}

TEST(Process, IsKilled) {
    tests::TemporaryDirectory const directory;
    auto const writer = Process::Start(KV_CONFIG_WRITER, {"rounds", directory / "file.ini", "g", "k"});
    ASSERT_TRUE(writer);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_TRUE(writer->IsRunning());
    writer->Kill();
    EXPECT_EQ(writer->Wait(), Process::Killed);
    EXPECT_FALSE(writer->IsRunning());
}

}  // namespace
