#include "Platform/mail/posix/Gmime.h"
#include "Platform/mail/posix/MailParts.h"

#include <gtest/gtest.h>

namespace tests {

namespace {

using namespace platform::detail;

/// "section charset encoding" of the text, then "section name encoding" of each file.
std::vector<std::string> Listed(std::string const& structure) {
    StartGmime();
    auto const value = ParseImap(structure);
    MailParts const parts = PartsOf(value.value()[0]);
    std::vector<std::string> lines;
    lines.push_back(parts.text ? parts.text->section + ' ' + parts.text->charset + ' ' + parts.text->encoding
                               : "");
    for (MailPart const& part : parts.files)
        lines.push_back(part.section + ' ' + part.fileName + ' ' + part.encoding);
    return lines;
}

TEST(MailParts, TheTextAndTheFiles) {
    struct Row {
        char const* what;
        std::string structure;
        std::vector<std::string> lines;
    };
    std::string const plain = R"(("TEXT" "PLAIN" ("CHARSET" "utf-8") NIL NIL "8bit" 1 1 NIL NIL NIL NIL))";
    std::string const html =
        R"(("text" "html" ("charset" "iso-8859-1") NIL NIL "base64" 1 1 NIL NIL NIL NIL))";
    auto const file = [](std::string const& typeParameters, std::string const& dispositionParameters) {
        return R"(("application" "x" )" + typeParameters + R"( NIL NIL "base64" 1 NIL ("attachment" )" +
               dispositionParameters + ") NIL NIL)";
    };
    Row const rows[] = {
        {"one text", plain, {"1 utf-8 8bit"}},
        {"one file", file("NIL", R"(("filename" "a.bin"))"), {"", "1 a.bin base64"}},
        {"plain before HTML",
         "((" + html + plain + "\"alternative\")" + html + "\"mixed\")",
         {"1.2 utf-8 8bit"}},
        {"HTML alone", html, {"1 iso-8859-1 base64"}},
        {"a text that is a file",
         "(" + plain +
             R"(("text" "plain" NIL NIL NIL "7bit" 1 1 NIL ("attachment" ("filename" "a.txt")) NIL NIL) "mixed"))",
         {"1 utf-8 8bit", "2 a.txt 7bit"}},
        {"an attached message",
         R"((("message" "rfc822" NIL NIL NIL "7bit" 1 (NIL NIL NIL NIL NIL NIL NIL NIL NIL NIL) )" + plain +
             R"( 1 NIL ("attachment" NIL) NIL NIL) "mixed"))",
         {"", "1 message.eml 7bit"}},
        {"names as they are sent",
         "(" + file("NIL", R"(("filename*" "UTF-8''%C3%A4%2Fb.txt"))") +
             file("NIL", R"(("filename*0" "long " "filename*1" "name"))") +
             file(R"(("name" "=?utf-8?Q?=C3=A4?="))", "NIL") + file("NIL", "NIL") +
             file("NIL", R"(("filename" "B.TXT"))") + "\"mixed\")",
         {"", "1 b.txt base64", "2 long name base64", "3 \xE4 base64", "4 attachment base64",
          "5 B (2).TXT base64"}},
        {"nothing to go by", "NIL", {""}},
    };
    for (Row const& row : rows) EXPECT_EQ(Listed(row.structure), row.lines) << row.what;
}

TEST(MailParts, TextsInTheirCharacterSets) {
    StartGmime();
    EXPECT_EQ(DecodeText("Gr=C3=BC=C3=9Fe=\r\n!\r\n", "quoted-printable", "utf-8"),
              "Gr\xC3\xBC\xC3\x9F"
              "e!\n");
    EXPECT_EQ(DecodeText("gA==", "base64", "windows-1252"), "\xE2\x82\xAC");
    EXPECT_EQ(DecodeText("\xE4", "8bit", "no-such-charset"), "\xC3\xA4");
    EXPECT_EQ(DecodeText("\xE4", "", ""), "\xC3\xA4") << "more than it says that it is";
    EXPECT_EQ(DecodeText("a\0b", "7bit", "us-ascii"), "a");
}

TEST(MailParts, DecodesInPieces) {
    std::string const encoded = "AAECAwQF\r\nBgcICQ==\r\n";
    for (std::size_t cut = 1; cut < encoded.size(); ++cut) {
        PartDecoder decoder("base64");
        std::string bytes = decoder.Step(encoded.substr(0, cut));
        bytes += decoder.Step(encoded.substr(cut));
        bytes += decoder.Finish();
        EXPECT_EQ(bytes, std::string("\0\1\2\3\4\5\6\7\10\11", 10)) << cut;
    }
}

TEST(MailParts, Heads) {
    StartGmime();
    struct Row {
        char const* header;
        char const* subject;
        char const* name;
        char const* address;
    };
    static constexpr Row rows[] = {
        {"Subject: =?utf-8?Q?=E2=82=AC?= 5\r\nFrom: \"B, Anna\" <a@b>\r\n\r\n", "\x80 5", "B, Anna", "a@b"},
        {"From: a@b\r\n\r\n", "", "a@b", "a@b"},
        {"From: Team: x@y, z@y;\r\n\r\n", "", "", ""},
        {"Sender: s@t\r\nSubject: =?x?broken\r\n\r\n", "=?x?broken", "s@t", "s@t"},
        {"", "", "", ""},
    };
    for (Row const& row : rows) {
        MailHead const head = ParseHead(row.header);
        EXPECT_EQ(head.subject, row.subject) << row.header;
        EXPECT_EQ(head.senderName, row.name) << row.header;
        EXPECT_EQ(head.senderAddress, row.address) << row.header;
    }
}

}  // namespace

}  // namespace tests
