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

// Whether a wait lasts its time. An event of the system's own may end one, but not each of five.
template <class Prepare>
bool LastsItsTime(Prepare prepare, milliseconds time) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        prepare();
        auto const start = Clock::now();
        EventLoop::Wait(time);
        if (MsSince(start) >= static_cast<double>(time.count()) - 5) return true;
    }
    return false;
}

TEST(EventLoopTest, NothingIsPending) {
    Drain();
    EXPECT_FALSE(EventLoop::DispatchOne());
}

TEST(EventLoopTest, WaitsItsTimeAndTakesNoProcessorTime) {
    double const processor = tests::ProcessorMs();
    EXPECT_TRUE(LastsItsTime(Drain, milliseconds(300)));
    EXPECT_LT(tests::ProcessorMs() - processor, 90.0) << "30 percent: a busy loop takes all";
}

TEST(EventLoopTest, AWakeBeforeTheWaitCounts) {
    auto const wakeTwice = [] {
        Drain();
        EventLoop::Wake();
        EventLoop::Wake();
        EventLoop::Wait(EventLoop::Forever);  // a lost wake would hang here
    };
    EXPECT_TRUE(LastsItsTime(wakeTwice, milliseconds(50))) << "any number of wakes ends one wait";
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
