// Termination from outside is tested separately for each system.
#include "Platform/Tests/TestSystem.h"
#include "Platform/Threads.h"

#include <gtest/gtest.h>

#include <atomic>

using namespace std::chrono_literals;
using platform::NativeThread;
using platform::Priority;
using tests::WaitUntil;

namespace {

TEST(Threads, RunWithAndWithoutTheirOwner) {
    std::atomic<int> step = 0;
    auto thread = NativeThread::Start([&] {
        bool const isDetached = WaitUntil([&] { return step == 1; });
        step = isDetached ? 2 : -1;
        return 0U;
    });
    ASSERT_TRUE(thread);
    EXPECT_FALSE(thread->WaitForEnd(1ms));
    thread.reset();
    step = 1;
    EXPECT_TRUE(WaitUntil([&] { return step == 2; }));

    auto const ended = NativeThread::Start([] { return 0U; });
    EXPECT_TRUE(ended->WaitForEnd(10s));
    ended->Kill();  // has no effect
}

TEST(Threads, TakeAPriority) {
    std::atomic<bool> isOver = false;
    auto const thread =
        NativeThread::Start([&] { return WaitUntil([&] { return isOver.load(); }) ? 0U : 1U; });
    ASSERT_TRUE(thread);
    EXPECT_EQ(thread->GetPriority(), Priority::Normal);
    // Raising a priority may need a privilege; a refusal changes nothing.
    for (Priority const priority : {Priority::Low, Priority::Normal, Priority::High}) {
        Priority const before = thread->GetPriority();
        bool const isAllowed = thread->SetPriority(priority);
        EXPECT_TRUE(isAllowed || priority != Priority::Low);
        EXPECT_EQ(thread->GetPriority(), isAllowed ? priority : before);
    }
    isOver = true;
    EXPECT_TRUE(thread->WaitForEnd(10s));
}

}  // namespace
