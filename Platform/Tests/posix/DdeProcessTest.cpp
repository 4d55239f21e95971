// What other programs may do to a conversation that shows on POSIX alone: stand still, and leave a socket.
#include "Platform/Tests/DdeNumbered.h"
#include "Platform/Tests/DdeProcess.h"
#include "Platform/Tests/TestSystem.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <string>
#include <string_view>

namespace platform {

namespace {

using tests::DdeEndpoint;
using tests::NumberedMessage;
using tests::PeerProcess;
using tests::RunUntil;

using Clock = std::chrono::steady_clock;

class PosixDdeProcessTest : public tests::DdeProcessTest {
  protected:
    static void Signal(PeerProcess const& peer, int signal) {
        ASSERT_EQ(kill(static_cast<pid_t>(peer->Id()), signal), 0);
    }

    static double MsSince(Clock::time_point start) {
        return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    }
};

TEST_F(PosixDdeProcessTest, TheSocketOfAKilledProgramIsCleanedUp) {
    DdeEndpoint const client("client");
    PeerProcess const server = StartDdePeer({"echo", "server"});
    ConnectWhenReady(client, "server");
    server->Kill();
    server->Wait();
    EXPECT_EQ(client.Connect("server"), nullptr);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory_.Sockets()), {}), 1);
}

TEST_F(PosixDdeProcessTest, ASleepingReceiverGetsEverythingAndBlocksNobody) {
    constexpr unsigned long Messages = 20'000;
    DdeEndpoint client("client");
    PeerProcess const receiver = StartDdePeer({"receive", "sleeper", std::to_string(Messages)});
    PeerProcess const echo = StartDdePeer({"echo", "echo"});
    HCONV const conversation = ConnectWhenReady(client, "sleeper");
    HCONV const awake = ConnectWhenReady(client, "echo");
    int echoes = 0;
    client.onPoke = [&](HCONV, std::string_view, std::string_view) { ++echoes; };
    Signal(receiver, SIGSTOP);
    for (unsigned long i = 0; i < Messages; ++i) {
        ASSERT_TRUE(client.Poke(conversation, "M", NumberedMessage(i, 1024)));
    }
    // The loop serves others while the socket is full.
    EXPECT_TRUE(client.Poke(awake, "client", "ping"));
    EXPECT_TRUE(RunUntil([&] { return echoes == 1; }));
    double const before = tests::ProcessorMs();
    EXPECT_FALSE(RunUntil([] { return false; }, 500));
    EXPECT_LT(tests::ProcessorMs() - before, 150.0) << "a full socket must not keep the loop busy";
    Signal(receiver, SIGCONT);
    EXPECT_TRUE(EndsWith(receiver, 0));
}

TEST_F(PosixDdeProcessTest, AStoppedProgramDelaysConnectionsNoMoreThanTheLimit) {
    DdeEndpoint const client("client");
    PeerProcess const stopped = StartDdePeer({"echo", "stopped"});
    PeerProcess const awake = StartDdePeer({"echo", "awake"});
    ConnectWhenReady(client, "stopped");
    ConnectWhenReady(client, "awake");
    Signal(stopped, SIGSTOP);
    auto start = Clock::now();
    EXPECT_NE(client.Connect("awake"), nullptr);
    EXPECT_LT(MsSince(start), DdeConnectLimitMs)
        << "the one that answers need not wait for the one that does not";
    start = Clock::now();
    EXPECT_EQ(client.Connect("nobody"), nullptr);
    EXPECT_GE(MsSince(start), DdeConnectLimitMs);
    EXPECT_LT(MsSince(start), 10.0 * DdeConnectLimitMs);
    Signal(stopped, SIGCONT);
    EXPECT_NE(client.Connect("stopped"), nullptr);
}

}  // namespace

}  // namespace platform
