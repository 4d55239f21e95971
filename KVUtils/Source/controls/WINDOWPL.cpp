#include "KVUtils/Source/controls/WINDOWPL.h"

#include "KVUtils/Source/controls/detail/WindowPlacement.h"
#include "KVUtils/Source/frame/Check.h"
#include "SV/ui/Backend.h"
#include "SV/ui/Styles.h"

#include <utility>

namespace kv {

namespace {

detail::WindowArea AreaOf(sv::Window const& window) { return {window.GetPosPixel(), window.GetSizePixel()}; }

}  // namespace

WindowPlacer::WindowPlacer(sv::Window* reference, sv::Window* window, long flags) {
    Check::POINTER(window);
    std::optional<detail::WindowArea> below;
    if (reference != nullptr) below = AreaOf(*reference);
    sv::Size const screen = sv::detail::CurrentBackend().ScreenSize();
    window->ChangePosPixel(detail::PlaceWindow(below, AreaOf(*window), screen, flags));
}

constinit BalloonWindow* BalloonWindow::instance_ = nullptr;
constinit unsigned char BalloonWindow::isActive_ = 1;

BalloonWindow::BalloonWindow(sv::Window& button, sv::String const& text)
    : Window(button.GetParent(), sv::StyleOfChild), text_(this, sv::StyleOfText) {
    sv::Brush const ground(sv::ColorName::Help);
    ChangeBackgroundBrush(ground);
    text_.ChangeBackgroundBrush(ground);
    sv::Font font = GetFont();
    font.ChangeWeight(sv::FontWeight::Light);
    text_.ChangeFont(font);

    detail::BalloonShape const shape = detail::ShapeBalloon(text_.GetTextSize(text));
    text_.SetPosSizePixel(shape.text.position, shape.text.size);
    text_.SetText(text);
    text_.Show();
    sv::Size const parent = button.GetParent()->GetSizePixel();
    SetPosSizePixel(detail::PlaceBalloon(AreaOf(button), shape.size, parent), shape.size);
}

BalloonWindow::~BalloonWindow() {
    if (instance_ == this) instance_ = nullptr;
}

BalloonWindow* BalloonWindow::CreateBalloonWindow(sv::Window* button, sv::String const& text) {
    Check::POINTER(button);
    Check::POINTER(button->GetParent());
    DeleteBalloonWindow();
    instance_ = new BalloonWindow(*button, text);
    return instance_;
}

BalloonWindow* BalloonWindow::Instance() { return InstanceOrNull(instance_, "Balloon"); }

void BalloonWindow::DeleteBalloonWindow() {
    if (instance_ == nullptr) return;
    instance_->Hide();
    delete std::exchange(instance_, nullptr);
}

}  // namespace kv
