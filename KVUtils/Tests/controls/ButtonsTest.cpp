#include "KVUtils/Source/controls/KOBitmapButton.h"
#include "KVUtils/Source/controls/KOBitmapButtonBar.h"
#include "KVUtils/Source/controls/KORVELBitmap.h"
#include "KVUtils/Source/controls/WINDOWPL.h"
#include "KVUtils/Source/controls/detail/ButtonBarLayout.h"
#include "KVUtils/Source/controls/detail/StandardButtons.h"
#include "KVUtils/Source/resources/Resources.h"
#include "KVUtils/Tests/TestSupport.h"
#include "KVUtils/Tests/frame/FrameSupport.h"
#include "SV/core/Application.h"
#include "SV/headless/HeadlessBackend.h"

#include <chrono>

namespace kv::test {
namespace {

using sv::headless::DrawKind;
using Clock = std::chrono::steady_clock;

constexpr sv::MouseEvent Inside({5, 5});
constexpr sv::MouseEvent Outside({-1, 5});

/// A button of 100 x 30 pixels in a window of 400 x 300, and something that happens in the loop.
class ButtonTest : public testing::Test {
  protected:
    ButtonTest() {
        parent_.SetPosSizePixel({}, {400, 300});
        button_ = std::make_unique<KOBitmapButton>(&parent_, LoadKVBitmap(2238), sv::String("Sa~ve"),
                                                   sv::Point(10, 10), sv::Size(100, 30), 1, 0, 0x10);
        button_->SetBalloonText("Save ~all");
        sv::Application::InsertIdleHdl(sv::Link::To<&ButtonTest::Idle>(*this), 0);
    }
    ~ButtonTest() override {
        sv::Application::RemoveIdleHdl(sv::Link::To<&ButtonTest::Idle>(*this));
        BalloonWindow::DeleteBalloonWindow();
        BalloonWindow::SetBalloonActive(1);
        sv::headless::HeadlessBackend::Instance().MovePointer({});
    }

    [[nodiscard]] bool IsLit() const {
        return button_->GetBackgroundBrush().GetColor() == sv::ColorOf(sv::ColorName::Highlight);
    }
    long Idle(void* /*sender*/) {
        if (auto const event = std::exchange(inLoop_, nullptr)) event();
        return 1;
    }
    [[nodiscard]] sv::Link ClickLink() { return sv::Link::To<&ButtonTest::Clicked>(*this); }
    long Clicked(sv::Button* /*sender*/) {
        ++clicks_;
        if (onClick_) onClick_();
        return 0;
    }

    sv::Window parent_{nullptr};
    std::unique_ptr<KOBitmapButton> button_;
    std::function<void()> inLoop_;
    std::function<void()> onClick_;
    int clicks_ = 0;
};

TEST_F(ButtonTest, ThePointerThatRestsGetsHelp) {
    bool wasLit = false;
    inLoop_ = [&] {
        wasLit = IsLit();
        button_->MouseMove(Inside);  // starts no second wait
    };
    auto const start = Clock::now();
    button_->MouseMove(Inside);
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(800));
    EXPECT_TRUE(wasLit) << "at once";
    EXPECT_TRUE(button_->HasCapture());
    ASSERT_TRUE(BalloonWindow::Exists());
    EXPECT_TRUE(BalloonWindow::Instance()->IsVisible());

