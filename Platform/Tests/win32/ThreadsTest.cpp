// The end from outside as Windows gives it: at once, wherever the thread is.
#include "Platform/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

using namespace std::chrono_literals;

namespace {

TEST(Win32Threads, KilledThreadsEndWhereTheyAre) {
    static std::atomic<unsigned long> rounds = 0;
    auto const thread = platform::NativeThread::Start([] {
        while (true) ++rounds;
        return 0U;
    });
    ASSERT_TRUE(thread);
    while (rounds == 0) std::this_thread::yield();
    EXPECT_FALSE(thread->WaitForEnd(10ms));
    thread->Kill();
    EXPECT_TRUE(thread->WaitForEnd(10s));
}

}  // namespace
