// ButtonBarLayout: the positions of the buttons of a bar. A cursor advances from button to button, to the
// right on a horizontal bar and down on a vertical one. All in pixels, wrapped to 16 bits.
#pragma once

#include "SV/core/Geometry.h"

#include <cstdint>

namespace kv {

enum ButtonSize : int;

namespace detail {

class ButtonBarLayout {
  public:
    /// A bar that begins at `position`, of buttons of this size. `gaps` are the distances between two
    /// buttons, across and down.
    ButtonBarLayout(sv::Point position, sv::Size button, bool isHorizontal, sv::Point gaps = {}) noexcept;
    /// A vertical bar at the right of its parent, 30 pixels from the edge and 10 from the top, with gaps of
    /// 3. An unknown size counts as size 0.
    ButtonBarLayout(int parentWidth, ButtonSize size) noexcept;

    /// The top left corner of the next button.
    [[nodiscard]] sv::Point GetCursor() const noexcept { return cursor_; }
    void SetCursor(sv::Point cursor) noexcept { cursor_ = cursor; }
    [[nodiscard]] sv::Size GetButtonSize() const noexcept { return button_; }

    /// Returns the corner of the next button and advances the cursor by the button and the gap.
    sv::Point AddButton() noexcept;
    /// Advances the cursor by this many pixels.
    void AddGap(int pixels) noexcept;
    /// Puts bar and cursor at the right of the parent, `distance` pixels from the edge and 10 from the top.
    void PlaceRight(int parentWidth, int distance) noexcept;

    [[nodiscard]] sv::Point GetPosPixel() const noexcept { return position_; }
    /// Moves the bar, and the cursor by the same distance; buttons that were added stay. The earlier
    /// position.
    sv::Point ChangePosPixel(sv::Point position) noexcept;
    /// At first the size of one button.
    [[nodiscard]] sv::Size GetSizePixel() const noexcept { return size_; }
    /// The bar's own size; that of its buttons stays. The earlier size.
    sv::Size ChangeSizePixel(sv::Size size) noexcept;
    /// The bar's first and last pixel.
    [[nodiscard]] sv::Rectangle GetBarPosSizePixel() const noexcept;

  private:
    void MoveCursor(sv::Point distance) noexcept;

    sv::Point position_;
    sv::Size size_;
    sv::Size button_;
    bool isHorizontal_;
    sv::Point cursor_;
    sv::Point gaps_;
};

}  // namespace detail
}  // namespace kv
