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

// A window that notes what it is told.
class Noted : public Window {
  public:
    using Window::Window;
    void Paint(Rectangle const& area) override {
        log += "paint " + std::to_string(area.BottomRight().X()) + ' ';
        DrawPixel({0, 0}, Red);
    }
    void Resize() override { log += "resize "; }
    void GetFocus() override { log += "focus "; }
    void LoseFocus() override { log += "blur "; }

    std::string log;
};

TEST(WindowTest, TellsWhatHappens) {
    Noted parent(nullptr);
    Noted child(&parent);
    parent.SetPosSizePixel({5, 5}, {30, 20});
    parent.SetPosSizePixel({6, 6}, {30, 20});
    EXPECT_EQ(parent.log, "resize ") << "the same size again is no change";
    EXPECT_EQ(child.ChangePosPixel({10, 10}), Point());
    child.ChangeSizePixel({4, 4});

    EXPECT_FALSE(child.IsVisible());
    EXPECT_EQ(Count(headless::Render(parent), Red), 1);
    child.Show();
    Bitmap const picture = headless::Render(parent);
    EXPECT_EQ(picture.At(10, 10).ToColor(), Red) << "the child's own corner";
    EXPECT_FALSE(headless::IsInvalid(child));
    child.Invalidate();
    EXPECT_TRUE(headless::IsInvalid(child));

    parent.log = child.log = "";
    child.GrabFocus();
    parent.GrabFocus();
    parent.Disable();
    child.Disable();
    child.GrabFocus();
    EXPECT_EQ(child.log, "focus blur ");
    EXPECT_EQ(parent.log, "focus ");
    EXPECT_TRUE(parent.HasFocus()) << "a disabled window gets no focus";
}

TEST(WindowTest, LeavesNothingBehind) {
    Window parent(nullptr);
    {
        Window child(&parent);
        child.GrabFocus();
        child.CaptureMouse();
        EXPECT_EQ(parent.GetChildren().size(), 1U);
    }
    EXPECT_TRUE(parent.GetChildren().empty());
    EXPECT_FALSE(parent.HasFocus());
    parent.ReleaseMouse();
    EXPECT_FALSE(parent.HasCapture());
}

}  // namespace

}  // namespace sv
