#include "Platform/mail/Tests/Kvmail.h"
#include "Platform/mail/posix/MailAccount.h"
#include "Platform/mail/posix/MailError.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tests {

namespace {

using namespace platform::detail;

constexpr char Least[] =
    "[account]\naddress=a@b\npassword=p w\n[imap]\nserver=in\n[smtp]\nserver=out\nsecurity=starttls\n";

template <class Call>
std::string Refusal(Call const& call) {
    try {
        static_cast<void>(call());
    } catch (MailError const& error) {
        EXPECT_EQ(error.Fault(), MailFault::Configuration);
        return error.what();
    }
    return {};
}

TEST(MailAccount, WhatIsNotSaidHasASenseOfItsOwn) {
    MailAccount const account = ParseAccount(Least, "f");
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

TEST(MailAccount, MistakesAreNamed) {
    struct Row {
        std::string text;
        char const* words;
    };
    Row const rows[] = {
        {"[account]\n", "f: \"address\" in [account] is missing"},
        {"[account]\naddress=a@b\n",
         "f: \"password\" in [account] or \"token_file\" is needed, one of the two"},
        {std::string(Least) + "[account]\ntoken_file=t\n",
         "f: \"password\" in [account] or \"token_file\" is needed, one of the two"},
        {std::string(Least) + "port=0\n", "f: \"port\" in [smtp] is no number from 1 to 65535"},
        {std::string(Least) + "port=25x\n", "f: \"port\" in [smtp] is no number from 1 to 65535"},
        {std::string(Least) + "security=none\n", "f: \"security\" in [smtp] is neither tls nor starttls"},
        {std::string(Least) + "server=out/x\n", "f: \"server\" in [smtp] is no name of a computer"},
        {std::string(Least) + "tls=off\n", "f: \"tls\" in [smtp] is not known"},
        {std::string(Least) + "[imap]\nfolder=a\\nb\n", "f: \"folder\" in [imap] has a control character"},
        {std::string(Least) + "[limits]\ntimeout=601\n",
         "f: \"timeout\" in [limits] is no number from 1 to 600"},
    };
    for (Row const& row : rows)
        EXPECT_EQ(Refusal([&] { return ParseAccount(row.text, "f"); }), row.words) << row.text;
}

TEST(MailAccount, OnlyItsOwnerMayReadTheFile) {
    TemporaryDirectory const home;
    std::string const file = home / "mail.ini";
    PutBytes(file, Least);
    for (auto const mode : {0640U, 0604U, 0620U, 0644U}) {
        ::chmod(file.c_str(), mode);
        EXPECT_EQ(Refusal([&] { return LoadAccount(file); }),
                  file + ": others have access to it; its mode must be 0600");
    }
    ::chmod(file.c_str(), 0600);
    EXPECT_EQ(LoadAccount(file).password, "p w");
    EXPECT_EQ(Refusal([&] { return LoadAccount(home / "none"); }), home / "none: cannot be read");
    EXPECT_EQ(Refusal([&] { return LoadAccount(home / ""); }), home / ": is no file");
    if (::geteuid() != 0 || ::chown(file.c_str(), 65534, 65534) != 0) return;  // root alone gives files away
    EXPECT_EQ(Refusal([&] { return LoadAccount(file); }), file + ": belongs to another user");
}

TEST(MailAccount, TheTokenIsReadAnewFromItsOwnFile) {
    TemporaryDirectory const home;
    std::string text = Least;
    text.replace(text.find("password=p w"), 12, "token_file=" + home / "token");
    PutBytes(home / "mail.ini", text);
    PutBytes(home / "token", "abc\nmore\n");
    ::chmod((home / "mail.ini").c_str(), 0600);
    EXPECT_EQ(Refusal([&] { return LoadAccount(home / "mail.ini"); }),
              home / "token: others have access to it; its mode must be 0600");
    ::chmod((home / "token").c_str(), 0600);
    EXPECT_EQ(LoadAccount(home / "mail.ini").token, "abc");
    PutBytes(home / "token", "");
    EXPECT_EQ(Refusal([&] { return LoadAccount(home / "mail.ini"); }), home / "token: holds no token");
}

TEST(MailAccount, WhereTheFileIs) {
    Environment const settings("XDG_CONFIG_HOME", "/settings");
    EXPECT_EQ(AccountFile(), "/settings/kvutils/mail.ini");
    Environment const named("KVMAIL_ACCOUNT", "/named");
    EXPECT_EQ(AccountFile(), "/named");
}

}  // namespace

}  // namespace tests
