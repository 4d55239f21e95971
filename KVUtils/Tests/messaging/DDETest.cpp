#include "KVUtils/Source/messaging/DDE.h"
#include "KVUtils/Tests/messaging/MessagingSupport.h"
#include "Platform/Tests/TestSystem.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace std::string_literals;

namespace kv::messagingtest {
namespace {

std::vector<Poked> received;
std::vector<std::string> executed;

std::string Content(KORVELEvent const& event) {
    MyMemoryBlock data = event.GetData();
    return {data.GetDatenZeiger(), static_cast<std::size_t>(data.Len())};
}

void Keep(KORVELEvent& event) {
    received.push_back(
        {std::string(event.GetSender().View()), std::string(event.GetCommandName().View()), Content(event)});
}

/// Handles a message for so long that the next one comes in meanwhile.
void KeepSlowly(KORVELEvent& event) {
    bool const isFirst = received.empty();
    Keep(event);
    if (isFirst) PumpUntil([] { return received.size() > 1; });
    EXPECT_EQ(event.GetSender(), "PEER_1");  // it is not the slot's any more
}

class DDETest : public testing::Test {
  protected:
    DDETest() {
        received.clear();
        executed.clear();
        dde->SetReceiveFunction(&Keep);
        sv::Application::SetUserEventHdl(&DDE::UserEvent);
    }
    ~DDETest() override { sv::Application::SetUserEventHdl(nullptr); }

    static bool Arrived(std::size_t count) {
        return PumpUntil([=] { return received.size() >= count; });
    }
    unsigned char Send(char const* target, char const* item, std::string_view bytes) {
        return dde->Send(target, item, bytes.data(), static_cast<long>(bytes.size()));
    }
    /// Runs the application's loop, in which messages come by user events, until so many are there.
    void RunUntilReceived(std::size_t count) {
        expected_ = count;
        sv::Link const watch = sv::Link::To<&DDETest::QuitWhenAllAreThere>(*this);
        sv::Application::InsertIdleHdl(watch, 5);
        sv::Application::Execute();
        sv::Application::RemoveIdleHdl(watch);
    }
    long QuitWhenAllAreThere(void* /*sender*/) {
        if (received.size() >= expected_) sv::Application::Quit();
        return 0;
    }

    PrivateDesktop desktop;
    std::unique_ptr<DDE> dde = std::make_unique<DDE>("BENCH");
    BoxLog boxes;

