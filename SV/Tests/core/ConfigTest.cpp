#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "SV/core/Config.h"
#include "SV/core/NativePath.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <string>
#include <thread>

using platform::Process;
using sv::Config;
using sv::String;
using tests::Bytes;
using tests::PutBytes;
using tests::TemporaryDirectory;

namespace {

String ReadKey(std::string const& path, char const* group, String const& key) {
    Config config(path);
    config.SetGroup(group);
    return config.ReadKey(key);
}

std::unique_ptr<Process> StartWriter(std::vector<std::string> const& arguments) {
    return Process::Start(KV_CONFIG_WRITER, arguments);
}

TEST(Config, WritesReadsAndDeletes) {
    TemporaryDirectory const directory;
    Config config(sv::FromNativePath(directory.Path().string()) + "\\new/M\xFCller.ini");
    config.SetGroup("Settings");
    EXPECT_EQ(config.ReadKey("language"), "");
    EXPECT_EQ(config.GetKeyName(0), "");
    EXPECT_TRUE(config.DeleteKey("language"));
    EXPECT_TRUE(std::filesystem::is_empty(directory.Path())) << "reading creates no file";
    ASSERT_TRUE(config.WriteKey("language", "1"));
    ASSERT_TRUE(config.WriteKey("UserName", " M\xFCller "));
    std::filesystem::path const path = directory.Path() / "new" / u8"M\u00FCller.ini";
    EXPECT_EQ(Bytes(path), "[Settings]\nlanguage=1\nUserName=M\xFCller\n");
    EXPECT_EQ(config.ReadKey("LANGUAGE"), "1");
    EXPECT_EQ(config.GetKeyCount(), 2);
    EXPECT_EQ(config.GetKeyName(1), "UserName");
    EXPECT_EQ(config.GetKeyName(2), "");
    ASSERT_TRUE(config.DeleteKey("Language"));
    EXPECT_EQ(config.ReadKey("language"), "");
    EXPECT_EQ(Bytes(path), "[Settings]\nUserName=M\xFCller\n");
}

TEST(Config, SeesWhatOthersWrite) {
    TemporaryDirectory const directory;
    std::string const path = directory / "shared.ini";
    Config mine(path);
    Config others(path);
    // Values of equal length in quick succession, which time stamps and sizes alone do not distinguish.
    for (int round = 100; round < 130; ++round) {
        ASSERT_TRUE(others.WriteKey("round", String(round)));
        ASSERT_EQ(mine.ReadKey("round"), String(round));
        PutBytes(path, "round=" + std::to_string(round + 100) + "\n");
        ASSERT_EQ(mine.ReadKey("round"), String(round + 100)) << "written without replacing the file";
    }
    std::filesystem::remove(path);
    EXPECT_EQ(mine.ReadKey("round"), "");
}

TEST(Config, ReportsFailedWrites) {
    TemporaryDirectory const directory;
    std::filesystem::create_directory(directory / "taken.ini");
    Config overDirectory(directory / "taken.ini");
    EXPECT_FALSE(overDirectory.WriteKey("a", "1"));
    PutBytes(directory / "file", "");
    Config belowFile(directory / "file/below.ini");
    EXPECT_FALSE(belowFile.WriteKey("a", "1"));
    EXPECT_EQ(belowFile.ReadKey("a"), "") << "a failed write leaves no trace";
    Config fine(directory / "fine.ini");
    EXPECT_FALSE(fine.WriteKey("a=b", "1"));
    EXPECT_FALSE(std::filesystem::exists(directory / "fine.ini"));
}

// Reading the file for each key would take half a minute.
TEST(Config, FindsTenThousandKeysByTheIndex) {
    TemporaryDirectory const directory;
    std::string text;
    for (int i = 0; i < 10'000; ++i) text += "key" + std::to_string(i) + "=" + std::to_string(i) + "\n";
    PutBytes(directory / "large.ini", text);
    Config config(directory / "large.ini");
    auto const start = std::chrono::steady_clock::now();
    for (int i = 0; i < 10'000; ++i) ASSERT_EQ(config.ReadKey(String("key") + String(i)), String(i));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(Config, TwoProcessesLoseNoneOfTheirKeys) {
    constexpr int Keys = 100;
    TemporaryDirectory const directory;
    std::string const path = directory / "shared.ini";
    PutBytes(path, "; kept\r\n[Scales]\r\nfirst=1\r\n");
    std::string const count = std::to_string(Keys);
    auto const one = StartWriter({"keys", path, "Vindara Applications", "one", count});
    auto const two = StartWriter({"keys", path, "Vindara Applications", "two", count});
    ASSERT_TRUE(one && two);
    EXPECT_EQ(one->Wait(), 0);
    EXPECT_EQ(two->Wait(), 0);
    Config config(path);
    config.SetGroup("Vindara Applications");
    EXPECT_EQ(config.GetKeyCount(), 2 * Keys);
    for (int i = 0; i < Keys; ++i) {
        EXPECT_EQ(config.ReadKey(String("one") + String(i)), String(i));
        EXPECT_EQ(config.ReadKey(String("two") + String(i)), String(i));
    }
    EXPECT_TRUE(Bytes(path).starts_with("; kept\r\n[Scales]\r\nfirst=1\r\n[Vindara Applications]\r\n"));
    EXPECT_EQ(Bytes(path).find("\r\r"), std::string::npos);
}

/// A text that takes several writes, with the number of a round at its start.
std::string RoundsText(String const& round) {
    std::string text = "[State]\nround=" + std::string(round.View()) + "\n[Filler]\n";
    for (int i = 0; i < 400; ++i) text += "key" + std::to_string(i) + "=" + std::string(100, 'x') + "\n";
    return text + "; the end\n";
}

TEST(Config, AKilledWriterLeavesTheOldOrTheNewFile) {
    constexpr int Kills = 60;
    TemporaryDirectory const directory;
    std::string const path = directory / "rounds.ini";
    PutBytes(path, RoundsText("1"));
    std::mt19937 random(20240229);
    std::uniform_int_distribution<int> microseconds(0, 12'000);
    int caughtInTheAct = 0;
    for (int kill = 0; kill < Kills; ++kill) {
        String const before = ReadKey(path, "State", "round");
        auto const writer = StartWriter({"rounds", path, "State", "round"});
        ASSERT_TRUE(writer);
        // Wait for the first round of the writer; each read during its work must be complete too.
        while (ReadKey(path, "State", "round") == before && writer->IsRunning()) {
        }
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        writer->Kill();
        ASSERT_EQ(writer->Wait(), Process::Killed) << "the writer exited";
        String const after = ReadKey(path, "State", "round");
        ASSERT_GT(after.ToLong(), before.ToLong()) << kill;
        ASSERT_EQ(Bytes(path), RoundsText(after)) << kill;
        if (std::filesystem::exists(path + ".replacing")) ++caughtInTheAct;
    }
    RecordProperty("CaughtInTheAct", caughtInTheAct);
    EXPECT_GT(caughtInTheAct, 0) << "no kill fell into a write, so nothing was tested";
    Config config(path);
    EXPECT_TRUE(config.WriteKey("alive", "1")) << "the lock was released with its process";
    EXPECT_FALSE(std::filesystem::exists(path + ".replacing")) << "the remaining file is used again";
}

}  // namespace
