#include "KVUtils/Source/messaging/RezepturServer.h"
#include "KVUtils/Tests/messaging/MessagingSupport.h"
#include "Platform/Process.h"
#include "Platform/Tests/TestSystem.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace std::string_literals;

namespace kv::messagingtest {
namespace {

constexpr char Service[] = "KORVEL_professional";
constexpr char Topic[] = "tint_blending";

class Receiver : public RezepturServer {
  public:
    Receiver() : RezepturServer(nullptr) {}
    void VerwendeVorlage(DDERezepturVorlage& vorlage) override {
        std::string const bytes(vorlage.data.GetDatenZeiger(), static_cast<std::size_t>(vorlage.data.Len()));
        received.push_back(vorlage.item.GetStr() + "="s + bytes);
    }
    std::vector<std::string> received;
};

class RezepturServerTest : public testing::Test {
  protected:
    PrivateDesktop desktop;
    BoxLog boxes;
    DdePeer<0> first{"PEER_1"};
    DdePeer<1> second{"PEER_2"};
};

TEST_F(RezepturServerTest, ServesOneClientAtATime) {
    Receiver server;
    EXPECT_FALSE(first.Connect("another topic", Service));
    EXPECT_FALSE(first.Connect(Topic));
    ASSERT_TRUE(first.Connect(Topic, Service));
    PumpAWhile();
    EXPECT_FALSE(second.Connect(Topic, Service));
    first.PokeRaw("formula", "12% cyan");
    first.PokeRaw("name", "");
    ASSERT_TRUE(PumpUntil([&] { return server.received.size() == 2; }));
    EXPECT_EQ(server.received, (std::vector<std::string>{"formula=12% cyan", "name="}));

    first.Disconnect();
    PumpAWhile();
    ASSERT_TRUE(second.Connect(Topic, Service));
    second.PokeRaw("formula", "x");
    EXPECT_TRUE(PumpUntil([&] { return server.received.size() == 3; }));
    EXPECT_TRUE(boxes.seen.empty());
}

TEST_F(RezepturServerTest, ServesOneProgramAtATime) {
    using platform::Process;
    Receiver server;
    auto const offer = [](char const* data, char const* end) {
        return Process::Start(KV_DDE_PEER, {"offer", Service, Topic, data, end});
    };
    auto const isTaken = [&](char const* data) {
        auto const client = offer(data, "leave");
        EXPECT_TRUE(PumpUntil([&] { return !client->IsRunning(); }));
        return client->Wait() == 0;
    };
    auto const stays = offer("first", "stay");
    ASSERT_TRUE(PumpUntil([&] { return server.received.size() == 1; }));
    EXPECT_FALSE(isTaken("refused"));
    stays->Kill();
    stays->Wait();
    if (tests::IsUnderWine()) GTEST_SKIP() << "Wine does not tell that a peer has died";
    // The server hears in its own time that a client is gone.
    EXPECT_TRUE(PumpUntil([&] { return isTaken("second"); })) << "the first was killed";
    EXPECT_TRUE(PumpUntil([&] { return isTaken("third"); })) << "the second has left";
    ASSERT_TRUE(PumpUntil([&] { return server.received.size() >= 3; })) << "what was poked still arrives";
    EXPECT_EQ(server.received,
              (std::vector<std::string>{"formula=first", "formula=second", "formula=third"}));
    EXPECT_TRUE(boxes.seen.empty());
}

TEST_F(RezepturServerTest, EndsTheConversationWithItself) {
    auto server = std::make_unique<Receiver>();
    ASSERT_TRUE(first.Connect(Topic, Service));
    PumpAWhile();
    server.reset();
    EXPECT_FALSE(second.Connect(Topic, Service));
    Receiver const again;
    EXPECT_TRUE(second.Connect(Topic, Service));
    if (tests::IsUnderWine()) GTEST_SKIP() << "Wine ends no conversation from the server's side";
    EXPECT_TRUE(PumpUntil([&] { return first.disconnects == 1; }));
}

TEST_F(RezepturServerTest, TellsTheUserWhereNothingElseIsDone) {
    RezepturServer server(nullptr);
    ASSERT_TRUE(first.Connect(Topic, Service));
    first.PokeRaw("formula", "x");
    ASSERT_TRUE(PumpUntil([&] { return !boxes.seen.empty(); }));
    EXPECT_EQ(boxes.seen, (std::vector<std::string>{"info: Septkrum erhalten!"}));
}

TEST_F(RezepturServerTest, TheCallbacksAnswerByTransaction) {
    struct {
        platform::PFNCALLBACK callback;
        unsigned transaction;
        std::uintptr_t answer;
        char const* box;
    } const rows[] = {
        {&ServerCallBack, platform::XTYP_POKE, platform::DDE_FACK, ""},  // there is no server any more
        {&ServerCallBack, platform::XTYP_ERROR, 0, "error: A DDE error occured!"},
        {&ServerCallBack, platform::XTYP_EXECUTE, 0, ""},
        {&ClientCallBack, platform::XTYP_ADVDATA, platform::DDE_FACK, ""},
        {&ClientCallBack, platform::XTYP_ERROR, 0, "info: A critical DDE error has occured."},
        {&ClientCallBack, platform::XTYP_DISCONNECT, 0, "info: Disconnected."},
        {&ClientCallBack, platform::XTYP_POKE, 0, ""},
    };
    for (auto const& row : rows) {
        boxes.seen.assign(1, "");
        EXPECT_EQ(row.callback(row.transaction, platform::CF_TEXT, nullptr, nullptr, nullptr, nullptr, 0, 0),
                  platform::DdeAnswer(row.answer));
        EXPECT_EQ(boxes.seen.back(), row.box);
    }
}

TEST_F(RezepturServerTest, SaysWhatFailed) {
    Receiver const one;
    // A second one finds the instance taken.
    Receiver const other;
    ASSERT_FALSE(boxes.seen.empty());
    EXPECT_EQ(boxes.seen[0], "error: Initialization failed.");
    sv::Application::Execute();  // returns, since the application was told to quit
}

}  // namespace
}  // namespace kv::messagingtest
