#include "Platform/posix/DdeOutgoing.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/uio.h>

namespace platform::detail {

namespace {

constexpr std::size_t MaxParts = 3;
// The number of bytes that a program without a running loop queues before it tries to send again.
constexpr std::size_t FlushEvery = 64U << 10;

constexpr int Flags = MSG_DONTWAIT | MSG_NOSIGNAL;

bool MayTakeMoreLater() noexcept { return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR; }

}  // namespace

bool SendParts(int socket, FrameParts parts, std::size_t& sent) noexcept {
    assert(parts.size() <= MaxParts);
    std::array<iovec, MaxParts> vectors{};
    std::ranges::transform(parts, vectors.begin(), [](std::span<std::byte const> part) {
        // The system uses the structure for reading as well, so it is not const.
        return iovec{const_cast<std::byte*>(part.data()), part.size()};
    });
    msghdr message{};
    message.msg_iov = vectors.data();
    message.msg_iovlen = parts.size();
    ssize_t const count = sendmsg(socket, &message, Flags);
    if (count < 0) return MayTakeMoreLater();
    sent += static_cast<std::size_t>(count);
    return true;
}

bool SendWhole(int socket, FrameKind kind, std::string_view text1, std::string_view text2) noexcept {
    FrameHeader const header(kind, text1, text2);
    std::array const parts{BytesOf(header), std::as_bytes(std::span(text1)), std::as_bytes(std::span(text2))};
    std::size_t sent = 0;
    return SendParts(socket, parts, sent) && sent == sizeof header + header.bodyLength;
}

void OutgoingBytes::Append(FrameParts parts, std::size_t skipped) {
    std::size_t total = 0;
    for (auto const& part : parts) total += part.size();
    if (first_ > bytes_.size() / 2) {
        bytes_.erase(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(first_));
        first_ = 0;
    }
    std::size_t position = bytes_.size();
    bytes_.resize(position + total - skipped);
    for (auto part : parts) {
        std::size_t const cut = std::min(skipped, part.size());
        skipped -= cut;
        part = part.subspan(cut);
        if (!part.empty()) std::memcpy(bytes_.data() + position, part.data(), part.size());
        position += part.size();
    }
}

bool OutgoingBytes::Flush(int socket) noexcept {
    while (Count() > 0) {
        ssize_t const count = send(socket, bytes_.data() + first_, Count(), Flags);
        if (count < 0) {
            countAtFlush_ = Count();
            if (MayTakeMoreLater()) return true;
            Clear();
            return false;
        }
        first_ += static_cast<std::size_t>(count);
    }
    Clear();
    return true;
}

bool OutgoingBytes::IsFlushDue() const noexcept { return Count() >= countAtFlush_ + FlushEvery; }

void OutgoingBytes::Clear() noexcept {
    if (bytes_.capacity() > LargestKeptBuffer) {
        bytes_ = {};
    } else {
        bytes_.clear();
    }
    first_ = 0;
    countAtFlush_ = 0;
}

}  // namespace platform::detail
