#include "KVUtils/Source/controls/ButtonBarLayout.h"

#include <array>
#include <utility>

namespace kv::detail {

namespace {

constexpr std::array<std::int16_t, 3> Widths = {120, 145, 195};
constexpr std::int16_t Height = 30;
constexpr int RightDistance = 30;
constexpr int TopDistance = 10;
constexpr sv::Point VerticalGap(0, 3);

constexpr sv::Point PointAt(int x, int y) noexcept {
    return {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)};
}

constexpr sv::Size Extent(ButtonSize size) noexcept {
    auto const index = static_cast<std::size_t>(size);
    return {index < Widths.size() ? Widths[index] : Widths[0], Height};
}

}  // namespace

ButtonBarLayout::ButtonBarLayout(sv::Point position, sv::Size button, bool isHorizontal,
                                 sv::Point gaps) noexcept
    : position_(position),
      size_(button),
      button_(button),
      isHorizontal_(isHorizontal),
      cursor_(position),
      gaps_(gaps) {}

ButtonBarLayout::ButtonBarLayout(int parentWidth, ButtonSize size) noexcept
    : ButtonBarLayout({}, Extent(size), false, VerticalGap) {
    PlaceRight(parentWidth, RightDistance);
}

sv::Point ButtonBarLayout::AddButton() noexcept {
    sv::Point const corner = cursor_;
    MoveCursor(button_.Width() + gaps_.X(), button_.Height() + gaps_.Y());
    return corner;
}

void ButtonBarLayout::AddGap(int pixels) noexcept {
    auto const gap = static_cast<std::int16_t>(pixels);
    MoveCursor(gap, gap);
}

void ButtonBarLayout::PlaceRight(int parentWidth, int distance) noexcept {
    position_ = cursor_ = PointAt(parentWidth - button_.Width() - distance, TopDistance);
}

sv::Point ButtonBarLayout::ChangePosPixel(sv::Point position) noexcept {
    cursor_ = PointAt(cursor_.X() + position.X() - position_.X(), cursor_.Y() + position.Y() - position_.Y());
    return std::exchange(position_, position);
}

sv::Size ButtonBarLayout::ChangeSizePixel(sv::Size size) noexcept { return std::exchange(size_, size); }

sv::Rectangle ButtonBarLayout::GetBarPosSizePixel() const noexcept {
    return {position_, PointAt(position_.X() + size_.Width() - 1, position_.Y() + size_.Height() - 1)};
}

void ButtonBarLayout::MoveCursor(int across, int down) noexcept {
    cursor_ =
        isHorizontal_ ? PointAt(cursor_.X() + across, cursor_.Y()) : PointAt(cursor_.X(), cursor_.Y() + down);
}

}  // namespace kv::detail
