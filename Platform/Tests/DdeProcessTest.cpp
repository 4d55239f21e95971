// Conversations between programs: nothing is lost, and a peer that is killed harms no other.
#include "Platform/Tests/DdeNumbered.h"
#include "Platform/Tests/DdeProcess.h"
#include "Platform/Tests/TestSystem.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

using tests::DdeEndpoint;
using tests::DdeProcessTest;
using tests::NumberedMessages;
using tests::PeerProcess;
using tests::RunUntil;

// On Windows a program's queue holds 10,000 messages, and a sender that does not wait is refused the rest;
// under Wine the queue is unlimited, and all of a burst must be handled. Elsewhere the sender queues what the
// receiver does not accept.
#ifdef _WIN32
constexpr unsigned long MessagesOfASender = 1'000;
constexpr char const* MessagesOfABurst = "3000";
constexpr int Kills = 20;
#else
constexpr unsigned long MessagesOfASender = 25'000;
constexpr char const* MessagesOfABurst = "1000000";
constexpr int Kills = 200;
#endif

TEST_F(DdeProcessTest, TwoProgramsConnectToEachOtherAtTheSameMoment) {
    DdeEndpoint starter("starter");
    int done = 0;
    starter.onPoke = [&](HCONV, std::string_view, std::string_view) { ++done; };
    PeerProcess const left = StartDdePeer({"mutual", "left", "right"});
    PeerProcess const right = StartDdePeer({"mutual", "right", "left"});
    std::array const conversations{ConnectWhenReady(starter, "left"), ConnectWhenReady(starter, "right")};
    for (int round = 1; round <= 50; ++round) {
        for (HCONV const conversation : conversations) ASSERT_TRUE(starter.Poke(conversation, "starter", ""));
        ASSERT_TRUE(RunUntil([&] { return done == 2 * round; })) << "round " << round;
    }
}

// Each sender exits while the system still holds much of what it sent.
TEST_F(DdeProcessTest, EightSendersLoseNothing) {
    constexpr unsigned long Senders = 8;
    DdeEndpoint receiver("sink");
    NumberedMessages messages;
    long residentEarly = 0;
    receiver.onPoke = [&](HCONV, std::string_view item, std::string_view data) {
        messages.Take(item, data);
        if (messages.Count() == MessagesOfASender) residentEarly = tests::ResidentKiB();
    };
    std::vector<PeerProcess> senders;
    for (unsigned long i = 0; i < Senders; ++i) {
        senders.push_back(StartDdePeer(
            {"send", "sink", "S" + std::to_string(i), std::to_string(MessagesOfASender), "1024"}));
    }
    EXPECT_TRUE(RunUntil([&] { return messages.Count() >= Senders * MessagesOfASender; }, 50'000))
        << messages.Count();
    for (PeerProcess const& sender : senders) EXPECT_TRUE(ExitsWith(sender, 0));
    EXPECT_EQ(messages.Faults(), 0U);
    for (unsigned long i = 0; i < Senders; ++i)
        EXPECT_EQ(messages.Count("S" + std::to_string(i)), MessagesOfASender);
    // One byte kept of each message would be 200 KiB; the allocator varies by more.
    long const growth = tests::ResidentKiB() - residentEarly;
    EXPECT_TRUE(!tests::MemoryIsMeasurable || growth < 1024) << growth << " KiB";
}

TEST_F(DdeProcessTest, SendersKilledInABurstHarmNoOther) {
    DdeEndpoint receiver("sink");
    NumberedMessages steady;
    NumberedMessages bursts;
    int disconnects = 0;
    receiver.onPoke = [&](HCONV, std::string_view item, std::string_view data) {
        (item == "steady" ? steady : bursts).Take(item, data);
    };
    receiver.onDisconnect = [&](HCONV) { ++disconnects; };
    PeerProcess const steadySender =
        StartDdePeer({"send", "sink", "steady", std::to_string(MessagesOfASender), "1024"});
    for (int kill = 0; kill < Kills; ++kill) {
        std::string const name = "burst" + std::to_string(kill);
        PeerProcess const sender = StartDdePeer({"send", "sink", name, MessagesOfABurst, "1024"});
        ASSERT_TRUE(RunUntil([&] { return bursts.Count(name) > static_cast<unsigned>(kill % 40); })) << name;
        sender->Kill();
    }
    // Wine does not end the conversation of a program that is killed.
    int const expected = tests::IsUnderWine() ? 1 : Kills + 1;
    EXPECT_TRUE(RunUntil([&] { return steady.Count() == MessagesOfASender && disconnects >= expected; }))
        << steady.Count() << " messages, " << disconnects << " disconnects";
    EXPECT_TRUE(ExitsWith(steadySender, 0));
    EXPECT_EQ(steady.Faults() + bursts.Faults(), 0U)
        << "the messages of a killed sender are whole and in order";
}

TEST_F(DdeProcessTest, AKilledServerIsFoundAgainAfterItsRestart) {
    constexpr int Rounds = 20;
    DdeEndpoint client("client");
    std::string echoed;
    client.onPoke = [&](HCONV, std::string_view, std::string_view data) { echoed = data; };
    for (int round = 0; round < Rounds; ++round) {
        PeerProcess const server = StartDdePeer({"echo", "server"});
        HCONV const conversation = ConnectWhenReady(client, "server");
        ASSERT_TRUE(client.Poke(conversation, "client", std::to_string(round)));
        ASSERT_TRUE(RunUntil([&] { return echoed == std::to_string(round); }));
        server->Kill();
        server->Wait();
        // Reported at once, before the loop could notice: this makes a sender look for the next server.
        EXPECT_FALSE(client.Poke(conversation, "client", "lost"));
        EXPECT_EQ(client.Connect("server"), nullptr);
    }
    if (tests::IsUnderWine()) GTEST_SKIP() << "Wine does not report that a peer was killed";
    auto const disconnects = [&] { return std::ranges::count(client.Log(), "disconnect"); };
    // Each round ended two conversations, one in each direction.
    EXPECT_TRUE(RunUntil([&] { return disconnects() == 2 * Rounds; })) << disconnects();
}

}  // namespace

}  // namespace platform
