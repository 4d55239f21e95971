// libkvmail as programs load it, with real servers. Few tests, since each starts its servers.
#include "KVUtils/Source/mail/Mailer.h"
#include "Platform/mail/Tests/Kvmail.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <sys/stat.h>

namespace tests {

namespace {

using namespace platform;

struct MailAsRead {
    ULONG result = 0;
    std::string subject = {};
    std::string sender = {};
    std::string text = {};
    std::string received = {};
    std::vector<std::string> names = {};
    std::vector<std::string> paths = {};
};

class ServersTest : public testing::Test {
  protected:
    void SetUp() override {
        if (auto const missing = MailServers::WhatIsMissing(); !missing.empty()) GTEST_SKIP() << missing;
        servers_ = std::make_unique<MailServers>();
        temporaryName_.emplace("TMPDIR", temporary_.Path().string());
        UseAccount({});
    }
    void TearDown() override {
        EXPECT_TRUE(std::filesystem::is_empty(temporary_.Path())) << "files of mails remain";
    }

    using Changes = std::vector<std::pair<std::string, std::string>>;
    /// Sets the account: that of "account.ini" with the changes, then with the values of the servers.
    void UseAccount(Changes changes) {
        Changes const values = {{"{IMAPS}", std::to_string(servers_->imaps)},
                                {"{IMAP}", std::to_string(servers_->imap)},
                                {"{SMTPS}", std::to_string(servers_->smtps)},
                                {"{CA}", *servers_ / "ca.pem"}};
        changes.insert(changes.end(), values.begin(), values.end());
        std::string text = Bytes(DataFile("account.ini"));
        for (auto const& [from, to] : changes) {
            if (auto const at = text.find(from); at != std::string::npos) text.replace(at, from.size(), to);
        }
        ::chmod(Put("mail.ini", text).c_str(), 0600);
    }

    std::string Put(std::string const& name, std::string_view bytes) {
        PutBytes(home_ / name, bytes);
        return home_ / name;
    }
    [[nodiscard]] std::string Log() const { return Bytes(home_ / "log"); }
    [[nodiscard]] std::string Envelopes() const { return Bytes(*servers_ / "envelopes"); }

