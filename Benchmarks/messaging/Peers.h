// What both sides of the message benchmarks share.
#pragma once

#include <array>
#include <cstddef>
#include <poll.h>
#include <sys/socket.h>
#include <sys/types.h>
#include <vector>

namespace bench {

/// Sizes of payloads.
inline constexpr std::size_t Small = 1024;
inline constexpr std::size_t Large = 64 * 1024;
/// The bytes of a request or answer on the wire other than the payload: header, name and sender.
inline constexpr std::size_t FrameOverhead = 16 + 23 + 19;

/// The time that the answer of a measurement takes, in seconds.
inline constexpr int SecondsToWait = 10;

inline constexpr char const* BusName = "kvutils.Bench";
inline constexpr char const* BusPath = "/bench";
inline constexpr char const* BusInterface = "kvutils.Bench";

/// Returns all byte values in equal numbers.
[[nodiscard]] inline std::vector<char> Payload(std::size_t size) {
    std::vector<char> bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i);
    return bytes;
}

[[nodiscard]] inline bool SendAll(int socket, std::vector<char> const& bytes) {
    return send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
}

[[nodiscard]] inline bool ReceiveAll(int socket, std::vector<char>& bytes) {
    return recv(socket, bytes.data(), bytes.size(), MSG_WAITALL) == static_cast<ssize_t>(bytes.size());
}

}  // namespace bench
