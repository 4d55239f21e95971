// What the parts of the test mail client share.
#pragma once

#include "KVUtils/Tests/mail/MailClient.h"

#include <locale>
#include <sstream>
#include <type_traits>

#define KV_MAIL_ENTRY extern "C" __attribute__((visibility("default"))) platform::ULONG KV_MAIL_CALL

extern "C" tests::MailClient* TheMailClient();

namespace tests {

/// Records a call, its arguments separated by "|"; a null text is "-".
template <class... Arguments>
void Record(char const* name, Arguments... arguments) {
    std::ostringstream line;
    line.imbue(std::locale::classic());
    auto const put = [&line](auto argument) {
        if constexpr (std::is_pointer_v<decltype(argument)>) {
            line << '|' << (argument == nullptr ? "-" : argument);
        } else {
            line << '|' << argument;
        }
    };
    line << name;
    (put(arguments), ...);
    TheMailClient()->calls.push_back(line.str());
}

}  // namespace tests
