// A post office on a desktop of its own, two clients, and a window to shut off.
#pragma once

#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "KVUtils/Tests/messaging/MessagingSupport.h"
#include "SV/ui/Window.h"

#include <string>

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
  protected:
    PostOfficeTest() {
        KORVELConfig::CreateKORVELConfig(files.File("KORVEL.INI"));
        AppDir::CreateAppDir(files.File("BENCH"));
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

    /// A post office under this name, to which both clients are connected.
    void Open(char const* name) {
        office = PostOffice::CreatePostOffice(name);
        ASSERT_TRUE(a.Connect(name));
        ASSERT_TRUE(b.Connect(name));
    }

    /// What a client gets for a message: the bytes of the answer as they travelled.
    template <class Peer>
    std::string Ask(Peer& peer, std::string const& message, std::string_view payload = {}) {
        peer.received.clear();
        peer.Poke(message, Encoded(payload));
        if (!PumpUntil([&] { return !peer.received.empty(); })) return "no answer";
        EXPECT_EQ(peer.received[0].item, "ANSWER!" + message);
        return peer.received[0].payload;
    }

    /// Returns when everything that the clients have sent so far has come in.
    void Settle() {
        SettleOne(a);
        SettleOne(b);
    }

    /// Handles a message by an answer of the test's own.
    template <auto Handler, class Test>
    void Handle(int message, Test& test, unsigned char normal = 1) {
        office->ChangeMessageHdl(static_cast<unsigned>(message), sv::Link::To<Handler>(test), normal);
    }

    template <class Peer>
    static void SettleOne(Peer& peer) {
        peer.Poke("CONNECT", "\x01\x01");  // is answered at once, whatever runs
        EXPECT_TRUE(PumpUntil([&peer, sent = peer.sentConnects] { return peer.answeredConnects >= sent; }));
    }

    // A single byte as it travels.
    inline static std::string const Done = Encoded(std::string(1, '\0'));
    inline static std::string const Refused = Encoded("\x01");
    inline static std::string const NotHandled = Encoded("\x02");

    PrivateDesktop desktop;
    TemporaryDirectory files;
    BoxLog boxes;
    DdePeer<0> a{"A_1"};
    DdePeer<1> b{"B_1"};
    PostOffice* office = nullptr;
};

}  // namespace kv::messagingtest
