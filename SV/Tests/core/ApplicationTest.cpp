#include "Platform/Tests/DdeEndpoint.h"
#include "Platform/Tests/RuntimeDirectory.h"
#include "Platform/Tests/TestSystem.h"
#include "SV/core/Application.h"

#include <gtest/gtest.h>

#include <chrono>
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

// What the user event handler got; it has no object of its own.
Numbers delivered;
void (*onEvent)(unsigned long) = nullptr;

void UserEvent(unsigned long id, void* /*data*/) {
    delivered.push_back(id);
    if (onEvent != nullptr) onEvent(id);
}

class ApplicationTest : public testing::Test {
  protected:
    ApplicationTest() {
        delivered.clear();
        onEvent = nullptr;
        Application::SetUserEventHdl(&UserEvent);
    }
    ~ApplicationTest() override { Application::SetUserEventHdl(nullptr); }
};

// An idle handler that notes its name each time and has something to do `work` times.
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

TEST_F(ApplicationTest, UserEventsComeInOrderAndOneRoundAtATime) {
    for (unsigned long id : {3UL, 1UL, 2UL}) Application::PostUserEvent(id, nullptr);
    EXPECT_TRUE(delivered.empty()) << "nothing is delivered while posting";
    Application::Reschedule();
    EXPECT_EQ(delivered, (Numbers{3, 1, 2}));

    // One that posts itself again does not keep the loop from coming back.
    onEvent = [](unsigned long id) {
        if (id < 10) Application::PostUserEvent(id + 1, nullptr);
    };
    delivered.clear();
    Application::PostUserEvent(8, nullptr);
    Application::Reschedule();
    EXPECT_EQ(delivered, (Numbers{8}));
    Application::Reschedule();
    Application::Reschedule();
    EXPECT_EQ(delivered, (Numbers{8, 9, 10}));
}

TEST_F(ApplicationTest, ExecuteRunsUntilQuit) {
    EXPECT_FALSE(Application::IsInExecute());
    onEvent = [](unsigned long id) {
        EXPECT_TRUE(Application::IsInExecute());
        if (id == 2) Application::Quit();
    };
    for (unsigned long id : {1UL, 2UL}) Application::PostUserEvent(id, nullptr);
    Application::Execute();
    EXPECT_FALSE(Application::IsInExecute());
    EXPECT_EQ(delivered, (Numbers{1, 2}));

    Application::Quit();
    Application::Execute();
    SUCCEED() << "a program that fails while it starts ends at once";
}

TEST_F(ApplicationTest, AnExceptionLeavesExecuteInOrder) {
    onEvent = [](unsigned long) { throw 1; };
    Application::PostUserEvent(1, nullptr);
    EXPECT_THROW(Application::Execute(), int);
    EXPECT_FALSE(Application::IsInExecute());
}

TEST_F(ApplicationTest, ThreadsPostAndWake) {
    constexpr unsigned long Threads = 4;
    constexpr unsigned long Each = 2000;
    onEvent = [](unsigned long) {
        if (delivered.size() == Threads * Each) Application::Quit();
    };
    std::vector<std::thread> threads;
    for (unsigned long thread = 0; thread < Threads; ++thread) {
        threads.emplace_back([thread] {
            for (unsigned long i = 0; i < Each; ++i) Application::PostUserEvent(thread * Each + i, nullptr);
        });
    }
    Application::Execute();
    for (std::thread& thread : threads) thread.join();
    Numbers next(Threads, 0);
    for (unsigned long const id : delivered) EXPECT_EQ(id % Each, next[id / Each]++) << "order of one thread";
}

TEST_F(ApplicationTest, ANestedTurnDeliversTheRest) {
    onEvent = [](unsigned long id) {
        if (id == 1) Application::Reschedule();
        delivered.push_back(100 + id);
    };
    for (unsigned long id : {1UL, 2UL}) Application::PostUserEvent(id, nullptr);
    Application::Reschedule();
    EXPECT_EQ(delivered, (Numbers{1, 2, 102, 101}));
}

TEST_F(ApplicationTest, IdleHandlersByPriority) {
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
    Application::RemoveIdleHdl(second.GetLink());
    Application::RemoveIdleHdl(late.GetLink());
    Application::RemoveIdleHdl(late.GetLink());
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
                }};
    Application::InsertIdleHdl(leaves.GetLink(), 1);
    Application::InsertIdleHdl(nests.GetLink(), 2);
    Application::Reschedule();
    EXPECT_EQ(log, "xna.a") << "the one that runs is passed over by the nested turn";
    Application::RemoveIdleHdl(nests.GetLink());
    Application::RemoveIdleHdl(added.GetLink());
}

TEST_F(ApplicationTest, IdleHandlersWithWorkKeepTheLoopAwake) {
    std::string log;
    Idler busy{&log, 'b', 500};
    Application::InsertIdleHdl(busy.GetLink(), 1);
    auto const start = Clock::now();
    for (int i = 0; i < 500; ++i) Application::Reschedule();
    EXPECT_LT(MsSince(start), 1000.0) << "500 sleeps would take 2.5 s";
    EXPECT_EQ(log.size(), 500U);
    Application::RemoveIdleHdl(busy.GetLink());
}

TEST_F(ApplicationTest, WaitingTakesNoProcessorTime) {
    auto const start = Clock::now();
    double const processor = tests::ProcessorMs();
    int turns = 0;
    for (; MsSince(start) < 1000.0; ++turns) Application::Reschedule();
    EXPECT_GT(turns, 20) << "a few milliseconds a turn";
    EXPECT_LT(tests::ProcessorMs() - processor, 300.0) << "30 percent: a busy loop takes all";
}

// A place for one message, as a transport has it between the arrival and the user event.
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
        // Handlers that wait for something else take in more meanwhile.
        if (number % 7 == 0) Application::Reschedule();
        if (number % 100 == 0) Application::PostUserEvent(2, nullptr);
    }
};

TEST_F(ApplicationTest, OneMessageBetweenTwoDeliveries) {
    constexpr unsigned long Messages = 5000;
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
    Numbers sorted = OnePlace::taken;
    for (unsigned long i = 0; i < Messages; ++i) EXPECT_EQ(sorted[i], i);
}

}  // namespace

}  // namespace sv
