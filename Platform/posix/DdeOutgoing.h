// DdeOutgoing: bytes on their way into a socket that never blocks the program.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace platform::detail {

/// The bytes of a frame in the order they are sent.
using FrameParts = std::span<std::span<std::byte const> const>;

/// Sends what the socket takes at once and adds its number to `sent`. False when the peer is gone.
[[nodiscard]] bool SendParts(int socket, FrameParts parts, std::size_t& sent) noexcept;

/// Bytes that the system did not take yet.
class OutgoingBytes {
  public:
    /// Appends the parts without their first `skipped` bytes, all or, when memory lacks, none.
    void Append(FrameParts parts, std::size_t skipped);
    /// Sends what the socket takes. False when the peer is gone; nothing is kept for it then.
    [[nodiscard]] bool Flush(int socket) noexcept;
    /// Whether enough came in since the last `Flush` to try again, though nobody said that the socket has
    /// room.
    [[nodiscard]] bool IsFlushDue() const noexcept;

    [[nodiscard]] std::size_t Count() const noexcept { return bytes_.size() - first_; }

  private:
    void Clear() noexcept;

    std::vector<std::byte> bytes_;
    std::size_t first_ = 0;
    std::size_t countAtFlush_ = 0;
};

}  // namespace platform::detail
