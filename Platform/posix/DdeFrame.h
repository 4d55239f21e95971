// DdeFrame: the protocol between two instances of dynamic data exchange on a local socket.
//
// A frame is a header of 16 bytes, two texts and data. Numbers have the machine's byte order, since both ends
// are on one machine. A conversation begins with Connect from the client and Accept from the server, which
// closes the socket to refuse; then the client sends Confirm, since several servers may have accepted. After
// that only the client sends: Poke and Execute. Closing the socket ends the conversation.
#pragma once

#include "Platform/Ddeml.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace platform::detail {

/// A buffer above this size is released once it is empty.
inline constexpr std::size_t LargestKeptBuffer = 1U << 20;

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

    /// The texts and the data must be within the limits.
    FrameHeader(FrameKind frameKind, std::string_view text1, std::string_view text2,
                std::size_t dataLength = 0, unsigned dataFormat = 0) noexcept;
    FrameHeader() = default;

    /// Returns whether the header is valid for its kind.
    [[nodiscard]] bool IsValid() const noexcept;
};

static_assert(sizeof(FrameHeader) == 16);

[[nodiscard]] inline std::span<std::byte const> BytesOf(FrameHeader const& header) noexcept {
    return std::as_bytes(std::span(&header, 1));
}

/// One frame; the texts and the data point into the reader that returned it.
struct Frame {
    FrameKind kind;
    unsigned format;
    std::string_view text1;
    std::string_view text2;
    std::span<std::byte const> data;
};

/// Splits a stream of bytes into frames. Allocates memory for bytes received, not for bytes that a header
/// announces.
class FrameReader {
  public:
    enum class Result : int { Frame, Incomplete, Malformed };

    /// Returns space for more bytes, never empty; pass the number of bytes stored to `Commit`. Invalidates
    /// the frames returned before.
    [[nodiscard]] std::span<std::byte> Space();
    void Commit(std::size_t count) noexcept { end_ += count; }

    /// Extracts the next frame. After Malformed the stream is unusable.
    [[nodiscard]] Result Next(Frame& frame) noexcept;
    /// Returns whether `Next` would return a frame or Malformed.
    [[nodiscard]] bool HasNext() const noexcept;

    /// Returns the size of the buffer in bytes.
    [[nodiscard]] std::size_t Capacity() const noexcept { return buffer_.size(); }

  private:
    // Copies the next header; returns false if it is incomplete.
    [[nodiscard]] bool PeekHeader(FrameHeader& header) const noexcept;

    std::vector<std::byte> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
};

}  // namespace platform::detail
