// Peers that are killed or stopped, as far as POSIX differs: they leave a socket, or a full one.
#include "Platform/Tests/DdeNumbered.h"
#include "Platform/Tests/DdeProcess.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <iterator>

namespace platform {

namespace {

using tests::DdeEndpoint;
using tests::NumberedMessage;
using tests::PeerProcess;
using tests::RunUntil;

class PosixDdeProcessTest : public tests::DdeProcessTest {
  protected:
    static void Signal(PeerProcess const& peer, int signal) {
        ASSERT_EQ(kill(static_cast<pid_t>(peer->Id()), signal), 0);
    }
};

TEST_F(PosixDdeProcessTest, TheSocketOfAKilledProgramIsRemoved) {
    DdeEndpoint const client("client");
    PeerProcess const server = StartDdePeer({"echo", "server"});
    ConnectWhenReady(client, "server");
    server->Kill();
    server->Wait();
    EXPECT_EQ(client.Connect("server"), nullptr);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory_.Sockets()), {}), 1);
}

TEST_F(PosixDdeProcessTest, PokesToAStoppedProgramNeitherBlockNorGetLost) {
    constexpr unsigned long Messages = 20'000;
    DdeEndpoint client("client");
    PeerProcess const receiver = StartDdePeer({"receive", "sleeper", std::to_string(2 * Messages + 1)});
    PeerProcess const echo = StartDdePeer({"echo", "echo"});
    HCONV const conversation = ConnectWhenReady(client, "sleeper");
    HCONV const ended = ConnectWhenReady(client, "sleeper");
    HCONV const awake = ConnectWhenReady(client, "echo");
    int echoes = 0;
    client.onPoke = [&](HCONV, std::string_view, std::string_view) { ++echoes; };
    Signal(receiver, SIGSTOP);
    for (unsigned long i = 0; i < Messages; ++i) {
        ASSERT_TRUE(client.Poke(conversation, "M", NumberedMessage(i, 1024)));
        ASSERT_TRUE(client.Poke(ended, "N", NumberedMessage(i, 1024)));
    }
    EXPECT_TRUE(DdeDisconnect(ended));
    EXPECT_FALSE(client.Poke(ended, "N", "after the end"));
    EXPECT_TRUE(client.Poke(awake, "client", "ping"));
    EXPECT_TRUE(RunUntil([&] { return echoes == 1; })) << "the loop serves others while the socket is full";
    auto const turnsOfTheLoop = [] {  // each waits 10 ms unless it is busy
        int count = 0;
        EXPECT_FALSE(RunUntil([&] { return ++count == 0; }, 500));
        return count;
    };
    EXPECT_LT(turnsOfTheLoop(), 200) << "a full socket must not keep the loop busy";
    Signal(receiver, SIGCONT);
    static_cast<void>(turnsOfTheLoop());  // sends what is queued
    EXPECT_LT(turnsOfTheLoop(), 200) << "nor must one that was full";
    EXPECT_TRUE(client.Poke(conversation, "M", NumberedMessage(Messages, 1024)));
    EXPECT_TRUE(ExitsWith(receiver, 0));
}

TEST_F(PosixDdeProcessTest, AStoppedProgramDelaysConnectionsUpToTheTimeout) {
    DdeEndpoint const client("client");
    PeerProcess const stopped = StartDdePeer({"echo", "stopped"});
    PeerProcess const awake = StartDdePeer({"echo", "awake"});
    ConnectWhenReady(client, "stopped");
    ConnectWhenReady(client, "awake");
    Signal(stopped, SIGSTOP);
    auto const timed = [&](char const* topic, bool connects) {
        auto const start = std::chrono::steady_clock::now();
        EXPECT_EQ(client.Connect(topic) != nullptr, connects) << topic;
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    };
    EXPECT_LT(timed("awake", true), DdeConnectLimitMs)
        << "a program that answers does not wait for the other";
    double const refusal = timed("nobody", false);
    EXPECT_GE(refusal, DdeConnectLimitMs);
    EXPECT_LT(refusal, 10.0 * DdeConnectLimitMs);
    Signal(stopped, SIGCONT);
    EXPECT_NE(client.Connect("stopped"), nullptr);
}

}  // namespace

}  // namespace platform
