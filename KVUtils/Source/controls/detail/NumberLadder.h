// The steps of a number field: a ladder of preferred numbers, 14 a decade, so that a click changes any value
// by about the same ratio.
#pragma once

namespace kv::detail {

/// The ladder's value at an index: 1, 1.25, 1.5, 1.75, 2, 2.5, 3, 3.5, 4, 5, 6, 7, 8, 9 for 0 to 13, the same
/// times 10^k for 14 k onward, below 0 too (-1 is 0.9). Each is the `double` nearest to the decimal number,
/// so that a typed rung is a rung. Beyond the range of `double`, 0 or infinity.
[[nodiscard]] double LadderValue(int index) noexcept;

enum class StepDirection : bool { Down, Up };

/// The next rung beyond a value, up or down. A value between minus and plus `minimalStep`, both excluded,
/// counts as the one in this direction. Returns infinity, NaN, and 0 without a minimal step unchanged.
[[nodiscard]] double NextOnLadder(double value, StepDirection direction, double minimalStep) noexcept;

/// The value plus or minus one, truncated.
[[nodiscard]] double NextInteger(double value, StepDirection direction) noexcept;

/// Limited to the maximum, then to the minimum, which wins if the two are exchanged.
[[nodiscard]] double ClampStep(double value, double minimum, double maximum) noexcept;

}  // namespace kv::detail
