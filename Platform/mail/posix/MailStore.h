// MailStore: the user's incoming mail on its server. A connection that was lost while nothing was asked is
// made anew by the next question.
#pragma once

#include "Platform/mail/posix/ImapConnection.h"
#include "Platform/mail/posix/MailAccount.h"
#include "Platform/mail/posix/MailParts.h"
#include "Platform/mail/posix/MailText.h"
#include "Platform/mail/posix/PrivateFolder.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform::detail {

/// What of a message is fetched.
enum class FetchExtent : int { Head, Text, Files };

struct StoredFile {
    std::string name;  // in Windows-1252, as is the path
    std::string path;  // empty as long as the file has not been fetched
};

/// A message, its texts in Windows-1252.
struct StoredMail {
    MailHead head;
    std::string received;  // "YYYY/MM/DD HH:MM"
    std::string text;
    std::vector<StoredFile> files;
};

/// Operations throw a `MailError`.
class MailStore {
  public:
    /// The most of a text that is fetched, in bytes as they are sent.
    static constexpr std::size_t LongestText = 1U << 20;

    /// Logs on by the account in this file, which is read anew for each connection: a token in it may be.
    explicit MailStore(std::string accountFile);

    /// The message that came in next after `seed`. The messages are counted anew where there is no seed.
    [[nodiscard]] std::optional<MessageNumber> FindNext(std::optional<MessageNumber> const& seed);
    /// Does not mark the message as read when `peek` is set. Files are written into a private folder, which
    /// stays as long as the store; for any other extent nothing is written, and nothing of the files' content
    /// fetched.
    [[nodiscard]] StoredMail Fetch(MessageNumber const& number, FetchExtent extent, bool peek);
    /// Moves nothing to a folder for deleted mail.
    void Delete(MessageNumber const& number);

  private:
    void Connect();
    /// The folder's messages have new numbers from here on.
    void Select();
    [[nodiscard]] std::vector<ImapValue> Command(std::string const& command);
    void RequireValid(MessageNumber const& number) const;
    /// The items of one message.
    [[nodiscard]] ImapValue FetchItems(std::uint32_t uid, std::string const& items);
    [[nodiscard]] std::string FetchText(std::uint32_t uid, MailPart const& part);
    [[nodiscard]] std::vector<StoredFile> FetchFiles(MessageNumber const& number,
                                                     std::vector<MailPart> const& parts);
    void FetchFile(std::uint32_t uid, MailPart const& part, NewFile& file, std::uint64_t& room);

    std::string accountFile_;
    MailAccount account_;
    std::unique_ptr<ImapConnection> connection_;
    std::uint32_t validity_ = 0;
    std::vector<std::uint32_t> uids_;  // ascending
    std::unique_ptr<PrivateFolder> folder_;
};

}  // namespace platform::detail
