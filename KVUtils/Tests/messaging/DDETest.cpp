#include "KVUtils/Source/messaging/DDE.h"
#include "KVUtils/Tests/messaging/MessagingSupport.h"
#include "Platform/Tests/TestSystem.h"

#include <memory>
#include <optional>

using namespace std::string_literals;

namespace kv::messagingtest {
namespace {

std::vector<Poked> received;
Texts executed;

void Keep(KORVELEvent& event) {
    MyMemoryBlock data = event.GetData();
    received.push_back({std::string(event.GetSender().View()), std::string(event.GetCommandName().View()),
                        std::string(data.GetDatenZeiger(), static_cast<std::size_t>(data.Len()))});
}

/// Handles a message for so long that the next one comes in.
void KeepSlowly(KORVELEvent& event) {
    bool const isFirst = received.empty();
    Keep(event);
    if (isFirst) {
        EXPECT_TRUE(PumpUntil([] { return received.size() > 1; }));
    }
    EXPECT_EQ(event.GetSender(), "PEER_1");  // it left the slot
}

class DDETest : public testing::Test {
  protected:
    DDETest() {
        received.clear();
        executed.clear();
        Open({});
        sv::Application::SetUserEventHdl(&DDE::UserEvent);
    }
    ~DDETest() override { sv::Application::SetUserEventHdl(nullptr); }

    void Open(DDEServices const& services) {
        dde.reset();
        dde = std::make_unique<DDE>("BENCH", services);
        dde->SetReceiveFunction(&Keep);
    }
    static bool Arrived(std::size_t count) {
        return PumpUntil([=] { return received.size() >= count; });
    }
    unsigned char Send(char const* target, char const* item, std::string_view bytes) {
        return dde->Send(target, item, bytes.data(), static_cast<long>(bytes.size()));
    }
    /// Runs the application's loop, in which user events deliver the messages, until the condition holds.
    void RunUntil(std::function<bool()> condition) {
        condition_ = std::move(condition);
        sv::Link const watch = sv::Link::To<&DDETest::QuitHdl>(*this);
        sv::Application::InsertIdleHdl(watch, 5);
        Execute();
        sv::Application::RemoveIdleHdl(watch);
        ASSERT_TRUE(condition_());
    }
    long QuitHdl(void* /*sender*/) {
        if (condition_()) sv::Application::Quit();
        return 0;
    }

    tests::RuntimeDirectory desktop;
    BoxLog boxes;
    std::unique_ptr<DDE> dde;