    [[nodiscard]] ULONG LogOn() { return kvmail_.logOn(0, nullptr, nullptr, MAPI_LOGON_UI, 0, &session_); }
    ULONG LogOff() { return kvmail_.logOff(session_, 0, 0, 0); }
    [[nodiscard]] ULONG SendTo(std::string const& recipients, std::string const& paths = {}) {
        return kvmail_.send(recipients.c_str(), "subject", "text", 0, paths.c_str(), "", ";", 0);
    }
    [[nodiscard]] ULONG Delete(std::string const& id) {
        return kvmail_.deleteMail(session_, 0, id.c_str(), 0, 0);
    }
    [[nodiscard]] ULONG Find(std::string const& seed, std::string& id) {
        std::array<char, MapiMessageIdSize> room{};
        ULONG const result = kvmail_.findNext(session_, 0, nullptr, seed.c_str(), 0, 0, room.data());
        id = room.data();
        return result;
    }
    /// Returns the identifiers of all messages.
    [[nodiscard]] std::vector<std::string> FindAll() {
        std::vector<std::string> ids;
        for (std::string id; Find(id, id) == SUCCESS_SUCCESS;) ids.push_back(id);
        return ids;
    }
    [[nodiscard]] MailAsRead Read(std::string const& id, ULONG flags) {
        MapiMessage* message = nullptr;
        MailAsRead mail{kvmail_.readMail(session_, 0, id.c_str(), flags, 0, &message)};
        if (mail.result != SUCCESS_SUCCESS) return mail;
        mail.subject = message->lpszSubject;
        mail.sender = message->lpOriginator->lpszName;
        mail.text = message->lpszNoteText;
        mail.received = message->lpszDateReceived;
        for (ULONG i = 0; i < message->nFileCount; ++i) {
            mail.names.emplace_back(message->lpFiles[i].lpszFileName);
            mail.paths.emplace_back(message->lpFiles[i].lpszPathName);
        }
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

TEST_F(ServersTest, MailsAreSentFoundReadAndDeleted) {
    std::string bytes;
    for (int i = 0; i < 200000; ++i) bytes += static_cast<char>(i * 7 + i / 256);
    // The disk uses UTF-8, the entries Windows-1252.
    Put("bericht \xC3\xA4.bin", bytes);
    std::string const paths = home_ / "bericht \xE4.bin" + ";" + Put("b.txt", "\r\nline\n.\n");
    std::string const subject = "Gr\xFC\xDF";
    ASSERT_EQ(kvmail_.send("Bj\xF6rn <bob@example.org>; cc:carl@example.org;BCC:SMTP:dora@example.org",
                           subject.c_str(), "f\xFCr\r\n.\r\nalle", 0x3000000, paths.c_str(),
                           "bericht \xE4.bin;b.txt", ";", 0),
              CMC_SUCCESS)
        << Log();
    EXPECT_EQ(Envelopes(), "anna@example.org bob@example.org,carl@example.org,dora@example.org\n");

    ASSERT_EQ(LogOn(), SUCCESS_SUCCESS) << Log();
    auto ids = FindAll();
    ASSERT_EQ(ids.size(), 1U);
    MailAsRead const listed = Read(ids[0], MAPI_SUPPRESS_ATTACH);
    EXPECT_EQ(listed.subject, subject);
    EXPECT_EQ(listed.sender, "Anna Bj\xF6rk/anna@example.org");
    EXPECT_EQ(listed.text, "f\xFCr\n.\nalle");
    EXPECT_EQ(listed.received.size(), 16U) << listed.received;
    EXPECT_EQ(listed.names, (std::vector<std::string>{"bericht \xE4.bin", "b.txt"}));
    EXPECT_EQ(listed.paths, std::vector<std::string>(2));
    EXPECT_TRUE(std::filesystem::is_empty(temporary_.Path()));
    MailAsRead const whole = Read(ids[0], 0);
    ASSERT_EQ(whole.paths.size(), 2U) << Log();
    EXPECT_TRUE(whole.paths[0].ends_with("/bericht \xE4.bin"));
    auto const folder = std::filesystem::path(whole.paths[1]).parent_path();
    EXPECT_EQ(Bytes(folder / "bericht \xC3\xA4.bin"), bytes);
    EXPECT_EQ(Bytes(whole.paths[1]), "\r\nline\n.\n");
    EXPECT_EQ(std::filesystem::status(folder.parent_path()).permissions(), std::filesystem::perms::owner_all);

    for (char const* const name : {"a", "b"})
        servers_->Deliver(name, std::string("From: x@example.org\r\nSubject: ") + name + "\r\n\r\ntext\r\n");
    ids = FindAll();
    ASSERT_EQ(ids.size(), 3U);
    EXPECT_EQ(Delete(ids[1]), SUCCESS_SUCCESS);
    EXPECT_EQ(Delete(ids[1]), MAPI_E_INVALID_MESSAGE);
    for (std::string const& id : {ids[1], std::string("1.1"), std::string("nonsense")})
        EXPECT_EQ(Read(id, MAPI_SUPPRESS_ATTACH).result, MAPI_E_INVALID_MESSAGE) << id;
    std::vector<std::string> const left = {ids[0], ids[2]};
    EXPECT_EQ(FindAll(), left);
    EXPECT_EQ(LogOff(), SUCCESS_SUCCESS);
    EXPECT_EQ(LogOff(), MAPI_E_INVALID_SESSION);
    ASSERT_EQ(LogOn(), SUCCESS_SUCCESS);
    EXPECT_EQ(FindAll(), left) << "identifiers remain valid in later sessions";
    for (std::string const& id : left) EXPECT_EQ(Delete(id), SUCCESS_SUCCESS);
    LogOff();

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
    EXPECT_EQ(list.Count(), 1U) << "no mail was added";
    kv::KVSingleton::Remove(mailer);
    delete mailer;
}

TEST_F(ServersTest, FailuresHaveTheirNumbers) {
    std::string const token = Put("token", Bytes(*servers_ / "token"));
    std::string const badToken = Put("bad token", "x" + Bytes(*servers_ / "token"));
    for (std::string const& path : {token, badToken}) ::chmod(path.c_str(), 0600);
    struct Row {
        char const* what;
        Changes changes;
        ULONG logOn;
        ULONG send;
    };
    Row const rows[] = {
        {"password", {}, SUCCESS_SUCCESS, CMC_SUCCESS},
        {"STARTTLS", {{"tls\nport={IMAPS}", "starttls\nport={IMAP}"}}, SUCCESS_SUCCESS, CMC_SUCCESS},
        {"token", {{"password=secret", "token_file=" + token}}, SUCCESS_SUCCESS, CMC_SUCCESS},
        {"wrong token",
         {{"password=secret", "token_file=" + badToken}},
         MAPI_E_LOGON_FAILURE,
         CMC_E_LOGON_FAILURE},
        {"wrong password", {{"secret", "wrong"}}, MAPI_E_LOGON_FAILURE, CMC_E_LOGON_FAILURE},
        {"wrong user", {{"user=anna", "user=otto"}}, MAPI_E_LOGON_FAILURE, CMC_E_LOGON_FAILURE},
        {"unknown certificate",
         {{"{CA}", "/etc/ssl/certs/ca-certificates.crt"}},
         MAPI_E_NETWORK_FAILURE,
         CMC_E_SERVICE_UNAVAILABLE},
        {"no server",
         {{"{IMAPS}", "1"}, {"{SMTPS}", "1"}},
         MAPI_E_NETWORK_FAILURE,
         CMC_E_SERVICE_UNAVAILABLE},
    };
    for (Row const& row : rows) {
        UseAccount(row.changes);
        EXPECT_EQ(LogOn(), row.logOn) << row.what << ": " << Log();
        if (row.logOn == SUCCESS_SUCCESS) LogOff();
        EXPECT_EQ(SendTo("bob@example.org"), row.send) << row.what << ": " << Log();
    }
    for (char const* const secret : {"secret", "wrong", "eyJ"})
        EXPECT_EQ(Log().find(secret), std::string::npos) << Log();

    std::string const sent = Envelopes();
    UseAccount({{"largest_mail_mb=50", "largest_mail_mb=2"}});
    EXPECT_EQ(SendTo(""), CMC_E_RECIPIENT_NOT_FOUND);
    EXPECT_EQ(SendTo("bob@example.org;anna"), CMC_E_RECIPIENT_NOT_FOUND);
    EXPECT_EQ(SendTo("bob@example.org\r\nRCPT TO:<eve@example.org>"), CMC_E_RECIPIENT_NOT_FOUND);
    for (char const* const missing : {"none", ""})  // a folder is not a file
        EXPECT_EQ(SendTo("bob@example.org", home_ / missing), CMC_E_ATTACHMENT_NOT_FOUND);
    EXPECT_EQ(SendTo("bob@example.org", Put("large", std::string(3U << 20, 'x'))), CMC_E_TEXT_TOO_LARGE);
    EXPECT_EQ(SendTo("bob@example.org;nobody@example.org", token), CMC_E_FAILURE);
    EXPECT_EQ(kvmail_.send("bob@example.org", "s", "t", 0x3000001, "", "", ";", 0), CMC_E_UNSUPPORTED_FLAG);
    EXPECT_EQ(Envelopes(), sent) << "no recipient received a mail";

    ASSERT_EQ(LogOn(), SUCCESS_SUCCESS);
    servers_->Stop();
    std::string id;
    EXPECT_EQ(Find("", id), MAPI_E_NETWORK_FAILURE);
    EXPECT_EQ(SendTo("bob@example.org"), CMC_E_SERVICE_UNAVAILABLE);
    EXPECT_EQ(LogOff(), SUCCESS_SUCCESS);
}

TEST_F(ServersTest, BrokenConnectionsAreRenewed) {
    servers_->Deliver("a",
                      "From: x@example.org\r\nSubject: a\r\nContent-Type: application/x; name=a.bin\r\n\r\n" +
                          std::string(60000, 'x') + "\r\n");
    UseAccount({{"{IMAPS}", std::to_string(servers_->breakingImaps)},
                {"{SMTPS}", std::to_string(servers_->breakingSmtps)}});
    ASSERT_EQ(LogOn(), SUCCESS_SUCCESS);
    for (int i = 0; i < 60; ++i) {
        auto const ids = FindAll();
        ASSERT_EQ(ids.size(), 1U) << "round " << i;
        ASSERT_EQ(Read(ids[0], MAPI_SUPPRESS_ATTACH).subject, "a");
    }
    EXPECT_NE(Log(), "") << "no connection broke";
    EXPECT_EQ(Read(FindAll()[0], 0).result, MAPI_E_NETWORK_FAILURE) << "a file too large for the connection";
    for (auto const& entry : std::filesystem::recursive_directory_iterator(temporary_.Path()))
        EXPECT_FALSE(entry.is_regular_file()) << entry.path();
    LogOff();

    EXPECT_EQ(SendTo("bob@example.org"), CMC_SUCCESS);
    EXPECT_EQ(SendTo("bob@example.org", Put("large", std::string(60000, 'x'))), CMC_E_SERVICE_UNAVAILABLE);
    EXPECT_EQ(Envelopes(), "anna@example.org bob@example.org\n") << "only the first arrived";
}

TEST_F(ServersTest, LettersOfAnySenderAreRead) {
    auto const rows = Table("letters.tsv");
    for (auto const& row : rows) servers_->Deliver(row[0], Bytes(DataFile("letters/" + row[0] + ".eml")));
    std::string deep = "Subject: deep\r\n";
    for (int i = 0; i < 300; ++i) {
        std::string const boundary = "d" + std::to_string(i);
        deep += "Content-Type: multipart/mixed; boundary=" + boundary + "\r\n\r\n--" + boundary + "\r\n";
    }
    servers_->Deliver("y", deep + "\r\nbottom\r\n");
    servers_->Deliver("z",
                      "Subject: large\r\nContent-Type: multipart/mixed; boundary=b\r\n\r\n--b\r\n\r\nsmall "
                      "text\r\n--b\r\nContent-Type: application/x; name=large.bin\r\n\r\n" +
                          std::string(100U << 20, 'x') + "\r\n--b--\r\n");
    ASSERT_EQ(LogOn(), SUCCESS_SUCCESS);
    std::map<std::string, std::string> ids;
    for (std::string const& id : FindAll()) ids[Read(id, MAPI_ENVELOPE_ONLY).subject] = id;
    ASSERT_EQ(ids.size(), rows.size() + 2) << Log();

    for (auto const& row : rows) {
        MailAsRead const mail = Read(ids[row.at(1)], 0);
        EXPECT_EQ(mail.result, SUCCESS_SUCCESS) << row[0] << ": " << Log();
        std::string name = row.at(2);
        std::replace(name.begin(), name.end(), '/', '-');
        EXPECT_EQ(mail.sender, name + '/' + row.at(3)) << row[0];
        EXPECT_EQ(mail.text, row.at(4)) << row[0];
        std::string names;
        for (std::size_t i = 0; i < mail.names.size(); ++i) {
            names += (i > 0 ? "|" : "") + mail.names[i];
            EXPECT_TRUE(mail.paths[i].starts_with(temporary_.Path().string())) << mail.paths[i];
            EXPECT_TRUE(std::filesystem::is_regular_file(mail.paths[i])) << mail.paths[i];
        }
        EXPECT_EQ(names, row.at(5)) << row[0];
    }
    EXPECT_EQ(Read(ids["deep"], 0).result, SUCCESS_SUCCESS) << Log();

    long const before = ResidentKiB();
    auto const growth = [&] { return MemoryIsMeasurable ? ResidentKiB() - before : 0; };
    MailAsRead const large = Read(ids["large"], MAPI_SUPPRESS_ATTACH);
    EXPECT_EQ(large.text, "small text");
    EXPECT_EQ(large.names, std::vector<std::string>{"large.bin"});
    EXPECT_LT(growth(), 10 * 1024) << "KiB to list 100 MiB";
    EXPECT_EQ(Read(ids["large"], 0).result, MAPI_E_TEXT_TOO_LARGE);
    EXPECT_LT(growth(), 20 * 1024) << "KiB to fetch 50 MiB of it";
    EXPECT_EQ(FindAll().size(), ids.size()) << "the session remains usable";
    LogOff();
}

}  // namespace

}  // namespace tests
