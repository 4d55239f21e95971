// ServerProbe: asks whether a program of the suite can be reached, without starting it as a message would.
#pragma once

#include "Platform/Ddeml.h"

#include <cstdint>
#include <string>

namespace suite {

/// Opens a conversation with the program of the suite that has this name; null when there is none.
[[nodiscard]] platform::HCONV Converse(std::uint32_t instance, std::string const& name);

class ServerProbe {
  public:
    /// Where the system has no conversations to offer, nobody can be reached.
    ServerProbe() noexcept;
    ServerProbe(ServerProbe const&) = delete;
    ServerProbe& operator=(ServerProbe const&) = delete;
    ~ServerProbe();

    [[nodiscard]] bool IsReachable(std::string const& name) const;

  private:
    std::uint32_t instance_ = 0;
};

}  // namespace suite
