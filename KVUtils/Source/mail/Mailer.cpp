#include "KVUtils/Source/mail/Mailer.h"

#include "KVUtils/Source/frame/WinIni.h"
#include "Platform/Library.h"
#include "SV/core/DirEntry.h"
#include "SV/core/NativePath.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>

namespace kv {

namespace {

using platform::MapiFileDesc;
using platform::MapiMessage;
using platform::ULONG;

using MessageId = std::array<char, platform::MapiMessageIdSize>;

ULONG ClientFlags(MailerFlagsTYPE flags) noexcept {
    constexpr ULONG boxes = platform::CMC_LOGON_UI_ALLOWED | platform::CMC_ERROR_UI_ALLOWED;
    switch (flags) {
        case MailerFlagsTYPE::Direct:
            return boxes;
        case MailerFlagsTYPE::WithDialog:
            return boxes | platform::CMC_SEND_UI_REQUESTED;
    }
    return static_cast<ULONG>(flags);
}

/// Returns the number at the start of a part of a date, modulo `limit`.
unsigned short Part(sv::String const& text, std::size_t number, char separator, long limit) {
    return static_cast<unsigned short>(std::max(text.GetToken(number, separator).ToLong(), 0L) % limit);
}

/// Parses "YYYY/MM/DD HH:MM".
void SetReceived(Mail& mail, sv::String const& received) {
    sv::String const date = received.GetToken(0, ' ');
    sv::String const time = received.GetToken(1, ' ');
    mail.SetDateTime({Part(date, 2, '/', 100), Part(date, 1, '/', 100), Part(date, 0, '/', 10000)},
                     {Part(time, 0, ':', 100), Part(time, 1, ':', 100)});
}

void AddFiles(Mail& mail, MapiMessage const& message) {
    if (message.lpFiles == nullptr) return;
    for (MapiFileDesc const& file : std::span(message.lpFiles, message.nFileCount)) {
        Attachment const attachment(file.lpszFileName, file.lpszPathName);
        mail.AddAttachment(&attachment);
    }
}

}  // namespace

constinit Mailer* Mailer::instance_ = nullptr;

Mailer* Mailer::Instance() {
    return instance_ != nullptr ? instance_ : Create(instance_, [] { return new Mailer; });
}

Mailer::Mailer() {
    if (ReadWinIni("Mail", "CMC") != "1") return;
    Load(sv::NativePath(ReadWinIni("Mail", "CMCDLLNAME32")));
}

Mailer::~Mailer() {
    LogOff();
    Unload();
    instance_ = nullptr;
}

void Mailer::Load(std::string const& fileName) {
    if (fileName.empty()) return;  // some systems load the program itself then
    unsigned long error = 0;
    module_ = platform::LoadLibraryFile(fileName, error);
    if (module_ != nullptr && !(BindSending() && LogOn())) Unload();
}

void Mailer::Unload() { platform::FreeLibraryFile(std::exchange(module_, nullptr)); }

template <class Entry>
void Mailer::Bind(Entry& entry, char const* name) const {
    unsigned long error = 0;
    entry = reinterpret_cast<Entry>(platform::FunctionAddress(module_, name, error));
}

bool Mailer::BindSending() {
    Bind(sendDocuments_, "cmc_send_documents");
    return sendDocuments_ != nullptr;
}

/// Returns false if the client has no entry to log on. One that refuses to log on can still send.
bool Mailer::LogOn() {
    platform::MAPILogonEntry logOn = nullptr;
    Bind(logOn, "MAPILogon");
    if (logOn == nullptr) return false;
    if (logOn(0, nullptr, nullptr, platform::MAPI_LOGON_UI, 0, &session_) != platform::SUCCESS_SUCCESS) {
        session_ = 0;
        return true;
    }
    Bind(findNext_, "MAPIFindNext");
    Bind(readMail_, "MAPIReadMail");
    Bind(deleteMail_, "MAPIDeleteMail");
    Bind(freeBuffer_, "MAPIFreeBuffer");
    return true;
}

void Mailer::LogOff() {
    if (module_ == nullptr || session_ == 0) return;
    platform::MAPILogoffEntry logOff = nullptr;
    Bind(logOff, "MAPILogoff");
    if (logOff != nullptr) logOff(session_, 0, 0, 0);
}

bool Mailer::SendDocuments(sv::String const& recipients, sv::String const& subject, sv::String const& text,
                           MailerFlagsTYPE flags, sv::String const& filePaths, sv::String& fileNames) {
    if (module_ == nullptr) return false;
    if (!filePaths.IsEmpty() && fileNames.IsEmpty()) fileNames = sv::DirEntry(filePaths).GetName();
    return sendDocuments_(recipients.GetStr(), subject.GetStr(), text.GetStr(), ClientFlags(flags),
                          filePaths.GetStr(), fileNames.GetStr(), ";", 0) == platform::CMC_SUCCESS;
}

bool Mailer::ReadMail(MailList& list) {
    if (session_ == 0 || findNext_ == nullptr) return false;
    MessageId seed{};
    MessageId id{};
    try {
        while (findNext_(session_, 0, nullptr, seed.data(), 0, 0, id.data()) == platform::SUCCESS_SUCCESS) {
            id.back() = '\0';
            if (Mail* const mail = MailOf(id.data())) list.Insert(mail, MailList::End);
            seed = id;
        }
    } catch (...) {  // NOLINT(bugprone-empty-catch): a failure of the client ends the loop
    }
    return false;
}

Mail* Mailer::MailOf(char const* id) const {
    auto const release = [this](MapiMessage* message) { Release(message); };
    std::unique_ptr<MapiMessage, decltype(release)> const message(Read(id, platform::MAPI_SUPPRESS_ATTACH),
                                                                  release);
    if (message == nullptr) return nullptr;
    auto const* const originator = message->lpOriginator;
    auto mail = std::make_unique<Mail>(
        message->lpszSubject, originator == nullptr ? "" : originator->lpszName, message->lpszNoteText);
    mail->SetMessageReference(id);
    SetReceived(*mail, message->lpszDateReceived);
    AddFiles(*mail, *message);
    return mail.release();
}

bool Mailer::ReadMailAttachments(Mail* mail) {
    try {
        MapiMessage* const message = Read(mail->GetMessageReference(), 0);
        if (message == nullptr) return false;
        AddFiles(*mail, *message);
        Release(message);
    } catch (...) {  // NOLINT(bugprone-empty-catch): a failure of the client fetches nothing
    }
    return false;
}

bool Mailer::DeleteMail(Mail* mail) {
    if (deleteMail_ == nullptr) return false;
    try {
        return deleteMail_(session_, 0, mail->GetMessageReference(), 0, 0) == platform::SUCCESS_SUCCESS;
    } catch (...) {
        return false;
    }
}

MapiMessage* Mailer::Read(char const* id, ULONG flags) const {
    MapiMessage* message = nullptr;
    if (readMail_ == nullptr) return nullptr;
    return readMail_(session_, 0, id, flags, 0, &message) == platform::SUCCESS_SUCCESS ? message : nullptr;
}

void Mailer::Release(MapiMessage* message) const {
    if (freeBuffer_ != nullptr) freeBuffer_(message);
}

}  // namespace kv
