// Several processes: a post office in this one, a measuring server or clients in others.
#include "KVUtils/Tests/messaging/PostOfficeFixture.h"
#include "Platform/Tests/DdeNumbered.h"
#include "Platform/Tests/PeerProcess.h"
#include "Platform/Tests/TestSystem.h"

#include <filesystem>

using namespace std::string_literals;

namespace kv::messagingtest {
namespace {

constexpr int Server = 0;

class PostOfficeProcessTest : public PostOfficeTest {
  public:
    /// Counts one of the numbered messages and answers its number.
    long TakeHdl(KORVELEvent* event) {
        sv::String text;
        MyMemoryBlock data = event->GetData();
        data >> text;
        std::string const sender(event->GetSender().View());
        messages.Take(sender.substr(0, sender.find('_')), text.View());
        MyMemoryBlock answer;
        answer << sv::String(text.View().substr(0, text.View().find(' ')));
        return office->Answer(event, answer);
    }

  protected:
    PostOfficeProcessTest() {
        KORVELConfig::WriteKORVELKey(KORVELiniGroup::HqmServer, "Path", KV_POST_OFFICE_PEER);
        Open("BENCH");
    }

    static bool IsServerThere(bool expected = true) {
        return PumpUntil([=] { return PostOffice::IsReachable("HQMSERV") == expected; });
    }
    void StartServer() {
        server_ = tests::StartPeer(KV_POST_OFFICE_PEER);
        ASSERT_TRUE(IsServerThere());
    }

    std::string Ask(int message, std::string_view bytes = {}) { return AskApp(Server, message, bytes); }
    /// An answer that is a text, without the surplus bytes of decoding.
    std::string AskText(int message, std::string_view bytes = {}) {
        std::string const answer = Ask(message, bytes);
        return answer.substr(0, answer.find('\0'));
    }

    tests::NumberedMessages messages;
    tests::PeerProcess server_;
};

TEST_F(PostOfficeProcessTest, AMessageStartsTheServerWhichIsFoundAgainAfterItWasKilled) {
    if (tests::IsUnderWine()) GTEST_SKIP() << "the transport does not see under Wine that a peer has gone";
    std::string const directory = std::filesystem::canonical(KV_POST_OFFICE_PEER).parent_path().string();
    StartServer();
    EXPECT_EQ(AskText(SPECTRUM_REQUEST, "x"), "x");
    server_.reset();
    StartServer();
    EXPECT_EQ(AskText(SPECTRUM_REQUEST, "y"), "y");
    server_.reset();
    Ask(IS_READY);  // starts it, and is lost unless the server is quick
    ASSERT_TRUE(IsServerThere());
    EXPECT_EQ(Ask(CONNECT, "\x02"), "\x02");
    EXPECT_EQ(AskText(GET_SW_VERSION), "-S -LNG 1 in " + directory);
    EXPECT_EQ(Ask(DISCONNECT), "\0\x0A"s);
    EXPECT_TRUE(IsServerThere(false));
}

// What measuring stations do all day: each asks again when it has its answer.
TEST_F(PostOfficeProcessTest, EightProgramsAskAtTheSameTimeAndANinthIsKilled) {
    constexpr unsigned long Clients = 8;
    constexpr unsigned long Messages = 2'000;
    Handle<&PostOfficeProcessTest::TakeHdl>(SPECTRUM_REQUEST, *this);
    std::vector<tests::PeerProcess> clients;
    auto const start = [this](std::string const& name, unsigned long count) {
        return tests::StartPeer(KV_POST_OFFICE_PEER,
                                {"ask", "BENCH", name, files / "KORVEL.INI", std::to_string(count), "1024"});
    };
    for (unsigned long i = 0; i < Clients; ++i) clients.push_back(start("C" + std::to_string(i), Messages));
    tests::PeerProcess const victim = start("VICTIM", 1'000'000'000);
    // Some clients are still starting when it is killed, others are in full flow.
    ASSERT_TRUE(PumpUntil([this] { return messages.Count("VICTIM") > Messages / 10; }));
    victim->Kill();
    ASSERT_TRUE(PumpUntil([this] { return messages.Count() > Clients * Messages / 2; }));
    long const residentEarly = tests::ResidentKiB();
    for (tests::PeerProcess const& client : clients) {
        ASSERT_TRUE(PumpUntil([&] { return !client->IsRunning(); }));
        EXPECT_EQ(client->Wait(), 0);
    }
    long const growth = tests::ResidentKiB() - residentEarly;
    EXPECT_EQ(messages.Faults(), 0U);
    for (unsigned long i = 0; i < Clients; ++i) {
        EXPECT_EQ(messages.Count("C" + std::to_string(i)), Messages);
    }
    // Half of the messages came in since, 8 MiB. Wine keeps some 200 bytes of each answer that is sent.
    EXPECT_TRUE(!tests::MemoryIsMeasurable || growth < 4096) << growth << " KiB";
}

}  // namespace
}  // namespace kv::messagingtest
