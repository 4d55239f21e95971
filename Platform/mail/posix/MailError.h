// MailError: a mail failure, with a message for the log and a kind that maps to the numbers of each family of
// entries.
#pragma once

#include "Platform/mail/MailEntries.h"

#include <stdexcept>
#include <string>

namespace platform::detail {

enum class MailFault : int {
    Configuration,  // the account's file
    Logon,          // the server refuses the user
    Network,        // the server is unreachable, is not authentic, or disconnected
    Server,         // the server refuses a command
    Recipient,      // missing, or not an address
    FileMissing,    // a file to send
    FileUnreadable,
    FileUnwritable,  // a received file
    TooLarge,
    NoMessage  // there is no such message
};

/// The message never contains a password or a token.
class MailError : public std::runtime_error {
  public:
    MailError(MailFault fault, std::string const& words) : std::runtime_error(words), fault_(fault) {}

    [[nodiscard]] MailFault Fault() const noexcept { return fault_; }

  private:
    MailFault fault_;
};

[[nodiscard]] ULONG CmcCode(MailFault fault) noexcept;
[[nodiscard]] ULONG MapiCode(MailFault fault) noexcept;

/// Appends a line to the file that the environment variable KVMAIL_LOG names, if it is set.
void WriteLog(std::string const& line) noexcept;

}  // namespace platform::detail
