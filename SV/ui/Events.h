// Mouse events, as windows receive them.
#pragma once

#include "SV/core/Geometry.h"

namespace sv {

class MouseEvent {
  public:
    constexpr explicit MouseEvent(Point position, bool isLeftDown = false, bool isOtherDown = false) noexcept
        : position_(position), isLeftDown_(isLeftDown), isOtherDown_(isOtherDown) {}

    /// In pixels of the window that receives the event; may be outside it while it captures the mouse.
    [[nodiscard]] constexpr Point GetPosPixel() const noexcept { return position_; }
    /// Whether the left button is pressed.
    [[nodiscard]] constexpr bool IsLeft() const noexcept { return isLeftDown_; }
    /// Whether any button is held down.
    [[nodiscard]] constexpr bool IsAnyDown() const noexcept { return isLeftDown_ || isOtherDown_; }

  private:
    Point position_;
    bool isLeftDown_;
    bool isOtherDown_;
};

}  // namespace sv
