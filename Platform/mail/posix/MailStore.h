// MailStore: the user's incoming mail on the IMAP server. Reconnects if the connection was lost while idle.
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

/// The extent of a message to fetch.
enum class FetchExtent : int { Head, Text, Files };

struct StoredFile {
    std::string name;  // in Windows-1252, like the path
    std::string path;  // empty if the file has not been fetched
};

/// A message, with its texts in Windows-1252.
struct StoredMail {
    MailHead head;
    std::string received;  // "YYYY/MM/DD HH:MM"
    std::string text;
    std::vector<StoredFile> files;
};

/// All operations throw a `MailError` on failure.
class MailStore {
  public:
    /// The maximum size of a text to fetch, in encoded bytes; longer texts are cut.
    static constexpr std::size_t LongestText = 1U << 20;

    /// Logs on with the account in this file, which is read again for each connection, since its token may be
    /// renewed.
    explicit MailStore(std::string accountFile);

    /// Returns the message that arrived after `seed`. Without a seed the list of messages is updated and its
    /// first one returned.
    [[nodiscard]] std::optional<MessageNumber> FindNext(std::optional<MessageNumber> const& seed);
    /// Marks the message as read unless `peek` is set. Writes files into a private folder, which exists as
    /// long as the store; any other extent neither writes nor fetches files.
    [[nodiscard]] StoredMail Fetch(MessageNumber const& number, FetchExtent extent, bool peek);
    /// Deletes the message for good, without a copy in a folder for deleted mail.
    void Delete(MessageNumber const& number);

  private:
    void Connect();
    /// Opens the folder, which may renumber its messages.
    void Select();
    [[nodiscard]] std::vector<ImapValue> Command(std::string const& command);
    void RequireValid(MessageNumber const& number) const;
    /// Fetches the items of one message.
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
