// MailAccount: whose mail it is, and where it lies: one file that only its owner may read.
#pragma once

#include <cstdint>
#include <string>

namespace platform::detail {

/// Spoken to over TLS only.
struct MailServer {
    std::string host;
    int port = 0;
    bool startTls = false;  // TLS begins inside the connection, else with it
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

/// The account in a text of "[group]" lines with "key=value" lines below them. Throws a `MailError` that
/// names `fileName` and what is wrong: a key that is missing or not known, a value that makes no sense.
[[nodiscard]] MailAccount ParseAccount(std::string const& text, std::string const& fileName);

/// Where the account's file is: what the environment names as KVMAIL_ACCOUNT, else "kvutils/mail.ini" in the
/// folder for settings.
[[nodiscard]] std::string AccountFile();
/// The user's account. Throws a `MailError` too when the file, or the one that holds the token, is not the
/// user's own or others have any access to it.
[[nodiscard]] MailAccount LoadAccount(std::string const& fileName);

}  // namespace platform::detail
