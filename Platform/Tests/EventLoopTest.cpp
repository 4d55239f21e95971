#include "Platform/EventLoop.h"
#include "Platform/Tests/TestSystem.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

using namespace std::chrono_literals;
using platform::EventLoop;

namespace {

// A lost wake waits this long and fails, where a program would hang.
constexpr auto Long = 10s;

/// Returns how long a wait lasts.
double WaitMs(std::chrono::milliseconds limit) {
    auto const start = std::chrono::steady_clock::now();
    EventLoop::Wait(limit);
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// Returns whether a wait lasts its time. An event of the system may end one, but not each of five.
template <class Prepare>
bool LastsItsTime(Prepare const& prepare) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        EventLoop::Wait(0ms);  // takes what earlier tests left, including a wake
        while (EventLoop::DispatchOne()) continue;
        EXPECT_FALSE(EventLoop::DispatchOne());
        prepare();
        if (WaitMs(300ms) >= 295) return true;
    }
    return false;
}

TEST(EventLoopTest, WaitsItsTimeWithoutProcessorTime) {
    double const processor = tests::ProcessorMs();
    EXPECT_TRUE(LastsItsTime([] {}));
    EXPECT_LT(tests::ProcessorMs() - processor, 90.0) << "30 percent: a busy loop takes all";
}

TEST(EventLoopTest, AnyNumberOfWakesEndsOneWait) {
    EXPECT_TRUE(LastsItsTime([] {
        EventLoop::Wake();
        EventLoop::Wake();
        EXPECT_LT(WaitMs(Long), 5000) << "a wake before the wait counts";
    }));
    for (int round = 0; round < 200; ++round) {
        std::jthread const other([round] {  // wakes before or during the wait
            std::this_thread::sleep_for(std::chrono::microseconds(round % 20 * 10));
            EventLoop::Wake();
        });
        ASSERT_LT(WaitMs(Long), 5000) << "round " << round;
    }
}

}  // namespace
