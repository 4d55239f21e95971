#include "KVUtils/Source/frame/Thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace kv::test {

namespace {

using namespace std::chrono_literals;

// The unwinding that ends a POSIX thread looks like a fault of the stack to AddressSanitizer; ThreadSanitizer
// loses sight of the locks that are taken on the way.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool CanKill = false;
#else
constexpr bool CanKill = true;
#endif

/// What the thread and the test share; it outlives both.
struct Tally {
    std::atomic<int> count = 0;
    std::atomic<bool> stop = false;
    std::atomic<bool> hasStopped = false;
};

class Counter : public Thread {
  public:
    Counter(ThreadPriorityTYPE priority, Tally& tally) : Thread(priority), tally_(tally) {}

  private:
    unsigned Run() override {
        while (!tally_.stop) {
            ++tally_.count;
            std::this_thread::sleep_for(1ms);
        }
        tally_.hasStopped = true;
        return 0;
    }

    Tally& tally_;
};

template <class Condition>
void WaitFor(Condition condition) {
    auto const end = std::chrono::steady_clock::now() + 20s;
    while (!condition() && std::chrono::steady_clock::now() < end) std::this_thread::sleep_for(1ms);
    ASSERT_TRUE(condition());
}

void WaitUntilItRuns(Tally const& tally) {
    WaitFor([&tally] { return tally.count >= 3; });
}

void Stop(Tally& tally) {
    tally.stop = true;
    WaitFor([&tally] { return tally.hasStopped.load(); });
}

void ExpectStandstill(Tally const& tally) {
    int const count = tally.count;
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(tally.count, count);
}

TEST(ThreadTest, RunsOnlyOnceStarted) {
    Tally tally;
    Counter counter(ThreadPriorityTYPE::Low, tally);
    EXPECT_EQ(counter.GetPriority(), ThreadPriorityTYPE::Normal) << "no thread yet";
    counter.SetPriority(ThreadPriorityTYPE::High);
    counter.KillThread();
    ExpectStandstill(tally);

    counter.StartThread();
    WaitUntilItRuns(tally);
    EXPECT_EQ(counter.GetPriority(), ThreadPriorityTYPE::Low) << "the one given at construction";
    Stop(tally);
}

TEST(ThreadTest, PriorityOfARunningThread) {
    Tally tally;
    Counter counter(ThreadPriorityTYPE::Normal, tally);
    counter.StartThread();
    WaitUntilItRuns(tally);
    EXPECT_EQ(counter.GetPriority(), ThreadPriorityTYPE::Normal);
    counter.SetPriority(ThreadPriorityTYPE::Low);
    EXPECT_EQ(counter.GetPriority(), ThreadPriorityTYPE::Low);
    Stop(tally);
}

TEST(ThreadTest, KillEndsItFromOutside) {
    if (!CanKill) GTEST_SKIP() << "under a sanitizer";
    Tally tally;
    Counter counter(ThreadPriorityTYPE::Normal, tally);
    counter.StartThread();
    WaitUntilItRuns(tally);
    counter.KillThread();
    std::this_thread::sleep_for(50ms);
    ExpectStandstill(tally);
    EXPECT_FALSE(tally.hasStopped);
    counter.KillThread();
}

TEST(ThreadTest, TheDestructorEndsItAndWaits) {
    if (!CanKill) GTEST_SKIP() << "under a sanitizer";
    Tally tally;
    {
        Counter counter(ThreadPriorityTYPE::Normal, tally);
        counter.StartThread();
        WaitUntilItRuns(tally);
    }
    ExpectStandstill(tally);
}

}  // namespace

}  // namespace kv::test
