// DdeProcess: a fixture for tests with another program at the other end of a conversation.
#pragma once

#include "Platform/Tests/DdeEndpoint.h"
#include "Platform/Tests/PeerProcess.h"
#include "Platform/Tests/RuntimeDirectory.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tests {

class DdeProcessTest : public testing::Test {
  protected:
    static PeerProcess StartDdePeer(std::vector<std::string> const& arguments) {
        return StartPeer(KV_DDE_PEER, arguments);
    }
    /// Connects to a program that was just started; returns null on timeout.
    static platform::HCONV ConnectWhenReady(DdeEndpoint const& client, char const* topic) {
        platform::HCONV conversation = nullptr;
        EXPECT_TRUE(RunUntil([&] { return (conversation = client.Connect(topic)) != nullptr; })) << topic;
        return conversation;
    }
    /// Runs the loop until the program has exited.
    static testing::AssertionResult ExitsWith(PeerProcess const& peer, int exitCode) {
        if (!RunUntil([&] { return !peer->IsRunning(); })) return testing::AssertionFailure() << "still runs";
        int const code = peer->Wait();
        if (code == exitCode) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "exited with " << code;
    }

    RuntimeDirectory directory_;
};

}  // namespace tests
