// ImapConnection: an authenticated connection to the IMAP server. libcurl resolves, connects, verifies the
// certificate and logs on; commands are implemented here, since libcurl's do not parse responses with
// literals.
#pragma once

#include "Platform/mail/posix/Curl.h"
#include "Platform/mail/posix/ImapResponse.h"
#include "Platform/mail/posix/MailAccount.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace platform::detail {

class ImapConnection {
  public:
    /// Throws a `MailError` if the server cannot be reached or refuses the user.
    explicit ImapConnection(MailAccount const& account);

    /// Sends a command and returns its untagged responses, each without its "*". Throws a `MailError`:
    /// `Server` if the server refuses the command; `Network` if it disconnects, times out or sends a
    /// malformed response, after which the connection is unusable.
    [[nodiscard]] std::vector<ImapValue> Command(std::string const& command);

  private:
    using Clock = std::chrono::steady_clock;

    void Send(std::string_view bytes, Clock::time_point deadline);
    [[nodiscard]] ImapValue Receive(Clock::time_point deadline);
    /// Waits until the connection is readable or writable.
    void Wait(short events, Clock::time_point deadline);

    CurlHandle curl_;
    std::chrono::seconds timeout_;
    int socket_ = -1;
    ImapCutter cutter_;
    unsigned commands_ = 0;
    std::size_t received_ = 0;  // bytes since the last command
};

}  // namespace platform::detail
