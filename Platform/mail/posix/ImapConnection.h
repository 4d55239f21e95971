// ImapConnection: a logged-on connection to the server of incoming mail. libcurl resolves, connects, checks
// the certificate and logs on; the commands are spoken here, since libcurl's own do not take apart answers
// with literals in them.
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
    /// Throws a `MailError` when the server cannot be had or refuses the user.
    explicit ImapConnection(MailAccount const& account);

    /// Sends a command and returns the untagged responses to it, each without its "*". Throws a `MailError`:
    /// `Server` when the server refuses the command, `Network` when it goes away, falls silent or says what
    /// no server says; the connection is of no use then.
    [[nodiscard]] std::vector<ImapValue> Command(std::string const& command);

  private:
    using Clock = std::chrono::steady_clock;

    void Send(std::string_view bytes, Clock::time_point deadline);
    [[nodiscard]] ImapValue Receive(Clock::time_point deadline);
    /// Waits until the connection can be read from or written to.
    void Wait(short events, Clock::time_point deadline);

    CurlHandle curl_;
    std::chrono::seconds timeout_;
    int socket_ = -1;
    ImapCutter cutter_;
    unsigned commands_ = 0;
    std::size_t received_ = 0;  // bytes since the last command
};

}  // namespace platform::detail
