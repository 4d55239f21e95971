// DdeProcess: what tests with another program at the other end of a conversation share.
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
    /// A conversation with a program that was just started; null when it does not come up.
    static platform::HCONV ConnectWhenReady(DdeEndpoint const& client, char const* topic) {
        platform::HCONV conversation = nullptr;
        EXPECT_TRUE(RunUntil([&] { return (conversation = client.Connect(topic)) != nullptr; })) << topic;
        return conversation;
    }
    // Runs while the test's own loop does.
    static testing::AssertionResult EndsWith(PeerProcess const& peer, int exitCode) {
        if (!RunUntil([&] { return !peer->IsRunning(); }, 60'000))
            return testing::AssertionFailure() << "runs still";
        int const code = peer->Wait();
        if (code == exitCode) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "ended with " << code;
    }

    RuntimeDirectory directory_;
};

}  // namespace tests
