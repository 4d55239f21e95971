#include "KVUtils/Source/controls/detail/ButtonBarLayout.h"

#include <array>
#include <utility>

namespace kv::detail {

namespace {

constexpr std::array<std::int16_t, 3> Widths = {120, 145, 195};
constexpr std::int16_t Height = 30;
constexpr int RightDistance = 30;
constexpr int TopDistance = 10;
constexpr sv::Point VerticalGap(0, 3);

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
    MoveCursor(sv::Point(button_.Width(), button_.Height()) + gaps_);
    return corner;
}

void ButtonBarLayout::AddGap(int pixels) noexcept { MoveCursor({pixels, pixels}); }

void ButtonBarLayout::PlaceRight(int parentWidth, int distance) noexcept {
    position_ = cursor_ = {parentWidth - button_.Width() - distance, TopDistance};
}

sv::Point ButtonBarLayout::ChangePosPixel(sv::Point position) noexcept {
    cursor_ = cursor_ + (position - position_);
    return std::exchange(position_, position);
}

sv::Size ButtonBarLayout::ChangeSizePixel(sv::Size size) noexcept { return std::exchange(size_, size); }

sv::Rectangle ButtonBarLayout::GetBarPosSizePixel() const noexcept {
    return sv::Rectangle::Of(position_, size_);
}

void ButtonBarLayout::MoveCursor(sv::Point distance) noexcept {
    cursor_ = cursor_ + (isHorizontal_ ? sv::Point(distance.X(), 0) : sv::Point(0, distance.Y()));
}

}  // namespace kv::detail
