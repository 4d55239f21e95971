#include "SV/ui/MenuBar.h"

#include "SV/ui/Backend.h"

#include <algorithm>

namespace sv {

namespace {

/// The sum of the pixels above and below the titles.
constexpr int Margins = 10;

}  // namespace

MenuBar::MenuBar(Window* parent, Style style) : Window(detail::WindowKind::MenuBar, parent, style) {}

void MenuBar::InsertMenu(String const& title) {
    hasMenu_ = true;
    GetPeer().InsertMenu(title);
}

void MenuBar::InsertItem(unsigned short id, String const& text, Link const& link, String const& shortcut) {
    if (!hasMenu_) return;
    items_.push_back({.id = id, .link = link});
    GetPeer().InsertMenuItem(text, shortcut);
}

void MenuBar::InsertSeparator() { InsertItem(0, {}, {}); }

std::size_t MenuBar::PlaceOf(unsigned short id) const noexcept {
    if (id == 0) return items_.size();
    return static_cast<std::size_t>(std::ranges::find(items_, id, &Item::id) - items_.begin());
}

void MenuBar::EnableItem(unsigned short id, bool enable) {
    std::size_t const place = PlaceOf(id);
    if (place == items_.size()) return;
    items_[place].isEnabled = enable;
    GetPeer().EnableMenuItem(static_cast<int>(place), enable);
}

void MenuBar::CheckItem(unsigned short id, bool check) {
    std::size_t const place = PlaceOf(id);
    if (place == items_.size()) return;
    items_[place].isChecked = check;
    GetPeer().CheckMenuItem(static_cast<int>(place), check);
}

bool MenuBar::IsItemEnabled(unsigned short id) const noexcept {
    std::size_t const place = PlaceOf(id);
    return place != items_.size() && items_[place].isEnabled;
}

bool MenuBar::IsItemChecked(unsigned short id) const noexcept {
    std::size_t const place = PlaceOf(id);
    return place != items_.size() && items_[place].isChecked;
}

int MenuBar::Fit() {
    int const height = GetTextSize("X").Height() + Margins;
    int const width = GetParent() == nullptr ? 0 : GetParent()->GetSizePixel().Width();
    SetPosSizePixel({}, {width, height});
    return height;
}

void MenuBar::EntryWasSelected(int position) {
    auto const place = static_cast<std::size_t>(position);
    if (place >= items_.size() || !IsEnabled() || !items_[place].isEnabled) return;
    current_ = items_[place].id;
    // Copied, since the handler may destroy the bar.
    Link const link = items_[place].link;
    link.Call(this);
}

}  // namespace sv
