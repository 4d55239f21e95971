#include "Platform/mail/Tests/Kvmail.h"
#include "Platform/mail/posix/MailAccount.h"
#include "Platform/mail/posix/MailError.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tests {

namespace {

using namespace platform::detail;

constexpr char Minimal[] =
    "[account]\naddress=a@b\npassword=p w\n[imap]\nserver=in\n[smtp]\nserver=out\nsecurity=starttls\n";

/// Returns the message with which an account is refused.
template <class Call>
std::string Refusal(Call const& call) {
    try {
        static_cast<void>(call());
    } catch (MailError const& error) {
        EXPECT_EQ(error.Fault(), MailFault::Configuration);
        return error.what();
    }
    return "accepted";
}

TEST(MailAccount, HasDefaults) {
    MailAccount const account = ParseAccount(Minimal, "f");
    EXPECT_EQ(account.user, "a@b");
    EXPECT_EQ(account.password, "p w");
    EXPECT_EQ(account.imap.port, 993);
    EXPECT_FALSE(account.imap.startTls);
    EXPECT_EQ(account.smtp.port, 587);
    EXPECT_TRUE(account.smtp.startTls);
    EXPECT_EQ(account.folder, "INBOX");
    EXPECT_EQ(account.timeoutSeconds, 30);
    EXPECT_EQ(account.largestMail, 50U << 20);
}

TEST(MailAccount, ErrorsAreNamed) {
    for (auto const& row : Table("account_errors.tsv")) {
        bool const isWhole = row.at(0).starts_with('!');
        std::string const text = isWhole ? "[account]\n" + row[0].substr(1) : Minimal + row[0];
        EXPECT_EQ(Refusal([&] { return ParseAccount(text + '\n', "f"); }), "f: " + row.at(1)) << text;
    }
}

TEST(MailAccount, FilesMustBePrivate) {
    TemporaryDirectory const home;
    std::string const file = home / "mail.ini";
    std::string const token = home / "token";
    auto const refusal = [&] { return Refusal([&] { return LoadAccount(file); }); };
    PutBytes(file, Minimal);
    for (auto const mode : {0640U, 0604U, 0620U, 0644U}) {
        ::chmod(file.c_str(), mode);
        EXPECT_EQ(refusal(), file + ": accessible to other users (set its mode to 0600)");
    }
    ::chmod(file.c_str(), 0600);
    EXPECT_EQ(LoadAccount(file).password, "p w");
    EXPECT_EQ(Refusal([&] { return LoadAccount(home / "none"); }), home / "none: cannot be read");
    EXPECT_EQ(Refusal([&] { return LoadAccount(home / ""); }), home / ": not a regular file");

    std::string text = Minimal;
    PutBytes(file, text.replace(text.find("password=p w"), 12, "token_file=" + token));
    PutBytes(token, "abc\nmore\n");
    ::chmod(token.c_str(), 0644);
    EXPECT_EQ(refusal(), token + ": accessible to other users (set its mode to 0600)");
    ::chmod(token.c_str(), 0600);
    EXPECT_EQ(LoadAccount(file).token, "abc");
    PutBytes(token, "");
    EXPECT_EQ(refusal(), token + ": contains no token") << "the token is read again";
    if (::geteuid() != 0 || ::chown(file.c_str(), 65534, 65534) != 0) return;  // only root can do this
    EXPECT_EQ(refusal(), file + ": belongs to another user");
}

TEST(MailAccount, FileNameComesFromTheEnvironment) {
    Environment const settings("XDG_CONFIG_HOME", "/settings");
    EXPECT_EQ(AccountFile(), "/settings/kvutils/mail.ini");
    Environment const named("KVMAIL_ACCOUNT", "/named");
    EXPECT_EQ(AccountFile(), "/named");
}

}  // namespace

}  // namespace tests
