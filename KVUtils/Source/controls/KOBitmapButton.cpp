#include "KVUtils/Source/controls/KOBitmapButton.h"

#include "KVUtils/Source/controls/KORVELBitmap.h"
#include "KVUtils/Source/controls/WINDOWPL.h"
#include "SV/core/Application.h"
#include "SV/core/Mnemonic.h"
#include "SV/ui/Backend.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace kv {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds BalloonDelay(800);

// Pixels between the edge, the picture and the text; the fewer, the longer the text.
constexpr int SmallestGap = 2;
constexpr int LargestGap = 8;

constexpr sv::Color GreyText(0x7000, 0x7000, 0x7000);

sv::Bitmap Greyed(sv::Bitmap const& bitmap) {
    KORVELBitmap grey(bitmap);
    grey.Inaktiv();
    return grey;
}

}  // namespace

KOBitmapButton::KOBitmapButton(sv::Window* parent, sv::Bitmap const& bitmap, sv::Point position,
                               sv::Size size, long id, long flags, unsigned short style)
    : KOBitmapButton(parent, bitmap, {}, position, size, id, flags, style) {}

KOBitmapButton::KOBitmapButton(sv::Window* parent, sv::Bitmap const& bitmap, sv::String const& text,
                               sv::Point position, sv::Size size, long id, long flags, unsigned short style,
                               unsigned char /*unused*/)
    : BitmapButton(parent, bitmap, style), face_(bitmap), inactive_(Greyed(bitmap)), flags_(flags), id_(id) {
    SetText(text);
    if (parent != nullptr) ChangeBackgroundBrush(parent->GetBackgroundBrush());
    SetPosSizePixel(position, size);
    Show();
}

KOBitmapButton::~KOBitmapButton() {
    state_->isGone = true;
    EndBalloon();
}

void KOBitmapButton::Enable(bool enable) {
    BitmapButton::Enable(enable);
    BitmapButton::ChangeBitmap(enable ? face_ : inactive_);
}

sv::Bitmap KOBitmapButton::ChangeBitmap(sv::Bitmap const& bitmap) {
    inactive_ = Greyed(bitmap);
    sv::Bitmap before = std::exchange(face_, bitmap);
    BitmapButton::ChangeBitmap(IsEnabled() ? face_ : inactive_);
    return before;
}

void KOBitmapButton::SetBalloonText(sv::String const& text) {
    balloonText_ = sv::WithoutMnemonic(text);
    // Without a text, screen readers read the help.
    if (GetText().IsEmpty()) SetAccessibleName(balloonText_);
}

void KOBitmapButton::Paint(sv::Rectangle const& area) {
    if (GetText().IsEmpty()) {
        BitmapButton::Paint(area);
        return;
    }
    sv::Size const size = GetSizePixel();
    sv::Size const face = GetBitmap().GetSizePixel();
    sv::Size const label = GetTextSize(sv::WithoutMnemonic(GetText()));
    int const gap = std::clamp((size.Width() - face.Width() - label.Width()) / 3, SmallestGap, LargestGap);
    int const shift = PaintFrame() ? 1 : 0;
    DrawBitmap({gap + shift, (size.Height() - face.Height()) / 2 + shift}, GetBitmap());
    DrawLabel({gap + face.Width() + gap + shift, (size.Height() - label.Height()) / 2 + shift});
}

// Draws in pieces to underline the mnemonic. The text is not part of the picture, so that it is as sharp as
// the screen.
void KOBitmapButton::DrawLabel(sv::Point corner) {
    sv::Font font = GetFont();
    sv::Font const before = font;
    if (!IsEnabled()) font.ChangeColor(GreyText);
    ChangeFont(font);
    sv::String const& text = GetText();
    std::size_t const mark = sv::FindMnemonic(text);
    sv::String const head = text.Copy(0, mark);
    if (!head.IsEmpty()) DrawText(corner, head);
    if (std::size_t const after = head.Len() + 1; mark != sv::String::NotFound && after < text.Len()) {
        sv::String const letter = text.Copy(after, 1);
        corner = corner + sv::Point(GetTextSize(head).Width(), 0);
        sv::Size const size = GetTextSize(letter);
        sv::Pen const pen = ChangePen(sv::Pen(font.GetColor()));
        sv::Rectangle const box = sv::Rectangle::Of(corner, size);
        DrawLine({corner.X(), box.BottomRight().Y()}, box.BottomRight());
        ChangePen(pen);
        DrawText(corner, text.Copy(after));
    }
    ChangeFont(before);
}

void KOBitmapButton::MouseMove(sv::MouseEvent const& event) {
    BitmapButton::MouseMove(event);
    bool const isInside = GetArea().IsInside(event.GetPosPixel());
    // Before the wait, so that a pointer that leaves during the wait ends the highlight.
    LightUp(isInside);
    if (isInside && (GetParent() == nullptr || GetParent()->IsEnabled())) {
        CaptureMouse();
        if (!balloonText_.IsEmpty() && BalloonWindow::IsBalloonActive() != 0) WaitForBalloon(event);
    } else {
        EndBalloon();
        if (!event.IsAnyDown()) ReleaseMouse();
    }
}

void KOBitmapButton::WaitForBalloon(sv::MouseEvent const& event) {
    std::shared_ptr<State> const state = state_;
    if (BalloonWindow::Exists() || state->isWaiting || GetParent() == nullptr) return;
    state->isWaiting = true;
    state->isWaitCancelled = false;
    sv::Point const before = sv::detail::CurrentBackend().PointerPosition();
    Clock::time_point const hoverStart = Clock::now();
    while (!state->isWaitCancelled && Clock::now() - hoverStart < BalloonDelay) {
        sv::Application::Reschedule();
    }
    state->isWaiting = false;
    if (state->isGone || state->isWaitCancelled) return;
    // The pointer may have left for a window of another program, without an event.
    sv::Point const now = sv::detail::CurrentBackend().PointerPosition();
    if (!GetArea().IsInside(event.GetPosPixel() + (now - before))) return;
    BalloonWindow* const balloon = BalloonWindow::CreateBalloonWindow(this, balloonText_);
    balloon->ToTop();
    balloon->Show();
}

void KOBitmapButton::EndBalloon() {
    BalloonWindow::DeleteBalloonWindow();
    state_->isWaitCancelled = true;
}

void KOBitmapButton::LightUp(bool isLit) {
    sv::Brush brush = GetBackgroundBrush();
    if (isLit) {
        brush.ChangeColor(sv::ColorOf(sv::ColorName::Highlight));
        brush.ChangeStyle(sv::BrushStyle::Solid);
    } else if (GetParent() != nullptr) {
        brush = GetParent()->GetBackgroundBrush();
    }
    if (ChangeBackgroundBrush(brush) != brush) Invalidate();
}

void KOBitmapButton::MouseButtonDown(sv::MouseEvent const& event) {
    EndBalloon();
    BitmapButton::MouseButtonDown(event);
}

void KOBitmapButton::LoseFocus() {
    EndBalloon();
    BitmapButton::LoseFocus();
}

void KOBitmapButton::Click() {
    EndBalloon();
    ReleaseMouse();
    // With the mouse released, no event reports that the pointer leaves.
    LightUp(false);
    if (state_->isInClick) return;
    struct Guard {
        explicit Guard(std::shared_ptr<State> of) : state(std::move(of)) { state->isInClick = true; }
        ~Guard() { state->isInClick = false; }
        Guard(Guard const&) = delete;
        Guard& operator=(Guard const&) = delete;
        std::shared_ptr<State> state;
    };
    Guard const guard(state_);
    BitmapButton::Click();
}

}  // namespace kv
