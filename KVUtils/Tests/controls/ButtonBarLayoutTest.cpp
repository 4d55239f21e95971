#include "KVUtils/Source/controls/detail/ButtonBarLayout.h"
#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {
namespace {

using detail::ButtonBarLayout;

TEST(ButtonBarLayout, VerticalAtTheRight) {
    ButtonBarLayout bar(640, ButtonSize(0));
    EXPECT_EQ(bar.GetBarPosSizePixel(), sv::Rectangle({490, 10}, {609, 39}));
    EXPECT_EQ(bar.AddButton(), sv::Point(490, 10));
    EXPECT_EQ(bar.GetCursor(), sv::Point(490, 43));
    bar.AddGap(20);
    EXPECT_EQ(bar.AddButton(), sv::Point(490, 63));
    bar.PlaceRight(640, 15);
    EXPECT_EQ(bar.GetPosPixel(), sv::Point(505, 10));
    EXPECT_EQ(bar.GetCursor(), sv::Point(505, 10));
    for (auto const& [size, width] : Rows<int, int>{{0, 120}, {1, 145}, {2, 195}, {3, 120}, {-1, 120}}) {
        ButtonBarLayout const other(640, ButtonSize(size));
        EXPECT_EQ(other.GetButtonSize(), sv::Size(static_cast<std::int16_t>(width), 30));
        EXPECT_EQ(other.GetCursor().X(), 610 - width);
    }
}

TEST(ButtonBarLayout, HorizontalAndMoved) {
    ButtonBarLayout bar({5, 6}, {50, 20}, true, {4, 9});
    bar.AddButton();
    EXPECT_EQ(bar.AddButton(), sv::Point(59, 6));
    EXPECT_EQ(bar.ChangePosPixel({105, 106}), sv::Point(5, 6));
    EXPECT_EQ(bar.AddButton(), sv::Point(213, 106));
    bar.SetCursor({0, 0});
    bar.AddGap(-7);
    EXPECT_EQ(bar.AddButton(), sv::Point(-7, 0));
    EXPECT_EQ(bar.ChangeSizePixel({300, 40}), sv::Size(50, 20));
    EXPECT_EQ(bar.GetBarPosSizePixel(), sv::Rectangle({105, 106}, {404, 145}));
    EXPECT_EQ(bar.GetButtonSize(), sv::Size(50, 20));
}

}  // namespace
}  // namespace kv::test
