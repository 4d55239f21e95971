#include "KVUtils/Tests/mail/MailClientState.h"

KV_MAIL_ENTRY cmc_send_documents(char const* recipients, char const* subject, char const* text,
                                 platform::ULONG flags, char const* filePaths, char const* fileNames,
                                 char const* delimiter, platform::ULONG uiId) {
    tests::Record("send", recipients, subject, text, flags, filePaths, fileNames, delimiter, uiId);
    return TheMailClient()->answer;
}
