// DDE: the transport, which moves one block of bytes, named by an item, from one program of the suite to
// another on the same desktop. It is a server, which receives pokes and executions, and a client, which keeps
// its conversations open. A target that cannot be reached is started.
//
// All programs register one service and differ by the topic: the application's name, which every program
// knows, and the instance name, under which it sends and which is unique when a program runs more than once.
// There is one object in a process, and all of it belongs to the main thread.
#pragma once

#include "KVUtils/Source/messaging/KORVELEvent.h"
#include "SV/core/String.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace platform {
struct DdeConversationTag;
struct DdeDataTag;
struct DdeString;
}  // namespace platform

namespace kv {

/// What the transport needs from its owner. A function that is null is not called.
struct DDEServices {
    /// Takes the escapes out of a payload that came in. Without it payloads stay as they came.
    void (*decode)(MyMemoryBlock& payload) = nullptr;
    /// The directory in which a program is to be started; none, or without this function, the current one.
    std::optional<sv::String> (*directoryOf)(sv::String const& program) = nullptr;
    /// Called when a conversation with this peer has ended, out of a transaction: what it does must not wait.
    void (*conversationEnded)(sv::String const& peer) = nullptr;
};

class DDE {
  public:
    using ReceiveFunction = void (*)(KORVELEvent& event);
    using ExecuteFunction = void (*)(unsigned char* command);

    /// The service that every program of the suite registers.
    static constexpr char ServiceName[] = "KORVELApplication";
    /// The user event that announces a received message.
    static constexpr unsigned long UserEventId = 1234;

    /// Registers the process under the application's name, which must not contain ":". Shows a box and quits
    /// the application when that fails or when an object exists already; the new one can then only be
    /// destroyed.
    explicit DDE(char const* name, DDEServices const& services = {});
    /// A copy sends over the conversations of the original and receives nothing. It must not outlive the
    /// original.
    DDE(DDE const&) = default;
    DDE& operator=(DDE const&) = default;
    /// Closes the conversations and unregisters.
    ~DDE();

    /// Whether the system offers conversations to this process. Needs no object.
    [[nodiscard]] static bool IsSupported();
    /// Whether a program that answers to this topic can be reached now. Starts nothing. Needs no object.
    [[nodiscard]] static bool IsReachable(sv::String const& topic);

    /// Sends `length` bytes to a program without waiting: 1 when they are on their way, otherwise 0, and
    /// shows nothing. A target that cannot be reached is started, followed by a second attempt at once: too
    /// early for most programs, so the message that starts one is usually lost and the next `Send` reaches
    /// it. With a `topic` the target is another service, the topic is the program that is started, and the
    /// bytes travel without the sender before them.
    unsigned char Send(char const* target, char const* item, void const* data, long length,
                       char const* topic = nullptr);

    /// Called with each message, from the user event, or within the transaction while no event loop runs.
    void SetReceiveFunction(ReceiveFunction receive) noexcept { receive_ = receive; }
    /// Called with the first 500 bytes of each execution string and a zero after them. None at first.
    void SetExecuteFunction(ExecuteFunction execute) noexcept { execute_ = execute; }

    /// Whether a conversation is open with the peer of this name: a target of `Send`, or a sender.
    [[nodiscard]] bool HasConversationWith(sv::String const& peer) const;

    /// Delivers the pending message. The application's handler of user events must call it; other ids are
    /// ignored.
    static void UserEvent(unsigned long id, void* data);

  private:
    using Conversation = platform::DdeConversationTag*;
    using Data = platform::DdeDataTag*;
    using Text = platform::DdeString*;

    struct ConversationEntry {
        sv::String name;  // the target as given to Send; of a peer that opened it, the sender of its messages
        Conversation conversation;
    };
    using Conversations = std::vector<ConversationEntry>;

    static Data CallbackFunktion(unsigned transaction, unsigned format, Conversation conversation,
                                 Text string1, Text string2, Data data, std::uintptr_t value1,
                                 std::uintptr_t value2);
    [[nodiscard]] bool Accepts(Text topic, Text service) const;
    void EndConversation(Conversation conversation);
    void ReportEnd(sv::String const& peer) const;
    bool Execute(Data command) const;
    void Receive(Conversation conversation, Text item, Data data);
    static void DeliverPending();

    void Register(char const* name);
    [[nodiscard]] MyMemoryBlock Frame(void const* data, long length, bool withSender) const;
    bool PokeOverOpen(std::string_view target, MyMemoryBlock& frame, Text item);
    [[nodiscard]] Conversation Connect(char const* target, char const* topic) const;
    [[nodiscard]] bool StartPeer(sv::String const& program) const;

    Text service_ = nullptr;
    Text instanceTopic_ = nullptr;
    Text plainTopic_ = nullptr;
    sv::String instanceName_;
    Conversations clients_;
    Conversations servers_;
    ReceiveFunction receive_ = nullptr;
    ExecuteFunction execute_ = nullptr;
    DDEServices services_;

    static std::uint32_t instance_;
    static DDE* theDDE_;
    static std::unique_ptr<KORVELEvent> pending_;
};

}  // namespace kv
