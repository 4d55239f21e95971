// Two programs: a post office in this one, a measuring server in another.
#include "KVUtils/Tests/messaging/PostOfficeFixture.h"
#include "Platform/Process.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

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

  protected:
    PostOfficeProcessTest() {
        KORVELConfig::WriteKORVELKey(KORVELiniGroup::HqmServer, "Path", KV_POST_OFFICE_PEER);
        Open("BENCH");
    }
    ~PostOfficeProcessTest() override {
        if (server_ != nullptr) server_->Kill();
    }

    /// Starts the server and waits until it can be reached.
    void Start() {
        server_ = platform::Process::Start(KV_POST_OFFICE_PEER);
        ASSERT_NE(server_, nullptr);
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

    std::unique_ptr<platform::Process> server_;
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
    EXPECT_EQ(server_->Wait(), 0);
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
    for (int length = 0; length < 500; ++length) {
        std::string const text(static_cast<std::size_t>(length * 7), static_cast<char>('!' + length % 90));
        ASSERT_EQ(AskText(SPECTRUM_REQUEST, text), text);
    }
}

TEST_F(PostOfficeProcessTest, AServerThatWasKilledIsStartedAgain) {
    Start();
    EXPECT_EQ(AskText(SPECTRUM_REQUEST, "x"), "x");
    server_->Kill();
    server_->Wait();
    Ask(SPECTRUM_REQUEST, "x");  // starts it
    ASSERT_TRUE(PumpUntil([this] { return IsReachable(); }));
    EXPECT_EQ(Ask(CONNECT, "\x02"), "\x02");
    EXPECT_EQ(AskText(SPECTRUM_REQUEST, "y"), "y");
    EXPECT_EQ(Ask(DISCONNECT), "\0\x0A"s);
}

}  // namespace
}  // namespace kv::messagingtest
