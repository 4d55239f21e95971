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
    /// A client is open from the start; a server is calling until it has accepted, and open once that is
    /// confirmed. A leaving conversation was ended by this side and still has bytes to send. An ended one has
    /// no socket.
    enum class State : int { Calling, Accepted, Open, Leaving, Ended };

    Conversation(Side side, Descriptor socket, std::uint32_t instance);
    ~Conversation() override;

    /// Starts watching the socket. Returns false if the system refuses.
    [[nodiscard]] bool Start();

    bool Step(std::uint32_t ready) override;

    /// Sends a transaction of a client, or queues it. Returns false if the conversation has ended.
    [[nodiscard]] bool Send(FrameKind kind, std::string_view item, unsigned format,
                            std::span<std::byte const> data);

    /// Ends the conversation from this side; a client stays until its queued bytes are sent.
    void Leave();
    /// Sends as many queued bytes as the system accepts. Returns false if the peer can no longer be reached.
    bool Flush();

    [[nodiscard]] State GetState() const noexcept { return state_; }
    [[nodiscard]] std::uint32_t GetInstance() const noexcept { return instance_; }
    [[nodiscard]] int GetSocket() const noexcept { return socket_.Number(); }
    [[nodiscard]] std::size_t CountKept() const noexcept { return outgoing_.Count(); }
    [[nodiscard]] bool IsOfThisProcess() const noexcept;

    [[nodiscard]] HCONV GetHandle() const noexcept { return handle_; }
    void SetHandle(HCONV handle) noexcept { handle_ = handle; }

  private:
    // Each returns whether it called the program's callback.
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
    // Sending failed because the peer is gone; the loop will notice this as well and notify the program.
    bool isBroken_ = false;
};

}  // namespace platform::detail
