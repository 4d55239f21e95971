#include "KVUtils/Source/controls/KOBitmapButtonBar.h"

#include "KVUtils/Source/controls/detail/ButtonBarLayout.h"
#include "KVUtils/Source/controls/detail/StandardButtons.h"
#include "KVUtils/Source/frame/TextSegment.h"
#include "KVUtils/Source/resources/Resources.h"

#include <algorithm>

namespace kv {

KOBitmapButtonBar::KOBitmapButtonBar(sv::Window* parent, sv::Point position, sv::Size button,
                                     unsigned char horizontal)
    : KOBitmapButtonBar(parent, position, button, horizontal, {}) {}

KOBitmapButtonBar::KOBitmapButtonBar(sv::Window* parent, sv::Point position, sv::Size button,
                                     unsigned char horizontal, sv::Point gaps)
    : parent_(parent),
      layout_(std::make_unique<detail::ButtonBarLayout>(position, button, horizontal != 0, gaps)) {}

KOBitmapButtonBar::KOBitmapButtonBar(sv::Window* parent, ButtonSize size)
    : parent_(parent),
      layout_(std::make_unique<detail::ButtonBarLayout>(parent->GetSizePixel().Width(), size)) {}

KOBitmapButtonBar::~KOBitmapButtonBar() {
    for (unsigned long i = 0; i < Count(); ++i) delete ButtonAt(i);
}

KOBitmapButton* KOBitmapButtonBar::AddButton(sv::Bitmap const& bitmap, sv::String const& text,
                                             sv::Link const& link, long id, long flags,
                                             unsigned short style) {
    auto button = std::make_unique<KOBitmapButton>(parent_, bitmap, text, layout_->GetCursor(),
                                                   layout_->GetButtonSize(), id, flags, style);
    button->ChangeClickHdl(link);
    Insert(button.get(), End);
    layout_->AddButton();
    return button.release();
}

KOBitmapButton* KOBitmapButtonBar::AddButton(sv::Bitmap const& bitmap, sv::Link const& link, long id,
                                             long flags, unsigned short style) {
    return AddButton(bitmap, {}, link, id, flags, style);
}

KOBitmapButton* KOBitmapButtonBar::AddButton(unsigned short bitmapId, sv::Link const& link, long id,
                                             long flags, unsigned short style) {
    return AddButton(bitmapId, {}, link, id, flags, style);
}

KOBitmapButton* KOBitmapButtonBar::AddButton(unsigned short bitmapId, sv::String const& text,
                                             sv::Link const& link, long id, long flags,
                                             unsigned short style) {
    return AddButton(LoadKVBitmap(bitmapId), text, link, id, flags, style);
}

KOBitmapButton* KOBitmapButtonBar::AddButton(sv::Link const& link, long id, long flags) {
    detail::StandardButton const* const standard = detail::FindStandardButton(id);
    if (standard == nullptr) return nullptr;
    return AddButton(standard->bitmapRecord, TextSegment("KOBitmapButtonBar")[standard->textIndex], link, id,
                     flags, standard->style);
}

void KOBitmapButtonBar::AddGap(int pixels) noexcept { layout_->AddGap(pixels); }
sv::Point KOBitmapButtonBar::GetCursor() const noexcept { return layout_->GetCursor(); }
void KOBitmapButtonBar::SetCursor(sv::Point cursor) noexcept { layout_->SetCursor(cursor); }
sv::Point KOBitmapButtonBar::GetPosPixel() const noexcept { return layout_->GetPosPixel(); }
sv::Size KOBitmapButtonBar::GetSizePixel() const noexcept { return layout_->GetSizePixel(); }
sv::Size KOBitmapButtonBar::ChangeSizePixel(sv::Size size) noexcept { return layout_->ChangeSizePixel(size); }

KOBitmapButton* KOBitmapButtonBar::SearchButton(long id) const noexcept {
    for (unsigned long i = 0; i < Count(); ++i) {
        if (ButtonAt(i)->GetId() == id) return ButtonAt(i);
    }
    return nullptr;
}

sv::Point KOBitmapButtonBar::ChangePosPixel(sv::Point position) {
    sv::Point const before = layout_->ChangePosPixel(position);
    for (unsigned long i = 0; i < Count(); ++i) {
        ButtonAt(i)->ChangePosPixel(ButtonAt(i)->GetPosPixel() + (position - before));
    }
    return before;
}

sv::Rectangle KOBitmapButtonBar::GetBarPosSizePixel() const noexcept {
    if (Count() == 0) return layout_->GetBarPosSizePixel();
    sv::Point first = ButtonAt(0)->GetPosPixel();
    sv::Point last = first;
    for (unsigned long i = 0; i < Count(); ++i) {
        sv::Rectangle const button =
            sv::Rectangle::Of(ButtonAt(i)->GetPosPixel(), ButtonAt(i)->GetSizePixel());
        first = {std::min(first.X(), button.TopLeft().X()), std::min(first.Y(), button.TopLeft().Y())};
        last = {std::max(last.X(), button.BottomRight().X()), std::max(last.Y(), button.BottomRight().Y())};
    }
    return {first, last};
}

void KOBitmapButtonBar::PlaceRight(int distance) noexcept {
    layout_->PlaceRight(parent_->GetSizePixel().Width(), distance);
}

void KOBitmapButtonBar::EnableAll(bool enable) {
    for (unsigned long i = 0; i < Count(); ++i) ButtonAt(i)->Enable(enable);
}

}  // namespace kv
