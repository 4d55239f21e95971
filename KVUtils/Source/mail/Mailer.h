// Mailer: access to the mail client of this computer. Sends documents with the Common Messaging Calls, reads
// and deletes incoming mail with Simple MAPI. The client's library is loaded at run time: in "win.ini", group
// "Mail", the key "CMC" with the value 1 enables mail, and "CMCDLLNAME32" names the library.
//
// The first `Instance()` determines what is available: nothing without a library, sending only if the client
// refuses to log on, otherwise everything. This class shows nothing; the client may show its own windows.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "KVUtils/Source/mail/Mail.h"
#include "KVUtils/Source/mail/MailList.h"
#include "Platform/mail/MailEntries.h"
#include "SV/core/String.h"

#include <string>

namespace kv {

/// How to send documents. Any other value is passed to the mail client as CMC flags.
enum class MailerFlagsTYPE : int {
    Direct = 1,     // at once
    WithDialog = 2  // after the client has shown its dialog
};

class Mailer : public KVSingleton {
  public:
    /// Creates the service on the first call; the client may ask for a password then.
    [[nodiscard]] static Mailer* Instance();
    /// Logs off.
    ~Mailer() override;

    /// Returns whether there is a mail client.
    [[nodiscard]] bool IsMailAvailable() const noexcept { return module_ != nullptr; }

    /// Sends files in one mail. Recipients, paths and names are lists separated by ";". If `fileNames` is
    /// empty, it is set to the part of `filePaths` after the last path separator. Returns false if the client
    /// reports a failure, or there is none.
    bool SendDocuments(sv::String const& recipients, sv::String const& subject, sv::String const& text,
                       MailerFlagsTYPE flags, sv::String const& filePaths, sv::String& fileNames);

    /// Appends the mails of the client's store to the list, in the client's order, without fetching their
    /// files. Skips a message that the client cannot read. Intentional: always returns false; check the list.
    bool ReadMail(MailList& list);
    /// Makes the client write the files of a mail, and adds them to its attachments. Intentional: always
    /// returns false; check the mail.
    bool ReadMailAttachments(Mail* mail);
    /// Deletes a mail from the client's store; returns false if that fails.
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
    /// Returns the mail of this identifier, or null if the client cannot read it.
    [[nodiscard]] Mail* MailOf(char const* id) const;
    /// Returns the client's record of a message, or null.
    [[nodiscard]] platform::MapiMessage* Read(char const* id, platform::ULONG flags) const;
    void Release(platform::MapiMessage* message) const;

    static Mailer* instance_;

    void* module_ = nullptr;
    platform::CmcSendDocumentsEntry sendDocuments_ = nullptr;
    platform::LHANDLE session_ = 0;
    platform::MAPIFindNextEntry findNext_ = nullptr;
    platform::MAPIReadMailEntry readMail_ = nullptr;
    platform::MAPIDeleteMailEntry deleteMail_ = nullptr;
    platform::MAPIFreeBufferEntry freeBuffer_ = nullptr;  // optional
};

}  // namespace kv
