// A post office on a private desktop, and two clients.
#pragma once

#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "KVUtils/Tests/messaging/MessagingSupport.h"
#include "Platform/Tests/TemporaryDirectory.h"

namespace kv::messagingtest {

inline MyMemoryBlock Block(std::string_view bytes) {
    MyMemoryBlock block;
    block.Put(bytes.data(), static_cast<long>(bytes.size()));
    return block;
}

inline std::string Bytes(MyMemoryBlock block) {
    return {block.GetDatenZeiger(), static_cast<std::size_t>(block.Len())};
}

inline std::string Encoded(std::string_view bytes) {
    MyMemoryBlock block = Block(bytes);
    PostOffice::Encode(block);
    return Bytes(block);
}

class PostOfficeTest : public testing::Test {
  public:
    /// Ends the wait of `AskApp` by an answer of its own.
    long TimeoutHdl(void* /*sender*/) {
        if (std::chrono::steady_clock::now() < timeout_) return 0;
        KORVELEvent lost(Block("no answer"), "", PostOffice::NameOfMessage(awaited_));
        office->CommunicationReceiveFunction(lost);
        return 0;
    }

  protected:
    PostOfficeTest() {
        KORVELConfig::CreateKORVELConfig(sv::String(files / "KORVEL.INI"));
        AppDir::CreateAppDir(sv::String(files / "BENCH"));
        sv::Application::SetUserEventHdl(&DDE::UserEvent);
        Open("BENCH");
    }
    ~PostOfficeTest() override {
        Discard(std::exchange(office, nullptr));
        Discard(AppDir::Instance());
        Discard(KORVELConfig::Instance());
        sv::Application::SetUserEventHdl(nullptr);
        sv::Application::Wait(false);
        Language::SetLanguageByCountryCode(1);
    }

    /// Creates a post office under this name and connects both clients to it.
    void Open(char const* name) {
        office = PostOffice::CreatePostOffice(name);
        ASSERT_TRUE(a.Connect(name));
        ASSERT_TRUE(b.Connect(name));
    }

    /// Returns the encoded payload of the answer that a client gets for a message.
    static std::string Ask(Peer& peer, std::string const& message, std::string_view payload = {}) {
        peer.received.clear();
        peer.Poke(message, Encoded(payload));
        if (!peer.Receives(1)) return "no answer";
        EXPECT_EQ(peer.received[0].item, "ANSWER!" + message);
        return peer.received[0].payload;
    }

    /// Returns the answer that the post office gets from an application.
    std::string AskApp(int app, int message, std::string_view bytes = {},
                       DisEnable mode = DisEnable::Nothing) {
        awaited_ = message + PostOffice::AnswerOffset;
        timeout_ = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        sv::Link const watch = sv::Link::To<&PostOfficeTest::TimeoutHdl>(*this);
        sv::Application::InsertIdleHdl(watch, 9);
        MyMemoryBlock data = Block(bytes);
        MyMemoryBlock answer;
        bool const isSent = office->SendAndReceive(app, message, data, answer, mode) != 0;
        sv::Application::RemoveIdleHdl(watch);
        return isSent ? Bytes(answer) : "not sent";
    }

    /// Returns when everything that the clients sent has come in.
    void Settle() {
        for (Peer* const peer : {&a, &b}) {
            peer->Poke("CONNECT", "\x01\x01");  // is answered at once, whatever runs
            EXPECT_TRUE(PumpUntil([=, sent = peer->sentConnects] { return peer->answeredConnects >= sent; }));
        }
    }

    /// Installs a handler of the test's own.
    template <auto Handler, class Test>
    void Handle(int message, Test& test, unsigned char normal = 1) {
        office->ChangeMessageHdl(static_cast<unsigned>(message), sv::Link::To<Handler>(test), normal);
    }

    // A single byte as it travels.
    inline static std::string const Done = Encoded(std::string(1, '\0'));
    inline static std::string const Refused = Encoded("\x01");
    inline static std::string const NotHandled = Encoded("\x02");

    tests::RuntimeDirectory desktop;
    tests::TemporaryDirectory files;
    BoxLog boxes;
    Peer a{"A_1"};
    Peer b{"B_1"};
    PostOffice* office = nullptr;

  private:
    int awaited_ = 0;
    std::chrono::steady_clock::time_point timeout_;
};

}  // namespace kv::messagingtest
