// Conversations between real programs: what must not get lost, and what a peer may do without harm to others.
#include "Platform/Tests/DdeEndpoint.h"
#include "Platform/Tests/DdeNumbered.h"
#include "Platform/Tests/DdeProcess.h"
#include "Platform/Tests/TestSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace platform {

namespace {

using tests::DdeEndpoint;
using tests::DdeProcessTest;
using tests::NumberedMessages;
using tests::PeerProcess;
using tests::RunUntil;

// On Windows a program's queue holds 10,000 messages, and a sender that does not wait for answers is refused
// what is beyond; under Wine it holds any number, and all of a burst is to be worked off. Elsewhere the
// sender keeps what the receiver does not take.
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
        for (HCONV const conversation : conversations) {
            ASSERT_TRUE(starter.Poke(conversation, "starter", "")) << "round " << round;
        }
        ASSERT_TRUE(RunUntil([&] { return done == 2 * round; })) << "round " << round;
    }
}

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
    EXPECT_TRUE(RunUntil([&] { return messages.Count() >= Senders * MessagesOfASender; }, 60'000))
        << messages.Count();
    for (PeerProcess const& sender : senders) EXPECT_TRUE(EndsWith(sender, 0));
    EXPECT_EQ(messages.Faults(), 0U);
    for (unsigned long i = 0; i < Senders; ++i) {
        EXPECT_EQ(messages.Count("S" + std::to_string(i)), MessagesOfASender);
    }
    // Room for the allocator's moods; one byte kept of each message would be 200 KiB.
    long const growth = tests::ResidentKiB() - residentEarly;
    EXPECT_TRUE(!tests::MemoryIsMeasurable || growth < 1024) << growth << " KiB";
}

TEST_F(DdeProcessTest, SendersKilledInABurstHarmNobody) {
    constexpr unsigned long Steady = MessagesOfASender;
    DdeEndpoint receiver("sink");
    NumberedMessages steady;
    NumberedMessages bursts;
    int disconnects = 0;
    receiver.onPoke = [&](HCONV, std::string_view item, std::string_view data) {
        (item == "steady" ? steady : bursts).Take(item, data);
    };
    receiver.onDisconnect = [&](HCONV) { ++disconnects; };
    PeerProcess const steadySender = StartDdePeer({"send", "sink", "steady", std::to_string(Steady), "1024"});
    for (int kill = 0; kill < Kills; ++kill) {
        std::string const name = "burst" + std::to_string(kill);
        PeerProcess const sender = StartDdePeer({"send", "sink", name, MessagesOfABurst, "1024"});
        unsigned long const enough = 1 + static_cast<unsigned long>(kill % 40);
        ASSERT_TRUE(RunUntil([&] { return bursts.Count(name) >= enough; })) << name;
        sender->Kill();
    }
    // Wine ends a conversation for the peer of a program that ends it, and not for that of one that dies.
    int const expected = tests::IsUnderWine() ? 1 : Kills + 1;
    EXPECT_TRUE(RunUntil([&] { return steady.Count() == Steady && disconnects >= expected; }))
        << steady.Count() << " messages, " << disconnects << " disconnects";
    EXPECT_TRUE(EndsWith(steadySender, 0));
    EXPECT_EQ(steady.Faults(), 0U);
    EXPECT_EQ(bursts.Faults(), 0U) << "what arrived of a killed sender is whole and in order";
}

TEST_F(DdeProcessTest, AKilledServerIsFoundAgainWhenItRunsAgain) {
    constexpr int Rounds = 20;
    DdeEndpoint client("client");
    std::string echoed;
    client.onPoke = [&](HCONV, std::string_view, std::string_view data) { echoed = data; };
    for (int round = 0; round < Rounds; ++round) {
        PeerProcess const server = StartDdePeer({"echo", "server"});
        HCONV const conversation = ConnectWhenReady(client, "server");
        ASSERT_NE(conversation, nullptr) << "round " << round;
        std::string const text = "round " + std::to_string(round);
        ASSERT_TRUE(client.Poke(conversation, "client", text));
        ASSERT_TRUE(RunUntil([&] { return echoed == text; }));
        server->Kill();
        server->Wait();
        // Known at once, before the loop could tell: this is what makes a sender look for the next server.
        EXPECT_FALSE(client.Poke(conversation, "client", "lost"));
        EXPECT_EQ(client.Connect("server"), nullptr);
    }
    if (tests::IsUnderWine()) GTEST_SKIP() << "Wine does not tell that a peer has died";
    auto const disconnects = [&] { return std::ranges::count(client.Log(), "disconnect"); };
    // Each round ended two: the client's conversation, and the server's back to the client.
    EXPECT_TRUE(RunUntil([&] { return disconnects() == 2 * Rounds; })) << disconnects();
}

TEST_F(DdeProcessTest, WhatWasSentBeforeTheEndArrives) {
    constexpr unsigned long Messages = 5'000;
    DdeEndpoint receiver("sink");
    NumberedMessages messages;
    receiver.onPoke = [&](HCONV, std::string_view item, std::string_view data) { messages.Take(item, data); };
    PeerProcess const sender = StartDdePeer({"send", "sink", "S", std::to_string(Messages), "1024"});
    // More than the system keeps is on its way while this program sleeps and the sender is at its end.
    EXPECT_TRUE(RunUntil([&] { return messages.Count() > 0; }));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_TRUE(EndsWith(sender, 0));
    EXPECT_TRUE(RunUntil([&] { return messages.Count() == Messages; })) << messages.Count();
    EXPECT_EQ(messages.Faults(), 0U);
}

}  // namespace

}  // namespace platform
