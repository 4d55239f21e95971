// Conversations between real programs: what must not get lost, and what a peer may do without harm to others.
#include "Platform/EventLoop.h"
#include "Platform/Tests/DdeEndpoint.h"
#include "Platform/Tests/DdeNumbered.h"
#include "Platform/Tests/ProcessorTime.h"
#include "Platform/Tests/RuntimeDirectory.h"
#include "Platform/Tests/posix/PeerProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

namespace {

using tests::DdeEndpoint;
using tests::NumberedMessage;
using tests::NumberedMessages;
using tests::PeerProcess;
using tests::RunUntil;

using Clock = std::chrono::steady_clock;

class DdeProcessTest : public testing::Test {
  protected:
    // Runs while the test's own loop does.
    static testing::AssertionResult EndsWith(PeerProcess& peer, int exitCode, int limitMs = 20'000) {
        if (!RunUntil([&] { return peer.HasEnded(); }, limitMs))
            return testing::AssertionFailure() << "runs still";
        if (peer.ExitCode() == exitCode) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "ended with " << peer.ExitCode();
    }

    static PeerProcess StartReady(std::vector<std::string> arguments) {
        PeerProcess peer(std::move(arguments));
        EXPECT_EQ(peer.ReadLine(), "ready");
        return peer;
    }

    static double MsSince(Clock::time_point start) {
        return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    }

    std::size_t CountSockets() const {
        auto const directory = std::filesystem::directory_iterator(directory_.Sockets());
        return static_cast<std::size_t>(std::distance(begin(directory), end(directory)));
    }

