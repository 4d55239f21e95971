#include "SV/headless/HeadlessBackend.h"
#include "SV/ui/VirtualDevice.h"
#include "SV/ui/Window.h"

#include <gtest/gtest.h>

namespace sv {

namespace {

constexpr Color Red(0xFFFF, 0, 0);
constexpr Color White(0xFFFF, 0xFFFF, 0xFFFF);

int Count(Bitmap const& picture, Color color) {
    int count = 0;
    for (int y = 0; y < picture.GetSizePixel().Height(); ++y) {
        for (int x = 0; x < picture.GetSizePixel().Width(); ++x) count += picture.At(x, y).ToColor() == color;
    }
    return count;
}

TEST(OutputDeviceTest, DrawsPixels) {
    struct Case {
        char const* what;
        void (*draw)(VirtualDevice& device);
        int pixels;  // in the pen's colour
    };
    static constexpr Case cases[] = {
        {"a line has both its ends",
         [](auto& d) {
             d.DrawLine({2, 2}, {8, 5});
         },
         7},
        {"a point",
         [](auto& d) {
             d.DrawLine({4, 4}, {4, 4});
         },
         1},
        {"a thick line",
         [](auto& d) {
             d.ChangePen(Pen(Red, 3));
             d.DrawLine({3, 5}, {8, 5});
         },
         24},
        {"a dashed line",
         [](auto& d) {
             d.ChangePen(Pen(Red, 1, PenStyle::Dash));
             d.DrawLine({0, 0}, {11, 0});
         },
         6},
        {"an outline",
         [](auto& d) {
             d.DrawRect({{1, 1}, {6, 4}});
         },
         16},
        {"corners in any order",
         [](auto& d) {
             d.DrawRect({{6, 4}, {1, 1}});
         },
         16},
        {"nothing outside",
         [](auto& d) {
             d.DrawLine({-5, -5}, {-1, 9});
         },
         0},
        {"cut at the edge",
         [](auto& d) {
             d.DrawLine({-5, 3}, {50, 3});
         },
         20},
        {"no pen",
         [](auto& d) {
             d.ChangePen(Pen(Red, 1, PenStyle::None));
             d.DrawRect({{1, 1}, {6, 4}});
         },
         0},
    };
    for (Case const& c : cases) {
        VirtualDevice device(Size(20, 10));
        EXPECT_EQ(device.ChangePen(Pen(Red)), Pen());
        c.draw(device);
        EXPECT_EQ(Count(device.GetBitmap({0, 0}, {20, 10}), Red), c.pixels) << c.what;
    }
}

TEST(OutputDeviceTest, MapsToPixelsFromTheBottomUp) {
    VirtualDevice device(Size(20, 10));
    device.ChangeMapMode(MapMode(MapUnit::Pixel, Point(0, -10), Fraction(1.0), Fraction(-1.0)));
    EXPECT_EQ(device.LogicToPixel({3, 10}), Point(3, 0));
    EXPECT_EQ(device.LogicToPixel({3, 1}), Point(3, 9));
    device.DrawPixel({3, 1}, Red);
    EXPECT_EQ(device.GetPixel({3, 1}), Red);
    device.ChangeMapMode(MapMode());
    EXPECT_EQ(device.GetPixel({3, 9}), Red);
    EXPECT_EQ(device.GetPixel({3, 8}), White);
    EXPECT_EQ(device.GetPixel({99, 0}), Color()) << "black outside";
}

TEST(OutputDeviceTest, ATextStandsOnItsPlaceWhereUpIsUp) {
    Window window(nullptr);
    window.SetPosSizePixel({0, 0}, {100, 50});
    EXPECT_EQ(window.GetTextSize("abc"), Size(21, 16));
    EXPECT_EQ(window.GetTextSize(""), Size(0, 16));
    window.ChangeFont(Font(32));
    EXPECT_EQ(window.GetTextSize("abc"), Size(42, 32));
}

}  // namespace

}  // namespace sv
