#include "Platform/mail/Tests/Kvmail.h"
#include "Platform/mail/posix/MailText.h"

#include <ctime>

namespace tests {

namespace {

using namespace platform::detail;

TEST(MailText, CodePages) {
    EXPECT_EQ(Utf8FromAnsi("\x80\xE4\x81z"), "\xE2\x82\xAC\xC3\xA4\xC2\x81z");
    EXPECT_EQ(AnsiFromUtf8("\xE2\x82\xAC\xC3\xA4z"), "\x80\xE4z");
    EXPECT_EQ(AnsiFromUtf8("\xE6\x97\xA5\xFF"), "??") << "a missing character and an invalid one";
    for (int byte = 1; byte < 256; ++byte) {
        std::string const text(1, static_cast<char>(byte));
        std::string const back = AnsiFromUtf8(Utf8FromAnsi(text));
        EXPECT_TRUE(back == text || back == "?") << byte;
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
    for (auto const& row : Table("recipients.tsv")) {
        auto const recipient = ParseRecipient(row.at(0));
        ASSERT_EQ(recipient.has_value(), row.size() == 4) << row[0];
        if (!recipient) continue;
        constexpr char const* kinds[] = {"To", "Cc", "Bcc"};
        EXPECT_EQ(kinds[static_cast<int>(recipient->kind)], row[1]) << row[0];
        EXPECT_EQ(recipient->name, row[2]) << row[0];
        EXPECT_EQ(recipient->address, row[3]) << row[0];
    }
}

TEST(MailText, FileNamesAreSafeAndUnique) {
    for (auto const& row : Table("file_names.tsv")) EXPECT_EQ(SafeFileName(row.at(0)), row.at(1)) << row[0];
    EXPECT_EQ(SafeFileName({"a\0.exe", 6}), "a");
    EXPECT_EQ(UniqueFileName("a.txt", {"b.txt"}), "a.txt");
    EXPECT_EQ(UniqueFileName("a.txt", {"A.TXT", "a (2).txt"}), "a (3).txt");
}

TEST(MailText, Identifiers) {
    EXPECT_EQ(MessageId({4294967295U, 7}), "4294967295.7");
    EXPECT_EQ(MessageId(ParseMessageId("4294967295.7").value()), "4294967295.7");
    for (char const* const none : {"", "1", "1.", ".1", "1.2.3", "4294967296.1", "1.-1", "1.1 "})
        EXPECT_FALSE(ParseMessageId(none).has_value()) << none;
}

TEST(MailText, DatesAreLocal) {
    Environment const zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    ::tzset();
    EXPECT_EQ(ReceivedDate("17-Jul-1996 02:44:25 -0700"), "1996/07/17 11:44");
    EXPECT_EQ(ReceivedDate(" 1-Jan-2024 00:30:00 +0100"), "2024/01/01 00:30");
    for (char const* const none : {"", "nonsense"}) EXPECT_EQ(ReceivedDate(none), "");
}

}  // namespace

}  // namespace tests
