// DdeCall: the client's way into a conversation.
#pragma once

#include "Platform/Ddeml.h"
#include "Platform/posix/DdeInstance.h"

#include <string_view>

namespace platform::detail {

/// Asks all who listen, at once, and opens a conversation with the first that accepts; null when none does
/// within `DdeConnectLimitMs`. Peers that ask this process meanwhile are answered.
[[nodiscard]] HCONV CallPeers(DdeInstance const& instance, std::string_view service, std::string_view topic);

}  // namespace platform::detail
