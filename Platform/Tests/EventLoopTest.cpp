#include "Platform/EventLoop.h"
#include "Platform/Tests/TestSystem.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace platform {

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

double MsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// Takes what earlier tests left behind, a wake too.
void Drain() {
    EventLoop::Wait(milliseconds(0));
    while (EventLoop::DispatchOne()) continue;
}

TEST(EventLoopTest, NothingIsPending) {
    Drain();
    EXPECT_FALSE(EventLoop::DispatchOne());
}

TEST(EventLoopTest, WaitsItsTimeAndTakesNoProcessorTime) {
    Drain();
    auto const start = Clock::now();
    double const processor = tests::ProcessorMs();
    EventLoop::Wait(milliseconds(300));
    EXPECT_GE(MsSince(start), 295.0);
    EXPECT_LT(tests::ProcessorMs() - processor, 90.0) << "30 percent: a busy loop takes all";
}

TEST(EventLoopTest, AWakeBeforeTheWaitCounts) {
    EventLoop::Wake();
    EventLoop::Wake();
    auto const start = Clock::now();
    EventLoop::Wait(EventLoop::Forever);
    // A lost wake would hang here.
    EventLoop::Wait(milliseconds(50));
    EXPECT_GE(MsSince(start), 45.0) << "any number of wakes ends one wait";
}

TEST(EventLoopTest, AnotherThreadWakes) {
    for (int round = 0; round < 200; ++round) {
        // Some wakes come before the wait, some within it; a lost one would hang here.
        std::thread other([round] {
            std::this_thread::sleep_for(std::chrono::microseconds(round % 20 * 10));
            EventLoop::Wake();
        });
        EventLoop::Wait(EventLoop::Forever);
        other.join();
    }
}

}  // namespace

}  // namespace platform
