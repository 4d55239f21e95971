// The end from outside as POSIX gives it: at the next cancellation point, with the stack unwound.
#include "Platform/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

TEST(PosixThreads, KilledThreadsUnwind) {
    std::atomic<bool> isWaiting = false;
    std::atomic<bool> isReleased = false;
    auto const thread = platform::NativeThread::Start([&] {
        struct Holder {
            std::atomic<bool>& flag;
            ~Holder() { flag = true; }
        } const holder{isReleased};
        isWaiting = true;
        // The call itself: AddressSanitizer takes frames between here and a cancelled call for dead stack.
        while (true) ::pause();
        return 0U;
    });
    while (!isWaiting) std::this_thread::yield();
    EXPECT_FALSE(thread->WaitForEnd(10ms));
    thread->Kill();
    ASSERT_TRUE(thread->WaitForEnd(10s));
    EXPECT_TRUE(isReleased);
}

TEST(PosixThreads, OneThatNeverWaitsGoesOn) {
    std::atomic<bool> isOver = false;
    std::atomic<unsigned long> rounds = 0;
    auto const thread = platform::NativeThread::Start([&] {
        while (!isOver) ++rounds;
        return 0U;
    });
    while (rounds == 0) std::this_thread::yield();
    thread->Kill();
    EXPECT_FALSE(thread->WaitForEnd(50ms));
    isOver = true;
    EXPECT_TRUE(thread->WaitForEnd(10s));
}

}  // namespace