  private:
    std::size_t expected_ = 0;
};

TEST_F(DDETest, SendsTheInstanceNameInFrontAndKeepsTheConversation) {
    DdePeer<0> peer("PEER_1");
    std::string const payloads[] = {"abc", "", "a:b", std::string(100000, 'x')};
    for (std::string const& payload : payloads) EXPECT_EQ(Send("PEER_1", "NEW_FORMULA", payload), 1);
    ASSERT_TRUE(PumpUntil([&] { return peer.received.size() == 4; }));
    EXPECT_EQ(peer.connects, 1);
    for (std::size_t i = 0; i < 4; ++i) {
        std::string const sender = peer.received[i].sender;
        EXPECT_EQ(sender.substr(0, 6), "BENCH_");
        EXPECT_TRUE(sv::String(sender.substr(6)).IsNumeric()) << sender;
        EXPECT_EQ(peer.received[i].item, "NEW_FORMULA");
        EXPECT_EQ(peer.received[i].payload, payloads[i]);
    }
    // The instance name leads back to this very process.
    EXPECT_TRUE(peer.Connect(peer.received[0].sender));
}

TEST_F(DDETest, AcceptsItsTopicsOnItsServiceOnly) {
    DdePeer<0> peer("PEER_1", "KORVEL_other");
    EXPECT_TRUE(peer.Connect("BENCH"));
    EXPECT_TRUE(peer.Connect("bench"));
    EXPECT_FALSE(peer.Connect("PRESS"));
    EXPECT_FALSE(peer.Connect("BENCH_1"));
    EXPECT_FALSE(peer.Connect("BENCH", "KORVEL_professional"));
    EXPECT_FALSE(peer.Connect("BENCH", "KORVEL_other"));  // peers do not answer to everything
}

TEST_F(DDETest, DividesWhatComesInAtTheFirstColon) {
    struct {
        std::string bytes;
        Poked expected;
    } const rows[] = {
        {"A_1:xyz", {"A_1", "LOCK", "xyz"}},   {"A_1:", {"A_1", "LOCK", ""}},
        {"A_1:a:b:", {"A_1", "LOCK", "a:b:"}}, {":x", {"", "LOCK", "x"}},
        {"nobody", {"nobody", "LOCK", ""}},    {"A_1:\x01\x0A\xFF", {"A_1", "LOCK", "\x01\x0A\xFF"}},
    };
    DdePeer<0> peer("PEER_1");
    ASSERT_TRUE(peer.Connect("BENCH"));
    for (auto const& row : rows) {
        received.clear();
        peer.PokeRaw("LOCK", row.bytes);
        ASSERT_TRUE(Arrived(1)) << row.bytes;
        EXPECT_EQ(received.front(), row.expected) << row.bytes;
    }
}

TEST_F(DDETest, CutsNamesTo39Characters) {
    DdePeer<0> peer("PEER_1");
    ASSERT_TRUE(peer.Connect("BENCH"));
    peer.Poke(std::string(39, 'N') + "ext");
    ASSERT_TRUE(Arrived(1));
    EXPECT_EQ(received[0].item, std::string(39, 'N'));
}

TEST_F(DDETest, DecodesBeforeItDelivers) {
    dde.reset();
    dde =
        std::make_unique<DDE>("BENCH", DDEServices{[](MyMemoryBlock& payload) { payload << '!'; }, nullptr});
    dde->SetReceiveFunction(&Keep);
    EXPECT_EQ(Send("BENCH", "LOCK", "ab"), 1);  // a program reaches itself
    ASSERT_TRUE(Arrived(1));
    EXPECT_EQ(received[0].payload, "ab!");
}

TEST_F(DDETest, FindsAPeerThatWasStartedAgain) {
    {
        DdePeer<0> peer("PEER_1");
        EXPECT_EQ(Send("PEER_1", "LOCK", "1"), 1);
        ASSERT_TRUE(PumpUntil([&] { return peer.received.size() == 1; }));
    }
    EXPECT_EQ(Send("PEER_1", "LOCK", "2"), 0);
    DdePeer<0> again("PEER_1");
    EXPECT_EQ(Send("PEER_1", "LOCK", "3"), 1);
    ASSERT_TRUE(PumpUntil([&] { return again.received.size() == 1; }));
    EXPECT_EQ(again.received[0].payload, "3");
}

TEST_F(DDETest, EndsItsConversationsWithItself) {
    DdePeer<0> peer("PEER_1");
    ASSERT_TRUE(peer.Connect("BENCH"));
    EXPECT_EQ(Send("PEER_1", "LOCK", "last"), 1);
    PumpAWhile();
    dde.reset();
    EXPECT_TRUE(PumpUntil([&] { return peer.disconnects >= 1; }));
    EXPECT_EQ(peer.received.size(), 1U);
    if (tests::IsUnderWine()) GTEST_SKIP() << "Wine ends no conversation from the server's side";
    EXPECT_TRUE(PumpUntil([&] { return peer.disconnects == 2; }));
    EXPECT_FALSE(peer.Connect("BENCH"));
}

TEST_F(DDETest, HandsExecutionsOnOnceThereIsAFunction) {
    DdePeer<0> peer("PEER_1");
    ASSERT_TRUE(peer.Connect("BENCH"));
    peer.Execute("too early");
    PumpAWhile();
    dde->SetExecuteFunction(
        [](unsigned char* command) { executed.emplace_back(reinterpret_cast<char*>(command)); });
    peer.Execute("[open]");
    peer.Execute(std::string(600, 'x'));
    ASSERT_TRUE(PumpUntil([] { return executed.size() == 2; }));
    EXPECT_EQ(executed[0], "[open]");
    EXPECT_EQ(executed[1], std::string(500, 'x'));
}

TEST_F(DDETest, ForeignServicesGetTheBytesAlone) {
    DdePeer<0> other("tint_blending", "KORVEL_professional");
    EXPECT_EQ(dde->Send("KORVEL_professional", "formula", "abc", 3, "tint_blending"), 1);
    ASSERT_TRUE(PumpUntil([&] { return other.received.size() == 1; }));
    EXPECT_EQ(other.received[0], (Poked{"abc", "formula", ""}));
}

TEST_F(DDETest, LosesNothingOfABurstWhileTheLoopRuns) {
    constexpr std::size_t Count = 500;
    DdePeer<0> first("PEER_1");
    DdePeer<1> second("PEER_2");
    ASSERT_TRUE(first.Connect("BENCH"));
    ASSERT_TRUE(second.Connect("BENCH"));
    for (std::size_t i = 0; i < Count; ++i) {
        first.Poke("LOCK", std::to_string(i));
        second.Poke("LOCK", std::to_string(i));
    }
    RunUntilReceived(2 * Count);
    std::size_t next[2] = {0, 0};
    for (Poked const& message : received) {
        std::size_t& number = next[message.sender == "PEER_1" ? 0 : 1];
        ASSERT_EQ(message.payload, std::to_string(number++));
    }
    EXPECT_EQ(next[0], Count);
    EXPECT_EQ(next[1], Count);
}

TEST_F(DDETest, AMessageInTheSlotIsReplacedByTheNext) {
    // An application that swallows the user event leaves the message where it is.
    sv::Application::SetUserEventHdl([](unsigned long, void*) {
        static int taken = 0;
        if (++taken == 2) sv::Application::Quit();
    });
    DdePeer<0> peer("PEER_1");
    ASSERT_TRUE(peer.Connect("BENCH"));
    peer.Poke("LOCK", "first");
    peer.Poke("LOCK", "second");
    sv::Application::Execute();
    EXPECT_TRUE(received.empty());

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
        DdePeer<0> peer("PEER_1");
        ASSERT_TRUE(peer.Connect("BENCH"));
        for (char const* const payload : {"1", "2", "3"}) peer.Poke("LOCK", payload);
        if (loopRuns) {
            RunUntilReceived(3);
        } else {
            ASSERT_TRUE(Arrived(3));
        }
        EXPECT_EQ(received[0].payload, "1");
        EXPECT_EQ(received[1].payload, "2");
        EXPECT_EQ(received[2].payload, "3");
    }
}

TEST_F(DDETest, ThereIsOneInAProcess) {
    {
        DDE second("SECOND");
        EXPECT_EQ(boxes.seen,
                  (std::vector<std::string>{"error: Es kann nur Einen geben.  (von der Klasse DDE)"}));
        EXPECT_EQ(second.Send("BENCH", "LOCK", "x", 1), 0);
        sv::Application::Execute();  // returns, since the application was told to quit
    }
    EXPECT_EQ(Send("BENCH", "LOCK", "x"), 1);
    EXPECT_TRUE(Arrived(1));
}

TEST_F(DDETest, CopiesSendAndOwnNothing) {
    DdePeer<0> peer("PEER_1");
    {
        DDE copy = *dde;
        EXPECT_EQ(copy.Send("PEER_1", "LOCK", "x", 1), 1);
    }
    DDE copy = *dde;
    dde.reset();
    EXPECT_EQ(copy.Send("PEER_1", "LOCK", "x", 1), 0);
    EXPECT_TRUE(PumpUntil([&] { return peer.disconnects == 1; }));
    EXPECT_EQ(peer.received.size(), 1U);
}

TEST_F(DDETest, RefusesWhatCannotTravel) {
    DdePeer<0> peer("PEER_1");
    EXPECT_EQ(Send("PEER_1", "", "x"), 0);
    EXPECT_EQ(Send("", "LOCK", "x"), 0);
    EXPECT_EQ(Send("PEER_1", "LOCK", "before"), 1);
    EXPECT_EQ(Send("PEER_1", "LOCK", std::string(platform::DdeLargestData + 1, 'x')), 0);
    EXPECT_EQ(Send("PEER_1", "LOCK", "behind"), 1);
    ASSERT_TRUE(PumpUntil([&] { return peer.received.size() == 2; }));
    EXPECT_EQ(peer.connects, 1);  // no conversation was given up for it
}

TEST_F(DDETest, StartsATargetInItsDirectory) {
    static std::vector<std::string> asked;
    asked.clear();
    dde.reset();
    dde = std::make_unique<DDE>("BENCH", DDEServices{nullptr, [](sv::String const& program) {
                                                         asked.emplace_back(program.View());
                                                         return std::optional(sv::String("/nowhere"));
                                                     }});
    EXPECT_EQ(Send("NO_SUCH_PROGRAM", "LOCK", "x"), 0);
    EXPECT_EQ(dde->Send("a service", "LOCK", "x", 1, "NO_SUCH_TOPIC"), 0);
    EXPECT_EQ(asked, (std::vector<std::string>{"NO_SUCH_PROGRAM", "NO_SUCH_TOPIC"}));
    EXPECT_TRUE(boxes.seen.empty());
}

}  // namespace
}  // namespace kv::messagingtest
