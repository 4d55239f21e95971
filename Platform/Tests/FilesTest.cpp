#include "Platform/Files.h"
#include "Platform/Tests/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

using platform::FileAccess;
using platform::FileDisposition;
using platform::OpenFile;
using platform::ReplaceAtomically;
using tests::Bytes;
using tests::PutBytes;

namespace {

class Files : public testing::Test {
  protected:
    tests::TemporaryDirectory directory_;
    std::string path_ = directory_ / "file";
};

TEST_F(Files, AreReadWhole) {
    EXPECT_FALSE(platform::ReadWhole(path_));
    for (std::size_t const size : {0U, 1U, 65'535U, 65'536U, 200'000U}) {
        std::string content(size, 'x');
        for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>(i * 7);
        PutBytes(path_, content);
        EXPECT_EQ(platform::ReadWhole(path_), content) << size;
    }
    EXPECT_FALSE(platform::ReadWhole(directory_.Path().string())) << "a directory";
}

TEST_F(Files, HaveAnIdentityThatChanges) {
    EXPECT_FALSE(platform::Identify(path_));
    PutBytes(path_, "1");
    auto const first = platform::Identify(path_);
    ASSERT_TRUE(first);
    EXPECT_EQ(platform::Identify(path_), first);
    auto const now = std::chrono::system_clock::now().time_since_epoch();
    EXPECT_LT(std::chrono::abs(now - std::chrono::nanoseconds(first->modified)), std::chrono::minutes(1));
    PutBytes(path_, "12");
    EXPECT_NE(platform::Identify(path_), first);
}

TEST_F(Files, AreReplacedAtomically) {
    ASSERT_TRUE(ReplaceAtomically(path_, "first, and longer"));
    EXPECT_EQ(Bytes(path_), "first, and longer");
    PutBytes(path_ + ".replacing", "left by a killed writer, longer than anything else");
    ASSERT_TRUE(ReplaceAtomically(path_, "second"));
    EXPECT_EQ(Bytes(path_), "second");
    EXPECT_FALSE(std::filesystem::exists(path_ + ".replacing"));
    EXPECT_FALSE(ReplaceAtomically(directory_ / "missing/file", "x"));
    EXPECT_FALSE(ReplaceAtomically(directory_.Path().string(), "x")) << "a directory";
    EXPECT_FALSE(std::filesystem::exists(directory_.Path().string() + ".replacing"));

    std::vector<std::jthread> writers;
    for (char const letter : {'a', 'b', 'c'}) {
        writers.emplace_back([&, letter] {
            for (std::size_t i = 1; i <= 20; ++i)
                EXPECT_TRUE(ReplaceAtomically(path_, std::string(1000 * i, letter)));
        });
    }
    for (int i = 0; i < 200; ++i) {
        std::string const content = platform::ReadWhole(path_).value_or("");
        if (content == "second") continue;
        EXPECT_EQ(content.find_first_not_of(content.substr(0, 1)), std::string::npos);
        EXPECT_EQ(content.size() % 1000, 0U);
    }
}

TEST_F(Files, AreLocked) {
    std::atomic<int> inside = 0;
    std::atomic<bool> isShared = false;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (int round = 0; round < 100; ++round) {
                    platform::FileLock const lock(path_);
                    ASSERT_TRUE(lock.IsHeld());
                    if (++inside > 1) isShared = true;
                    std::this_thread::yield();
                    --inside;
                }
            });
        }
    }
    EXPECT_FALSE(isShared);
    EXPECT_FALSE(platform::FileLock(directory_ / "missing/file.lock").IsHeld());
}

TEST_F(Files, AreReadAndWrittenByHandle) {
    for (FileAccess const access : {FileAccess::Read, FileAccess::Write})
        EXPECT_EQ(OpenFile(path_, access, FileDisposition::OpenExisting), nullptr) << "no such file";
    EXPECT_EQ(OpenFile(directory_.Path().string(), FileAccess::Read, FileDisposition::OpenExisting), nullptr);

    void* const writer = OpenFile(path_, FileAccess::ReadWrite, FileDisposition::OpenOrCreate);
    ASSERT_NE(writer, nullptr);
    EXPECT_EQ(OpenFile(path_, FileAccess::Write, FileDisposition::OpenExisting), nullptr)
        << "one writer only";
    unsigned long count = 5;
    EXPECT_TRUE(platform::WriteFile(writer, "12345", count));
    EXPECT_EQ(count, 5U);
    EXPECT_TRUE(platform::SeekToStart(writer));
    std::string text(10, '.');
    count = 10;
    EXPECT_TRUE(platform::ReadFile(writer, text.data(), count));
    EXPECT_EQ(count, 5U);
    EXPECT_EQ(text, "12345.....");
    EXPECT_TRUE(platform::Truncate(writer));
    count = 1;
    EXPECT_TRUE(platform::WriteFile(writer, "6", count));

    void* const reader = OpenFile(path_, FileAccess::Read, FileDisposition::OpenExisting);
    ASSERT_NE(reader, nullptr);
    EXPECT_FALSE(platform::WriteFile(reader, "x", count));
    EXPECT_EQ(count, 0U);
    EXPECT_TRUE(platform::CloseFile(reader));
    EXPECT_TRUE(platform::CloseFile(writer));
    EXPECT_EQ(Bytes(path_), "6");
    void* const next = OpenFile(path_, FileAccess::Write, FileDisposition::OpenExisting);
    EXPECT_NE(next, nullptr) << "closing ends the sharing";
    EXPECT_TRUE(platform::CloseFile(next));
}

TEST_F(Files, HaveNoNetworkNames) {
    EXPECT_EQ(platform::ShortPath("no/such/file with blanks"), "no/such/file with blanks");
    for (bool const connected : {false, true}) EXPECT_FALSE(platform::NetworkNameOfDrive("Q:", connected));
}

}  // namespace
