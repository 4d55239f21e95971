#include "Platform/mail/Tests/Kvmail.h"
#include "Platform/mail/posix/MailSending.h"

namespace tests {

namespace {

using namespace platform::detail;

TEST(MailSending, NamesAreUsedIfThereIsOneForEachPath) {
    struct Row {
        char const* paths;
        char const* names;
        std::vector<std::string> files;
    };
    Row const rows[] = {
        {"/x/a;/y/b", "c;d", {"/x/a=c", "/y/b=d"}},
        {"/x/a;/y/b", "b", {"/x/a=a", "/y/b=b"}},
        {R"(\x\a)", "", {"/x/a=a"}},
        {"/x/\xE4", "\xE4", {"/x/\xC3\xA4=\xC3\xA4"}},
        {"", "", {}},
    };
    for (Row const& row : rows) {
        std::vector<std::string> files;
        for (OutgoingFile const& file : MailFrom("a@b", "s", "t", row.paths, row.names, ";").files)
            files.push_back(file.path + '=' + file.name);
        EXPECT_EQ(files, row.files) << row.paths;
    }
}

TEST(MailSending, ComposesSevenBitLinesWithoutBlindCopies) {
    MailAccount account;
    account.name = "Bj\xC3\xB6rk";
    account.address = "a@example.org";
    account.largestMail = 1U << 20;
    std::string const mail = Compose(account, MailFrom("b@c;bcc:hidden@c",
                                                       "Gr\xFC\xDF"
                                                       "e\r\nBcc: x@y",
                                                       "f\xFCr\n" + std::string(2000, 'x'), "", "", ";"));
    EXPECT_EQ(mail.find("hidden"), std::string::npos);
    EXPECT_EQ(mail.find("\nBcc"), std::string::npos) << "a subject is one line";
    EXPECT_NE(mail.find("To: b@c\r\n"), std::string::npos) << mail;
    EXPECT_NE(mail.find("Message-Id: <"), std::string::npos) << mail;
    std::size_t line = 0;
    for (std::size_t i = 0; i < mail.size(); ++i) {
        EXPECT_LT(static_cast<unsigned char>(mail[i]), 0x80);
        if (mail[i] != '\n') continue;
        EXPECT_EQ(mail[i - 1], '\r');
        EXPECT_LE(i - line, 998U);
        line = i;
    }
}

}  // namespace

}  // namespace tests
