// PostOffice: the service through which a program of the suite talks to every other and to the measuring
// server. It gives messages their names, knows the programs by number, answers the messages of the protocol
// itself, keeps the lock by which one client owns a server, and hands everything else to handlers, one for
// each message.
//
// A request is answered by its handler, with one of these bytes where nothing else is agreed: 0 done, 1
// refused (locked by another, or unknown), 2 not handled. An answer is a message of its own, which goes back
// to the sender's instance name.
//
// Everything runs on the main thread, and nothing here is a lock between threads. A handler may send, wait
// for an answer and show windows: the loop that turns meanwhile takes in further messages, and those wait
// until it is done. To be created after KORVELConfig and AppDir; sending needs Language.
#pragma once

#include "KVUtils/Source/data/FlagSet.h"
#include "KVUtils/Source/frame/KVSingleton.h"
#include "KVUtils/Source/messaging/ApplicationList.h"
#include "KVUtils/Source/messaging/DDE.h"
#include "KVUtils/Source/messaging/KORVELEvent.h"
#include "KVUtils/Source/messaging/KORVELEventQueue.h"
#include "KVUtils/Source/messaging/MYMEMBLO.h"
#include "KVUtils/Source/messaging/MessageTable.h"
#include "SV/core/Link.h"
#include "SV/core/String.h"

#include <array>
#include <memory>

namespace kv {

/// What waiting for an answer does to the user interface, when there is a window in front. Both middle values
/// show the pointer of waiting and disable that window; any value above shows the pointer alone.
enum class DisEnable : int { Nothing = 0, DisableWindow = 1, DisableDialog = 2, WaitPointer = 3 };

class PostOffice : public KVSingleton {
  public:
    using ReceiveFunction = DDE::ReceiveFunction;

    /// Replaces an older one. `name` is the application's, under which others reach it.
    static PostOffice* CreatePostOffice(sv::String const& name);
    /// Null before the creation.
    [[nodiscard]] static PostOffice* Instance();
    ~PostOffice() override;

    /// Sends without waiting: 1 when the message is on its way. A target of digits is the number of an
    /// application, a message of digits its number, 1000 more for an answer; both become the names, also in
    /// the caller's strings, and the payload is encoded in place, so that a block is sent once. 0 also for a
    /// number without a name.
    unsigned char Send(sv::String& target, sv::String& message, MyMemoryBlock& data);
    /// Sends to the application of a number, and waits for the answer for as long as it takes, while the loop
    /// turns. 0, without waiting, when the message could not be sent. One answer is held at a time: one that
    /// comes in before it was fetched is replaced by the next.
    unsigned char SendAndReceive(int app, int message, MyMemoryBlock& data, MyMemoryBlock& answer,
                                 DisEnable mode);
    /// Answers a message.
    unsigned char Answer(KORVELEvent* event, MyMemoryBlock& data);

    /// Has a message handled by `handler`, called with the KORVELEvent as its sender, and returns the handler
    /// before. With a `normal` other than 1 the message is handled at once, under any lock and while a
    /// handler runs. Does nothing for a number that is no message's.
    sv::Link ChangeMessageHdl(unsigned message, sv::Link const& handler, unsigned char normal);
    /// Exchanges the function that gets each message as it comes in, and returns the one before.
    ReceiveFunction ChangeReceiveFunction(ReceiveFunction receive);

    /// What is done with a message that came in.
    void CommunicationReceiveFunction(KORVELEvent& event);
    /// Handles what is queued, as far as the locks let it. 0 if the queue was empty, otherwise 1.
    long BotschaftenHandler(void* sender);

    /// The message's number, 1000 more for an answer. -1, and a box, for an unknown name; no box for an empty
    /// one.
    [[nodiscard]] static int NumberOfCommand(KORVELEvent const& event);
    /// Makes a payload fit for travelling, without zero bytes, and back. A decoded payload has more bytes
    /// than the plain one had, one for each byte that was escaped, so its length says nothing.
    static void Encode(MyMemoryBlock& block);
    static void Decode(MyMemoryBlock& block);

    /// The application's own lock: 1 if taken, 0 if a client owns the lock or it is held. What it does is to
    /// keep queued messages from being handled in one go without looking at the locks.
    unsigned char LockApplication() noexcept;
    void UnlockApplication() noexcept { locked_ = 0; }
    [[nodiscard]] unsigned char IsAppLocked() const noexcept { return locked_ != 0 ? 1 : 0; }

    /// Appends an application and returns the new number of slots, which is one more than its number.
    int NewApp(sv::String const& path, sv::String const& name) { return applications_.Add(path, name); }
    /// Empties a slot; the others keep their numbers. 0 if there is no such slot.
    unsigned char DeleteApp(int number) { return applications_.Empty(number) ? 1 : 0; }
    /// The first number with this name, without regard to case; -1 if there is none.
    [[nodiscard]] int GetAppNr(sv::String const& name) const noexcept { return applications_.Find(name); }
    /// How many slots there are, empty ones too.
    [[nodiscard]] int GetAnzahlApp() const noexcept { return applications_.Count(); }
    /// Null for an empty slot, and outside the list.
    [[nodiscard]] sv::String* GetAppName(unsigned number) const noexcept {
        return applications_.Name(number);
    }
    [[nodiscard]] sv::String* GetPath(unsigned number) const noexcept { return applications_.Path(number); }
    [[nodiscard]] sv::String GetOwnApplicationName() const { return ownName_; }
    /// Whether this process is the measuring server.
    [[nodiscard]] bool IsHQMServer() const;

  protected:
    explicit PostOffice(sv::String const& name);

  private:
    static constexpr char Nobody[] = "0";  // as the owner of the lock

    static void DummyReceiveFunction(KORVELEvent& event);
    long DefaultHdl(KORVELEvent* event);
    long IdleHdl(void* sender);

    unsigned char SendAnswer(KORVELEvent const& event, MyMemoryBlock& data);
    unsigned char AnswerByte(KORVELEvent const& event, unsigned char byte);
    void RefuseUnknown(KORVELEvent const& event);
    void KeepAnswer(KORVELEvent const& event, int number);
    void Connect(KORVELEvent const& event);
    void Disconnected(KORVELEvent& event);
    void Lock(KORVELEvent const& event);
    void Unlock();

    [[nodiscard]] bool IsOwned() const;
    [[nodiscard]] bool CheckLock(sv::String const& sender) const;
    [[nodiscard]] bool MayRun(KORVELEvent const& event) const;
    std::unique_ptr<KORVELEvent> TakeFirst() { return std::unique_ptr<KORVELEvent>(queue_.Get()); }
    unsigned long RunQueue();
    unsigned long RunAll();
    unsigned long RunAllowed();
    void Run(KORVELEvent& event);

    std::unique_ptr<DDE> transport_;
    int lastAnswerNumber_ = 0;  // 0 when no answer is waiting
    MyMemoryBlock lastAnswer_;
    sv::String ownName_;
    std::array<sv::Link, ANZAHL_BOTSCHAFTEN> handlers_;
    detail::ApplicationList applications_;
    int locked_ = 0;
    FlagSet atOnce_;  // messages that are handled under any lock
    bool inHandler_ = false;
    sv::String lockOwner_ = Nobody;
    int lockCount_ = 0;
    int connectedClients_ = 0;
    KORVELEventQueue queue_;  // owns its events
    ReceiveFunction receive_ = &DummyReceiveFunction;

    static PostOffice* instance_;
    static PostOffice* receiver_;  // set while the constructor runs already, when instance_ is not
};

}  // namespace kv
