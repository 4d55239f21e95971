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
using tests::Bytes;
using tests::PutBytes;
using tests::TemporaryDirectory;

namespace {

TEST(Files, ReadsWholeFiles) {
    TemporaryDirectory const directory;
    std::string const path = directory / "file";
    EXPECT_FALSE(platform::ReadWhole(path));
    for (std::size_t const size : {0U, 1U, 65'535U, 65'536U, 200'000U}) {
        std::string content(size, 'x');
        for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>(i * 7);
        PutBytes(path, content);
        EXPECT_EQ(platform::ReadWhole(path), content) << size;
    }
    EXPECT_FALSE(platform::ReadWhole(directory.Path().string())) << "a directory is no file to read";
}

TEST(Files, IdentityChangesWithTheFile) {
    TemporaryDirectory const directory;
    std::string const path = directory / "file";
    EXPECT_FALSE(platform::Identify(path));
    PutBytes(path, "1");
    auto const first = platform::Identify(path);
    ASSERT_TRUE(first);
    EXPECT_EQ(platform::Identify(path), first);
    auto const now = std::chrono::system_clock::now().time_since_epoch();
    auto const age = now - std::chrono::nanoseconds(first->modified);
    EXPECT_LT(std::chrono::abs(age), std::chrono::minutes(1)) << "the time counts from 1970";
    PutBytes(path, "12");
    EXPECT_NE(platform::Identify(path), first);
}

TEST(Files, ReplacesAtomically) {
    TemporaryDirectory const directory;
    std::string const path = directory / "file";
    ASSERT_TRUE(platform::ReplaceAtomically(path, "first, and longer"));
    EXPECT_EQ(Bytes(path), "first, and longer");
    PutBytes(path + ".replacing", "what a killed writer has left, longer than anything else");
    ASSERT_TRUE(platform::ReplaceAtomically(path, "second"));
    EXPECT_EQ(Bytes(path), "second");
    EXPECT_FALSE(std::filesystem::exists(path + ".replacing"));
    EXPECT_FALSE(platform::ReplaceAtomically(directory / "missing/file", "x"));
    EXPECT_FALSE(platform::ReplaceAtomically(directory.Path().string(), "x")) << "a directory stays one";
}

TEST(Files, WritersWithoutALockTakeTurns) {
    TemporaryDirectory const directory;
    std::string const path = directory / "file";
    std::vector<std::thread> writers;
    for (char const letter : {'a', 'b', 'c'}) {
        writers.emplace_back([&path, letter] {
            for (int i = 1; i <= 20; ++i) {
                EXPECT_TRUE(platform::ReplaceAtomically(
                    path, std::string(static_cast<std::size_t>(i) * 1000, letter)));
            }
        });
    }
    for (int i = 0; i < 200; ++i) {
        std::string const content = platform::ReadWhole(path).value_or("");
        EXPECT_EQ(content.find_first_not_of(content.substr(0, 1)), std::string::npos);
        EXPECT_EQ(content.size() % 1000, 0U);
    }
    for (std::thread& writer : writers) writer.join();
}

TEST(Files, ALockKeepsOthersOut) {
    TemporaryDirectory const directory;
    std::string const path = directory / "file.lock";
    std::atomic<int> inside = 0;
    std::atomic<bool> isShared = false;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 100; ++round) {
                platform::FileLock const lock(path);
                ASSERT_TRUE(lock.IsHeld());
                if (++inside > 1) isShared = true;
                std::this_thread::yield();
                --inside;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_FALSE(isShared);
    EXPECT_FALSE(platform::FileLock(directory / "missing/file.lock").IsHeld());
}

TEST(Files, HandlesReadWriteAndTruncate) {
    TemporaryDirectory const directory;
    std::string const path = directory / "file";
    EXPECT_EQ(platform::OpenFile(path, FileAccess::Read, FileDisposition::OpenExisting), nullptr);
    EXPECT_EQ(platform::OpenFile(path, FileAccess::Write, FileDisposition::OpenExisting), nullptr);
    EXPECT_EQ(platform::OpenFile(directory.Path().string(), FileAccess::Read, FileDisposition::OpenExisting),
              nullptr);

    void* const writer = platform::OpenFile(path, FileAccess::ReadWrite, FileDisposition::OpenOrCreate);
    ASSERT_NE(writer, nullptr);
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
    EXPECT_TRUE(platform::CloseFile(writer));
    EXPECT_EQ(Bytes(path), "6");
}

TEST(Files, AWriterSharesWithReadersOnly) {
    TemporaryDirectory const directory;
    std::string const path = directory / "file";
    void* const writer = platform::OpenFile(path, FileAccess::Write, FileDisposition::OpenOrCreate);
    ASSERT_NE(writer, nullptr);
    EXPECT_EQ(platform::OpenFile(path, FileAccess::ReadWrite, FileDisposition::OpenExisting), nullptr);
    void* const reader = platform::OpenFile(path, FileAccess::Read, FileDisposition::OpenExisting);
    ASSERT_NE(reader, nullptr);
    unsigned long count = 1;
    EXPECT_FALSE(platform::WriteFile(reader, "x", count));
    EXPECT_EQ(count, 0U);
    EXPECT_TRUE(platform::CloseFile(reader));
    EXPECT_TRUE(platform::CloseFile(writer));
    void* const next = platform::OpenFile(path, FileAccess::Write, FileDisposition::OpenExisting);
    EXPECT_NE(next, nullptr);
    EXPECT_TRUE(platform::CloseFile(next));
}

TEST(Files, NamesWithoutANetwork) {
    EXPECT_EQ(platform::ShortPath("no/such/file with blanks"), "no/such/file with blanks");
    EXPECT_FALSE(platform::NetworkNameOfDrive("Q:", true));
    EXPECT_FALSE(platform::NetworkNameOfDrive("Q:", false));
}

}  // namespace
