#include "Platform/mail/Tests/Kvmail.h"
#include "Platform/mail/posix/MailText.h"

#include <ctime>

namespace tests {

namespace {

using namespace platform::detail;

TEST(MailText, CodePages) {
    std::string every;
    for (int byte = 1; byte < 256; ++byte) every += static_cast<char>(byte);
    EXPECT_EQ(Utf8FromAnsi("\x80\xE4\x81z"), "\xE2\x82\xAC\xC3\xA4\xC2\x81z");
    EXPECT_EQ(AnsiFromUtf8("\xE2\x82\xAC\xC3\xA4z"), "\x80\xE4z");
    EXPECT_EQ(AnsiFromUtf8("\xE6\x97\xA5\xFF"), "??") << "no such character, and no character at all";
    for (char const byte : every) {
        std::string const back = AnsiFromUtf8(Utf8FromAnsi({&byte, 1}));
        EXPECT_TRUE(back == std::string(1, byte) || back == "?") << static_cast<int>(byte);
    }
}

TEST(MailText, Lists) {
    using List = std::vector<std::string>;
    EXPECT_EQ(SplitList("a; b c ;;d;", ";"), (List{"a", "b c", "d"}));
    EXPECT_EQ(SplitList("a;b", ""), List{"a;b"});
    EXPECT_EQ(SplitList("a::b:c", "::"), (List{"a", "b:c"}));
    EXPECT_EQ(SplitList(" ; ", ";"), List());
}

TEST(MailText, Recipients) {
    struct Row {
        char const* text;
        RecipientKind kind;
        char const* name;
        char const* address;  // null: refused
    };
    constexpr auto To = RecipientKind::To;
    static constexpr Row rows[] = {
        {"a@b", To, "", "a@b"},
        {" to: SMTP:a@b ", To, "", "a@b"},
        {"Cc:Anna B. <a@b>", RecipientKind::Cc, "Anna B.", "a@b"},
        {"BCC:\"B, Anna\" <a@b>", RecipientKind::Bcc, "B, Anna", "a@b"},
        {"<a@b>", To, "", "a@b"},
        {"anna", To, "", nullptr},
        {"@b", To, "", nullptr},
        {"a@", To, "", nullptr},
        {"a b@c", To, "", nullptr},
        {"a@b\r\nRCPT TO:<c@d>", To, "", nullptr},
        {"a@b> <c@d", To, "", nullptr},
        {"\xC3\xA4@b", To, "", nullptr},
        {"", To, "", nullptr},
    };
    for (Row const& row : rows) {
        auto const recipient = ParseRecipient(row.text);
        ASSERT_EQ(recipient.has_value(), row.address != nullptr) << row.text;
        if (!recipient) continue;
        EXPECT_EQ(recipient->kind, row.kind) << row.text;
        EXPECT_EQ(recipient->name, row.name) << row.text;
        EXPECT_EQ(recipient->address, row.address) << row.text;
    }
}

TEST(MailText, NamesOfFilesChooseNoPlace) {
    struct Row {
        std::string name;
        std::string safe;
    };
    std::string const x(100, 'x');
    Row const rows[] = {
        {"a.txt", "a.txt"},
        {"../../etc/passwd", "passwd"},
        {R"(C:\Windows\a.dll)", "a.dll"},
        {"..", "attachment"},
        {"", "attachment"},
        {"/", "attachment"},
        {std::string("a\0.exe", 6), "a"},
        {".bashrc", "_bashrc"},
        {"-rf", "_rf"},
        {"a\r\nb:c?.t*t", "a__b_c_.t_t"},
        {"a. . ", "a"},
        {x + ".tar.gz", x.substr(0, LongestFileName - 3) + ".gz"},
        {x + "." + x, x.substr(0, LongestFileName)},
        {"\xE4.txt", "\xE4.txt"},
    };
    for (Row const& row : rows) EXPECT_EQ(SafeFileName(row.name), row.safe) << row.name;
    EXPECT_EQ(UniqueFileName("a.txt", {"b.txt"}), "a.txt");
    EXPECT_EQ(UniqueFileName("a.txt", {"A.TXT", "a (2).txt"}), "a (3).txt");
}

TEST(MailText, Identifiers) {
    EXPECT_EQ(MessageId({4294967295U, 7}), "4294967295.7");
    auto const number = ParseMessageId("4294967295.7");
    ASSERT_TRUE(number.has_value());
    EXPECT_EQ(number->validity, 4294967295U);
    EXPECT_EQ(number->uid, 7U);
    for (char const* const none : {"", "1", "1.", ".1", "1.2.3", "4294967296.1", "1.-1", "1.1 "})
        EXPECT_FALSE(ParseMessageId(none).has_value()) << none;
}

TEST(MailText, DatesAreLocal) {
    Environment const zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    ::tzset();
    EXPECT_EQ(ReceivedDate("17-Jul-1996 02:44:25 -0700"), "1996/07/17 11:44");
    EXPECT_EQ(ReceivedDate(" 1-Jan-2024 00:30:00 +0100"), "2024/01/01 00:30");
    EXPECT_EQ(ReceivedDate(""), "");
    EXPECT_EQ(ReceivedDate("nonsense"), "");
}

}  // namespace

}  // namespace tests
