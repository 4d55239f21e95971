// PostOffice: the service through which the programs of the suite and the measuring server exchange messages.
// It names and numbers messages and programs, answers the messages of the protocol, keeps the lock by which
// one client owns a server, and calls a handler for every other message.
//
// A request is answered by its handler, with one of these bytes unless otherwise agreed: 0 done, 1 refused
// (locked by another client, or unknown), 2 not handled. An answer is a message of its own, sent to the
// instance name of the asker.
//
// Everything runs on the main thread; no lock here is a lock between threads. A handler may send, wait for an
// answer and show windows: messages that come in during that time wait until it returns. A program creates
// its services in this order, and delivers user events to `DDE`, which brings the messages:
//
//     KORVELConfig::CreateKORVELConfig(iniFile);
//     AppDir::CreateAppDir(programFile);
//     Language::CreateLanguage(nullptr, textFile);
//     sv::Application::SetUserEventHdl(&DDE::UserEvent);
//     PostOffice* const office = PostOffice::CreatePostOffice("PRESS");
//     office->ChangeMessageHdl(NEW_FORMULA, sv::Link::To<&Press::FormulaHdl>(press), 1);
//     MyMemoryBlock data, answer;
//     office->SendAndReceive(0, IS_READY, data, answer, DisEnable::Nothing);  // 0: the measuring server
//     sv::Application::Execute();
//
// Answers come to `SendAndReceive` and to the receive function only, never to handlers. To wait with a
// timeout, install a receive function that takes the answers, whose number is that of the message plus
// `AnswerOffset`, and passes everything else to `CommunicationReceiveFunction`; then `Send`, and call
// `sv::Application::Reschedule` until the answer has come. The message that starts a program is usually
// lost: send the first one again when `IsReachable` is true.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "KVUtils/Source/messaging/DDE.h"
#include "KVUtils/Source/messaging/KORVELEvent.h"
#include "KVUtils/Source/messaging/MYMEMBLO.h"
#include "KVUtils/Source/messaging/MessageTable.h"
#include "SV/core/Link.h"
#include "SV/core/String.h"

#include <map>
#include <memory>
#include <vector>

namespace kv {

namespace detail {
class ApplicationList;
class MessageDispatcher;
class ServerLock;
}  // namespace detail

/// What waiting for an answer does to the user interface when there is an active top window. Both middle
/// values show the pointer of waiting and disable that window; any value above shows the pointer only.
enum class DisEnable : int { Nothing = 0, DisableWindow = 1, DisableDialog = 2, WaitPointer = 3 };

class PostOffice : public KVSingleton {
  public:
    using ReceiveFunction = DDE::ReceiveFunction;

    /// The answer to the message of number n has the number n + 1000.
    static constexpr int AnswerOffset = 1000;

    /// Replaces an older one. `name` is the application's, under which others reach it.
    static PostOffice* CreatePostOffice(sv::String const& name);
    /// Null before the creation.
    [[nodiscard]] static PostOffice* Instance();
    ~PostOffice() override;

    /// Whether programs can exchange messages at all: false when the system offers no conversations, for
    /// instance since other users have access to the directory of the sockets. Needs no post office.
    [[nodiscard]] static bool IsSupported() { return DDE::IsSupported(); }
    /// Whether a program of this application or instance name can be reached now. Starts nothing, unlike
    /// `Send`, and needs no post office; the caller's own counts.
    [[nodiscard]] static bool IsReachable(sv::String const& program) { return DDE::IsReachable(program); }

    /// The name under which a message travels: "LOCK" for 2, "ANSWER!LOCK" for 1002. Empty for a number that
    /// is not a message's.
    [[nodiscard]] static sv::String NameOfMessage(long number);
    /// The number of a name, `AnswerOffset` more for an answer; -1 for an unknown or empty name. Case
    /// matters.
    [[nodiscard]] static int NumberOfMessage(sv::String const& name);
    /// The number of an event's message, like `NumberOfMessage`. Shows a box for an unknown name, but not for
    /// an empty one.
    [[nodiscard]] static int NumberOfCommand(KORVELEvent const& event);

    /// Sends without waiting: 1 when the message is on its way. A target of digits is the number of an
    /// application, a message of digits its number; both become the names, also in the caller's strings. The
    /// payload is encoded in place, so a block can be sent only once. 0 also for a number without a name.
    unsigned char Send(sv::String& target, sv::String& message, MyMemoryBlock& data);
    /// Sends to the application of a number and runs the event loop until the answer has come. There is no
    /// timeout: a peer that never answers keeps the caller here. 0, without waiting, when the message could
    /// not be sent. One answer is held at a time: the next one replaces it.
    unsigned char SendAndReceive(int app, int message, MyMemoryBlock& data, MyMemoryBlock& answer,
                                 DisEnable mode);
    /// Answers a message.
    unsigned char Answer(KORVELEvent* event, MyMemoryBlock& data);

