#include "KVUtils/Source/mail/Mailer.h"
#include "KVUtils/Tests/frame/FrameSupport.h"
#include "KVUtils/Tests/mail/MailClient.h"
#include "Platform/Library.h"

#include <memory>
#include <string>
#include <vector>

namespace kv::test {

namespace {

using Calls = std::vector<std::string>;

constexpr char Logon[] = "logon|0|-|-|1|0";
constexpr char Logoff[] = "logoff|4711|0|0|0";

/// A mail client whose state outlives the mailer, and a win.ini that names it.
class MailerTest : public FrameTest {
  protected:
    ~MailerTest() override {
        EndMailer();
        platform::FreeLibraryFile(library_);
    }

    /// Destroys the mailer and writes win.ini.
    void Configure(std::string const& winIni) {
        EndMailer();
        tests::PutBytes(PathOf("win.ini"), winIni);
    }

    tests::MailClient& UseClient(std::string const& fileName) {
        Configure("[Mail]\nCMC=1\nCMCDLLNAME32=" + fileName + "\n");
        platform::FreeLibraryFile(library_);
        unsigned long error = 0;
        library_ = platform::LoadLibraryFile(fileName, error);
        auto const state = reinterpret_cast<tests::TheMailClientEntry>(
            platform::FunctionAddress(library_, "TheMailClient", error));
        *state() = {};
        return *state();
    }

    static void EndMailer() {
        if (isRunning_) EndService(Mailer::Instance());
        isRunning_ = false;
    }

    static Mailer& TheMailer() {
        isRunning_ = true;
        return *Mailer::Instance();
    }

    static std::vector<std::unique_ptr<Mail>> ReadAll() {
        MailList list;
        EXPECT_FALSE(TheMailer().ReadMail(list)) << "always";
        std::vector<std::unique_ptr<Mail>> mails;
        for (unsigned long i = 0; i < list.Count(); ++i) mails.emplace_back(list.GetObject(i));
        return mails;
    }

    static bool SendSomething() {
        sv::String names = "a";
        return TheMailer().SendDocuments("r", "s", "t", MailerFlagsTYPE::Direct, "a", names);
    }

  private:
    static inline bool isRunning_ = false;

