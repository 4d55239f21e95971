// The positions of the parts of a plot. Pixels count from the bottom left, Y upward, and wrap to 16 bits.
#pragma once

#include "KVUtils/Source/plots/AxisData.h"
#include "SV/core/Geometry.h"

#include <cstdint>
#include <vector>

namespace kv::detail {

/// The pixel of a value on an axis that is `extent` pixels long. A value outside the range is outside the
/// axis. The pixel offset alone for an axis whose range is 0 or reversed, a window without extent, and NaN.
[[nodiscard]] std::int16_t LogicToPixel(AxisData const& axis, int extent, float value) noexcept;

/// The value at a pixel; the axis' minimum where all values have one pixel.
[[nodiscard]] float PixelToLogic(AxisData const& axis, int extent, int position) noexcept;

/// A line across the axis, to both sides of it.
struct Tick {
    std::int16_t position;
    std::int16_t halfLength;  // 10 for a major tick, 5 for a minor one

    friend bool operator==(Tick const&, Tick const&) = default;
};

/// The ticks from the last major one at or below the minimum up to the maximum; none for a step below 1e-9 or
/// NaN. Values grow by `float` addition; the list ends where that no longer changes them, or after 100,000. A
/// negative count of subdivisions counts as 0.
[[nodiscard]] std::vector<Tick> Ticks(AxisData const& axis, int extent);

/// The number at a major tick.
struct TickLabel {
    float value;
    sv::String text;
    std::int16_t position;  // on the axis
};

/// The labels from the first multiple of the step at or above the minimum up to the maximum, with the
/// locale's decimal separator; none for a step that is not above 1e-9. The list ends as that of the ticks
/// does.
[[nodiscard]] std::vector<TickLabel> TickLabels(AxisData const& axis, int extent, int decimals);

/// The diagram within the window that labels it, in pixels from the top left. The size is negative where the
/// window is smaller than the margins.
struct DiagramArea {
    sv::Point position;
    sv::Size size;
};
[[nodiscard]] DiagramArea DiagramWithin(sv::Size window) noexcept;

/// The positions of the texts in that window: labels centred below their tick, or left of it; titles beyond
/// the ends of the axes. `diagram` is the size of the diagram.
[[nodiscard]] sv::Point XLabelPosition(TickLabel const& label, int textWidth) noexcept;
[[nodiscard]] sv::Point YLabelPosition(TickLabel const& label, int textWidth) noexcept;
[[nodiscard]] sv::Point XTitlePosition(sv::Size diagram) noexcept;
[[nodiscard]] sv::Point YTitlePosition(sv::Size diagram) noexcept;

}  // namespace kv::detail
