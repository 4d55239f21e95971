#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "KVUtils/Tests/messaging/PostOfficeFixture.h"
#include "Platform/Tests/TestSystem.h"
#include "SV/ui/Window.h"

#include <fstream>
#include <sstream>

using namespace std::string_literals;

namespace kv::messagingtest {
namespace {

class PostOfficeProtocolTest : public PostOfficeTest {
  public:
    /// Logs what was handled, as "sender message payload".
    long Log(KORVELEvent* event) {
        std::string const sender(event->GetSender().View());
        log.push_back(sender + " " + event->GetCommandName().GetStr() + " " + Bytes(event->GetData()));
        return 0;
    }
    /// Logs the beginning and the end, and takes the steps of the test in between.
    long LogSlowly(KORVELEvent* event) {
        log.push_back("begin " + Bytes(event->GetData()));
        for (auto const& step : std::exchange(steps, {})) {
            step();
            Settle();
        }
        log.push_back("end " + Bytes(event->GetData()));
        return 0;
    }
    long Throw(KORVELEvent* event) {
        LogSlowly(event);
        throw 1;
    }

  protected:
    Texts log;
    std::vector<std::function<void()>> steps;
};

std::string FromHex(std::string const& digits) {
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return bytes;
}

TEST_F(PostOfficeProtocolTest, AnswersAsTheTableSays) {
    if (tests::IsUnderWine()) GTEST_SKIP() << "the transport does not see under Wine that a peer has gone";
    std::ifstream table(KV_MESSAGING_TESTS "/protocol.tsv");
    int rows = 0;
    for (std::string line; std::getline(table, line);) {
        if (line.empty()) Open("BENCH");
        if (line.empty() || line[0] == '#') continue;
        ++rows;
        std::array<std::string, 6> cells;
        std::istringstream words(line);
        for (std::string& cell : cells) std::getline(words, cell, '\t');
        auto const& [client, message, payload, answer, language, box] = cells;
        Language::SetLanguageByCountryCode(1);
        boxes.seen.clear();
        EXPECT_EQ(Ask(client == "A" ? a : b, message, FromHex(payload)), Encoded(FromHex(answer))) << line;
        EXPECT_EQ(Language::IsJapanese() != 0, language == "81") << line;
        EXPECT_EQ(boxes.seen, box.empty() ? Texts{} : Texts{box}) << line;
    }
    EXPECT_GT(rows, 40);
}

TEST_F(PostOfficeProtocolTest, DoesNotAnswerAnswersToAnswers) {
    for (char const* const name : {"ANSWER!ANSWER!NOSUCH", "ANSWER!ANSWER!LOCK", "ANSWER!ANSWER"})
        a.Poke(name);
    a.Poke("ANSWER!LOCK");
    EXPECT_EQ(Ask(b, "IS_READY"), NotHandled);
    PumpAWhile();
    EXPECT_TRUE(a.received.empty());
}

TEST_F(PostOfficeProtocolTest, ALockMayDisableTheWindow) {
    sv::Window window(nullptr);
    RegisterTopWindow const inFront(&window);
    EXPECT_EQ(Ask(a, "LOCK", "\0"s), Done);
    EXPECT_TRUE(window.IsEnabled());
    EXPECT_FALSE(sv::Application::IsWait());
    EXPECT_EQ(Ask(a, "LOCK", "\x01"), Done);
    EXPECT_FALSE(window.IsEnabled());
    EXPECT_TRUE(sv::Application::IsWait());
    EXPECT_EQ(Ask(a, "UNLOCK"), Done);
    EXPECT_FALSE(window.IsEnabled());
    EXPECT_EQ(Ask(a, "UNLOCK"), Done);
    EXPECT_TRUE(window.IsEnabled());
    EXPECT_FALSE(sv::Application::IsWait());
}

TEST_F(PostOfficeProtocolTest, MessagesWaitForTheHandlerThatRuns) {
    Handle<&PostOfficeProtocolTest::LogSlowly>(SCAN_HQM, *this);
    Handle<&PostOfficeProtocolTest::Log>(MOVE_UP, *this);
    Handle<&PostOfficeProtocolTest::Log>(IS_READY, *this, 0);  // at once
    steps = {[this] {
        for (char const* const payload : {"1", "2", "3"}) b.Poke("MOVE_UP", payload);
        b.Poke("IS_READY");
    }};
    a.Poke("SCAN_HQM");
    Settle();
    EXPECT_EQ(log,
              (Texts{"begin ", "B_1 IS_READY ", "end ", "B_1 MOVE_UP 1", "B_1 MOVE_UP 2", "B_1 MOVE_UP 3"}));
}

TEST_F(PostOfficeProtocolTest, TheQueueOfAnUnlockedProgramIsEmptiedWithoutATestOfTheLock) {
    Handle<&PostOfficeProtocolTest::LogSlowly>(SCAN_HQM, *this);
    Handle<&PostOfficeProtocolTest::Log>(MOVE_UP, *this);
    steps = {[this] { b.Poke("MOVE_UP", "1"); }, [this] { a.Poke("LOCK"); }};
    a.Poke("SCAN_HQM");
    Settle();
    EXPECT_EQ(log, (Texts{"begin ", "end ", "B_1 MOVE_UP 1"}));
    EXPECT_EQ(Ask(b, "MOVE_UP"), Refused);
}

TEST_F(PostOfficeProtocolTest, MessagesThatTheLockHoldsBackRunInOrderWhenItIsReleased) {
    Handle<&PostOfficeProtocolTest::LogSlowly>(SCAN_HQM, *this);
    for (int const message : {MOVE_UP, LOCK, UNLOCK}) Handle<&PostOfficeProtocolTest::Log>(message, *this);
    // While a handler of A's runs, the lock is released, B's messages are queued, and A locks again.
    steps = {[this] { a.Poke("UNLOCK"); },
             [this] {
                 for (char const* const payload : {"1", "2"}) b.Poke("MOVE_UP", payload);
             },
             [this] { a.Poke("LOCK"); }};
    a.Poke("LOCK");
    a.Poke("SCAN_HQM");
    Settle();
    Texts expected = {"A_1 LOCK ", "begin ", "end ", "A_1 UNLOCK ", "A_1 LOCK "};
    EXPECT_EQ(log, expected);

    // The loop sleeps under the lock.
    double const before = tests::ProcessorMs();
    PumpAWhile(std::chrono::milliseconds(300));
    EXPECT_LT(tests::ProcessorMs() - before, 90.0) << "30 percent: a busy loop takes all";

    a.Poke("SCAN_HQM", "again");
    a.Poke("UNLOCK");
    Settle();
    expected.insert(expected.end(),
                    {"begin again", "end again", "B_1 MOVE_UP 1", "B_1 MOVE_UP 2", "A_1 UNLOCK "});
    EXPECT_EQ(log, expected);
}

TEST_F(PostOfficeProtocolTest, TheApplicationsLockHoldsNoMessageBack) {
    EXPECT_EQ(Ask(a, "LOCK"), Done);
    EXPECT_EQ(office->LockApplication(), 0);
    EXPECT_EQ(Ask(a, "UNLOCK"), Done);
    EXPECT_EQ(office->LockApplication(), 1);
    EXPECT_EQ(office->LockApplication(), 0);
    EXPECT_EQ(office->IsAppLocked(), 1);
    EXPECT_EQ(Ask(b, "IS_READY"), NotHandled);
    EXPECT_EQ(office->IsAppLocked(), 1);
    office->UnlockApplication();
    EXPECT_EQ(office->IsAppLocked(), 0);
    EXPECT_EQ(Ask(b, "IS_READY"), NotHandled);
    EXPECT_EQ(office->IsAppLocked(), 0);
}

TEST_F(PostOfficeProtocolTest, AHandlerThatThrowsLosesNoMessage) {
    for (bool const isLocked : {false, true}) {
        log.clear();
        if (isLocked) {
            EXPECT_EQ(Ask(a, "LOCK"), Done);
        }
        Handle<&PostOfficeProtocolTest::Throw>(SCAN_HQM, *this);
        Handle<&PostOfficeProtocolTest::Log>(MOVE_UP, *this);
        steps = {[this] {
            for (char const* const payload : {"1", "2"}) a.Poke("MOVE_UP", payload);
        }};
        a.Poke("SCAN_HQM");
        EXPECT_THROW(Execute(), int);
        EXPECT_EQ(log, (Texts{"begin ", "end "}));
        EXPECT_TRUE(PumpUntil([this] { return log.size() == 4; }));
        EXPECT_EQ(log, (Texts{"begin ", "end ", "A_1 MOVE_UP 1", "A_1 MOVE_UP 2"}));
    }
}

TEST_F(PostOfficeProtocolTest, TheServerExitsASecondAfterItsLastClient) {
    for (char const* const name : {"HQMSERV", "ZephyroServer"}) {
        Open(name);
        EXPECT_TRUE(office->IsHQMServer());
        EXPECT_EQ(office->GetAnzahlApp(), 0);
        EXPECT_EQ(Ask(a, "CONNECT", "\x02"), Encoded("\x02"));
        EXPECT_EQ(Ask(b, "CONNECT", "\x02"), Encoded("\x02"));
        EXPECT_EQ(Ask(a, "DISCONNECT"), Done);  // the other is still connected
        EXPECT_EQ(Ask(a, "IS_READY"), NotHandled);

        b.Poke("DISCONNECT");
        EXPECT_TRUE(IsServersEnd(Execute()));
        EXPECT_TRUE(PumpUntil([this] { return b.received.back().item == "ANSWER!DISCONNECT"; }));
    }
}

}  // namespace
}  // namespace kv::messagingtest
