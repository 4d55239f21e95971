#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "KVUtils/Tests/messaging/PostOfficeFixture.h"
#include "Platform/Tests/TestSystem.h"
#include "SV/ui/Window.h"

using namespace std::string_literals;

namespace kv::messagingtest {
namespace {

unsigned char SendBytes(PostOffice& office, sv::String target, sv::String message, std::string_view bytes) {
    MyMemoryBlock data = Block(bytes);
    return office.Send(target, message, data);
}

class PostOfficeSendTest : public PostOfficeTest {
  public:
    /// Answers with what the client answers when it is asked for the time.
    long AskBack(KORVELEvent* event) {
        MyMemoryBlock answer = Block(Ask(appA, TIME_REQUEST) + Bytes(event->GetData()));
        return office->Answer(event, answer);
    }

  protected:
    PostOfficeSendTest() { appA = office->NewApp("/nowhere", "A_1") - 1; }

    std::string Ask(int app, int message, DisEnable mode = DisEnable::Nothing) {
        return AskApp(app, message, "request", mode);
    }

    int appA = 0;
};

TEST_F(PostOfficeSendTest, NumbersBecomeNamesInTheCallersStrings) {
    sv::String target(appA);
    sv::String message(1015);
    MyMemoryBlock data = Block("a\0b"s);
    EXPECT_EQ(office->Send(target, message, data), 1);
    EXPECT_EQ(target, "A_1");
    EXPECT_EQ(message, "ANSWER!SPECTRUM_REQUEST");
    EXPECT_EQ(Bytes(data), Encoded("a\0b"s));
    ASSERT_TRUE(a.Receives(1));
    EXPECT_EQ(a.received[0], (Poked{a.received[0].sender, "ANSWER!SPECTRUM_REQUEST", Encoded("a\0b"s)}));
}

TEST_F(PostOfficeSendTest, RefusesUnknownNumbers) {
    struct {
        char const* target;
        char const* message;
    } const rows[] = {{"A_1", "88"},
                      {"A_1", "1090"},
                      {"A_1", "127"},
                      {"A_1", "1127"},
                      {"A_1", "999"},
                      {"1", "0"},
                      {"99", "0"},
                      {"4294967298", "0"},
                      {"A_1", ""},
                      {"NOBODY", "0"},
                      {"A_1", "99999999999999999999"}};
    for (auto const& row : rows) EXPECT_EQ(SendBytes(*office, row.target, row.message, ""), 0) << row.message;
    EXPECT_EQ(Ask(1, IS_READY), "not sent");
    EXPECT_EQ(Ask(appA, 88), "not sent");
    PumpAWhile();
    EXPECT_TRUE(a.received.empty());
}

TEST_F(PostOfficeSendTest, WaitingChangesTheWindowAsAskedAndPutsItBack) {
    struct {
        DisEnable mode;
        bool isDisabled;
        bool waits;
    } const rows[] = {{DisEnable::Nothing, false, false},
                      {DisEnable::DisableWindow, true, true},
                      {DisEnable::DisableDialog, true, true},
                      {DisEnable::WaitPointer, false, true},
                      {static_cast<DisEnable>(9), false, true}};
    for (auto const& row : rows) {
        for (bool const wasBusy : {false, true}) {
            sv::Window window(nullptr);
            RegisterTopWindow const inFront(&window);
            window.Enable(!wasBusy);
            sv::Application::Wait(wasBusy);
            bool isDisabled = false;
            bool waits = false;
            a.onPoke = [&](Poked const& /*request*/) {
                isDisabled = !window.IsEnabled();
                waits = sv::Application::IsWait();
                a.Poke("ANSWER!IS_READY", "yes");
            };
            EXPECT_EQ(Ask(appA, IS_READY, row.mode), "yes");
            EXPECT_EQ(isDisabled, row.isDisabled || wasBusy) << static_cast<int>(row.mode);
            EXPECT_EQ(waits, row.waits || wasBusy) << static_cast<int>(row.mode);
            EXPECT_EQ(window.IsEnabled(), !wasBusy);
            EXPECT_EQ(sv::Application::IsWait(), wasBusy);
        }
    }
    a.onPoke = [&](Poked const& /*request*/) { a.Poke("ANSWER!IS_READY", "yes"); };
    sv::Application::Wait(false);
    EXPECT_EQ(Ask(appA, IS_READY, DisEnable::DisableWindow), "yes");  // no window at all
}

TEST_F(PostOfficeSendTest, GoesOnWaitingForItsOwnAnswer) {
    a.onPoke = [this](Poked const& /*request*/) {
        a.Poke("ANSWER!GET_CHILDREN", "another");
        a.Poke("ANSWER!NOSUCH", "unknown");
        a.Poke("ANSWER!SPECTRUM_REQUEST", Encoded("mine\0"s));
        a.Poke("ANSWER!IS_READY", "later");
    };
    EXPECT_EQ(Ask(appA, SPECTRUM_REQUEST), "mine\0\x0A"s);
    // An answer that came earlier counts for the next question of its number.
    PumpAWhile();
    a.onPoke = nullptr;
    EXPECT_EQ(Ask(appA, IS_READY), "later");
}

TEST_F(PostOfficeSendTest, AHandlerMayAskTheAsker) {
    // A asks, the handler asks A back, and A asks again, which is handled after the first answer.
    Handle<&PostOfficeSendTest::AskBack>(NEW_FORMULA, *this);
    Texts answers;
    a.onPoke = [&](Poked const& message) {
        if (message.item == "TIME_REQUEST") {
            if (answers.empty()) a.Poke("NEW_FORMULA", "2");
            a.Poke("ANSWER!TIME_REQUEST", "noon");
        } else {
            answers.push_back(message.payload);
        }
    };
    a.Poke("NEW_FORMULA", "1");
    ASSERT_TRUE(PumpUntil([&] { return answers.size() == 2; }));
    EXPECT_EQ(answers, (Texts{"noon1", "noon2"}));
}

TEST_F(PostOfficeSendTest, AsksItself) {
    int const self = office->NewApp("/nowhere", "BENCH") - 1;
    EXPECT_EQ(Ask(self, IS_READY), "\x02");
}

TEST_F(PostOfficeTest, ExchangesHandlers) {
    sv::Link const none;
    sv::Link const standard = office->ChangeMessageHdl(IS_READY, none, 1);
    EXPECT_TRUE(standard.IsSet());
    a.Poke("IS_READY");
    Settle();  // no handler, no answer
    EXPECT_FALSE(office->ChangeMessageHdl(IS_READY, standard, 1).IsSet());
    EXPECT_EQ(Ask(a, "IS_READY"), NotHandled);
    EXPECT_FALSE(office->ChangeMessageHdl(ANZAHL_BOTSCHAFTEN, standard, 1).IsSet());
}

TEST_F(PostOfficeTest, InformsTheUserWhenTheAskerIsGone) {
    a.PokeRaw("IS_READY", "GONE_1:");
    ASSERT_TRUE(PumpUntil([this] { return !boxes.seen.empty(); }));
    EXPECT_EQ(boxes.seen, (Texts{"info: Answer failed in PostOffice::DefaultHdl()!"}));
}

TEST_F(PostOfficeTest, ExchangesReceiveFunctions) {
    auto const ours = [](KORVELEvent&) {};
    auto const before = office->ChangeReceiveFunction(ours);
    EXPECT_EQ(office->ChangeReceiveFunction(before), ours);
    EXPECT_EQ(Ask(a, "IS_READY"), NotHandled);
}

/// A measuring server that releases what a client that has gone held.
class PeerGoneTest : public PostOfficeTest {
  public:
    long PeerGoneHdl(sv::String* peer) {
        gone.emplace_back(peer->View());
        office->ReleasePeer(*peer);
        return 0;
    }
    /// A client that locks the server and exits. `beforeItsEnd` runs while it holds the lock.
    void RunClient(std::string const& name, std::function<void()> const& beforeItsEnd) {
        Peer client(name);
        ASSERT_TRUE(client.Connect("HQMSERV"));
        for (char const* const message : {"CONNECT", "CONNECT", "LOCK", "LOCK"}) Ask(client, message);
        client.Disconnect();
        PumpAWhile();
        EXPECT_TRUE(gone.empty()) << "the server still has a conversation with it";
        beforeItsEnd();
    }
    Texts gone;
};

TEST_F(PeerGoneTest, NothingIsLeftOfAClientThatHasGone) {
    if (tests::IsUnderWine()) GTEST_SKIP() << "the transport does not see under Wine that a peer has gone";
    Open("HQMSERV");
    office->ChangePeerGoneHdl(sv::Link::To<&PeerGoneTest::PeerGoneHdl>(*this));
    Ask(a, "CONNECT");
    RunClient("C_1", [this] { EXPECT_EQ(Ask(a, "IS_READY"), Refused); });
    ASSERT_TRUE(PumpUntil([this] { return !gone.empty(); }));
    EXPECT_EQ(Ask(a, "IS_READY"), NotHandled);
    EXPECT_EQ(office->ConnectedClients(), 1);

    // The server quits after the last client.
    gone.clear();
    RunClient("C_2", [this] { EXPECT_EQ(Ask(a, "DISCONNECT"), Refused) << "and counted"; });
    EXPECT_TRUE(IsServersEnd(Execute()));
    EXPECT_EQ(gone, Texts{"C_2"});
    EXPECT_EQ(office->ConnectedClients(), 0);
}

TEST_F(PostOfficeTest, KnowsItsApplications) {
    EXPECT_EQ(office->GetOwnApplicationName(), "BENCH");
    EXPECT_FALSE(office->IsHQMServer());
    EXPECT_EQ(office->GetAnzahlApp(), 2);  // the server and the empty slot
    EXPECT_EQ(office->GetAppNr("hqmserv"), 0);
    EXPECT_EQ(*office->GetPath(0), AppDir::Instance()->BinDirEntry().GetFull());
    EXPECT_EQ(office->NewApp("/desk", "DESK"), 3);
    sv::String const* const name = office->GetAppName(2);
    for (int i = 0; i < 100; ++i) office->NewApp("/press", "desk");
    EXPECT_EQ(office->GetAppName(2), name);
    EXPECT_EQ(office->GetAppNr("Desk"), 2);
    EXPECT_EQ(office->DeleteApp(2), 1);
    EXPECT_EQ(office->GetAppNr("DESK"), 3);
    EXPECT_EQ(office->GetAppNr(""), -1);
    EXPECT_EQ(office->GetAnzahlApp(), 103);
    for (int const missing : {-1, 103}) EXPECT_EQ(office->DeleteApp(missing), 0);
    for (unsigned const missing : {1U, 2U, 103U}) {
        EXPECT_EQ(office->GetAppName(missing), nullptr);
        EXPECT_EQ(office->GetPath(missing), nullptr);
    }
    Open("HQMSERV");
    EXPECT_EQ(office->NewApp("/desk", "DESK"), 1);
}

/// The slots as "directory|name", "-" for an empty one, with "/" as the separator.
Texts Slots(PostOffice const& office) {
    Texts slots;
    for (unsigned i = 0; i < static_cast<unsigned>(office.GetAnzahlApp()); ++i) {
        sv::String const* const name = office.GetAppName(i);
        std::string slot = name == nullptr ? "-" : std::string((*office.GetPath(i) + "|" + *name).View());
        std::ranges::replace(slot, '\\', '/');
        slots.push_back(slot);
    }
    return slots;
}

TEST_F(PostOfficeTest, TakesTheServerAndTheApplicationsFromTheIniFile) {
    struct {
        char const* ini;
        Texts slots;
    } const rows[] = {
        {"; nothing\n", {"/suite/BIN|HQMSERV", "-"}},
        {"[HQM-Server]\nPath=\n", {"/suite/BIN|HQMSERV", "-"}},
        {"[HQM-Server]\nPath=/opt/hqm/ZephyroServer.exe\n", {"/opt/hqm|ZephyroServer", "-"}},
        {"[HQM-Server]\nPath=/opt/hqm/SERVER\n"
         "[Vindara Applications]\nColour Desk=/opt/desk/DESK.EXE\nPress=/opt/press.2/PRESS\nNowhere=\n",
         {"/opt/hqm|SERVER", "-", "/opt/desk|DESK", "/opt/press.2|PRESS", "|"}},
    };
    AppDir::CreateAppDir("/suite/BIN/DESK.EXE");
    for (int number = 0; auto const& row : rows) {
        std::string const ini = files / (std::to_string(number++) + ".INI");
        tests::PutBytes(ini, row.ini);
        KORVELConfig::CreateKORVELConfig(sv::String(ini));
        Open("BENCH");
        EXPECT_EQ(Slots(*office), row.slots) << row.ini;
    }
}

TEST_F(PostOfficeTest, ThereIsOneAtATime) {
    EXPECT_EQ(PostOffice::Instance(), office);
    Open("PRESS");
    EXPECT_EQ(PostOffice::Instance(), office);
    EXPECT_EQ(Ask(a, "IS_READY"), NotHandled);
    EXPECT_FALSE(b.Connect("BENCH"));
    Discard(std::exchange(office, nullptr));
    EXPECT_EQ(PostOffice::Instance(), nullptr);
    EXPECT_TRUE(boxes.seen.empty());
    PumpAWhile();  // the idle handler is gone too
}

}  // namespace
}  // namespace kv::messagingtest
