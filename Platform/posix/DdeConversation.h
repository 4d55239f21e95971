// DdeConversation: one end of a conversation over a local socket.
#pragma once

#include "Platform/Ddeml.h"
#include "Platform/posix/DdeFrame.h"
#include "Platform/posix/DdeOutgoing.h"
#include "Platform/posix/Descriptor.h"
#include "Platform/posix/Poller.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace platform::detail {

class Conversation final : public Watcher, public std::enable_shared_from_this<Conversation> {
  public:
    enum class Side : int { Client, Server };
    /// A client is open from the start; a server is calling until it accepted, and open when that was
    /// confirmed. Leaving: ended by this side, with bytes to send. An ended one has no socket.
    enum class State : int { Calling, Accepted, Open, Leaving, Ended };

    Conversation(Side side, Descriptor socket, std::uint32_t instance);
    ~Conversation() override;

    /// Begins to watch the socket. False when the system refuses.
    [[nodiscard]] bool Start();

    bool Step(std::uint32_t ready) override;

    /// Sends a transaction of a client, or keeps it to be sent. False when the conversation has ended.
    [[nodiscard]] bool Send(FrameKind kind, std::string_view item, unsigned format,
                            std::span<std::byte const> data);

    /// Ends it from this side; a client with bytes to send stays until they are gone.
    void Leave();
    /// Sends kept bytes, as many as the system takes. False when no byte can be brought to the peer any more.
    bool Flush();

    [[nodiscard]] State GetState() const noexcept { return state_; }
    [[nodiscard]] std::uint32_t GetInstance() const noexcept { return instance_; }
    [[nodiscard]] int GetSocket() const noexcept { return socket_.Number(); }
    [[nodiscard]] std::size_t CountKept() const noexcept { return outgoing_.Count(); }
    [[nodiscard]] bool IsOfThisProcess() const noexcept;

    [[nodiscard]] HCONV GetHandle() const noexcept { return handle_; }
    void SetHandle(HCONV handle) noexcept { handle_ = handle; }

  private:
    // Each returns whether the program's callback was called.
    bool Receive(bool isReadable);
    bool Handle(Frame const& frame);
    bool AnswerConnect(std::string_view service, std::string_view topic);
    bool HandleConfirm();
    bool HandleTransaction(Frame const& frame);
    bool PeerIsGone();

    HDDEDATA Call(unsigned transaction, unsigned format, HSZ string1, HSZ string2, HDDEDATA data) const;
    bool Keep(FrameParts parts, std::size_t alreadySent);
    void End();

    Side side_;
    State state_;
    Descriptor socket_;
    std::uint32_t instance_;
    int peerProcess_ = 0;
    HCONV handle_ = nullptr;
    HSZ service_ = nullptr;
    HSZ topic_ = nullptr;
    FrameReader reader_;
    OutgoingBytes outgoing_;
    // Sending has shown that the peer is gone; the loop will hear it too, and tell the program.
    bool isBroken_ = false;
};

}  // namespace platform::detail
