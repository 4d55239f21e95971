#include "SV/ui/Window.h"

#include "SV/core/Application.h"
#include "SV/ui/Backend.h"
#include "SV/ui/detail/ScaledCanvas.h"

#include <algorithm>
#include <utility>

namespace sv {

constinit Window* Window::focus_ = nullptr;
constinit Window* Window::captor_ = nullptr;

Window::Window(Window* parent, Style style) : Window(detail::WindowKind::Area, parent, style) {}

Window::Window(detail::WindowKind kind, Window* parent, Style style) : parent_(parent), style_(style) {
    detail::WindowPeer* const parentPeer = parent_ == nullptr ? nullptr : parent_->peer_.get();
    peer_ = detail::CurrentBackend().MakeWindow(*this, kind, parentPeer);
    if (parent_ != nullptr) parent_->children_.push_back(this);
}

Window::~Window() {
    if (focus_ == this) focus_ = nullptr;
    ReleaseMouse();
    if (parent_ != nullptr) std::erase(parent_->children_, this);
    for (Window* const child : children_) child->parent_ = nullptr;
}

void Window::Paint(Rectangle const& /*area*/) {}
void Window::Resize() {}
void Window::MouseMove(MouseEvent const& /*event*/) {}
void Window::MouseButtonDown(MouseEvent const& /*event*/) {}
void Window::MouseButtonUp(MouseEvent const& /*event*/) {}
void Window::GetFocus() {}
void Window::LoseFocus() {}
void Window::TextHasChanged(String const& /*text*/) {}
void Window::WasClicked() {}
void Window::WasSpun(bool /*up*/) {}
void Window::EntryWasSelected(int /*position*/) {}
void Window::RowsWereSelected(std::vector<int> /*rows*/) {}

void Window::WasClosed() {
    Window const* const main = Application::GetAppWindow();
    if (main == this || (main == nullptr && parent_ == nullptr)) {
        Application::Quit();
    } else {
        Hide();
    }
}

void Window::SetPosSizePixel(Point position, Size size) {
    ChangePosPixel(position);
    ChangeSizePixel(size);
}

Point Window::ChangePosPixel(Point position) {
    Point const before = std::exchange(position_, position);
    peer_->SetPosSize(position_, size_);
    return before;
}

Size Window::ChangeSizePixel(Size size) {
    Size const before = std::exchange(size_, size);
    peer_->SetPosSize(position_, size_);
    if (size_ != before) Resize();
    return before;
}

void Window::Show(bool visible) {
    isVisible_ = visible;
    peer_->Show(visible);
}

void Window::Enable(bool enable) {
    isEnabled_ = enable;
    peer_->Enable(enable);
}

void Window::SetText(String const& text) {
    text_ = text;
    peer_->SetText(text_);
}

void Window::Invalidate() { peer_->Invalidate(); }
void Window::GrabFocus() { peer_->GrabFocus(); }
void Window::ToTop() { peer_->ToTop(); }
void Window::SetAccessibleName(String const& name) { peer_->SetAccessibleName(name); }

void Window::WasPlaced(Point position, Size size) {
    position_ = position;
    if (std::exchange(size_, size) != size) Resize();
}

void Window::CaptureMouse() {
    captor_ = this;
    peer_->CaptureMouse(true);
}

void Window::ReleaseMouse() {
    if (captor_ != this) return;
    captor_ = nullptr;
    peer_->CaptureMouse(false);
}

void Window::FocusGained() {
    if (focus_ == this) return;
    if (focus_ != nullptr) focus_->FocusLost();
    focus_ = this;
    GetFocus();
}

void Window::FocusLost() {
    if (focus_ != this) return;
    focus_ = nullptr;
    LoseFocus();
}

detail::Canvas& Window::GetCanvas() const { return elsewhere_ != nullptr ? *elsewhere_ : peer_->GetCanvas(); }

void Window::PrintOn(OutputDevice& device, Rectangle const& area) {
    Rectangle const pixels(device.LogicToPixel(area.TopLeft()),
                           device.LogicToPixel(area.BottomRight() + Point(1, 1)) - Point(1, 1));
    PaintOn(detail::ScaledCanvas(CanvasOf(device), pixels, size_));
}

void Window::PaintOn(detail::ScaledCanvas canvas) {
    detail::Canvas* const before = std::exchange(elsewhere_, &canvas);
    Erase();
    Paint(GetArea());
    elsewhere_ = before;
    for (Window* const child : children_) {
        if (child->isVisible_) child->PaintOn(canvas.Within(child->position_, child->size_));
    }
}

}  // namespace sv
