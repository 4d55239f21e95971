// POSIX ends a killed thread at its next cancellation point and unwinds its stack.
#include "Platform/Tests/TestSystem.h"
#include "Platform/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <unistd.h>

using namespace std::chrono_literals;

TEST(PosixThreads, EndWhereTheyWaitAndUnwind) {
    std::atomic<bool> isWaiting = false;
    std::atomic<bool> isReleased = false;
    std::atomic<bool> isOver = false;
    auto const waiting = platform::NativeThread::Start([&] {
        auto const release = [](std::atomic<bool>* flag) { *flag = true; };
        std::unique_ptr<std::atomic<bool>, decltype(release)> const holder(&isReleased, release);
        isWaiting = true;
        // A direct call: AddressSanitizer takes frames between here and a cancelled call for dead stack.
        while (true) ::pause();
        return 0U;
    });
    auto const busy = platform::NativeThread::Start([&] {
        while (!isOver) continue;
        return 0U;
    });
    ASSERT_TRUE(tests::WaitUntil([&] { return isWaiting.load(); }));
    EXPECT_FALSE(waiting->WaitForEnd(10ms));
    waiting->Kill();
    busy->Kill();
    EXPECT_TRUE(waiting->WaitForEnd(10s));
    EXPECT_TRUE(isReleased);
    EXPECT_FALSE(waiting->SetPriority(platform::Priority::Low)) << "the thread has ended";
    EXPECT_FALSE(busy->WaitForEnd(50ms)) << "a thread that never waits goes on";
    isOver = true;
    EXPECT_TRUE(busy->WaitForEnd(10s));
}
