#include "Platform/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

using namespace std::chrono_literals;
using platform::NativeThread;
using platform::Priority;

namespace {

// How a thread ends from outside is tested for each system by itself.

TEST(Threads, RunsItsRoutine) {
    std::atomic<bool> isRun = false;
    auto const thread = NativeThread::Start([&] {
        isRun = true;
        return 0U;
    });
    ASSERT_TRUE(thread);
    EXPECT_TRUE(thread->WaitForEnd(10s));
    EXPECT_TRUE(isRun);
    thread->Kill();  // does nothing to one that has ended
}

TEST(Threads, RunsOnWithoutItsOwner) {
    std::atomic<int> step = 0;
    auto thread = NativeThread::Start([&] {
        while (step == 0) std::this_thread::sleep_for(1ms);
        step = 2;
        return 0U;
    });
    thread.reset();
    step = 1;
    while (step != 2) std::this_thread::sleep_for(1ms);
}

TEST(Threads, TakesAPriority) {
    std::atomic<bool> isOver = false;
    auto const thread = NativeThread::Start([&] {
        while (!isOver) std::this_thread::sleep_for(1ms);
        return 0U;
    });
    ASSERT_TRUE(thread);
    EXPECT_EQ(thread->GetPriority(), Priority::Normal);
    EXPECT_TRUE(thread->SetPriority(Priority::Low)) << "everybody may step back";
    EXPECT_EQ(thread->GetPriority(), Priority::Low);
    // Stepping forward again may need a privilege; what is refused changes nothing.
    for (Priority const priority : {Priority::Normal, Priority::High}) {
        Priority const before = thread->GetPriority();
        bool const isAllowed = thread->SetPriority(priority);
        EXPECT_EQ(thread->GetPriority(), isAllowed ? priority : before);
    }
    isOver = true;
    EXPECT_TRUE(thread->WaitForEnd(10s));
}

}  // namespace
