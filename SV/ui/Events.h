// What a person does with mouse and keyboard, as windows are told.
#pragma once

#include "SV/core/Geometry.h"

namespace sv {

class MouseEvent {
  public:
    constexpr explicit MouseEvent(Point position, bool isLeftDown = false) noexcept
        : position_(position), isLeftDown_(isLeftDown) {}

    /// In pixels of the window that gets the event; outside of it while the mouse is captured.
    [[nodiscard]] constexpr Point GetPosPixel() const noexcept { return position_; }
    /// Whether the left button is held down.
    [[nodiscard]] constexpr bool IsLeft() const noexcept { return isLeftDown_; }

  private:
    Point position_;
    bool isLeftDown_;
};

}  // namespace sv
