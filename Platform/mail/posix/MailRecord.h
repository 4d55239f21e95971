// MailRecord: a message in the form that the entries return; owns everything it points to.
#pragma once

#include "Platform/mail/MailEntries.h"
#include "Platform/mail/posix/MailStore.h"

#include <string>
#include <vector>

namespace platform::detail {

class MailRecord {
  public:
    explicit MailRecord(StoredMail mail);
    MailRecord(MailRecord const&) = delete;
    MailRecord& operator=(MailRecord const&) = delete;

    [[nodiscard]] MapiMessage* Message() noexcept { return &message_; }

  private:
    StoredMail mail_;
    std::string sender_;
    std::string empty_;
    MapiRecipDesc originator_{};
    std::vector<MapiFileDesc> files_;
    MapiMessage message_{};
};

}  // namespace platform::detail
