#include "KVUtils/Source/frame/CriticalSection.h"
#include "KVUtils/Source/frame/DLL.h"
#include "KVUtils/Source/frame/Thread.h"
#include "KVUtils/Tests/staticinit/StaticInitProbe.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace kv::test {
namespace {

using namespace std::chrono_literals;

// AddressSanitizer takes the unwinding that ends a POSIX thread for a fault of the stack; ThreadSanitizer
// misses the locks that it takes.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool CanKill = false;
#else
constexpr bool CanKill = true;
#endif

/// Shared by the thread and the test; outlives both.
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
bool WaitFor(Condition condition) {
    auto const end = std::chrono::steady_clock::now() + 20s;
    while (!condition() && std::chrono::steady_clock::now() < end) std::this_thread::sleep_for(1ms);
    return condition();
}

void ExpectStandstill(Tally const& tally) {
    int const count = tally.count;
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(tally.count, count);
}

TEST(ThreadTest, RunsOnceStartedWithItsPriority) {
    Tally tally;
    Counter counter(ThreadPriorityTYPE::Low, tally);
    EXPECT_EQ(counter.GetPriority(), ThreadPriorityTYPE::Normal) << "no thread yet";
    counter.SetPriority(ThreadPriorityTYPE::High);
    counter.KillThread();
    ExpectStandstill(tally);
    counter.StartThread();
    ASSERT_TRUE(WaitFor([&] { return tally.count >= 3; }));
    EXPECT_EQ(counter.GetPriority(), ThreadPriorityTYPE::Low) << "the one given at construction";
    tally.stop = true;
    ASSERT_TRUE(WaitFor([&] { return tally.hasStopped.load(); }));
}

TEST(ThreadTest, KillAndDestructionEndIt) {
    if (!CanKill) GTEST_SKIP() << "under a sanitizer";
    Tally tally;
    {
        Counter counter(ThreadPriorityTYPE::Normal, tally);
        counter.StartThread();
        ASSERT_TRUE(WaitFor([&] { return tally.count >= 3; }));
        EXPECT_EQ(counter.GetPriority(), ThreadPriorityTYPE::Normal);
        counter.SetPriority(ThreadPriorityTYPE::Low);
        EXPECT_EQ(counter.GetPriority(), ThreadPriorityTYPE::Low);
        counter.KillThread();
        std::this_thread::sleep_for(50ms);
        ExpectStandstill(tally);
        counter.KillThread();
    }
    {
        int const count = tally.count;
        Counter counter(ThreadPriorityTYPE::Normal, tally);
        counter.StartThread();
        ASSERT_TRUE(WaitFor([&] { return tally.count >= count + 3; }));
    }
    ExpectStandstill(tally);
    EXPECT_FALSE(tally.hasStopped);
}

class Brief : public Thread {
  public:
    Brief() : Thread(ThreadPriorityTYPE::Normal) {}

  private:
    unsigned Run() override { return 0; }
};

TEST(ThreadTest, MayBeDestroyedBeforeItsRoutineIsCalled) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "destroying the object while the thread calls its routine is what is tested";
#endif
    for (int i = 0; i < 1000; ++i) {
        Brief brief;
        brief.StartThread();
    }
}

TEST(CriticalSectionTest, ExcludesOtherThreadsFromItsName) {
    std::atomic<bool> isIn = false;
    std::thread other;
    {
        CriticalSection const held("CriticalSectionTest.held");
        CriticalSection const again("CriticalSectionTest.held");
        CriticalSection const unnamed(nullptr);
        CriticalSection const sameUnnamed("");
        other = std::thread([&isIn] {
            CriticalSection const same("CriticalSectionTest.held");
            isIn = true;
        });
        std::thread([] { CriticalSection const free("CriticalSectionTest.free"); }).join();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        EXPECT_FALSE(isIn);
    }
    other.join();
    EXPECT_TRUE(isIn);
}

TEST(CriticalSectionTest, ThreadsMayUseNewNamesAtTheSameTime) {
    constexpr int Threads = 4;
    constexpr int Names = 200;
    std::vector<int> counts(Names);
    std::vector<std::thread> threads;
    for (int t = 0; t < Threads; ++t) {
        threads.emplace_back([&counts] {
            for (int i = 0; i < Names; ++i) {
                CriticalSection const lock(("CriticalSectionTest.new" + std::to_string(i)).c_str());
                ++counts[static_cast<std::size_t>(i)];
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(counts, std::vector<int>(Names, Threads));
}

class Probe : public DLL {
  public:
    using DLL::DLL;
    using DLL::GetFunctionPointer;
};

unsigned long ThrownNumber(std::function<void()> const& call) {
    try {
        call();
    } catch (unsigned long error) {
        return error;
    }
    return 0;
}

TEST(DLLTest, FunctionsStayCallableAndFailuresAreThrown) {
    using Function = StaticInitProbe const& (*)();
    Function function = nullptr;
    {
        Probe const library("libStaticInitProbe");
        function = reinterpret_cast<Function>(library.GetFunctionPointer("_Z17WhatStaticInitSawv"));
    }
    EXPECT_EQ(&function(), &WhatStaticInitSaw());
    EXPECT_NE(ThrownNumber([] { Probe const library("no such library"); }), 0UL);
    Probe const library("libStaticInitProbe");
    EXPECT_NE(ThrownNumber([&library] { static_cast<void>(library.GetFunctionPointer("NoSuchFunction")); }),
              0UL);
}

}  // namespace
}  // namespace kv::test