    button_->MouseMove(sv::MouseEvent({-1, 5}, true));
    EXPECT_FALSE(BalloonWindow::Exists());
    EXPECT_TRUE(button_->HasCapture()) << "as long as the mouse is held down";
    button_->MouseMove(sv::MouseEvent({-1, 5}, false, true));
    EXPECT_TRUE(button_->HasCapture()) << "by any of its buttons";
    button_->MouseMove(Outside);
    EXPECT_FALSE(button_->HasCapture());
    EXPECT_EQ(button_->GetBackgroundBrush(), parent_.GetBackgroundBrush());
}

TEST_F(ButtonTest, NoHelpComesWhenTheWaitIsCutShort) {
    struct Case {
        char const* what;
        std::function<void()> event;
        bool isLit;
    };
    auto& pointer = sv::headless::HeadlessBackend::Instance();
    for (Case const& c : {Case{"left", [&] { button_->MouseMove(Outside); }, false},
                          Case{"pressed",
                               [&] {
                                   button_->MouseButtonDown(sv::MouseEvent({5, 5}, true));
                               },
                               true},
                          Case{"clicked", [&] { button_->WasClicked(); }, false},
                          Case{"lost the focus", [&] { button_->LoseFocus(); }, true},
                          Case{"left unnoticed",
                               [&] {
                                   pointer.MovePointer({95, 0});
                               },
                               true}}) {
        inLoop_ = c.event;
        button_->MouseMove(Inside);
        EXPECT_FALSE(BalloonWindow::Exists()) << c.what;
        EXPECT_EQ(IsLit(), c.isLit) << c.what;
    }
    inLoop_ = [this] { button_.reset(); };
    button_->MouseMove(Inside);
    EXPECT_FALSE(BalloonWindow::Exists()) << "the button is gone";
}

TEST_F(ButtonTest, WithoutHelpItLightsUpAllTheSame) {
    inLoop_ = [] { FAIL() << "no loop runs"; };
    button_->SetBalloonText("");
    button_->MouseMove(Inside);
    EXPECT_TRUE(button_->HasCapture() && IsLit());
    button_->SetBalloonText("Save all");
    BalloonWindow::SetBalloonActive(0);
    button_->MouseMove(Inside);
    BalloonWindow::SetBalloonActive(1);
    parent_.Disable();
    button_->MouseMove(Inside);
    EXPECT_FALSE(button_->HasCapture());
    inLoop_ = nullptr;
}

TEST_F(ButtonTest, AClickIsNotEnteredAgain) {
    button_->ChangeClickHdl(ClickLink());
    onClick_ = [this] { button_->Click(); };
    button_->Click();
    EXPECT_EQ(clicks_, 1);
    onClick_ = [] { throw 1; };
    EXPECT_THROW(button_->Click(), int);
    onClick_ = [this] { button_.reset(); };
    button_->Click();
    EXPECT_EQ(clicks_, 3);
}

TEST_F(ButtonTest, PicturesAndText) {
    // Letters are 7 x 16 pixels: the picture at the left, the text in the middle of the height, "v"
    // underlined.
    auto calls = sv::headless::Record(*button_);
    ASSERT_EQ(calls.size(), 6U);
    EXPECT_EQ(calls[1].kind, DrawKind::Rect);
    EXPECT_EQ(calls[2].from, sv::Point(8, 5));
    EXPECT_EQ(calls[3].text, "Sa");
    EXPECT_EQ(calls[3].from, sv::Point(36, 7));
    EXPECT_EQ(calls[4].from, sv::Point(50, 22));
    EXPECT_EQ(calls[4].to, sv::Point(56, 22));
    EXPECT_EQ(calls[5].text, "ve");
    EXPECT_EQ(calls[5].from, sv::Point(50, 7));

    button_->SetText("~Select all");
    EXPECT_EQ(sv::headless::Record(*button_).back().from, sv::Point(26, 7)) << "close together, to fit";

    button_->SetText("Sa~ve");
    sv::Bitmap const normal = button_->GetBitmap();
    button_->Disable();
    EXPECT_NE(button_->GetBitmap(), normal);
    EXPECT_NE(sv::headless::Record(*button_)[3].font.GetColor(), calls[3].font.GetColor());
    EXPECT_EQ(button_->ChangeBitmap(LoadKVBitmap(2239)), normal);
    button_->Enable();
    EXPECT_EQ(button_->GetBitmap(), LoadKVBitmap(2239));
}

class BarTest : public FrameTest {
  protected:
    BarTest() { parent_.SetPosSizePixel({}, {640, 480}); }

    long Clicked(KOBitmapButton* sender) { return clicked_ = sender->GetId(); }
    [[nodiscard]] sv::Link Link() { return sv::Link::To<&BarTest::Clicked>(*this); }

