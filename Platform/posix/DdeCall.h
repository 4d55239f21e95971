// DdeCall: opens a conversation as its client.
#pragma once

#include "Platform/Ddeml.h"
#include "Platform/posix/DdeInstance.h"

#include <string_view>

namespace platform::detail {

/// Asks all listening instances at once and opens a conversation with the first that accepts; returns null if
/// none does within `DdeConnectLimitMs`. Serves peers that call this process while it waits.
[[nodiscard]] HCONV CallPeers(DdeInstance const& instance, std::string_view service, std::string_view topic);

}  // namespace platform::detail
