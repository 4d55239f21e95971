// DdeOutgoing: non-blocking sending, with a queue for bytes that the system does not accept yet.
#pragma once

#include "Platform/posix/DdeFrame.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace platform::detail {

/// The parts of a frame in the order they are sent.
using FrameParts = std::span<std::span<std::byte const> const>;

/// Sends what the socket accepts and adds the number of bytes to `sent`. Returns false if the peer is gone.
[[nodiscard]] bool SendParts(int socket, FrameParts parts, std::size_t& sent) noexcept;

/// Sends a frame of texts alone. Returns false if the socket does not accept it whole.
[[nodiscard]] bool SendWhole(int socket, FrameKind kind, std::string_view text1,
                             std::string_view text2) noexcept;

/// The queued bytes.
class OutgoingBytes {
  public:
    /// Appends the parts except their first `skipped` bytes. Throws std::bad_alloc, with nothing appended, if
    /// memory runs out.
    void Append(FrameParts parts, std::size_t skipped);
    /// Sends what the socket accepts. Returns false, and discards the queue, if the peer is gone.
    [[nodiscard]] bool Flush(int socket) noexcept;
    /// Returns whether enough bytes were appended since the last `Flush` to try again before the socket is
    /// reported writable.
    [[nodiscard]] bool IsFlushDue() const noexcept;

    [[nodiscard]] std::size_t Count() const noexcept { return bytes_.size() - first_; }

  private:
    void Clear() noexcept;

    std::vector<std::byte> bytes_;
    std::size_t first_ = 0;
    std::size_t countAtFlush_ = 0;
};

}  // namespace platform::detail
