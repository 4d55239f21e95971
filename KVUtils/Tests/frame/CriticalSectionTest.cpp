#include "KVUtils/Source/frame/CriticalSection.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace kv::test {

namespace {

TEST(CriticalSectionTest, OneThreadMayHoldSeveralOfOneName) {
    CriticalSection const outer("CriticalSectionTest.nested");
    CriticalSection const inner("CriticalSectionTest.nested");
    CriticalSection const unnamed(nullptr);
    CriticalSection const sameUnnamed("");
}

TEST(CriticalSectionTest, OneNameExcludesAnotherDoesNot) {
    std::atomic<bool> isIn = false;
    std::thread other;
    {
        CriticalSection const held("CriticalSectionTest.held");
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

TEST(CriticalSectionTest, ThreadsMayBringNewNamesAtTheSameMoment) {
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

}  // namespace

}  // namespace kv::test
