#include "Platform/Tests/DdeEndpoint.h"
#include "Platform/Tests/RuntimeDirectory.h"
#include "Platform/Tests/TestSystem.h"
#include "SV/core/Application.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace sv {
namespace {

using Clock = std::chrono::steady_clock;
using Numbers = std::vector<unsigned long>;

double MsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// The events that the user event handler received.
Numbers delivered;
void (*onEvent)(unsigned long) = nullptr;

void UserEvent(unsigned long id, void* /*data*/) {
    delivered.push_back(id);
    if (onEvent != nullptr) onEvent(id);
}

/// Ends `Execute` after twenty seconds, so that a lost event is a failed expectation and not a hang.
class Watchdog {
  public:
    Watchdog() : thread_(&Watchdog::Watch) {}

  private:
    static void Watch(std::stop_token const& stop) {
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any().wait_for(lock, stop, std::chrono::seconds(20), [] { return false; });
        if (!stop.stop_requested()) Application::Quit();
    }

    std::jthread thread_;
};

class ApplicationTest : public testing::Test {
  protected:
    ApplicationTest() {
        delivered.clear();
        onEvent = nullptr;
        Application::SetUserEventHdl(&UserEvent);
    }
    ~ApplicationTest() override { Application::SetUserEventHdl(nullptr); }
};

// An idle handler that logs its name and has something to do `work` times.
struct Idler {
    std::string* log = nullptr;
    char name = '?';
    int work = 0;
    void (*action)(Idler&) = nullptr;

    long Handle(void* /*sender*/) {
        *log += name;
        if (action != nullptr) action(*this);
        return work-- > 0 ? 1 : 0;
    }
    [[nodiscard]] Link GetLink() { return Link::To<&Idler::Handle>(*this); }
};

TEST_F(ApplicationTest, DeliversUserEventsInOrderAndInRounds) {
    for (unsigned long id : {3UL, 1UL, 2UL}) Application::PostUserEvent(id, nullptr);
    EXPECT_TRUE(delivered.empty()) << "posting delivers nothing";
    Application::Reschedule();
    EXPECT_EQ(delivered, (Numbers{3, 1, 2}));

    onEvent = [](unsigned long id) {
        if (id < 10) Application::PostUserEvent(id + 1, nullptr);
    };
    delivered.clear();
    Application::PostUserEvent(8, nullptr);
    Application::Reschedule();
    EXPECT_EQ(delivered, (Numbers{8})) << "an event posted by a handler waits for the next turn";
    for (int turn = 0; turn < 2; ++turn) Application::Reschedule();
    EXPECT_EQ(delivered, (Numbers{8, 9, 10}));

    onEvent = [](unsigned long id) {
        if (id == 1) Application::Reschedule();
        delivered.push_back(100 + id);
    };
    delivered.clear();
    for (unsigned long id : {1UL, 2UL}) Application::PostUserEvent(id, nullptr);
    Application::Reschedule();
    EXPECT_EQ(delivered, (Numbers{1, 2, 102, 101})) << "a nested turn delivers the rest";
}

TEST_F(ApplicationTest, ExecuteRunsUntilQuit) {
    Watchdog const watchdog;
    onEvent = [](unsigned long id) {
        EXPECT_TRUE(Application::IsInExecute());
        if (id == 2) Application::Quit();
        if (id == 3) throw 1;
    };
    for (unsigned long id : {1UL, 2UL}) Application::PostUserEvent(id, nullptr);
    Application::Execute();
    EXPECT_FALSE(Application::IsInExecute());
    EXPECT_EQ(delivered, (Numbers{1, 2}));
    Application::Quit();
    Application::Execute();  // returns at once

    Application::PostUserEvent(3, nullptr);
    EXPECT_THROW(Application::Execute(), int);
    EXPECT_FALSE(Application::IsInExecute());
}

TEST_F(ApplicationTest, ThreadsPostAndWake) {
    static constexpr unsigned long Threads = 4;
    static constexpr unsigned long Each = 2000;
    Watchdog const watchdog;
    onEvent = [](unsigned long) {
        if (delivered.size() == Threads * Each) Application::Quit();
    };
    std::vector<std::jthread> threads;
    for (unsigned long thread = 0; thread < Threads; ++thread) {
        threads.emplace_back([thread] {
            for (unsigned long i = 0; i < Each; ++i) Application::PostUserEvent(thread * Each + i, nullptr);
        });
    }
    Application::Execute();
    EXPECT_EQ(delivered.size(), Threads * Each);
    Numbers next(Threads, 0);
    for (unsigned long const id : delivered) EXPECT_EQ(id % Each, next[id / Each]++) << "order of one thread";
}

TEST_F(ApplicationTest, RunsIdleHandlersByPriority) {
    std::string log;
    Idler late{&log, 'l'};
    Idler early{&log, 'e'};
    Idler second{&log, 's'};
    Application::InsertIdleHdl(late.GetLink(), 9);
    Application::InsertIdleHdl(early.GetLink(), 1);
    Application::InsertIdleHdl(second.GetLink(), 1);
    Application::Reschedule();
    EXPECT_EQ(log, "esl");
    Application::PostUserEvent(1, nullptr);
    Application::Reschedule();
    EXPECT_EQ(log, "esl") << "something was pending";
    Application::RemoveIdleHdl(early.GetLink());
    Application::Reschedule();
    EXPECT_EQ(log, "eslsl");
    for (Idler* const idler : {&second, &late, &late}) Application::RemoveIdleHdl(idler->GetLink());

    log.clear();
    Idler busy{&log, 'b', 500};
    Application::InsertIdleHdl(busy.GetLink(), 1);
    auto const start = Clock::now();
    for (int i = 0; i < 500; ++i) Application::Reschedule();
    EXPECT_LT(MsSince(start), 1000.0) << "500 waits would take 2.5 s";
    EXPECT_EQ(log.size(), 500U);
    Application::RemoveIdleHdl(busy.GetLink());
}

TEST_F(ApplicationTest, IdleHandlersMayChangeTheListAndRunTheLoop) {
    std::string log;
    static Idler* inserted;
    Idler added{&log, 'a'};
    inserted = &added;
    Idler leaves{&log, 'x', 0, [](Idler& self) {
                     Application::RemoveIdleHdl(self.GetLink());
                     Application::InsertIdleHdl(inserted->GetLink(), 5);
                 }};
    Idler nests{&log, 'n', 0, [](Idler& self) {
                    Application::Reschedule();
                    *self.log += '.';
                    Application::RemoveIdleHdl(self.GetLink());
                    Application::InsertIdleHdl(self.GetLink(), 9);
                    self.action = nullptr;
                }};
    Application::InsertIdleHdl(leaves.GetLink(), 1);
    Application::InsertIdleHdl(nests.GetLink(), 2);
    Application::Reschedule();
    EXPECT_EQ(log, "xna.an") << "a nested turn skips the running handler";
    Application::RemoveIdleHdl(nests.GetLink());
    Application::RemoveIdleHdl(added.GetLink());
    Application::Reschedule();
    EXPECT_EQ(log, "xna.an") << "nothing remains";
}

TEST_F(ApplicationTest, WaitingTakesNoProcessorTime) {
    auto const start = Clock::now();
    double const processor = tests::ProcessorMs();
    int turns = 0;
    for (; MsSince(start) < 1000.0; ++turns) Application::Reschedule();
    EXPECT_GT(turns, 20) << "a few milliseconds per turn";
    EXPECT_LT(tests::ProcessorMs() - processor, 300.0) << "30 percent: a busy loop takes all";
}

// Holds one message, as a transport does between its arrival and its user event.
struct OnePlace {
    static inline std::string held;
    static inline int overwritten = 0;
    static inline Numbers taken;