    /// Installs a message's handler, called with the KORVELEvent as its sender, and returns the one before.
    /// With a `normal` other than 1 the message is handled at once, under any lock and while another handler
    /// runs. Does nothing for a number that is not a message's.
    sv::Link ChangeMessageHdl(unsigned message, sv::Link const& handler, unsigned char normal);
    /// Exchanges the function that gets each message as it comes in, and returns the one before.
    ReceiveFunction ChangeReceiveFunction(ReceiveFunction receive);

    /// Installs the handler of peers that have gone, and returns the one before; none at first. The event
    /// loop calls it with the peer's name, an sv::String, when no conversation under that name is left and
    /// all that came over them was received. The name is the instance name of a peer that sent something, and
    /// the target of `Send`.
    sv::Link ChangePeerGoneHdl(sv::Link const& handler);
    /// Undoes the locks and connections of a peer that has gone without doing so itself. A measuring server
    /// whose last client this was quits, as after its DISCONNECT.
    void ReleasePeer(sv::String const& peer);

    /// Processes a message that came in.
    void CommunicationReceiveFunction(KORVELEvent& event);
    /// Handles what is queued, as far as the locks let it. 0 if the queue was empty, otherwise 1. Called with
    /// each message, and by an idle handler that the destructor removes.
    long BotschaftenHandler(void* sender);

    /// Makes a payload fit for travelling, without zero bytes, and back. A decoded payload is longer than the
    /// plain one was, by one byte for each byte that was escaped, so its length says nothing.
    static void Encode(MyMemoryBlock& block);
    static void Decode(MyMemoryBlock& block);

    /// The application's own lock: 1 if taken, 0 if a client owns the lock or it is held. It only keeps
    /// queued messages from being handled in one go without a test of the client's lock.
    unsigned char LockApplication() noexcept;
    void UnlockApplication() noexcept;
    [[nodiscard]] unsigned char IsAppLocked() const noexcept;

    /// How many CONNECT came in, less how many DISCONNECT.
    [[nodiscard]] int ConnectedClients() const noexcept { return connectedClients_; }

    /// Appends an application and returns the new number of slots, which is one more than its number.
    int NewApp(sv::String const& path, sv::String const& name);
    /// Empties a slot; the others keep their numbers. 0 if there is no such slot.
    unsigned char DeleteApp(int number);
    /// The first number with this name, ignoring case; -1 if there is none.
    [[nodiscard]] int GetAppNr(sv::String const& name) const noexcept;
    /// How many slots there are, including empty ones.
    [[nodiscard]] int GetAnzahlApp() const noexcept;
    /// The name and the directory of an application; null for an empty slot and outside the list. They belong
    /// to the list and are valid until `DeleteApp`.
    [[nodiscard]] sv::String* GetAppName(unsigned number) const noexcept;
    [[nodiscard]] sv::String* GetPath(unsigned number) const noexcept;
    [[nodiscard]] sv::String GetOwnApplicationName() const { return ownName_; }
    /// Whether this process is the measuring server.
    [[nodiscard]] bool IsHQMServer() const;

  protected:
    explicit PostOffice(sv::String const& name);

  private:
    static void DummyReceiveFunction(KORVELEvent& event);
    static void ConversationEnded(sv::String const& peer);
    long DefaultHdl(KORVELEvent* event);
    long IdleHdl(void* sender);

    unsigned char SendAnswer(KORVELEvent const& event, MyMemoryBlock& data);
    unsigned char AnswerByte(KORVELEvent const& event, unsigned char byte);
    void RefuseUnknown(KORVELEvent const& event);
    void KeepAnswer(KORVELEvent const& event, int number);
    void Connect(KORVELEvent const& event);
    void CountDisconnect(sv::String const& client);
    void QuitAfterLastClient() const;
    void Lock(KORVELEvent const& event);
    void ReportGonePeers();

    std::unique_ptr<DDE> transport_;
    int lastAnswerNumber_ = 0;  // 0 when no answer is waiting
    MyMemoryBlock lastAnswer_;
    sv::String ownName_;
    std::unique_ptr<detail::ServerLock> lock_;
    std::unique_ptr<detail::MessageDispatcher> dispatcher_;
    std::unique_ptr<detail::ApplicationList> applications_;
    int connectedClients_ = 0;
    std::map<sv::String, int> connections_;  // by client, those not yet undone
    ReceiveFunction receive_ = &DummyReceiveFunction;
    sv::Link peerGone_;
    std::vector<sv::String> endedPeers_;  // with which a conversation ended since the loop was idle

    static PostOffice* instance_;
    static PostOffice* receiver_;  // set while the constructor runs already, when instance_ is not
};

}  // namespace kv
