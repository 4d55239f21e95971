// libkvmail as programs load it, against real servers.
#include "KVUtils/Source/mail/Mailer.h"
#include "Platform/Tests/TestSystem.h"
#include "Platform/mail/Tests/Kvmail.h"

#include <optional>
#include <sys/stat.h>

namespace tests {

namespace {

using namespace platform;

struct FileOfMail {
    std::string name;
    std::string path;
};
struct MailAsRead {
    ULONG answer = 0;
    std::string subject = {};
    std::string sender = {};
    std::string text = {};
    std::string received = {};
    std::vector<FileOfMail> files = {};
};

/// In KiB, where that can be seen.
long Growth(long before) { return MemoryIsMeasurable ? ResidentKiB() - before : 0; }

class ServersTest : public testing::Test {
  protected:
    void SetUp() override {
        if (auto const missing = MailServers::WhatIsMissing(); !missing.empty()) GTEST_SKIP() << missing;
        servers_ = std::make_unique<MailServers>();
        temporaryName_.emplace("TMPDIR", temporary_.Path().string());
        UseAccount({});
    }
    void TearDown() override {
        EXPECT_TRUE(std::filesystem::is_empty(temporary_.Path())) << "files of mails are left behind";
    }

    struct Account {
        std::string secret = "password=secret";
        std::string user = "anna";
        std::string imap = {};
        std::string smtp = {};
        std::string tls = {};
        std::string limits = {};
    };
    void UseAccount(Account const& account) {
        std::string const path = home_ / "mail.ini";
        PutBytes(path, "[account]\nname=Anna Bj\xC3\xB6rk\naddress=anna@example.org\nuser=" + account.user +
                           '\n' + account.secret + "\n[imap]\nserver=localhost\n" +
                           (account.imap.empty() ? "port=" + std::to_string(servers_->imaps) : account.imap) +
                           "\n[smtp]\nserver=localhost\nport=" +
                           (account.smtp.empty() ? std::to_string(servers_->smtps) : account.smtp) +
                           "\n[tls]\n" +
                           (account.tls.empty() ? "ca_file=" + *servers_ / "ca.pem" : account.tls) +
                           "\n[limits]\ntimeout=20\n" + account.limits + '\n');
        ::chmod(path.c_str(), 0600);
    }

    std::string Put(std::string const& name, std::string_view bytes) {
        PutBytes(home_ / name, bytes);
        return home_ / name;
    }

    [[nodiscard]] ULONG LogOn() { return kvmail_.logOn(0, nullptr, nullptr, MAPI_LOGON_UI, 0, &session_); }
    ULONG LogOff() { return kvmail_.logOff(session_, 0, 0, 0); }
    [[nodiscard]] ULONG SendTo(std::string const& recipients, std::string const& paths = {},
                               std::string const& names = {}) {
        return kvmail_.send(recipients.c_str(), "subject", "text", 0, paths.c_str(), names.c_str(), ";", 0);
    }
    [[nodiscard]] ULONG Find(std::string const& seed, std::string& id) {
        std::array<char, MapiMessageIdSize> room{};
        ULONG const answer = kvmail_.findNext(session_, 0, nullptr, seed.c_str(), 0, 0, room.data());
        id = room.data();
        return answer;
    }
    /// The identifiers of all messages.
    [[nodiscard]] std::vector<std::string> FindAll() {
        std::vector<std::string> ids;
        std::string id;
        while (Find(id, id) == SUCCESS_SUCCESS) ids.push_back(id);
        return ids;
    }
    [[nodiscard]] MailAsRead Read(std::string const& id, ULONG flags) {
        MapiMessage* message = nullptr;
        MailAsRead mail{kvmail_.readMail(session_, 0, id.c_str(), flags, 0, &message)};
        if (mail.answer != SUCCESS_SUCCESS) return mail;
        mail.subject = message->lpszSubject;
        mail.sender = message->lpOriginator->lpszName;
        mail.text = message->lpszNoteText;
        mail.received = message->lpszDateReceived;
        for (ULONG i = 0; i < message->nFileCount; ++i)
            mail.files.push_back({message->lpFiles[i].lpszFileName, message->lpFiles[i].lpszPathName});
        kvmail_.freeBuffer(message);
        return mail;
    }

