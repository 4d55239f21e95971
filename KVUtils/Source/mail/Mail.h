// Mail: one incoming message. It lists the names of its files cheaply; the files themselves are fetched when
// somebody asks for one.
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
    /// Without a date and with no attachments.
    Mail(sv::String subject, sv::String sender, sv::String body)
        : subject_(std::move(subject)), sender_(std::move(sender)), body_(std::move(body)) {}

    [[nodiscard]] sv::String const& GetSubject() const noexcept { return subject_; }
    /// The originator's name as the mail system gives it, "name/address".
    [[nodiscard]] sv::String const& GetSender() const noexcept { return sender_; }
    [[nodiscard]] sv::String const& GetBody() const noexcept { return body_; }
    [[nodiscard]] sv::Date GetDate() const noexcept { return date_; }
    [[nodiscard]] sv::Time GetTime() const noexcept { return time_; }
    /// What stands before the first "/" of the sender, or all of it.
    [[nodiscard]] sv::String GetSenderName() const { return sender_.GetToken(0, '/'); }
    /// What stands behind the first "/" of the sender, or all of it.
    [[nodiscard]] sv::String GetSenderAddress() const;

    void SetDateTime(sv::Date date, sv::Time time) noexcept;
    /// The mail system's identifier of the message, cut to 511 bytes.
    void SetMessageReference(char const* reference) noexcept;
    [[nodiscard]] char* GetMessageReference() noexcept { return reference_.data(); }

    /// Adds a copy.
    void AddAttachment(Attachment const* attachment);
    [[nodiscard]] long GetAttachmentCount() const noexcept { return static_cast<long>(attachments_.size()); }
    void RemoveAllAttachments() noexcept { attachments_.clear(); }
    /// Null when there is none of this number. `full` says that the file itself is wanted: the first such
    /// call has the mail client write all files of the message, and puts attachments with their paths in
    /// place of those that had none. When the client cannot, there are none from then on.
    [[nodiscard]] Attachment* GetAttachment(long index, bool full);

    /// Takes the message out of the mail client's store.
    void Delete();

  private:
    sv::String subject_;
    sv::String sender_;
    sv::String body_;
    sv::Date date_{0UL};
    sv::Time time_{0UL};
    std::deque<Attachment> attachments_;  // a pointer to one stays valid when others are added
    std::array<char, platform::MapiMessageIdSize> reference_{};
    bool attachmentsRead_ = false;
};

}  // namespace kv
