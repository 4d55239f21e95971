#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "KVUtils/Tests/messaging/PostOfficeFixture.h"
#include "Platform/Tests/TestSystem.h"
#include "SV/ui/Window.h"

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

TEST_F(PostOfficeProtocolTest, ConnectAgreesOnAVersionAndALanguage) {
    struct {
        std::string payload;
        char answer;
        bool readsLanguage;
    } const rows[] = {
        {"\x03\x51\0"s, 3, true},   {"\x02\x51\0"s, 2, false},
        {"\x01", 1, false},         {"\0\x02"s, 2, false},
        {"\0\x03\x51\0"s, 3, true}, {"\x07\x51\0"s, 3, true},
        {"\xFF\x51\0"s, 3, true},   {"", 0, false},
        {"\0\0"s, 0, false},        {"\0\0\x51\0"s, 0, false},
        {"\0"s, 3, false},  // the surplus byte of decoding is taken for a version
    };
    for (auto const& row : rows) {
        Language::SetLanguageByCountryCode(1);
        EXPECT_EQ(Ask(a, "CONNECT", row.payload), Encoded(std::string(1, row.answer))) << int{row.answer};
        EXPECT_EQ(Language::IsJapanese() != 0, row.readsLanguage) << int{row.answer};
    }
}

TEST_F(PostOfficeProtocolTest, AnswersWhatHasNoHandler) {
    struct {
        char const* message;
        std::string answer;
        char const* box;
    } const rows[] = {
        {"LOCK", Done, nullptr},
        {"UNLOCK", Done, nullptr},
        {"DISCONNECT", Done, nullptr},
        {"CANCEL_REQUEST", NotHandled, nullptr},
        {"FILE_READ_FROM_FILE", NotHandled, nullptr},
        {"NOSUCH", Refused, "info: The command NOSUCHis not implemented!"},
        {"connect", Refused, "info: The command connectis not implemented!"},
        {"ANZAHL_BOTSCHAFTEN", Refused, "info: The command ANZAHL_BOTSCHAFTENis not implemented!"},
        {"ANSWER!NOSUCH", Refused, "info: The command NOSUCHis not implemented!"},
        {"ANSWER!", Refused, nullptr},
    };
    for (auto const& row : rows) {
        boxes.seen.clear();
        EXPECT_EQ(Ask(a, row.message), row.answer) << row.message;
        if (row.box == nullptr) {
            EXPECT_TRUE(boxes.seen.empty()) << row.message;
        } else {
            EXPECT_EQ(boxes.seen, (Texts{row.box})) << row.message;
        }
    }
}

TEST_F(PostOfficeProtocolTest, DoesNotAnswerAnswersToAnswers) {
    a.Poke("ANSWER!ANSWER!NOSUCH");
    a.Poke("ANSWER!LOCK");
    EXPECT_EQ(Ask(b, "IS_READY"), NotHandled);
    PumpAWhile();
    EXPECT_TRUE(a.received.empty());
}

TEST_F(PostOfficeProtocolTest, AClientThatHoldsTheLockKeepsTheOthersOut) {
    Handle<&PostOfficeProtocolTest::Log>(SCAN_HQM, *this);
    EXPECT_EQ(Ask(a, "LOCK", "\0"s), Done);
    EXPECT_EQ(Ask(a, "LOCK"), Done);
    for (char const* const message : {"SCAN_HQM", "LOCK", "UNLOCK", "DISCONNECT"}) {
        EXPECT_EQ(Ask(b, message), Refused) << message;
    }
    EXPECT_EQ(Ask(b, "CONNECT", "\x02"), Encoded("\x02"));  // not subject to the lock
    EXPECT_EQ(office->LockApplication(), 0);

    EXPECT_EQ(Ask(a, "UNLOCK"), Done);  // one of two
    EXPECT_EQ(Ask(b, "SCAN_HQM"), Refused);
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(Ask(a, "UNLOCK"), Done);
    b.Poke("SCAN_HQM");
    EXPECT_TRUE(PumpUntil([this] { return !log.empty(); }));
    EXPECT_EQ(log, (Texts{"B_1 SCAN_HQM "}));  // the refused ones are dropped
}

TEST_F(PostOfficeProtocolTest, AnUnlockTooManyCounts) {
    EXPECT_EQ(Ask(a, "UNLOCK"), Done);
    EXPECT_EQ(Ask(a, "LOCK"), Done);
    EXPECT_EQ(Ask(a, "UNLOCK"), Done);
    EXPECT_EQ(Ask(b, "IS_READY"), Refused);
    EXPECT_EQ(Ask(a, "LOCK"), Done);
    EXPECT_EQ(Ask(a, "LOCK"), Done);
    EXPECT_EQ(Ask(a, "UNLOCK"), Done);
    EXPECT_EQ(Ask(b, "IS_READY"), NotHandled);
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
        EXPECT_THROW(sv::Application::Execute(), int);
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
        auto const start = std::chrono::steady_clock::now();
        sv::Application::Execute();
        EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
        EXPECT_TRUE(PumpUntil([this] { return b.received.back().item == "ANSWER!DISCONNECT"; }));
    }
}

TEST_F(PostOfficeProtocolTest, OtherProgramsOutliveTheirClients) {
    EXPECT_EQ(Ask(a, "DISCONNECT"), Done);
    EXPECT_EQ(Ask(a, "DISCONNECT"), Done);
    EXPECT_EQ(Ask(a, "IS_READY"), NotHandled);
}

}  // namespace
}  // namespace kv::messagingtest
