// MailSending: a mail with files, put together and handed to the server of outgoing mail.
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

/// From what crosses the entries: lists in Windows-1252 with a delimiter between their entries. Names count
/// only where there is one for each path. Throws a `MailError` for a recipient that is no address, or none.
[[nodiscard]] OutgoingMail MailFrom(std::string_view recipients, std::string_view subject,
                                    std::string_view text, std::string_view filePaths,
                                    std::string_view fileNames, std::string_view delimiter);

/// The mail as it is sent, with CR LF, in seven bits. Recipients of a blind copy are not in it. Throws a
/// `MailError` when a file cannot be read, or all is larger than the account allows.
[[nodiscard]] std::string Compose(MailAccount const& account, OutgoingMail const& mail);

/// Throws a `MailError` when the server does not take it for every recipient.
void Send(MailAccount const& account, OutgoingMail const& mail);

}  // namespace platform::detail