  private:
    std::function<bool()> condition_;
};

TEST_F(DDETest, SendsItsInstanceNameAndKeepsTheConversation) {
    Peer peer("PEER_1");
    Texts const payloads = {"abc", "", "a:b", std::string(100000, 'x')};
    for (std::string const& payload : payloads) EXPECT_EQ(Send("PEER_1", "NEW_FORMULA", payload), 1);
    ASSERT_TRUE(peer.Receives(4));
    EXPECT_EQ(peer.Connects(), 1);
    std::string const sender = peer.received[0].sender;
    EXPECT_EQ(sender.substr(0, 6), "BENCH_");
    EXPECT_TRUE(sv::String(sender.substr(6)).IsNumeric()) << sender;
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(peer.received[i], (Poked{sender, "NEW_FORMULA", payloads[i]}));
    }
    EXPECT_TRUE(peer.Connect(sender));  // leads back to this process
}

TEST_F(DDETest, AcceptsItsTopicsOnItsServiceOnly) {
    Peer peer("PEER_1", "KORVEL_other");
    EXPECT_TRUE(peer.Connect("BENCH"));
    EXPECT_TRUE(peer.Connect("bench"));
    EXPECT_FALSE(peer.Connect("PRESS"));
    EXPECT_FALSE(peer.Connect("BENCH_1"));
    EXPECT_FALSE(peer.Connect("BENCH", "KORVEL_professional"));
}

TEST_F(DDETest, KnowsWhoCanBeReached) {
    Peer const peer("PEER_1");
    EXPECT_TRUE(DDE::IsReachable("PEER_1"));
    EXPECT_FALSE(DDE::IsReachable("NO_SUCH_PROGRAM"));
    dde.reset();
    EXPECT_TRUE(DDE::IsSupported());
    EXPECT_TRUE(DDE::IsReachable("PEER_1"));
    EXPECT_FALSE(DDE::IsReachable("BENCH"));
}

TEST_F(DDETest, DividesAtTheFirstColonAndCutsNamesTo39Characters) {
    std::string const name(39, 'N');
    struct {
        std::string item;
        std::string bytes;
        Poked expected;
    } const rows[] = {
        {"LOCK", "A_1:xyz", {"A_1", "LOCK", "xyz"}},           {"LOCK", "A_1:", {"A_1", "LOCK", ""}},
        {"LOCK", "A_1:a:b:", {"A_1", "LOCK", "a:b:"}},         {"LOCK", ":x", {"", "LOCK", "x"}},
        {"LOCK", "no colon", {"no colon", "LOCK", ""}},        {name + "ext", "A_1:", {"A_1", name, ""}},
        {"LOCK", "A_1:\x01\xFF", {"A_1", "LOCK", "\x01\xFF"}},
    };
    Peer peer("PEER_1");
    ASSERT_TRUE(peer.Connect("BENCH"));
    for (auto const& row : rows) {
        received.clear();
        peer.PokeRaw(row.item, row.bytes);
        ASSERT_TRUE(Arrived(1)) << row.bytes;
        EXPECT_EQ(received.front(), row.expected) << row.bytes;
    }
}

TEST_F(DDETest, FindsAPeerThatWasStartedAgain) {
    {
        Peer const peer("PEER_1");
        EXPECT_EQ(Send("PEER_1", "LOCK", "1"), 1);
        ASSERT_TRUE(peer.Receives(1));
    }
    EXPECT_EQ(Send("PEER_1", "LOCK", "2"), 0);
    Peer const again("PEER_1");
    EXPECT_EQ(Send("PEER_1", "LOCK", "3"), 1);
    ASSERT_TRUE(again.Receives(1));
    EXPECT_EQ(again.received[0].payload, "3");
}

TEST_F(DDETest, EndsItsConversationsWithItself) {
    Peer peer("PEER_1");
    ASSERT_TRUE(peer.Connect("BENCH"));
    EXPECT_EQ(Send("PEER_1", "LOCK", "last"), 1);
    PumpAWhile();
    dde.reset();
    EXPECT_TRUE(PumpUntil([&] { return peer.Disconnects() >= 1; }));
    EXPECT_EQ(peer.received.size(), 1U);
    if (tests::IsUnderWine()) GTEST_SKIP() << "Wine ends no conversation from the server's side";
    EXPECT_TRUE(PumpUntil([&] { return peer.Disconnects() == 2; }));
    EXPECT_FALSE(peer.Connect("BENCH"));
}

TEST_F(DDETest, PassesExecutionsOnOnceThereIsAFunction) {
    Peer peer("PEER_1");
    ASSERT_TRUE(peer.Connect("BENCH"));
    peer.Execute("too early");
    PumpAWhile();
    dde->SetExecuteFunction(
        [](unsigned char* command) { executed.emplace_back(reinterpret_cast<char*>(command)); });
    peer.Execute("[open]");
    peer.Execute(std::string(600, 'x'));
    ASSERT_TRUE(PumpUntil([] { return executed.size() == 2; }));
    EXPECT_EQ(executed, (Texts{"[open]", std::string(500, 'x')}));
}

TEST_F(DDETest, OtherServicesGetTheBytesAlone) {
    Peer const other("tint_blending", "KORVEL_professional");
    EXPECT_EQ(dde->Send("KORVEL_professional", "formula", "abc", 3, "tint_blending"), 1);
    ASSERT_TRUE(other.Receives(1));
    EXPECT_EQ(other.received[0], (Poked{"abc", "formula", ""}));
}

TEST_F(DDETest, LosesNothingOfABurstWhileTheLoopRuns) {
    constexpr std::size_t Count = 500;
    Peer first("PEER_1");
    Peer second("PEER_2");
    ASSERT_TRUE(first.Connect("BENCH"));
    ASSERT_TRUE(second.Connect("BENCH"));
    for (std::size_t i = 0; i < Count; ++i) {
        first.Poke("LOCK", std::to_string(i));
        second.Poke("LOCK", std::to_string(i));
    }
    RunUntil([] { return received.size() == 2 * Count; });
    std::size_t next[2] = {0, 0};
    for (Poked const& message : received) {
        std::size_t& number = next[message.sender == "PEER_1" ? 0 : 1];
        ASSERT_EQ(message.payload, std::to_string(number++));
    }
}

TEST_F(DDETest, AMessageInTheSlotIsReplacedByTheNext) {
    // An application that does not deliver the user event leaves the message in the slot.
    static int taken;
    taken = 0;
    sv::Application::SetUserEventHdl([](unsigned long, void*) { ++taken; });
    Peer peer("PEER_1");
    ASSERT_TRUE(peer.Connect("BENCH"));
    peer.Poke("LOCK", "first");
    peer.Poke("LOCK", "second");
    RunUntil([] { return taken == 2; });
    DDE::UserEvent(1233, nullptr);
    EXPECT_TRUE(received.empty());
    DDE::UserEvent(DDE::UserEventId, nullptr);
    ASSERT_EQ(received.size(), 1U);
    EXPECT_EQ(received[0].payload, "second");
    DDE::UserEvent(DDE::UserEventId, nullptr);  // the slot is empty
    EXPECT_EQ(received.size(), 1U);
}

TEST_F(DDETest, AMessageThatComesInWhileOneIsHandledIsDeliveredToo) {
    for (bool const loopRuns : {false, true}) {
        received.clear();
        dde->SetReceiveFunction(&KeepSlowly);
        Peer peer("PEER_1");
        ASSERT_TRUE(peer.Connect("BENCH"));
        for (char const* const payload : {"1", "2", "3"}) peer.Poke("LOCK", payload);
        if (loopRuns) {
            RunUntil([] { return received.size() == 3; });
        } else {
            ASSERT_TRUE(Arrived(3));
        }
        for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(received.at(i).payload, std::to_string(i + 1));
    }
}

TEST_F(DDETest, ThereIsOneInAProcess) {
    {
        DDE second("SECOND");
        EXPECT_EQ(boxes.seen, (Texts{"error: Es kann nur Einen geben.  (von der Klasse DDE)"}));
        EXPECT_EQ(second.Send("BENCH", "LOCK", "x", 1), 0);
        Execute();  // returns, since the application was told to quit
    }
    EXPECT_EQ(Send("BENCH", "LOCK", "x"), 1);
    EXPECT_TRUE(Arrived(1));
}

TEST_F(DDETest, CopiesSendAndOwnNothing) {
    Peer const peer("PEER_1");
    {
        DDE copy = *dde;
        EXPECT_EQ(copy.Send("PEER_1", "LOCK", "x", 1), 1);
    }
    DDE copy = *dde;
    dde.reset();
    EXPECT_EQ(copy.Send("PEER_1", "LOCK", "x", 1), 0);
    EXPECT_TRUE(PumpUntil([&] { return peer.Disconnects() == 1; }));
    EXPECT_EQ(peer.received.size(), 1U);
}

TEST_F(DDETest, RefusesWhatCannotTravel) {
    Peer const peer("PEER_1");
    EXPECT_EQ(Send("PEER_1", "", "x"), 0);
    EXPECT_EQ(Send("", "LOCK", "x"), 0);
    EXPECT_EQ(Send("PEER_1", "LOCK", "before"), 1);
    EXPECT_EQ(Send("PEER_1", "LOCK", std::string(platform::DdeLargestData + 1, 'x')), 0);
    EXPECT_EQ(Send("PEER_1", "LOCK", "after"), 1);
    ASSERT_TRUE(peer.Receives(2));
    EXPECT_EQ(peer.Connects(), 1);  // the conversation was kept
}

TEST_F(DDETest, AsksForTheDirectoryOfAProgramThatItStarts) {
    static Texts asked;
    asked.clear();
    Open({.directoryOf = [](sv::String const& program) {
        asked.emplace_back(program.View());
        return std::optional(sv::String("/nowhere"));
    }});
    EXPECT_EQ(Send("NO_SUCH_PROGRAM", "LOCK", "x"), 0);
    EXPECT_EQ(dde->Send("a service", "LOCK", "x", 1, "NO_SUCH_TOPIC"), 0);
    EXPECT_EQ(asked, (Texts{"NO_SUCH_PROGRAM", "NO_SUCH_TOPIC"}));
    EXPECT_TRUE(boxes.seen.empty());
}

}  // namespace
}  // namespace kv::messagingtest
