#include "KVUtils/Tests/mail/MailClientState.h"

tests::MailClient* TheMailClient() {
    static tests::MailClient client;
    return &client;
}
