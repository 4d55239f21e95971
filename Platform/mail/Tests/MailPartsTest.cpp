#include "Platform/mail/Tests/Kvmail.h"
#include "Platform/mail/posix/Gmime.h"
#include "Platform/mail/posix/MailParts.h"

namespace tests {

namespace {

using namespace platform::detail;

class MailPartsTest : public testing::Test {
  protected:
    void SetUp() override { StartGmime(); }
};

TEST_F(MailPartsTest, TextAndFilesOfStructures) {
    for (auto const& row : Table("structures.tsv")) {
        auto const structure = ParseImap(row.at(1)).value();
        MailParts const parts = PartsOf(structure[0][0]);
        std::string shown;
        if (parts.text) shown = parts.text->section + ' ' + parts.text->charset + ' ' + parts.text->encoding;
        for (MailPart const& part : parts.files)
            shown += '|' + part.section + ' ' + part.fileName + ' ' + part.encoding;
        EXPECT_EQ(shown, row.at(2)) << row[0];
    }
}

TEST_F(MailPartsTest, HeadsOfLetters) {
    for (auto const& row : Table("letters.tsv")) {
        MailHead const head = ParseHead(Bytes(DataFile("letters/" + row.at(0) + ".eml")));
        EXPECT_EQ(head.subject, row.at(1)) << row[0];
        EXPECT_EQ(head.senderName, row.at(2)) << row[0];
        EXPECT_EQ(head.senderAddress, row.at(3)) << row[0];
    }
    EXPECT_EQ(ParseHead("From: a@b\r\n\r\n").senderName, "a@b");
    EXPECT_EQ(ParseHead("").subject, "");
}

TEST_F(MailPartsTest, TextsOfCharacterSets) {
    EXPECT_EQ(DecodeText("Gr=C3=BC=C3=9Fe=\r\n!\r\n", "quoted-printable", "utf-8"),
              "Gr\xC3\xBC\xC3\x9F"
              "e!\n");
    EXPECT_EQ(DecodeText("gA==", "base64", "windows-1252"), "\xE2\x82\xAC");
    EXPECT_EQ(DecodeText("\xE4", "8bit", "no-such-charset"), "\xC3\xA4");
    EXPECT_EQ(DecodeText("\xE4", "", ""), "\xC3\xA4") << "bytes outside the stated set";
    EXPECT_EQ(DecodeText({"a\0b", 3}, "7bit", "us-ascii"), "ab") << "no zero bytes";
}

TEST_F(MailPartsTest, DecodingDoesNotDependOnThePieces) {
    std::string const encoded = "AAECAwQF\r\nBgcICQ==\r\n";
    for (std::size_t cut = 1; cut < encoded.size(); ++cut) {
        PartDecoder decoder("base64");
        std::string bytes = decoder.Step(encoded.substr(0, cut));
        bytes += decoder.Step(encoded.substr(cut));
        bytes += decoder.Finish();
        EXPECT_EQ(bytes, std::string("\0\1\2\3\4\5\6\7\10\11", 10)) << cut;
    }
}

}  // namespace

}  // namespace tests
