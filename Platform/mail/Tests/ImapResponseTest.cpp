#include "Platform/mail/posix/ImapResponse.h"

#include <gtest/gtest.h>

#include <utility>

namespace tests {

namespace {

using platform::detail::DeepestImapList;
using platform::detail::ImapCutter;
using platform::detail::ImapValue;
using platform::detail::ParseImap;

/// Texts in quotes, lists in parentheses.
std::string Shown(ImapValue const& value) {
    if (value.kind == ImapValue::Kind::Nil) return "-";
    if (value.kind == ImapValue::Kind::Text) return "'" + value.text + "'";
    std::string text;
    for (ImapValue const& item : value.items) text += (text.empty() ? "" : " ") + Shown(item);
    return "(" + text + ")";
}

TEST(ImapResponse, IsTakenApart) {
    struct Row {
        char const* response;
        char const* shown;
    };
    static constexpr Row rows[] = {
        {"* SEARCH 1 2", "('*' 'SEARCH' '1' '2')"},
        {"* SEARCH", "('*' 'SEARCH')"},
        {R"(* 1 FETCH (A "b \"c\" \\" NIL nil (D ())))", R"(('*' '1' 'FETCH' ('A' 'b "c" \' - - ('D' ()))))"},
        {"* 1 FETCH (BODY[HEADER.FIELDS (TO CC)]<0> {4}\r\na)\r\n X)",
         "('*' '1' 'FETCH' ('BODY[HEADER.FIELDS (TO CC)]<0>' 'a)\r\n' 'X'))"},
        {"* 1 FETCH (((\"a\")(\"b\") \"mixed\"))", "('*' '1' 'FETCH' ((('a') ('b') 'mixed')))"},
        {"* OK [UIDVALIDITY 5] it's (good", "('*' 'OK' 'UIDVALIDITY 5')"},
        {"K1 NO no \"such thing", "('K1' 'NO')"},
        {"+ go on", "('+' 'go' 'on')"},
        {"* 1 FETCH (A", "malformed"},
        {"* 1 FETCH A)", "malformed"},
        {"* 1 FETCH (\"A)", "malformed"},
        {"* 1 FETCH {9}\r\nshort", "malformed"},
        {"* 1 FETCH {x}\r\n", "malformed"},
        {"a\rb", "malformed"},
    };
    for (Row const& row : rows) {
        auto const value = ParseImap(row.response);
        EXPECT_EQ(value ? Shown(*value) : "malformed", row.shown) << row.response;
    }
}

TEST(ImapResponse, DepthHasAnEnd) {
    auto const nested = [](int depth) {
        return ParseImap(std::string(depth, '(') + std::string(depth, ')')).has_value();
    };
    EXPECT_TRUE(nested(DeepestImapList));
    EXPECT_FALSE(nested(DeepestImapList + 1));
    EXPECT_FALSE(nested(1000000));
}

TEST(ImapResponse, IsCutAtItsEndHoweverItArrives) {
    std::string const stream = "* A {6}\r\nx\r\n* B\r\n* C {1}\r\ny {0}\r\n z\r\nK1 OK\r\nrest";
    std::vector<std::string> const expected = {"* A {6}\r\nx\r\n* B", "* C {1}\r\ny {0}\r\n z", "K1 OK"};
    for (std::size_t cut = 1; cut <= stream.size(); ++cut) {
        ImapCutter cutter;
        std::vector<std::string> responses;
        for (std::size_t at = 0; at < stream.size(); at += cut) {
            cutter.Add(stream.substr(at, cut));
            while (auto response = cutter.Next()) responses.push_back(std::move(*response));
        }
        EXPECT_EQ(responses, expected) << cut;
    }
}

TEST(ImapResponse, SizeHasAnEnd) {
    ImapCutter announced;
    announced.Add("* A {999999999}\r\n");
    EXPECT_FALSE(announced.Next().has_value());
    EXPECT_TRUE(announced.IsOverfull());
    ImapCutter endless;
    while (!endless.IsOverfull()) {
        endless.Add(std::string(1U << 20, 'x'));
        ASSERT_FALSE(endless.Next().has_value());
    }
}

}  // namespace

}  // namespace tests
