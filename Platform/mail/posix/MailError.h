// MailError: why something with mail did not work, in words for the log and as a kind that each family of
// entries has a number for.
#pragma once

#include "Platform/mail/MailEntries.h"

#include <stdexcept>
#include <string>

namespace platform::detail {

enum class MailFault : int {
    Configuration,  // the account's file
    Logon,          // the server refuses the user
    Network,        // the server is not there, is not the one it should be, or went away
    Server,         // the server refuses what it was asked to do
    Recipient,      // none, or one that is no address
    FileMissing,    // of a file to send
    FileUnreadable,
    FileUnwritable,  // of a file that came in
    TooLarge,
    NoMessage  // no such message, any more
};

/// Words never hold a password or a token.
class MailError : public std::runtime_error {
  public:
    MailError(MailFault fault, std::string const& words) : std::runtime_error(words), fault_(fault) {}

    [[nodiscard]] MailFault Fault() const noexcept { return fault_; }

  private:
    MailFault fault_;
};

[[nodiscard]] ULONG CmcCode(MailFault fault) noexcept;
[[nodiscard]] ULONG MapiCode(MailFault fault) noexcept;

/// Adds a line to the file that the environment names as KVMAIL_LOG, if it names one.
void WriteLog(std::string const& line) noexcept;

}  // namespace platform::detail