    tests::RuntimeDirectory directory_;
};

TEST_F(DdeProcessTest, TwoProgramsConnectToEachOtherAtTheSameMoment) {
    for (int round = 0; round < 50; ++round) {
        PeerProcess left = StartReady({"mutual", "left", "right"});
        PeerProcess right = StartReady({"mutual", "right", "left"});
        left.WriteLine();
        right.WriteLine();
        ASSERT_TRUE(EndsWith(left, 0)) << "round " << round;
        ASSERT_TRUE(EndsWith(right, 0)) << "round " << round;
    }
}

TEST_F(DdeProcessTest, EightSendersLoseNothing) {
    constexpr unsigned long Senders = 8;
    constexpr unsigned long Messages = 25'000;
    DdeEndpoint receiver("sink");
    NumberedMessages messages;
    long residentEarly = 0;
    receiver.onPoke = [&](HCONV, std::string_view item, std::string_view data) {
        messages.Take(item, data);
        if (messages.Count() == Messages) residentEarly = tests::ResidentKiB();
    };
    auto const start = Clock::now();
    std::vector<PeerProcess> senders;
    for (unsigned long i = 0; i < Senders; ++i) {
        senders.emplace_back(
            PeerProcess({"send", "sink", "S" + std::to_string(i), std::to_string(Messages), "1024"}));
    }
    EXPECT_TRUE(RunUntil([&] { return messages.Count() >= Senders * Messages; }, 60'000)) << messages.Count();
    RecordProperty("milliseconds", static_cast<int>(MsSince(start)));
    for (PeerProcess& sender : senders) EXPECT_TRUE(EndsWith(sender, 0));
    EXPECT_EQ(messages.Faults(), 0U);
    for (unsigned long i = 0; i < Senders; ++i) EXPECT_EQ(messages.Count("S" + std::to_string(i)), Messages);
    // Room for the allocator's moods; one byte kept of each message would be 200 KiB.
    long const growth = tests::ResidentKiB() - residentEarly;
    EXPECT_TRUE(!tests::MemoryIsMeasurable || growth < 1024) << growth << " KiB";
    RecordProperty("growth in KiB", static_cast<int>(growth));
}

TEST_F(DdeProcessTest, SendersKilledInABurstHarmNobody) {
    constexpr int Kills = 200;
    constexpr unsigned long Steady = 20'000;
    DdeEndpoint receiver("sink");
    NumberedMessages steady;
    NumberedMessages bursts;
    int disconnects = 0;
    receiver.onPoke = [&](HCONV, std::string_view item, std::string_view data) {
        (item == "steady" ? steady : bursts).Take(item, data);
    };
    receiver.onDisconnect = [&](HCONV) { ++disconnects; };
    PeerProcess steadySender({"send", "sink", "steady", std::to_string(Steady), "1024"});
    for (int kill = 0; kill < Kills; ++kill) {
        std::string const name = "burst" + std::to_string(kill);
        PeerProcess sender({"send", "sink", name, "1000000", "1024"});
        unsigned long const enough = 1 + static_cast<unsigned long>(kill % 40);
        ASSERT_TRUE(RunUntil([&] { return bursts.Count(name) >= enough; })) << name;
        sender.Kill();
    }
    EXPECT_TRUE(RunUntil([&] { return steady.Count() == Steady && disconnects == Kills + 1; }, 30'000))
        << steady.Count() << " messages, " << disconnects << " disconnects";
    EXPECT_TRUE(EndsWith(steadySender, 0));
    EXPECT_EQ(steady.Faults(), 0U);
    EXPECT_EQ(bursts.Faults(), 0U) << "what arrived of a killed sender is whole and in order";
}

TEST_F(DdeProcessTest, AKilledServerIsFoundAgainWhenItRunsAgain) {
    DdeEndpoint client("client");
    std::string echoed;
    client.onPoke = [&](HCONV, std::string_view, std::string_view data) { echoed = data; };
    for (int round = 0; round < 20; ++round) {
        PeerProcess server = StartReady({"echo", "server"});
        HCONV const conversation = client.Connect("server");
        ASSERT_NE(conversation, nullptr) << "round " << round;
        std::string const text = "round " + std::to_string(round);
        ASSERT_TRUE(client.Poke(conversation, "client", text));
        ASSERT_TRUE(RunUntil([&] { return echoed == text; }));
        server.Kill();
        // Known at once, before the loop could tell: this is what makes a sender look for the next server.
        EXPECT_FALSE(client.Poke(conversation, "client", "lost"));
        EXPECT_EQ(client.Connect("server"), nullptr);
        EXPECT_EQ(CountSockets(), 1U) << "the dead program's socket is cleaned up";
    }
    auto const disconnects = [&] { return std::ranges::count(client.Log(), "disconnect"); };
    // Each round ended two: the client's conversation, and the server's back to the client.
    EXPECT_TRUE(RunUntil([&] { return disconnects() == 40; })) << disconnects();
}

TEST_F(DdeProcessTest, ASleepingReceiverGetsEverythingAndBlocksNobody) {
    constexpr unsigned long Messages = 20'000;
    DdeEndpoint client("client");
    PeerProcess receiver = StartReady({"receive", "sleeper", std::to_string(Messages)});
    PeerProcess echo = StartReady({"echo", "echo"});
    HCONV const conversation = client.Connect("sleeper");
    HCONV const awake = client.Connect("echo");
    int echoes = 0;
    client.onPoke = [&](HCONV, std::string_view, std::string_view) { ++echoes; };
    receiver.Signal(SIGSTOP);
    auto const start = Clock::now();
    for (unsigned long i = 0; i < Messages; ++i) {
        ASSERT_TRUE(client.Poke(conversation, "M", NumberedMessage(i, 1024)));
    }
    EXPECT_LT(MsSince(start), 2000.0);
    // The loop serves others while the socket is full.
    EXPECT_TRUE(client.Poke(awake, "client", "ping"));
    EXPECT_TRUE(RunUntil([&] { return echoes == 1; }, 1000));
    double const before = tests::ProcessorMs();
    EXPECT_FALSE(RunUntil([] { return false; }, 500));
    EXPECT_LT(tests::ProcessorMs() - before, 50.0) << "a full socket must not keep the loop busy";
    receiver.Signal(SIGCONT);
    EXPECT_TRUE(EndsWith(receiver, 0));
    EXPECT_EQ(receiver.ReadLine(), "done 0");
}

TEST_F(DdeProcessTest, WhatWasSentBeforeTheEndArrives) {
    constexpr unsigned long Messages = 5'000;
    DdeEndpoint receiver("sink");
    NumberedMessages messages;
    receiver.onPoke = [&](HCONV, std::string_view item, std::string_view data) { messages.Take(item, data); };
    PeerProcess sender({"send", "sink", "S", std::to_string(Messages), "1024"});
    // More than the system keeps is on its way while this program sleeps and the sender is at its end.
    EXPECT_TRUE(RunUntil([&] { return messages.Count() > 0; }));
    EXPECT_TRUE(sender.ReadLine(300).empty());
    EXPECT_TRUE(EndsWith(sender, 0));
    EXPECT_TRUE(RunUntil([&] { return messages.Count() == Messages; })) << messages.Count();
    EXPECT_EQ(messages.Faults(), 0U);
}

TEST_F(DdeProcessTest, AStoppedProgramDelaysConnectionsNoMoreThanTheLimit) {
    DdeEndpoint client("client");
    PeerProcess stopped = StartReady({"echo", "stopped"});
    PeerProcess awake = StartReady({"echo", "awake"});
    stopped.Signal(SIGSTOP);
    auto start = Clock::now();
    EXPECT_NE(client.Connect("awake"), nullptr);
    EXPECT_LT(MsSince(start), 500.0) << "the one that answers need not wait for the one that does not";
    start = Clock::now();
    EXPECT_EQ(client.Connect("nobody"), nullptr);
    EXPECT_LT(MsSince(start), DdeConnectLimitMs + 500.0);
    EXPECT_GE(MsSince(start), DdeConnectLimitMs);
    stopped.Signal(SIGCONT);
    EXPECT_NE(client.Connect("stopped"), nullptr);
}

}  // namespace

}  // namespace platform