    Kvmail kvmail_;
    TemporaryDirectory home_;
    TemporaryDirectory temporary_;
    Environment account_{"KVMAIL_ACCOUNT", home_ / "mail.ini"};
    Environment log_{"KVMAIL_LOG", home_ / "log"};
    std::unique_ptr<MailServers> servers_;
    std::optional<Environment> temporaryName_;
    LHANDLE session_ = 0;
};

TEST_F(ServersTest, WhatIsSentComesInWhole) {
    std::string bytes;
    for (int i = 0; i < 200000; ++i) bytes += static_cast<char>(i * 7 + i / 256);
    std::string const first =
        Put("bericht \xC3\xA4.bin", bytes);  // the disk has UTF-8, the entry takes Windows-1252
    std::string const second = Put("b.txt", "\r\nline\n.\n");
    std::string const paths = home_ / "bericht \xE4.bin" + ";" + second;
    ASSERT_EQ(kvmail_.send("Bj\xF6rn <bob@example.org>; cc:carl@example.org;BCC:SMTP:dora@example.org",
                           "Gr\xFC\xDF"
                           "e \x80",
                           "f\xFCr\r\n.\r\nalle", 0x3000000, paths.c_str(), "bericht \xE4.bin;b.txt", ";", 0),
              CMC_SUCCESS)
        << Bytes(home_ / "log");
    EXPECT_EQ(Bytes(*servers_ / "envelopes"),
              "anna@example.org bob@example.org,carl@example.org,dora@example.org\n");

    ASSERT_EQ(LogOn(), SUCCESS_SUCCESS) << Bytes(home_ / "log");
    auto const ids = FindAll();
    ASSERT_EQ(ids.size(), 1U);
    MailAsRead const listed = Read(ids[0], MAPI_SUPPRESS_ATTACH);
    EXPECT_EQ(listed.subject,
              "Gr\xFC\xDF"
              "e \x80");
    EXPECT_EQ(listed.sender, "Anna Bj\xF6rk/anna@example.org");
    EXPECT_EQ(listed.text, "f\xFCr\n.\nalle");
    EXPECT_EQ(listed.received.size(), 16U) << listed.received;
    ASSERT_EQ(listed.files.size(), 2U);
    EXPECT_EQ(listed.files[0].name, "bericht \xE4.bin");
    EXPECT_EQ(listed.files[0].path, "");
    EXPECT_TRUE(std::filesystem::is_empty(temporary_.Path()));

    MailAsRead const whole = Read(ids[0], 0);
    ASSERT_EQ(whole.files.size(), 2U) << Bytes(home_ / "log");
    EXPECT_TRUE(whole.files[0].path.ends_with("/bericht \xE4.bin"));
    EXPECT_EQ(Bytes(std::filesystem::path(whole.files[0].path).parent_path() / "bericht \xC3\xA4.bin"),
              bytes);
    EXPECT_EQ(Bytes(whole.files[1].path), "\r\nline\n.\n");
    struct stat status {};
    ::stat(std::filesystem::path(whole.files[1].path).parent_path().parent_path().c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    EXPECT_EQ(LogOff(), SUCCESS_SUCCESS);
    EXPECT_EQ(LogOff(), MAPI_E_INVALID_SESSION);
}

TEST_F(ServersTest, MailsAreFoundInTheirOrderAndDeletedForGood) {
    for (char const* const name : {"a", "b", "c"})
        servers_->Deliver(name, std::string("From: x@example.org\r\nSubject: ") + name + "\r\n\r\ntext\r\n");
    ASSERT_EQ(LogOn(), SUCCESS_SUCCESS);
    auto const ids = FindAll();
    ASSERT_EQ(ids.size(), 3U);
    EXPECT_EQ(kvmail_.deleteMail(session_, 0, ids[1].c_str(), 0, 0), SUCCESS_SUCCESS);
    EXPECT_EQ(kvmail_.deleteMail(session_, 0, ids[1].c_str(), 0, 0), MAPI_E_INVALID_MESSAGE);
    EXPECT_EQ(Read(ids[1], MAPI_SUPPRESS_ATTACH).answer, MAPI_E_INVALID_MESSAGE);
    EXPECT_EQ(Read("1.1", 0).answer, MAPI_E_INVALID_MESSAGE) << "of a folder that was there once";
    EXPECT_EQ(Read("nonsense", 0).answer, MAPI_E_INVALID_MESSAGE);
    EXPECT_EQ(FindAll(), (std::vector<std::string>{ids[0], ids[2]}));
    EXPECT_EQ(LogOff(), SUCCESS_SUCCESS);

    ASSERT_EQ(LogOn(), SUCCESS_SUCCESS);
    EXPECT_EQ(FindAll(), (std::vector<std::string>{ids[0], ids[2]})) << "identifiers outlast a session";
    LogOff();
}

TEST_F(ServersTest, WhoIsLetIn) {
    std::string const imap = "security=starttls\nport=" + std::to_string(servers_->imap);
    std::string const token = Put("token", Bytes(*servers_ / "token"));
    std::string const badToken = Put("bad token", "x" + Bytes(*servers_ / "token"));
    for (std::string const& path : {token, badToken}) ::chmod(path.c_str(), 0600);
    struct Row {
        char const* what;
        Account account;
        ULONG logOn;
        ULONG send;
    };
    Row const rows[] = {
        {"password", {}, SUCCESS_SUCCESS, CMC_SUCCESS},
        {"TLS inside the connection", {.imap = imap}, SUCCESS_SUCCESS, CMC_SUCCESS},
        {"bearer token", {.secret = "token_file=" + token}, SUCCESS_SUCCESS, CMC_SUCCESS},
        {"wrong password", {.secret = "password=wrong"}, MAPI_E_LOGON_FAILURE, CMC_E_LOGON_FAILURE},
        {"wrong token", {.secret = "token_file=" + badToken}, MAPI_E_LOGON_FAILURE, CMC_E_LOGON_FAILURE},
        {"wrong user", {.user = "otto"}, MAPI_E_LOGON_FAILURE, CMC_E_LOGON_FAILURE},
        {"certificate of nobody known",
         {.tls = "ca_file=/etc/ssl/certs/ca-certificates.crt"},
         MAPI_E_NETWORK_FAILURE,
         CMC_E_SERVICE_UNAVAILABLE},
        {"no such server",
         {.imap = "port=1", .smtp = "1"},
         MAPI_E_NETWORK_FAILURE,
         CMC_E_SERVICE_UNAVAILABLE},
    };
    for (Row const& row : rows) {
        UseAccount(row.account);
        EXPECT_EQ(LogOn(), row.logOn) << row.what << ": " << Bytes(home_ / "log");
        if (row.logOn == SUCCESS_SUCCESS) LogOff();
        EXPECT_EQ(SendTo("bob@example.org"), row.send) << row.what << ": " << Bytes(home_ / "log");
    }
    std::string const log = Bytes(home_ / "log");
    for (char const* const secret : {"secret", "wrong", "eyJ"})
        EXPECT_EQ(log.find(secret), std::string::npos) << log;
}

TEST_F(ServersTest, WhatCannotBeSentIsRefused) {
    std::string const file = Put("a.txt", "text");
    std::string const large = Put("large", std::string(3U << 20, 'x'));
    UseAccount({.limits = "largest_mail_mb=2"});
    EXPECT_EQ(SendTo(""), CMC_E_RECIPIENT_NOT_FOUND);
    EXPECT_EQ(SendTo("bob@example.org;anna"), CMC_E_RECIPIENT_NOT_FOUND);
    EXPECT_EQ(SendTo("bob@example.org\r\nRCPT TO:<eve@example.org>"), CMC_E_RECIPIENT_NOT_FOUND);
    EXPECT_EQ(SendTo("bob@example.org", home_ / "none"), CMC_E_ATTACHMENT_NOT_FOUND);
    EXPECT_EQ(SendTo("bob@example.org", home_ / ""), CMC_E_ATTACHMENT_NOT_FOUND) << "a folder";
    EXPECT_EQ(SendTo("bob@example.org", large), CMC_E_TEXT_TOO_LARGE);
    EXPECT_EQ(SendTo("bob@example.org;nobody@example.org", file), CMC_E_FAILURE);
    EXPECT_EQ(kvmail_.send("bob@example.org", "s", "t", 0x3000001, "", "", ";", 0), CMC_E_UNSUPPORTED_FLAG);
    EXPECT_EQ(Bytes(*servers_ / "envelopes"), "") << "nobody got anything";
}

TEST_F(ServersTest, ABrokenWire) {
    servers_->Deliver("a",
                      "From: x@example.org\r\nSubject: a\r\nContent-Type: application/x; name=a.bin\r\n\r\n" +
                          std::string(60000, 'x') + "\r\n");
    UseAccount({.imap = "port=" + std::to_string(servers_->breakingImaps),
                .smtp = std::to_string(servers_->breakingSmtps)});
    ASSERT_EQ(LogOn(), SUCCESS_SUCCESS);
    for (int i = 0; i < 60; ++i) {
        auto const ids = FindAll();
        ASSERT_EQ(ids.size(), 1U) << "made anew by the next question, round " << i;
        ASSERT_EQ(Read(ids[0], MAPI_SUPPRESS_ATTACH).subject, "a");
    }
    EXPECT_NE(Bytes(home_ / "log"), "") << "it broke";
    EXPECT_EQ(Read(FindAll()[0], 0).answer, MAPI_E_NETWORK_FAILURE) << "a file that does not come through";
    std::size_t files = 0;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(temporary_.Path()))
        files += entry.is_regular_file() ? 1 : 0;
    EXPECT_EQ(files, 0U) << "no part of it is left";
    LogOff();

    EXPECT_EQ(SendTo("bob@example.org"), CMC_SUCCESS);
    EXPECT_EQ(SendTo("bob@example.org", Put("large", std::string(60000, 'x'))), CMC_E_SERVICE_UNAVAILABLE);
    EXPECT_EQ(Bytes(*servers_ / "envelopes"), "anna@example.org bob@example.org\n")
        << "the second did not get there";
}

TEST_F(ServersTest, ServersThatAreGone) {
    ASSERT_EQ(LogOn(), SUCCESS_SUCCESS);
    servers_->Stop();
    std::string id;
    EXPECT_EQ(Find("", id), MAPI_E_NETWORK_FAILURE);
    EXPECT_EQ(SendTo("bob@example.org"), CMC_E_SERVICE_UNAVAILABLE);
    EXPECT_EQ(LogOff(), SUCCESS_SUCCESS);
}

TEST_F(ServersTest, HostileMail) {
    std::string const part =
        "--b\r\nContent-Type: application/x\r\nContent-Disposition: attachment; filename=";
    servers_->Deliver("1", "Subject: names\r\nContent-Type: multipart/mixed; boundary=b\r\n\r\n" + part +
                               "\"../../../etc/passwd\"\r\n\r\none\r\n" + part +
                               "\"..\\\\passwd\"\r\n\r\ntwo\r\n" + part + "\"/\"\r\n\r\nthree\r\n" + part +
                               "\".profile\"\r\n\r\nfour\r\n--b--\r\n");
    servers_->Deliver(
        "2",
        "Subject: =?utf-8?B?broken\r\nFrom: \r\nContent-Type: multipart/mixed; boundary=\"x\r\n\r\n--x\r\n"
        "Content-Transfer-Encoding: base64\r\nContent-Type: application/x\r\n\r\n====!!\r\n");
    std::string deep;
    for (int i = 0; i < 300; ++i)
        deep += "Content-Type: multipart/mixed; boundary=d" + std::to_string(i) + "\r\n\r\n--d" +
                std::to_string(i) + "\r\n";
    servers_->Deliver("3", "Subject: deep\r\n" + deep + "\r\nbottom\r\n");
    servers_->Deliver(
        "4", "Subject: large\r\nContent-Type: multipart/mixed; boundary=b\r\n\r\n--b\r\n\r\nsmall text\r\n" +
                 part + "large.bin\r\n\r\n" + std::string(100U << 20, 'x') + "\r\n--b--\r\n");
    ASSERT_EQ(LogOn(), SUCCESS_SUCCESS);
    auto const ids = FindAll();
    ASSERT_EQ(ids.size(), 4U);

    MailAsRead const names = Read(ids[0], 0);
    ASSERT_EQ(names.files.size(), 4U) << Bytes(home_ / "log");
    std::vector<std::string> const safe = {"passwd", "passwd (2)", "attachment", "_profile"};
    for (std::size_t i = 0; i < safe.size(); ++i) {
        EXPECT_EQ(names.files[i].name, safe[i]);
        EXPECT_TRUE(names.files[i].path.starts_with(temporary_.Path().string())) << names.files[i].path;
        EXPECT_TRUE(std::filesystem::is_regular_file(names.files[i].path));
    }
    EXPECT_EQ(Read(ids[1], 0).answer, SUCCESS_SUCCESS) << Bytes(home_ / "log");
    EXPECT_EQ(Read(ids[2], 0).subject, "deep") << Bytes(home_ / "log");

    long const before = ResidentKiB();
    MailAsRead const large = Read(ids[3], MAPI_SUPPRESS_ATTACH);
    EXPECT_EQ(large.text, "small text");
    ASSERT_EQ(large.files.size(), 1U);
    EXPECT_LT(Growth(before), 10 * 1024) << "KiB for listing 100 MiB";
    EXPECT_EQ(Read(ids[3], 0).answer, MAPI_E_TEXT_TOO_LARGE);
    EXPECT_LT(Growth(before), 20 * 1024) << "KiB for fetching 50 MiB of it";
    EXPECT_EQ(FindAll(), ids) << "the session stands";
    LogOff();
}

TEST_F(ServersTest, TheSuitesMailer) {
    Put("win.ini", std::string("[Mail]\nCMC=1\nCMCDLLNAME32=") + KV_MAIL_LIBRARY + "\n");
    Environment const windir("windir", home_ / "");
    sv::Date const before;
    kv::Mailer* const mailer = kv::Mailer::Instance();
    sv::String names;
    EXPECT_TRUE(mailer->SendDocuments("bob@example.org", "Tint", "text", kv::MailerFlagsTYPE::Direct,
                                      Put("formula.txt", "formula"), names));
    kv::MailList list;
    mailer->ReadMail(list);
    ASSERT_EQ(list.Count(), 1U);
    std::unique_ptr<kv::Mail> const mail(list.GetObject(0));
    EXPECT_EQ(mail->GetSenderAddress(), "anna@example.org");
    EXPECT_TRUE(mail->GetDate() == before || mail->GetDate() == sv::Date()) << mail->GetDate().GetDate();
    ASSERT_NE(mail->GetAttachment(0, true), nullptr);
    EXPECT_EQ(mail->GetAttachment(0, true)->GetFileName(), "formula.txt");
    EXPECT_EQ(Bytes(mail->GetAttachment(0, true)->GetPathName().GetStr()), "formula");
    mail->Delete();
    mailer->ReadMail(list);
    EXPECT_EQ(list.Count(), 1U) << "nothing came to it";
    kv::KVSingleton::Remove(mailer);
    delete mailer;
}

}  // namespace

}  // namespace tests
