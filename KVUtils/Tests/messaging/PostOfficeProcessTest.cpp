// Several programs: a post office in this one, a measuring server or clients in others.
#include "KVUtils/Tests/messaging/PostOfficeFixture.h"
#include "Platform/Tests/DdeNumbered.h"
#include "Platform/Tests/PeerProcess.h"
#include "Platform/Tests/TestSystem.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace std::string_literals;

namespace kv::messagingtest {
namespace {

constexpr int Server = 0;

class PostOfficeProcessTest : public PostOfficeTest {
  public:
    long NoonHdl(KORVELEvent* event) {
        MyMemoryBlock data;
        data << sv::String("noon");
        return office->Answer(event, data);
    }

    /// Takes one of the numbered messages and answers its number.
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

    /// Starts the server and waits until it can be reached.
    void Start() {
        server_ = tests::StartPeer(KV_POST_OFFICE_PEER);
        ASSERT_TRUE(PumpUntil([this] { return IsReachable(); }));
    }
    bool IsReachable() {
        if (!a.Connect("HQMSERV")) return false;
        a.Disconnect();
        return true;
    }

    std::string Ask(int message, MyMemoryBlock& data) {
        MyMemoryBlock answer;
        if (office->SendAndReceive(Server, message, data, answer, DisEnable::Nothing) == 0) return "not sent";
        return Bytes(answer);
    }
    std::string Ask(int message, std::string_view bytes = {}) {
        MyMemoryBlock data = Block(bytes);
        return Ask(message, data);
    }
    /// An answer that is a text, without what decoding adds.
    std::string AskText(int message, std::string_view bytes = {}) {
        std::string const answer = Ask(message, bytes);
        return answer.substr(0, answer.find('\0'));
    }

