// DDE: moves one block of bytes, named by an item, from one program of the suite to another on the same
// desktop. It is a server, which receives pokes and executions, and a client, which keeps its conversations
// open. When a target cannot be reached it is started.
//
// All programs register one service, and are told apart by the topic: the application's name, which everybody
// knows, and the instance name, which is unique when a program runs more than once and under which it sends.
// There is one object in a process. All of it belongs to the main thread.
#pragma once

#include "KVUtils/Source/messaging/KORVELEvent.h"
#include "Platform/Ddeml.h"
#include "SV/core/String.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace kv {

/// What the transport asks of those above it.
struct DDEServices {
    /// Takes the escapes out of a payload that came in. Without it payloads stay as they came.
    void (*decode)(MyMemoryBlock& payload) = nullptr;
    /// The directory that a program is to be started in; none, or without this function, where we are.
    std::optional<sv::String> (*directoryOf)(sv::String const& program) = nullptr;
};

class DDE {
  public:
    using ReceiveFunction = void (*)(KORVELEvent& event);
    using ExecuteFunction = void (*)(unsigned char* command);

    /// The service that every program of the suite registers.
    static constexpr char ServiceName[] = "KORVELApplication";
    /// The user event that announces a received message.
    static constexpr unsigned long UserEventId = 1234;

    /// Registers the process under the application's name, which must hold no ":". Shows a box and quits the
    /// application when that fails or when there is an object already; the new one can then only be
    /// destroyed.
    explicit DDE(char const* name, DDEServices const& services = {});
    /// A copy sends over the conversations of the original and receives nothing. It lives no longer than
    /// that.
    DDE(DDE const&) = default;
    DDE& operator=(DDE const&) = default;
    /// Closes the conversations and unregisters.
    ~DDE();

    /// Sends `length` bytes to a program and does not wait for it: 1 when they are on their way, else 0, and
    /// nothing is shown. A target that cannot be reached is started, and a second attempt made at once: too
    /// early for most programs, so the message that starts one is lost in the rule and the next `Send`
    /// reaches it. With a `topic` the target is a service of others, the topic is the program that is
    /// started, and the bytes go without the sender in front.
    unsigned char Send(char const* target, char const* item, void const* data, long length,
                       char const* topic = nullptr);

    /// Called with each message, out of the user event, or within the transaction while no event loop runs.
    void SetReceiveFunction(ReceiveFunction receive) noexcept { receive_ = receive; }
    /// Called with the first 500 bytes of each execution string and a zero behind them. None at first.
    void SetExecuteFunction(ExecuteFunction execute) noexcept { execute_ = execute; }

    /// Delivers the pending message. The application's handler of user events calls it; other ids are
    /// ignored.
    static void UserEvent(unsigned long id, void* data);

  private:
    struct ConversationEntry {
        sv::String name;  // the target as given to Send; empty when a peer opened the conversation
        platform::HCONV conversation;
    };
    using Conversations = std::vector<ConversationEntry>;

    static platform::HDDEDATA CallbackFunktion(unsigned transaction, unsigned format,
                                               platform::HCONV conversation, platform::HSZ string1,
                                               platform::HSZ string2, platform::HDDEDATA data,
                                               std::uintptr_t value1, std::uintptr_t value2);
    [[nodiscard]] bool Accepts(platform::HSZ topic, platform::HSZ service) const;
    void EndConversation(platform::HCONV conversation);
    bool Execute(platform::HDDEDATA command) const;
    void Receive(platform::HSZ item, platform::HDDEDATA data) const;
    static void DeliverPending();

    void Register(char const* name);
    [[nodiscard]] MyMemoryBlock Frame(void const* data, long length, bool withSender) const;
    bool PokeOverOpen(std::string_view target, MyMemoryBlock& frame, platform::HSZ item);
    [[nodiscard]] platform::HCONV Connect(char const* target, char const* topic) const;
    [[nodiscard]] bool StartPeer(sv::String const& program) const;

    platform::HSZ service_ = nullptr;
    platform::HSZ instanceTopic_ = nullptr;
    platform::HSZ plainTopic_ = nullptr;
    sv::String instanceName_;
    platform::PFNCALLBACK callback_ = nullptr;
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