    static void Put(std::string_view message) {
        if (!held.empty()) ++overwritten;
        held = message;
        Application::PostUserEvent(1, nullptr);
    }

    static void Take(unsigned long /*id*/, void* /*data*/) {
        unsigned long const number = std::stoul(std::exchange(held, {}));
        taken.push_back(number);
        // Some handlers wait in the loop.
        if (number % 7 == 0) Application::Reschedule();
        if (number % 100 == 0) Application::PostUserEvent(2, nullptr);
    }
};

TEST_F(ApplicationTest, AcceptsOneMessageBetweenTwoDeliveries) {
    static constexpr unsigned long Messages = 2000;
    Watchdog const watchdog;
    tests::RuntimeDirectory const directory;
    tests::DdeEndpoint receiver("r");
    tests::DdeEndpoint const sender("s");
    receiver.onPoke = [](platform::HCONV, std::string_view, std::string_view data) { OnePlace::Put(data); };
    Application::SetUserEventHdl([](unsigned long id, void* data) {
        if (id == 1) OnePlace::Take(id, data);
        if (OnePlace::taken.size() == Messages) Application::Quit();
    });
    platform::HCONV const conversation = sender.Connect("r");
    for (unsigned long i = 0; i < Messages; ++i) {
        ASSERT_TRUE(sender.Poke(conversation, "M", std::to_string(i)));
    }
    Application::Execute();
    EXPECT_EQ(OnePlace::overwritten, 0);
    ASSERT_EQ(OnePlace::taken.size(), Messages);
    for (unsigned long i = 0; i < Messages; ++i) EXPECT_EQ(OnePlace::taken[i], i);
}

}  // namespace
}  // namespace sv
