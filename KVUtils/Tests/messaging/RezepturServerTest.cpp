#include "KVUtils/Source/messaging/RezepturServer.h"
#include "KVUtils/Tests/messaging/MessagingSupport.h"
#include "Platform/Process.h"
#include "Platform/Tests/TestSystem.h"

#include <memory>

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
    [[nodiscard]] bool Receives(std::size_t count) const {
        return PumpUntil([&] { return received.size() >= count; });
    }
    Texts received;
};

class RezepturServerTest : public testing::Test {
  protected:
    tests::RuntimeDirectory desktop;
    BoxLog boxes;
    Peer first{"PEER_1"};
    Peer second{"PEER_2"};
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
    ASSERT_TRUE(server.Receives(2));
    EXPECT_EQ(server.received, (Texts{"formula=12% cyan", "name="}));

    first.Disconnect();
    PumpAWhile();
    ASSERT_TRUE(second.Connect(Topic, Service));
    second.PokeRaw("formula", "x");
    EXPECT_TRUE(server.Receives(3));
    EXPECT_TRUE(boxes.seen.empty());
}

TEST_F(RezepturServerTest, AcceptsTheNextClientAfterOneWasKilled) {
    if (tests::IsUnderWine()) GTEST_SKIP() << "Wine does not report that a peer was killed";
    Receiver server;
    auto const client = platform::Process::Start(KV_DDE_PEER, {"offer", Service, Topic, "first", "stay"});
    ASSERT_TRUE(server.Receives(1));
    EXPECT_FALSE(second.Connect(Topic, Service));
    client->Kill();
    client->Wait();
    EXPECT_TRUE(PumpUntil([&] { return second.Connect(Topic, Service); }));
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
    EXPECT_TRUE(PumpUntil([&] { return first.Disconnects() == 1; }));
}

TEST_F(RezepturServerTest, InformsTheUserByDefault) {
    RezepturServer server(nullptr);
    ASSERT_TRUE(first.Connect(Topic, Service));
    first.PokeRaw("formula", "x");
    ASSERT_TRUE(PumpUntil([&] { return !boxes.seen.empty(); }));
    EXPECT_EQ(boxes.seen, (Texts{"info: Septkrum erhalten!"}));
}

TEST_F(RezepturServerTest, TheCallbacksAnswerByTransaction) {
    struct {
        platform::PFNCALLBACK callback;
        unsigned transaction;
        std::uintptr_t answer;
        char const* box;
    } const rows[] = {
        {&ServerCallBack, platform::XTYP_POKE, platform::DDE_FACK, ""},  // the server was destroyed
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

TEST_F(RezepturServerTest, ReportsWhatFailed) {
    Receiver const one;
    Receiver const other;  // the instance is in use
    ASSERT_FALSE(boxes.seen.empty());
    EXPECT_EQ(boxes.seen[0], "error: Initialization failed.");
    Execute();  // returns, since the application was told to quit
}

}  // namespace
}  // namespace kv::messagingtest