    Windir windir_{PathOf(".")};
    void* library_ = nullptr;
};

TEST_F(MailerTest, WithoutAClientThereIsNoMail) {
    std::string const name = "CMCDLLNAME32=";
    std::string const client = name + KV_MAIL_CLIENT + "\n";
    for (std::string const& winIni :
         {std::string(), "[Mail]\n" + client, "[Mail]\nCMC=0\n" + client, "[Mail]\nCMC=11\n" + client,
          "[intl]\nCMC=1\n" + client, std::string("[Mail]\nCMC=1\n"),
          "[Mail]\nCMC=1\n" + name + "no such library\n",
          "[Mail]\nCMC=1\n" + name + KV_MAIL_CLIENT_THAT_CANNOT_SEND + "\n",
          "[Mail]\nCMC=1\n" + name + KV_MAIL_CLIENT_THAT_CANNOT_LOG_ON + "\n"}) {
        SCOPED_TRACE(winIni);
        Configure(winIni);
        EXPECT_FALSE(TheMailer().IsMailAvailable());
        EXPECT_FALSE(SendSomething());
        EXPECT_TRUE(ReadAll().empty());
        Mail mail("subject", "sender", "body");
        EXPECT_FALSE(TheMailer().ReadMailAttachments(&mail));
        EXPECT_FALSE(TheMailer().DeleteMail(&mail));
    }
    tests::MailClient const& cannotSend = UseClient(KV_MAIL_CLIENT_THAT_CANNOT_SEND);
    EXPECT_FALSE(TheMailer().IsMailAvailable());
    EXPECT_EQ(cannotSend.calls, Calls()) << "not even a log-on";
}

TEST_F(MailerTest, LogsOnOnceAndOffAtTheEnd) {
    for (bool const isRefused : {false, true}) {
        tests::MailClient& client = UseClient(KV_MAIL_CLIENT);
        client.answer = isRefused ? platform::MAPI_E_LOGON_FAILURE : 0;
        client.mails = {{"1", "subject", "sender", "2001/02/03 04:05"}};
        EXPECT_TRUE(TheMailer().IsMailAvailable());
        EXPECT_EQ(&TheMailer(), Mailer::Instance());
        client.answer = 0;
        EXPECT_TRUE(SendSomething());
        EXPECT_EQ(ReadAll().empty(), isRefused) << "without a session it can only send";
        Mail mail("subject", "sender", "body");
        TheMailer().ReadMailAttachments(&mail);
        EXPECT_EQ(TheMailer().DeleteMail(&mail), !isRefused);
        EndMailer();
        EXPECT_EQ(client.calls[0], Logon);
        EXPECT_EQ(client.calls[1], "send|r|s|t|50331648|a|a|;|0");
        EXPECT_EQ(client.calls.back(), isRefused ? client.calls[1] : Logoff);
    }
}

TEST_F(MailerTest, SendsDocuments) {
    tests::MailClient& client = UseClient(KV_MAIL_CLIENT);
    struct Row {
        int flags;
        char const* paths;
        char const* names;
        char const* call;
        char const* namesAfter;
    };
    static constexpr Row rows[] = {
        {1, R"(C:\TEMP\A.TXT)", "", R"(send|a;b|s|t|50331648|C:\TEMP\A.TXT|A.TXT|;|0)", "A.TXT"},
        {2, "/tmp/a.txt", "b.txt", "send|a;b|s|t|50331649|/tmp/a.txt|b.txt|;|0", "b.txt"},
        {7, "/x/a;/y/b", "", "send|a;b|s|t|7|/x/a;/y/b|b|;|0", "b"},
        {1, "", "", "send|a;b|s|t|50331648|||;|0", ""},
    };
    for (Row const& row : rows) {
        sv::String names = row.names;
        EXPECT_TRUE(TheMailer().SendDocuments("a;b", "s", "t", MailerFlagsTYPE{row.flags}, row.paths, names));
        EXPECT_EQ(client.calls.back(), row.call);
        EXPECT_EQ(names, row.namesAfter);
    }
    client.answer = platform::CMC_E_FAILURE;
    EXPECT_FALSE(SendSomething());
}

TEST_F(MailerTest, ReadsTheClientsStore) {
    tests::MailClient& client = UseClient(KV_MAIL_CLIENT);
    std::string const longId(platform::MapiMessageIdSize - 1, 'i');
    client.mails = {{longId, "Tint", "Anna/anna@example.org", "2024/02/29 23:59", {"a.txt", "b.txt"}},
                    {"2", "unreadable", "", "", {}, false},
                    {"3", "", "", "12024/13"}};
    auto const mails = ReadAll();
    ASSERT_EQ(mails.size(), 2U);
    EXPECT_EQ(client.calls, (Calls{Logon, "find|4711|0|-||0|0", "read|4711|0|" + longId + "|2048|0",
                                   "find|4711|0|-|" + longId + "|0|0", "read|4711|0|2|2048|0",
                                   "find|4711|0|-|2|0|0", "read|4711|0|3|2048|0", "find|4711|0|-|3|0|0"}));
    EXPECT_EQ(client.held, 0U) << "released";

    Mail& mail = *mails[0];
    EXPECT_EQ(mail.GetSubject(), "Tint");
    EXPECT_EQ(mail.GetSender(), "Anna/anna@example.org");
    EXPECT_EQ(mail.GetBody(), "note text");
    EXPECT_EQ(mail.GetDate(), sv::Date(20240229UL));
    EXPECT_EQ(mail.GetTime(), sv::Time(23590000UL));
    EXPECT_EQ(mail.GetMessageReference(), longId);
    EXPECT_EQ(mail.GetAttachmentCount(), 2);
    EXPECT_EQ(mails[1]->GetDate(), sv::Date(20241300UL)) << "each part is parsed alone, missing ones are 0";
    EXPECT_EQ(mails[1]->GetTime(), sv::Time(0UL));
    EXPECT_EQ(mails[1]->GetSender(), "");
}

TEST_F(MailerTest, FilesAreFetchedWhenOneIsRequested) {
    tests::MailClient& client = UseClient(KV_MAIL_CLIENT);
    client.mails = {{"1", "subject", "sender", "", {"a.txt", "b.txt"}}};
    auto const mails = ReadAll();
    ASSERT_EQ(mails.size(), 1U);
    Mail& mail = *mails[0];
    client.calls.clear();
    EXPECT_EQ(mail.GetAttachment(0, false)->GetFileName(), "a.txt");
    EXPECT_EQ(mail.GetAttachment(0, false)->GetPathName(), "");
    EXPECT_EQ(client.calls, Calls());
    EXPECT_EQ(mail.GetAttachment(1, true)->GetPathName(), "/fetched/b.txt");
    Mail copy = mail;
    EXPECT_EQ(copy.GetAttachment(0, true)->GetPathName(), "/fetched/a.txt");
    EXPECT_EQ(mail.GetAttachment(2, true), nullptr);
    EXPECT_EQ(mail.GetAttachment(-1, true), nullptr);
    EXPECT_EQ(client.calls, Calls{"read|4711|0|1|0|0"}) << "once";
    EXPECT_EQ(client.held, 0U);

    copy.RemoveAllAttachments();
    EXPECT_EQ(mail.GetAttachmentCount(), 2);
    client.mails.clear();
    Mail gone("subject", "sender", "body");
    Attachment const listed("c.txt", "");
    gone.AddAttachment(&listed);
    EXPECT_EQ(gone.GetAttachment(0, true), nullptr) << "the client failed to fetch it";
}

TEST_F(MailerTest, DeletesMailAndSurvivesAnExceptionOfTheClient) {
    tests::MailClient& client = UseClient(KV_MAIL_CLIENT);
    client.mails = {{"1", "subject", "sender", ""}};
    TheMailer();
    Mail mail("subject", "sender", "body");
    mail.SetMessageReference("17");
    mail.Delete();
    EXPECT_EQ(client.calls.back(), "delete|4711|0|17|0|0");
    EXPECT_TRUE(TheMailer().DeleteMail(&mail));
    client.answer = platform::MAPI_E_INVALID_MESSAGE;
    EXPECT_FALSE(TheMailer().DeleteMail(&mail));
    client.answer = 0;
    client.throws = true;
    EXPECT_EQ(ReadAll().size(), 1U) << "the mails read before are kept";
    EXPECT_FALSE(TheMailer().DeleteMail(&mail));
}

TEST(MailTest, PartsOfTheSenderAndALongReference) {
    for (auto const& [sender, name, address] : {std::tuple("sender/mailbox1", "sender", "mailbox1"),
                                                {"sender", "sender", "sender"},
                                                {"a/b/c", "a", "b/c"},
                                                {"sender/", "sender", ""},
                                                {"", "", ""}}) {
        Mail const mail("subject", sender, "body");
        EXPECT_EQ(mail.GetSenderName(), name) << sender;
        EXPECT_EQ(mail.GetSenderAddress(), address) << sender;
    }
    Mail mail("subject", "sender", "body");
    mail.SetMessageReference(std::string(600, 'x').c_str());
    EXPECT_EQ(mail.GetMessageReference(), std::string(511, 'x'));
    mail.SetMessageReference("7");
    EXPECT_STREQ(mail.GetMessageReference(), "7");
}

}  // namespace

}  // namespace kv::test
