#include "KVUtils/Source/controls/WINDOWPL.h"
#include "KVUtils/Tests/TestSupport.h"
#include "SV/headless/HeadlessBackend.h"

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

}  // namespace
}  // namespace kv::test
