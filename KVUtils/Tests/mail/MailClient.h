// A mail client for the tests: a library with the entries of a real one, which answers as it is told and
// writes down how it was called. It is loaded by the name of its file, so its state is asked for by name too.
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
    bool throws = false;         // an exception instead of the answer of finding and deleting
    std::vector<ClientMail> mails;
    std::size_t held = 0;  // messages handed out and not released
};

/// Exported as "TheMailClient".
using TheMailClientEntry = MailClient* (*)();

}  // namespace tests
