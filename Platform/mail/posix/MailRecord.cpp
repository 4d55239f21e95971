#include "Platform/mail/posix/MailRecord.h"

#include <algorithm>
#include <utility>

namespace platform::detail {

namespace {

/// Returns "name/address". The first "/" separates them, so the name must not contain one.
std::string SenderOf(MailHead const& head) {
    std::string name = head.senderName;
    std::ranges::replace(name, '/', '-');
    return name + '/' + head.senderAddress;
}

}  // namespace

MailRecord::MailRecord(StoredMail mail) : mail_(std::move(mail)), sender_(SenderOf(mail_.head)) {
    originator_.ulRecipClass = MAPI_ORIG;
    originator_.lpszName = sender_.data();
    originator_.lpszAddress = mail_.head.senderAddress.data();
    for (StoredFile& file : mail_.files)
        files_.push_back({0, 0, static_cast<ULONG>(-1), file.path.data(), file.name.data(), nullptr});
    message_.lpszSubject = mail_.head.subject.data();
    message_.lpszNoteText = mail_.text.data();
    message_.lpszMessageType = empty_.data();
    message_.lpszDateReceived = mail_.received.data();
    message_.lpszConversationID = empty_.data();
    message_.lpOriginator = &originator_;
    message_.nFileCount = static_cast<ULONG>(files_.size());
    message_.lpFiles = files_.data();
}

}  // namespace platform::detail
