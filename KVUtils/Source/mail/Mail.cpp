#include "KVUtils/Source/mail/Mail.h"

#include "KVUtils/Source/mail/Mailer.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace kv {

sv::String Mail::GetSenderAddress() const {
    // Intentional: NotFound + 1 wraps to 0, so a sender without "/" is its own address.
    return sender_.Copy(sender_.Search('/') + 1);
}

void Mail::SetDateTime(sv::Date date, sv::Time time) noexcept {
    date_ = date;
    time_ = time;
}

void Mail::SetMessageReference(char const* reference) noexcept {
    std::string_view const kept =
        std::string_view(reference == nullptr ? "" : reference).substr(0, reference_.size() - 1);
    reference_.fill('\0');
    std::ranges::copy(kept, reference_.begin());
}

void Mail::AddAttachment(Attachment const* attachment) {
    if (attachment != nullptr) attachments_.push_back(*attachment);
}

Attachment* Mail::GetAttachment(long index, bool full) {
    if (full && !attachmentsRead_) {
        attachmentsRead_ = true;
        RemoveAllAttachments();
        Mailer::Instance()->ReadMailAttachments(this);
    }
    if (index < 0 || index >= GetAttachmentCount()) return nullptr;
    return &attachments_[static_cast<std::size_t>(index)];
}

void Mail::Delete() { Mailer::Instance()->DeleteMail(this); }

}  // namespace kv
