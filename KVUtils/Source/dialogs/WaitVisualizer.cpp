#include "KVUtils/Source/dialogs/WaitVisualizer.h"

#include "KVUtils/Source/controls/WINDOWPL.h"
#include "KVUtils/Source/controls/detail/StandardButtons.h"
#include "KVUtils/Source/controls/detail/WindowPlacement.h"
#include "KVUtils/Source/resources/Resources.h"
#include "SV/core/Application.h"
#include "SV/ui/Styles.h"

#include <algorithm>
#include <utility>

namespace kv {

namespace {

constexpr unsigned short Hourglass = 734;

// Pixels.
constexpr int Width = 360;
constexpr int PlainHeight = 72;
constexpr int BarHeight = 104;
constexpr int ButtonsHeight = 148;
constexpr sv::Point PicturePlace(16, 16);
constexpr sv::Point TextPlace(72, 26);
constexpr sv::Size TextExtent(272, 20);
constexpr sv::Rectangle BarArea = sv::Rectangle::Of({16, 72}, {328, 16});
constexpr sv::Point ButtonPlace(120, 104);
constexpr sv::Size ButtonExtent(120, 30);

constexpr sv::Brush BarBrush(sv::Color(0x2A2A, 0x6F6F, 0xB8B8));

}  // namespace

WaitVisualizer::WaitVisualizer(sv::Window* parent, sv::String const& title, sv::String const& text)
    : WaitVisualizer(parent, title, text, PlainHeight) {}

WaitVisualizer::WaitVisualizer(sv::Window* parent, sv::String const& title, sv::String const& text,
                               int height)
    : ModelessDialog(parent, sv::StyleOfWaitWindow),
      RegisterTopWindow(this),
      text_(this, sv::StyleOfText),
      picture_(LoadKVBitmap(Hourglass)),
      wasWaiting_(sv::Application::IsWait()) {
    SetText(title);
    ChangeSizePixel({Width, height});
    text_.SetPosSizePixel(TextPlace, TextExtent);
    text_.ChangeBackgroundBrush(GetBackgroundBrush());
    text_.SetText(text);
    text_.Show();
    WindowPlacer(parent, this, detail::CentreOnReference);
    sv::Application::Wait(true);
    Show();
    ToTop();
}

WaitVisualizer::~WaitVisualizer() {
    Hide();
    sv::Application::Wait(wasWaiting_);
}

void WaitVisualizer::ChangeText(sv::String const& text) {
    text_.SetText(text);
    sv::Application::Reschedule();
}

void WaitVisualizer::Paint(sv::Rectangle const& /*area*/) { DrawBitmap(PicturePlace, picture_); }

void WaitVisualizer::WasClosed() {}

WaitVisualizer2::WaitVisualizer2(sv::Window* parent, sv::String const& title, sv::String const& text)
    : WaitVisualizer(parent, title, text, BarHeight) {}

void WaitVisualizer2::SetPercent(int percent) {
    percent = std::clamp(percent, 0, 100);
    if (std::exchange(percent_, percent) == percent) return;
    Invalidate();
    sv::Application::Reschedule();
}

void WaitVisualizer2::Paint(sv::Rectangle const& area) {
    WaitVisualizer::Paint(area);
    DrawRect(BarArea);
    constexpr sv::Size Inside(BarArea.GetSize().Width() - 2, BarArea.GetSize().Height() - 2);
    int const filled = Inside.Width() * percent_ / 100;
    if (filled == 0) return;
    sv::Pen const pen = ChangePen(sv::Pen(BarBrush.GetColor(), 1, sv::PenStyle::None));
    sv::Brush const brush = ChangeFillInBrush(BarBrush);
    DrawRect(sv::Rectangle::Of(BarArea.TopLeft() + sv::Point(1, 1), {filled, Inside.Height()}));
    ChangeFillInBrush(brush);
    ChangePen(pen);
}

AbbruchDialog::AbbruchDialog(sv::Window* parent, sv::String const& title, sv::String const& text)
    : WaitVisualizer2(parent, title, text, ButtonsHeight), buttons_(this, ButtonPlace, ButtonExtent, 1) {
    buttons_.AddButton(sv::Link::To<&AbbruchDialog::CancelHdl>(*this), detail::CancelButton, 0)->GrabFocus();
}

// NOLINTNEXTLINE(readability-make-member-function-const): processing events may change the result
unsigned char AbbruchDialog::IsAborted() {
    sv::Application::Reschedule();
    return isAborted_ ? 1 : 0;
}

void AbbruchDialog::WasClosed() { isAborted_ = true; }

long AbbruchDialog::CancelHdl(KOBitmapButton* /*sender*/) {
    isAborted_ = true;
    return 0;
}

}  // namespace kv
