// MailSending: composes a mail with files and sends it by SMTP.
#pragma once

#include "Platform/mail/posix/MailAccount.h"
#include "Platform/mail/posix/MailText.h"

#include <string>
#include <vector>

namespace platform::detail {

/// Texts are UTF-8.
struct OutgoingFile {
    std::string path;
    std::string name;
};
struct OutgoingMail {
    std::vector<Recipient> recipients;
    std::string subject;
    std::string text;
    std::vector<OutgoingFile> files;
};

/// Builds a mail from the parameters of the entries: lists in Windows-1252 with a delimiter. Names are used
/// only if there is one for each path. Throws a `MailError` if a recipient is not an address, or there is
/// none.
[[nodiscard]] OutgoingMail MailFrom(std::string_view recipients, std::string_view subject,
                                    std::string_view text, std::string_view filePaths,
                                    std::string_view fileNames, std::string_view delimiter);

/// Returns the mail as sent: CR LF line ends, 7-bit characters, without the recipients of a blind copy.
/// Throws a `MailError` if a file cannot be read or the mail is larger than the account allows.
[[nodiscard]] std::string Compose(MailAccount const& account, OutgoingMail const& mail);

/// Sends the mail. Throws a `MailError` if the server does not accept it for every recipient.
void Send(MailAccount const& account, OutgoingMail const& mail);

}  // namespace platform::detail
