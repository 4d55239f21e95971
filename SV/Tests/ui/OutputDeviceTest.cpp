#include "SV/headless/HeadlessBackend.h"
#include "SV/ui/VirtualDevice.h"

#include <gtest/gtest.h>

namespace sv {
namespace {

constexpr Color Red(0xFFFF, 0, 0);
constexpr Color White(0xFFFF, 0xFFFF, 0xFFFF);

int CountRed(VirtualDevice const& device) {
    int count = 0;
    for (int i = 0; i < 200; ++i) count += device.GetPixel(Point(i % 20, i / 20)) == Red ? 1 : 0;
    return count;
}

TEST(OutputDevice, DrawsPixels) {
    enum Shape { Line, Rect };
    struct Row {
        char const* what;
        Shape shape;
        Point from, to;
        Pen pen;
        int pixels;
    };
    Row const rows[] = {
        {"both ends of a line", Line, {2, 2}, {8, 5}, Pen(Red), 7},
        {"a point", Line, {4, 4}, {4, 4}, Pen(Red), 1},
        {"a thick line", Line, {3, 5}, {8, 5}, Pen(Red, 3), 24},
        {"a dashed line", Line, {0, 0}, {11, 0}, Pen(Red, 1, PenStyle::Dash), 6},
        {"an outline", Rect, {1, 1}, {6, 4}, Pen(Red), 16},
        {"corners in any order", Rect, {6, 4}, {1, 1}, Pen(Red), 16},
        {"nothing outside", Line, {-5, -5}, {-1, 9}, Pen(Red), 0},
        {"clipped at the edges", Line, {-5, 3}, {50, 3}, Pen(Red), 20},
        {"no pen", Rect, {1, 1}, {6, 4}, Pen(Red, 1, PenStyle::None), 0},
    };
    for (Row const& row : rows) {
        VirtualDevice device(Size(20, 10));
        EXPECT_EQ(device.ChangePen(row.pen), Pen());
        if (row.shape == Line) device.DrawLine(row.from, row.to);
        if (row.shape == Rect) device.DrawRect({row.from, row.to});
        EXPECT_EQ(CountRed(device), row.pixels) << row.what;
    }
}

TEST(OutputDevice, MapsToPixelsFromTheBottomUp) {
    VirtualDevice device(Size(20, 10));
    device.ChangeMapMode(MapMode(MapUnit::Pixel, Point(0, -10), Fraction(1.0), Fraction(-1.0)));
    EXPECT_EQ(device.LogicToPixel({3, 10}), Point(3, 0));
    device.DrawPixel({3, 1}, Red);
    EXPECT_EQ(device.GetPixel({3, 1}), Red);
    device.ChangeMapMode(MapMode());
    EXPECT_EQ(device.GetPixel({3, 9}), Red);
    EXPECT_EQ(device.GetPixel({3, 8}), White);
    EXPECT_EQ(device.GetPixel({99, 0}), Color()) << "black outside";
    EXPECT_EQ(device.GetTextSize("abc"), Size(21, 16));
    device.ChangeFont(Font(32));
    EXPECT_EQ(device.GetTextSize("abc"), Size(42, 32));
    EXPECT_EQ(device.GetTextSize(""), Size(0, 32));
}

TEST(BitmapTest, CutsPastesAndBlends) {
    Bitmap picture(Size(4, 3), BitmapPixel(10, 20, 30));
    picture.Paste(3, 2, Bitmap(Size(2, 2), BitmapPixel(110, 120, 130, 128)));
    EXPECT_EQ(picture.At(3, 2), BitmapPixel(60, 70, 80));
    EXPECT_EQ(picture.At(2, 2), BitmapPixel(10, 20, 30));
    Bitmap const part = picture.Cut({3, 2}, {2, 1});
    EXPECT_EQ(part.At(0, 0), picture.At(3, 2));
    EXPECT_EQ(part.At(1, 0).alpha, 0) << "beyond the picture";
    EXPECT_TRUE(Bitmap(Size(-1, 5)).IsEmpty());
    EXPECT_EQ(BitmapPixel(Color(0xFFFF, 0x8000, 0x00FF)), BitmapPixel(255, 128, 0));
}

}  // namespace
}  // namespace sv
