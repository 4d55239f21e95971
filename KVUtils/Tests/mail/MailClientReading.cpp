#include "KVUtils/Tests/mail/MailClientState.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace {

using platform::LHANDLE;
using platform::ULONG;
using platform::ULONG_PTR;
using tests::ClientMail;

constexpr LHANDLE Session = 4711;
constexpr char Text[] = "note text";

/// A message that owns the data of its record.
struct Message : platform::MapiMessage {
    Message(ClientMail const& from, bool withFiles) : MapiMessage(), mail(from) {
        lpszSubject = mail.subject.data();
        lpszNoteText = text.data();
        lpszDateReceived = mail.received.data();
        originator.lpszName = mail.originator.data();
        lpOriginator = &originator;
        for (std::string& name : mail.files) paths.push_back(withFiles ? "/fetched/" + name : "");
        for (std::size_t i = 0; i < paths.size(); ++i)
            files.push_back({0, 0, 0, paths[i].data(), mail.files[i].data(), nullptr});
        nFileCount = static_cast<ULONG>(files.size());
        lpFiles = files.data();
    }

    ClientMail mail;
    std::string text = Text;
    std::vector<std::string> paths;
    std::vector<platform::MapiFileDesc> files;
    platform::MapiRecipDesc originator{};
};

auto Find(char const* id) { return std::ranges::find(TheMailClient()->mails, id, &ClientMail::id); }

void ThrowIfSet() {
    if (TheMailClient()->throws) throw std::runtime_error("the client failed");
}

}  // namespace

KV_MAIL_ENTRY MAPILogon(ULONG_PTR window, char const* profile, char const* password, ULONG flags,
                        ULONG reserved, LHANDLE* session) {
    tests::Record("logon", window, profile, password, flags, reserved);
    *session = Session;
    return TheMailClient()->answer;
}

KV_MAIL_ENTRY MAPIFindNext(LHANDLE session, ULONG_PTR window, char const* type, char const* seed, ULONG flags,
                           ULONG reserved, char* id) {
    tests::Record("find", session, window, type, seed, flags, reserved);
    auto const& mails = TheMailClient()->mails;
    auto const next = *seed == '\0' ? mails.begin() : Find(seed) + 1;
    if (next == mails.end()) {
        ThrowIfSet();
        return platform::MAPI_E_NO_MESSAGES;
    }
    std::strcpy(id, next->id.c_str());
    return platform::SUCCESS_SUCCESS;
}

KV_MAIL_ENTRY MAPIReadMail(LHANDLE session, ULONG_PTR window, char const* id, ULONG flags, ULONG reserved,
                           platform::MapiMessage** message) {
    tests::Record("read", session, window, id, flags, reserved);
    auto const mail = Find(id);
    if (mail == TheMailClient()->mails.end() || !mail->isReadable) return platform::MAPI_E_INVALID_MESSAGE;
    ++TheMailClient()->held;
    *message = std::make_unique<Message>(*mail, flags == 0).release();
    return platform::SUCCESS_SUCCESS;
}

KV_MAIL_ENTRY MAPIDeleteMail(LHANDLE session, ULONG_PTR window, char const* id, ULONG flags, ULONG reserved) {
    tests::Record("delete", session, window, id, flags, reserved);
    ThrowIfSet();
    return TheMailClient()->answer;
}

KV_MAIL_ENTRY MAPILogoff(LHANDLE session, ULONG_PTR window, ULONG flags, ULONG reserved) {
    tests::Record("logoff", session, window, flags, reserved);
    return platform::SUCCESS_SUCCESS;
}

KV_MAIL_ENTRY MAPIFreeBuffer(void* message) {
    delete static_cast<Message*>(static_cast<platform::MapiMessage*>(message));
    --TheMailClient()->held;
    return platform::SUCCESS_SUCCESS;
}
