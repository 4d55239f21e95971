#include "KVUtils/Source/frame/Check.h"
#include "KVUtils/Tests/frame/FrameSupport.h"
#include "SV/core/Application.h"

#include <functional>
#include <limits>
#include <new>

namespace kv::test {

namespace {

constexpr char Position[] = "Module: a.cpp   Date: Jan  2 2003   Time: 04:05:06   Line: 7";

/// The `int` that was thrown; 0 for none.
int Thrown(std::function<void()> const& call) {
    try {
        call();
    } catch (int error) {
        return error;
    }
    return 0;
}

TEST(CheckTest, PositionOfAnError) {
    EXPECT_EQ(Check::CommonErrStr("a.cpp", "Jan  2 2003", "04:05:06", 7), sv::String(Position));
}

TEST(CheckTest, WhatIsShownAndThrown) {
    struct Row {
        std::function<void()> call;
        std::string text;  // empty: silent
    };
    auto const poet = [](int code) {
        return [code] { Check::POET(code, "a.cpp", "Jan  2 2003", "04:05:06", 7); };
    };
    auto const pointer = [](void const* value) {
        return [value] { Check::POINTER(value, "a.cpp", "Jan  2 2003", "04:05:06", 7); };
    };
    Row const rows[] = {
        {poet(0), ""},
        {poet(1999), ""},
        {poet(2000), std::string("Database error!\n\nErrorCode: 2000\n") + Position},
        {poet(-1), std::string("Database error!\n\nErrorCode: -1\n") + Position},
        {poet(std::numeric_limits<int>::min()),
         std::string("Database error!\n\nErrorCode: -2147483648\n") + Position},
        {pointer("anything"), ""},
        {pointer(nullptr), std::string("Internal ERROR!\n\nPOINTER -> NULL\n") + Position},
        {[] { DisplayError(42, "a.cpp", "Jan  2 2003", "04:05:06", 7); },
         std::string("Internal ERROR!\n\nErrNo. 42\n") + Position},
    };
    int place = 0;
    auto* const window = reinterpret_cast<sv::Window*>(&place);
    sv::Application::SetAppWindow(window);
    for (Row const& row : rows) {
        BoxScript const boxes;
        EXPECT_EQ(Thrown(row.call), row.text.empty() ? 0 : 1) << row.text;
        std::vector<SeenBox> expected;
        if (!row.text.empty()) expected.push_back({sv::BoxKind::Error, 16, window, row.text});
        EXPECT_EQ(boxes.seen, expected);
    }
    sv::Application::SetAppWindow(nullptr);
}

TEST(CheckTest, ACallNamesItsOwnPlace) {
    BoxScript const boxes;
    int const line = __LINE__ + 1;
    EXPECT_EQ(Thrown([] { Check::POINTER(nullptr); }), 1);
    ASSERT_EQ(boxes.seen.size(), 1U);
    sv::String const position =
        Check::CommonErrStr("CheckTest.cpp", Check::BuildDate(), Check::BuildTime(), line);
    EXPECT_EQ(boxes.seen[0].text, "Internal ERROR!\n\nPOINTER -> NULL\n" + std::string(position.View()));
}

TEST(CheckTest, WithoutRoomForABoxTheErrorIsStillThrown) {
    auto const before =
        sv::SetBoxHandler([](sv::MessBox const&) -> sv::BoxAnswer { throw std::bad_alloc(); });
    EXPECT_EQ(Thrown([] { Check::POINTER(nullptr); }), 1);
    sv::SetBoxHandler(before);
}

}  // namespace

}  // namespace kv::test
