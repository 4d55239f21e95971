// A mail client for the tests: a library with the entries of a real one, which returns what the test sets and
// records its calls. It is loaded by file name, so its state is found by name, too.
#pragma once

#include "Platform/mail/MailEntries.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tests {

struct ClientMail {
    std::string id;
    std::string subject;
    std::string originator;
    std::string received;
    std::vector<std::string> files = {};
    bool isReadable = true;
};

struct MailClient {
    std::vector<std::string> calls;
    platform::ULONG answer = 0;  // of sending, logging on and deleting
    bool throws = false;         // throw an exception when finding and deleting
    std::vector<ClientMail> mails;
    std::size_t held = 0;  // messages not released
};

/// Exported as "TheMailClient".
using TheMailClientEntry = MailClient* (*)();

}  // namespace tests
