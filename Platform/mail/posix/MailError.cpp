#include "Platform/mail/posix/MailError.h"

#include "Platform/posix/Descriptor.h"

#include <cstdlib>
#include <fcntl.h>

namespace platform::detail {

ULONG CmcCode(MailFault fault) noexcept {
    switch (fault) {
        case MailFault::Configuration:
            return CMC_E_INVALID_CONFIGURATION;
        case MailFault::Logon:
            return CMC_E_LOGON_FAILURE;
        case MailFault::Network:
            return CMC_E_SERVICE_UNAVAILABLE;
        case MailFault::Recipient:
            return CMC_E_RECIPIENT_NOT_FOUND;
        case MailFault::FileMissing:
            return CMC_E_ATTACHMENT_NOT_FOUND;
        case MailFault::FileUnreadable:
            return CMC_E_ATTACHMENT_READ_FAILURE;
        case MailFault::TooLarge:
            return CMC_E_TEXT_TOO_LARGE;
        default:
            return CMC_E_FAILURE;
    }
}

ULONG MapiCode(MailFault fault) noexcept {
    switch (fault) {
        case MailFault::Configuration:
        case MailFault::Logon:
            return MAPI_E_LOGON_FAILURE;
        case MailFault::Network:
            return MAPI_E_NETWORK_FAILURE;
        case MailFault::FileUnwritable:
            return MAPI_E_ATTACHMENT_WRITE_FAILURE;
        case MailFault::TooLarge:
            return MAPI_E_TEXT_TOO_LARGE;
        case MailFault::NoMessage:
            return MAPI_E_INVALID_MESSAGE;
        default:
            return MAPI_E_FAILURE;
    }
}

void WriteLog(std::string const& line) noexcept {
    char const* const path = std::getenv("KVMAIL_LOG");
    if (path == nullptr) return;
    Descriptor const file(::open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600));
    for (std::string_view const part : {std::string_view(line), std::string_view("\n")}) {
        if (::write(file.Number(), part.data(), part.size()) < 0) return;
    }
}

}  // namespace platform::detail
