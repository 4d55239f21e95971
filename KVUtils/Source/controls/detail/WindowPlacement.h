// Window placement: dialogs over their reference or on the screen, and balloon help beside its button. All in
// pixels, from the top left, wrapped to 16 bits.
#pragma once

#include "SV/core/Geometry.h"

#include <optional>

namespace kv::detail {

/// The area of a window.
struct WindowArea {
    sv::Point position;
    sv::Size size;
};

/// Placement bits; the last one that applies decides.
enum PlacementFlag : long {
    CentreOnReference = 1,  // not past the left and top edge; without a reference, CentreOnScreen alone
    CentreOnScreen = 2,
    Cascade = 4,  // 20 pixels right of and below the reference
};

/// The new position of the window: with no flag its own. It never extends past the right or bottom edge of
/// the screen, so that a window larger than the screen gets a negative position.
[[nodiscard]] sv::Point PlaceWindow(std::optional<WindowArea> const& reference, WindowArea const& window,
                                    sv::Size screen, long flags) noexcept;

/// The parts of a balloon for a text of this size: its text field, and its whole size.
struct BalloonShape {
    WindowArea text;
    sv::Size size;
};
[[nodiscard]] BalloonShape ShapeBalloon(sv::Size text) noexcept;

/// The position of a balloon in the parent of its button: below and to the right, or on the other side of the
/// button where the parent ends. Never negative.
[[nodiscard]] sv::Point PlaceBalloon(WindowArea const& button, sv::Size balloon, sv::Size parent) noexcept;

}  // namespace kv::detail