    sv::Window parent_{nullptr};
    long clicked_ = 0;
};

TEST_F(BarTest, ButtonsFollowEachOther) {
    KOBitmapButtonBar bar(&parent_, ButtonSize(0));
    KOBitmapButton* const first = bar.AddButton(2238, Link(), 7, 9, 0x10);
    bar.AddGap(20);
    KOBitmapButton* const second = bar.AddButton(LoadKVBitmap(2239), "Open", Link(), 8, 0, 0x10);
    EXPECT_EQ(first->GetPosPixel(), sv::Point(490, 10));
    EXPECT_EQ(second->GetPosPixel(), sv::Point(490, 63));
    EXPECT_EQ(first->GetFlags(), 9);
    EXPECT_EQ(bar.GetBarPosSizePixel(), sv::Rectangle({490, 10}, {609, 92}));
    EXPECT_EQ(bar.ChangePosPixel({0, 0}), sv::Point(490, 10));
    EXPECT_EQ(second->GetPosPixel(), sv::Point(0, 53));
    EXPECT_EQ(bar.GetCursor(), sv::Point(0, 86));
    bar.PlaceRight(15);
    EXPECT_EQ(bar.GetCursor(), sv::Point(505, 10));

    EXPECT_EQ(bar.SearchButton(8), second);
    EXPECT_EQ(bar.SearchButton(99), nullptr);
    bar.Disable();
    second->WasClicked();
    EXPECT_EQ(clicked_, 0);
    bar.Enable();
    second->WasClicked();
    EXPECT_EQ(clicked_, 8);
    sv::Window* const inParent = parent_.GetChildren().front();
    EXPECT_EQ(inParent, first);
}

TEST_F(BarTest, StandardButtons) {
    std::string texts = "{KOBitmapButtonBar}\n";
    for (int i = 0; i < 24; ++i) texts += "[text " + std::to_string(i) + "]\n";
    Text::LoadText(Write("bar.lng", texts));
    {
        KOBitmapButtonBar bar(&parent_, {10, 400}, {120, 30}, 1, {50, 0});
        for (detail::StandardButton const& standard : detail::StandardButtonTable) {
            KOBitmapButton* const button = bar.AddButton(Link(), standard.id, 3);
            EXPECT_EQ(button->GetText(), sv::String("text ") + sv::String(standard.textIndex));
            EXPECT_EQ(button->GetStyle(), standard.style);
            EXPECT_EQ(button->GetBitmap(), LoadKVBitmap(standard.bitmapRecord));
        }
        EXPECT_EQ(bar.AddButton(Link(), 3, 0), nullptr);
        EXPECT_EQ(bar.Count(), 25U);
        EXPECT_EQ(bar.SearchButton(2)->GetPosPixel(), sv::Point(180, 400));
    }
    EXPECT_TRUE(parent_.GetChildren().empty()) << "the bar owns its buttons";
}

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

using sv::BitmapPixel;

constexpr BitmapPixel Ground(200, 0, 0);
constexpr BitmapPixel Ink(10, 20, 31);
constexpr sv::Brush Blue(sv::Color(0, 0, 0xFFFF));
constexpr BitmapPixel BluePixel(0, 0, 255);

/// 4 x 4 pixels of ground with a square of ink in the middle; the finer copy the same with twice the pixels.
KORVELBitmap Sample() {
    auto const draw = [](std::int16_t grain) {
        sv::Bitmap picture(
            sv::Size(static_cast<std::int16_t>(4 * grain), static_cast<std::int16_t>(4 * grain)), Ground);
        picture.Paste(
            grain, grain,
            sv::Bitmap(sv::Size(static_cast<std::int16_t>(2 * grain), static_cast<std::int16_t>(2 * grain)),
                       Ink));
        return picture;
    };
    KORVELBitmap sample(draw(1));
    sample.SetFine(draw(2));
    return sample;
}

TEST(KORVELBitmap, GetsAMarginAndAGround) {
    KORVELBitmap picture = Sample();
    picture.SetColorUndVergroesserung(Blue, 1, 2, 3, 4);
    EXPECT_EQ(picture.GetSizePixel(), sv::Size(7, 11));
    EXPECT_EQ(picture.At(0, 0), BluePixel);
    EXPECT_EQ(picture.At(1, 3), BluePixel) << "the picture's own ground";
    EXPECT_EQ(picture.At(2, 4), Ink);
    ASSERT_NE(picture.GetFine(), nullptr);
    EXPECT_EQ(picture.GetFine()->GetSizePixel(), sv::Size(14, 22));
    EXPECT_EQ(picture.GetFine()->At(3, 8), BluePixel);
    EXPECT_EQ(picture.GetFine()->At(4, 8), Ink);

    KORVELBitmap inked = Sample();
    inked.SetBackground(Blue, {1, 1});
    EXPECT_EQ(inked.At(2, 2), BluePixel) << "every pixel of that colour";
    EXPECT_EQ(inked.At(0, 0), Ground);
}

TEST(KORVELBitmap, IsGreyed) {
    KORVELBitmap picture = Sample();
    picture.Inaktiv();
    constexpr BitmapPixel grey(20, 20, 20);  // 61 / 3
    EXPECT_EQ(picture.At(0, 0), Ground);
    EXPECT_EQ(picture.At(1, 1), Ground) << "the stipple";
    EXPECT_EQ(picture.At(2, 1), grey);
    EXPECT_EQ(picture.At(2, 2), grey);
    EXPECT_EQ(picture.GetFine()->At(3, 3), Ground) << "the same stipple, not a finer one";
    EXPECT_EQ(picture.GetFine()->At(4, 3), grey);
}

}  // namespace
}  // namespace kv::test