    tests::NumberedMessages messages;
    tests::PeerProcess server_;
};

TEST_F(PostOfficeProcessTest, TheFirstMessageStartsTheServer) {
    Ask(IS_READY);  // is lost, unless the server was there in no time
    ASSERT_TRUE(PumpUntil([this] { return IsReachable(); }));
    EXPECT_EQ(Ask(CONNECT, "\x02"), "\x02");
    fs::path const directory = fs::canonical(KV_POST_OFFICE_PEER).parent_path();
    EXPECT_EQ(AskText(GET_SW_VERSION), "-S -LNG 1 in " + directory.string());
    EXPECT_EQ(Ask(DISCONNECT), "\0\x0A"s);
    EXPECT_TRUE(PumpUntil([this] { return !IsReachable(); }));
}

TEST_F(PostOfficeProcessTest, TheServerLivesAsLongAsItsClients) {
    Start();
    EXPECT_EQ(Ask(CONNECT, "\x02"), "\x02");
    ASSERT_TRUE(b.Connect("HQMSERV"));
    EXPECT_EQ(PostOfficeTest::Ask(b, "CONNECT", "\x01"), Encoded("\x01"));
    EXPECT_EQ(PostOfficeTest::Ask(b, "LOCK"), Done);
    EXPECT_EQ(Ask(SPECTRUM_REQUEST, "x"), "\x01\x01");  // B owns the server
    EXPECT_EQ(PostOfficeTest::Ask(b, "UNLOCK"), Done);
    EXPECT_EQ(AskText(SPECTRUM_REQUEST, "x"), "x");
    EXPECT_EQ(PostOfficeTest::Ask(b, "DISCONNECT"), Done);
    EXPECT_EQ(AskText(SPECTRUM_REQUEST, "y"), "y");
    EXPECT_TRUE(server_->IsRunning());
    EXPECT_EQ(Ask(DISCONNECT), "\0\x0A"s);
    int const before = b.disconnects;
    EXPECT_TRUE(PumpUntil([this] { return !server_->IsRunning(); }));  // it bids all of its peers farewell
    EXPECT_EQ(server_->Wait(), 0);
    if (tests::IsUnderWine()) GTEST_SKIP() << "Wine does not tell a client that the server has ended";
    EXPECT_TRUE(PumpUntil([&] { return b.disconnects > before; }));
}

TEST_F(PostOfficeProcessTest, EachWaitsForTheOtherAtTheSameTime) {
    Start();
    Handle<&PostOfficeProcessTest::NoonHdl>(TIME_REQUEST, *this);
    EXPECT_EQ(AskText(NEW_FORMULA), "noon");
}

TEST_F(PostOfficeProcessTest, NothingIsLostBetweenTwoPrograms) {
    constexpr long Count = 5000;
    Start();
    for (long number = 0; number < Count; ++number) {
        MyMemoryBlock data;
        data << number << std::string(200, 'x').c_str();
        sv::String target(Server);
        sv::String message(int{MOVE_UP});
        ASSERT_EQ(office->Send(target, message, data), 1);
    }
    EXPECT_EQ(AskText(OUTPUT_STATUS), std::to_string(Count));
}

// What measuring stations on one desktop do all day: each asks again when it has its answer.
TEST_F(PostOfficeProcessTest, EightProgramsAskAtTheSameTimeAndANinthIsKilled) {
    constexpr unsigned long Clients = 8;
    constexpr unsigned long Messages = 2'000;
    Handle<&PostOfficeProcessTest::TakeHdl>(SPECTRUM_REQUEST, *this);
    std::vector<tests::PeerProcess> clients;
    auto const start = [this](std::string const& name, unsigned long count) {
        return tests::StartPeer(KV_POST_OFFICE_PEER, {"ask", "BENCH", name, files.File("KORVEL.INI").GetStr(),
                                                      std::to_string(count), "1024"});
    };
    for (unsigned long i = 0; i < Clients; ++i) clients.push_back(start("C" + std::to_string(i), Messages));
    tests::PeerProcess const victim = start("VICTIM", 1'000'000'000);
    // As many as that some of them are still to start when it ends, and others are well on their way.
    ASSERT_TRUE(PumpUntil([this] { return messages.Count("VICTIM") > Messages / 10; }));
    victim->Kill();
    ASSERT_TRUE(PumpUntil([this] { return messages.Count() > Clients * Messages / 2; }));
    long const residentEarly = tests::ResidentKiB();
    for (tests::PeerProcess const& client : clients) {
        EXPECT_TRUE(PumpUntil([&] { return !client->IsRunning(); }));
        EXPECT_EQ(client->Wait(), 0);
    }
    long const growth = tests::ResidentKiB() - residentEarly;
    EXPECT_EQ(messages.Faults(), 0U);
    for (unsigned long i = 0; i < Clients; ++i) {
        EXPECT_EQ(messages.Count("C" + std::to_string(i)), Messages);
    }
    // Half of the messages came in meanwhile, 8 MiB. Wine keeps some 200 bytes of each answer that is sent.
    EXPECT_TRUE(!tests::MemoryIsMeasurable || growth < 4096) << growth << " KiB";
}

TEST_F(PostOfficeProcessTest, AServerThatWasKilledIsFoundWhenItRunsAgainAndStartedWhenItDoesNot) {
    Start();
    EXPECT_EQ(AskText(SPECTRUM_REQUEST, "x"), "x");
    server_.reset();
    Start();
    EXPECT_EQ(AskText(SPECTRUM_REQUEST, "y"), "y");
    server_.reset();
    Ask(SPECTRUM_REQUEST, "x");  // starts it
    ASSERT_TRUE(PumpUntil([this] { return IsReachable(); }));
    EXPECT_EQ(Ask(CONNECT, "\x02"), "\x02");
    EXPECT_EQ(AskText(SPECTRUM_REQUEST, "y"), "y");
    EXPECT_EQ(Ask(DISCONNECT), "\0\x0A"s);
}

}  // namespace
}  // namespace kv::messagingtest
