#include "SV/ui/Controls.h"

#include "SV/ui/Backend.h"

#include <algorithm>
#include <utility>

namespace sv {

using detail::WindowKind;

Edit::Edit(Window* parent, Style style) : Window(WindowKind::Edit, parent, style) {}

void Edit::ChangeMaxTextLen(unsigned short length) { GetPeer().SetMaxTextLen(length); }
void Edit::SetReadOnly(bool readOnly) { GetPeer().SetReadOnly(readOnly); }
Link Edit::ChangeModifyHdl(Link const& link) noexcept { return std::exchange(modify_, link); }
Link Edit::ChangeLoseFocusHdl(Link const& link) noexcept { return std::exchange(loseFocus_, link); }
void Edit::LoseFocus() { loseFocus_.Call(this); }

void Edit::TextHasChanged(String const& text) {
    KeepText(text);
    modify_.Call(this);
}

SpinButton::SpinButton(Window* parent, Style style) : Window(WindowKind::SpinButton, parent, style) {}

Link SpinButton::ChangeUpHdl(Link const& link) noexcept { return std::exchange(up_, link); }
Link SpinButton::ChangeDownHdl(Link const& link) noexcept { return std::exchange(down_, link); }
void SpinButton::WasSpun(bool up) { (up ? up_ : down_).Call(this); }

FixedText::FixedText(Window* parent, Style style) : Window(WindowKind::FixedText, parent, style) {}

Button::Button(detail::WindowKind kind, Window* parent, Style style) : Window(kind, parent, style) {}

Link Button::ChangeClickHdl(Link const& link) noexcept { return std::exchange(click_, link); }
void Button::Click() { click_.Call(this); }
void Button::WasClicked() {
    if (IsEnabled()) Click();
}

PushButton::PushButton(Window* parent, Style style) : Button(WindowKind::PushButton, parent, style) {}

BitmapButton::BitmapButton(Window* parent, Bitmap bitmap, Style style)
    : Button(WindowKind::DrawnButton, parent, style), bitmap_(std::move(bitmap)) {}

Bitmap BitmapButton::ChangeBitmap(Bitmap bitmap) {
    std::swap(bitmap_, bitmap);
    Invalidate();
    return bitmap;
}

bool BitmapButton::PaintFrame() {
    Pen const pen = ChangePen(Pen(HasFocus() ? ColorOf(ColorName::Black) : Color(0x8000, 0x8000, 0x8000)));
    Brush const brush = ChangeFillInBrush(GetBackgroundBrush());
    DrawRect(GetArea(), 4, 4);
    ChangeFillInBrush(brush);
    ChangePen(pen);
    return isDown_;
}

void BitmapButton::Paint(Rectangle const& /*area*/) {
    int const shift = PaintFrame() ? 1 : 0;
    Size const size = GetSizePixel();
    Size const face = bitmap_.GetSizePixel();
    DrawBitmap({(size.Width() - face.Width()) / 2 + shift, (size.Height() - face.Height()) / 2 + shift},
               bitmap_);
}

void BitmapButton::MouseButtonDown(MouseEvent const& event) {
    if (!event.IsLeft() || !IsEnabled()) return;
    isDown_ = true;
    GrabFocus();
    Invalidate();
}

void BitmapButton::MouseButtonUp(MouseEvent const& event) {
    if (!std::exchange(isDown_, false)) return;
    Invalidate();
    if (GetArea().IsInside(event.GetPosPixel())) WasClicked();
}

void BitmapButton::GetFocus() { Invalidate(); }
void BitmapButton::LoseFocus() { Invalidate(); }

CheckBox::CheckBox(Window* parent, Style style) : Button(WindowKind::CheckBox, parent, style) {}

void CheckBox::Check(bool checked) {
    isChecked_ = checked;
    GetPeer().SetChecked(checked);
}

void CheckBox::Click() {
    Check(!isChecked_);
    Button::Click();
}

ListBoxControl::ListBoxControl(Window* parent, Style style)
    : ListBoxControl(WindowKind::ListBox, parent, style) {}
ListBoxControl::ListBoxControl(detail::WindowKind kind, Window* parent, Style style)
    : Window(kind, parent, style) {}

void ListBoxControl::Clear() {
    entries_.Clear();
    GetPeer().ClearEntries();
}

void ListBoxControl::InsertEntry(String const& text, int position) {
    int const count = GetEntryCount();
    entries_.InsertEntry(text, position);
    if (GetEntryCount() != count) GetPeer().InsertEntry(text, std::min(position, count));
}

void ListBoxControl::SelectEntryPos(int position) {
    entries_.SelectEntryPos(position);
    int const selected = GetSelectEntryPos();
    GetPeer().SelectEntry(selected == End ? -1 : selected);
}

Link ListBoxControl::ChangeSelectHdl(Link const& link) noexcept { return std::exchange(select_, link); }

void ListBoxControl::EntryWasSelected(int position) {
    entries_.SelectEntryPos(position);
    select_.Call(this);
}

DropDownListBox::DropDownListBox(Window* parent, Style style)
    : ListBoxControl(WindowKind::DropDown, parent, style) {}

}  // namespace sv
