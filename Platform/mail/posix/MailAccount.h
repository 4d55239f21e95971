// MailAccount: the user's mail account, read from a file that only its owner may read.
#pragma once

#include <cstdint>
#include <string>

namespace platform::detail {

/// A mail server, used over TLS only.
struct MailServer {
    std::string host;
    int port = 0;
    bool startTls = false;  // else TLS from the start of the connection
};

struct MailAccount {
    std::string name;
    std::string address;
    std::string user;
    std::string password;  // this, or a bearer token
    std::string token;
    MailServer imap;
    MailServer smtp;
    std::string folder;  // of incoming mail
    std::string caFile;  // empty: the system's certificates
    int timeoutSeconds = 0;
    std::uint64_t largestMail = 0;  // in bytes, to send or to fetch
};

/// Parses an account from "[group]" lines, each followed by "key=value" lines. Throws a `MailError` that
/// names `fileName` and what is wrong: a missing or unknown key, or an invalid value.
[[nodiscard]] MailAccount ParseAccount(std::string const& text, std::string const& fileName);

/// Returns the path of the account's file: the environment variable KVMAIL_ACCOUNT, else "kvutils/mail.ini"
/// in the folder for settings.
[[nodiscard]] std::string AccountFile();
/// Reads the account. Also throws a `MailError` if the file, or the token file, does not belong to the user
/// or grants others any access.
[[nodiscard]] MailAccount LoadAccount(std::string const& fileName);

}  // namespace platform::detail
