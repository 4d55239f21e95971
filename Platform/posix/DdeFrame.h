// DdeFrame: what two instances of dynamic data exchange say to each other over a local socket.
//
// A frame is a header of 16 bytes, two texts and data. Numbers are in the machine's own order, since both
// ends are on one machine. The conversation begins with Connect by the client and Accept by the server, or
// the server's end of the socket; then Confirm by the client, since it may have been accepted by several.
// After that the client alone sends: Poke and Execute. The end of the socket ends the conversation.
#pragma once

#include "Platform/Ddeml.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace platform::detail {

enum class FrameKind : std::uint16_t {
    Connect = 1,  // service, topic
    Accept,
    Confirm,
    Poke,     // item, and data in a format
    Execute,  // data
};

struct FrameHeader {
    static constexpr std::uint32_t Mark = 0x3144564B;  // "KVD1"
    static constexpr std::size_t LongestText = 255;

    std::uint32_t mark = Mark;
    std::uint32_t bodyLength = 0;
    FrameKind kind = FrameKind::Connect;
    std::uint16_t format = 0;
    std::uint16_t length1 = 0;
    std::uint16_t length2 = 0;

    /// The header of a frame with this content. Texts and data must be within the limits.
    FrameHeader(FrameKind frameKind, std::string_view text1, std::string_view text2,
                std::size_t dataLength = 0, unsigned dataFormat = 0) noexcept;
    FrameHeader() = default;

    /// Whether a frame of this kind may begin so.
    [[nodiscard]] bool IsValid() const noexcept;
};

static_assert(sizeof(FrameHeader) == 16);

/// One frame; the texts and the data point into the reader that gave it.
struct Frame {
    FrameKind kind;
    unsigned format;
    std::string_view text1;
    std::string_view text2;
    std::span<std::byte const> data;
};

/// Cuts a stream of bytes into frames. Takes memory for what has arrived, not for what a header announces.
class FrameReader {
  public:
    enum class Result : int { Frame, Incomplete, Malformed };

    /// Room for bytes to come, never empty; what was put there is then announced to `Commit`. Frames that
    /// were given before are no longer valid.
    [[nodiscard]] std::span<std::byte> Space();
    void Commit(std::size_t count) noexcept { end_ += count; }

    /// Gives the next frame and steps over it. After Malformed the stream is of no more use.
    [[nodiscard]] Result Next(Frame& frame) noexcept;
    /// Whether `Next` would give a frame, or find the stream malformed.
    [[nodiscard]] bool HasNext() const noexcept;

    /// Whether the last bytes of the stream belong to a frame that is not whole.
    [[nodiscard]] bool IsInsideFrame() const noexcept { return begin_ < end_; }
    /// Bytes of memory held.
    [[nodiscard]] std::size_t Capacity() const noexcept { return buffer_.size(); }

  private:
    // The next header; false when it is not whole yet.
    [[nodiscard]] bool PeekHeader(FrameHeader& header) const noexcept;

    std::vector<std::byte> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
};

}  // namespace platform::detail
