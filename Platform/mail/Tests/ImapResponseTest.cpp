#include "Platform/mail/Tests/Kvmail.h"
#include "Platform/mail/posix/ImapResponse.h"

#include <utility>

namespace tests {

namespace {

using platform::detail::DeepestImapList;
using platform::detail::ImapCutter;
using platform::detail::ImapValue;
using platform::detail::ParseImap;

std::string Shown(ImapValue const& value) {
    if (value.kind == ImapValue::Kind::Nil) return "-";
    if (value.kind == ImapValue::Kind::Text) return "'" + value.text + "'";
    std::string text;
    for (ImapValue const& item : value.items) text += (text.empty() ? "" : " ") + Shown(item);
    return "(" + text + ")";
}

TEST(ImapResponse, IsParsed) {
    for (auto const& row : Table("responses.tsv")) {
        auto const value = ParseImap(row.at(0));
        EXPECT_EQ(value ? Shown(*value) : "malformed", row.at(1)) << row[0];
    }
    for (std::size_t const depth : {DeepestImapList, DeepestImapList + 1, 1000000})
        EXPECT_EQ(ParseImap(std::string(depth, '(') + std::string(depth, ')')).has_value(),
                  depth <= std::size_t{DeepestImapList})
            << depth;
}

TEST(ImapResponse, DoesNotDependOnThePiecesOfTheStream) {
    std::string const stream = "* A {6}\r\nx\r\n* B\r\n* C {1}\r\ny {0}\r\n z\r\nK1 OK\r\nrest";
    std::vector<std::string> const expected = {"* A {6}\r\nx\r\n* B", "* C {1}\r\ny {0}\r\n z", "K1 OK"};
    for (std::size_t piece = 1; piece <= stream.size(); ++piece) {
        ImapCutter cutter;
        std::vector<std::string> responses;
        for (std::size_t at = 0; at < stream.size(); at += piece) {
            cutter.Add(stream.substr(at, piece));
            while (auto response = cutter.Next()) responses.push_back(std::move(*response));
        }
        EXPECT_EQ(responses, expected) << piece;
    }
}

TEST(ImapResponse, HasAMaximumSize) {
    ImapCutter announced;
    announced.Add("* A {999999999}\r\n");
    EXPECT_FALSE(announced.Next().has_value());
    EXPECT_TRUE(announced.IsOverfull());
    ImapCutter endless;
    for (int i = 0; i < 20; ++i) {
        endless.Add(std::string(1U << 20, 'x'));
        ASSERT_FALSE(endless.Next().has_value());
    }
    EXPECT_TRUE(endless.IsOverfull());
}

}  // namespace

}  // namespace tests
