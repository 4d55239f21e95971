// Mail: an incoming message. It knows the names of its files; the files are fetched when one is requested.
#pragma once

#include "KVUtils/Source/mail/Attachment.h"
#include "Platform/mail/MailEntries.h"
#include "SV/core/DateTime.h"
#include "SV/core/String.h"

#include <array>
#include <deque>
#include <utility>

namespace kv {

class Mail {
  public:
    /// Creates a mail without date and attachments.
    Mail(sv::String subject, sv::String sender, sv::String body)
        : subject_(std::move(subject)), sender_(std::move(sender)), body_(std::move(body)) {}

    [[nodiscard]] sv::String const& GetSubject() const noexcept { return subject_; }
    /// Returns the originator as the mail system gives it, "name/address".
    [[nodiscard]] sv::String const& GetSender() const noexcept { return sender_; }
    [[nodiscard]] sv::String const& GetBody() const noexcept { return body_; }
    [[nodiscard]] sv::Date GetDate() const noexcept { return date_; }
    [[nodiscard]] sv::Time GetTime() const noexcept { return time_; }
    /// Returns the part of the sender before the first "/", or all of it.
    [[nodiscard]] sv::String GetSenderName() const { return sender_.GetToken(0, '/'); }
    /// Returns the part of the sender after the first "/", or all of it.
    [[nodiscard]] sv::String GetSenderAddress() const;

    void SetDateTime(sv::Date date, sv::Time time) noexcept;
    /// Sets the mail system's identifier of the message, truncated to 511 bytes.
    void SetMessageReference(char const* reference) noexcept;
    [[nodiscard]] char* GetMessageReference() noexcept { return reference_.data(); }

    /// Adds a copy.
    void AddAttachment(Attachment const* attachment);
    [[nodiscard]] long GetAttachmentCount() const noexcept { return static_cast<long>(attachments_.size()); }
    void RemoveAllAttachments() noexcept { attachments_.clear(); }
    /// Returns null if there is no attachment of this number. With `full` the first call makes the mail
    /// client write all files of the message, and replaces the attachments by ones with paths. If the client
    /// fails, the mail has no attachments any more.
    [[nodiscard]] Attachment* GetAttachment(long index, bool full);

    /// Deletes the message from the mail client's store.
    void Delete();

  private:
    sv::String subject_;
    sv::String sender_;
    sv::String body_;
    sv::Date date_{0UL};
    sv::Time time_{0UL};
    std::deque<Attachment> attachments_;  // adding one keeps pointers to others valid
    std::array<char, platform::MapiMessageIdSize> reference_{};
    bool attachmentsRead_ = false;
};

}  // namespace kv
