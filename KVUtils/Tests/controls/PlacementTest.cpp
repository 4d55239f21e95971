#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "KVUtils/Source/controls/WINDOWPL.h"
#include "KVUtils/Source/controls/detail/WindowPlacement.h"
#include "KVUtils/Tests/TestSupport.h"
#include "SV/headless/HeadlessBackend.h"

#include <gtest/gtest.h>

namespace kv::test {
namespace {

using WINDOWPL = BoxTest;

TEST_F(WINDOWPL, PlacesAWindow) {
    sv::Window reference(nullptr);
    reference.SetPosSizePixel({100, 50}, {400, 200});
    sv::Window window(nullptr);
    window.SetPosSizePixel({7, 8}, {100, 100});
    for (auto const& [below, flags, placed] :
         Rows<sv::Window*, long, sv::Point>{{&reference, 1, {250, 100}},
                                            {nullptr, 1, {590, 462}},  // of a screen of 1280 x 1024
                                            {&reference, 1 | 4, {120, 70}}}) {
        WindowPlacer(below, &window, flags);
        EXPECT_EQ(window.GetPosPixel(), placed) << flags;
    }
    EXPECT_THROW(WindowPlacer(&reference, nullptr, 1), int);
    EXPECT_EQ(seen_.size(), 1U);
}

TEST_F(WINDOWPL, OneBalloonAtATime) {
    sv::Window parent(nullptr);
    parent.SetPosSizePixel({}, {400, 300});
    sv::Window button(&parent);
    button.SetPosSizePixel({10, 10}, {50, 30});

    EXPECT_EQ(BalloonWindow::Instance(), nullptr);
    BalloonWindow::CreateBalloonWindow(&button, "first");
    BalloonWindow* const balloon = BalloonWindow::CreateBalloonWindow(&button, "Save all");
    ASSERT_EQ(parent.GetChildren().size(), 2U) << "the button and one balloon";
    EXPECT_EQ(BalloonWindow::Instance(), balloon);
    EXPECT_FALSE(balloon->IsVisible());
    // A letter is 7 x 16 pixels.
    EXPECT_EQ(balloon->GetSizePixel(), sv::Size(8 * 7 + 8, 18));
    EXPECT_EQ(balloon->GetPosPixel(), sv::Point(47, 34));
    sv::Window const& text = *balloon->GetChildren().front();
    EXPECT_EQ(text.GetText(), "Save all");
    EXPECT_EQ(text.GetSizePixel(), sv::Size(8 * 7 + 4, 16));
    EXPECT_EQ(text.GetBackgroundBrush(), sv::Brush(sv::ColorName::Help));
    BalloonWindow::DeleteBalloonWindow();
    BalloonWindow::DeleteBalloonWindow();
    EXPECT_EQ(parent.GetChildren().size(), 1U);
}

using namespace detail;

TEST(WindowPlacement, Windows) {
    using Reference = std::optional<WindowArea>;
    Reference const none;
    Reference const middle = WindowArea{{100, 50}, {401, 201}};
    Reference const corner = WindowArea{{0, 0}, {50, 50}};
    Reference const right = WindowArea{{700, 500}, {100, 100}};
    sv::Size const small(100, 100);
    sv::Size const big(900, 700);
    for (auto const& [reference, size, flags, placed] :
         Rows<Reference, sv::Size, long, sv::Point>{{middle, small, 1, {250, 100}},
                                                    {corner, small, 1, {0, 0}},  // not beyond the edge
                                                    {none, small, 1, {350, 250}},
                                                    {none, small, 1 | 4, {350, 250}},
                                                    {middle, small, 2, {350, 250}},
                                                    {middle, small, 1 | 2, {350, 250}},
                                                    {middle, small, 1 | 4, {120, 70}},
                                                    {none, small, 4, {-5, 7}},
                                                    {right, small, 4, {700, 500}},
                                                    {none, small, 0, {-5, 7}},
                                                    {middle, big, 1, {-100, -100}},
                                                    {none, big, 2, {-100, -100}}}) {
        EXPECT_EQ(PlaceWindow(reference, {{-5, 7}, size}, {800, 600}, flags), placed)
            << "flags " << flags << ": " << placed.X() << ", " << placed.Y();
    }
}

TEST(WindowPlacement, Balloons) {
    BalloonShape const shape = ShapeBalloon({92, 18});
    EXPECT_EQ(shape.text.position, sv::Point(2, 0));
    EXPECT_EQ(shape.text.size, sv::Size(96, 18));
    EXPECT_EQ(shape.size, sv::Size(100, 20));
    // In a parent of 400 x 300, beside buttons of 50 x 30.
    for (auto const& [button, balloon] :
         Rows<sv::Point, sv::Point>{{{10, 10}, {47, 34}},
                                    {{250, 231}, {287, 255}},  // exactly enough room on both sides
                                    {{251, 232}, {163, 218}},  // one pixel too little
                                    {{-60, -60}, {0, 0}}}) {
        EXPECT_EQ(PlaceBalloon({button, {50, 30}}, {100, 20}, {400, 300}), balloon) << button.X();
    }
    EXPECT_EQ(PlaceBalloon({{0, 0}, {50, 30}}, {100, 40}, {120, 60}), sv::Point(0, 0)) << "no room at all";
}

TEST(RegisterTopWindowTest, WindowsComeBackInReverseOrder) {
    int places[3] = {};
    auto const window = [&places](int i) { return reinterpret_cast<sv::Window*>(&places[i]); };
    EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), nullptr);
    sv::Application::SetAppWindow(window(0));
    EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), window(0));
    {
        RegisterTopWindow const outer(window(1));
        {
            RegisterTopWindow const inner(window(2));
            EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), window(2));
        }
        EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), window(1));
        RegisterTopWindow const none(nullptr);
        EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), window(0));
    }
    EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), window(0));
    sv::Application::SetAppWindow(nullptr);
}

}  // namespace
}  // namespace kv::test
