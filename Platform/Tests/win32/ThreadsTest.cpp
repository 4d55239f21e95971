// Windows ends a killed thread at any point.
#include "Platform/Tests/TestSystem.h"
#include "Platform/Threads.h"

#include <gtest/gtest.h>

#include <atomic>

using namespace std::chrono_literals;

TEST(Win32Threads, EndAtAnyPoint) {
    static std::atomic<unsigned long> rounds = 0;
    auto const thread = platform::NativeThread::Start([] {
        while (true) ++rounds;
        return 0U;
    });
    ASSERT_TRUE(thread);
    ASSERT_TRUE(tests::WaitUntil([] { return rounds > 0; }));
    EXPECT_FALSE(thread->WaitForEnd(10ms));
    thread->Kill();
    EXPECT_TRUE(thread->WaitForEnd(10s));
}
