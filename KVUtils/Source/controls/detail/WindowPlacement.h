// Where windows are put: dialogs over their reference or on the screen, and balloon help beside its button.
// All in pixels, from the top left, wrapped to 16 bits.
#pragma once

#include "SV/core/Geometry.h"

#include <optional>

namespace kv::detail {

/// What a window takes up.
struct WindowArea {
    sv::Point position;
    sv::Size size;
};

/// The bits by which a caller says where a window goes; of several, the last one that applies decides.
enum PlacementFlag : long {
    CentreOnReference =
        1,  // not beyond the left and top edge; without a reference all flags become the next one
    CentreOnScreen = 2,
    Cascade = 4,  // 20 pixels right of and below the reference
};

/// Where the window goes: with no flag it begins from where it stands. It never hangs over the right or
/// bottom edge of the screen, so that one that is larger than the screen gets a negative position.
[[nodiscard]] sv::Point PlaceWindow(std::optional<WindowArea> const& reference, WindowArea const& window,
                                    sv::Size screen, long flags) noexcept;

/// The parts of a balloon round a text of this size: its text field, and the size of the whole.
struct BalloonShape {
    WindowArea text;
    sv::Size size;
};
[[nodiscard]] BalloonShape ShapeBalloon(sv::Size text) noexcept;

/// Where a balloon goes within the parent of its button: below and to the right, and on the other side of the
/// button where the parent ends. Never negative.
[[nodiscard]] sv::Point PlaceBalloon(WindowArea const& button, sv::Size balloon, sv::Size parent) noexcept;

}  // namespace kv::detail
