// Mailer: the suite's way into the mail client that this computer names: sending documents by the Common
// Messaging Calls, reading and deleting incoming mail by Simple MAPI. Nothing is linked; in "win.ini", group
// "Mail", the key "CMC" with the value 1 says that there is a client, and "CMCDLLNAME32" names its library.
//
// What is available is settled at the first `Instance()`: nothing without a library, sending alone when the
// client refuses to log on, else everything. Nothing is shown here; the client may show its own windows.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "KVUtils/Source/mail/Mail.h"
#include "KVUtils/Source/mail/MailList.h"
#include "Platform/mail/MailEntries.h"
#include "SV/core/String.h"

#include <string>

namespace kv {

/// How documents are sent. Any other value goes to the mail client as it stands, as flags of CMC.
enum class MailerFlagsTYPE : int {
    Direct = 1,     // without asking
    WithDialog = 2  // the client shows its window for sending
};

class Mailer : public KVSingleton {
  public:
    /// Made at its first use, which may make the client ask for a password.
    [[nodiscard]] static Mailer* Instance();
    /// Logs off.
    ~Mailer() override;

    /// Whether there is a mail client.
    [[nodiscard]] bool IsMailAvailable() const noexcept { return module_ != nullptr; }

    /// Sends files in one mail. Several recipients, paths and names stand in one string each, divided by
    /// ";". Without names, `fileNames` becomes the name behind the last separator of `filePaths`. False when
    /// the client reports a failure, or there is none.
    bool SendDocuments(sv::String const& recipients, sv::String const& subject, sv::String const& text,
                       MailerFlagsTYPE flags, sv::String const& filePaths, sv::String& fileNames);

    /// Adds the mails of the client's store to the list, in the order in which the client gives them; their
    /// files are not fetched. A message that the client cannot read is passed over. The result is always
    /// false: look at the list.
    bool ReadMail(MailList& list);
    /// Has the client write the files of a mail, and adds them to its attachments. The result is always
    /// false: look at the mail.
    bool ReadMailAttachments(Mail* mail);
    /// Takes a mail out of the client's store.
    bool DeleteMail(Mail* mail);

  protected:
    Mailer();

  private:
    void Load(std::string const& fileName);
    void Unload();
    [[nodiscard]] bool BindSending();
    [[nodiscard]] bool LogOn();
    void LogOff();
    template <class Entry>
    void Bind(Entry& entry, char const* name) const;
    /// The mail of this identifier, or null when the client cannot read it.
    [[nodiscard]] Mail* MailOf(char const* id) const;
    /// The client's record of a message, or null.
    [[nodiscard]] platform::MapiMessage* Read(char const* id, platform::ULONG flags) const;
    void Release(platform::MapiMessage* message) const;

    static Mailer* instance_;

    void* module_ = nullptr;
    platform::CmcSendDocumentsEntry sendDocuments_ = nullptr;
    platform::LHANDLE session_ = 0;
    platform::MAPIFindNextEntry findNext_ = nullptr;
    platform::MAPIReadMailEntry readMail_ = nullptr;
    platform::MAPIDeleteMailEntry deleteMail_ = nullptr;
    platform::MAPIFreeBufferEntry freeBuffer_ = nullptr;  // not every client has it
};

}  // namespace kv
